// The elements of a type set.

#include <gtest/gtest.h>

#include "ModelBuilder.h"
#include "TestBridge.h"

namespace {

using namespace support;

class TypeSetOutput : public ::testing::Test {
  protected:
    void use(const char* dataType) {
        bridge.getDTMTypeID(bridge.dbmTypeSet_, DBM, builder.addType(dataType, dataType));
    }
    std::string print() {
        bridge.printDTMTypeSet("dbm:ColumnTypeSet", "dbm:ColumnTypeSetColumnTypes", "dbm:ColumnType",
                               bridge.dbmTypeSet_);
        return bridge.text();
    }
    void choose(const char* choice, const char* name = "", const char* version = "") {
        bridge.dtmInit(bridge.dbmTypeSet_, DBM, choice, name, version);
    }

    ModelBuilder builder;
    TestBridge bridge{builder.model()};
};

TEST_F(TypeSetOutput, IsNothingWithoutATable) {
    choose("None");
    EXPECT_EQ(print(), "");
    choose("Default", "name", "version");
    EXPECT_EQ(print(), "");
    EXPECT_EQ(bridge.nextId_, 1);
}

TEST_F(TypeSetOutput, ListsTheTypesThatWereUsedInTheOrderOfTheirUse) {
    choose("SQL Server 7.x");
    use("SQL_VARCHAR");
    use("SQL_INTEGER");
    use("NVARCHAR2(20)");
    use("AUTOINCREMENT");
    use("SQL_DATE");
    bridge.indentationUnit_ = "  ";
    EXPECT_EQ(print(), R"(
<dbm:ColumnTypeSet oim:id="_4"
  name="Microsoft SQL Server"
  version="7.x"
>
  <dbm:ColumnTypeSetColumnTypes>
    <dbm:ColumnType oim:id="_1"
      name="varchar"
    />
    <dbm:ColumnType oim:id="_2"
      name="int"
    />
    <dbm:ColumnType oim:id="_3"
      name="datetime"
    />
  </dbm:ColumnTypeSetColumnTypes>
</dbm:ColumnTypeSet>
)"_lines);
    EXPECT_EQ(bridge.currentIndentation_, "");
}

TEST_F(TypeSetOutput, HasAnEmptyCollectionWhenNoTypeIsUsed) {
    choose("Oracle 8.x");
    EXPECT_EQ(print(), R"(
<dbm:ColumnTypeSet oim:id="_1"
name="Oracle"
version="8.x"
>
<dbm:ColumnTypeSetColumnTypes>
</dbm:ColumnTypeSetColumnTypes>
</dbm:ColumnTypeSet>
)"_lines);
}

TEST_F(TypeSetOutput, WritesNamesFromTheOptionsEscaped) {
    choose("Oracle 8.x", R"(<a & "b">)", "'1\n2'");
    EXPECT_EQ(part(print(), "name=", "'\"\n"),
              "name=\"&lt;a &amp; &quot;b&quot;&gt;\"\nversion=\"'1&#10;2'\"\n");
}

TEST_F(TypeSetOutput, WritesAnEmptyVersion) {
    choose("InterBase");
    EXPECT_EQ(count(print(), "\nname=\"InterBase\"\nversion=\"\"\n>\n"), 1U);
}

TEST_F(TypeSetOutput, WritesTheMissingFallbackAsAnEmptyName) {
    choose("Access 97");
    use("GEOMETRY");
    use("POINT");
    const std::string text = print();
    EXPECT_EQ(count(text, "<dbm:ColumnType oim:id=\"_1\"\nname=\"\"\n/>\n"), 1U);
    EXPECT_EQ(count(text, "<dbm:ColumnType "), 1U);
}

TEST_F(TypeSetOutput, PrintsOneTypeAsAnEmptyElement) {
    const DTMTypeMap row = {"SQL_DATE", -1, "Date/Time"};
    bridge.printDTMType("erd:DataType", &row, 12);
    EXPECT_EQ(bridge.text(), "<erd:DataType oim:id=\"_12\"\nname=\"Date/Time\"\n/>\n");
}

// Whole exports: which of the sets is written is the options' and the view's business.

class TypeSetExport : public ::testing::Test {
  protected:
    TypeSetExport() {
        builder.addTable("Item", {"id"});
        builder.addColumn(builder.addTable("Text"), "text", builder.text)->setOptional(true);
    }

    ModelBuilder builder;
};

TEST_F(TypeSetExport, NamesNoDataTypeWithNoneOrDefault) {
    for (const char* choice : {"None", "Default"}) {
        const std::string document = exportModel(
            *builder.model(), {{"Model", "ERD and DBM"}, {"ERD TypeSet", choice}, {"DBM TypeSet", choice}});
        EXPECT_EQ(count(document, "<dbm:LogicalColumn "), 2U) << choice;
        for (const char* element :
             {"dtm:TypeSet", "erd:DataType", "dbm:ColumnTypeSet", "dbm:ColumnType", "dbm:ColumnDataType"}) {
            EXPECT_EQ(count(document, "<" + std::string(element)), 0U) << choice << " " << element;
        }
    }
}

TEST_F(TypeSetExport, WritesTheSetOfEachViewBehindIt) {
    const std::string document = exportModel(*builder.model(), {{"Model", "ERD and DBM"},
                                                                {"ERD TypeSet", "XML Datatypes"},
                                                                {"ERD TypeSet Name", "X"},
                                                                {"ERD TypeSet Version", "2"},
                                                                {"DBM TypeSet", "SQL Server 7.x"}});
    const std::string erd = part(document, "<dtm:TypeSet ", "</dtm:TypeSet>");
    EXPECT_EQ(count(erd, "\nname=\"X\"\nversion=\"2\"\n"), 1U) << document;
    EXPECT_EQ(count(erd, "\nname=\"int\"\n/>"), 1U);
    EXPECT_EQ(count(erd, "\nname=\"string\"\n/>"), 1U);
    const std::string dbm = part(document, "<dbm:ColumnTypeSet ", "</dbm:ColumnTypeSet>");
    EXPECT_EQ(count(dbm, "\nname=\"Microsoft SQL Server\"\nversion=\"7.x\"\n"), 1U);
    EXPECT_EQ(count(dbm, "\nname=\"int\"\n/>"), 1U);
    EXPECT_EQ(count(dbm, "\nname=\"varchar\"\n/>"), 1U);
    EXPECT_LT(document.find("</erd:Model>"), document.find("<dtm:TypeSet "));
    EXPECT_LT(document.find("<dtm:TypeSet "), document.find("<dbm:ColumnTypeSet "));
}

}  // namespace
