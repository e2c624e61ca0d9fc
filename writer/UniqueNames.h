#pragma once

#include "MicrosoftSqlServerMdsMdcExport.h"

/// A table for `getUniqueName` that frees its names in any way out.
struct UniqueNames {
    UniqueNames(ZORMicrosoftSqlServerMdsMdcExportBridge& bridge, std::size_t initialSize)
        : table(initialSize), bridge_(bridge) {}
    ~UniqueNames() { bridge_.cleanup(table); }
    UniqueNames(const UniqueNames&) = delete;
    UniqueNames& operator=(const UniqueNames&) = delete;

    ZORStringHashtable table;

  private:
    ZORMicrosoftSqlServerMdsMdcExportBridge& bridge_;
};
