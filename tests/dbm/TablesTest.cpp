// Tables: which classes are one, and what stands in it in which order.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "EverythingModel.h"
#include "TestBridge.h"

namespace {

using namespace support;
using ::testing::HasSubstr;
using ::testing::Not;

class Tables : public ::testing::Test {
  protected:
    std::string print(ZORClass* table, MDCModelView view = MODEL_VIEW_DBM) const {
        TestBridge bridge(model.model(), view);
        bridge.printDBMClass(table);
        return bridge.text();
    }
    bool isTable(int classType, ZORDesignLevel level) const {
        ZORClass cls;
        cls.setClassType(classType);
        cls.setDesignLevel(level);
        const TestBridge bridge(nullptr);
        return bridge.isExportableDBMClass(&cls);
    }

    ModelBuilder model;
};

TEST_F(Tables, AreThePhysicalClassesOfTwoKinds) {
    for (int classType = 0; classType <= 9; ++classType) {
        for (const ZORDesignLevel level : {ZOR_LOGICAL_AND_PHYSICAL, ZOR_LOGICAL_ONLY, ZOR_PHYSICAL_ONLY}) {
            EXPECT_EQ(isTable(classType, level), classType <= 1 && level != ZOR_LOGICAL_ONLY)
                << classType << " " << level;
        }
    }
}

TEST_F(Tables, AreDecidedOnce) {
    ZORClass cls;
    const TestBridge bridge(nullptr);
    EXPECT_TRUE(bridge.isExportableDBMClass(&cls));
    cls.setDesignLevel(ZOR_LOGICAL_ONLY);
    EXPECT_TRUE(bridge.isExportableDBMClass(&cls)) << "the answer is the mark's";
    EXPECT_EQ(bridge.getDBMMark(&cls), MARK_EXPORTABLE);
    EXPECT_EQ(bridge.getERDMark(&cls), MARK_UNDECIDED);
}

TEST_F(Tables, ObjectsArePhysicalUnlessTheyAreLogicalOnly) {
    ZORAttribute column;
    const TestBridge bridge(nullptr);
    EXPECT_TRUE(bridge.isExportableDBMModelObject(&column));
    column.setDesignLevel(ZOR_PHYSICAL_ONLY);
    EXPECT_TRUE(bridge.isExportableDBMModelObject(&column));
    column.setDesignLevel(ZOR_LOGICAL_ONLY);
    EXPECT_FALSE(bridge.isExportableDBMModelObject(&column)) << "not remembered";
}

TEST_F(Tables, WithoutColumnsHaveNoCollections) {
    EXPECT_EQ(print(model.addTable("T")),
              "<dbm:LogicalTable oim:id=\"_1\" name=\"T\">\n</dbm:LogicalTable>\n");
}

TEST_F(Tables, AreNamedByTheirPhysicalNameOrNumber) {
    ZORClass* table = model.addTable("Customer");
    table->setPhysicalName("CUST");
    EXPECT_THAT(print(table), HasSubstr("name=\"CUST\""));
    EXPECT_THAT(print(model.addTable("")), HasSubstr("name=\"unnamed$1\""));
}

TEST_F(Tables, TellTheirSizeWhenItIsNotZero) {
    ZORClass* table = model.addTable("T");
    EXPECT_THAT(print(table), Not(HasSubstr("EstimatedSize")));
    table->setEstimatedSize(1200);
    table->setDescription("What");
    table->setComments("Why");
    EXPECT_EQ(print(table), R"xml(
<dbm:LogicalTable oim:id="_1" name="T"
description="What"
comments="Why"
EstimatedSize="1200"
>
</dbm:LogicalTable>
)xml"_lines);
    table->setEstimatedSize(-1);
    EXPECT_THAT(print(table), HasSubstr("EstimatedSize=\"-1\""));
}

TEST_F(Tables, HoldColumnsByPositionAndLeaveLogicalOnesOut) {
    ZORClass* table = model.addTable("T", {"c", "logical", "a", "b"});
    for (const auto& [name, position] : {std::pair("c", 2), std::pair("a", 0), std::pair("b", 1)}) {
        table->getAttribute(name)->setPosition(static_cast<std::int16_t>(position));
    }
    table->getAttribute("logical")->setDesignLevel(ZOR_LOGICAL_ONLY);
    EXPECT_EQ(print(table), R"xml(
<dbm:LogicalTable oim:id="_1" name="T">
<dbm:ColumnSetColumns>
<dbm:LogicalColumn oim:id="_2" name="a"
Ordinal="1"
IsNullable="0"
>
</dbm:LogicalColumn>
<dbm:LogicalColumn oim:id="_3" name="b"
Ordinal="2"
IsNullable="0"
>
</dbm:LogicalColumn>
<dbm:LogicalColumn oim:id="_4" name="c"
Ordinal="3"
IsNullable="0"
>
</dbm:LogicalColumn>
</dbm:ColumnSetColumns>
</dbm:LogicalTable>
)xml"_lines);
}

TEST_F(Tables, WhoseColumnsAreAllLogicalHaveNoColumnCollection) {
    ZORClass* table = model.addTable("T", {"a"});
    table->getAttribute("a")->setDesignLevel(ZOR_LOGICAL_ONLY);
    EXPECT_THAT(print(table), Not(HasSubstr("ColumnSetColumns")));
}

TEST_F(Tables, HoldColumnsUniqueKeysForeignKeysTriggersIndexesAndLinksInThisOrder) {
    ZORClass* parent = model.addTable("P", {"id"});
    ZORCandidateKey* parentKey = model.addPrimaryKey(parent, "PK_P", {"id"});
    ZORClass* table = model.addTable("T", {"id"});
    model.addIndex(table, "I", {"id"});
    model.addOperation<ZORTrigger>(table, "TR");
    model.addRelationship("R", model.addForeignKey(table, "FK", {"id"}, parentKey));
    model.addKey(table, "UK", {"id"});
    EXPECT_EQ(print(table, MODEL_VIEW_ERD_AND_DBM), R"xml(
<dbm:LogicalTable oim:id="_1" name="T">
<dbm:ColumnSetColumns>
<dbm:LogicalColumn oim:id="_2" name="id"
Ordinal="1"
IsNullable="0"
>
<uml:ModelElementClientDependency>
<uml:Abstraction name="Derived" oim:id="_3">
<uml:DependencySupplier>
<erd:Attribute oim:href="#_4"/>
</uml:DependencySupplier>
</uml:Abstraction>
</uml:ModelElementClientDependency>
</dbm:LogicalColumn>
</dbm:ColumnSetColumns>
<dbm:TableUniqueKeys>
<dbm:UniqueKey oim:id="_5" name="UK">
<dbm:KeyColumns>
<dbm:LogicalColumn oim:href="#_2"/>
</dbm:KeyColumns>
<uml:ModelElementClientDependency>
<uml:Abstraction name="Derived" oim:id="_6">
<uml:DependencySupplier>
<erd:Key oim:href="#_7"/>
</uml:DependencySupplier>
</uml:Abstraction>
</uml:ModelElementClientDependency>
</dbm:UniqueKey>
</dbm:TableUniqueKeys>
<dbm:TableForeignKeys>
<dbm:ForeignKey oim:id="_8" name="FK">
<dbm:KeyColumns>
<dbm:LogicalColumn oim:href="#_2"/>
</dbm:KeyColumns>
<uml:ModelElementClientDependency>
<uml:Abstraction name="Derived" oim:id="_9">
<uml:DependencySupplier>
<erd:Key oim:href="#_10"/>
</uml:DependencySupplier>
</uml:Abstraction>
</uml:ModelElementClientDependency>
</dbm:ForeignKey>
</dbm:TableForeignKeys>
<dbm:TableTriggers>
<dbm:LogicalTrigger oim:id="_11" name="TR"
BeforeAfter="1"
/>
</dbm:TableTriggers>
<dbm:TableIndices>
<dbm:LogicalIndex oim:id="_12" name="I">
<dbm:IndexIndexColumns>
<dbm:IndexColumn oim:id="_13">
<dbm:IndexColumnColumn>
<dbm:LogicalColumn oim:href="#_2"/>
</dbm:IndexColumnColumn>
</dbm:IndexColumn>
</dbm:IndexIndexColumns>
</dbm:LogicalIndex>
</dbm:TableIndices>
<uml:ModelElementClientDependency>
<uml:Abstraction name="Derived" oim:id="_14">
<uml:DependencySupplier>
<erd:Entity oim:href="#_15"/>
</uml:DependencySupplier>
</uml:Abstraction>
</uml:ModelElementClientDependency>
</dbm:LogicalTable>
)xml"_lines);
}

TEST_F(Tables, KeepTheOrderOfKeysWithinEachCollection) {
    ZORClass* parent = model.addTable("P", {"id"});
    ZORCandidateKey* parentKey = model.addPrimaryKey(parent, "PK_P", {"id"});
    ZORClass* table = model.addTable("T", {"id"});
    model.addRelationship("R1", model.addForeignKey(table, "FK1", {"id"}, parentKey));
    model.addKey(table, "UK1", {"id"});
    model.addRelationship("R2", model.addForeignKey(table, "FK2", {"id"}, parentKey));
    model.addKey(table, "UK2", {"id"});
    const std::string text = print(table);
    EXPECT_LT(text.find("\"UK1\""), text.find("\"UK2\""));
    EXPECT_LT(text.find("\"UK2\""), text.find("\"FK1\""));
    EXPECT_LT(text.find("\"FK1\""), text.find("\"FK2\""));
    EXPECT_NE(text.find("\"FK2\""), std::string::npos);
}

TEST_F(Tables, LeaveForeignKeysWithoutARoleOut) {
    ZORClass* parent = model.addTable("P", {"id"});
    ZORClass* table = model.addTable("T", {"id"});
    model.addForeignKey(table, "FK", {"id"}, model.addPrimaryKey(parent, "PK", {"id"}));
    EXPECT_THAT(print(table), Not(HasSubstr("FK")));
    EXPECT_THAT(print(table), Not(HasSubstr("TableForeignKeys")));
}

TEST_F(Tables, JudgeAForeignKeyByItsAssociation) {
    ZORClass* parent = model.addTable("P", {"id"});
    ZORClass* table = model.addTable("T", {"id"});
    ZORForeignKey* key = model.addForeignKey(table, "FK", {"id"}, model.addPrimaryKey(parent, "PK", {"id"}));
    ZORAssociation* association = model.addRelationship("R", key);
    association->setDesignLevel(ZOR_LOGICAL_ONLY);
    EXPECT_THAT(print(table), Not(HasSubstr("FK")));
    association->setDesignLevel(ZOR_LOGICAL_AND_PHYSICAL);
    EXPECT_THAT(print(table), HasSubstr("<dbm:ForeignKey"));
}

TEST_F(Tables, WriteTriggersAndLeaveLogicalOnesAndOtherOperationsOut) {
    ZORClass* table = model.addTable("T");
    model.addOperation<ZORTrigger>(table, "logical")->setDesignLevel(ZOR_LOGICAL_ONLY);
    model.addOperation<ZORStoredProcedure>(table, "proc");
    model.addOperation<ZOROperation>(table, "plain");
    EXPECT_THAT(print(table), Not(HasSubstr("TableTriggers")));
    model.addOperation<ZORTrigger>(table, "first");
    model.addOperation<ZORTrigger>(table, "second");
    EXPECT_EQ(part(print(table), "<dbm:TableTriggers>", "</dbm:TableTriggers>\n"), R"xml(
<dbm:TableTriggers>
<dbm:LogicalTrigger oim:id="_2" name="first"
BeforeAfter="1"
/>
<dbm:LogicalTrigger oim:id="_3" name="second"
BeforeAfter="1"
/>
</dbm:TableTriggers>
)xml"_lines);
}

TEST_F(Tables, LinkToTheirEntityInTheCombinedViewUnlessPhysicalOnly) {
    ZORClass* table = model.addTable("T");
    EXPECT_THAT(print(table, MODEL_VIEW_ERD_AND_DBM), HasSubstr("<erd:Entity oim:href=\"#_3\"/>"));
    EXPECT_THAT(print(table, MODEL_VIEW_DBM), Not(HasSubstr("erd:")));
    table->setDesignLevel(ZOR_PHYSICAL_ONLY);
    EXPECT_THAT(print(table, MODEL_VIEW_ERD_AND_DBM), Not(HasSubstr("erd:")));
}

TEST_F(Tables, OfAnyModelHoldNoLinkToTheErdViewInTheDbmView) {
    const ModelBuilder everything = makeEverything();
    EXPECT_THAT(exportModel(*everything.model(), {{"Model", "DBM"}, {"DBM TypeSet", "SQL Server 7.x"}}),
                Not(HasSubstr("erd")));
}

}  // namespace
