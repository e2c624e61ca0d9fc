// The walk before writing: shared identifiers of association classes, and generalizations in the form that
// each view needs; and cleanup, after which the model is as it was.

#include <gtest/gtest.h>

#include "CompleteModel.h"
#include "EverythingModel.h"
#include "ModelDump.h"
#include "Preprocessing.h"
#include "TestBridge.h"

namespace {

using namespace support;

class Preprocessing : public ::testing::Test {
  protected:
    Preprocessing() {
        super = model.addTable("Super", {"id"});
        key = model.addPrimaryKey(super, "PK", {"id"});
        one = model.addTable("One", {"id"});
        two = model.addTable("Two", {"id"});
        three = model.addTable("Three", {"id"});
        elements = model.package()->getModelElements().size();
    }

    /// The associations that preprocessing added, as "supertype-subtype(foreign key) " in their order.
    std::string added() {
        std::string text;
        for (std::size_t i = firstAdded(); i < model.package()->getModelElements().size(); ++i) {
            const ZORModelElement* element = model.package()->getModelElements()[i];
            if (element->getElementType() != ZOR_OBJECT) {
                continue;
            }
            const auto& roles = static_cast<const ZORAssociation*>(element)->getRoles();
            text += roles[0]->getAssociatedClass()->getName().c_str();
            text += "-";
            text += roles[1]->getAssociatedClass()->getName().c_str();
            if (const ZORForeignKey* foreignKey = roles[1]->getForeignKey()) {
                text += std::string("(") + foreignKey->getName().c_str() + ")";
            }
            text += " ";
        }
        return text;
    }
    /// The copies that preprocessing added for the UML view, as "supertype-subtype ".
    std::string copies() {
        std::string text;
        for (std::size_t i = firstAdded(); i < model.package()->getModelElements().size(); ++i) {
            const ZORModelElement* element = model.package()->getModelElements()[i];
            if (element->getElementType() == ZOR_GENERALIZATION) {
                const auto* copy = static_cast<const ZORGeneralization*>(element);
                EXPECT_EQ(copy->getParents().size(), 1U);
                EXPECT_EQ(copy->getChildren().size(), 1U);
                text += copy->getParents()[0]->getName().c_str();
                text += "-";
                text += copy->getChildren()[0]->getName().c_str();
                text += " ";
            }
        }
        return text;
    }
    ZORGeneralization* generalize(const char* name, std::initializer_list<ZORClass*> supertypes,
                                  std::initializer_list<ZORClass*> subtypes) {
        ++elements;
        return model.addGeneralization(name, supertypes, subtypes);
    }
    const ZORAssociation* addedAt(std::size_t index) {
        return static_cast<const ZORAssociation*>(model.package()->getModelElements()[firstAdded() + index]);
    }
    std::size_t firstAdded() const { return elements; }

    ModelBuilder model;
    ZORClass* super = nullptr;
    ZORClass* one = nullptr;
    ZORClass* two = nullptr;
    ZORClass* three = nullptr;
    ZORCandidateKey* key = nullptr;

  private:
    std::size_t elements = 0;
};

TEST_F(Preprocessing, GivesAnAssociationClassAndItsAssociationOneUmlIdentifier) {
    ZORAssociation* association = model.addAssociation("A");
    association->setAssociationClass(two);
    for (const MDCModelView view : {MODEL_VIEW_UML, MODEL_VIEW_ERD, MODEL_VIEW_DBM, MODEL_VIEW_ERD_AND_DBM}) {
        TestBridge bridge(model.model(), view);
        bridge.preprocess();
        EXPECT_EQ(bridge.getXMLID(two, UML), 1);
        EXPECT_EQ(bridge.getXMLID(association, UML), 1);
        EXPECT_EQ(bridge.getXMLID(association, DBM), 2) << "only the UML identifier is shared";
        bridge.cleanup();
    }
}

TEST_F(Preprocessing, TurnsAGeneralizationIntoAssociationsTheLastSubtypeFirst) {
    generalize("G", {super}, {one, two, three});
    for (const MDCModelView view : {MODEL_VIEW_ERD, MODEL_VIEW_DBM, MODEL_VIEW_ERD_AND_DBM}) {
        TestBridge bridge(model.model(), view);
        bridge.preprocess();
        EXPECT_EQ(added(), "Super-Three Super-Two Super-One ");
        bridge.cleanup();
        EXPECT_EQ(added(), "");
    }
}

TEST_F(Preprocessing, LeavesGeneralizationsOfSeveralSupertypesOrNoneAlone) {
    generalize("several", {super, one}, {two});
    generalize("none", {}, {two});
    TestBridge bridge(model.model(), MODEL_VIEW_ERD);
    bridge.preprocess();
    EXPECT_EQ(added(), "");
}

TEST_F(Preprocessing, AddsAssociationsThatStandForTheGeneralization) {
    ZORGeneralization* generalization = generalize("G", {super}, {one});
    generalization->setDesignLevel(ZOR_PHYSICAL_ONLY);
    generalization->setDescription("not carried over");
    TestBridge bridge(model.model(), MODEL_VIEW_DBM);
    bridge.preprocess();
    const ZORAssociation& association = *addedAt(0);
    EXPECT_EQ(association.getElementType(), ZOR_OBJECT);
    EXPECT_EQ(association.getName().view(), "G");
    EXPECT_EQ(association.getDesignLevel(), ZOR_PHYSICAL_ONLY);
    EXPECT_EQ(association.getAssociationKind(), 1);
    EXPECT_TRUE(association.getDescription().isEmpty());
    ASSERT_EQ(association.getRoles().size(), 2U);
    const ZORAssociationRole& parent = *association.getRoles()[0];
    const ZORAssociationRole& child = *association.getRoles()[1];
    EXPECT_EQ(parent.getAssociatedClass(), super);
    EXPECT_EQ(parent.getMultiplicity().view(), "1");
    EXPECT_TRUE(parent.isSupertypeSide());
    EXPECT_EQ(child.getAssociatedClass(), one);
    EXPECT_EQ(child.getMultiplicity().view(), "0..1");
    EXPECT_FALSE(child.isSupertypeSide());
    for (const ZORAssociationRole* role : {&parent, &child}) {
        EXPECT_TRUE(role->getName().isEmpty());
        EXPECT_EQ(role->getForeignKey(), nullptr);
        EXPECT_EQ(role->getDeleteRule(), ZOR_ACTION_NONE);
        EXPECT_EQ(role->getUpdateRule(), ZOR_ACTION_NONE);
        EXPECT_EQ(role->getInsertRule(), ZOR_ACTION_NONE);
        EXPECT_EQ(role->getDesignLevel(), ZOR_LOGICAL_AND_PHYSICAL);
    }
}

TEST_F(Preprocessing, GivesEverySubtypeTheForeignKeyThatBeginsWithItsColumn) {
    ZORGeneralization* generalization = generalize("G", {super}, {one, two});
    generalization->addForeignKey(model.addForeignKey(two, "FK2", {"id"}, key));
    generalization->addForeignKey(model.addForeignKey(one, "FK1", {"id"}, key));
    TestBridge bridge(model.model(), MODEL_VIEW_ERD);
    bridge.preprocess();
    EXPECT_EQ(added(), "Super-Two(FK2) Super-One(FK1) ");
}

TEST_F(Preprocessing, TakesTheLastOfSeveralForeignKeysThatFit) {
    ZORGeneralization* generalization = generalize("G", {super}, {one});
    generalization->addForeignKey(model.addForeignKey(one, "FK1", {"id"}, key));
    generalization->addForeignKey(model.addForeignKey(one, "FK2", {"id"}, key));
    generalization->addForeignKey(model.addForeignKey(two, "FK3", {"id"}, key));
    TestBridge bridge(model.model(), MODEL_VIEW_ERD);
    bridge.preprocess();
    EXPECT_EQ(added(), "Super-One(FK2) ");
}

TEST_F(Preprocessing, TakesTheFirstForeignKeyWhenNoneFits) {
    ZORGeneralization* generalization = generalize("G", {super}, {three});
    generalization->addForeignKey(model.addForeignKey(one, "FK1", {"id"}, key));
    generalization->addForeignKey(model.addForeignKey(two, "FK2", {"id"}, key));
    generalization->addForeignKey(model.addForeignKey(three, "without columns", {}, key));
    TestBridge bridge(model.model(), MODEL_VIEW_ERD);
    bridge.preprocess();
    EXPECT_EQ(added(), "Super-Three(FK1) ");
}

TEST_F(Preprocessing, GivesNoKeyWithoutForeignKeys) {
    generalize("G", {super}, {one});
    TestBridge bridge(model.model(), MODEL_VIEW_ERD);
    bridge.preprocess();
    EXPECT_EQ(added(), "Super-One ");
}

TEST_F(Preprocessing, LetsGeneralizationsShareAForeignKeyWhoseOwnRoleIsTheLastOne) {
    ZORForeignKey* shared = model.addForeignKey(one, "FK", {"id"}, key);
    generalize("first", {super}, {one})->addForeignKey(shared);
    generalize("second", {super}, {one, two})->addForeignKey(shared);
    const std::string before = dumpModel(*model.model());
    TestBridge bridge(model.model(), MODEL_VIEW_ERD);
    bridge.preprocess();
    EXPECT_EQ(added(), "Super-One(FK) Super-Two(FK) Super-One(FK) ");
    EXPECT_EQ(shared->getAssociationRole(), addedAt(2)->getRoles()[1]);
    bridge.cleanup();
    EXPECT_EQ(shared->getAssociationRole(), nullptr);
    EXPECT_EQ(dumpModel(*model.model()), before);
}

TEST_F(Preprocessing, GivesAForeignKeyBackToTheRoleOfItsAssociation) {
    ZORForeignKey* shared = model.addForeignKey(one, "FK", {"id"}, key);
    ZORAssociationRole* own = model.addRelationship("own", shared)->getRoles()[1];
    model.addGeneralization("G", {super}, {one})->addForeignKey(shared);
    const std::string before = dumpModel(*model.model());
    TestBridge bridge(model.model(), MODEL_VIEW_DBM);
    bridge.preprocess();
    EXPECT_NE(shared->getAssociationRole(), own);
    bridge.cleanup();
    EXPECT_EQ(shared->getAssociationRole(), own);
    EXPECT_EQ(dumpModel(*model.model()), before);
}

TEST_F(Preprocessing, DrawsTheAssociationsOnTheGeneralizationsDiagramsExceptInTheDbmView) {
    ZORGeneralization* generalization = generalize("G", {super}, {one});
    ZORDiagram* first = model.addDiagram("first", {super, generalization, one});
    ZORDiagram* second = model.addDiagram("second", {generalization});
    for (const MDCModelView view : {MODEL_VIEW_ERD, MODEL_VIEW_ERD_AND_DBM}) {
        TestBridge bridge(model.model(), view);
        bridge.preprocess();
        ASSERT_EQ(first->getModelElements().size(), 4U);
        EXPECT_EQ(first->getModelElements()[3], addedAt(0));
        EXPECT_EQ(second->getModelElements().last(), addedAt(0));
        ASSERT_EQ(addedAt(0)->getDiagrams().size(), 2U);
        EXPECT_EQ(addedAt(0)->getDiagrams()[0], second) << "the last diagram comes first";
        EXPECT_EQ(addedAt(0)->getDiagrams()[1], first);
        bridge.cleanup();
        EXPECT_EQ(first->getModelElements().size(), 3U);
        EXPECT_EQ(second->getModelElements().size(), 1U);
    }
    TestBridge bridge(model.model(), MODEL_VIEW_DBM);
    bridge.preprocess();
    EXPECT_EQ(first->getModelElements().size(), 3U);
    EXPECT_EQ(second->getModelElements().size(), 1U);
}

TEST_F(Preprocessing, SplitsAGeneralizationIntoPairsForTheUmlView) {
    ZORGeneralization* generalization = generalize("G", {super, three}, {one, two});
    generalization->setVisibility(ZOR_VISIBILITY_PROTECTED);
    generalization->setDesignLevel(ZOR_LOGICAL_ONLY);
    generalization->setComments("why");
    TestBridge bridge(model.model(), MODEL_VIEW_UML);
    bridge.preprocess();
    EXPECT_EQ(copies(), "Super-One Super-Two Three-One Three-Two ");
    for (ZORModelElement* element : {model.package()->getModelElements().last()}) {
        EXPECT_EQ(element->getName().view(), "G");
        EXPECT_EQ(element->getComments().view(), "why");
        EXPECT_EQ(element->getDesignLevel(), ZOR_LOGICAL_ONLY);
        EXPECT_EQ(static_cast<ZORGeneralization*>(element)->getVisibility(), ZOR_VISIBILITY_PROTECTED);
    }
    EXPECT_EQ(generalization->getParents().size(), 2U) << "the one that was split stays as it is";
    EXPECT_EQ(generalization->getChildren().size(), 2U);
    EXPECT_EQ(one->getGeneralizations().size(), 3U);
    bridge.cleanup();
    EXPECT_EQ(copies(), "");
    EXPECT_EQ(one->getGeneralizations().size(), 1U);
}

TEST_F(Preprocessing, SplitsOneSupertypeOrSubtypeTooWhenTheOthersAreSeveral) {
    generalize("children", {super}, {one, two});
    generalize("parents", {super, three}, {one});
    TestBridge bridge(model.model(), MODEL_VIEW_UML);
    bridge.preprocess();
    EXPECT_EQ(copies(), "Super-One Super-Two Super-One Three-One ");
}

TEST_F(Preprocessing, LeavesAPairAloneInTheUmlView) {
    generalize("G", {super}, {one});
    TestBridge bridge(model.model(), MODEL_VIEW_UML);
    bridge.preprocess();
    EXPECT_EQ(copies(), "");
    EXPECT_EQ(added(), "");
}

TEST_F(Preprocessing, TakesNoIdentifiersForGeneralizations) {
    generalize("G", {super, two}, {one});
    for (const MDCModelView view : {MODEL_VIEW_UML, MODEL_VIEW_ERD}) {
        TestBridge bridge(model.model(), view);
        bridge.preprocess();
        EXPECT_EQ(bridge.getUniqueID(), 1);
        bridge.cleanup();
    }
}

class Cleanup : public ::testing::TestWithParam<MDCModelView> {};

TEST_P(Cleanup, RestoresTheModelToItsLastReference) {
    const ModelBuilder everything = makeEverything();
    CompleteModel complete;
    for (ZORType* type : complete.model.getTypes()) {
        type->setStereotype("");  // the UML view has no word for the kind of a type
    }
    for (ZORModel* model : {everything.model(), &complete.model}) {
        const std::string before = dumpModel(*model);
        TestBridge bridge(model, GetParam());
        bridge.preprocess();
        EXPECT_NE(dumpModel(*model), before);
        bridge.printTransfer();
        bridge.cleanup();
        EXPECT_EQ(dumpModel(*model), before);
        EXPECT_EQ(bridge.userData_.inUse(), 0U);
        EXPECT_TRUE(bridge.auxiliary_.isEmpty());
        bridge.cleanup();
        EXPECT_EQ(dumpModel(*model), before) << "a second time changes nothing";
    }
}

INSTANTIATE_TEST_SUITE_P(View, Cleanup,
                         ::testing::Values(MODEL_VIEW_UML, MODEL_VIEW_ERD, MODEL_VIEW_DBM,
                                           MODEL_VIEW_ERD_AND_DBM),
                         [](const auto& test) { return viewName(test.param); });

TEST(CleanupOfABridge, ThatNeverRanTouchesNothing) {
    CollectingLog log;
    const ZORMicrosoftSqlServerMdsMdcExportBridge bridge(&log);
    EXPECT_EQ(log.lines(), "");
}

}  // namespace
