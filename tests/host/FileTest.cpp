#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <thread>

#include "MemorySink.h"
#include "ZORFile.h"

namespace {

using support::FailingSink;
using support::MemorySink;
using support::SinkRecord;
using testing::ElementsAre;
using testing::HasSubstr;

constexpr std::size_t MORE_THAN_THE_BUFFER = 300 * 1024;

/// What the work's ZORException says; empty when it throws none.
template <typename Work>
std::string failureOf(const Work& work) {
    try {
        work();
    } catch (const ZORException& failure) {
        return failure.what();
    }
    return {};
}

/// A file over a sink in memory; afterwards the library's policy and opener are back in place.
class FileTest : public testing::Test {
  protected:
    ~FileTest() override {
        ZORFile::setFlushPolicy(ZORFlushPolicy::EACH_LINE);
        ZORFile::setSinkOpener({});
    }
    void open(ZORFlushPolicy policy, std::unique_ptr<ZORSink> sink) {
        ZORFile::setFlushPolicy(policy);
        file.open(std::move(sink));
    }
    void open(ZORFlushPolicy policy) { open(policy, std::make_unique<MemorySink>(record)); }
    static std::string contentsOf(const std::filesystem::path& path) {
        std::ifstream in(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }

    std::shared_ptr<SinkRecord> record = std::make_shared<SinkRecord>();
    ZORFile file;
    const std::filesystem::path folder = testing::TempDir();
    const std::filesystem::path path = folder / ("zor_file_test_" + std::to_string(::getpid()) + ".xml");
};

TEST_F(FileTest, ReachesTheSinkAfterEachLineByDefault) {
    file.open(std::make_unique<MemorySink>(record));
    file << "a" << 'b' << ZORString("c");
    EXPECT_TRUE(record->writes.empty());
    file.endLine();
    file << 12 << INT_MIN << std::string_view("d\0e", 3);
    file.endLine();
    file << "rest";
    file.close();
    EXPECT_THAT(record->writes, ElementsAre("abc\n", std::string("12-2147483648d\0e\n", 17), "rest"));
    EXPECT_EQ(record->closes, 1);
    EXPECT_EQ(record->destroyed, 1);
}

TEST_F(FileTest, ReachesTheSinkWhenTheBufferIsFullIfThatIsThePolicy) {
    open(ZORFlushPolicy::BUFFER_FULL);
    std::string expected;
    for (int line = 0; expected.size() < MORE_THAN_THE_BUFFER; ++line) {
        if (expected.size() < 255 * 1024) {
            EXPECT_EQ(record->attempts, 0U);
        }
        file << "line " << line;
        file.endLine();
        expected += "line " + std::to_string(line) + "\n";
    }
    file.close();
    EXPECT_EQ(record->writes.size(), 2U);
    EXPECT_EQ(record->text(), expected);
}

TEST_F(FileTest, KeepsThePolicyThatItWasOpenedWith) {
    open(ZORFlushPolicy::BUFFER_FULL);
    ZORFile::setFlushPolicy(ZORFlushPolicy::EACH_LINE);
    file << "a";
    file.endLine();
    EXPECT_TRUE(record->writes.empty());
    file.flush();
    EXPECT_THAT(record->writes, ElementsAre("a\n"));
    file.flush();
    EXPECT_EQ(record->attempts, 1U) << "nothing to flush";
}

TEST_F(FileTest, PassesOnWhatIsLargerThanTheBufferInOrder) {
    open(ZORFlushPolicy::BUFFER_FULL);
    const std::string large(MORE_THAN_THE_BUFFER, 'x');
    file << "before" << large << "behind" << std::string(200 * 1024, 'y') << std::string(100 * 1024, 'z');
    file.close();
    EXPECT_EQ(record->text(),
              "before" + large + "behind" + std::string(200 * 1024, 'y') + std::string(100 * 1024, 'z'));
}

TEST_F(FileTest, FillsTheBufferToItsLastByte) {
    open(ZORFlushPolicy::BUFFER_FULL);
    file << std::string(256 * 1024 - 1, 'x') << 'y';
    EXPECT_EQ(record->attempts, 0U);
    file << 'z';
    EXPECT_EQ(record->attempts, 1U);
    file.close();
    EXPECT_EQ(record->text(), std::string(256 * 1024 - 1, 'x') + "yz");
}

TEST_F(FileTest, PrintsPiecesOneBehindTheOther) {
    open(ZORFlushPolicy::BUFFER_FULL);
    const char* word = "word";
    file.print();
    file.print("<", ZORString("tag"), ' ', std::string_view("d\0e", 3), word, ZORString(), INT_MIN, INT_MAX,
               "\"/>");
    file.print(0);
    file.close();
    EXPECT_EQ(record->text(), std::string("<tag d\0eword-21474836482147483647\"/>0", 37));
}

TEST_F(FileTest, PrintsTextsOfEveryLength) {
    open(ZORFlushPolicy::BUFFER_FULL);
    std::string expected;
    for (char length = 0; length < 100; ++length) {
        std::string text;
        for (char i = 0; i < length; ++i) {
            text += static_cast<char>(' ' + i);
        }
        file.print(text, '|');
        expected += text + '|';
    }
    file.close();
    EXPECT_EQ(record->text(), expected);
}

TEST_F(FileTest, PrintsPastTheEndOfTheBuffer) {
    for (std::size_t room = 0; room < 20; ++room) {
        record = std::make_shared<SinkRecord>();
        open(ZORFlushPolicy::BUFFER_FULL);
        const std::string filler(256 * 1024 - room, 'x');
        file << filler;
        file.print("<", ZORString("tag"), 12345, ">");
        file.close();
        EXPECT_EQ(record->text(), filler + "<tag12345>") << room << " bytes of room";
    }
}

TEST_F(FileTest, EndsPrintedLinesAsThePolicySays) {
    open(ZORFlushPolicy::EACH_LINE);
    file.printLine("a", 1);
    file.printLine();
    file.print("rest");
    EXPECT_THAT(record->writes, ElementsAre("a1\n", "\n"));
    open(ZORFlushPolicy::BUFFER_FULL);
    file.printLine("b");
    EXPECT_EQ(record->writes.size(), 2U);
}

TEST_F(FileTest, CannotBePrintedToBeforeItIsOpened) {
    file.print();
    EXPECT_THAT(failureOf([&] { file.print("a"); }), HasSubstr("the file is not open"));
    EXPECT_THAT(failureOf([&] { file.print(1); }), HasSubstr("the file is not open"));
}

TEST_F(FileTest, IsWrittenInPlaceByClaimAndCommit) {
    open(ZORFlushPolicy::BUFFER_FULL);
    std::string expected;
    for (std::size_t i = 0; i < 200; ++i) {
        char* to = file.claim(ZORFile::LARGEST_CLAIM);
        const std::size_t used = i * 20;
        std::memset(to, static_cast<int>('a' + i % 26), used);
        file.commit(to + used);
        expected.append(used, static_cast<char>('a' + i % 26));
    }
    file.close();
    EXPECT_EQ(record->text(), expected);
}

TEST_F(FileTest, IsNotOpenBeforeItIsOpenedAndAfterItIsClosed) {
    file.setPath("/some/where.xml");
    EXPECT_FALSE(file.isOpen());
    EXPECT_THAT(failureOf([&] { file << "x"; }), HasSubstr("'/some/where.xml': the file is not open"));
    file.close();
    open(ZORFlushPolicy::EACH_LINE);
    EXPECT_TRUE(file.isOpen());
    file.close();
    EXPECT_FALSE(file.isOpen());
    EXPECT_THAT(failureOf([&] { file.endLine(); }), HasSubstr("the file is not open"));
    EXPECT_EQ(record->closes, 1);
}

TEST_F(FileTest, DropsWhatIsInTheBufferWhenItIsAbandoned) {
    open(ZORFlushPolicy::BUFFER_FULL);
    file << "lost";
    file.abandon();
    EXPECT_FALSE(file.isOpen());
    EXPECT_EQ(record->attempts, 0U);
    EXPECT_EQ(record->closes, 0) << "not closed in order";
    EXPECT_EQ(record->destroyed, 1);
    {
        ZORFile other;
        other.open(std::make_unique<MemorySink>(record));
        other << "lost";
    }
    EXPECT_EQ(record->attempts, 0U) << "destroying a file abandons it";
    EXPECT_EQ(record->destroyed, 2);
}

TEST_F(FileTest, GivesUpTheFirstSinkWhenItIsOpenedAgain) {
    open(ZORFlushPolicy::BUFFER_FULL);
    file << "old";
    auto next = std::make_shared<SinkRecord>();
    file.open(std::make_unique<MemorySink>(next));
    file << "new";
    file.close();
    EXPECT_EQ(record->text(), "");
    EXPECT_EQ(record->destroyed, 1);
    EXPECT_EQ(next->text(), "new");
}

TEST_F(FileTest, TellsOfEveryFailingLineAndGivesItOnlyOnce) {
    constexpr std::size_t LINES = 8;
    for (std::size_t n = 1; n <= LINES; ++n) {
        auto lines = std::make_shared<SinkRecord>();
        open(ZORFlushPolicy::EACH_LINE, FailingSink::atWrite(n, lines));
        std::vector<std::string> expected;
        for (std::size_t line = 1; line <= LINES; ++line) {
            const std::string failure = failureOf([&] {
                file << static_cast<int>(line);
                file.endLine();
            });
            EXPECT_EQ(failure, line == n ? "write " + std::to_string(n) + " failed" : "");
            if (line != n) {
                expected.push_back(std::to_string(line) + "\n");
            }
        }
        file.close();
        EXPECT_EQ(lines->writes, expected);
        EXPECT_EQ(lines->closes, 1);
    }
}

TEST_F(FileTest, TellsOfEveryFailingBuffer) {
    for (std::size_t n = 1; n <= 4; ++n) {
        auto buffers = std::make_shared<SinkRecord>();
        open(ZORFlushPolicy::BUFFER_FULL, FailingSink::atWrite(n, buffers));
        const std::string failure = failureOf([&] {
            for (int line = 0; line < 4 * 256; ++line) {
                file << std::string(1024, 'x');
            }
            file.close();
        });
        EXPECT_EQ(failure, "write " + std::to_string(n) + " failed");
        EXPECT_EQ(buffers->writes.size(), n - 1);
        file.abandon();
    }
}

TEST_F(FileTest, IsClosedEvenWhenItsLastWriteFails) {
    open(ZORFlushPolicy::BUFFER_FULL, FailingSink::atWrite(1, record));
    file << "x";
    EXPECT_EQ(failureOf([&] { file.close(); }), "write 1 failed");
    EXPECT_FALSE(file.isOpen());
    EXPECT_EQ(record->destroyed, 1);
    EXPECT_EQ(record->closes, 0);
}

TEST_F(FileTest, IsClosedEvenWhenClosingFails) {
    open(ZORFlushPolicy::BUFFER_FULL, FailingSink::atClose(record));
    file << "x";
    EXPECT_EQ(failureOf([&] { file.close(); }), "close failed");
    EXPECT_FALSE(file.isOpen());
    EXPECT_EQ(record->text(), "x");
    EXPECT_EQ(record->destroyed, 1);
    file.close();
    EXPECT_EQ(record->closes, 1);
}

TEST_F(FileTest, CreatesAndTruncatesItsPath) {
    std::ofstream(path) << "something that is longer";
    file.setPath(path.c_str());
    ASSERT_TRUE(file.openForOutput());
    file << "short";
    file.close();
    EXPECT_EQ(contentsOf(path), "short");
    std::filesystem::remove(path);
    ASSERT_TRUE(file.openForOutput());
    file.close();
    EXPECT_TRUE(std::filesystem::exists(path));
    std::filesystem::remove(path);
}

TEST_F(FileTest, CannotBeOpenedWhereThereIsNoFolder) {
    file.setPath((folder / "no_such_folder" / "x.xml").c_str());
    EXPECT_FALSE(file.openForOutput());
    EXPECT_EQ(errno, ENOENT);
    EXPECT_FALSE(file.isOpen());
}

TEST_F(FileTest, GoesWhereTheHostsOpenerLeads) {
    ZORFile::setSinkOpener([&](const ZORString& opened) -> std::unique_ptr<ZORSink> {
        if (opened != "here") {
            errno = EACCES;
            return nullptr;
        }
        return std::make_unique<MemorySink>(record);
    });
    file.setPath("elsewhere");
    EXPECT_FALSE(file.openForOutput());
    EXPECT_EQ(errno, EACCES);
    file.setPath("here");
    ASSERT_TRUE(file.openForOutput());
    file << "x";
    file.close();
    EXPECT_EQ(record->text(), "x");
}

TEST_F(FileTest, NamesPathAndReasonWhenTheDeviceIsFull) {
    file.setPath("/dev/full");
    ASSERT_TRUE(file.openForOutput());
    EXPECT_EQ(failureOf([&] { file.endLine(); }),
              "[QLCM_F0003] Unable to write file '/dev/full': No space left on device");
}

TEST_F(FileTest, TellsWhenClosingTheDescriptorFails) {
    const int descriptor = ::open("/dev/null", O_WRONLY);
    ZORDescriptorSink sink(descriptor, "/dev/null", true);
    ::close(descriptor);
    EXPECT_EQ(failureOf([&] { sink.close(); }),
              "[QLCM_F0003] Unable to write file '/dev/null': Bad file descriptor");
}

TEST_F(FileTest, LeavesADescriptorOpenThatIsNotItsOwn) {
    int ends[2];
    ASSERT_EQ(::pipe(ends), 0);
    {
        ZORDescriptorSink sink(ends[1], "pipe", false);
        sink.write("ab", 2);
        sink.close();
    }
    EXPECT_EQ(::write(ends[1], "c", 1), 1);
    char read[4] = {};
    EXPECT_EQ(::read(ends[0], read, sizeof read), 3);
    EXPECT_STREQ(read, "abc");
    ::close(ends[0]);
    ::close(ends[1]);
}

TEST_F(FileTest, WritesOnAfterAPartWasTaken) {
    int ends[2];
    ASSERT_EQ(::pipe(ends), 0);
    const std::string large(MORE_THAN_THE_BUFFER, 'x');  // several times what a pipe takes at once
    std::string received;
    std::thread reader([&] {
        char bytes[1000];
        for (ssize_t count = 0; (count = ::read(ends[0], bytes, sizeof bytes)) > 0;) {
            received.append(bytes, static_cast<std::size_t>(count));
        }
    });
    file.open(std::make_unique<ZORDescriptorSink>(ends[1], "pipe", true));
    file << large;
    file.close();
    reader.join();
    ::close(ends[0]);
    EXPECT_EQ(received, large);
}

}  // namespace
