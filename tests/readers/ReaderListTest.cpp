#include <gtest/gtest.h>

#include <set>

#include "Reader.h"

namespace {

using readers::allReaders;
using readers::Reader;
using readers::Source;

/// The name of the reader that takes the source; empty when none does.
std::string readerOf(const Source& source) {
    for (const Reader* reader : allReaders()) {
        if (reader->identify(source)) {
            return reader->describe().name;
        }
    }
    return {};
}

TEST(ReaderList, DescribesEachReaderByANameOfItsOwn) {
    std::set<std::string> names;
    for (const Reader* reader : allReaders()) {
        EXPECT_TRUE(names.insert(reader->describe().name).second) << reader->describe().name;
        EXPECT_FALSE(reader->describe().title.empty()) << reader->describe().name;
        EXPECT_FALSE(reader->describe().recognition.empty()) << reader->describe().name;
        EXPECT_FALSE(reader->describe().naturalView.empty()) << reader->describe().name;
    }
}

TEST(ReaderList, RecognisesSourcesByContentWhateverTheyAreCalled) {
    const std::string magic("SQLite format 3\0", 16);
    const std::string document = R"({"format": "oim-source-model", "version": 1, "model": {}})";
    EXPECT_EQ(readerOf(Source::fromText("x", magic)), "sqlite");
    EXPECT_EQ(readerOf(Source::fromText("x.model.json", magic)), "sqlite");
    EXPECT_EQ(readerOf(Source::fromText("x.sql", magic)), "sqlite");
    EXPECT_EQ(readerOf(Source::fromText("x", document)), "json");
    EXPECT_EQ(readerOf(Source::fromText("x.sql", document)), "json");
    EXPECT_EQ(readerOf(Source::fromText("x.sql", "<xmi:XMI xmi:version=\"2.1\"/>")), "xmi");
    EXPECT_EQ(readerOf(Source::fromText("x.txt", "CREATE TABLE a (b INTEGER);")), "sql");
}

TEST(ReaderList, RecognisesByNameWhatContentDoesNotTell) {
    EXPECT_EQ(readerOf(Source::fromText("x.model.json", "")), "json");
    EXPECT_EQ(readerOf(Source::fromText("x.sql", "")), "sql");
}

TEST(ReaderList, DoesNotGuess) {
    EXPECT_EQ(readerOf(Source::fromText("x", "")), "");
    EXPECT_EQ(readerOf(Source::fromText("x.txt", "Dear reader")), "");
    EXPECT_EQ(readerOf(Source::fromText("x.json", "{}")), "");
}

}  // namespace
