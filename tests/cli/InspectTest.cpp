// What "inspect" reports: what was read, what is not carried over, and what becomes of each object in each
// view.
#include <simdjson.h>

#include "InspectFixture.h"

namespace cli_test {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

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
    3: the UML view has no keys
  foreign keys                   0           2
    2: the UML view has no keys
  relationships                  2           0
  views                          0           1
    1: the UML view has no SQL views
  view columns                   0           1
    1: its view is left out
  triggers                       0           1
    1: procedures and triggers belong to the database
  data types                     5           0
  relationship ends              4           0

In the ERD view:           written    left out
  schemas                        0           1
    1: the ERD view has no packages
  tables                         3           0
  columns                        7           0
  candidate keys                 3           0
  foreign keys                   2           0
  relationships                  2           0
  views                          0           1
    1: the ERD view has no SQL views
  view columns                   0           1
    1: its view is left out
  triggers                       0           1
    1: the ERD view has no operations
  data types                     5           0
  relationship ends              4           0

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
  relationship ends              4           0
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
    1: the ERD view has no packages
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
  association ends               0           2
    1: its foreign key is left out
    1: its relationship is left out
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

std::uint64_t verdictsOf(const simdjson::dom::element& view, std::string_view kind, std::string_view key) {
    return std::uint64_t(view["kinds"][kind][key]);
}

TEST_F(Inspect, CountsDetailsInTheViewsOnly) {
    const std::string text = report({EXAMPLES_FOLDER "/everything.model.json", "--format", "json"});
    simdjson::dom::parser parser;
    const simdjson::dom::element json = parser.parse(text);
    struct {
        const char* kind;
        std::uint64_t inAll;
        std::vector<std::uint64_t> written;  ///< to the UML, ERD and DBM view
    } const details[] = {{"typeValues", 3, {0, 3, 0}},      {"indexColumns", 3, {0, 0, 3}},
                         {"associationEnds", 8, {8, 2, 2}}, {"qualifiers", 1, {1, 0, 0}},
                         {"arguments", 9, {8, 0, 1}},       {"notes", 3, {2, 0, 0}}};
    for (const auto& detail : details) {
        EXPECT_EQ(json["counts"][detail.kind].error(), simdjson::NO_SUCH_FIELD) << detail.kind;
        for (std::size_t i = 0; i < 3; ++i) {
            const simdjson::dom::element view = json["views"].at(i);
            const std::uint64_t written = verdictsOf(view, detail.kind, "written");
            EXPECT_EQ(written, detail.written[i]) << detail.kind << " in view " << i;
            EXPECT_EQ(written + verdictsOf(view, detail.kind, "leftOut"), detail.inAll) << detail.kind;
        }
    }
}

TEST_F(Inspect, TellsWhyDetailsAreLeftOut) {
    const std::string text = report({EXAMPLES_FOLDER "/everything.model.json", "--view", "dbm"});
    EXPECT_THAT(text, AllOf(HasSubstr("\n  notes                          0           3\n"
                                      "    3: the DBM view has no notes\n"),
                            HasSubstr("\n  values of data types           0           3\n"
                                      "    3: the DBM view has no values of data types\n"),
                            HasSubstr("\n  index columns                  3           0\n")));
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

/// With a bridge that does not offer to tell what it would write.
class InspectWithASilentBridge : public Inspect {
  protected:
    Result inspect(std::vector<std::string> arguments) const {
        arguments.insert(arguments.begin(), {"inspect", "shop.sql"});
        return run(scratch, Setting{.arguments = arguments,
                                    .environment = {{"ZOR_BRIDGE_PATH", FAULTY_BRIDGE_FOLDER}}});
    }
    static constexpr const char* SILENCE =
        "the bridge \"MicrosoftSqlServerMdsMdcExport\" does not tell what it would write\n";
};

TEST_F(InspectWithASilentBridge, ReportsWhatIsRead) {
    const Result result = inspect({});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.err, std::string("oimbridge: note: shop.sql: ") + SILENCE);
    EXPECT_THAT(result.out, AllOf(HasSubstr("\n  tables                         3\n"),
                                  HasSubstr("\n    main.customer.name: NOCASE\n"), Not(HasSubstr("view:"))));
    const std::string whole = report({"shop.sql"});
    EXPECT_EQ(result.out, whole.substr(0, whole.find("\nIn the UML view:")));
}

TEST_F(InspectWithASilentBridge, ReportsInJsonWithoutViews) {
    const Result result = inspect({"--format", "json"});
    EXPECT_EQ(result.exitCode, 0);
    simdjson::dom::parser parser;
    const simdjson::dom::element json = parser.parse(result.out);
    EXPECT_EQ(std::uint64_t(json["counts"]["classes"]), 3U);
    EXPECT_EQ(json["views"].get_array().size(), 0U);
}

TEST_F(InspectWithASilentBridge, RefusesToTellWhy) {
    const Result result = inspect({"--why", "customer"});
    EXPECT_EQ(result.exitCode, 5);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err, std::string("oimbridge: error: --why: ") + SILENCE +
                              "hint: without --why, inspect reports what is read\n");
}

}  // namespace
}  // namespace cli_test
