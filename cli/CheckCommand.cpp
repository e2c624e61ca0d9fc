#include <fcntl.h>
#include <fmt/format.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <vector>

#include "CheckReport.h"
#include "Commands.h"
#include "Failure.h"
#include "OutputFile.h"
#include "Progress.h"
#include "Text.h"

namespace cli {

namespace {

/// A document that is read from front to back.
class DocumentInput {
  public:
    explicit DocumentInput(const std::string& path) : name_(path == "-" ? "standard input" : path) {
        if (path != "-") {
            open(path);
        }
    }

    const std::string& name() const { return name_; }

    /// The next bytes; 0 at the end.
    std::size_t read(std::vector<char>& block) {
        while (true) {
            const ssize_t count = ::read(descriptor_, block.data(), block.size());
            if (count >= 0) {
                return static_cast<std::size_t>(count);
            }
            if (errno != EINTR) {
                throw Failure(ExitCode::SOURCE_NOT_OPENED, name_, "cannot be read: " + describeErrno(errno));
            }
        }
    }

  private:
    void open(const std::string& path) {
        file_.reset(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
        struct stat found {};
        if (file_.get() < 0 || ::fstat(file_.get(), &found) != 0) {
            throw Failure(ExitCode::SOURCE_NOT_OPENED, name_, "cannot be opened: " + describeErrno(errno));
        }
        if (S_ISDIR(found.st_mode)) {
            throw Failure(ExitCode::SOURCE_NOT_OPENED, name_, "is a folder", "name a file in it");
        }
        descriptor_ = file_.get();
    }

    std::string name_;
    Descriptor file_;
    int descriptor_ = STDIN_FILENO;
};

void feedAll(DocumentInput& input, CheckReport& report, Progress& progress) {
    std::atomic<std::uint64_t> bytes = 0;
    const Progress::Stage stage(
        progress, [&] { return fmt::format("{}: {} checked", input.name(), formatBytes(bytes)); });
    std::vector<char> block(1 << 20);
    while (const std::size_t count = input.read(block)) {
        bytes += count;
        if (!report.feed(block.data(), count)) {
            return;
        }
    }
}

void printSummary(const CheckReport& report, const std::string& name, Console& console) {
    if (console.getLogFormat() == LogFormat::JSON) {
        console.print({.level = Level::NOTE,
                       .subject = name,
                       .text = report.summaryText(),
                       .data = report.summaryData()});
    } else if (!console.isQuiet()) {
        writeStandardOutput(printable(name + ": " + report.summaryText()) + "\n");
    }
}

}  // namespace

ExitCode runCheck(const Arguments& arguments, Console& console) {
    DocumentInput input(arguments.source);
    CheckReport report(input.name(), console);
    Progress progress(console);
    feedAll(input, report, progress);
    progress.stop();
    const bool isSound = report.finish().errors == 0;
    printSummary(report, input.name(), console);
    return isSound ? ExitCode::DONE : ExitCode::FINDINGS;
}

}  // namespace cli
