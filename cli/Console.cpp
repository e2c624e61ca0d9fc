#include "Console.h"

#include <fmt/format.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>

#include "Failure.h"
#include "Json.h"
#include "Text.h"

namespace cli {

namespace {

constexpr std::array LEVEL_WORDS = {"note", "warning", "error"};

const char* levelWord(Level level) {
    return LEVEL_WORDS[static_cast<std::size_t>(level)];
}

std::string formatText(const Message& message) {
    std::string line = fmt::format("oimbridge: {}: ", levelWord(message.level));
    for (const std::string& part : {message.subject, message.where}) {
        if (!part.empty()) {
            line += printable(part) + ": ";
        }
    }
    if (!message.id.empty()) {
        line += fmt::format("[{}] ", message.id);
    }
    line += printable(message.text) + "\n";
    if (!message.hint.empty()) {
        line += fmt::format("hint: {}\n", printable(message.hint));
    }
    return line;
}

std::string formatJson(const Message& message) {
    JsonWriter json;
    json.beginObject()
        .member("level", levelWord(message.level))
        .member("subject", message.subject)
        .member("where", message.where)
        .member("id", message.id)
        .member("text", message.text)
        .member("hint", message.hint);
    if (!message.data.empty()) {
        json.key("data").raw(message.data);
    }
    return json.endObject().text() + "\n";
}

/// 0, or the errno value of the write that failed.
int writeAll(int descriptor, std::string_view text) {
    while (!text.empty()) {
        const ssize_t written = ::write(descriptor, text.data(), text.size());
        if (written == 0 || (written < 0 && errno != EINTR)) {
            return written == 0 ? EIO : errno;  // what takes nothing would be asked for ever
        }
        text.remove_prefix(static_cast<std::size_t>(std::max<ssize_t>(written, 0)));
    }
    return 0;
}

std::size_t terminalWidth() {
    winsize size{};
    const bool known = ::ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
    return known ? size.ws_col : 80;
}

}  // namespace

std::string formatMessage(const Message& message, LogFormat format) {
    return format == LogFormat::JSON ? formatJson(message) : formatText(message);
}

void Console::print(const Message& message) {
    const std::lock_guard lock(mutex_);
    if (message.level != Level::NOTE) {
        ++findings_;
    }
    if (isQuiet() && message.level != Level::ERROR) {
        return;
    }
    eraseProgressLine();
    // Nobody is left to be told when standard error itself fails.
    writeAll(STDERR_FILENO, formatMessage(message, format_));
}

void Console::printWithoutMemory(std::string_view text) noexcept {
    const bool isJson = format_ == LogFormat::JSON;
    eraseProgressLine();
    writeAll(STDERR_FILENO,
             isJson ? R"({"level":"error","subject":"","where":"","id":"","text":")" : "oimbridge: error: ");
    writeAll(STDERR_FILENO, text);
    writeAll(STDERR_FILENO, isJson ? "\",\"hint\":\"\"}\n" : "\n");
}

bool Console::canShowProgress() const {
    return !isQuiet() && format_ == LogFormat::TEXT && ::isatty(STDERR_FILENO) == 1;
}

void Console::showProgress(std::string_view text) {
    std::string line = printable(text);
    // The last column stays empty: a full line would make the terminal scroll.
    const std::size_t room = terminalWidth() - 1;
    if (line.size() > room) {
        line.resize(room);
    }
    const std::lock_guard lock(mutex_);
    writeAll(STDERR_FILENO, "\r\x1b[K" + line);
    progressShown_ = true;
}

void Console::clearProgress() {
    const std::lock_guard lock(mutex_);
    eraseProgressLine();
}

void Console::eraseProgressLine() {
    if (progressShown_) {
        writeAll(STDERR_FILENO, "\r\x1b[K");
        progressShown_ = false;
    }
}

void writeStandardOutput(std::string_view text) {
    const int reason = writeAll(STDOUT_FILENO, text);
    if (reason == EPIPE) {
        throw Failure(ExitCode::OUTPUT_NOT_WRITTEN, "standard output",
                      "the program that reads it has closed the pipe");
    }
    if (reason != 0) {
        throw Failure(ExitCode::OUTPUT_NOT_WRITTEN, "standard output",
                      "cannot be written: " + describeErrno(reason));
    }
}

}  // namespace cli
