// Why the bridge leaves out objects, in the words that it has for it.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "ModelBuilder.h"
#include "ModelDump.h"
#include "Verdicts.h"

namespace {

using namespace support;
using testing::IsEmpty;

/// A parent and a child table with a relationship, in the second view and the third one.
class InspectionReasons : public testing::Test {
  protected:
    InspectionReasons() {
        parent = model.addTable("Parent", {"id"});
        parentKey = model.addPrimaryKey(parent, "PK", {"id"});
        child = model.addTable("Child", {"id", "note"});
        foreignKey = model.addForeignKey(child, "FK", {"id"}, parentKey);
        association = model.addRelationship("R", foreignKey);
    }
    std::string reason(const ZORObject* object, const std::string& area) const {
        const Verdicts verdicts = inspect(*model.model(), {{"Model", area == "uml" ? "UML" : "ERD and DBM"},
                                                           {"DBM TypeSet", "SQL Server 7.x"}});
        return verdicts.of(object, area);
    }
    static void makePhysical(ZORModelObject* object) { object->setDesignLevel(ZOR_PHYSICAL_ONLY); }
    static void makeLogical(ZORModelObject* object) { object->setDesignLevel(ZOR_LOGICAL_ONLY); }

    ModelBuilder model;
    ZORClass* parent = nullptr;
    ZORClass* child = nullptr;
    ZORCandidateKey* parentKey = nullptr;
    ZORForeignKey* foreignKey = nullptr;
    ZORAssociation* association = nullptr;
};

TEST_F(InspectionReasons, OfARelationshipGoBackToWhatIsBehindThem) {
    makePhysical(child->getAttribute("id"));
    const std::string ofKey = "only one of its attribute \"id\" and the referenced one is logical";
    EXPECT_EQ(reason(foreignKey, "erd"), ofKey);
    EXPECT_EQ(reason(association, "erd"), "its foreign key \"FK\" is left out: " + ofKey);
    EXPECT_EQ(reason(association->getRoles()[1], "erd"), "its foreign key \"FK\" is left out: " + ofKey);
    EXPECT_EQ(reason(association->getRoles()[0], "erd"),
              "its relationship \"R\" is left out: its foreign key \"FK\" is left out: " + ofKey)
        << "of itself it could stand";
}

TEST_F(InspectionReasons, OfColumnsThatCannotBePairedTellTheOtherWayRoundToo) {
    makeLogical(parent->getAttribute("id"));
    EXPECT_EQ(reason(foreignKey, "dbm"),
              "only one of its column \"id\" and the referenced one is in the database");
}

TEST_F(InspectionReasons, OfPartsAreThoseOfTheWhole) {
    makeLogical(child);
    EXPECT_EQ(reason(child, "dbm"), "it is logical only");
    EXPECT_EQ(reason(child->getAttribute("note"), "dbm"),
              "its table \"Child\" is left out: it is logical only");
    EXPECT_EQ(reason(association, "dbm"), "its table \"Child\" is left out: it is logical only");
    EXPECT_EQ(reason(foreignKey, "dbm"), "its table \"Child\" is left out: it is logical only");
}

TEST_F(InspectionReasons, OfAForeignKeyOfALeftOutRelationshipNameIt) {
    makePhysical(association);
    EXPECT_EQ(reason(foreignKey, "erd"), "its relationship \"R\" is left out: it is physical only");
    EXPECT_EQ(reason(model.addForeignKey(child, "alone", {"note"}, parentKey), "dbm"),
              "it belongs to no relationship");
}

TEST_F(InspectionReasons, OfAGeneralizationAreThoseOfItsPairs) {
    ZORGeneralization* without = model.addGeneralization("without", {parent}, {child});
    ZORGeneralization* several = model.addGeneralization("several", {parent, child}, {child});
    ZORGeneralization* with = model.addGeneralization("with", {parent}, {child});
    with->addForeignKey(model.addForeignKey(child, "FK2", {"id"}, parentKey));
    for (const char* area : {"erd", "dbm"}) {
        EXPECT_EQ(reason(without, area), "no foreign key stands behind it");
        EXPECT_EQ(reason(several, area), "it does not have exactly one supertype");
    }
    EXPECT_EQ(reason(with, "erd"), "as erd:Relationship");
    EXPECT_EQ(reason(with, "dbm"), "as dbm:ReferentialConstraint");
    EXPECT_EQ(reason(several, "uml"), "as uml:Generalization");
    makePhysical(child);
    EXPECT_EQ(reason(with, "erd"), "its class \"Child\" is left out: it is physical only");
    EXPECT_EQ(reason(several, "uml"), "its class \"Child\" is left out: it is physical only");
}

TEST_F(InspectionReasons, OfPairsThatAreLeftOutStandWithTheGeneralization) {
    ZORClass* first = model.addTable("First");
    ZORClass* last = model.addTable("Last");
    ZORGeneralization* shared = model.addGeneralization("shared", {parent}, {first, child, last});
    ZORForeignKey* key = model.addForeignKey(child, "FK2", {"id"}, parentKey);
    shared->addForeignKey(key);
    EXPECT_EQ(reason(shared, "erd"), "as erd:Relationship");
    EXPECT_EQ(reason(key, "erd"), "as erd:Key");
    makePhysical(first);
    makePhysical(last);
    EXPECT_EQ(reason(shared, "erd"),
              "as erd:Relationship, but not for \"First\": its class \"First\" is left out: it is physical "
              "only; not for \"Last\": its class \"Last\" is left out: it is physical only");
    EXPECT_EQ(reason(shared, "dbm"), "as dbm:ReferentialConstraint");
    EXPECT_EQ(reason(shared, "uml"),
              "as uml:Generalization, but not for \"First\": its class \"First\" is left out: it is physical "
              "only; not for \"Last\": its class \"Last\" is left out: it is physical only");
    makeLogical(first);
    EXPECT_EQ(reason(shared, "dbm"),
              "as dbm:ReferentialConstraint, but not for \"First\": its table \"First\" is left out: it is "
              "logical only");
}

TEST_F(InspectionReasons, OfAPairOfSeveralSupertypesNameTheSupertypeToo) {
    ZORClass* other = model.addTable("");
    ZORGeneralization* several = model.addGeneralization("several", {parent, other}, {child});
    makePhysical(other);
    EXPECT_EQ(
        reason(several, "uml"),
        "as uml:Generalization, but not for \"Child\" as a subtype of a class without a name: its class "
        "is left out: it is physical only");
}

/// The one that shares the key last decides whether it is written, as the document has it.
TEST_F(InspectionReasons, OfAKeyThatRelationshipsShareTellThatTheLastDecides) {
    ZORAssociation* again = model.addRelationship("Again", foreignKey);
    makePhysical(again);
    const std::string last =
        "the relationship \"Again\", the last of those that share it, is left out: it is physical only";
    EXPECT_EQ(reason(association, "erd"), "as erd:Relationship");
    EXPECT_EQ(reason(foreignKey, "erd"), last);
    makeLogical(again);
    EXPECT_EQ(reason(association, "dbm"), "as dbm:ReferentialConstraint");
    EXPECT_EQ(reason(foreignKey, "dbm"),
              "the relationship \"Again\", the last of those that share it, is left out: it is logical only");
    again->setName("");
    EXPECT_EQ(reason(foreignKey, "dbm"),
              "the relationship, the last of those that share it, is left out: it is logical only");
}

TEST_F(InspectionReasons, OfAnAssociationWithAClassAreThoseOfTheClass) {
    ZORClass* details = model.addTable("Details");
    association->setAssociationClass(details);
    EXPECT_EQ(reason(association, "uml"), "as uml:AssociationClass");
    EXPECT_EQ(reason(association->getRoles()[0], "uml"), "as uml:AssociationEnd");
    makePhysical(details);
    const std::string ofClass = "its association class \"Details\" is left out: it is physical only";
    EXPECT_EQ(reason(association, "uml"), ofClass);
    EXPECT_EQ(reason(association->getRoles()[0], "uml"), "its association \"R\" is left out: " + ofClass);
}

TEST_F(InspectionReasons, OfAClassTypeDependOnItsClass) {
    auto* type = model.addType<ZORClassType>("Parent", "");
    type->setAssociatedClass(parent);
    EXPECT_EQ(reason(type, "uml"), "its class \"Parent\" is written in its place");
    makePhysical(parent);
    EXPECT_EQ(reason(type, "uml"), "its class \"Parent\" is left out: it is physical only");
}

TEST_F(InspectionReasons, OfKindsThatAViewHasNoneOfSaySo) {
    ZORSQLViewEntity* view = model.addView("V");
    auto* procedure = model.addOperation<ZORStoredProcedure>(model.package(), "clean");
    EXPECT_EQ(reason(view, "uml"), "the UML view has no SQL views");
    EXPECT_EQ(reason(view, "erd"), "the ERD view has no SQL views");
    EXPECT_EQ(reason(model.addViewColumn(view, "c"), "erd"),
              "its view \"V\" is left out: the ERD view has no SQL views");
    EXPECT_EQ(reason(procedure, "uml"), "the UML view has no operations of packages");
    EXPECT_EQ(reason(procedure, "erd"), "the ERD view has no operations");
    EXPECT_EQ(reason(procedure, "dbm"), "as dbm:StoredProcedure");
    EXPECT_EQ(reason(model.package(), "erd"), "the ERD view has no packages");
}

TEST_F(InspectionReasons, OfTypesTellWhetherColumnsUseThem) {
    ZORType* unused = model.addType("unused", "SQL_CHAR");
    EXPECT_EQ(reason(unused, "dbm"), "no column in the DBM view has it");
    EXPECT_EQ(reason(unused, "uml"), "nothing refers to it");
    EXPECT_EQ(reason(model.number, "dbm"), "as dbm:ColumnType");
    ZORType* alias = model.addAlias("alias", model.number);
    child->getAttribute("note")->setType(alias);
    EXPECT_EQ(reason(alias, "dbm"), "columns are written with the type that it stands for");
    const Verdicts none = inspect(*model.model(), {{"Model", "DBM"}, {"DBM TypeSet", "None"}});
    EXPECT_EQ(none.of(model.number, "dbm"), "no type set is chosen for the DBM view");
}

TEST_F(InspectionReasons, OfValuesTellOfWhichTypesTheErdViewHasThem) {
    ZORDerivedType* derived = model.addDerived("derived", model.number);
    EXPECT_EQ(reason(model.addValue(derived, "one", 1, "1"), "erd"), "as erd:Value");
    EXPECT_EQ(reason(model.addValue(model.number, "one", 1, "1"), "erd"),
              "only a derived type has its values in the ERD view");
    EXPECT_EQ(reason(derived->getTypeValues()[0], "uml"), "the UML view has no values of data types");
}

TEST_F(InspectionReasons, OfWhatIsInADatabaseCatalogAreThatNobodyLooksThere) {
    ZORDatabaseCatalog* catalog = model.addCatalog("Oracle");
    ZORDesignPackage* package = model.addPackage("inside", catalog);
    const ZORClass* table = model.addTable("T");
    EXPECT_EQ(reason(package, "erd"), "the ERD view has nothing of what is in a database catalog");
    EXPECT_EQ(reason(table, "erd"), "the ERD view has nothing of what is in a database catalog");
}

TEST_F(InspectionReasons, AreToldWithTheNamesThatObjectsHaveInTheModel) {
    model.addPackage("Second");
    ZORClass* again = model.addTable("Parent");
    ZORAttribute* note = model.addColumn(again, "note");
    makePhysical(note);
    EXPECT_EQ(reason(again, "erd"), "as erd:Entity") << "under another name";
    makePhysical(again);
    EXPECT_EQ(reason(note, "erd"), "it is physical only");
    note->setDesignLevel(ZOR_LOGICAL_AND_PHYSICAL);
    EXPECT_EQ(reason(note, "erd"), "its class \"Parent\" is left out: it is physical only");
}

TEST_F(InspectionReasons, InGeneralNameNoObjects) {
    makePhysical(child->getAttribute("id"));
    const Verdicts verdicts = inspect(*model.model(), {{"Model", "ERD"}});
    EXPECT_EQ(verdicts.verdicts.at({association, "erd"}).reasonInGeneral, "its foreign key is left out");
    EXPECT_EQ(verdicts.verdicts.at({foreignKey, "erd"}).reasonInGeneral,
              "only one of its attribute and the referenced one is logical");
}

TEST_F(InspectionReasons, WithoutANameToTellLeaveItOut) {
    association->setName("");
    makePhysical(association);
    EXPECT_EQ(reason(foreignKey, "erd"), "its relationship is left out: it is physical only");
}

TEST_F(InspectionReasons, AreNotToldWhenTheExportFails) {
    class Throwing : public ZORLog {
        void log(const ZORLogEvent& /*event*/) override { throw ZORException("no log"); }
    } log;
    model.addTable("Parent");
    TestOptions options{{"Model", "ERD"}};
    Verdicts verdicts;
    const std::string before = dumpModel(*model.model());
    auto& inspection =
        dynamic_cast<ZORBridgeInspectionInterface&>(*getZORMicrosoftSqlServerMdsMdcExportInterface());
    EXPECT_THROW(inspection.inspect(*model.model(), options, log, verdicts), ZORException);
    EXPECT_THAT(verdicts.verdicts, IsEmpty());
    EXPECT_EQ(dumpModel(*model.model()), before);
}

}  // namespace
