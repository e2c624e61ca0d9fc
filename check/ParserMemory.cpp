#include "ParserMemory.h"

#include <libxml/xmlmemory.h>

#include <cstdlib>
#include <cstring>

namespace oimcheck {
namespace {

thread_local bool failed = false;

void* watched(void* memory) noexcept {
    failed = failed || memory == nullptr;
    return memory;
}

void* allocate(std::size_t size) {
    return watched(std::malloc(size));
}

void* reallocate(void* memory, std::size_t size) {
    return watched(std::realloc(memory, size));
}

char* duplicate(const char* text) {
    return static_cast<char*>(watched(::strdup(text)));
}

}  // namespace

void ParserMemory::watch() noexcept {
    xmlMemSetup(std::free, allocate, reallocate, duplicate);
}

bool ParserMemory::hasFailed() noexcept {
    return failed;
}

void ParserMemory::forget() noexcept {
    failed = false;
}

}  // namespace oimcheck
