// Progress on a terminal. What is to last waits for the test here: for input, for somebody to take what is
// written, or for the line to be shown.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <poll.h>
#include <pty.h>
#include <sys/stat.h>
#include <unistd.h>

#include <fstream>

#include "ModelReading.h"
#include "ProgramRunner.h"
#include "Sources.h"
#include "sqlite/SqliteReaders.h"

namespace cli_test {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;

const std::string ERASE = "\r\x1b[K";
const std::vector<std::string> SLOW_EXPORT = {"export", "sql:-", "out.xml"};

TEST(Progress, IsShownInALongRunAndTakenAwayAfterwards) {
    const Scratch scratch;
    Process process(scratch, Setting{.arguments = SLOW_EXPORT, .terminal = true});
    ASSERT_TRUE(process.waitForTerminal(ERASE + "standard input: "));
    process.writeInput("CREATE TABLE t (a INTEGER);");
    const Result result = process.wait();
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_THAT(result.err, EndsWith(ERASE));
    EXPECT_THAT(result.err, Not(HasSubstr("\n")));
}

TEST(Progress, TellsHowMuchOfADocumentIsWritten) {
    const Scratch scratch;
    scratch.write("many.sql", manyTables(2000));
    ASSERT_EQ(::mkfifo((scratch / "pipe").c_str(), 0600), 0);
    Process process(scratch, Setting{.arguments = {"export", "many.sql", "pipe"}, .terminal = true});
    std::ifstream reader(scratch / "pipe", std::ios::binary);
    std::string beginning(1'000'000, '\0');
    ASSERT_TRUE(reader.read(beginning.data(), static_cast<std::streamsize>(beginning.size())));
    // Nobody takes the rest for now.
    EXPECT_TRUE(process.waitForTerminalMatch("pipe: [1-9][0-9,]* elements, [1-9][0-9.]* MB written"));
    const std::string rest{std::istreambuf_iterator<char>(reader), {}};
    EXPECT_THAT(rest, EndsWith("</oim:Transfer>\n"));
    const Result result = process.wait();
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_THAT(result.err, EndsWith(ERASE));
}

TEST(Progress, TellsHowManyElementsOfAViewWereLookedAt) {
    const Scratch scratch;
    scratch.write("shop.sql", SHOP_SQL);
    Process process(scratch, Setting{.arguments = {"inspect", "shop.sql", "--view", "dbm"},
                                     .environment = {{"ZOR_BRIDGE_PATH", PATIENT_BRIDGE_FOLDER}},
                                     .terminal = true});
    EXPECT_TRUE(process.waitForTerminal("shop.sql: DBM view: 8,192 elements looked at"));
    const Result result = process.wait();
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_THAT(result.err, EndsWith(ERASE));
}

/// Standard error of this process as a terminal.
class OwnTerminal {
  public:
    OwnTerminal() : earlier_(::dup(STDERR_FILENO)) {
        int other = -1;
        if (::openpty(&terminal_, &other, nullptr, nullptr, nullptr) != 0) {
            throw std::runtime_error("no terminal can be made");
        }
        ::dup2(other, STDERR_FILENO);
        ::close(other);
    }
    ~OwnTerminal() {
        ::dup2(earlier_, STDERR_FILENO);
        ::close(earlier_);
        ::close(terminal_);
    }
    OwnTerminal(const OwnTerminal&) = delete;
    OwnTerminal& operator=(const OwnTerminal&) = delete;

    /// Waits until the text is shown; false when a long time passes before.
    bool waitFor(const std::string& text) const {
        std::string shown;
        return waitUntil([&] {
            pollfd waiting{terminal_, POLLIN, 0};
            char block[256];
            if (::poll(&waiting, 1, 0) == 1) {
                shown.append(block, static_cast<std::size_t>(
                                        std::max<ssize_t>(::read(terminal_, block, sizeof block), 0)));
            }
            return shown.find(text) != std::string::npos;
        });
    }

  private:
    int earlier_;
    int terminal_ = -1;
};

/// Passes on what another reader reports, and halts it at a number of objects.
class HaltingReader : public readers::Reader {
  public:
    HaltingReader(const readers::Reader& reader, std::uint64_t objects, std::function<void()> halt)
        : reader_(reader), objects_(objects), halt_(std::move(halt)) {}
    const readers::ReaderDescription& describe() const override { return reader_.describe(); }
    bool identify(const readers::Source& source) const override { return reader_.identify(source); }
    std::unique_ptr<ZORModel> read(const readers::Source& source, const readers::ReadRequest& request,
                                   readers::ReadContext& context) const override {
        Context halting(*this, context);
        return reader_.read(source, request, halting);
    }

  private:
    class Context : public readers::ReadContext {
      public:
        Context(const HaltingReader& reader, readers::ReadContext& context)
            : reader_(reader), context_(context) {}
        void warn(const std::string& where, const std::string& text) override { context_.warn(where, text); }
        void progress(std::uint64_t objects) override {
            context_.progress(objects);
            if (objects == reader_.objects_ && !halted_) {
                halted_ = true;
                reader_.halt_();
            }
        }

      private:
        const HaltingReader& reader_;
        readers::ReadContext& context_;
        bool halted_ = false;
    };

    const readers::Reader& reader_;
    std::uint64_t objects_;
    std::function<void()> halt_;
};

TEST(Progress, TellsHowManyObjectsOfASourceWereRead) {
    OwnTerminal terminal;
    bool isShown = false;
    const HaltingReader reader(readers::sqlScriptReader(), 12,
                               [&] { isShown = terminal.waitFor("shop.sql: 12 objects read"); });
    cli::Console console;
    cli::Progress progress(console, std::chrono::milliseconds(1));
    cli::readModel({readers::Source::fromText("shop.sql", manyTables(3)), &reader}, {}, console, progress);
    EXPECT_TRUE(isShown);
}

TEST(Progress, GivesWayToAnInterrupt) {
    const Scratch scratch;
    Process process(scratch, Setting{.arguments = SLOW_EXPORT, .terminal = true});
    ASSERT_TRUE(process.waitForTerminal(ERASE + "standard input: "));
    process.signal(SIGINT);
    const Result result = process.wait();
    EXPECT_EQ(result.exitCode, 130);
    EXPECT_THAT(result.err, EndsWith(ERASE + "oimbridge: error: interrupted\r\n"));
}

TEST(Progress, IsNotShownInAShortRunNorInAPipeNorQuietlyNorToPrograms) {
    const Scratch scratch;
    const Result brief = run(
        scratch, Setting{.arguments = SLOW_EXPORT, .input = "CREATE TABLE t (a INTEGER);", .terminal = true});
    EXPECT_EQ(brief.exitCode, 0);
    EXPECT_EQ(brief.err, "");
    for (const std::vector<std::string>& more :
         {std::vector<std::string>{}, {"-q"}, {"--log-format", "json"}}) {
        std::vector<std::string> arguments = SLOW_EXPORT;
        arguments.insert(arguments.end(), more.begin(), more.end());
        Process process(scratch, Setting{.arguments = arguments, .terminal = !more.empty()});
        ASSERT_TRUE(waitUntil([&] { return process.catches(SIGINT); }));
        // Progress is not due before a second; that much time passes in any case.
        std::this_thread::sleep_for(std::chrono::milliseconds(1300));
        process.signal(SIGINT);
        EXPECT_THAT(process.wait().err, Not(HasSubstr("\x1b")));
    }
}

}  // namespace
}  // namespace cli_test
