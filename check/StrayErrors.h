#pragma once

#include <libxml/xmlerror.h>

namespace oimcheck {

/// While it lives, what libxml2 tells of no parser in particular goes to `handler`, and nothing is printed:
/// faults of an encoding come in that way. Holds for the thread; what was set before is set again in the end.
class StrayErrors {
  public:
    StrayErrors(xmlStructuredErrorFunc handler, void* context);
    ~StrayErrors();
    StrayErrors(const StrayErrors&) = delete;
    StrayErrors& operator=(const StrayErrors&) = delete;

  private:
    xmlStructuredErrorFunc handlerBefore_;
    void* contextBefore_;
    xmlGenericErrorFunc printerBefore_;
    void* printerContextBefore_;
};

}  // namespace oimcheck
