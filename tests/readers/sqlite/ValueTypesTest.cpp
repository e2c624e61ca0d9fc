// CHECKs that list a column's values become types of columns; every other CHECK is lost.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "SqliteTestSupport.h"
#include "ZORModelCheck.h"

namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

struct CheckCase {
    const char* name;
    const char* columns;  ///< of the table t
    std::vector<std::string> types;
    std::vector<std::string> losses = {};
};

void PrintTo(const CheckCase& checkCase, std::ostream* out) {
    *out << checkCase.columns;
}

/// The types of a model, a line each: "t_a (TEXT: x|y)" for one with values.
std::vector<std::string> typesOf(const ZORModel& model) {
    std::vector<std::string> lines;
    for (const ZORType* type : model.getTypes()) {
        std::string line(type->getName().view());
        if (type->getBaseType() != nullptr) {
            line += " (" + std::string(type->getBaseType()->getName().view());
            const char* between = ": ";
            for (const ZORTypeValue* value : type->getTypeValues()) {
                line += between + std::string(value->getValue().view());
                between = "|";
            }
            line += ")";
        }
        lines.push_back(line);
    }
    return lines;
}

class SqliteCheck : public testing::TestWithParam<CheckCase> {};

TEST_P(SqliteCheck, GivesTheTypes) {
    const support::Reading reading =
        support::readDatabase(std::string("CREATE TABLE t(") + GetParam().columns + ")");
    EXPECT_THAT(typesOf(*reading.model), ElementsAreArray(GetParam().types));
    EXPECT_THAT(reading.context.lossLines(), ElementsAreArray(GetParam().losses));
    EXPECT_THAT(checkModel(*reading.model), IsEmpty());
}

std::string nameOf(const testing::TestParamInfo<CheckCase>& info) {
    return info.param.name;
}

const CheckCase TAKEN[] = {
    {"OfAColumn", "a TEXT CHECK (a IN ('x', 'y'))", {"TEXT", "t_a (TEXT: x|y)"}},
    {"OfTheTable", "a TEXT, b INT, CHECK (b IN (1, 2))", {"TEXT", "INT", "t_b (INT: 1|2)"}},
    {"OfAColumnByName", "a TEXT CONSTRAINT c CHECK (a IN ('x'))", {"TEXT", "t_a (TEXT: x)"}},
    {"OfTheTableByName", "a TEXT, CONSTRAINT c CHECK (a IN ('x'))", {"TEXT", "t_a (TEXT: x)"}},
    {"InAnyLetterCase", "Status TEXT CHECK (STATUS in ('x'))", {"TEXT", "t_Status (TEXT: x)"}},
    {"OfColumnsWithQuotedNames",
     "\"a b\" TEXT CHECK (\"a b\" IN ('x')), [c] TEXT CHECK (`c` IN ('y')), `d` TEXT, CHECK ([d] IN ('z'))",
     {"TEXT", "t_a b (TEXT: x)", "t_c (TEXT: y)", "t_d (TEXT: z)"}},
    {"AmongComments",
     "a TEXT CHECK /* one */ (a -- of\n IN\n('x' /* or */, 'y'))",
     {"TEXT", "t_a (TEXT: x|y)"}},
    {"InNeedlessParentheses", "a TEXT CHECK (((a IN ('x'))))", {"TEXT", "t_a (TEXT: x)"}},
    {"WithSignedNumbers",
     "a REAL CHECK (a IN (-1, +2, - 3.5, 1e-3))",
     {"REAL", "t_a (REAL: -1|2|-3.5|1e-3)"}},
    {"WithQuotesInTexts", "a TEXT CHECK (a IN ('it''s', '', ',)'))", {"TEXT", "t_a (TEXT: it's||,))"}},
    {"WithBlobs", "a BLOB CHECK (a IN (x'00ff', X''))", {"BLOB", "t_a (BLOB: x'00ff'|X'')"}},
    {"WithTruthValues", "a BOOL CHECK (a IN (TRUE, false))", {"BOOL", "t_a (BOOL: TRUE|false)"}},
    {"WithTextsThatReadLikeTruthValues",
     "a TEXT CHECK (a IN ('TRUE', \"FALSE\"))",
     {"TEXT", "t_a (TEXT: TRUE|FALSE)"}},
    {"WithTextsInNameQuotes", "a TEXT CHECK (a IN (\"x\", \"y\"))", {"TEXT", "t_a (TEXT: x|y)"}},
    {"WithAValueTwice", "a TEXT CHECK (a IN ('x', 'y', 'x'))", {"TEXT", "t_a (TEXT: x|y)"}},
    {"OfAColumnWithoutAType", "a CHECK (a IN (1))", {"BLOB", "t_a (BLOB: 1)"}},
    {"OfAnAutoincrementColumn",
     "a INTEGER PRIMARY KEY AUTOINCREMENT CHECK (a IN (1, 2))",
     {"INTEGER AUTOINCREMENT", "t_a (INTEGER AUTOINCREMENT: 1|2)"}},
    {"OfTwoColumnsWithEqualLists",
     "a TEXT CHECK (a IN ('x')), b TEXT CHECK (b IN ('x'))",
     {"TEXT", "t_a (TEXT: x)", "t_b (TEXT: x)"}},
    {"OnlyTheFirstOfAColumn",
     "a INT CHECK (a IN (1, 2)) CHECK (a IN (2, 3))",
     {"INT", "t_a (INT: 1|2)"},
     {"CHECK expressions: main.t.a: a IN (2, 3)"}},
    {"BesideOneWithNull",
     "a INT CHECK (a IN (1, NULL)) CHECK (a IN (1, 2))",
     {"INT", "t_a (INT: 1|2)"},
     {"CHECK expressions: main.t.a: a IN (1, NULL)"}},
    {"BesideOneOfAnotherForm",
     "a INT CHECK (a > 0) CHECK (a IN (1, 2))",
     {"INT", "t_a (INT: 1|2)"},
     {"CHECK expressions: main.t.a: a > 0"}},
};
INSTANTIATE_TEST_SUITE_P(Taken, SqliteCheck, testing::ValuesIn(TAKEN), nameOf);

/// The expression is of the column a of t(a TEXT, b TEXT), unless it stands behind the columns.
CheckCase leftAlone(const char* name, const char* columns, const char* loss) {
    return {name, columns, {"TEXT"}, {std::string("CHECK expressions: main.t") + loss}};
}

const CheckCase LEFT_ALONE[] = {
    leftAlone("NotIn", "a TEXT CHECK (a NOT IN ('x'))", ".a: a NOT IN ('x')"),
    leftAlone("NotOfIn", "a TEXT CHECK (NOT a IN ('x'))", ".a: NOT a IN ('x')"),
    leftAlone("OneValue", "a TEXT CHECK (a = 'x')", ".a: a = 'x'"),
    leftAlone("OrNull", "a TEXT CHECK (a IN ('x') OR a IS NULL)", ".a: a IN ('x') OR a IS NULL"),
    leftAlone("NullOr", "a TEXT CHECK (a IS NULL OR a IN ('x'))", ".a: a IS NULL OR a IN ('x')"),
    leftAlone("And", "a TEXT CHECK (a IN ('x') AND 1)", ".a: a IN ('x') AND 1"),
    leftAlone("ParenthesesThatAreMore", "a TEXT CHECK ((a IN ('x')) OR 1)", ".a: (a IN ('x')) OR 1"),
    leftAlone("AFunctionOfTheColumn", "a TEXT CHECK (upper(a) IN ('X'))", ".a: upper(a) IN ('X')"),
    leftAlone("AColumnInParentheses", "a TEXT CHECK ((a) IN ('x'))", ".a: (a) IN ('x')"),
    leftAlone("AText", "a TEXT CHECK ('a' IN ('x'))", ".a: 'a' IN ('x')"),
    leftAlone("AnotherColumnInTheList", "a TEXT, b TEXT, CHECK (a IN ('x', b))", ": a IN ('x', b)"),
    leftAlone("AnotherColumnInQuotesInTheList", "a TEXT, b TEXT, CHECK (a IN (\"b\"))", ": a IN (\"b\")"),
    leftAlone("AColumnThatIsCalledLikeATruthValue", "a TEXT, True TEXT, CHECK (a IN (FALSE, TRUE))",
              ": a IN (FALSE, TRUE)"),
    leftAlone("ASignedTruthValue", "a TEXT CHECK (a IN (-TRUE))", ".a: a IN (-TRUE)"),
    leftAlone("TheRowNumberInTheList", "a TEXT CHECK (a IN (\"rowid\"))", ".a: a IN (\"rowid\")"),
    leftAlone("TheCheckOfAnotherColumn", "a TEXT, b TEXT CHECK (a IN ('x'))", ".b: a IN ('x')"),
    leftAlone("AnExpressionInTheList", "a TEXT CHECK (a IN (1 + 1))", ".a: a IN (1 + 1)"),
    leftAlone("ACollationInTheList", "a TEXT CHECK (a IN ('x' COLLATE NOCASE))",
              ".a: a IN ('x' COLLATE NOCASE)"),
    leftAlone("ASignedText", "a TEXT CHECK (a IN (-'1'))", ".a: a IN (-'1')"),
    leftAlone("AFunctionInTheList", "a TEXT CHECK (a IN (abs(1)))", ".a: a IN (abs(1))"),
    leftAlone("TheDateInTheList", "a TEXT CHECK (a IN (CURRENT_DATE))", ".a: a IN (CURRENT_DATE)"),
    leftAlone("AnEmptyList", "a TEXT CHECK (a IN ())", ".a: a IN ()"),
    leftAlone("NullAmongTheValues", "a TEXT CHECK (a IN ('x', NULL, 'y'))", ".a: a IN ('x', NULL, 'y')"),
    leftAlone("NothingButNull", "a TEXT CHECK (a IN (NULL))", ".a: a IN (NULL)"),
};
INSTANTIATE_TEST_SUITE_P(LeftAlone, SqliteCheck, testing::ValuesIn(LEFT_ALONE), nameOf);

TEST(SqliteCheckTypes, SelectsAreLeftAlone) {
    // SQLite refuses such a table, but a damaged schema may hold one.
    const support::Reading reading = support::readDatabase(
        "CREATE TABLE t(a TEXT CHECK (a IN ('x'))); PRAGMA writable_schema = ON; UPDATE sqlite_schema SET "
        "sql "
        "= 'CREATE TABLE t(a TEXT CHECK (a IN (SELECT 1)))'");
    EXPECT_THAT(reading.context.lossLines(), ElementsAre("CHECK expressions: main.t.a: a IN (SELECT 1)"));
}

TEST(SqliteCheckTypes, NeverHaveTheNameOfAnotherType) {
    const support::Reading reading = support::readDatabase(
        "CREATE TABLE t_a(b TEXT CHECK (b IN ('x'))); CREATE TABLE t(a_b TEXT CHECK (a_b IN "
        "('y')), c TEXT CHECK (c IN ('z'))); CREATE TABLE u(a T_C)");
    EXPECT_THAT(typesOf(*reading.model),
                ElementsAre("TEXT", "t_a_b (TEXT: x)", "t_a_b_2 (TEXT: y)", "t_c_2 (TEXT: z)", "T_C"));
}

TEST(SqliteCheckTypes, AreLikeTheDeclaredTypeOtherwise) {
    const support::Reading reading =
        support::readDatabase("CREATE TABLE t(a DECIMAL(5,2) DEFAULT 1 CHECK (a IN (1, 2)))");
    const ZORType& declared = *reading.model->getTypes()[0];
    const ZORType& type = *reading.model->getTypes()[1];
    EXPECT_EQ(type.getElementType(), ZOR_DERIVED_TYPE);
    EXPECT_EQ(type.getBaseType(), &declared);
    EXPECT_EQ(type.getDataType(), "DECIMAL");
    EXPECT_EQ(type.getLength(), 5);
    EXPECT_EQ(type.getScale(), 2);
    EXPECT_EQ(type.getInitialValue(), "");  // a default is the column's
    EXPECT_EQ(declared.getTypedObjects().size(), 0U);
}

TEST(SqliteCheckTypes, KeepTheNameOfTheConstraint) {
    const support::Reading reading = support::readDatabase(
        "CREATE TABLE t(a TEXT CONSTRAINT \"known a\" CHECK (a IN ('x')), b TEXT CHECK (b IN ('y')))");
    EXPECT_EQ(reading.model->getTypes()[1]->getComments(), "Constraint known a");
    EXPECT_EQ(reading.model->getTypes()[2]->getComments(), "");
}

TEST(SqliteCheckTypes, HaveTheNumberOfAValueAsItsCodeWhereThereIsRoom) {
    const std::vector<std::pair<std::string, int>> values = {{"7", 7},
                                                             {"-32768", -32768},
                                                             {"32768", 0},
                                                             {"-32769", 0},
                                                             {"1.5", 0},
                                                             {"18446744073709551615", 0},
                                                             {"0x10", 16},
                                                             {"-0x10", -16},
                                                             {"0X7fFF", 32767},
                                                             {"0x8000", 0},
                                                             {"-0x8000", -32768},
                                                             {"0xffffffffffffffff", -1},
                                                             {"-0xffffffffffffffff", 1},
                                                             {"0x8000000000000000", 0},
                                                             {"'9'", 0},
                                                             {"'0x9'", 0},
                                                             {"TRUE", 1},
                                                             {"False", 0}};
    for (const auto& [value, code] : values) {
        const support::Reading reading =
            support::readDatabase("CREATE TABLE t(a CHECK (a IN (" + value + ")))");
        const ZORTypeValue& read = *reading.model->getTypes().last()->getTypeValues()[0];
        std::string name = value;
        std::erase(name, '\'');
        EXPECT_EQ(read.getName().view(), name);
        EXPECT_EQ(read.getCode(), code) << value;
    }
}

TEST(SqliteCheckTypes, AreMadeOfSelectedTablesOnly) {
    readers::ReadRequest request;
    request.selection.tables = {"u"};
    const support::Reading reading = support::readDatabase(
        "CREATE TABLE t(a TEXT CHECK (a IN ('x'))); CREATE TABLE u(a TEXT CHECK (a IN ('y')))", request);
    EXPECT_THAT(typesOf(*reading.model), ElementsAre("TEXT", "u_a (TEXT: y)"));
}

TEST(SqliteCheckTypes, LeaveTheTypesOfViewColumnsAlone) {
    const support::Reading reading = support::readDatabase(
        "CREATE TABLE t(a TEXT CHECK (a IN ('x'))); CREATE VIEW v AS SELECT a FROM t UNION SELECT a FROM t");
    EXPECT_EQ(support::describe(*reading.model),
              "table t\n  a t_a (TEXT: x) null\nview v: SELECT a FROM t UNION SELECT a FROM t\n  a TEXT\n");
}

}  // namespace
