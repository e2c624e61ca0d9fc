// Views with their columns, and the synonyms of tables.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "ModelBuilder.h"
#include "TestBridge.h"

namespace {

using namespace support;
using ::testing::HasSubstr;
using ::testing::Not;

class Views : public ::testing::Test {
  protected:
    Views() {
        table = model.addTable("Order", {"no", "total"});
        view = model.addView("V");
    }

    std::string print(const char* typeSet = "None", MDCModelView modelView = MODEL_VIEW_DBM) const {
        TestBridge bridge(model.model(), modelView);
        bridge.dtmInit(bridge.dbmTypeSet_, DBM, typeSet, {}, {});
        bridge.printDBMSQLViewEntity(view);
        return bridge.text();
    }

    ModelBuilder model;
    ZORClass* table = nullptr;
    ZORSQLViewEntity* view = nullptr;
};

TEST_F(Views, WithoutTextAndColumnsHaveNeitherBodyNorCollection) {
    EXPECT_EQ(print(), "<dbm:LogicalView oim:id=\"_1\" name=\"V\">\n</dbm:LogicalView>\n");
}

TEST_F(Views, WriteTheirTextAsTheirBody) {
    view->setSQLText("SELECT *\nFROM \"Order\" WHERE no < 5");
    view->setDescription("What");
    model.addViewColumn(view, "no", table->getAttribute("no"));
    EXPECT_EQ(print(), R"xml(
<dbm:LogicalView oim:id="_1" name="V"
description="What"
Body="SELECT *&#10;FROM &quot;Order&quot; WHERE no &lt; 5"
>
<dbm:ColumnSetColumns>
<dbm:LogicalColumn oim:id="_2"
name="no"
IsNullable="0"
>
</dbm:LogicalColumn>
</dbm:ColumnSetColumns>
</dbm:LogicalView>
)xml"_lines);
}

TEST_F(Views, WithoutATextWriteTheStatementThatTheirColumnsGive) {
    table->setPhysicalName("ORDERS");
    model.addViewColumn(view, "number", table->getAttribute("no"));
    model.addViewColumn(view, "total", table->getAttribute("total"));
    EXPECT_THAT(print(), HasSubstr("\nBody=\"SELECT ORDERS.no AS number, ORDERS.total FROM ORDERS\"\n"));
}

TEST_F(Views, WhoseColumnsGiveNoStatementHaveNoBody) {
    model.addViewColumn(view, "computed");
    EXPECT_THAT(print(), Not(HasSubstr("Body")));
}

TEST_F(Views, WriteAColumnOfATableUnderTheirOwnNameForIt) {
    ZORAttribute* total = table->getAttribute("total");
    total->setPhysicalName("TOTAL");
    total->setInitialValue("0");
    total->setOptional(true);
    total->setType(model.addType("money", "SQL_NUMERIC", 10, 2));
    model.addViewColumn(view, "sum", total)->setPhysicalName("SUM");
    EXPECT_EQ(part(print("Oracle 8.x", MODEL_VIEW_ERD_AND_DBM), "<dbm:ColumnSetColumns>",
                   "</dbm:ColumnSetColumns>\n"),
              R"xml(
<dbm:ColumnSetColumns>
<dbm:LogicalColumn oim:id="_2"
name="sum"
initialValue="0"
IsNullable="1"
NumericPrecision="10"
NumericScale="2"
>
<dbm:ColumnDataType>
<dbm:ColumnType oim:href="#_3"/>
</dbm:ColumnDataType>
</dbm:LogicalColumn>
</dbm:ColumnSetColumns>
)xml"_lines);
}

TEST_F(Views, WriteAnyOtherColumnWithItsTypeAlone) {
    ZORSQLViewAttribute* column = model.addViewColumn(view, "computed", table);
    column->setPhysicalName("COMPUTED");
    column->setDescription("What");
    column->setType(model.text);
    EXPECT_EQ(part(print("Oracle 8.x"), "<dbm:LogicalColumn", "</dbm:LogicalColumn>\n"), R"xml(
<dbm:LogicalColumn oim:id="_2" name="COMPUTED"
description="What"
>
<dbm:ColumnDataType>
<dbm:ColumnType oim:href="#_3"/>
</dbm:ColumnDataType>
</dbm:LogicalColumn>
)xml"_lines);
}

TEST_F(Views, WriteAnyOtherColumnWithoutATypeOrATypeSetAsAnEmptyElement) {
    ZORSQLViewAttribute* column = model.addViewColumn(view, "computed");
    EXPECT_THAT(print("Oracle 8.x"), HasSubstr("<dbm:LogicalColumn oim:id=\"_2\" name=\"computed\"/>\n"));
    column->setType(model.text);
    EXPECT_THAT(print("None"), HasSubstr("<dbm:LogicalColumn oim:id=\"_2\" name=\"computed\"/>\n"));
    column->setName("");
    EXPECT_THAT(print("None"), HasSubstr("<dbm:LogicalColumn oim:id=\"_2\" name=\"unnamed$2\"/>\n"));
}

TEST_F(Views, TakeTheTypeOfAColumnWithoutASourceAsItIs) {
    // An alias has a data type of its own: it is the one that counts here, other than for a table's column.
    ZORAliasType* alias = model.addAlias("alias", model.text);
    alias->setDataType("SQL_DATE");
    model.addViewColumn(view, "when")->setType(alias);
    ZORAttribute* column = table->getAttribute("no");
    column->setType(alias);
    model.addViewColumn(view, "of table", column);
    const std::string document =
        exportModel(*model.model(), {{"Model", "DBM"}, {"DBM TypeSet", "DB2/UDB 5"}});
    EXPECT_THAT(document, HasSubstr("\nname=\"DATE\"\n"));
    EXPECT_THAT(document, HasSubstr("\nname=\"VARCHAR\"\n"));
}

TEST_F(Views, KeepTheirColumnsInOrderWhateverTheirDesignLevel) {
    model.addViewColumn(view, "one")->setDesignLevel(ZOR_LOGICAL_ONLY);
    table->getAttribute("no")->setDesignLevel(ZOR_LOGICAL_ONLY);
    model.addViewColumn(view, "two", table->getAttribute("no"));
    model.addViewColumn(view, "three");
    const std::string text = print();
    EXPECT_LT(text.find("\"one\""), text.find("\"two\""));
    EXPECT_LT(text.find("\"two\""), text.find("\"three\""));
    EXPECT_NE(text.find("\"three\""), std::string::npos);
}

TEST_F(Views, CarryNoLinkInTheCombinedView) {
    model.addViewColumn(view, "no", table->getAttribute("no"));
    model.addViewColumn(view, "computed")->setType(model.text);
    EXPECT_THAT(print("Oracle 8.x", MODEL_VIEW_ERD_AND_DBM), Not(HasSubstr("erd:")));
}

TEST_F(Views, HaveANameInAnyCase) {
    view->setName("");
    EXPECT_THAT(print(), HasSubstr("<dbm:LogicalView oim:id=\"_1\" name=\"unnamed$1\">"));
}

class Synonyms : public Views {
  protected:
    std::string print() const {
        TestBridge bridge(model.model());
        bridge.setXMLID(table, DBM, 50);
        bridge.printDBMSynonyms(table);
        return bridge.text();
    }
};

TEST_F(Synonyms, HaveFreshNumbersAndReferToTheirTable) {
    model.addSynonym(table, "PURCHASE");
    model.addSynonym(table, "Sale")->setPhysicalName("SALE");
    EXPECT_EQ(print(), R"xml(
<dbm:TableSynonym oim:id="_1"
name="PURCHASE"
>
<dbm:TableSynonymTable>
<dbm:LogicalTable oim:href="#_50"/>
</dbm:TableSynonymTable>
</dbm:TableSynonym>
<dbm:TableSynonym oim:id="_2"
name="SALE"
>
<dbm:TableSynonymTable>
<dbm:LogicalTable oim:href="#_50"/>
</dbm:TableSynonymTable>
</dbm:TableSynonym>
)xml"_lines);
}

TEST_F(Synonyms, WithoutANameOrForTheLogicalModelAreWrittenToo) {
    ZORSynonym* synonym = model.addSynonym(table, "");
    synonym->setDesignLevel(ZOR_LOGICAL_ONLY);
    synonym->setDescription("not written");
    EXPECT_EQ(print(), R"xml(
<dbm:TableSynonym oim:id="_1">
<dbm:TableSynonymTable>
<dbm:LogicalTable oim:href="#_50"/>
</dbm:TableSynonymTable>
</dbm:TableSynonym>
)xml"_lines);
}

}  // namespace
