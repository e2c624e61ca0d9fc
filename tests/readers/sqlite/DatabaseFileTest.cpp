// Opening database files: damaged ones, ones that others use, ones beside which nothing may be written.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "PlainProcess.h"
#include "SqliteTestSupport.h"
#include "sqlite/SqliteReaders.h"

namespace {

using readers::ReadRequest;
using readers::Source;
using readers::sqliteDatabaseReader;
using support::ScratchFolder;
using testing::ElementsAre;
using testing::StartsWith;

constexpr const char* LOCKED =
    "CANNOT_OPEN: another process has locked the database [try again when it has finished, or read a copy]";

/// Does not wait for locks.
ReadRequest impatient() {
    ReadRequest request;
    request.options["busy-timeout"] = "0";
    return request;
}

std::string readAndDescribe(const std::string& path) {
    support::RecordingContext context;
    return support::describe(*sqliteDatabaseReader().read(Source::fromFile(path), impatient(), context));
}

std::string errorOfFile(const std::string& path) {
    return support::errorOf(sqliteDatabaseReader(), Source::fromFile(path), impatient());
}

std::vector<std::string> filesIn(const ScratchFolder& folder) {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder.path())) {
        names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
}

/// Another process that opens the database, runs statements and keeps it open until the object goes.
class OtherProcess {
  public:
    OtherProcess(const std::string& path, const char* sql) {
        int ready[2];
        int end[2];
        if (::pipe(ready) != 0 || ::pipe(end) != 0 || (child_ = ::fork()) < 0) {
            ADD_FAILURE() << "no other process";
            return;
        }
        if (child_ == 0) {
            ::close(end[1]);
            sqlite3* database = nullptr;
            sqlite3_open(path.c_str(), &database);
            const char state =
                sqlite3_exec(database, sql, nullptr, nullptr, nullptr) == SQLITE_OK ? 'y' : 'n';
            [[maybe_unused]] ssize_t ignored = ::write(ready[1], &state, 1);
            char nothing = 0;
            ignored = ::read(end[0], &nothing, 1);
            ::_exit(0);  // as if killed: nothing is tidied up
        }
        ::close(end[0]);
        ::close(ready[1]);
        char state = 0;
        EXPECT_EQ(::read(ready[0], &state, 1), 1);
        EXPECT_EQ(state, 'y') << sql;
        ::close(ready[0]);
        end_ = end[1];
    }
    ~OtherProcess() { finish(); }
    OtherProcess(const OtherProcess&) = delete;
    OtherProcess& operator=(const OtherProcess&) = delete;

    void finish() {
        if (child_ > 0) {
            ::close(end_);
            ::waitpid(child_, nullptr, 0);
            child_ = 0;
        }
    }

  private:
    pid_t child_ = 0;
    int end_ = -1;
};

TEST(DatabaseFile, IsRecognisedByItsBeginning) {
    const ScratchFolder folder;
    support::makeDatabase(folder / "any.name", "CREATE TABLE t(a INT)");
    EXPECT_TRUE(sqliteDatabaseReader().identify(Source::fromFile(folder / "any.name")));
    EXPECT_EQ(readAndDescribe(folder / "any.name"), "table t\n  a INT null\n");
    support::write(folder / "shop.sqlite", "no database");
    EXPECT_FALSE(sqliteDatabaseReader().identify(Source::fromFile(folder / "shop.sqlite")));
}

TEST(DatabaseFile, MayHaveAnyName) {
    const ScratchFolder folder;
    for (const char* name :
         {"a?mode=rwc.db", "100%.db", "a#b.db", "file:x.db", ":memory:", "ü b'\"c.db", "a&b=c"}) {
        support::makeDatabase(folder / "plain.db", "CREATE TABLE t(a INT)");
        std::filesystem::rename(folder / "plain.db", folder / name);
        EXPECT_EQ(readAndDescribe(folder / name), "table t\n  a INT null\n") << name;
        std::filesystem::remove(folder / name);
        EXPECT_THAT(filesIn(folder), ElementsAre()) << name;
    }
}

TEST(DatabaseFile, IsReadThroughALinkAndFromAnotherFolder) {
    const ScratchFolder folder;
    std::filesystem::create_directory(folder / "deep");
    OtherProcess(folder / "deep/real.db", "PRAGMA journal_mode=WAL; CREATE TABLE t(a INT)").finish();
    std::filesystem::create_symlink(folder / "deep/real.db", folder / "link");
    EXPECT_EQ(readAndDescribe(folder / "link"), "table t\n  a INT null\n")
        << "the log stands beside the real file";
}

TEST(DatabaseFile, OfTextOfAnotherEncodingIsReadAsUtf8) {
    EXPECT_EQ(
        support::describe(
            *support::readDatabase("PRAGMA encoding='UTF-16'; CREATE TABLE größe(ß INT DEFAULT 'ä')").model),
        "table größe\n  ß INT null = 'ä'\n");
}

TEST(DatabaseFile, WithoutObjectsGivesAModelWithoutTables) {
    const support::Reading reading = support::readDatabase("CREATE TABLE t(a); DROP TABLE t");
    EXPECT_EQ(support::describe(*reading.model), "");
    ASSERT_EQ(reading.model->getChildPackages().size(), 2U);
    EXPECT_EQ(reading.model->getName(), "sample");
    EXPECT_EQ(reading.model->getChildPackages()[0]->getElementType(), ZOR_DATABASE_CATALOG);
    EXPECT_EQ(static_cast<const ZORDatabaseCatalog*>(reading.model->getChildPackages()[0])->getDatabaseType(),
              "SQLite");
    EXPECT_EQ(reading.model->getChildPackages()[1]->getName(), "main");
}

TEST(DatabaseFile, MayComeFromStandardInput) {
    const ScratchFolder folder;
    support::makeDatabase(folder / "a.db", "PRAGMA journal_mode=WAL; CREATE TABLE t(a INT)");
    support::RecordingContext context;
    const Source source = Source::fromText("-", support::contentOf(folder / "a.db"));
    EXPECT_TRUE(sqliteDatabaseReader().identify(source));
    EXPECT_EQ(support::describe(*sqliteDatabaseReader().read(source, {}, context)),
              "table t\n  a INT null\n");
}

TEST(DatabaseFile, ThatIsNoneIsAnError) {
    const ScratchFolder folder;
    const char* noDatabase =
        "CANNOT_READ: it is not a SQLite database, or it is encrypted [an encrypted database must be "
        "decrypted first]";
    support::write(folder / "text", "just a long text, longer than the header of a database would be. " +
                                        std::string(600, 'x'));
    EXPECT_EQ(errorOfFile(folder / "text"), noDatabase);
    support::write(folder / "short", "short");
    EXPECT_EQ(errorOfFile(folder / "short"), noDatabase);
    support::write(folder / "empty", "");
    EXPECT_EQ(errorOfFile(folder / "empty"),
              "CANNOT_READ: it is empty [name a database that holds something]");
    EXPECT_EQ(support::errorOf(sqliteDatabaseReader(), Source::fromText("-", "")),
              "CANNOT_READ: it is empty [name a database that holds something]");
    EXPECT_EQ(support::errorOf(sqliteDatabaseReader(), Source::fromText("-", std::string(600, 'x'))),
              noDatabase);
}

TEST(DatabaseFile, ThatIsCutOffIsAnError) {
    const ScratchFolder folder;
    support::makeDatabase(folder / "whole", "PRAGMA page_size=4096; CREATE TABLE t(a); CREATE TABLE u(b)");
    const std::string whole = support::contentOf(folder / "whole");
    ASSERT_EQ(whole.size(), 3U * 4096);
    for (const std::size_t size : {16U, 99U, 100U, 1000U, 4096U, 8191U}) {
        const std::string message = "CANNOT_READ: it is cut off: it should hold " +
                                    std::to_string(size < 100 ? 100 : whole.size()) + " bytes and holds " +
                                    std::to_string(size) + " [copy or download it again]";
        support::write(folder / "part", whole.substr(0, size));
        EXPECT_EQ(errorOfFile(folder / "part"), message);
        EXPECT_EQ(support::errorOf(sqliteDatabaseReader(), Source::fromText("-", whole.substr(0, size))),
                  message);
    }
}

TEST(DatabaseFile, ThatIsDamagedIsAnError) {
    const ScratchFolder folder;
    support::makeDatabase(folder / "a.db", "CREATE TABLE t(a); CREATE TABLE u(b)");
    const std::string good = support::contentOf(folder / "a.db");
    const char* hint =
        " [check it with: sqlite3 FILE 'PRAGMA integrity_check', or save what is left of it with: sqlite3 "
        "FILE .recover]";

    std::string bad = good;
    std::fill(bad.begin() + 100, bad.begin() + 4096, '\xff');
    support::write(folder / "b.db", bad);
    EXPECT_EQ(errorOfFile(folder / "b.db"),
              std::string("CANNOT_READ: the database is damaged: database disk image is malformed") + hint);

    bad = good;
    bad.replace(bad.find("CREATE TABLE u(b)"), 6, "CRATER");
    support::write(folder / "b.db", bad);
    EXPECT_EQ(
        errorOfFile(folder / "b.db"),
        std::string("CANNOT_READ: the database is damaged: malformed database schema (u) - near \"CRATER\": "
                    "syntax error") +
            hint);

    bad = good;
    bad[18] = bad[19] = 9;
    support::write(folder / "b.db", bad);
    EXPECT_THAT(errorOfFile(folder / "b.db"), StartsWith("CANNOT_READ: it is not a SQLite database"));
}

TEST(DatabaseFile, WithAnyByteDamagedGivesAModelOrAnError) {
    const ScratchFolder folder;
    support::makeDatabase(
        folder / "a.db",
        "PRAGMA page_size=512; CREATE TABLE t(a INT PRIMARY KEY, b TEXT UNIQUE) WITHOUT ROWID;"
        "CREATE TABLE u(t INT REFERENCES t); CREATE INDEX i ON u(t DESC) WHERE t > 0; CREATE VIEW v AS "
        "SELECT * FROM t;"
        "CREATE VIRTUAL TABLE f USING fts5(x); CREATE TRIGGER g AFTER INSERT ON t BEGIN SELECT 1; END");
    const std::string good = support::contentOf(folder / "a.db");
    std::size_t models = 0;
    std::size_t errors = 0;
    for (std::size_t at = 16; at < std::min<std::size_t>(good.size(), 6000); at += 7) {
        std::string bad = good;
        bad[at] = static_cast<char>(bad[at] ^ 0x15);
        try {
            support::RecordingContext context;
            support::describe(*sqliteDatabaseReader().read(Source::fromText("-", bad), {}, context));
            ++models;
        } catch (const readers::SourceError&) {
            ++errors;
        }
    }
    EXPECT_GT(models, 0U);
    EXPECT_GT(errors, 0U);
}

TEST(DatabaseFile, IsReadWhileAnotherProcessIsAboutToWrite) {
    const ScratchFolder folder;
    support::makeDatabase(folder / "a.db", "CREATE TABLE t(a INT)");
    const OtherProcess other(folder / "a.db", "BEGIN IMMEDIATE; CREATE TABLE later(b INT)");
    EXPECT_EQ(readAndDescribe(folder / "a.db"), "table t\n  a INT null\n");
}

TEST(DatabaseFile, ThatAnotherProcessHasLockedIsAnError) {
    const ScratchFolder folder;
    support::makeDatabase(folder / "a.db", "CREATE TABLE t(a INT)");
    OtherProcess other(folder / "a.db", "BEGIN EXCLUSIVE");
    EXPECT_EQ(errorOfFile(folder / "a.db"), LOCKED);
    other.finish();
    EXPECT_EQ(readAndDescribe(folder / "a.db"), "table t\n  a INT null\n");
}

TEST(DatabaseFile, IsWaitedForUntilItsLockGoes) {
    const ScratchFolder folder;
    support::makeDatabase(folder / "a.db", "CREATE TABLE t(a INT)");
    OtherProcess other(folder / "a.db", "BEGIN EXCLUSIVE");

    /// Ends the other process when the reader has looked at the lock for the third time.
    class EndingContext : public support::RecordingContext {
      public:
        explicit EndingContext(OtherProcess& other) : other_(other) {}
        void progress(std::uint64_t) override {
            if (++looks_ == 3) {
                other_.finish();
            }
        }

      private:
        OtherProcess& other_;
        int looks_ = 0;
    };
    EndingContext context(other);
    EXPECT_EQ(support::describe(*sqliteDatabaseReader().read(Source::fromFile(folder / "a.db"), {}, context)),
              "table t\n  a INT null\n");
}

TEST(DatabaseFile, CanBeInterruptedWhileItWaits) {
    const ScratchFolder folder;
    support::makeDatabase(folder / "a.db", "CREATE TABLE t(a INT)");
    const OtherProcess other(folder / "a.db", "BEGIN EXCLUSIVE");
    support::RecordingContext context;
    context.interruptAfterCalls = 2;
    try {
        sqliteDatabaseReader().read(Source::fromFile(folder / "a.db"), {}, context);
        ADD_FAILURE() << "read a locked database";
    } catch (const readers::SourceError& error) {
        EXPECT_EQ(error.kind(), readers::SourceError::Kind::INTERRUPTED);
    }
}

TEST(DatabaseFile, CanBeInterruptedAtEveryPoint) {
    const ScratchFolder folder;
    support::makeDatabase(folder / "a.db",
                          "CREATE TABLE t(a INT PRIMARY KEY); CREATE TABLE u(b INT REFERENCES t);"
                          "CREATE VIEW v AS SELECT * FROM t; CREATE INDEX i ON u(b)");
    std::uint64_t calls = 1;
    for (bool isRead = false; !isRead; ++calls) {
        support::RecordingContext context;
        context.interruptAfterCalls = calls;
        try {
            sqliteDatabaseReader().read(Source::fromFile(folder / "a.db"), {}, context);
            isRead = true;
        } catch (const readers::SourceError& error) {
            ASSERT_EQ(error.kind(), readers::SourceError::Kind::INTERRUPTED);
        }
    }
    EXPECT_GT(calls, 5U);
}

TEST(DatabaseFile, TellsHowManyObjectsWereRead) {
    EXPECT_EQ(support::readDatabase("CREATE TABLE t(a, b); CREATE INDEX i ON t(a)").context.objects, 4U);
    EXPECT_EQ(support::readDatabase("CREATE TABLE t(a INTEGER PRIMARY KEY); CREATE TABLE u(b REFERENCES t, "
                                    "c REFERENCES t);"
                                    "CREATE VIEW v AS SELECT b FROM u;"
                                    "CREATE TRIGGER i AFTER INSERT ON t BEGIN SELECT 1; END")
                  .context.objects,
              9U);
}

TEST(LoggedDatabase, InUseIsReadAsItsUserSeesIt) {
    const ScratchFolder folder;
    const OtherProcess other(folder / "a.db",
                             "PRAGMA journal_mode=WAL; CREATE TABLE t(a INT); BEGIN; CREATE TABLE later(b)");
    EXPECT_EQ(readAndDescribe(folder / "a.db"), "table t\n  a INT null\n");
    EXPECT_THAT(filesIn(folder), ElementsAre("a.db", "a.db-shm", "a.db-wal"));
}

TEST(LoggedDatabase, AtRestIsReadWithoutATrace) {
    const ScratchFolder folder;
    support::makeDatabase(folder / "a.db", "PRAGMA journal_mode=WAL; CREATE TABLE t(a INT)");
    ASSERT_THAT(filesIn(folder), ElementsAre("a.db"));
    EXPECT_EQ(readAndDescribe(folder / "a.db"), "table t\n  a INT null\n");
    EXPECT_THAT(filesIn(folder), ElementsAre("a.db"));
}

TEST(LoggedDatabase, LeftWithItsLogIsReadWithItAndWithoutATrace) {
    const ScratchFolder folder;
    OtherProcess(folder / "a.db", "PRAGMA journal_mode=WAL; CREATE TABLE t(a INT)").finish();
    std::filesystem::remove(folder / "a.db-shm");
    const std::string database = support::contentOf(folder / "a.db");
    const std::string log = support::contentOf(folder / "a.db-wal");
    ASSERT_EQ(database.find("CREATE TABLE t"), std::string::npos) << "the table stands in the log only";
    EXPECT_EQ(readAndDescribe(folder / "a.db"), "table t\n  a INT null\n");
    EXPECT_THAT(filesIn(folder), ElementsAre("a.db", "a.db-wal"));
    EXPECT_EQ(support::contentOf(folder / "a.db"), database);
    EXPECT_EQ(support::contentOf(folder / "a.db-wal"), log);
}

TEST(LoggedDatabase, LeftWithAllItsFilesKeepsThem) {
    const ScratchFolder folder;
    OtherProcess(folder / "a.db", "PRAGMA journal_mode=WAL; CREATE TABLE t(a INT)").finish();
    const std::string database = support::contentOf(folder / "a.db");
    const std::string log = support::contentOf(folder / "a.db-wal");
    EXPECT_EQ(readAndDescribe(folder / "a.db"), "table t\n  a INT null\n");
    EXPECT_THAT(filesIn(folder), ElementsAre("a.db", "a.db-shm", "a.db-wal"));
    EXPECT_EQ(support::contentOf(folder / "a.db"), database);
    EXPECT_EQ(support::contentOf(folder / "a.db-wal"), log);
}

TEST(DatabaseFile, InAReadOnlyFolderIsRead) {
    struct Case {
        const char* what;
        const char* sql;
        std::vector<const char*> removed;
        const char* model;
    };
    const Case cases[] = {
        {"without a log", "CREATE TABLE t(a INT)", {}, "table t\n  a INT null\n"},
        {"at rest",
         "PRAGMA journal_mode=WAL; CREATE TABLE t(a INT); PRAGMA wal_checkpoint(TRUNCATE)",
         {"a.db-shm", "a.db-wal"},
         "table t\n  a INT null\n"},
        {"with an empty log",
         "PRAGMA journal_mode=WAL; CREATE TABLE t(a INT); PRAGMA wal_checkpoint(TRUNCATE)",
         {"a.db-shm"},
         "table t\n  a INT null\n"},
        {"with a log",
         "PRAGMA journal_mode=WAL; CREATE TABLE t(a INT)",
         {"a.db-shm"},
         "table t\n  a INT null\n"},
        {"with all its files",
         "PRAGMA journal_mode=WAL; CREATE TABLE t(a INT)",
         {},
         "table t\n  a INT null\n"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        const ScratchFolder folder;
        OtherProcess(folder / "a.db", c.sql).finish();
        for (const char* name : c.removed) {
            std::filesystem::remove(folder / name);
        }
        for (const std::string& name : filesIn(folder)) {
            ::chmod((folder / name).c_str(), 0444);
        }
        ::chmod(folder.path().c_str(), 0555);
        EXPECT_EQ(support::inPlainProcess([&] { return readAndDescribe(folder / "a.db"); }), c.model);
        ::chmod(folder.path().c_str(), 0755);
    }
}

TEST(LoggedDatabase, WhoseUserLetsNobodyInIsAnError) {
    const ScratchFolder folder;
    OtherProcess other(folder / "a.db",
                       "PRAGMA locking_mode=EXCLUSIVE; PRAGMA journal_mode=WAL; CREATE TABLE t(a INT)");
    ASSERT_THAT(filesIn(folder), ElementsAre("a.db", "a.db-wal"));
    EXPECT_EQ(errorOfFile(folder / "a.db"), LOCKED);
    other.finish();
    EXPECT_EQ(readAndDescribe(folder / "a.db"), "table t\n  a INT null\n");
}

TEST(LoggedDatabase, ChangedWhileItIsReadIsAnError) {
    const ScratchFolder folder;
    support::makeDatabase(folder / "a.db", "PRAGMA journal_mode=WAL; CREATE TABLE t(a INT)");

    class ChangingContext : public support::RecordingContext {
      public:
        explicit ChangingContext(std::string path) : path_(std::move(path)) {}
        void progress(std::uint64_t count) override {
            if (count > 0 && !isDone_) {
                isDone_ = true;
                OtherProcess(path_, "CREATE TABLE late(a); PRAGMA wal_checkpoint").finish();
            }
        }

      private:
        std::string path_;
        bool isDone_ = false;
    };
    ChangingContext context(folder / "a.db");
    try {
        sqliteDatabaseReader().read(Source::fromFile(folder / "a.db"), {}, context);
        ADD_FAILURE() << "did not notice the change";
    } catch (const readers::SourceError& error) {
        EXPECT_STREQ(error.what(), "it was changed by another process while it was being read");
        EXPECT_EQ(error.hint(), "read it again");
    }
}

TEST(RolledBackDatabase, WithAnUnfinishedChangeIsAnError) {
    const ScratchFolder folder;
    support::makeDatabase(folder / "a.db", "CREATE TABLE t(a); INSERT INTO t VALUES (zeroblob(9000))");
    OtherProcess(folder / "a.db",
                 "PRAGMA cache_size=1; PRAGMA cache_spill=1; BEGIN; CREATE TABLE u(b); UPDATE t SET a = "
                 "randomblob(90000);"
                 "INSERT INTO t VALUES (randomblob(90000))")
        .finish();
    ASSERT_THAT(filesIn(folder), ElementsAre("a.db", "a.db-journal"));
    const std::string before = support::contentOf(folder / "a.db");
    EXPECT_EQ(errorOfFile(folder / "a.db"),
              "CANNOT_READ: a change that was cut short must be undone before the database can be read, and "
              "that would "
              "write to it [open it once with a program that may write to it, such as sqlite3]");
    EXPECT_EQ(support::contentOf(folder / "a.db"), before);
    EXPECT_THAT(filesIn(folder), ElementsAre("a.db", "a.db-journal"));
}

TEST(DatabaseFile, TakesANumberAsItsTimeout) {
    const ScratchFolder folder;
    support::makeDatabase(folder / "a.db", "CREATE TABLE t(a)");
    for (const char* value : {"", "soon", "-1", "5s", "99999999999"}) {
        ReadRequest request;
        request.options["busy-timeout"] = value;
        EXPECT_EQ(
            support::errorOf(sqliteDatabaseReader(), Source::fromFile(folder / "a.db"), request),
            "WRONG_OPTION: \"" + std::string(value) +
                "\" is no number of milliseconds [give a whole one that is not negative, such as 5000]");
    }
}

}  // namespace
