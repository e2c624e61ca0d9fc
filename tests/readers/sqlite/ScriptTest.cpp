#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "ModelDump.h"
#include "SqliteTestSupport.h"
#include "sqlite/SqliteReaders.h"

namespace {

using readers::Source;
using readers::sqlScriptReader;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* REFUSAL =
    " [a script may make tables, views, indexes and triggers and insert rows; take everything else out, or "
    "run the "
    "script with sqlite3 and name the database that it makes]";

TEST(Script, GivesTheSameModelAsTheDatabaseThatItMakes) {
    const char* sql = R"(-- a small shop
        CREATE TABLE customer(id INTEGER PRIMARY KEY AUTOINCREMENT, name TEXT NOT NULL UNIQUE);
        CREATE TABLE "order"(id INTEGER PRIMARY KEY, customer INT REFERENCES customer ON DELETE CASCADE);
        INSERT INTO customer(name) VALUES ('a;b'), ('c''d');
        CREATE INDEX of_customer ON "order"(customer);
        CREATE VIEW names AS SELECT name FROM customer;
        CREATE TRIGGER t AFTER INSERT ON customer BEGIN UPDATE customer SET name = 'x'; DELETE FROM "order"; END;
    )";
    readers::ReadRequest request;
    request.modelName = "shop";
    EXPECT_EQ(support::dumpModel(*support::readScript(sql, request).model),
              support::dumpModel(*support::readDatabase(sql, request).model));
}

TEST(Script, MayHoldEverythingThatDumpsHold) {
    const support::Reading reading = support::readScript(R"(PRAGMA foreign_keys=OFF;
BEGIN TRANSACTION;
CREATE TABLE t(id INTEGER PRIMARY KEY AUTOINCREMENT, v TEXT CHECK (v <> ''));
INSERT INTO t VALUES(1,'');
INSERT INTO t VALUES(1,replace('a\nb','\n',char(10)));
CREATE TABLE IF NOT EXISTS "t"(x INT);
PRAGMA writable_schema=ON;
INSERT INTO sqlite_schema(type,name,tbl_name,rootpage,sql)VALUES('table','docs','docs',0,'CREATE VIRTUAL TABLE docs USING fts5(body, tokenize=''porter'')');
CREATE TABLE IF NOT EXISTS 'docs_data'(id INTEGER PRIMARY KEY, block BLOB);
INSERT INTO docs_data VALUES(1,X'');
INSERT INTO docs_data VALUES(1,X'');
ANALYZE sqlite_schema;
INSERT INTO sqlite_stat1 VALUES('t',NULL,'2');
DELETE FROM sqlite_sequence;
INSERT INTO sqlite_sequence VALUES('t',1);
PRAGMA writable_schema=OFF;
REPLACE INTO t VALUES(1,'b');
WITH more(n) AS (VALUES (7)) INSERT INTO t(id) SELECT n FROM more;
SAVEPOINT s; RELEASE s;
COMMIT;
)");
    EXPECT_EQ(support::describe(*reading.model),
              "table t\n  id INTEGER AUTOINCREMENT\n  v TEXT null\n  primary t_pk (id)\ntable docs\n  body "
              "BLOB null\n");
    EXPECT_THAT(reading.context.warnings, IsEmpty());
}

TEST(Script, MayChangeTheSchemaThatItMade) {
    const support::Reading reading = support::readScript(
        "CREATE TABLE a(x INT); CREATE VIEW v AS SELECT x FROM a; ALTER TABLE a RENAME TO b; ALTER TABLE b "
        "ADD COLUMN y TEXT;"
        "ALTER TABLE b RENAME COLUMN x TO z; CREATE TABLE c AS SELECT z, y FROM b; CREATE TABLE d(a); DROP "
        "TABLE d; REINDEX");
    EXPECT_EQ(support::describe(*reading.model),
              "table b\n  z INT null\n  y TEXT null\ntable c\n  z INT null\n  y TEXT null\n"
              "view v: SELECT z FROM \"b\"\n  z INT <- b.z\n");
}

TEST(Script, MayBeginWithAByteOrderMarkAndEndWithoutASemicolon) {
    EXPECT_EQ(
        support::describe(*support::readScript("\xEF\xBB\xBF-- hello\r\n;;CREATE TABLE t(a INT)").model),
        "table t\n  a INT null\n");
    EXPECT_EQ(support::describe(*support::readScript("").model), "");
    EXPECT_EQ(support::describe(*support::readScript(" /* nothing */ ; -- at all").model), "");
}

TEST(Script, InsertsNothing) {
    const support::Reading reading = support::readScript(
        "CREATE TABLE t(a INT UNIQUE); INSERT INTO t VALUES (1); INSERT INTO t VALUES (1);"
        "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n) INSERT INTO t SELECT i FROM n;"
        "INSERT INTO t VALUES (load_extension('x')), (unknown_function()) ON CONFLICT DO UPDATE SET a = 2 "
        "RETURNING a");
    EXPECT_EQ(support::describe(*reading.model), "table t\n  a INT null\n  unique t_a_uk (a)\n");
}

TEST(Script, TellsOfTemporaryObjects) {
    const support::Reading reading = support::readScript(
        "CREATE TABLE t(a INT); CREATE TEMP TABLE u(b INT UNIQUE); CREATE TEMP VIEW v AS SELECT a FROM t");
    EXPECT_EQ(support::describe(*reading.model), "table t\n  a INT null\n");
    EXPECT_THAT(reading.context.lossLines(),
                ElementsAre("temporary objects: temp.u", "temporary objects: temp.v"));
}

TEST(Script, IsNamedLikeItsFile) {
    EXPECT_EQ(support::readScript("CREATE TABLE t(a)").model->getName(), "script");
    readers::ReadRequest request;
    request.modelName = "Sales";
    EXPECT_EQ(support::readScript("CREATE TABLE t(a)", request).model->getName(), "Sales");
}

struct RefusedCase {
    const char* sql;
    std::string error;
};

TEST(Script, RefusesWhatIsNoSchemaStatement) {
    const RefusedCase cases[] = {
        {"SELECT 1", "line 1: SELECT is not run"},
        {"CREATE TABLE t(a);\n\n-- all\nUpdate t SET a = 1;", "line 4: Update is not run"},
        {"CREATE TABLE t(a);\nDELETE FROM t", "line 2: DELETE is not run"},
        {"CREATE TABLE t(a);\nDELETE FROM sqlite_sequence WHERE name = 't'", "line 2: DELETE is not run"},
        {"\nATTACH 'other.db' AS o", "line 2: ATTACH is not run"},
        {"DETACH main", "line 1: DETACH is not run"},
        {"VACUUM INTO 'copy.db'", "line 1: VACUUM is not run"},
        {"EXPLAIN CREATE TABLE t(a)", "line 1: EXPLAIN is not run"},
        {"VALUES (1)", "line 1: VALUES is not run"},
        {"WITH a AS (SELECT 1) SELECT * FROM a", "line 1: this is not allowed in a script"},
        {"CREATE TABLE t(a);\nWITH a AS (SELECT 1) DELETE FROM t", "line 2: this is not allowed in a script"},
        {"CREATE TABLE t(a);\nWITH a AS (SELECT 1) UPDATE t SET a = 1",
         "line 2: this is not allowed in a script"},
        {"CREATE TABLE t AS SELECT load_extension('x')", "line 1: this is not allowed in a script"},
        {"\n.read other.sql", "line 2: this is a command of the sqlite3 program, not SQL"},
        {"CREATE TABLE t(a);\nINSERT INTO sqlite_schema VALUES ('table', 'x', 'x', 0, 'CREATE TABLE x(a)')",
         "line 2: the table that holds the schema is not written to"},
    };
    for (const RefusedCase& c : cases) {
        EXPECT_EQ(support::errorOfScript(c.sql), "CANNOT_READ: " + c.error + REFUSAL) << c.sql;
    }
}

TEST(Script, NamesTheLineOfAnError) {
    const RefusedCase cases[] = {
        {"CREATE TABLE t(a);\nCREATE TABLE u(\n  a INT,\n  b INT INT(,\n)",
         "line 4: near \",\": syntax error"},
        {"CREATE TABLE t(a);\r\nCREATE TABLE t(a)", "line 2: table t already exists"},
        {"\nINSERT INTO nowhere VALUES (1)", "line 2: no such table: nowhere"},
        {"CREATE TABLE t(a);\nCREATE INDEX i ON t(b)", "line 2: no such column: b"},
        {"CREATE TABLE t(a", "line 1: incomplete input"},
        {"CREATE TABLE t(a) 'open", "line 1: unrecognized token: \"'open\""},
        {"CREATE TABLE t(a TEXT DEFAULT 'x\n\n\n') oops", "line 1: unknown table option: oops"},
        {"CREATE VIRTUAL TABLE v USING unheard_of(a)", "line 1: no such module: unheard_of"},
        {"COMMIT", "line 1: cannot commit - no transaction is active"},
    };
    for (const RefusedCase& c : cases) {
        EXPECT_EQ(support::errorOfScript(c.sql), "CANNOT_READ: " + c.error) << c.sql;
    }
}

TEST(Script, ErrorsStayShort) {
    const std::string error = support::errorOfScript("CREATE TABLE t(a) '" + std::string(100'000, 'x'));
    EXPECT_LT(error.size(), 250U);
    EXPECT_THAT(error, testing::EndsWith("..."));
}

TEST(Script, ForAnotherDatabaseIsKnown) {
    const RefusedCase cases[] = {
        {"CREATE TABLE `t` (\n  `a` int unsigned NOT NULL AUTO_INCREMENT\n) ENGINE=InnoDB",
         "MySQL or MariaDB"},
        {"SET search_path = pg_catalog;\nCREATE TABLE t(a serial)", "PostgreSQL"},
        {"SET QUOTED_IDENTIFIER ON\nGO\nCREATE TABLE [dbo].[t](a INT IDENTITY(1,1))\nGO\n", "SQL Server"},
        {"CREATE TABLE t(a VARCHAR2(9 BYTE)) TABLESPACE users", "Oracle"},
        {"CREATE TABLE t(a int unsigned, UNIQUE KEY b (a))", "MySQL or MariaDB"},
    };
    for (const RefusedCase& c : cases) {
        EXPECT_THAT(support::errorOfScript(c.sql),
                    testing::EndsWith(" [the script seems to be written for " + c.error +
                                      "; only SQLite's SQL is understood here]"))
            << c.sql;
    }
    EXPECT_EQ(support::errorOfScript("CREATE TABLE t(a int NOT NULL AUTO_INCREMENT)"),
              "CANNOT_READ: line 1: near \"AUTO_INCREMENT\": syntax error [the script seems to be written "
              "for MySQL or "
              "MariaDB; only SQLite's SQL is understood here]");
}

TEST(Script, IsNotTakenForAnotherDatabasesByAWordThatSqliteHasToo) {
    constexpr const char* PLAIN[] = {"CREATE TABLE t(d UNSIGNED BIG INT);", "CREATE TABLE t(d NUMBER(9, 2));",
                                     "CREATE TABLE t(d TIMESTAMP WITHOUT TIME ZONE);",
                                     "CREATE TABLE t(d INT IDENTITY(1, 1));",
                                     "CREATE TABLE t(d DEFAULT '::');"};
    for (const std::string plain : PLAIN) {
        EXPECT_EQ(support::errorOfScript(plain + "\nCREATE TABEL u(a)"),
                  "CANNOT_READ: line 2: near \"TABEL\": syntax error");
    }
}

TEST(Script, ThatIsNoTextIsAnError) {
    EXPECT_EQ(support::errorOfScript(std::string_view("CREATE\nTABLE\0 t(a)", 18)),
              "CANNOT_READ: line 2: there is a NUL character; this is no text");
    EXPECT_EQ(
        support::errorOfScript(std::string_view("\xFF\xFE"
                                                "C\0R\0",
                                                6)),
        "CANNOT_READ: it is UTF-16 text [save it as UTF-8, for example with: iconv -f UTF-16 -t UTF-8]");
}

TEST(Script, ThatIsNotUtf8IsReadWithAWarning) {
    const support::Reading latin =
        support::readScript("-- für\nCREATE TABLE t(\n  gr\xF6\xDF INT,\n  b\xE9 INT)");
    EXPECT_EQ(latin.model->getChildPackages().size(), 2U);
    EXPECT_EQ(support::describe(*latin.model), "table t\n  gr\uFFFD\uFFFD INT null\n  b\uFFFD INT null\n");
    EXPECT_THAT(latin.context.warnings,
                testing::ElementsAre(
                    "line 3: this is not UTF-8, and names may be garbled; if the script is in another "
                    "encoding, save it as UTF-8, for example with: iconv -f ISO-8859-1 -t UTF-8"));
    const support::Reading utf8 = support::readScript("CREATE TABLE t(größe INT) -- für alle \U0001F642");
    EXPECT_THAT(utf8.context.warnings, testing::IsEmpty());
}

TEST(Script, DoesNotRunWithoutEnd) {
    EXPECT_EQ(support::errorOfScript("\nCREATE TABLE t AS WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT "
                                     "i FROM n) SELECT i FROM n WHERE i > 1"),
              "CANNOT_READ: line 2: the statement does not come to an end [take out what it selects from]");
}

TEST(Script, DoesNotFillTheMemory) {
    const std::string error =
        "CANNOT_READ: line 1: the statement needs too much memory [take out what it selects from]";
    const char* endless =
        "AS WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i FROM n) SELECT zeroblob(60000000) AS z FROM "
        "n";
    EXPECT_EQ(support::errorOfScript(std::string("CREATE TABLE t ") + endless), error);
    EXPECT_EQ(support::errorOfScript(std::string("CREATE TEMP TABLE t ") + endless), error);
    EXPECT_EQ(support::errorOfScript(std::string("CREATE TABLE t ") + endless + " ORDER BY z"), error);
    EXPECT_EQ(support::errorOfScript("CREATE TABLE t AS SELECT zeroblob(900000000)"), error);
    EXPECT_EQ(support::errorOfScript("CREATE TABLE t(a)"), "no error") << "the limit is gone again";
}

TEST(Script, DoesNotCompileNestedViewsWithoutBound) {
    std::string sql = "CREATE TABLE t(a);\nCREATE VIEW v0 AS SELECT * FROM t;\n";
    for (int i = 1; i <= 40; ++i) {
        const std::string below = "v" + std::to_string(i - 1);
        sql += "CREATE VIEW v" + std::to_string(i) + " AS SELECT x.a FROM " + below + " x JOIN " + below +
               " y;\n";
    }
    const char* dumped =
        "INSERT INTO sqlite_schema VALUES ('table', 'f', 'f', 0, 'CREATE VIRTUAL TABLE f USING fts4(a)')";
    for (const char* last : {dumped, "CREATE TABLE u AS SELECT * FROM v40", "ALTER TABLE t RENAME TO u",
                             "CREATE VIRTUAL TABLE f USING fts4(content='v40', a)"}) {
        EXPECT_EQ(support::errorOfScript(sql + last),
                  "CANNOT_READ: line 43: this cannot be run, as there are views before it that are nested "
                  "too deeply in "
                  "each other");
    }
}

TEST(Script, CanBeInterrupted) {
    for (const char* sql :
         {"CREATE TABLE t AS WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i FROM n) SELECT i FROM n",
          "CREATE TABLE t(a); CREATE TABLE u(a)"}) {
        support::RecordingContext context;
        context.interruptAfterCalls = 1;
        try {
            sqlScriptReader().read(Source::fromText("s.sql", sql), {}, context);
            ADD_FAILURE() << "went on: " << sql;
        } catch (const readers::SourceError& error) {
            EXPECT_EQ(error.kind(), readers::SourceError::Kind::INTERRUPTED);
        }
    }
}

TEST(Script, IsRecognisedByItsBeginningOrItsName) {
    const auto isScript = [](const char* name, std::string text) {
        return sqlScriptReader().identify(Source::fromText(name, std::move(text)));
    };
    EXPECT_TRUE(isScript("-", "-- dump\nPRAGMA foreign_keys=OFF;\nBEGIN TRANSACTION;"));
    EXPECT_TRUE(isScript("-", "create table t(a)"));
    EXPECT_TRUE(isScript("-", "\xEF\xBB\xBF/* c */ CREATE TEMP VIEW v AS SELECT 1"));
    EXPECT_TRUE(isScript("-", "BEGIN;"));
    EXPECT_TRUE(isScript("-", "INSERT INTO t VALUES (1)"));
    EXPECT_TRUE(isScript("SCHEMA.SQL", "-- nothing but a comment"));
    EXPECT_TRUE(isScript("empty.sql", ""));
    EXPECT_FALSE(isScript("-", "Create a table by hand."));
    EXPECT_FALSE(isScript("-", "{\"format\": \"x\"}"));
    EXPECT_FALSE(isScript("-", ""));
    EXPECT_FALSE(isScript("t.sql", std::string("SQLite format 3\0...", 19)))
        << "a database, whatever it is called";
}

}  // namespace
