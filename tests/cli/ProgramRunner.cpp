#include "ProgramRunner.h"

#include <fcntl.h>
#include <poll.h>
#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <regex>
#include <stdexcept>
#include <thread>

namespace cli_test {

namespace {

constexpr std::chrono::seconds LONG_TIME(120);

int temporaryFile() {
    std::string name = (std::filesystem::temp_directory_path() / "oimbridge-test-XXXXXX").string();
    const int descriptor = ::mkostemp(name.data(), O_CLOEXEC);
    if (descriptor < 0) {
        throw std::runtime_error("no temporary file can be made");
    }
    ::unlink(name.c_str());
    return descriptor;
}

std::string readFromStart(int descriptor) {
    ::lseek(descriptor, 0, SEEK_SET);
    std::string text;
    std::array<char, 65536> block{};
    ssize_t count = 0;
    while ((count = ::read(descriptor, block.data(), block.size())) > 0) {
        text.append(block.data(), static_cast<std::size_t>(count));
    }
    return text;
}

std::string replaceAll(std::string text, const std::string& from, const std::string& to) {
    for (std::size_t at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size())) {
        text.replace(at, from.size(), to);
    }
    return text;
}

/// Only what the program needs of this process's environment, so that the results are the same everywhere.
std::vector<std::string> environmentOf(const Setting& setting) {
    std::map<std::string, std::string> all = {{"LC_ALL", "C"}};
    for (const char* name : {"PATH", "ASAN_OPTIONS", "LSAN_OPTIONS", "UBSAN_OPTIONS", "TSAN_OPTIONS"}) {
        if (const char* value = std::getenv(name); value != nullptr) {
            all[name] = value;
        }
    }
    for (const auto& [name, value] : setting.environment) {
        all[name] = value;
    }
    std::vector<std::string> lines;
    for (const auto& [name, value] : all) {
        lines.push_back(name + "=" + value);
    }
    return lines;
}

std::vector<char*> pointersTo(std::vector<std::string>& texts) {
    std::vector<char*> pointers;
    for (std::string& text : texts) {
        pointers.push_back(text.data());
    }
    pointers.push_back(nullptr);
    return pointers;
}

[[noreturn]] void becomeProgram(const Scratch& scratch, const Setting& setting) {
    std::vector<std::string> arguments = {OIMBRIDGE_PROGRAM};
    arguments.insert(arguments.end(), setting.arguments.begin(), setting.arguments.end());
    std::vector<std::string> environment = environmentOf(setting);
    ::signal(SIGPIPE, SIG_DFL);
    if (::chdir(scratch.path().c_str()) == 0) {
        if (setting.prepare) {
            setting.prepare();
        }
        ::execve(OIMBRIDGE_PROGRAM, pointersTo(arguments).data(), pointersTo(environment).data());
    }
    ::_exit(127);
}

}  // namespace

Scratch::Scratch() {
    std::string name = (std::filesystem::temp_directory_path() / "oimbridge-test-XXXXXX").string();
    if (::mkdtemp(name.data()) == nullptr) {
        throw std::runtime_error("no scratch folder can be made");
    }
    path_ = std::filesystem::canonical(name);
}

Scratch::~Scratch() {
    std::error_code ignored;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(path_, ignored)) {
        if (entry.is_directory(ignored)) {
            std::filesystem::permissions(entry.path(), std::filesystem::perms::owner_all, ignored);
        }
    }
    std::filesystem::remove_all(path_, ignored);
}

void Scratch::write(const std::string& name, const std::string& content) const {
    std::ofstream(path_ / name, std::ios::binary) << content;
}

std::string Scratch::read(const std::string& name) const {
    std::ifstream file(path_ / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

bool Scratch::exists(const std::string& name) const {
    return std::filesystem::exists(std::filesystem::symlink_status(path_ / name));
}

std::vector<std::string> Scratch::list() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(path_)) {
        names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
}

Process::Process(const Scratch& scratch, const Setting& setting)
    : out_(temporaryFile()), err_(temporaryFile()), scratchPath_(scratch.path().string()) {
    // A program that ends without reading its input must not end the test.
    ::signal(SIGPIPE, SIG_IGN);
    std::array<int, 2> input{};
    if (::pipe2(input.data(), O_CLOEXEC) != 0) {
        throw std::runtime_error("no pipe can be made");
    }
    int child = -1;
    if (setting.terminal) {
        winsize size{};
        size.ws_row = 25;
        size.ws_col = 100;
        if (::openpty(&terminal_, &child, nullptr, nullptr, &size) != 0) {
            throw std::runtime_error("no terminal can be made");
        }
        ::fcntl(terminal_, F_SETFD, FD_CLOEXEC);
    }
    pid_ = ::fork();
    if (pid_ == 0) {
        ::dup2(input[0], STDIN_FILENO);
        ::dup2(out_, STDOUT_FILENO);
        ::dup2(setting.terminal ? child : err_, STDERR_FILENO);
        becomeProgram(scratch, setting);
    }
    ::close(input[0]);
    if (child >= 0) {
        ::close(child);
    }
    input_ = input[1];
}

Process::~Process() {
    closeInput();
    if (pid_ > 0) {
        ::kill(pid_, SIGKILL);
        ::waitpid(pid_, nullptr, 0);
    }
    for (const int descriptor : {terminal_, out_, err_}) {
        if (descriptor >= 0) {
            ::close(descriptor);
        }
    }
}

void Process::writeInput(const std::string& text) {
    std::size_t done = 0;
    while (done < text.size()) {
        const ssize_t count = ::write(input_, text.data() + done, text.size() - done);
        if (count < 0) {
            return;  // The program has ended, which its result shows.
        }
        done += static_cast<std::size_t>(count);
    }
}

void Process::closeInput() {
    if (input_ >= 0) {
        ::close(input_);
        input_ = -1;
    }
}

void Process::signal(int number) const {
    ::kill(pid_, number);
}

bool Process::catches(int number) const {
    std::ifstream status("/proc/" + std::to_string(pid_) + "/status");
    const std::string label = "SigCgt:";
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with(label)) {
            const unsigned long long caught = std::stoull(line.substr(label.size()), nullptr, 16);
            return ((caught >> (number - 1)) & 1U) != 0;
        }
    }
    return false;
}

bool Process::readTerminal(int timeoutMilliseconds) {
    pollfd waiting{terminal_, POLLIN, 0};
    std::array<char, 4096> block{};
    if (::poll(&waiting, 1, timeoutMilliseconds) <= 0) {
        return false;
    }
    // The end of the program shows as an error of the read.
    const ssize_t count = ::read(terminal_, block.data(), block.size());
    if (count <= 0) {
        return false;
    }
    terminalText_.append(block.data(), static_cast<std::size_t>(count));
    return true;
}

bool Process::waitForTerminal(const std::string& text) {
    return waitForTerminalUntil([&] { return terminalText_.find(text) != std::string::npos; });
}

bool Process::waitForTerminalMatch(const std::string& pattern) {
    const std::regex wanted(pattern);
    return waitForTerminalUntil([&] { return std::regex_search(terminalText_, wanted); });
}

bool Process::waitForTerminalUntil(const std::function<bool()>& condition) {
    const int timeout = static_cast<int>(std::chrono::milliseconds(LONG_TIME).count());
    const auto deadline = std::chrono::steady_clock::now() + LONG_TIME;
    while (!condition()) {
        // A line that is shown over and over is something to read, too.
        if (std::chrono::steady_clock::now() > deadline || !readTerminal(timeout)) {
            return false;
        }
    }
    return true;
}

Result Process::wait() {
    closeInput();
    int status = 0;
    const bool ended = waitUntil([&] {
        while (terminal_ >= 0 && readTerminal(0)) {
        }
        return ::waitpid(pid_, &status, WNOHANG) == pid_;
    });
    if (!ended) {
        ::kill(pid_, SIGKILL);
        ::waitpid(pid_, &status, 0);
    }
    pid_ = -1;
    while (terminal_ >= 0 && readTerminal(0)) {
    }
    Result result;
    result.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    result.signal = WIFSIGNALED(status) ? WTERMSIG(status) : 0;
    result.out = replaceAll(readFromStart(out_), scratchPath_, "$TMPDIR");
    result.err = replaceAll(terminal_ >= 0 ? terminalText_ : readFromStart(err_), scratchPath_, "$TMPDIR");
    return result;
}

Result run(const Scratch& scratch, const Setting& setting) {
    Process process(scratch, setting);
    process.writeInput(setting.input);
    return process.wait();
}

Result run(const Scratch& scratch, const std::vector<std::string>& arguments) {
    return run(scratch, Setting{.arguments = arguments});
}

bool waitUntil(const std::function<bool()>& condition) {
    const auto deadline = std::chrono::steady_clock::now() + LONG_TIME;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > deadline) {
            return false;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return true;
}

}  // namespace cli_test
