// What "inspect --why" answers: what becomes of the objects of a name in each view, and why something of the
// source is no object.
#include "InspectFixture.h"

namespace cli_test {
namespace {

using testing::HasSubstr;

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
     "The data type int is left out of the DBM view because no type set is chosen for the DBM view.\n"},
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
  ],
  "unread": []
}
)");
}

/// A generalization of which one pair is in the database only.
const std::string PAIRS = R"({"format": "oim-source-model", "version": 1, "model": {"name": "m",
  "children": [{"kind": "package", "name": "p", "elements": [
    {"kind": "class", "id": "a", "name": "A"}, {"kind": "class", "id": "b", "name": "B"},
    {"kind": "class", "id": "c", "name": "C", "designLevel": "physical"},
    {"kind": "generalization", "name": "g", "parents": ["a"], "children": ["c", "b"]}]}]}})";

TEST_F(Inspect, TellsWhatOfAnObjectIsNotWritten) {
    scratch.write("pairs.model.json", PAIRS);
    EXPECT_EQ(
        report({"pairs.model.json", "--why", "g", "--view", "uml"}),
        "The generalization p.g is written to the UML view as uml:Generalization, but not for \"C\": its "
        "class \"C\" is left out: it is physical only.\n");
    EXPECT_THAT(report({"pairs.model.json", "--why", "g", "--view", "uml", "--format", "json"}), HasSubstr(R"(
          "element": "uml:Generalization",
          "exceptions": [
            "not for \"C\": its class \"C\" is left out: it is physical only"
          ]
)"));
}

TEST_F(Inspect, CallsDatabaseObjectsByTheirOwnWords) {
    EXPECT_EQ(report({"shop.sql", "--why", "expensive", "--view", "uml"}),
              "The view main.expensive is left out of the UML view because the UML view has no SQL views.\n");
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

/// Asks after what the reader or the selection keeps out of the model.
class InspectUnread : public Inspect {
  protected:
    InspectUnread() {
        scratch.write("more.sql", R"(
            CREATE TABLE p(id INTEGER PRIMARY KEY, n TEXT COLLATE NOCASE, log TEXT);
            CREATE TABLE child(id INTEGER PRIMARY KEY, q INT CONSTRAINT fk_missing REFERENCES missing(x),
                s TEXT CONSTRAINT ck_s CHECK (s > 'a'), CONSTRAINT fk_n FOREIGN KEY (id) REFERENCES p(id));
            CREATE VIEW names AS SELECT n FROM p;
            CREATE TRIGGER log AFTER INSERT ON child BEGIN SELECT 1; END;)");
    }
    Result ask(std::vector<std::string> arguments) const {
        arguments.insert(arguments.begin(), {"inspect", "more.sql", "--view", "erd", "--why"});
        return run(scratch, arguments);
    }
};

class InspectUnreadThing : public InspectUnread, public testing::WithParamInterface<WhyCase> {};

TEST_P(InspectUnreadThing, IsToldInASentence) {
    const Result result = ask(GetParam().arguments);
    EXPECT_EQ(result.exitCode, 0) << result.err;
    EXPECT_EQ(result.out, GetParam().text);
}

const WhyCase UNREAD[] = {
    {"AConstraintThatTheReaderWarnsOf",
     {"fk_missing"},
     "main.child.fk_missing was not read: the reference of q to missing is left out: there is no such "
     "table.\n"},
    {"AConstraintThatTheModelCannotHold",
     {"ck_s"},
     "main.child.ck_s was not carried over: CHECK expressions: s > 'a'.\n"},
    {"AConstraintByItsPath",
     {"main.child.ck_s"},
     "main.child.ck_s was not carried over: CHECK expressions: s > 'a'.\n"},
    {"InOtherLetterCaseIfThereIsNoOther",
     {"CK_S"},
     "main.child.ck_s was not carried over: CHECK expressions: s > 'a'.\n"},
    {"ATableThatIsNotAmongThoseAskedFor",
     {"child", "--table", "p"},
     "The table main.child was not selected: --table leaves it out.\n"},
    {"ATableThatIsExcluded",
     {"main.child", "--exclude-table", "ch*"},
     "The table main.child was not selected: --exclude-table leaves it out.\n"},
    {"AColumnOfSuchATable",
     {"child.s", "--table", "p"},
     "The table main.child was not selected: --table leaves it out.\n"},
    {"ARelationshipToSuchATable",
     {"fk_n", "--table", "child"},
     "main.child.fk_n was not carried over: relationships to tables left out: p.\n"},
    {"AView", {"names", "--no-views"}, "The view main.names was not selected: --no-views leaves it out.\n"},
    {"AViewThatIsExcluded",
     {"names", "--no-views", "--exclude-table", "names"},
     "The view main.names was not selected: --exclude-table leaves it out.\n"},
    {"ATrigger",
     {"child.log", "--no-triggers"},
     "The trigger main.child.log was not selected: --no-triggers leaves it out.\n"},
    {"ATriggerOfATableThatIsLeftOut",
     {"child.log", "--exclude-table", "child"},
     "The table main.child was not selected: --exclude-table leaves it out.\n"
     "The trigger main.child.log was not selected: --exclude-table leaves it out.\n"},
    {"ATableOfASchema",
     {"child", "--exclude-schema", "main", "--allow-empty"},
     "The table main.child was not selected: --exclude-schema leaves it out.\n"},
    {"WhatIsNotSelectedBesideWhatIsReadOfTheName",
     {"log", "--no-triggers"},
     "The column main.p.log is written to the ERD view as erd:Attribute.\n"
     "The trigger main.child.log was not selected: --no-triggers leaves it out.\n"},
    {"NoLossOfWhatIsRead", {"p.n"}, "The column main.p.n is written to the ERD view as erd:Attribute.\n"},
};
INSTANTIATE_TEST_SUITE_P(Asked, InspectUnreadThing, testing::ValuesIn(UNREAD),
                         [](const testing::TestParamInfo<WhyCase>& why) { return why.param.name; });

TEST_F(InspectUnread, IsNoPatternThatFitsNothing) {
    const Result result = ask({"chidl", "--exclude-table", "chidl"});
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_THAT(result.err, HasSubstr("nothing that was read is called \"chidl\". Did you mean \"child\"?"));
}

TEST_F(InspectUnread, IsToldInJson) {
    const Result result = ask({"child", "--table", "p", "--format", "json"});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.out, R"({
  "source": "more.sql",
  "name": "child",
  "objects": [],
  "unread": [
    {
      "kind": "table",
      "path": "main.child",
      "outcome": "not selected",
      "reason": "--table leaves it out"
    }
  ]
}
)");
}

}  // namespace
}  // namespace cli_test
