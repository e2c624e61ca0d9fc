#include "ParserLibrary.h"

#include <libxml/parser.h>
#include <libxml/threads.h>
#include <libxml/xmlmemory.h>

#include <cstdlib>
#include <cstring>
#include <mutex>
#include <new>

namespace oimcheck {
namespace {

thread_local bool wasRefused = false;

void* watched(void* memory) {
    wasRefused = wasRefused || memory == nullptr;
    return memory;
}

void* allocate(std::size_t size) {
    return watched(std::malloc(size == 0 ? 1 : size));
}

void* reallocate(void* memory, std::size_t size) {
    return watched(std::realloc(memory, size == 0 ? 1 : size));
}

char* duplicate(const char* text) {
    const std::size_t size = std::strlen(text) + 1;
    void* const copy = allocate(size);
    return copy == nullptr ? nullptr : static_cast<char*>(std::memcpy(copy, text, size));
}

/// Memory that was requested before goes on as it is: it is that of the C library, too.
void prepareOnce() {
    xmlInitThreads();
    xmlMemSetup(std::free, allocate, reallocate, duplicate);
    const xmlGenericErrorFunc printer = xmlGenericError;
    void* const context = xmlGenericErrorContext;
    xmlSetGenericErrorFunc(nullptr, ignoreWords);
    xmlInitParser();
    if (wasRefused) {
        // Nobody has used it before, or there would have been nothing to do. The next attempt starts over.
        xmlCleanupParser();
    }
    xmlSetGenericErrorFunc(context, printer);
    throwIfMemoryWasRefused();
}

}  // namespace

void prepareParserLibrary() {
    static std::once_flag prepared;
    forgetRefusedMemory();
    std::call_once(prepared, prepareOnce);
}

void forgetRefusedMemory() noexcept {
    wasRefused = false;
}

void throwIfMemoryWasRefused() {
    if (wasRefused) {
        throw std::bad_alloc();
    }
}

void ignoreWords(void* /*context*/, const char* /*format*/, ...) {}

}  // namespace oimcheck
