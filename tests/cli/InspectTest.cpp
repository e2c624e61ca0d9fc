// What "inspect" reports: what was read, what is not carried over, and what becomes of each object in each
// view.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <simdjson.h>

#include "ProgramRunner.h"
#include "Sources.h"

namespace cli_test {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

/// Two tables and a third one that is in the database only, with relationships, generalizations and a
/// diagram.
const std::string LEVELS = R"({"format": "oim-source-model", "version": 1, "model": {"name": "Levels",
  "types": [{"id": "int", "kind": "concrete", "name": "int", "dataType": "SQL_INTEGER"}],
  "children": [{"kind": "package", "name": "main", "elements": [
    {"kind": "class", "id": "a", "name": "Author", "attributes": [{"id": "a.id", "name": "id", "type": "int"}],
     "keys": [{"kind": "candidate", "id": "a.pk", "name": "author_pk", "primary": true, "unique": true,
               "attributes": ["a.id"]}]},
    {"kind": "class", "id": "b", "name": "Book", "physicalName": "T_BOOK",
     "attributes": [{"id": "b.a", "name": "author", "type": "int"},
                    {"name": "shelf", "type": "int", "designLevel": "physical"}],
     "keys": [{"kind": "foreign", "id": "b.fk", "name": "book_fk", "attributes": ["b.a"],
               "references": "a.pk"}]},
    {"kind": "class", "id": "l", "name": "Log", "designLevel": "physical",
     "attributes": [{"name": "author", "type": "int"}]},
    {"kind": "association", "name": "writes", "roles": [{"class": "a"}, {"class": "b", "foreignKey": "b.fk"}]},
    {"kind": "generalization", "name": "is a", "parents": ["a"], "children": ["b"]}]}]}})";

class Inspect : public testing::Test {
  protected:
    Inspect() {
        scratch.write("shop.sql", SHOP_SQL);
        scratch.write("levels.model.json", LEVELS);
    }
    std::string report(std::vector<std::string> arguments) const {
        arguments.insert(arguments.begin(), "inspect");
        const Result result = run(scratch, arguments);
        EXPECT_EQ(result.exitCode, 0);
        EXPECT_EQ(result.err, "");
        return result.out;
    }
    Scratch scratch;
};

TEST_F(Inspect, ReportsWhatIsReadAndWhatIsWrittenOfIt) {
    EXPECT_EQ(
        report({"shop.sql"}),
        R"(shop.sql: SQL script in SQLite's dialect "shop", database type SQLite; exported as --view dbm unless told otherwise

Read:
  schemas                        1
  tables                         3
  columns                        7
  candidate keys                 3
  foreign keys                   2
  relationships                  2
  views                          1
  view columns                   1
  triggers                       1
  data types                     5

By schema:
        tables  columns  candidate keys  foreign keys  relationships  views  view columns  triggers
  main       3        7               3             2              2      1             1         1

Not carried over:
  collations (1)
    main.customer.name: NOCASE

In the UML view:           written    left out
  schemas                        1           0
  tables                         3           0
  columns                        5           2
    2: the relationship of the foreign key stands for it
  candidate keys                 0           3
    3: the view has no keys
  foreign keys                   0           2
    2: the view has no keys
  relationships                  2           0
  views                          0           1
    1: the view has no SQL views
  view columns                   0           1
    1: its view is left out
  triggers                       0           1
    1: procedures and triggers belong to the database
  data types                     5           0

In the ERD view:           written    left out
  schemas                        0           1
    1: the view has no packages
  tables                         3           0
  columns                        7           0
  candidate keys                 3           0
  foreign keys                   2           0
  relationships                  2           0
  views                          0           1
    1: the view has no SQL views
  view columns                   0           1
    1: its view is left out
  triggers                       0           1
    1: the view has no operations
  data types                     5           0

In the DBM view:           written    left out
  schemas                        1           0
  tables                         3           0
  columns                        7           0
  candidate keys                 3           0
  foreign keys                   2           0
  relationships                  2           0
  views                          1           0
  view columns                   1           0
  triggers                       1           0
  data types                     5           0
)");
}

TEST_F(Inspect, ReportsOfNothingWhereTheSelectionLeavesNothing) {
    EXPECT_EQ(
        report({"shop.sql", "--exclude-schema", "main", "--view", "dbm", "--allow-empty"}),
        R"(shop.sql: SQL script in SQLite's dialect "shop", database type SQLite; exported as --view dbm unless told otherwise

Read:
  nothing

In the DBM view:           written    left out
  nothing
)");
}

TEST_F(Inspect, DoesNotBlameTheModelForWhatTheSelectionLeavesOut) {
    EXPECT_THAT(report({"shop.sql", "--table", "sale"}), HasSubstr(R"(
Not carried over:
  relationships to tables left out (2)
    main.sale.sale_customer_id_fk: customer
    main.sale.sale_product_code_fk: product
)"));
}

TEST_F(Inspect, ReportsOfOneView) {
    EXPECT_EQ(report({"levels.model.json", "--view", "erd"}),
              R"(levels.model.json: Model document "Levels"; exported as --view uml unless told otherwise

Read:
  packages                       1
  classes                        3
  attributes                     4
  candidate keys                 1
  foreign keys                   1
  associations                   1
  generalizations                1
  data types                     1

By package:
        classes  attributes  candidate keys  foreign keys  associations  generalizations
  main        3           4               1             1             1                1

In the ERD view:           written    left out
  packages                       0           1
    1: the view has no packages
  classes                        2           1
    1: it is physical only
  attributes                     2           2
    1: it is physical only
    1: its class is left out
  candidate keys                 1           0
  foreign keys                   0           1
    1: its attribute has no counterpart in the referenced entity
  associations                   0           1
    1: its foreign key is left out
  generalizations                0           1
    1: no foreign key stands behind it
  data types                     1           0
)");
}

TEST_F(Inspect, ReportsOfBothViewsOfACombinedDocument) {
    const std::string text = report({"levels.model.json", "--view", "erd+dbm"});
    EXPECT_THAT(text, AllOf(HasSubstr("\nIn the ERD view: "), HasSubstr("\nIn the DBM view: "),
                            Not(HasSubstr("\nIn the UML view: "))));
}

TEST_F(Inspect, ReportsInJson) {
    const std::string text = report({"shop.sql", "--format", "json"});
    simdjson::dom::parser parser;
    const simdjson::dom::element json = parser.parse(text);
    std::vector<std::string> keys;
    for (const auto& [key, value] : json.get_object()) {
        keys.emplace_back(key);
    }
    EXPECT_THAT(keys, ElementsAre("source", "reader", "naturalView", "model", "databaseType", "counts",
                                  "packages", "losses", "views"));
    EXPECT_EQ(std::string_view(json["reader"]), "sql");
    EXPECT_EQ(std::string_view(json["naturalView"]), "dbm");
    EXPECT_EQ(std::string_view(json["databaseType"]), "SQLite");
    EXPECT_EQ(std::uint64_t(json["counts"]["attributes"]), 7U);
    EXPECT_EQ(std::uint64_t(json["counts"]["foreignKeys"]), 2U);
    EXPECT_EQ(std::string_view(json["packages"].at(0)["path"]), "main");
    EXPECT_EQ(std::uint64_t(json["packages"].at(0)["counts"]["classes"]), 3U);
    EXPECT_EQ(std::string_view(json["losses"].at(0)["kind"]), "collations");
    EXPECT_EQ(std::string_view(json["losses"].at(0)["where"]), "main.customer.name");
    EXPECT_EQ(std::string_view(json["losses"].at(0)["detail"]), "NOCASE");
    ASSERT_EQ(json["views"].get_array().size(), 3U);
    const simdjson::dom::element uml = json["views"].at(0);
    EXPECT_EQ(std::string_view(uml["view"]), "uml");
    EXPECT_EQ(std::uint64_t(uml["kinds"]["attributes"]["written"]), 5U);
    EXPECT_EQ(std::uint64_t(uml["kinds"]["attributes"]["leftOut"]), 2U);
    EXPECT_EQ(std::string_view(uml["kinds"]["attributes"]["reasons"].at(0)["reason"]),
              "the relationship of the foreign key stands for it");
    EXPECT_EQ(std::uint64_t(uml["kinds"]["attributes"]["reasons"].at(0)["count"]), 2U);
    EXPECT_EQ(std::string_view(json["views"].at(1)["view"]), "erd");
    EXPECT_EQ(std::string_view(json["views"].at(2)["view"]), "dbm");
    EXPECT_EQ(std::uint64_t(json["views"].at(2)["kinds"]["classes"]["written"]), 3U);
}

TEST_F(Inspect, CountsInEachViewWhatWasRead) {
    for (const char* example : {"everything.model.json", "shop.sql", "library.sql", "timetable.sql"}) {
        const Result result =
            run(scratch, {"inspect", std::string(EXAMPLES_FOLDER "/") + example, "--format", "json", "-q"});
        simdjson::dom::parser parser;
        const simdjson::dom::element json = parser.parse(result.out);
        EXPECT_EQ(json["views"].get_array().size(), 3U) << example;
        for (const simdjson::dom::element view : json["views"].get_array()) {
            for (const auto& [kind, read] : json["counts"].get_object()) {
                const std::uint64_t count = read;
                simdjson::dom::element verdicts;
                if (view["kinds"][kind].get(verdicts) != simdjson::SUCCESS) {
                    EXPECT_EQ(count, 0U) << example << " " << kind;
                    continue;
                }
                std::uint64_t reasons = 0;
                for (const simdjson::dom::element reason : verdicts["reasons"].get_array()) {
                    reasons += std::uint64_t(reason["count"]);
                }
                EXPECT_EQ(std::uint64_t(verdicts["leftOut"]), reasons) << example << " " << kind;
                EXPECT_EQ(std::uint64_t(verdicts["written"]) + reasons, count) << example << " " << kind;
            }
        }
    }
}

struct WhyCase {
    const char* name;
    std::vector<std::string> arguments;  ///< behind "inspect levels.model.json --why"
    const char* text;
};

class InspectWhy : public Inspect, public testing::WithParamInterface<WhyCase> {};

TEST_P(InspectWhy, TellsInASentence) {
    std::vector<std::string> arguments = GetParam().arguments;
    arguments.insert(arguments.begin(), {"levels.model.json", "--why"});
    EXPECT_EQ(report(arguments), GetParam().text);
}

const WhyCase WHY[] = {
    {"AnObjectThatIsWritten",
     {"Author", "--view", "erd"},
     "The class main.Author is written to the ERD view as erd:Entity.\n"},
    {"AnObjectThatIsLeftOut",
     {"Log", "--view", "erd"},
     "The class main.Log is left out of the ERD view because it is physical only.\n"},
    {"EveryViewUnlessOneIsGiven",
     {"Log"},
     "The class main.Log is left out of the UML view because it is physical only.\n"
     "The class main.Log is left out of the ERD view because it is physical only.\n"
     "The class main.Log is written to the DBM view as dbm:LogicalTable.\n"},
    {"EveryObjectOfTheName",
     {"author", "--view", "erd"},
     "The attribute main.Book.author is written to the ERD view as erd:Attribute.\n"
     "The attribute main.Log.author is left out of the ERD view because its class \"Log\" is left out: it is "
     "physical only.\n"},
    {"AnObjectByItsPath",
     {"Book.author", "--view", "uml"},
     "The attribute main.Book.author is left out of the UML view because the relationship of the foreign key "
     "\"book_fk\" stands for it.\n"},
    {"AnObjectByItsWholePath",
     {"main.Log.author", "--view", "dbm"},
     "The attribute main.Log.author is written to the DBM view as dbm:LogicalColumn.\n"},
    {"AnObjectByItsNameInTheDatabase",
     {"T_BOOK.shelf", "--view", "erd"},
     "The attribute main.Book.shelf is left out of the ERD view because it is physical only.\n"},
    {"AnObjectInOtherLetterCaseIfThereIsNoOther",
     {"BOOK.SHELF", "--view", "dbm"},
     "The attribute main.Book.shelf is written to the DBM view as dbm:LogicalColumn.\n"},
    {"AReasonBehindAReason",
     {"writes", "--view", "erd"},
     "The association main.writes is left out of the ERD view because its foreign key \"book_fk\" is left "
     "out: "
     "its attribute \"author\" has no counterpart in the referenced entity.\n"},
    {"AGeneralizationWithoutAKey",
     {"is a", "--view", "dbm"},
     "The generalization main.is a is left out of the DBM view because no foreign key stands behind it.\n"},
    {"ADataType",
     {"int", "--view", "dbm", "--set", "DBM TypeSet=None"},
     "The data type int is left out of the DBM view because no type set is chosen for the view.\n"},
    {"TheModel", {"Levels", "--view", "erd"}, "The model Levels is written to the ERD view as erd:Model.\n"},
};
INSTANTIATE_TEST_SUITE_P(Asked, InspectWhy, testing::ValuesIn(WHY),
                         [](const testing::TestParamInfo<WhyCase>& why) { return why.param.name; });

TEST_F(Inspect, TellsWhyInJson) {
    EXPECT_EQ(report({"levels.model.json", "--why", "Log", "--view", "erd+dbm", "--format", "json"}), R"({
  "source": "levels.model.json",
  "name": "Log",
  "objects": [
    {
      "kind": "class",
      "path": "main.Log",
      "views": [
        {
          "view": "erd",
          "written": false,
          "reason": "it is physical only"
        },
        {
          "view": "dbm",
          "written": true,
          "element": "dbm:LogicalTable"
        }
      ]
    }
  ]
}
)");
}

TEST_F(Inspect, CallsDatabaseObjectsByTheirOwnWords) {
    EXPECT_EQ(report({"shop.sql", "--why", "expensive", "--view", "uml"}),
              "The view main.expensive is left out of the UML view because the view has no SQL views.\n");
    EXPECT_EQ(report({"shop.sql", "--why", "customer.name", "--view", "dbm"}),
              "The column main.customer.name is written to the DBM view as dbm:LogicalColumn.\n");
}

TEST_F(Inspect, NamesTheNearestOfANameThatNothingHas) {
    const Result near = run(scratch, {"inspect", "shop.sql", "--why", "custmer"});
    EXPECT_EQ(near.exitCode, 2);
    EXPECT_EQ(near.out, "");
    EXPECT_EQ(near.err,
              "oimbridge: error: --why: nothing that was read is called \"custmer\". Did you mean "
              "\"customer\"?\n");
    const Result far = run(scratch, {"inspect", "shop.sql", "--why", "main.nothing_like_it"});
    EXPECT_EQ(far.exitCode, 2);
    EXPECT_EQ(far.err,
              "oimbridge: error: --why: nothing that was read is called \"main.nothing_like_it\".\n");
}

TEST_F(Inspect, WarnsOfWhatAnExportOfTheViewWouldWarnOf) {
    scratch.write("twice.model.json", R"({"format": "oim-source-model", "version": 1, "model": {"name": "m",
        "children": [{"kind": "package", "name": "a", "elements": [{"kind": "class", "name": "T"}]},
                     {"kind": "package", "name": "b", "elements": [{"kind": "class", "name": "T"}]}]}})");
    const Result asked = run(scratch, {"inspect", "twice.model.json", "--view", "erd", "--strict"});
    EXPECT_EQ(asked.exitCode, 1);
    EXPECT_THAT(asked.err, HasSubstr("Renaming the Entity 'T' to 'T/1' to avoid a name clash"));
    EXPECT_EQ(report({"twice.model.json", "--strict"}).find("Renaming"), std::string::npos);
    EXPECT_EQ(report({"twice.model.json", "--why", "T", "--view", "erd"}),
              "The class a.T is written to the ERD view as erd:Entity.\n"
              "The class b.T is written to the ERD view as erd:Entity.\n");
}

TEST_F(Inspect, LeavesTheUmlViewAsideWhereThereIsNone) {
    scratch.write("typed.model.json", R"({"format": "oim-source-model", "version": 1, "model": {"name": "m",
        "types": [{"id": "t", "kind": "concrete", "name": "int", "dataType": "INT", "stereotype": "s"}],
        "children": [{"kind": "package", "name": "a", "elements": [{"kind": "class", "name": "T",
            "attributes": [{"name": "x", "type": "t"}]}]}]}})");
    const Result result = run(scratch, {"inspect", "typed.model.json", "--why", "T.x"});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_THAT(result.err,
                testing::StartsWith("oimbridge: warning: typed.model.json: it has no UML view: "));
    EXPECT_EQ(result.out,
              "The attribute a.T.x is written to the ERD view as erd:Attribute.\n"
              "The attribute a.T.x is written to the DBM view as dbm:LogicalColumn.\n");
    EXPECT_EQ(run(scratch, {"inspect", "typed.model.json", "--view", "uml"}).exitCode, 4);
}

TEST_F(Inspect, NeedsTheBridge) {
    const Result result = run(scratch, Setting{.arguments = {"inspect", "shop.sql"},
                                               .environment = {{"ZOR_BRIDGE_PATH", scratch / "nowhere"}}});
    EXPECT_EQ(result.exitCode, 5);
    EXPECT_EQ(result.out, "");
}

}  // namespace
}  // namespace cli_test
