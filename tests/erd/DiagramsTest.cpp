// Diagrams as subject areas.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "ModelBuilder.h"
#include "TestBridge.h"

namespace {

using namespace support;
using ::testing::HasSubstr;
using ::testing::Not;

class Diagrams : public ::testing::Test {
  protected:
    Diagrams() {
        parent = model.addTable("P", {"id"});
        ZORCandidateKey* key = model.addPrimaryKey(parent, "PK", {"id"});
        child = model.addTable("C", {"id"});
        association = model.addRelationship("R", model.addForeignKey(child, "FK", {"id"}, key));
        generalization = model.addGeneralization("G", {parent}, {child});
        generalization->addForeignKey(model.addForeignKey(child, "FK2", {"id"}, key));
    }

    std::string print(ZORDiagram* diagram) const {
        TestBridge bridge(model.model(), MODEL_VIEW_ERD);
        bridge.preprocess();
        bridge.printERDDiagram(diagram);
        return bridge.text();
    }
    std::string printAll() {
        TestBridge bridge(model.model(), MODEL_VIEW_ERD);
        bridge.preprocess();
        bridge.printERDModel(model.model());
        log = bridge.log().lines();
        return bridge.text();
    }

    ModelBuilder model;
    ZORClass* parent = nullptr;
    ZORClass* child = nullptr;
    ZORAssociation* association = nullptr;
    ZORGeneralization* generalization = nullptr;
    std::string log;
};

TEST_F(Diagrams, ShowEntitiesAndRelationshipsInTheirOrder) {
    ZORDiagram* diagram = model.addDiagram("D", {association, child});
    diagram->setDescription("What");
    EXPECT_EQ(print(diagram), R"xml(
<erd:SubjectArea oim:id="_1" name="D"
description="What"
>
<erd:SubjectAreaDiagrams oim:id="_2">
<erd:StoredDisplay Name="Display1" oim:id="_3">
<erd:StoredDisplayGraphicFeatures>
<erd:GraphicFeature oim:id="_4">
<erd:GraphicFeatureRelationship>
<erd:Relationship oim:href="#_5"/>
</erd:GraphicFeatureRelationship>
</erd:GraphicFeature>
<erd:GraphicFeature oim:id="_6">
<erd:GraphicFeatureEntity>
<erd:Entity oim:href="#_7"/>
</erd:GraphicFeatureEntity>
</erd:GraphicFeature>
</erd:StoredDisplayGraphicFeatures>
</erd:StoredDisplay>
</erd:SubjectAreaDiagrams>
</erd:SubjectArea>
)xml"_lines);
}

TEST_F(Diagrams, WithoutElementsHaveNoGraphicFeatures) {
    EXPECT_EQ(print(model.addDiagram("")), R"xml(
<erd:SubjectArea oim:id="_1" name="unnamed$1">
<erd:SubjectAreaDiagrams oim:id="_2">
<erd:StoredDisplay Name="Display1" oim:id="_3">
</erd:StoredDisplay>
</erd:SubjectAreaDiagrams>
</erd:SubjectArea>
)xml"_lines);
}

TEST_F(Diagrams, OfNotesAndPhysicalClassesHaveAnEmptyCollection) {
    ZORClass* physical = model.addTable("physical");
    physical->setDesignLevel(ZOR_PHYSICAL_ONLY);
    ZORNote* note = parent->addNote(std::make_unique<ZORNote>("note"));
    ZORAssociation* unkeyed = model.addAssociation("without a key");
    ZORClass* interface = model.addTable("interface");
    interface->setClassType(9);
    ZORDiagram* diagram = model.addDiagram("D", {physical, note, unkeyed, interface, model.addView("V")});
    EXPECT_THAT(print(diagram), HasSubstr(R"xml(
<erd:StoredDisplay Name="Display1" oim:id="_3">
<erd:StoredDisplayGraphicFeatures>
</erd:StoredDisplayGraphicFeatures>
</erd:StoredDisplay>
)xml"_lines));
}

TEST_F(Diagrams, NeverShowGeneralizationsNotEvenAsRelationships) {
    model.addDiagram("D", {generalization});
    const std::string text = printAll();
    EXPECT_EQ(count(text, "RelationshipType=\"5\""), 1U) << "the generalization is a relationship";
    EXPECT_THAT(text, Not(HasSubstr("<erd:GraphicFeature ")));
    EXPECT_THAT(text, HasSubstr("<erd:StoredDisplayGraphicFeatures>\n</erd:StoredDisplayGraphicFeatures>\n"));
}

TEST_F(Diagrams, ShowAnElementAsOftenAsItIsDrawn) {
    EXPECT_EQ(count(print(model.addDiagram("D", {parent, parent})), "<erd:GraphicFeature "), 2U);
}

TEST_F(Diagrams, OfOneNameAreRenamedAcrossTheModelAndKeepTheirOwnNames) {
    ZORDiagram* first = model.addDiagram("Overview");
    model.addPackage("Other");
    ZORDiagram* second = model.addDiagram("Overview");
    const std::string text = printAll();
    EXPECT_THAT(text, HasSubstr(" name=\"Overview\">"));
    EXPECT_THAT(text, HasSubstr(" name=\"Overview/1\">"));
    EXPECT_EQ(log,
              "[QLT_SQMDC_W0006] Renaming the Diagram 'Overview' to 'Overview/1' to avoid a name clash\n");
    EXPECT_EQ(first->getName().view(), "Overview");
    EXPECT_EQ(second->getName().view(), "Overview");
}

TEST_F(Diagrams, NamedLikeAnEntityKeepTheirName) {
    model.addDiagram("P");
    EXPECT_THAT(printAll(), HasSubstr("<erd:SubjectArea oim:id="));
    EXPECT_EQ(log, "");
}

TEST_F(Diagrams, AreWrittenWhateverTheirDesignLevelPackagesBeforeTheirSubPackages) {
    ZORDesignPackage* outer = model.package();
    model.addPackage("Inner", outer);
    model.addDiagram("inner");
    ZORDiagram* last = outer->addDiagram(std::make_unique<ZORDiagram>());
    last->setName("outer");
    last->setDesignLevel(ZOR_PHYSICAL_ONLY);
    const std::string text = part(printAll(), "<erd:ModelSubjectAreas>", "</erd:ModelSubjectAreas>");
    EXPECT_LT(text.find("name=\"outer\""), text.find("name=\"inner\""));
    EXPECT_NE(text.find("name=\"inner\""), std::string::npos);
}

}  // namespace
