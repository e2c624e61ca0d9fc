// Running the built program as its user does: with arguments, input and environment, in a scratch folder.
#pragma once

#include <sys/types.h>

#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace cli_test {

/// A folder of its own for one test, removed with everything in it.
class Scratch {
  public:
    Scratch();
    ~Scratch();
    Scratch(const Scratch&) = delete;
    Scratch& operator=(const Scratch&) = delete;

    const std::filesystem::path& path() const { return path_; }
    std::string operator/(const std::string& name) const { return (path_ / name).string(); }
    void write(const std::string& name, const std::string& content) const;
    std::string read(const std::string& name) const;
    bool exists(const std::string& name) const;
    /// The names of what is in the folder, sorted.
    std::vector<std::string> list() const;

  private:
    std::filesystem::path path_;
};

struct Result {
    int exitCode = -1;  ///< -1 when a signal ended the program
    int signal = 0;
    std::string out;
    std::string err;
};

/// How the program is run.
struct Setting {
    std::vector<std::string> arguments;
    std::string input = {};
    std::map<std::string, std::string> environment = {};
    /// Called in the new process before the program starts, for limits and descriptors.
    std::function<void()> prepare = {};
    /// Standard error is a terminal; what the program writes there is in `err`.
    bool terminal = false;
};

/// The program while it runs; its standard input stays open until `closeInput`.
class Process {
  public:
    Process(const Scratch& scratch, const Setting& setting);
    ~Process();
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;

    void writeInput(const std::string& text);
    void closeInput();
    void signal(int number) const;
    /// Whether the program has a handler for the signal.
    bool catches(int number) const;
    /// Reads what the program writes to its terminal until that holds the text. False when the program ends,
    /// or a long time passes, before.
    bool waitForTerminal(const std::string& text);
    /// The same for something that the regular expression describes.
    bool waitForTerminalMatch(const std::string& pattern);
    /// Waits for the end of the program; one that hangs is killed after a long time.
    Result wait();

  private:
    bool readTerminal(int timeoutMilliseconds);
    bool waitForTerminalUntil(const std::function<bool()>& condition);

    pid_t pid_ = -1;
    int input_ = -1;
    int terminal_ = -1;
    int out_ = -1;
    int err_ = -1;
    std::string terminalText_;
    std::string scratchPath_;
};

/// Runs the program to its end. In what it writes, the scratch folder's path is replaced by "$TMPDIR".
Result run(const Scratch& scratch, const Setting& setting);
Result run(const Scratch& scratch, const std::vector<std::string>& arguments);

/// Waits until the condition holds; false when that takes a long time.
bool waitUntil(const std::function<bool()>& condition);

}  // namespace cli_test
