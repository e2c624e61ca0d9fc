#include "StrayErrors.h"

#include <libxml/parser.h>

#include <mutex>

#include "ParserMemory.h"

namespace oimcheck {
namespace {

/// What comes as plain words comes as an error, too, or as a parser that has given up.
void ignoreWords(void* /*context*/, const char* /*format*/, ...) {}

}  // namespace

StrayErrors::StrayErrors(xmlStructuredErrorFunc handler, void* context) {
    static std::once_flag initialised;  // before it, the variables are not yet a thread's own
    std::call_once(initialised, [] {
        ParserMemory::watch();
        xmlInitParser();
    });
    handlerBefore_ = xmlStructuredError;
    contextBefore_ = xmlStructuredErrorContext;
    printerBefore_ = xmlGenericError;
    printerContextBefore_ = xmlGenericErrorContext;
    xmlSetStructuredErrorFunc(context, handler);
    xmlSetGenericErrorFunc(nullptr, ignoreWords);
}

StrayErrors::~StrayErrors() {
    xmlSetGenericErrorFunc(printerContextBefore_, printerBefore_);
    xmlSetStructuredErrorFunc(contextBefore_, handlerBefore_);
    xmlResetLastError();  // it keeps the last error for whoever asks
}

}  // namespace oimcheck
