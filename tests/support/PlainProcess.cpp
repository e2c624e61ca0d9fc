#include "PlainProcess.h"

#include <sys/wait.h>
#include <unistd.h>

#include <stdexcept>

namespace support {

namespace {

constexpr unsigned NOBODY = 65534;

std::string leaveRootAnd(const std::function<std::string()>& work) {
    if (::geteuid() == 0 && (::setegid(NOBODY) != 0 || ::seteuid(NOBODY) != 0)) {
        return "the administrator's rights cannot be left";
    }
    try {
        return work();
    } catch (const std::exception& error) {
        return error.what();
    }
}

}  // namespace

std::string inPlainProcess(const std::function<std::string()>& work) {
    int result[2];
    if (::pipe(result) != 0) {
        throw std::runtime_error("no pipe can be made");
    }
    const pid_t child = ::fork();
    if (child == 0) {
        const std::string text = leaveRootAnd(work);
        [[maybe_unused]] const ssize_t ignored = ::write(result[1], text.data(), text.size());
        ::_exit(0);
    }
    ::close(result[1]);
    std::string text(4096, '\0');
    const ssize_t size = ::read(result[0], text.data(), text.size());
    text.resize(size > 0 ? static_cast<std::size_t>(size) : 0);
    ::close(result[0]);
    ::waitpid(child, nullptr, 0);
    return text;
}

}  // namespace support
