#include "StrayErrors.h"

#include "ParserLibrary.h"

namespace oimcheck {

StrayErrors::StrayErrors(xmlStructuredErrorFunc handler, void* context) {
    prepareParserLibrary();  // before it, the variables are not yet a thread's own
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
