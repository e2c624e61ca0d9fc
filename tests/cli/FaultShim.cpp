// Loaded before the C library, this lets a chosen system call of the program fail or wait:
//   FAULT_CALL=write FAULT_NUMBER=3 FAULT_ERRNO=28    the third write to a file fails
//   FAULT_CALL=fsync FAULT_NUMBER=1 FAULT_WAIT=PATH   the first fsync makes PATH and waits until it is gone
// Writes to the standard descriptors are not counted.
#include <dlfcn.h>
#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdarg>
#include <cstdlib>
#include <string_view>

namespace {

template <typename Function>
Function* next(const char* name) {
    return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

int number(const char* variable) {
    const char* value = std::getenv(variable);
    return value == nullptr ? 0 : std::atoi(value);
}

void waitForPermission(const char* path) {
    ::close(::creat(path, 0600));
    while (::access(path, F_OK) == 0) {
        ::usleep(1000);
    }
}

/// Whether this call is the one to fail; errno is set then.
bool fails(std::string_view call) {
    static int calls = 0;
    const char* wanted = std::getenv("FAULT_CALL");
    if (wanted == nullptr || call != wanted || ++calls != number("FAULT_NUMBER")) {
        return false;
    }
    if (const char* path = std::getenv("FAULT_WAIT"); path != nullptr) {
        waitForPermission(path);
        return false;
    }
    errno = number("FAULT_ERRNO");
    return true;
}

}  // namespace

extern "C" ssize_t write(int descriptor, const void* bytes, size_t count) {
    if (descriptor > STDERR_FILENO && fails("write")) {
        return -1;
    }
    return next<decltype(write)>("write")(descriptor, bytes, count);
}

extern "C" int fsync(int descriptor) {
    return fails("fsync") ? -1 : next<decltype(fsync)>("fsync")(descriptor);
}

extern "C" int renameat2(int oldFolder, const char* oldName, int newFolder, const char* newName,
                         unsigned flags) noexcept {
    return fails("rename")
               ? -1
               : next<decltype(renameat2)>("renameat2")(oldFolder, oldName, newFolder, newName, flags);
}

extern "C" int openat(int folder, const char* name, int flags, ...) {
    if ((flags & O_EXCL) != 0 && fails("open")) {
        return -1;
    }
    std::va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = va_arg(arguments, mode_t);
    va_end(arguments);
    return next<decltype(openat)>("openat")(folder, name, flags, mode);
}
