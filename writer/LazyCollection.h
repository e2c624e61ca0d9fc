// writer/: the elements of a document, the transfer document around the views, and what several views write
// alike. What a view holds, and in which order, is the business of the view's own folder.
#pragma once

#include "MicrosoftSqlServerMdsMdcExport.h"

/// A collection element that is opened before its first member and written only when it has one.
class LazyCollection {
  public:
    /// `tag` outlives the collection.
    LazyCollection(ZORMicrosoftSqlServerMdsMdcExportBridge& bridge, const ZORString& tag) noexcept
        : bridge_(bridge), tag_(tag) {}

    /// To be called before each member.
    void open() {
        if (!open_) {
            bridge_.startTag(tag_, false);
            open_ = true;
        }
    }
    /// To be called after the last one.
    void close() {
        if (open_) {
            bridge_.endTag(tag_);
        }
    }

  private:
    ZORMicrosoftSqlServerMdsMdcExportBridge& bridge_;
    const ZORString& tag_;
    bool open_ = false;
};
