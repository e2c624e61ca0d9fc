#include "Signals.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstring>

#include "ExitCode.h"

namespace cli::signals {

namespace {

constexpr std::array ENDING_SIGNALS = {SIGINT, SIGTERM, SIGHUP};

// What the handler reads is only written while the signals are blocked, or before the handler is installed.
volatile sig_atomic_t temporaryFolder = -1;
char temporaryName[NAME_MAX + 1];
char farewellText[256];
std::size_t farewellLength = 0;

extern "C" void endProgram(int /*signal*/) {
    if (temporaryFolder >= 0) {
        ::unlinkat(temporaryFolder, temporaryName, 0);
    }
    // Nothing can be done about a farewell that nobody hears.
    [[maybe_unused]] const ssize_t written = ::write(STDERR_FILENO, farewellText, farewellLength);
    ::_exit(static_cast<int>(ExitCode::INTERRUPTED));
}

sigset_t endingSignals() {
    sigset_t set;
    sigemptyset(&set);
    for (const int signal : ENDING_SIGNALS) {
        sigaddset(&set, signal);
    }
    return set;
}

void installUnlessIgnored(int signal) {
    struct sigaction action {};
    ::sigaction(signal, nullptr, &action);
    if (action.sa_handler == SIG_IGN) {
        return;
    }
    action = {};
    action.sa_handler = endProgram;
    action.sa_mask = endingSignals();
    ::sigaction(signal, &action, nullptr);
}

}  // namespace

void install(const std::string& farewell) {
    farewellLength = std::min(farewell.size(), sizeof(farewellText));
    std::memcpy(farewellText, farewell.data(), farewellLength);
    for (const int signal : ENDING_SIGNALS) {
        installUnlessIgnored(signal);
    }
}

Blocker::Blocker() {
    const sigset_t signals = endingSignals();
    ::pthread_sigmask(SIG_BLOCK, &signals, &before_);
}

Blocker::~Blocker() {
    ::pthread_sigmask(SIG_SETMASK, &before_, nullptr);
}

void registerTemporary(int folder, const std::string& name) {
    const Blocker blocker;
    std::memcpy(temporaryName, name.c_str(), std::min(name.size() + 1, sizeof(temporaryName)));
    temporaryFolder = folder;
}

void forgetTemporary() {
    const Blocker blocker;
    temporaryFolder = -1;
}

void prepareProcess() {
    ::signal(SIGPIPE, SIG_IGN);
    ::signal(SIGXFSZ, SIG_IGN);
    constexpr std::array MODES = {O_WRONLY, O_RDONLY, O_RDONLY};
    for (int descriptor = STDIN_FILENO; descriptor <= STDERR_FILENO; ++descriptor) {
        if (::fcntl(descriptor, F_GETFD) < 0 && errno == EBADF) {
            // The lowest free number is this one.
            ::open("/dev/null", MODES[static_cast<std::size_t>(descriptor)]);
        }
    }
}

}  // namespace cli::signals
