// Loaded before the C library, this lets one allocation of the program fail, counted from the beginning of
// main:
//   FAILING_ALLOCATION=7 ALLOCATION_REACHED=PATH    the seventh fails; PATH is made when it comes to that
// The C library's own functions stand below those that are replaced here.
#include <dlfcn.h>
#include <fcntl.h>
#include <unistd.h>

#include <atomic>
#include <cstddef>
#include <cstdlib>

extern "C" {
// NOLINTBEGIN(bugprone-reserved-identifier)
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* memory, std::size_t size);
// NOLINTEND(bugprone-reserved-identifier)
}

namespace {

using Main = int(int, char**, char**);

/// Counted down; none fails below 1.
std::atomic<long> countdown = 0;
Main* programsMain = nullptr;

bool fails() {
    if (countdown <= 0 || --countdown != 0) {
        return false;
    }
    if (const char* path = std::getenv("ALLOCATION_REACHED"); path != nullptr) {
        ::close(::creat(path, 0600));
    }
    return true;
}

int countingMain(int count, char** words, char** environment) {
    const char* number = std::getenv("FAILING_ALLOCATION");
    countdown = number == nullptr ? 0 : std::atol(number);
    const int code = programsMain(count, words, environment);
    countdown = 0;
    return code;
}

}  // namespace

extern "C" void* malloc(std::size_t size) noexcept {
    return fails() ? nullptr : __libc_malloc(size);
}

extern "C" void* calloc(std::size_t count, std::size_t size) noexcept {
    return fails() ? nullptr : __libc_calloc(count, size);
}

extern "C" void* realloc(void* memory, std::size_t size) noexcept {
    return fails() ? nullptr : __libc_realloc(memory, size);
}

// NOLINTNEXTLINE(bugprone-reserved-identifier)
extern "C" int __libc_start_main(Main* main, int count, char** words, void (*begin)(), void (*end)(),
                                 void (*loaderEnd)(), void* stackEnd) {
    programsMain = main;
    const auto start =
        reinterpret_cast<decltype(__libc_start_main)*>(::dlsym(RTLD_NEXT, "__libc_start_main"));
    return start(countingMain, count, words, begin, end, loaderEnd, stackEnd);
}
