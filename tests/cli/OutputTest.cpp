// Where the document goes, and what happens to what was there before.
#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>

#include "ProgramRunner.h"
#include "Sources.h"

namespace fs = std::filesystem;

namespace cli_test {
namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::MatchesRegex;
using testing::StartsWith;

const std::string OLD = "an earlier document\n";

class Output : public testing::Test {
  protected:
    Output() { scratch.write("shop.sql", SHOP_SQL); }

    void expectDocument(const std::string& name) const {
        const std::string document = scratch.read(name);
        EXPECT_THAT(document, StartsWith("<?xml"));
        EXPECT_THAT(document, EndsWith("</oim:Transfer>\n"));
    }
    mode_t modeOf(const std::string& name) const {
        struct stat status {};
        EXPECT_EQ(::stat((scratch / name).c_str(), &status), 0);
        return status.st_mode & 07777;
    }

    Scratch scratch;
};

TEST_F(Output, GoesToTheFileNamedAndIsSummedUpInOneLine) {
    const Result result = run(scratch, {"export", "shop.sql", "out.xml"});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_THAT(
        result.out,
        MatchesRegex(
            "shop\\.sql -> out\\.xml: DBM view of \"shop\", types of SQL Server 7\\.x, from 1 schema, 3 "
            "tables, 7 columns, .* in [0-9.]+ s\n"));
    expectDocument("out.xml");
    EXPECT_THAT(scratch.list(), ElementsAre("out.xml", "shop.sql"));
}

TEST_F(Output, IsNamedForTheSourceInTheCurrentFolderUnlessNamed) {
    fs::create_directory(scratch.path() / "data");
    scratch.write("data/shop.v2.sql", SHOP_SQL);
    EXPECT_EQ(run(scratch, {"export", "data/shop.v2.sql"}).exitCode, 0);
    expectDocument("shop.v2.xml");
}

TEST_F(Output, HasASynonymThatIsAnOption) {
    for (const std::vector<std::string>& words :
         {std::vector<std::string>{"-o", "a.xml"}, {"-ob.xml"}, {"--output", "c.xml"}, {"--output=d.xml"}}) {
        std::vector<std::string> arguments = {"export", "shop.sql"};
        arguments.insert(arguments.end(), words.begin(), words.end());
        EXPECT_EQ(run(scratch, arguments).exitCode, 0);
    }
    EXPECT_THAT(scratch.list(), ElementsAre("a.xml", "b.xml", "c.xml", "d.xml", "shop.sql"));
}

TEST_F(Output, MayHaveANameThatLooksLikeAnOption) {
    EXPECT_EQ(run(scratch, {"export", "shop.sql", "--", "--view"}).exitCode, 0);
    expectDocument("--view");
    EXPECT_EQ(run(scratch, {"export", "shop.sql", "[a,b]"}).exitCode, 0);
    expectDocument("[a,b]");
}

TEST_F(Output, IsNotReplacedWithoutBeingAsked) {
    scratch.write("out.xml", OLD);
    const Result result = run(scratch, {"export", "shop.sql", "out.xml"});
    EXPECT_EQ(result.err,
              "oimbridge: error: out.xml: exists already\n"
              "hint: --overwrite replaces it\n");
    EXPECT_EQ(result.exitCode, 5);
    EXPECT_EQ(scratch.read("out.xml"), OLD);
    EXPECT_THAT(scratch.list(), ElementsAre("out.xml", "shop.sql"));
}

TEST_F(Output, IsReplacedWhenAskedAndKeepsItsRights) {
    scratch.write("out.xml", OLD);
    ASSERT_EQ(::chmod((scratch / "out.xml").c_str(), 0640), 0);
    const Result result = run(scratch, {"export", "shop.sql", "out.xml", "--overwrite"});
    EXPECT_EQ(result.exitCode, 0) << result.err;
    expectDocument("out.xml");
    EXPECT_EQ(modeOf("out.xml"), 0640U);
}

TEST_F(Output, GetsTheRightsOfAnyNewFile) {
    const Result result = run(
        scratch, Setting{.arguments = {"export", "shop.sql", "out.xml"}, .prepare = [] { ::umask(027); }});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(modeOf("out.xml"), 0640U);
}

TEST_F(Output, ReplacesWhatALinkPointsToAndNotTheLink) {
    fs::create_directory(scratch.path() / "data");
    scratch.write("data/real.xml", OLD);
    fs::create_symlink("data/real.xml", scratch.path() / "link.xml");
    fs::create_symlink("link.xml", scratch.path() / "second.xml");
    EXPECT_EQ(run(scratch, {"export", "shop.sql", "second.xml"}).exitCode, 5);
    EXPECT_EQ(scratch.read("data/real.xml"), OLD);
    EXPECT_EQ(run(scratch, {"export", "shop.sql", "second.xml", "--overwrite"}).exitCode, 0);
    EXPECT_TRUE(fs::is_symlink(scratch.path() / "second.xml"));
    EXPECT_TRUE(fs::is_symlink(scratch.path() / "link.xml"));
    EXPECT_FALSE(fs::is_symlink(scratch.path() / "data/real.xml"));
    expectDocument("data/real.xml");
}

TEST_F(Output, MakesWhatADanglingLinkPointsTo) {
    fs::create_symlink("later.xml", scratch.path() / "link.xml");
    EXPECT_EQ(run(scratch, {"export", "shop.sql", "link.xml"}).exitCode, 0);
    EXPECT_TRUE(fs::is_symlink(scratch.path() / "link.xml"));
    expectDocument("later.xml");
}

TEST_F(Output, CannotBeALinkToItself) {
    fs::create_symlink("loop.xml", scratch.path() / "loop.xml");
    const Result result = run(scratch, {"export", "shop.sql", "loop.xml"});
    EXPECT_EQ(result.err,
              "oimbridge: error: loop.xml: cannot be written: Too many levels of symbolic links\n");
    EXPECT_EQ(result.exitCode, 5);
}

TEST_F(Output, IsNeverTheSource) {
    fs::create_hard_link(scratch.path() / "shop.sql", scratch.path() / "hard.sql");
    fs::create_symlink("shop.sql", scratch.path() / "soft.sql");
    for (const std::string out : {"shop.sql", "./shop.sql", "hard.sql", "soft.sql"}) {
        const Result result = run(scratch, {"export", "shop.sql", out, "--overwrite"});
        EXPECT_EQ(result.err, "oimbridge: error: " + out +
                                  ": the output is the source itself\n"
                                  "hint: give OUT another name\n");
        EXPECT_EQ(result.exitCode, 2);
    }
    EXPECT_EQ(scratch.read("shop.sql"), SHOP_SQL);
}

TEST_F(Output, NeedsAFolderThatExists) {
    const Result missing = run(scratch, {"export", "shop.sql", "no/such/out.xml"});
    EXPECT_EQ(missing.err,
              "oimbridge: error: no/such/out.xml: there is no folder \"no/such\"\n"
              "hint: make it first\n");
    EXPECT_EQ(missing.exitCode, 5);
    const Result noFolder = run(scratch, {"export", "shop.sql", "shop.sql/out.xml"});
    EXPECT_EQ(noFolder.err, "oimbridge: error: shop.sql/out.xml: cannot be written: Not a directory\n");
    EXPECT_EQ(noFolder.exitCode, 5);
}

TEST_F(Output, IsNoFolder) {
    const Result existing = run(scratch, {"export", "shop.sql", "."});
    EXPECT_EQ(existing.err, "oimbridge: error: .: is a folder\nhint: name a file in it\n");
    EXPECT_EQ(existing.exitCode, 5);
    const Result missing = run(scratch, {"export", "shop.sql", "out/"});
    EXPECT_EQ(missing.err, "oimbridge: error: out/: names a folder\nhint: name a file in it\n");
    EXPECT_EQ(missing.exitCode, 5);
}

TEST_F(Output, NeedsAFolderThatMayBeWritten) {
    // The administrator may write everywhere.
    const auto asNobody = [] { [[maybe_unused]] const bool done = ::setuid(65534) == 0; };
    fs::permissions(scratch.path(), fs::perms(0755));
    fs::create_directory(scratch.path() / "closed");
    fs::permissions(scratch.path() / "closed", fs::perms(0555));
    for (const std::vector<std::string>& arguments :
         {std::vector<std::string>{"export", "shop.sql", "closed/out"},
          {"convert", "shop.sql", "closed/out"}}) {
        const Result result = run(scratch, Setting{.arguments = arguments, .prepare = asNobody});
        EXPECT_EQ(result.err,
                  "oimbridge: error: closed/out: no file can be made in the folder \"closed\": Permission "
                  "denied\n");
        EXPECT_EQ(result.exitCode, 5);
    }
}

TEST_F(Output, HasANameThatTheFileSystemTakes) {
    const std::string longName(300, 'x');
    const Result result = run(scratch, {"export", "shop.sql", longName});
    EXPECT_EQ(result.err, "oimbridge: error: " + longName + ": cannot be written: File name too long\n");
    EXPECT_EQ(result.exitCode, 5);
}

TEST_F(Output, GoesStraightToADevice) {
    EXPECT_EQ(run(scratch, {"export", "shop.sql", "/dev/null"}).exitCode, 0);
    EXPECT_TRUE(fs::is_character_file("/dev/null"));
    const Result full = run(scratch, {"export", "shop.sql", "/dev/full"});
    EXPECT_EQ(full.err, "oimbridge: error: /dev/full: cannot be written: No space left on device\n");
    EXPECT_EQ(full.exitCode, 5);
}

TEST_F(Output, GoesStraightToANamedPipe) {
    ASSERT_EQ(::mkfifo((scratch / "pipe").c_str(), 0600), 0);
    Process process(scratch, Setting{.arguments = {"export", "shop.sql", "pipe"}});
    std::string document;
    std::thread reader([&] { document = scratch.read("pipe"); });
    const Result result = process.wait();
    reader.join();
    EXPECT_EQ(result.exitCode, 0) << result.err;
    EXPECT_THAT(document, EndsWith("</oim:Transfer>\n"));
    EXPECT_TRUE(fs::is_fifo(scratch.path() / "pipe"));
}

TEST_F(Output, ThatGrowsBeyondItsLimitLeavesTheEarlierOne) {
    scratch.write("big.sql", manyTables(1000));
    scratch.write("out.xml", OLD);
    const auto limit = [] {
        const rlimit size{100000, 100000};
        ::setrlimit(RLIMIT_FSIZE, &size);
    };
    const Result result =
        run(scratch, Setting{.arguments = {"export", "big.sql", "out.xml", "--overwrite"}, .prepare = limit});
    EXPECT_EQ(result.err, "oimbridge: error: out.xml: cannot be written: File too large\n");
    EXPECT_EQ(result.exitCode, 5);
    EXPECT_EQ(scratch.read("out.xml"), OLD);
    EXPECT_THAT(scratch.list(), ElementsAre("big.sql", "out.xml", "shop.sql"));
}

class FailingCall : public Output {
  protected:
    static std::map<std::string, std::string> fault(const std::string& call, int number, int reason) {
        return {{"LD_PRELOAD", FAULT_SHIM},
                {"ASAN_OPTIONS", "verify_asan_link_order=0"},
                {"FAULT_CALL", call},
                {"FAULT_NUMBER", std::to_string(number)},
                {"FAULT_ERRNO", std::to_string(reason)}};
    }
    Result runWith(const std::map<std::string, std::string>& environment,
                   const std::vector<std::string>& arguments = {"export", "shop.sql", "out.xml",
                                                                "--overwrite"}) const {
        return run(scratch, Setting{.arguments = arguments, .environment = environment});
    }
    void expectEarlierDocument() const {
        EXPECT_EQ(scratch.read("out.xml"), OLD);
        EXPECT_THAT(scratch.list(), ElementsAre("out.xml", "shop.sql"));
    }
};

struct WriteCase {
    const char* name;
    std::vector<std::string> arguments;
    const char* end;  ///< of what is written
};

std::ostream& operator<<(std::ostream& out, const WriteCase& row) {
    return out << row.name;
}

class FailingWrite : public FailingCall, public testing::WithParamInterface<WriteCase> {};

TEST_P(FailingWrite, LeavesTheEarlierDocument) {
    scratch.write("shop.sql", manyTables(1000));
    int number = 1;
    for (;; ++number) {
        scratch.write("out.xml", OLD);
        const Result result = runWith(fault("write", number, ENOSPC), GetParam().arguments);
        if (result.exitCode == 0) {
            break;
        }
        ASSERT_EQ(result.exitCode, 5);
        EXPECT_EQ(result.err, "oimbridge: error: out.xml: cannot be written: No space left on device\n");
        expectEarlierDocument();
    }
    EXPECT_GT(number, 3) << "the document was to take several writes";
    EXPECT_THAT(scratch.read("out.xml"), EndsWith(GetParam().end));
}

INSTANTIATE_TEST_SUITE_P(
    Commands, FailingWrite,
    testing::Values(
        WriteCase{"Export", {"export", "shop.sql", "out.xml", "--overwrite"}, "</oim:Transfer>\n"},
        WriteCase{"ExportWithCheck",
                  {"export", "shop.sql", "out.xml", "--overwrite", "--check"},
                  "</oim:Transfer>\n"},
        WriteCase{"Convert", {"convert", "shop.sql", "out.xml", "--overwrite"}, "}\n"}),
    [](const auto& row) { return row.param.name; });

struct CallCase {
    const char* call;
    int reason;
    const char* message;
};

TEST_F(FailingCall, BesidesWritesLeavesTheEarlierDocumentToo) {
    const std::vector<CallCase> cases = {
        {"open", ENOSPC,
         "oimbridge: error: out.xml: [QLT_SQMDC_F0002] Unable to open or create output file 'out.xml': No "
         "space left "
         "on device\n"},
        {"fsync", EIO, "oimbridge: error: out.xml: cannot be written: Input/output error\n"},
        {"rename", EPERM, "oimbridge: error: out.xml: cannot be written: Operation not permitted\n"}};
    scratch.write("out.xml", OLD);
    for (const CallCase& call : cases) {
        const Result result = runWith(fault(call.call, 1, call.reason));
        EXPECT_EQ(result.err, call.message);
        EXPECT_EQ(result.exitCode, 5);
        expectEarlierDocument();
    }
}

TEST_F(FailingCall, OfTheFoldersFsyncIsToldThoughTheDocumentIsThere) {
    const Result result = runWith(fault("fsync", 2, EIO));
    EXPECT_EQ(result.exitCode, 5);
    expectDocument("out.xml");
}

TEST_F(FailingCall, ThatTheFolderCannotBeSyncedIsNothingToTell) {
    const Result result = runWith(fault("fsync", 2, EINVAL));
    EXPECT_EQ(result.exitCode, 0) << result.err;
    expectDocument("out.xml");
}

/// Stops the program just before it gives the document its name, with everything written.
class AlmostDone : public FailingCall {
  protected:
    Setting setting(const std::vector<std::string>& arguments) const {
        std::map<std::string, std::string> environment = fault("fsync", 1, 0);
        environment["FAULT_WAIT"] = marker;
        return Setting{.arguments = arguments, .environment = environment};
    }
    bool waitForIt() const {
        return waitUntil([&] { return fs::exists(marker); });
    }

    Scratch markers;
    const std::string marker = markers / "waiting";
};

TEST_F(AlmostDone, AnInterruptLeavesTheEarlierDocumentAndNoLitter) {
    scratch.write("out.xml", OLD);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        Process process(scratch, setting({"export", "shop.sql", "out.xml", "--overwrite"}));
        ASSERT_TRUE(waitForIt());
        EXPECT_EQ(scratch.list().size(), 3U) << "the document was to stand beside the old one";
        process.signal(signal);
        const Result result = process.wait();
        EXPECT_EQ(result.exitCode, 130);
        EXPECT_EQ(result.err, "oimbridge: error: interrupted\n");
        expectEarlierDocument();
        fs::remove(marker);
    }
}

TEST_F(AlmostDone, AnInterruptThatIsIgnoredStaysSo) {
    Setting ignoring = setting({"export", "shop.sql", "out.xml"});
    ignoring.prepare = [] { ::signal(SIGHUP, SIG_IGN); };
    Process process(scratch, ignoring);
    ASSERT_TRUE(waitForIt());
    process.signal(SIGHUP);
    fs::remove(marker);
    EXPECT_EQ(process.wait().exitCode, 0);
    expectDocument("out.xml");
}

TEST_F(AlmostDone, AFileMadeMeanwhileIsNotReplaced) {
    Process process(scratch, setting({"export", "shop.sql", "out.xml"}));
    ASSERT_TRUE(waitForIt());
    scratch.write("out.xml", OLD);
    fs::remove(marker);
    const Result result = process.wait();
    EXPECT_EQ(result.err,
              "oimbridge: error: out.xml: has come into being meanwhile\n"
              "hint: --overwrite replaces it\n");
    EXPECT_EQ(result.exitCode, 5);
    expectEarlierDocument();
}

TEST_F(AlmostDone, TheDocumentIsReadableByNobodyWhoMayNotReadTheEarlierOne) {
    scratch.write("out.xml", OLD);
    ASSERT_EQ(::chmod((scratch / "out.xml").c_str(), 0600), 0);
    Process process(scratch, setting({"export", "shop.sql", "out.xml", "--overwrite"}));
    ASSERT_TRUE(waitForIt());
    for (const std::string& name : scratch.list()) {
        EXPECT_TRUE(name == "shop.sql" || modeOf(name) == 0600U) << name;
    }
    fs::remove(marker);
    EXPECT_EQ(process.wait().exitCode, 0);
}

TEST_F(Output, OfAnInterruptedReadIsNothing) {
    Process process(scratch, Setting{.arguments = {"export", "-", "out.xml"}});
    process.writeInput("{");
    ASSERT_TRUE(waitUntil([&] { return process.catches(SIGINT); }));
    process.signal(SIGINT);
    const Result result = process.wait();
    EXPECT_EQ(result.exitCode, 130);
    EXPECT_EQ(result.err, "oimbridge: error: interrupted\n");
    EXPECT_THAT(scratch.list(), ElementsAre("shop.sql"));
}

}  // namespace
}  // namespace cli_test
