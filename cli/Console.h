#pragma once

#include <cstdint>
#include <mutex>
#include <string>
#include <string_view>

namespace cli {

enum class LogFormat { TEXT, JSON };
enum class Verbosity { QUIET, NORMAL, VERBOSE };
enum class Level { NOTE, WARNING, ERROR };

/// Something to tell the user.
struct Message {
    Level level = Level::NOTE;
    std::string subject = {};  ///< the file or option that it is about; empty for the program as a whole
    std::string where = {};    ///< the object in the source, such as "main.customer"; may be empty
    std::string id = {};       ///< the identifier in a bridge's catalogue, without brackets; may be empty
    std::string text = {};
    std::string hint = {};  ///< what to do next; may be empty
    std::string data = {};  ///< figures as a JSON object, for the json format only; may be empty
};

/// What the program says to its user on standard error: messages, each a line of its own, and on a terminal
/// one line of progress below them. May be used by several threads at once.
class Console {
  public:
    Console() = default;
    Console(const Console&) = delete;
    Console& operator=(const Console&) = delete;

    void setLogFormat(LogFormat format) noexcept { format_ = format; }
    LogFormat getLogFormat() const noexcept { return format_; }
    void setVerbosity(Verbosity verbosity) noexcept { verbosity_ = verbosity; }
    bool isQuiet() const noexcept { return verbosity_ == Verbosity::QUIET; }
    bool isVerbose() const noexcept { return verbosity_ == Verbosity::VERBOSE; }

    /// Prints the message, unless it is less than an error and the console is quiet.
    void print(const Message& message);
    /// Prints an error of the program as a whole when there is no memory to form a message. The text holds
    /// nothing that JSON would escape.
    void printWithoutMemory(std::string_view text) noexcept;
    /// How many warnings and errors there have been, printed or not.
    std::uint64_t getFindingCount() const noexcept { return findings_; }

    /// Whether progress may be shown: standard error is a terminal, and the console neither quiet nor for
    /// programs.
    bool canShowProgress() const;
    /// Shows the text in the line of progress, shortened to the terminal's width.
    void showProgress(std::string_view text);
    /// Removes the line of progress.
    void clearProgress();

  private:
    void eraseProgressLine();

    std::mutex mutex_;
    LogFormat format_ = LogFormat::TEXT;
    Verbosity verbosity_ = Verbosity::NORMAL;
    std::uint64_t findings_ = 0;
    bool progressShown_ = false;
};

/// The message as it stands on standard error, line feeds included.
std::string formatMessage(const Message& message, LogFormat format);

/// Writes all of the text to standard output. Throws Failure when that is not possible.
void writeStandardOutput(std::string_view text);

}  // namespace cli
