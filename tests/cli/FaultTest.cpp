// What goes wrong around the program: a full file system, a kill. What was there before is there afterwards.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mount.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <fstream>

#include "ProgramRunner.h"
#include "Sources.h"

namespace {

using namespace cli_test;
using ::testing::ElementsAre;
using ::testing::EndsWith;

constexpr const char* OLD = "the earlier document";

/// A real file system of 256 KiB in the scratch folder, seen by this process and its children only.
class SmallFileSystem : public ::testing::Test {
  protected:
    void SetUp() override {
        std::filesystem::create_directory(scratch.path() / "small");
        if (!enterOwnNamespace() ||
            ::mount("tmpfs", (scratch / "small").c_str(), "tmpfs", 0, "size=256k") != 0) {
            GTEST_SKIP() << "this process may not mount a file system";
        }
        isMounted_ = true;
        scratch.write("small/out.xml", OLD);
    }
    ~SmallFileSystem() override {
        if (isMounted_) {
            ::umount((scratch / "small").c_str());
        }
    }

    std::vector<std::string> listSmall() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(scratch.path() / "small")) {
            names.push_back(entry.path().filename().string());
        }
        return names;
    }

    Scratch scratch;

  private:
    /// Mounting takes the rights of an administrator: real ones, or those within a namespace of one's own.
    static bool enterOwnNamespace() {
        const uid_t user = ::geteuid();
        const gid_t group = ::getegid();
        if (user == 0) {
            return ::unshare(CLONE_NEWNS) == 0 &&
                   ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
        }
        if (::unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0) {
            return false;
        }
        std::ofstream("/proc/self/setgroups") << "deny";
        std::ofstream("/proc/self/uid_map") << "0 " << user << " 1";
        std::ofstream("/proc/self/gid_map") << "0 " << group << " 1";
        return true;
    }

    bool isMounted_ = false;
};

TEST_F(SmallFileSystem, ThatIsFullLeavesTheEarlierDocumentAndNoLitter) {
    scratch.write("big.sql", manyTables(1000));
    for (const char* command : {"export", "convert"}) {
        const Result result =
            run(scratch, Setting{.arguments = {command, "big.sql", "small/out.xml", "--overwrite"}});
        EXPECT_EQ(result.exitCode, 5) << command;
        EXPECT_EQ(result.err,
                  "oimbridge: error: small/out.xml: cannot be written: No space left on device\n");
        EXPECT_EQ(scratch.read("small/out.xml"), OLD);
        EXPECT_THAT(listSmall(), ElementsAre("out.xml"));
    }
}

TEST_F(SmallFileSystem, TakesWhatFitsBesideTheEarlierDocument) {
    scratch.write("shop.sql", manyTables(10));
    const Result result =
        run(scratch, Setting{.arguments = {"export", "shop.sql", "small/out.xml", "--overwrite"}});
    EXPECT_EQ(result.exitCode, 0) << result.err;
    EXPECT_THAT(scratch.read("small/out.xml"), EndsWith("</oim:Transfer>\n"));
}

/// The program waits, with everything written, before the document gets its name.
class Kill : public ::testing::Test {
  protected:
    Setting waitingExport() const {
        return Setting{.arguments = {"export", "shop.sql", "out.xml", "--overwrite"},
                       .environment = {{"LD_PRELOAD", FAULT_SHIM},
                                       {"ASAN_OPTIONS", "verify_asan_link_order=0"},
                                       {"FAULT_CALL", "fsync"},
                                       {"FAULT_NUMBER", "1"},
                                       {"FAULT_WAIT", marker}}};
    }

    Scratch scratch;
    Scratch markers;
    const std::string marker = markers / "waiting";
};

TEST_F(Kill, InTheMiddleLeavesTheEarlierDocumentAndTheNextExportGoesWell) {
    scratch.write("shop.sql", manyTables(10));
    scratch.write("out.xml", OLD);
    Process process(scratch, waitingExport());
    ASSERT_TRUE(waitUntil([&] { return std::filesystem::exists(marker); }));
    process.signal(SIGKILL);
    EXPECT_EQ(process.wait().signal, SIGKILL);
    EXPECT_EQ(scratch.read("out.xml"), OLD);
    const Result next = run(scratch, {"export", "shop.sql", "out.xml", "--overwrite"});
    EXPECT_EQ(next.exitCode, 0) << next.err;
    EXPECT_THAT(scratch.read("out.xml"), EndsWith("</oim:Transfer>\n"));
}

}  // namespace
