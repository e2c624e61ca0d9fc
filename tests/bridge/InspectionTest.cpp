// What the bridge tells of an export while somebody looks on: one verdict on every object of the model for
// each subject area, in agreement with the document.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <set>

#include "EverythingModel.h"
#include "ModelDump.h"
#include "TestBridge.h"
#include "model_document/ModelDocumentReader.h"

namespace {

using namespace support;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

struct Verdict {
    std::string tag;  ///< empty: left out
    std::string reason;
    std::string reasonInGeneral;
    std::string exceptions = {};  ///< with ", but" in front
};

/// Keeps what it is told.
class Verdicts : public ZORExportObserver {
  public:
    using Key = std::pair<const ZORObject*, std::string>;

    void written(const ZORObject* object, const char* area, const ZORString& tag) override {
        add(object, area, {std::string(tag.view()), {}, {}});
    }
    void leftOut(const ZORObject* object, const char* area, const ZORString& reason,
                 const ZORString& reasonInGeneral) override {
        add(object, area, {{}, std::string(reason.view()), std::string(reasonInGeneral.view())});
    }

    void writtenExcept(const ZORObject* object, const char* area, const ZORString& exception) override {
        Verdict& verdict = verdicts.at({object, area});
        verdict.exceptions += (verdict.exceptions.empty() ? ", but " : "; ") + std::string(exception.view());
    }

    /// "as TAG", or the reason; "nothing" for an object that was not told of.
    std::string of(const ZORObject* object, const std::string& area) const {
        const auto found = verdicts.find({object, area});
        if (found == verdicts.end()) {
            return "nothing";
        }
        const Verdict& verdict = found->second;
        return verdict.tag.empty() ? verdict.reason : "as " + verdict.tag + verdict.exceptions;
    }

    std::map<Key, Verdict> verdicts;
    std::size_t repeated = 0;

  private:
    void add(const ZORObject* object, const char* area, const Verdict& verdict) {
        repeated += verdicts.emplace(Key{object, area}, verdict).second ? 0U : 1U;
    }
};

Verdicts inspect(ZORModel& model, std::initializer_list<std::pair<const char*, const char*>> values) {
    TestOptions options(values);
    CollectingLog log;
    Verdicts verdicts;
    auto& inspection =
        dynamic_cast<ZORBridgeInspectionInterface&>(*getZORMicrosoftSqlServerMdsMdcExportInterface());
    inspection.inspect(model, options, log, verdicts);
    return verdicts;
}

/// All objects that a walk over the model comes to.
class Objects : public ZORTraversalOperation {
  public:
    explicit Objects(ZORModel& model) {
        void* context = nullptr;
        model._depthTraversal(*this, context);
    }
    bool pre_process(ZORObject* object, void*& /*context*/) override {
        all.push_back(object);
        return true;
    }
    std::vector<ZORObject*> all;
};

std::unique_ptr<ZORModel> readExample() {
    class Context : public readers::ReadContext {
        void warn(const std::string& /*where*/, const std::string& /*text*/) override {}
        void progress(std::uint64_t /*objects*/) override {}
    } context;
    return readers::modelDocumentReader().read(
        readers::Source::fromFile(EXAMPLES_FOLDER "/everything.model.json"), {}, context);
}

/// Everything, with some objects of every kind logical only and some physical only.
std::unique_ptr<ZORModel> makeMixedLevels() {
    constexpr ZORDesignLevel LEVELS[] = {ZOR_LOGICAL_AND_PHYSICAL, ZOR_LOGICAL_ONLY, ZOR_LOGICAL_AND_PHYSICAL,
                                         ZOR_PHYSICAL_ONLY, ZOR_LOGICAL_AND_PHYSICAL};
    ModelBuilder builder = makeEverything();
    std::size_t turn = 0;
    for (ZORObject* object : Objects(*builder.model()).all) {
        if (object->isInstanceOf(ZOR_MODEL_OBJECT) && !object->isInstanceOf(ZOR_PACKAGE)) {
            static_cast<ZORModelObject*>(object)->setDesignLevel(LEVELS[turn++ % std::size(LEVELS)]);
        }
    }
    return builder.take();
}

struct Example {
    const char* name;
    std::unique_ptr<ZORModel> (*make)();
};

void PrintTo(const Example& example, std::ostream* out) {
    *out << example.name;
}

const Example EXAMPLES[] = {
    {"Document", readExample},
    {"Builder", [] { return makeEverything().take(); }},
    {"MixedLevels", makeMixedLevels},
};

class Inspection : public testing::TestWithParam<std::tuple<Example, std::string>> {
  protected:
    Inspection() : model(std::get<0>(GetParam()).make()) {}
    const char* view() const { return std::get<1>(GetParam()).c_str(); }
    std::vector<std::string> areas() const {
        const std::string name = view();
        if (name == "ERD and DBM") {
            return {"erd", "dbm"};
        }
        return {name == "UML" ? "uml" : name == "ERD" ? "erd" : "dbm"};
    }
    Verdicts inspectView() const {
        return inspect(
            *model, {{"Model", view()}, {"ERD TypeSet", "XML Datatypes"}, {"DBM TypeSet", "SQL Server 7.x"}});
    }
    std::string exportView() const {
        return exportModel(
            *model, {{"Model", view()}, {"ERD TypeSet", "XML Datatypes"}, {"DBM TypeSet", "SQL Server 7.x"}});
    }

    std::unique_ptr<ZORModel> model;
};

TEST_P(Inspection, ComesToOneVerdictOnEveryObjectForEachArea) {
    const Verdicts verdicts = inspectView();
    const Objects objects(*model);
    EXPECT_EQ(verdicts.repeated, 0U);
    EXPECT_EQ(verdicts.verdicts.size(), objects.all.size() * areas().size());
    for (const ZORObject* object : objects.all) {
        for (const std::string& area : areas()) {
            const std::string verdict = verdicts.of(object, area);
            EXPECT_NE(verdict, "nothing") << object->getElementType() << " " << object->getName().view();
            EXPECT_THAT(verdict, Not(StartsWith("it has no place in the ")))
                << area << ": " << object->getElementType() << " " << object->getName().view();
            EXPECT_NE(verdict, "");
        }
    }
}

TEST_P(Inspection, LeavesTheModelAsItWas) {
    const std::string before = dumpModel(*model);
    inspectView();
    EXPECT_EQ(dumpModel(*model), before);
}

/// Elements that stand for more than one object each, or objects that have more than one element.
const std::set<std::string> SHARED_TAGS = {"erd:Domain", "erd:Value", "dbm:ColumnType"};

TEST_P(Inspection, AgreesWithTheDocument) {
    const Verdicts verdicts = inspectView();
    const std::string document = exportView();
    std::map<std::string, std::size_t> expected;
    std::set<std::string> ofGeneralizations;
    for (const auto& [key, verdict] : verdicts.verdicts) {
        const ZORObject* object = key.first;
        const bool isOfAssociationClass =
            verdict.tag == "uml:AssociationClass" && object->getElementType() != ZOR_CLASS;
        if (verdict.tag.empty() || isOfAssociationClass) {
            continue;
        }
        ++expected[verdict.tag];
        if (object->getElementType() == ZOR_GENERALIZATION) {
            ofGeneralizations.insert(verdict.tag);
        }
        // Its result is one more parameter.
        if (object->isInstanceOf(ZOR_OPERATION) &&
            static_cast<const ZOROperation*>(object)->getResultType() != nullptr) {
            ++expected[key.second == "uml" ? "uml:Parameter" : "dbm:StoredProcedureParameter"];
        }
    }
    EXPECT_GT(expected.size(), 5U);
    for (const auto& [tag, objects] : expected) {
        const std::size_t elements = count(document, "<" + tag + " oim:id=");
        const bool isRole = tag.ends_with("Role");
        if (SHARED_TAGS.contains(tag)) {
            EXPECT_GT(elements, 0U) << tag;
        } else if (ofGeneralizations.contains(tag) || (isRole && !ofGeneralizations.empty())) {
            EXPECT_GE(elements, objects) << tag << ": a generalization has an element for each pair";
        } else {
            EXPECT_EQ(elements, objects) << tag;
        }
    }
    // And nothing is written that the inspection does not know.
    for (const char* tag :
         {"uml:Class", "uml:Attribute", "uml:Operation", "uml:Association", "erd:Entity", "erd:Attribute",
          "erd:Key", "erd:SubjectArea", "dbm:LogicalTable", "dbm:LogicalColumn", "dbm:UniqueKey",
          "dbm:ForeignKey", "dbm:LogicalIndex", "dbm:LogicalTrigger", "dbm:LogicalView",
          "dbm:StoredProcedure", "dbm:TableSynonym"}) {
        EXPECT_EQ(count(document, std::string("<") + tag + " oim:id="), expected[tag]) << tag;
    }
}

std::string nameOf(const testing::TestParamInfo<std::tuple<Example, std::string>>& info) {
    std::string view = std::get<1>(info.param);
    view.erase(std::remove(view.begin(), view.end(), ' '), view.end());
    return std::string(std::get<0>(info.param).name) + view;
}

INSTANTIATE_TEST_SUITE_P(Examples, Inspection,
                         testing::Combine(testing::ValuesIn(EXAMPLES),
                                          testing::Values("UML", "ERD", "DBM", "ERD and DBM")),
                         nameOf);

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
