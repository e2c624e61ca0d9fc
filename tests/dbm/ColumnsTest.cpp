// Columns: ordinal, initial value, nullability, size, identity and data type.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "ModelBuilder.h"
#include "TestBridge.h"

namespace {

using namespace support;
using ::testing::HasSubstr;
using ::testing::Not;

class Columns : public ::testing::Test {
  protected:
    Columns() { column = model.addColumn(model.addTable("T"), "c"); }

    std::string print(MDCModelView view = MODEL_VIEW_DBM, const char* typeSet = "None") const {
        TestBridge bridge(model.model(), view);
        bridge.dtmInit(bridge.dbmTypeSet_, DBM, typeSet, {}, {});
        bridge.printDBMAttribute(column, nullptr);
        return bridge.text();
    }
    std::string printAsViewColumn(const char* name, MDCModelView view = MODEL_VIEW_DBM,
                                  const char* typeSet = "None") const {
        TestBridge bridge(model.model(), view);
        bridge.dtmInit(bridge.dbmTypeSet_, DBM, typeSet, {}, {});
        const ZORString viewName(name);
        bridge.printDBMAttribute(column, &viewName);
        return bridge.text();
    }
    /// The attribute lines between "IsNullable" and the end of the start tag.
    std::string size(const char* dataType, int length, int scale) {
        column->setType(model.addType("type", dataType, length, scale));
        const std::string text = print();
        const std::string before = "IsNullable=\"0\"\n";
        const std::size_t from = text.find(before) + before.size();
        return text.substr(from, text.find(">\n", from) - from);
    }

    ModelBuilder model;
    ZORAttribute* column = nullptr;
};

TEST_F(Columns, CarryTheirAttributesInOneOrder) {
    column->setPhysicalName("C");
    column->setDescription("What");
    column->setComments("Why");
    column->setInitialValue("7");
    column->setOptional(true);
    column->setType(model.addType("price", "SQL_NUMERIC", 10, 2));
    EXPECT_EQ(print(), R"xml(
<dbm:LogicalColumn oim:id="_1" name="C"
description="What"
comments="Why"
Ordinal="1"
initialValue="7"
IsNullable="1"
NumericPrecision="10"
NumericScale="2"
>
</dbm:LogicalColumn>
)xml"_lines);
}

TEST_F(Columns, CountTheirOrdinalFromOne) {
    EXPECT_THAT(print(), HasSubstr("Ordinal=\"1\"\n"));
    column->setPosition(41);
    EXPECT_THAT(print(), HasSubstr("Ordinal=\"42\"\n"));
    column->setPosition(32767);
    EXPECT_THAT(print(), HasSubstr("Ordinal=\"32768\"\n"));
}

TEST_F(Columns, AlwaysTellWhetherTheyMayBeNull) {
    EXPECT_THAT(print(), HasSubstr("IsNullable=\"0\"\n"));
    column->setOptional(true);
    EXPECT_THAT(print(), HasSubstr("IsNullable=\"1\"\n"));
}

TEST_F(Columns, TakeTheirOwnInitialValueBeforeThatOfTheirType) {
    EXPECT_THAT(print(), Not(HasSubstr("initialValue")));
    column->getType()->setInitialValue("type's");
    EXPECT_THAT(print(), HasSubstr("initialValue=\"type's\"\n"));
    column->setInitialValue("own");
    EXPECT_THAT(print(), HasSubstr("initialValue=\"own\"\n"));
}

TEST_F(Columns, LookThroughAliasesForTypeSizeAndInitialValue) {
    ZORType* actual = model.addType("actual", "SQL_VARCHAR", 12);
    actual->setInitialValue("actual's");
    ZORAliasType* alias = model.addAlias("alias", model.addAlias("inner", actual));
    alias->setLength(99);
    alias->setInitialValue("alias's");
    column->setType(alias);
    EXPECT_EQ(print(MODEL_VIEW_DBM, "Oracle 7.3"), R"xml(
<dbm:LogicalColumn oim:id="_1" name="c"
Ordinal="1"
initialValue="actual's"
IsNullable="0"
Length="12"
>
<dbm:ColumnDataType>
<dbm:ColumnType oim:href="#_2"/>
</dbm:ColumnDataType>
</dbm:LogicalColumn>
)xml"_lines);
}

TEST_F(Columns, CallTheirSizeByTheCategoryOfTheirTypeAndLeaveZerosOut) {
    struct Row {
        const char* dataType;
        int length;
        int scale;
        const char* written;
    };
    constexpr Row ROWS[] = {
        {"SQL_NUMERIC", 10, 0, "NumericPrecision=\"10\"\n"},
        {"SQL_NUMERIC", 10, 2, "NumericPrecision=\"10\"\nNumericScale=\"2\"\n"},
        {"SQL_NUMERIC", 0, 2, "NumericScale=\"2\"\n"},
        {"SQL_NUMERIC", 0, 0, ""},
        {"SQL_BOOLEAN", 1, 0, "NumericPrecision=\"1\"\n"},
        {"SQL_VARCHAR", 40, 3, "Length=\"40\"\n"},
        {"SQL_VARCHAR", 0, 3, ""},
        {"SQL_LONGVARBINARY", 9, 0, "Length=\"9\"\n"},
        {"SQL_TIMESTAMP", 6, 1, "TimePrecision=\"6\"\n"},
        {"SQL_DATE", 0, 1, ""},
        {"no such type", 5, 5, "Length=\"5\"\n"},
        {"", 5, 0, "Length=\"5\"\n"},
        {"AUTOINCREMENT", 4, 0, "NumericPrecision=\"4\"\nIdentityIncrement=\"1\"\n"},
    };
    for (const Row& row : ROWS) {
        EXPECT_EQ(size(row.dataType, row.length, row.scale), row.written)
            << row.dataType << " " << row.length << " " << row.scale;
    }
}

TEST_F(Columns, AreIdentitiesOnlyByTheExactNameOfTheirType) {
    EXPECT_EQ(size("AUTOINCREMENT", 0, 0), "IdentityIncrement=\"1\"\n");
    for (const char* other :
         {"autoincrement", "Autoincrement", "AUTOINCREMENT ", "AUTO_INCREMENT", "SERIAL"}) {
        EXPECT_THAT(size(other, 0, 0), Not(HasSubstr("Identity"))) << other;
    }
}

TEST_F(Columns, ReferToTheirTypeInTheTypeSet) {
    EXPECT_EQ(print(MODEL_VIEW_DBM, "SQL Server 7.x"), R"xml(
<dbm:LogicalColumn oim:id="_1" name="c"
Ordinal="1"
IsNullable="0"
>
<dbm:ColumnDataType>
<dbm:ColumnType oim:href="#_2"/>
</dbm:ColumnDataType>
</dbm:LogicalColumn>
)xml"_lines);
}

TEST_F(Columns, NameNoTypeWithoutATypeSet) {
    EXPECT_THAT(print(MODEL_VIEW_DBM, "None"), Not(HasSubstr("ColumnDataType")));
    EXPECT_THAT(print(MODEL_VIEW_DBM, "Default"), Not(HasSubstr("ColumnDataType")));
}

TEST_F(Columns, OfOneTypeOrOneTargetTypeReferToOneMember) {
    ZORClass* table = model.addTable("U");
    ZORAttribute* a = model.addColumn(table, "a", model.addType("a", "SQL_NUMERIC"));
    ZORAttribute* b = model.addColumn(table, "b", model.addType("b", "SQL_DOUBLE", 3));
    TestBridge bridge(model.model());
    bridge.dtmInit(bridge.dbmTypeSet_, DBM, "Access 97", {}, {});
    bridge.printDBMDataType(a->getType());
    bridge.printDBMDataType(b->getType());
    bridge.printDBMDataType(a->getType());
    const std::string one =
        "<dbm:ColumnDataType>\n<dbm:ColumnType oim:href=\"#_1\"/>\n</dbm:ColumnDataType>\n";
    EXPECT_EQ(bridge.text(), one + one + one);
}

TEST_F(Columns, LinkToTheirAttributeInTheCombinedViewWhenItAndItsEntityAreLogical) {
    EXPECT_THAT(print(MODEL_VIEW_DBM), Not(HasSubstr("erd:")));
    EXPECT_EQ(print(MODEL_VIEW_ERD_AND_DBM, "SQL Server 7.x"), R"xml(
<dbm:LogicalColumn oim:id="_1" name="c"
Ordinal="1"
IsNullable="0"
>
<dbm:ColumnDataType>
<dbm:ColumnType oim:href="#_2"/>
</dbm:ColumnDataType>
<uml:ModelElementClientDependency>
<uml:Abstraction name="Derived" oim:id="_3">
<uml:DependencySupplier>
<erd:Attribute oim:href="#_4"/>
</uml:DependencySupplier>
</uml:Abstraction>
</uml:ModelElementClientDependency>
</dbm:LogicalColumn>
)xml"_lines);
    column->setDesignLevel(ZOR_PHYSICAL_ONLY);
    EXPECT_THAT(print(MODEL_VIEW_ERD_AND_DBM), Not(HasSubstr("erd:")));
    column->setDesignLevel(ZOR_LOGICAL_AND_PHYSICAL);
    column->getAssociatedClass()->setDesignLevel(ZOR_PHYSICAL_ONLY);
    EXPECT_THAT(print(MODEL_VIEW_ERD_AND_DBM), Not(HasSubstr("erd:")));
}

TEST_F(Columns, OfAViewHaveAFreshNumberTheViewsNameAndNoLinkInAnyView) {
    column->setPhysicalName("C");
    column->setDescription("What");
    column->setComments("Why");
    column->setInitialValue("7");
    column->setOptional(true);
    for (const MDCModelView view : {MODEL_VIEW_DBM, MODEL_VIEW_ERD_AND_DBM}) {
        EXPECT_EQ(printAsViewColumn("shown <as>", view, "SQL Server 7.x"), R"xml(
<dbm:LogicalColumn oim:id="_1"
name="shown &lt;as&gt;"
initialValue="7"
IsNullable="1"
>
<dbm:ColumnDataType>
<dbm:ColumnType oim:href="#_2"/>
</dbm:ColumnDataType>
</dbm:LogicalColumn>
)xml"_lines);
    }
}

TEST_F(Columns, OfAViewTakeAnotherNumberEveryTime) {
    TestBridge bridge(model.model());
    const ZORString name("v");
    bridge.printDBMAttribute(column, &name);
    bridge.printDBMAttribute(column, &name);
    const std::string text = bridge.text();
    EXPECT_THAT(text, HasSubstr("oim:id=\"_1\"\n"));
    EXPECT_THAT(text, HasSubstr("oim:id=\"_2\"\n"));
    EXPECT_EQ(bridge.getObjectUserData(column)[DBM], 0) << "the column's own number is another";
}

TEST_F(Columns, OfAViewWriteAnEmptyNameToo) {
    EXPECT_THAT(printAsViewColumn(""), HasSubstr("<dbm:LogicalColumn oim:id=\"_1\"\nname=\"\"\nIsNullable"));
}

}  // namespace
