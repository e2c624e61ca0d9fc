#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "sqlite/Definitions.h"
#include "sqlite/TableDefinition.h"

namespace {

using namespace readers::sqlite;
using testing::ElementsAre;
using testing::IsEmpty;

/// What was understood of a CREATE TABLE statement, an item a line.
std::vector<std::string> linesOf(std::string_view sql) {
    const TableDefinition table = parseTableDefinition(sql);
    std::vector<std::string> lines;
    for (const ColumnDefinition& column : table.columns) {
        lines.push_back(
            "column " + column.name + (column.collation.empty() ? "" : " collate " + column.collation) +
            (column.conflict.empty() ? "" : " conflict " + column.conflict) +
            (column.generation.empty() ? "" : " as " + column.generation) + (column.stored ? " stored" : ""));
    }
    for (const KeyConstraint& key : table.keys) {
        std::string members;
        for (const KeyMember& member : key.members) {
            members += " " + member.column + (member.collation.empty() ? "" : "/" + member.collation) +
                       (member.descending ? "-" : "");
        }
        lines.push_back((key.primary ? "primary " : "unique ") + key.name + ":" + members +
                        (key.autoIncrement ? " autoincrement" : "") +
                        (key.conflict.empty() ? "" : " conflict " + key.conflict));
    }
    for (const CheckConstraint& check : table.checks) {
        lines.push_back("check " + check.name + " of " + (check.column.empty() ? "table" : check.column) +
                        ": " + check.expression);
    }
    for (const ReferenceConstraint& reference : table.references) {
        std::string columns;
        for (const std::string& column : reference.columns) {
            columns += " " + column;
        }
        lines.push_back("reference " + reference.name + ":" + columns + " to " + reference.table +
                        (reference.match.empty() ? "" : " match " + reference.match) +
                        (reference.deferral.empty() ? "" : " " + reference.deferral));
    }
    if (table.strict) {
        lines.emplace_back("strict");
    }
    if (table.withoutRowid) {
        lines.emplace_back("without rowid");
    }
    if (!table.complete) {
        lines.emplace_back("incomplete");
    }
    return lines;
}

struct TableCase {
    const char* what;
    const char* sql;
    std::vector<std::string> lines;
};

class TableDefinitionTest : public testing::TestWithParam<TableCase> {};

TEST_P(TableDefinitionTest, IsUnderstood) {
    EXPECT_THAT(linesOf(GetParam().sql), testing::ElementsAreArray(GetParam().lines)) << GetParam().what;
}

INSTANTIATE_TEST_SUITE_P(
    Statements, TableDefinitionTest,
    testing::Values(
        TableCase{"plain columns",
                  "CREATE TABLE t(a, b INT, c VARCHAR (3), d)",
                  {"column a", "column b", "column c", "column d"}},
        TableCase{"optional words before the name",
                  "CREATE TEMP TABLE IF NOT EXISTS main.\"t t\" (a)",
                  {"column a"}},
        TableCase{"a table called if", "CREATE TABLE if(a)", {"column a"}},
        TableCase{"all four ways of quoting names",
                  "CREATE TABLE t(\"a \"\"b\" INT, [c d] TEXT, `e``f`, 'g''h' REAL)",
                  {"column a \"b", "column c d", "column e`f", "column g'h"}},
        TableCase{"no blanks at all",
                  "CREATE TABLE[t]([a]TEXT NOT NULL,\"b\"INT UNIQUE)",
                  {"column a", "column b", "unique : b"}},
        TableCase{"comments everywhere",
                  "CREATE TABLE t -- )\n(a /* , */ INT -- UNIQUE\n PRIMARY /* x */ KEY, b -- last\n)",
                  {"column a", "column b", "primary : a"}},
        TableCase{"names of column constraints",
                  "CREATE TABLE t(a INT CONSTRAINT pk PRIMARY KEY CONSTRAINT u UNIQUE, b CONSTRAINT nn NOT "
                  "NULL UNIQUE)",
                  {"column a", "column b", "primary pk: a", "unique u: a", "unique : b"}},
        TableCase{"the last of several names counts",
                  "CREATE TABLE t(a CONSTRAINT x CONSTRAINT y UNIQUE)",
                  {"column a", "unique y: a"}},
        TableCase{"columns called like words that may be names",
                  "CREATE TABLE t(key TEXT, action, desc INT, generated, always, match, PRIMARY KEY (desc "
                  "DESC, key))",
                  {"column key", "column action", "column desc", "column generated", "column always",
                   "column match", "primary : desc- key"}},
        TableCase{"autoincrement at the column",
                  "CREATE TABLE t(id INTEGER PRIMARY KEY DESC ON CONFLICT FAIL AUTOINCREMENT)",
                  {"column id", "primary : id- autoincrement conflict FAIL"}},
        TableCase{"autoincrement in the list",
                  "CREATE TABLE t(id INTEGER, PRIMARY KEY(id AUTOINCREMENT))",
                  {"column id", "primary : id autoincrement"}},
        TableCase{"table constraints with and without commas",
                  "CREATE TABLE t(a, b, CONSTRAINT p PRIMARY KEY(a, b) UNIQUE(b COLLATE NOCASE DESC, a ASC) "
                  "ON CONFLICT IGNORE"
                  " CONSTRAINT c CHECK (a > (b)), FOREIGN KEY(a) REFERENCES u)",
                  {"column a", "column b", "primary p: a b", "unique : b/NOCASE- a conflict IGNORE",
                   "check c of table: a > (b)", "reference : a to u"}},
        TableCase{"key columns in parentheses",
                  "CREATE TABLE t(a, b, UNIQUE((a), ((b) COLLATE NOCASE) DESC))",
                  {"column a", "column b", "unique : a b/NOCASE-"}},
        TableCase{
            "defaults of all shapes",
            "CREATE TABLE t(a DEFAULT 'x, y)', b DEFAULT -1.5e-3 UNIQUE, c DEFAULT (f(1, ')')) NOT NULL,"
            " d DEFAULT CURRENT_TIMESTAMP COLLATE NOCASE, e DEFAULT +3, f DEFAULT x'00' UNIQUE, g DEFAULT "
            "NULL)",
            {"column a", "column b", "column c", "column d collate NOCASE", "column e", "column f",
             "column g", "unique : b", "unique : f"}},
        TableCase{"collations and conflicts",
                  "CREATE TABLE t(a COLLATE RTRIM NOT NULL ON CONFLICT ROLLBACK, b NULL, c COLLATE 'nocase')",
                  {"column a collate RTRIM conflict ROLLBACK", "column b", "column c collate nocase"}},
        TableCase{"generated columns",
                  "CREATE TABLE t(a, b INT GENERATED ALWAYS AS (a * (2)) STORED NOT NULL, c AS (a || ',') "
                  "VIRTUAL, d AS (a))",
                  {"column a", "column b as a * (2) stored", "column c as a || ','", "column d as a"}},
        TableCase{"checks of columns",
                  "CREATE TABLE t(a CONSTRAINT ok CHECK (a IN ('x', 'y')) CHECK(a <> ''), b)",
                  {"column a", "column b", "check ok of a: a IN ('x', 'y')", "check  of a: a <> ''"}},
        TableCase{"references of columns",
                  "CREATE TABLE t(a REFERENCES u, b CONSTRAINT fk REFERENCES \"v w\"(x) ON DELETE SET NULL "
                  "ON UPDATE"
                  " NO ACTION MATCH FULL DEFERRABLE INITIALLY DEFERRED NOT NULL, c REFERENCES u NOT "
                  "DEFERRABLE UNIQUE)",
                  {"column a", "column b", "column c", "unique : c", "reference : a to u",
                   "reference fk: b to v w match FULL DEFERRABLE INITIALLY DEFERRED", "reference : c to u"}},
        TableCase{"a foreign key of several columns",
                  "CREATE TABLE t(a, b, CONSTRAINT fk FOREIGN KEY(a, \"b\") REFERENCES u(x, y) ON DELETE "
                  "CASCADE DEFERRABLE)",
                  {"column a", "column b", "reference fk: a b to u DEFERRABLE"}},
        TableCase{"table options",
                  "CREATE TABLE t(a INT PRIMARY KEY) STRICT, WITHOUT ROWID",
                  {"column a", "primary : a", "strict", "without rowid"}},
        TableCase{
            "types of several words and strange texts",
            "CREATE TABLE t(a UNSIGNED BIG INT PRIMARY KEY, b \"my type\"(1, -2) UNIQUE, c 'x' 'y' UNIQUE)",
            {"column a", "column b", "column c", "primary : a", "unique : b", "unique : c"}}));

TEST(TableDefinition, OfAnythingElseIsIncomplete) {
    for (const char* sql : {"", "CREATE TABLE t", "CREATE TABLE t(a, WHAT IS THIS (", "CREATE TABLE t(,,(",
                            "CREATE VIEW v AS SELECT 1", "CREATE TABLE t(a REFERENCES",
                            "CREATE TABLE t(PRIMARY", "CREATE TABLE t(a, FOREIGN KEY (",
                            "CREATE TABLE t(a, UNIQUE", "CREATE TABLE t(a DEFAULT", "CREATE TABLE t(5)"}) {
        parseTableDefinition(sql);  // ends
    }
    EXPECT_FALSE(parseTableDefinition("CREATE TABLE t AS SELECT 1").complete);
    EXPECT_FALSE(parseTableDefinition("CREATE TABLE t(a INT 5 UNIQUE)").complete);
    EXPECT_FALSE(parseTableDefinition("CREATE TABLE t(a, UNIQUE a)").complete);
    EXPECT_FALSE(parseTableDefinition("CREATE TABLE t(a, FOREIGN KEY (a))").complete);
}

TEST(TableDefinition, FindsColumnsInAnyLetterCase) {
    const TableDefinition table = parseTableDefinition("CREATE TABLE t(Name COLLATE NOCASE)");
    ASSERT_NE(table.column("nAME"), nullptr);
    EXPECT_EQ(table.column("nAME")->collation, "NOCASE");
    EXPECT_EQ(table.column("other"), nullptr);
}

TEST(IndexDefinition, KeepsMembersAndConditionAsWritten) {
    const IndexDefinition index = parseIndexDefinition(
        "CREATE UNIQUE INDEX IF NOT EXISTS s.i ON t(a, lower(b, ',') COLLATE NOCASE DESC, \"c d\") WHERE a > "
        "0 AND (b)");
    EXPECT_THAT(index.members, ElementsAre("a", "lower(b, ',') COLLATE NOCASE DESC", "\"c d\""));
    EXPECT_EQ(index.condition, "a > 0 AND (b)");
    EXPECT_THAT(parseIndexDefinition("CREATE INDEX i ON t").members, IsEmpty());
    EXPECT_THAT(parseIndexDefinition("").members, IsEmpty());
}

TEST(ViewSelect, StandsBehindTheFirstAs) {
    EXPECT_EQ(parseViewSelect("CREATE VIEW v AS SELECT a AS b FROM t"), "SELECT a AS b FROM t");
    EXPECT_EQ(parseViewSelect("CREATE TEMP VIEW IF NOT EXISTS m.[v]( x , \"y)\" )\nAS -- first\n WITH c AS "
                              "(SELECT 1)\n SELECT * FROM c ;"),
              "WITH c AS (SELECT 1)\n SELECT * FROM c");
    EXPECT_EQ(parseViewSelect("CREATE VIEW v"), "");
}

TEST(CompoundSelect, IsKnownByItsTop) {
    EXPECT_TRUE(isCompoundSelect("SELECT 1 union all SELECT 2"));
    EXPECT_TRUE(isCompoundSelect("SELECT (1) EXCEPT SELECT 2"));
    EXPECT_FALSE(isCompoundSelect("SELECT * FROM (SELECT 1 UNION SELECT 2)"));
    EXPECT_FALSE(isCompoundSelect("SELECT 'a UNION b' AS \"union\""));
}

TEST(TriggerDefinition, HasTimingEventAndAction) {
    using Timing = TriggerDefinition::Timing;
    using Event = TriggerDefinition::Event;
    struct Case {
        const char* sql;
        Timing timing;
        Event event;
        const char* columns;
        const char* action;
    };
    const Case cases[] = {
        {"CREATE TRIGGER t AFTER INSERT ON x BEGIN SELECT 1; END", Timing::AFTER, Event::INSERT, "",
         "BEGIN SELECT 1; END"},
        {"CREATE TRIGGER IF NOT EXISTS \"t\" DELETE ON x FOR EACH ROW WHEN old.a BEGIN SELECT 1; END;",
         Timing::BEFORE, Event::DELETE, "", "WHEN old.a BEGIN SELECT 1; END"},
        {"CREATE TRIGGER m.t INSTEAD OF UPDATE OF a, \"on\" ON x BEGIN SELECT 1;\n -- done\n END",
         Timing::INSTEAD_OF, Event::UPDATE, "a, \"on\"", "BEGIN SELECT 1;\n -- done\n END"},
        {"CREATE TRIGGER before BEFORE UPDATE ON x BEGIN SELECT 1; END", Timing::BEFORE, Event::UPDATE, "",
         "BEGIN SELECT 1; END"},
    };
    for (const Case& c : cases) {
        const TriggerDefinition trigger = parseTriggerDefinition(c.sql);
        EXPECT_EQ(trigger.timing, c.timing) << c.sql;
        EXPECT_EQ(trigger.event, c.event) << c.sql;
        EXPECT_EQ(trigger.columns, c.columns) << c.sql;
        EXPECT_EQ(trigger.action, c.action) << c.sql;
    }
}

TEST(VirtualTableDefinition, HasModuleAndArguments) {
    const VirtualTableDefinition table = parseVirtualTableDefinition(
        "CREATE VIRTUAL TABLE IF NOT EXISTS d USING fts5(title, tokenize = 'porter')");
    EXPECT_EQ(table.module, "fts5");
    EXPECT_EQ(table.arguments, "title, tokenize = 'porter'");
    EXPECT_EQ(parseVirtualTableDefinition("CREATE VIRTUAL TABLE d USING \"m\"").module, "m");
}

TEST(NormalizedType, HasNoCommentsAndNeedlessBlanks) {
    EXPECT_EQ(normalizeType("VARCHAR  ( 40 )"), "VARCHAR(40)");
    EXPECT_EQ(normalizeType("DECIMAL(10 , /* digits */ 2)"), "DECIMAL(10,2)");
    EXPECT_EQ(normalizeType("double\n precision"), "double precision");
    EXPECT_EQ(normalizeType("\"my type\"(3)"), "my type(3)");
    EXPECT_EQ(normalizeType("X(-1,+2)"), "X(-1,+2)");
    EXPECT_EQ(normalizeType(""), "");
}

}  // namespace
