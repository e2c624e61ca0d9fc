#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <thread>

#include "PlainProcess.h"
#include "Reader.h"

namespace {

using readers::Source;
using readers::SourceError;

/// A folder of its own for each test, removed afterwards.
class SourceFile : public testing::Test {
  protected:
    SourceFile() {
        std::string pattern = testing::TempDir() + "sourceXXXXXX";
        folder_ = ::mkdtemp(pattern.data());
    }
    ~SourceFile() override { std::filesystem::remove_all(folder_); }

    std::string write(const std::string& name, const std::string& content) const {
        std::string path = pathOf(name);
        std::ofstream(path, std::ios::binary) << content;
        return path;
    }
    std::string pathOf(const std::string& name) const { return (folder_ / name).string(); }

  private:
    std::filesystem::path folder_;
};

SourceError errorOf(const std::string& path) {
    try {
        Source::fromFile(path);
    } catch (const SourceError& error) {
        return error;
    }
    ADD_FAILURE() << path << " was opened";
    return {SourceError::Kind::INTERRUPTED, ""};
}

TEST_F(SourceFile, GivesHeadAndContent) {
    const std::string content(10000, 'x');
    const Source source = Source::fromFile(write("a.sql", content));
    EXPECT_EQ(source.name(), pathOf("a.sql"));
    EXPECT_EQ(source.path(), pathOf("a.sql"));
    EXPECT_EQ(source.head(), content.substr(0, 4096));
    EXPECT_EQ(source.content(), content);
}

TEST_F(SourceFile, ShortFileIsItsOwnHead) {
    const Source source = Source::fromFile(write("a", "ab"));
    EXPECT_EQ(source.head(), "ab");
    EXPECT_EQ(source.content(), "ab");
}

TEST_F(SourceFile, EmptyFileIsASource) {
    const Source source = Source::fromFile(write("a", ""));
    EXPECT_EQ(source.head(), "");
    EXPECT_EQ(source.content(64), "");
}

TEST_F(SourceFile, PaddingBehindTheContentIsZero) {
    for (const std::size_t size : {0U, 1U, 4095U, 4096U, 4097U, 100000U}) {
        const Source source = Source::fromFile(write("a", std::string(size, 'x')));
        const std::string content = source.content(64);
        ASSERT_EQ(content.size(), size);
        ASSERT_GE(content.capacity(), size + 64);
        EXPECT_EQ(std::string(content.data() + size, 64), std::string(64, '\0')) << size;
    }
}

TEST_F(SourceFile, PaddingBehindATextIsZero) {
    const std::string content = Source::fromText("text", "abc").content(64);
    EXPECT_EQ(content, "abc");
    EXPECT_GE(content.capacity(), 67U);
    EXPECT_EQ(std::string(content.data() + 3, 64), std::string(64, '\0'));
}

TEST_F(SourceFile, MissingFileCannotBeOpened) {
    const SourceError error = errorOf(pathOf("none"));
    EXPECT_EQ(error.kind(), SourceError::Kind::CANNOT_OPEN);
    EXPECT_STREQ(error.what(), "cannot be opened: No such file or directory");
}

TEST_F(SourceFile, FolderCannotBeOpened) {
    const SourceError error = errorOf(pathOf("."));
    EXPECT_EQ(error.kind(), SourceError::Kind::CANNOT_OPEN);
    EXPECT_STREQ(error.what(), "is a folder");
    EXPECT_EQ(error.hint(), "name a file in it");
}

TEST_F(SourceFile, DeviceIsRefusedWithoutBeingRead) {
    EXPECT_STREQ(errorOf("/dev/zero").what(), "is a device, not a file");
}

TEST_F(SourceFile, FileThatMayNotBeReadCannotBeOpened) {
    const std::string path = write("a", "secret");
    ASSERT_EQ(::chmod(std::filesystem::path(path).parent_path().c_str(), 0755), 0);
    const auto read = [&] { return Source::fromFile(path).content(); };
    ASSERT_EQ(::chmod(path.c_str(), 0644), 0);
    EXPECT_EQ(support::inPlainProcess(read), "secret");
    ASSERT_EQ(::chmod(path.c_str(), 0), 0);
    EXPECT_EQ(support::inPlainProcess(read), "cannot be opened: Permission denied");
}

TEST_F(SourceFile, FileThatVanishedCannotBeOpenedAgain) {
    const std::string path = write("a", "x");
    const Source source = Source::fromFile(path);
    std::filesystem::remove(path);
    EXPECT_THROW(source.content(), SourceError);
}

TEST_F(SourceFile, PipeIsReadOnceAndCountsAsText) {
    const std::string path = pathOf("pipe");
    ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0);
    const std::string content(200000, 'x');
    std::thread writer([&] { std::ofstream(path, std::ios::binary) << content; });
    const Source source = Source::fromFile(path);
    writer.join();
    EXPECT_EQ(source.name(), path);
    EXPECT_EQ(source.path(), "");
    EXPECT_EQ(source.head(), content.substr(0, 4096));
    EXPECT_EQ(source.content(), content);
    EXPECT_EQ(source.content(), content);
}

TEST(Source, TextHasANameAndNoPath) {
    const Source source = Source::fromText("standard input", "abc");
    EXPECT_EQ(source.name(), "standard input");
    EXPECT_EQ(source.path(), "");
    EXPECT_EQ(source.head(), "abc");
}

TEST(Source, StemIsTheNameWithoutItsExtension) {
    const std::pair<const char*, const char*> rows[] = {
        {"data/shop.sqlite", "shop"},
        {"data/shop.model.json", "shop"},
        {"shop.json", "shop"},
        {"shop", "shop"},
        {"/a.b/shop", "shop"},
        {"shop-2.1.db", "shop-2.1"},
        {".hidden", ".hidden"},
        {"a.model.sql", "a"},
        {"data/", ""},
    };
    for (const auto& [name, stem] : rows) {
        EXPECT_EQ(Source::fromText(name, "").stem(), stem) << name;
    }
}

TEST(LossReport, CountsByKindInAlphabeticalOrder) {
    readers::LossReport losses;
    EXPECT_TRUE(losses.isEmpty());
    losses.add("collations", "main.a.b", "NOCASE");
    losses.add("check expressions", "main.a");
    losses.add("collations", "main.a.c", "RTRIM");
    const std::map<std::string, std::size_t> expected = {{"check expressions", 1}, {"collations", 2}};
    EXPECT_EQ(losses.countByKind(), expected);
    EXPECT_EQ(losses.items().size(), 3U);
}

}  // namespace
