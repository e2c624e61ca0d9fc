#pragma once

#include "MicrosoftSqlServerMdsMdcExport.h"

/// The parameter that stands for an operation's result while the operation is written: named like the
/// operation, not part of the model.
class ReturnArgument {
  public:
    ReturnArgument(ZORMicrosoftSqlServerMdsMdcExportBridge& bridge, const ZOROperation* operation)
        : bridge_(bridge) {
        argument_.setName(operation->getName());
        argument_.setKind(ZOR_ARGUMENT_RETURN);
        argument_.addType(operation->getResultType());
    }
    ~ReturnArgument() {
        bridge_.releaseUserData(&argument_);
        argument_.setOwner(nullptr);
    }
    ReturnArgument(const ReturnArgument&) = delete;
    ReturnArgument& operator=(const ReturnArgument&) = delete;

    ZORArgument* get() noexcept { return &argument_; }

  private:
    ZORMicrosoftSqlServerMdsMdcExportBridge& bridge_;
    ZORArgument argument_;
};
