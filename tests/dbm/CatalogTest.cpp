// The catalog and its schemas: which packages become one, and which collections stand in it.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "ModelBuilder.h"
#include "TestBridge.h"

namespace {

using namespace support;
using ::testing::HasSubstr;
using ::testing::Not;

class Catalog : public ::testing::Test {
  protected:
    std::string print(MDCModelView view = MODEL_VIEW_DBM) const {
        TestBridge bridge(model.model(), view);
        bridge.preprocess();
        bridge.printDBMModel(model.model());
        return bridge.text();
    }
    /// The collections of the first schema, in their order.
    std::string collections() const {
        const std::string text = print();
        std::string found;
        std::size_t at = text.find("<dbm:Schema");
        while (at != std::string::npos) {
            const std::size_t begin = at + std::string("<dbm:Schema").size();
            found += text.substr(begin, text.find('>', begin) - begin) + " ";
            at = text.find("<dbm:Schema", begin);
        }
        return found;
    }

    ModelBuilder model;
};

TEST_F(Catalog, WithoutPackagesHoldsAnEmptyCollectionOfSchemas) {
    EXPECT_EQ(print(), R"xml(
<dbm:LogicalCatalog oim:id="_1" name="Shop (physical)">
<dbm:CatalogSchemas>
</dbm:CatalogSchemas>
</dbm:LogicalCatalog>
)xml"_lines);
}

TEST_F(Catalog, IsNamedAfterTheModelWhoseNameStays) {
    const std::string text = print();
    EXPECT_THAT(text, HasSubstr("name=\"Shop (physical)\""));
    EXPECT_EQ(model.model()->getName().view(), "Shop");
}

TEST_F(Catalog, TakesAPhysicalNameAsItIs) {
    model.model()->setPhysicalName("SHOP");
    EXPECT_THAT(print(), HasSubstr("<dbm:LogicalCatalog oim:id=\"_1\" name=\"SHOP\">"));
}

TEST_F(Catalog, CarriesTheModelsTextsAndIsNamedEvenWithoutAName) {
    model.model()->setName("");
    model.model()->setDescription("All of it");
    model.model()->setComments("so far");
    EXPECT_EQ(print(), R"xml(
<dbm:LogicalCatalog oim:id="_1" name=" (physical)"
description="All of it"
comments="so far"
>
<dbm:CatalogSchemas>
</dbm:CatalogSchemas>
</dbm:LogicalCatalog>
)xml"_lines);
}

TEST_F(Catalog, LeavesDatabaseCatalogsOut) {
    model.addCatalog("Oracle");
    EXPECT_EQ(count(print(), "<dbm:"), 2U);
}

TEST_F(Catalog, HoldsEveryPackageAsASchemaParentsBeforeTheirSubPackages) {
    ZORDesignPackage* a = model.addPackage("A");
    model.addTable("TA");
    ZORDesignPackage* b = model.addPackage("B", a);
    model.addTable("TB");
    model.addPackage("C", b);
    model.addTable("TC");
    model.addPackage("D", a);
    model.addTable("TD");
    model.addPackage("E");
    model.addTable("TE");
    EXPECT_EQ(print(), R"xml(
<dbm:LogicalCatalog oim:id="_1" name="Shop (physical)">
<dbm:CatalogSchemas>
<dbm:LogicalSchema oim:id="_2" name="A">
<dbm:SchemaTables>
<dbm:LogicalTable oim:id="_3" name="TA">
</dbm:LogicalTable>
</dbm:SchemaTables>
</dbm:LogicalSchema>
<dbm:LogicalSchema oim:id="_4" name="B">
<dbm:SchemaTables>
<dbm:LogicalTable oim:id="_5" name="TB">
</dbm:LogicalTable>
</dbm:SchemaTables>
</dbm:LogicalSchema>
<dbm:LogicalSchema oim:id="_6" name="C">
<dbm:SchemaTables>
<dbm:LogicalTable oim:id="_7" name="TC">
</dbm:LogicalTable>
</dbm:SchemaTables>
</dbm:LogicalSchema>
<dbm:LogicalSchema oim:id="_8" name="D">
<dbm:SchemaTables>
<dbm:LogicalTable oim:id="_9" name="TD">
</dbm:LogicalTable>
</dbm:SchemaTables>
</dbm:LogicalSchema>
<dbm:LogicalSchema oim:id="_10" name="E">
<dbm:SchemaTables>
<dbm:LogicalTable oim:id="_11" name="TE">
</dbm:LogicalTable>
</dbm:SchemaTables>
</dbm:LogicalSchema>
</dbm:CatalogSchemas>
</dbm:LogicalCatalog>
)xml"_lines);
}

TEST_F(Catalog, LeavesAPackageOfLogicalClassesOutButNotItsSubPackages) {
    ZORDesignPackage* outer = model.addPackage("Outer");
    model.addTable("Idea")->setDesignLevel(ZOR_LOGICAL_ONLY);
    model.addPackage("Inner", outer);
    model.addTable("T");
    const std::string text = print();
    EXPECT_THAT(text, Not(HasSubstr("Outer")));
    EXPECT_THAT(text, HasSubstr("<dbm:LogicalSchema oim:id=\"_2\" name=\"Inner\">"));
}

TEST_F(Catalog, IgnoresThePackagesOwnDesignLevel) {
    model.addPackage("P")->setDesignLevel(ZOR_LOGICAL_ONLY);
    model.addTable("T");
    EXPECT_THAT(print(), HasSubstr("name=\"P\""));
}

TEST_F(Catalog, LeavesAPackageOfProceduresAloneOut) {
    model.addPackage("P");
    model.addOperation<ZORStoredProcedure>(model.package(), "proc");
    EXPECT_THAT(print(), Not(HasSubstr("Schema ")));
    EXPECT_THAT(print(), Not(HasSubstr("proc")));
}

TEST_F(Catalog, HoldsAPackageOfOneViewAsASchemaWithoutTables) {
    model.addView("V");
    EXPECT_EQ(collections(), "Views ");
    EXPECT_EQ(part(print(), "<dbm:LogicalSchema", "</dbm:LogicalSchema>\n"), R"xml(
<dbm:LogicalSchema oim:id="_2" name="Sales">
<dbm:SchemaViews>
<dbm:LogicalView oim:id="_3" name="V">
</dbm:LogicalView>
</dbm:SchemaViews>
</dbm:LogicalSchema>
)xml"_lines);
}

TEST_F(Catalog, HoldsAPackageOfOneConstraintAsASchema) {
    ZORClass* parent = model.addTable("P", {"id"});
    ZORCandidateKey* key = model.addPrimaryKey(parent, "PK", {"id"});
    ZORForeignKey* foreignKey = model.addForeignKey(model.addTable("C", {"id"}), "FK", {"id"}, key);
    model.addPackage("Constraints");
    model.addRelationship("R", foreignKey);
    const std::string schema = part(print(), "name=\"Constraints\">\n", "</dbm:LogicalSchema>");
    EXPECT_THAT(schema, ::testing::StartsWith("name=\"Constraints\">\n<dbm:SchemaReferentialConstraints>\n"));
    EXPECT_THAT(schema, Not(HasSubstr("SchemaTables")));
}

TEST_F(Catalog, NamesAPackageWithoutAName) {
    model.addPackage("");
    model.addTable("T");
    EXPECT_THAT(print(), HasSubstr("<dbm:LogicalSchema oim:id=\"_2\" name=\"unnamed$2\">"));
}

TEST_F(Catalog, OpensItsCollectionsInOneOrder) {
    ZORClass* parent = model.addTable("P", {"id"});
    ZORForeignKey* foreignKey = model.addForeignKey(model.addTable("C", {"id"}), "FK", {"id"},
                                                    model.addPrimaryKey(parent, "PK", {"id"}));
    model.addRelationship("R", foreignKey);
    model.addView("V");
    model.addSynonym(parent, "S");
    model.addOperation<ZORStoredProcedure>(model.package(), "proc");
    EXPECT_EQ(collections(), "Tables TableSynonyms StoredProcedures Views ReferentialConstraints ");
}

TEST_F(Catalog, OpensNoCollectionForWhatAClassThatIsNoTableHolds) {
    model.addTable("T");
    ZORClass* logical = model.addTable("L");
    logical->setDesignLevel(ZOR_LOGICAL_ONLY);
    ZORClass* interface = model.addTable("I");
    interface->setClassType(9);
    for (ZORClass* cls : {logical, interface}) {
        model.addSynonym(cls, "S");
        model.addOperation<ZORStoredProcedure>(cls, "proc");
    }
    EXPECT_EQ(collections(), "Tables ");
}

TEST_F(Catalog, OpensTheProceduresForAnyOperationOfATable) {
    ZORClass* table = model.addTable("T");
    model.addOperation<ZORTrigger>(table, "trigger")->setDesignLevel(ZOR_LOGICAL_ONLY);
    EXPECT_EQ(part(print(), "<dbm:LogicalSchema", "</dbm:LogicalSchema>\n"), R"xml(
<dbm:LogicalSchema oim:id="_2" name="Sales">
<dbm:SchemaTables>
<dbm:LogicalTable oim:id="_3" name="T">
</dbm:LogicalTable>
</dbm:SchemaTables>
<dbm:SchemaStoredProcedures>
</dbm:SchemaStoredProcedures>
</dbm:LogicalSchema>
)xml"_lines)
        << "a table whose triggers are logical only opens the collection and leaves it empty";
}

TEST_F(Catalog, OpensTheProceduresForAnyOperationOfAView) {
    model.addOperation<ZOROperation>(model.addView("V"), "plain");
    EXPECT_EQ(collections(), "StoredProcedures Views ");
}

TEST_F(Catalog, HoldsProceduresOfThePackageThenThoseOfTablesAndViewsInOrder) {
    model.addOperation<ZORStoredProcedure>(model.addView("V"), "of view");
    ZORClass* table = model.addTable("T");
    model.addOperation<ZORStoredProcedure>(table, "of table");
    model.addOperation<ZOROperation>(table, "plain of table");
    model.addOperation<ZORTrigger>(table, "trigger of table");
    model.addOperation<ZORStoredProcedure>(table, "logical of table")->setDesignLevel(ZOR_LOGICAL_ONLY);
    model.addOperation<ZORStoredProcedure>(model.package(), "of package");
    model.addOperation<ZORStoredProcedure>(model.package(), "logical of package")
        ->setDesignLevel(ZOR_LOGICAL_ONLY);
    model.addOperation<ZOROperation>(model.package(), "plain of package");
    EXPECT_EQ(part(print(), "<dbm:SchemaStoredProcedures", "</dbm:SchemaStoredProcedures>\n"), R"xml(
<dbm:SchemaStoredProcedures>
<dbm:StoredProcedure oim:id="_5" name="of package"/>
<dbm:StoredProcedure oim:id="_6" name="logical of package"/>
<dbm:StoredProcedure oim:id="_7" name="plain of package"/>
<dbm:StoredProcedure oim:id="_8" name="of view"/>
<dbm:StoredProcedure oim:id="_9" name="of table"/>
</dbm:SchemaStoredProcedures>
)xml"_lines);
}

TEST_F(Catalog, HoldsProceduresOfTheFirstKindOfTableOnly) {
    for (const int classType : {0, 1}) {
        ModelBuilder one;
        ZORClass* table = one.addTable("T");
        table->setClassType(classType);
        one.addOperation<ZORStoredProcedure>(table, "proc");
        TestBridge bridge(one.model());
        bridge.printDBMModel(one.model());
        const std::string text = bridge.text();
        EXPECT_EQ(count(text, "<dbm:LogicalTable"), 1U) << classType;
        EXPECT_EQ(count(text, "<dbm:StoredProcedure "), classType == 0 ? 1U : 0U);
        EXPECT_EQ(count(text, "<dbm:SchemaStoredProcedures>"), 1U) << classType;
    }
}

TEST_F(Catalog, WritesViewsWhateverTheirDesignLevel) {
    model.addView("V")->setDesignLevel(ZOR_LOGICAL_ONLY);
    EXPECT_THAT(print(), HasSubstr("<dbm:LogicalView oim:id=\"_3\" name=\"V\">"));
}

TEST_F(Catalog, LeavesElementsOfOtherKindsOut) {
    model.addTable("T");
    model.addGeneralization("G", {model.addTable("A")}, {model.addTable("B")});
    model.addAssociation("nothing");
    EXPECT_EQ(collections(), "Tables ");
}

TEST_F(Catalog, WritesTheGeneralizationsThatCarryAForeignKeyAsConstraints) {
    ZORClass* super = model.addTable("Super", {"id"});
    ZORClass* sub = model.addTable("Sub", {"id"});
    ZORCandidateKey* key = model.addPrimaryKey(super, "PK", {"id"});
    model.addGeneralization("G", {super}, {sub})->addForeignKey(model.addForeignKey(sub, "FK", {"id"}, key));
    const std::string text = print();
    EXPECT_THAT(text, HasSubstr("<dbm:ReferentialConstraint oim:id=\"_9\" name=\"G\">"));
    EXPECT_THAT(text, HasSubstr("<dbm:ForeignKey oim:id=\"_8\" name=\"FK\">"));
}

TEST_F(Catalog, LinksToTheModelOnlyInTheCombinedView) {
    EXPECT_THAT(print(MODEL_VIEW_DBM), Not(HasSubstr("erd:")));
    EXPECT_EQ(print(MODEL_VIEW_ERD_AND_DBM), R"xml(
<dbm:LogicalCatalog oim:id="_1" name="Shop (physical)">
<dbm:CatalogSchemas>
</dbm:CatalogSchemas>
<uml:ModelElementClientDependency>
<uml:Abstraction name="Derived" oim:id="_2">
<uml:DependencySupplier>
<erd:Model oim:href="#_3"/>
</uml:DependencySupplier>
</uml:Abstraction>
</uml:ModelElementClientDependency>
</dbm:LogicalCatalog>
)xml"_lines);
}

}  // namespace
