// The ERD model with its four collections, and entities with their attributes.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "EverythingModel.h"
#include "TestBridge.h"

namespace {

using namespace support;
using ::testing::HasSubstr;
using ::testing::Not;

/// A model without the types that the builder makes, so that whole documents stay short.
class Entities : public ::testing::Test {
  protected:
    Entities() {
        bareModel.setName("Shop");
        package = bareModel.addChildPackage(std::make_unique<ZORDesignPackage>());
        package->setName("Sales");
    }

    ZORClass* addEntity(const char* name, ZORDesignPackage* to = nullptr) {
        ZORClass* entity = (to != nullptr ? to : package)->addModelElement(std::make_unique<ZORClass>());
        entity->setName(name);
        return entity;
    }
    ZORDesignPackage* addPackage(const char* name, ZORPackage* parent) {
        auto* added = parent->addChildPackage(std::make_unique<ZORDesignPackage>());
        added->setName(name);
        return added;
    }
    ZORType* addType(const char* name) {
        ZORType* type = bareModel.addType(std::make_unique<ZORConcreteType>());
        type->setName(name);
        return type;
    }
    ZORAttribute* addAttribute(ZORClass* entity, const char* name, ZORType* type) {
        ZORAttribute* attribute = entity->addAttribute(std::make_unique<ZORAttribute>());
        attribute->setName(name);
        attribute->setType(type);
        attribute->setPosition(static_cast<std::int16_t>(entity->getAttributeCount() - 1));
        return attribute;
    }
    std::string print() {
        TestBridge bridge(&bareModel, MODEL_VIEW_ERD);
        bridge.preprocess();
        bridge.printERDModel(&bareModel);
        log = bridge.log().lines();
        return bridge.text();
    }
    std::string print(ZORClass* entity) {
        TestBridge bridge(&bareModel, MODEL_VIEW_ERD);
        bridge.printERDClass(entity);
        return bridge.text();
    }

    ZORModel bareModel;
    ZORDesignPackage* package = nullptr;
    std::string log;
};

TEST_F(Entities, OfAModelWithoutPackagesLeaveFourEmptyCollections) {
    ZORModel empty;
    empty.setName("Nothing");
    TestBridge bridge(&empty, MODEL_VIEW_ERD);
    bridge.printERDModel(&empty);
    EXPECT_EQ(bridge.text(), R"xml(
<erd:Model oim:id="_1" name="Nothing (logical)">
<erd:ModelEntities>
</erd:ModelEntities>
<erd:ModelRelationships>
</erd:ModelRelationships>
<erd:ModelSubjectAreas>
</erd:ModelSubjectAreas>
<erd:ModelDomains>
</erd:ModelDomains>
</erd:Model>
)xml"_lines);
}

TEST_F(Entities, StandInAModelWhoseNameIsLogicalOnlyInTheDocument) {
    bareModel.setPhysicalName("SHOP");
    bareModel.setDescription("What");
    EXPECT_THAT(print(),
                HasSubstr("<erd:Model oim:id=\"_1\" name=\"Shop (logical)\"\ndescription=\"What\"\n>\n"));
    EXPECT_EQ(bareModel.getName().view(), "Shop");
}

TEST_F(Entities, AreTheLogicalClassesOfTwoKinds) {
    for (int classType = 0; classType <= 9; ++classType) {
        for (const ZORDesignLevel level : {ZOR_LOGICAL_AND_PHYSICAL, ZOR_LOGICAL_ONLY, ZOR_PHYSICAL_ONLY}) {
            ZORClass cls;
            cls.setClassType(classType);
            cls.setDesignLevel(level);
            const TestBridge bridge(nullptr, MODEL_VIEW_ERD);
            const bool expected = classType <= 1 && level != ZOR_PHYSICAL_ONLY;
            EXPECT_EQ(bridge.isExportableERDClass(&cls), expected) << classType << " " << level;
            EXPECT_EQ(bridge.getERDMark(&cls), expected ? MARK_EXPORTABLE : MARK_NOT_EXPORTABLE);
            EXPECT_EQ(bridge.getDBMMark(&cls), MARK_UNDECIDED);
            cls.setDesignLevel(expected ? ZOR_PHYSICAL_ONLY : ZOR_LOGICAL_ONLY);
            cls.setClassType(0);
            EXPECT_EQ(bridge.isExportableERDClass(&cls), expected) << "decided once";
        }
    }
}

TEST_F(Entities, ObjectsAreLogicalUnlessTheyArePhysicalOnly) {
    const TestBridge bridge(nullptr, MODEL_VIEW_ERD);
    ZORAttribute attribute;
    EXPECT_TRUE(bridge.isExportableERDModelObject(&attribute));
    attribute.setDesignLevel(ZOR_LOGICAL_ONLY);
    EXPECT_TRUE(bridge.isExportableERDModelObject(&attribute));
    attribute.setDesignLevel(ZOR_PHYSICAL_ONLY);
    EXPECT_FALSE(bridge.isExportableERDModelObject(&attribute));
}

TEST_F(Entities, OfAPackageComeBeforeThoseOfItsSubPackages) {
    ZORDesignPackage* inner = addPackage("Inner", package);
    addEntity("Below", inner);
    addEntity("Deep", addPackage("Innermost", inner));
    addEntity("First");
    addEntity("Interface")->setClassType(9);
    addEntity("Physical")->setDesignLevel(ZOR_PHYSICAL_ONLY);
    addEntity("Second")->setDesignLevel(ZOR_LOGICAL_ONLY);
    addEntity("Last", addPackage("Other", &bareModel));
    EXPECT_EQ(part(print(), "<erd:ModelEntities>", "</erd:ModelEntities>\n"), R"xml(
<erd:ModelEntities>
<erd:Entity oim:id="_2" name="First">
</erd:Entity>
<erd:Entity oim:id="_3" name="Second">
</erd:Entity>
<erd:Entity oim:id="_4" name="Below">
</erd:Entity>
<erd:Entity oim:id="_5" name="Deep">
</erd:Entity>
<erd:Entity oim:id="_6" name="Last">
</erd:Entity>
</erd:ModelEntities>
)xml"_lines);
}

TEST_F(Entities, OfOneNameAreRenamedInTheDocumentAlone) {
    ZORClass* first = addEntity("Customer");
    ZORClass* second = addEntity("Customer", addPackage("Other", &bareModel));
    ZORClass* third = addEntity("Customer/1", addPackage("Third", &bareModel));
    const std::string text = print();
    EXPECT_THAT(text, HasSubstr("<erd:Entity oim:id=\"_2\" name=\"Customer\">"));
    EXPECT_THAT(text, HasSubstr("<erd:Entity oim:id=\"_3\" name=\"Customer/1\">"));
    EXPECT_THAT(text, HasSubstr("<erd:Entity oim:id=\"_4\" name=\"Customer/1/1\">"));
    EXPECT_EQ(log,
              "[QLT_SQMDC_W0006] Renaming the Entity 'Customer' to 'Customer/1' to avoid a name clash\n"
              "[QLT_SQMDC_W0006] Renaming the Entity 'Customer/1' to 'Customer/1/1' to avoid a name clash\n");
    EXPECT_EQ(first->getName().view(), "Customer");
    EXPECT_EQ(second->getName().view(), "Customer");
    EXPECT_EQ(third->getName().view(), "Customer/1");
}

TEST_F(Entities, ThatAreLeftOutTakeNoNameFromOthers) {
    addEntity("Customer")->setDesignLevel(ZOR_PHYSICAL_ONLY);
    addEntity("Customer");
    EXPECT_THAT(print(), HasSubstr("name=\"Customer\""));
    EXPECT_EQ(log, "");
}

TEST_F(Entities, GetTheirNamesBackWhenTheWritingFails) {
    addEntity("Customer");
    ZORClass* second = addEntity("Customer");
    for (std::size_t write = 1; write < 8; ++write) {
        TestBridge bridge(&bareModel, MODEL_VIEW_ERD);
        bridge.file_.open(FailingSink::atWrite(write, std::make_shared<SinkRecord>()));
        EXPECT_THROW(bridge.printERDModel(&bareModel), ZORException) << write;
        bridge.file_.abandon();
        EXPECT_EQ(second->getName().view(), "Customer") << write;
        EXPECT_EQ(bareModel.getName().view(), "Shop") << write;
    }
}

TEST_F(Entities, WithoutAttributesAndKeysHaveNoCollections) {
    EXPECT_EQ(print(addEntity("E")), "<erd:Entity oim:id=\"_1\" name=\"E\">\n</erd:Entity>\n");
    EXPECT_EQ(print(addEntity("")), "<erd:Entity oim:id=\"_1\" name=\"unnamed$1\">\n</erd:Entity>\n");
}

TEST_F(Entities, WhoseAttributesAreAllPhysicalHaveNoAttributeCollection) {
    ZORClass* entity = addEntity("E");
    addAttribute(entity, "a", addType("t"))->setDesignLevel(ZOR_PHYSICAL_ONLY);
    EXPECT_THAT(print(entity), Not(HasSubstr("erd:EntityEntityAttributes")));
}

TEST_F(Entities, WithoutAnExportableKeyHaveNoKeyCollection) {
    ZORClass* entity = addEntity("E");
    ZORAttribute* physical = addAttribute(entity, "a", addType("t"));
    physical->setDesignLevel(ZOR_PHYSICAL_ONLY);
    entity->addKey(std::make_unique<ZORCandidateKey>())->addAttribute(physical);
    entity->addKey(std::make_unique<ZORForeignKey>())->addAttribute(physical);
    EXPECT_THAT(print(entity), Not(HasSubstr("erd:EntityKeys")));
}

TEST_F(Entities, HoldAttributesByPositionAndThenKeys) {
    ZORClass* entity = addEntity("E");
    ZORType* type = addType("t");
    addAttribute(entity, "b", type)->setPosition(1);
    addAttribute(entity, "a", type)->setPosition(0);
    addAttribute(entity, "physical", type)->setDesignLevel(ZOR_PHYSICAL_ONLY);
    auto* key = entity->addKey(std::make_unique<ZORCandidateKey>());
    key->setName("K");
    key->addAttribute(entity->getAttribute("a"));
    EXPECT_EQ(print(entity), R"xml(
<erd:Entity oim:id="_1" name="E">
<erd:EntityEntityAttributes>
<erd:Attribute oim:id="_2" name="a">
<erd:AttributeDomain>
<erd:Domain oim:href="#_4"/>
</erd:AttributeDomain>
</erd:Attribute>
<erd:Attribute oim:id="_5" name="b">
<erd:AttributeDomain>
<erd:Domain oim:href="#_4"/>
</erd:AttributeDomain>
</erd:Attribute>
</erd:EntityEntityAttributes>
<erd:EntityKeys>
<erd:Key oim:id="_6" name="K"
KeyType="3"
>
<erd:KeyAttributes>
<erd:Attribute oim:href="#_2"/>
</erd:KeyAttributes>
</erd:Key>
</erd:EntityKeys>
</erd:Entity>
)xml"_lines);
}

TEST_F(Entities, HoldAttributesWithAnInitialValueOnlyWhenItIsTheirOwn) {
    ZORClass* entity = addEntity("E");
    ZORType* type = addType("t");
    type->setInitialValue("type's");
    ZORAttribute* attribute = addAttribute(entity, "", type);
    EXPECT_THAT(print(entity), HasSubstr("<erd:Attribute oim:id=\"_2\" name=\"unnamed$2\">\n"));
    attribute->setInitialValue("own");
    attribute->setPhysicalName("A");
    attribute->setComments("Why");
    EXPECT_THAT(print(entity), HasSubstr(R"xml(
<erd:Attribute oim:id="_2" name="unnamed$2"
comments="Why"
initialValue="own"
>
)xml"_lines));
}

TEST_F(Entities, HoldAttributesThatReferToTheDomainOfTheirNullability) {
    ZORClass* entity = addEntity("E");
    ZORType* type = addType("t");
    addAttribute(entity, "mandatory", type);
    addAttribute(entity, "optional", type)->setOptional(true);
    const std::string text = print();
    EXPECT_EQ(part(text, "<erd:EntityEntityAttributes>", "</erd:EntityEntityAttributes>\n"), R"xml(
<erd:EntityEntityAttributes>
<erd:Attribute oim:id="_3" name="mandatory">
<erd:AttributeDomain>
<erd:Domain oim:href="#_5"/>
</erd:AttributeDomain>
</erd:Attribute>
<erd:Attribute oim:id="_6" name="optional">
<erd:AttributeDomain>
<erd:Domain oim:href="#_4"/>
</erd:AttributeDomain>
</erd:Attribute>
</erd:EntityEntityAttributes>
)xml"_lines);
    EXPECT_THAT(text, HasSubstr("<erd:Domain oim:id=\"_4\" name=\"t\"\nIsNull=\"1\"\n>"));
    EXPECT_THAT(text, HasSubstr("<erd:Domain oim:id=\"_5\" name=\"t\"\nIsNull=\"0\"\n>"));
}

TEST_F(Entities, OfAnyModelHoldNothingOfTheDbmView) {
    const ModelBuilder everything = makeEverything();
    EXPECT_THAT(exportModel(*everything.model(), {{"Model", "ERD"}, {"ERD TypeSet", "XML Datatypes"}}),
                Not(HasSubstr("dbm")));
}

TEST_F(Entities, HaveOtherIdentifiersInTheDbmView) {
    addEntity("E");
    const std::string text = exportModel(bareModel, {{"Model", "ERD and DBM"}});
    EXPECT_THAT(text, HasSubstr("<erd:Entity oim:id=\"_3\" name=\"E\">"));
    EXPECT_THAT(text, HasSubstr("<dbm:LogicalTable oim:id=\"_6\" name=\"E\">"));
}

}  // namespace
