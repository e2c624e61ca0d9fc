// The transfer document around the views: declaration, root, header and subsystem.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "ModelBuilder.h"
#include "TestBridge.h"
#include "ZORClock.h"

namespace {

using namespace support;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

/// 12 June 2007, 10:53:57.
constexpr std::time_t MOMENT = 1181645637;

class Transfer : public ::testing::Test {
  protected:
    Transfer() { ZORClock::setFixed(MOMENT); }
    ~Transfer() override { ZORClock::setFixed({}); }

    std::string document(std::initializer_list<std::pair<const char*, const char*>> values) {
        return exportModel(*model.model(), values);
    }
    /// The root's start tag: the namespaces.
    std::string root(std::initializer_list<std::pair<const char*, const char*>> values) {
        return part(document(values), "<oim:Transfer\n", "\n>\n");
    }

    ModelBuilder model{"Sales"};
};

TEST_F(Transfer, OfTheCombinedViewDeclaresAllNamespacesAndHoldsEverythingInOneSubsystem) {
    EXPECT_EQ(document({{"Model", "ERD and DBM"}, {"ERD TypeSet", "XML Datatypes"}}), R"xml(
<?xml version="1.0" encoding="UTF-8" ?>
<oim:Transfer
xmlns:oim="http://www.mdcinfo.com/oim/oim.dtd"
xmlns:uml="http://www.mdcinfo.com/oim/uml.dtd"
xmlns:erd="http://www.mdcinfo.com/oim/erd.dtd"
xmlns:dtm="http://www.mdcinfo.com/oim/dtm.dtd"
xmlns:dbm="http://www.mdcinfo.com/oim/dbm.dtd"
>
<oim:TransferHeader
Exporter="Tarvolane"
ExporterVersion="5.2.0 - Jun 12 2007 10:53:57"
TransferDateTime="Jun 12 2007 10:53:57"
/>
<uml:Subsystem name="Sales" oim:id="_1">
<uml:NamespaceOwnedElement>
<erd:Model oim:id="_2" name="Sales (logical)">
<erd:ModelEntities>
</erd:ModelEntities>
<erd:ModelRelationships>
</erd:ModelRelationships>
<erd:ModelSubjectAreas>
</erd:ModelSubjectAreas>
<erd:ModelDomains>
<erd:Domain oim:id="_3" name="number">
<erd:DomainDefaultType>
<erd:DataType oim:href="#_5"/>
</erd:DomainDefaultType>
</erd:Domain>
<erd:Domain oim:id="_6" name="text"
Precision="40"
>
<erd:DomainDefaultType>
<erd:DataType oim:href="#_8"/>
</erd:DomainDefaultType>
</erd:Domain>
</erd:ModelDomains>
</erd:Model>
<dtm:TypeSet oim:id="_9"
name="http://www.w3.org/TR/1998/NOTE-XML-data-0105/"
version="1998/01/05"
>
<dtm:TypeSetTypes>
<erd:DataType oim:id="_5"
name="int"
/>
<erd:DataType oim:id="_8"
name="string"
/>
</dtm:TypeSetTypes>
</dtm:TypeSet>
<dbm:LogicalCatalog oim:id="_10" name="Sales (physical)">
<dbm:CatalogSchemas>
</dbm:CatalogSchemas>
<uml:ModelElementClientDependency>
<uml:Abstraction name="Derived" oim:id="_11">
<uml:DependencySupplier>
<erd:Model oim:href="#_2"/>
</uml:DependencySupplier>
</uml:Abstraction>
</uml:ModelElementClientDependency>
</dbm:LogicalCatalog>
</uml:NamespaceOwnedElement>
</uml:Subsystem>
</oim:Transfer>
)xml"_lines);
}

TEST_F(Transfer, OfTheDbmViewHoldsTheCatalogAndThenItsTypeSet) {
    EXPECT_EQ(document({{"Model", "DBM"}, {"DBM TypeSet", "SQL Server 7.x"}}), R"xml(
<?xml version="1.0" encoding="UTF-8" ?>
<oim:Transfer
xmlns:oim="http://www.mdcinfo.com/oim/oim.dtd"
xmlns:uml="http://www.mdcinfo.com/oim/uml.dtd"
xmlns:dbm="http://www.mdcinfo.com/oim/dbm.dtd"
>
<oim:TransferHeader
Exporter="Tarvolane"
ExporterVersion="5.2.0 - Jun 12 2007 10:53:57"
TransferDateTime="Jun 12 2007 10:53:57"
/>
<uml:Subsystem name="Sales" oim:id="_1">
<uml:NamespaceOwnedElement>
<dbm:LogicalCatalog oim:id="_2" name="Sales (physical)">
<dbm:CatalogSchemas>
</dbm:CatalogSchemas>
</dbm:LogicalCatalog>
<dbm:ColumnTypeSet oim:id="_3"
name="Microsoft SQL Server"
version="7.x"
>
<dbm:ColumnTypeSetColumnTypes>
</dbm:ColumnTypeSetColumnTypes>
</dbm:ColumnTypeSet>
</uml:NamespaceOwnedElement>
</uml:Subsystem>
</oim:Transfer>
)xml"_lines);
}

TEST_F(Transfer, OfTheUmlViewDeclaresOnlyOimAndUml) {
    EXPECT_EQ(root({{"Model", "UML"}, {"ERD TypeSet", "XML Datatypes"}, {"DBM TypeSet", "Oracle 7.3"}}),
              R"xml(
<oim:Transfer
xmlns:oim="http://www.mdcinfo.com/oim/oim.dtd"
xmlns:uml="http://www.mdcinfo.com/oim/uml.dtd"
>
)xml"_lines);
}

TEST_F(Transfer, OfTheErdViewWithoutATypeSetDeclaresNoDtmAndWritesNoSet) {
    for (const char* choice : {"None", "Default", "no such set"}) {
        const std::string text = document({{"Model", "ERD"}, {"ERD TypeSet", choice}});
        EXPECT_THAT(text, HasSubstr("xmlns:erd")) << choice;
        EXPECT_THAT(text, Not(HasSubstr("dtm"))) << choice;
        EXPECT_THAT(text, Not(HasSubstr("TypeSet"))) << choice;
    }
}

TEST_F(Transfer, OfTheDbmViewNeverDeclaresDtm) {
    EXPECT_THAT(root({{"Model", "DBM"}, {"DBM TypeSet", "XML Datatypes"}}), Not(HasSubstr("dtm")));
    EXPECT_THAT(root({{"Model", "ERD and DBM"}, {"ERD TypeSet", "None"}, {"DBM TypeSet", "XML Datatypes"}}),
                Not(HasSubstr("dtm")));
}

TEST_F(Transfer, NumbersTheSubsystemOneWithoutAssociationClasses) {
    model.addTable("T", {"id"});
    EXPECT_THAT(document({{"Model", "DBM"}}), HasSubstr("<uml:Subsystem name=\"Sales\" oim:id=\"_1\">\n"));
}

TEST_F(Transfer, NumbersTheSubsystemBehindTheAssociationClasses) {
    model.addAssociation("first")->setAssociationClass(model.addTable("A"));
    model.addAssociation("second")->setAssociationClass(model.addTable("B"));
    EXPECT_THAT(document({{"Model", "DBM"}}), HasSubstr("<uml:Subsystem name=\"Sales\" oim:id=\"_3\">\n"));
}

TEST_F(Transfer, WritesTheModelsNameInTheSubsystemExactlyAsStored) {
    model.model()->setName("R&D \"new\" <x>");
    const std::string text = document({{"Model", "DBM"}});
    EXPECT_THAT(text, HasSubstr("<uml:Subsystem name=\"R&D \"new\" <x>\" oim:id=\"_1\">\n"));
    EXPECT_THAT(text, HasSubstr("name=\"R&amp;D &quot;new&quot; &lt;x&gt; (physical)\""));
}

TEST_F(Transfer, WritesAnEmptyModelNameInTheSubsystem) {
    model.model()->setName("");
    EXPECT_THAT(document({{"Model", "DBM"}}), HasSubstr("<uml:Subsystem name=\"\" oim:id=\"_1\">\n"));
}

TEST_F(Transfer, NeverIndentsTheDeclaration) {
    const std::string text = document({{"Model", "DBM"}, {"XML Indentation (pretty printing)", "  "}});
    EXPECT_THAT(text, StartsWith("<?xml version=\"1.0\" encoding=\"UTF-8\" ?>\n<oim:Transfer\n  xmlns:oim="));
    EXPECT_THAT(text, HasSubstr("\n>\n  <oim:TransferHeader\n    Exporter=\"Tarvolane\"\n"));
    EXPECT_THAT(text,
                HasSubstr("\n  />\n  <uml:Subsystem name=\"Sales\" oim:id=\"_1\">\n    <uml:Namespace"));
}

}  // namespace
