#include "ZORException.h"

#include <cstdio>
#include <cstdlib>

// Defined here so that the type has one home, which catching it across libraries relies on.
ZORException::~ZORException() = default;

void zorAssertionFailed(const char* expression, const char* source, int line) noexcept {
    std::fprintf(stderr, "Assertion failed: %s, file %s, line %d\n", expression, source, line);
    std::abort();
}
