// Data types as domains: which variants there are, and what a domain tells.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "ModelBuilder.h"
#include "TestBridge.h"

namespace {

using namespace support;
using ::testing::HasSubstr;
using ::testing::Not;

class Domains : public ::testing::Test {
  protected:
    Domains() { entity = model.addTable("E"); }

    std::string print(ZORType* type, int variant, const char* typeSet = "None") const {
        TestBridge bridge(model.model(), MODEL_VIEW_ERD);
        bridge.dtmInit(bridge.erdTypeSet_, ERD, typeSet, {}, {});
        bridge.printERDType(type, variant);
        return bridge.text();
    }
    /// The domains of the type in a whole document.
    std::string domains(const char* name, const char* typeSet = "None") const {
        const std::string text = exportModel(*model.model(), {{"Model", "ERD"}, {"ERD TypeSet", typeSet}});
        std::string found;
        std::string rest = part(text, "<erd:ModelDomains>", "</erd:ModelDomains>");
        const std::string begin = "<erd:Domain oim:id=\"_";
        for (std::size_t at = rest.find(begin); at != std::string::npos; at = rest.find(begin, at + 1)) {
            const std::string domain = part(rest.substr(at), begin, "</erd:Domain>\n");
            if (domain.find(std::string("\" name=\"") + name + "\"") != std::string::npos) {
                found += domain;
            }
        }
        return found;
    }
    ZORAttribute* use(ZORType* type, bool optional) {
        ZORAttribute* attribute = model.addColumn(entity, "a", type);
        attribute->setOptional(optional);
        return attribute;
    }

    ModelBuilder model;
    ZORClass* entity = nullptr;
};

TEST_F(Domains, OfATypeThatNothingUsesDoNotSayWhetherTheyMayBeNull) {
    model.addType("unused", "SQL_DATE");
    EXPECT_EQ(domains("unused"), "<erd:Domain oim:id=\"_8\" name=\"unused\">\n</erd:Domain>\n");
}

TEST_F(Domains, OfATypeThatOptionalAttributesUseMayBeNull) {
    use(model.number, true);
    use(model.number, true);
    EXPECT_EQ(domains("number"),
              "<erd:Domain oim:id=\"_5\" name=\"number\"\nIsNull=\"1\"\n>\n</erd:Domain>\n");
}

TEST_F(Domains, OfATypeThatMandatoryAttributesUseAreTheSecondOfThePairAlone) {
    ZORDerivedType* type = model.addDerived("d", model.number);
    use(type, false);
    const std::string text = domains("d");
    EXPECT_EQ(text, R"xml(
<erd:Domain oim:id="_6" name="d"
IsNull="0"
>
<erd:DomainParentDomain>
<erd:Domain oim:href="#_7"/>
</erd:DomainParentDomain>
</erd:Domain>
)xml"_lines);
    EXPECT_THAT(exportModel(*model.model(), {{"Model", "ERD"}}), Not(HasSubstr("_5\"")))
        << "the number of the nullable domain is never written";
}

TEST_F(Domains, OfATypeThatBothUseAreANullableOneAndANotNullOneWithItsTwinTwice) {
    ZORDerivedType* type = model.addDerived("d", model.number);
    use(type, true);
    use(type, false);
    EXPECT_EQ(domains("d"), R"xml(
<erd:Domain oim:id="_5" name="d"
IsNull="1"
>
<erd:DomainParentDomain>
<erd:Domain oim:href="#_8"/>
</erd:DomainParentDomain>
</erd:Domain>
<erd:Domain oim:id="_6" name="d"
IsNull="0"
>
<erd:DomainParentDomain>
<erd:Domain oim:href="#_5"/>
</erd:DomainParentDomain>
<erd:DomainParentDomain>
<erd:Domain oim:href="#_5"/>
</erd:DomainParentDomain>
</erd:Domain>
)xml"_lines);
}

TEST_F(Domains, OfAttributesThatAreLeftOutCountForNothing) {
    use(model.number, true)->setDesignLevel(ZOR_PHYSICAL_ONLY);
    EXPECT_THAT(domains("number"), Not(HasSubstr("IsNull")));
}

TEST_F(Domains, ReferToTheDomainOfTheirBaseThatThereIs) {
    struct Row {
        const char* description;
        bool optional;
        bool mandatory;
        int offset;  ///< of the referenced domain from the base's nullable one
    };
    constexpr Row ROWS[] = {{"unused", false, false, 0},
                            {"nullable", true, false, 0},
                            {"not null", false, true, 1},
                            {"both", true, true, 0}};
    for (const Row& row : ROWS) {
        TestBridge bridge(model.model(), MODEL_VIEW_ERD);
        ZORDerivedType* type = model.addDerived("d", model.number);
        int base = 0;
        if (row.optional) {
            base = bridge.getERDTypeID(model.number, 1);
        }
        if (row.mandatory) {
            base = bridge.getERDTypeID(model.number, 2) - 1;
        }
        if (base == 0) {
            base = 42;
            bridge.setXMLID(model.number, ERD, base);
        }
        bridge.printERDType(type, 0);
        EXPECT_THAT(bridge.text(), HasSubstr("<erd:DomainParentDomain>\n<erd:Domain oim:href=\"#_" +
                                             std::to_string(base + row.offset) + "\"/>\n"))
            << row.description;
        bridge.cleanup();
    }
}

TEST_F(Domains, OfABaseThatIsReferredToFirstByItsDerivedTypeGetItsNumberThere) {
    ZORDerivedType* type = model.addDerived("d", model.number);
    TestBridge bridge(model.model(), MODEL_VIEW_ERD);
    bridge.printERDType(type, 0);
    EXPECT_EQ(bridge.text(), R"xml(
<erd:Domain oim:id="_1" name="d">
<erd:DomainParentDomain>
<erd:Domain oim:href="#_3"/>
</erd:DomainParentDomain>
</erd:Domain>
)xml"_lines);
    EXPECT_EQ(bridge.getDomainVariants(model.number), 0) << "asking for whichever there is uses none";
    bridge.printERDType(model.number, 0);
    EXPECT_EQ(bridge.text(), "<erd:Domain oim:id=\"_3\" name=\"number\">\n</erd:Domain>\n");
}

TEST_F(Domains, OfAliasesReferToTheirOwnBaseAndTellTheDataTypeAndSizesOfTheActualType) {
    ZORAliasType* inner = model.addAlias("inner", model.text);
    ZORAliasType* outer = model.addAlias("outer", inner);
    for (ZORAliasType* alias : {inner, outer}) {
        alias->setDataType("SQL_DATE");
        alias->setLength(99);
        alias->setScale(9);
    }
    TestBridge bridge(model.model(), MODEL_VIEW_ERD);
    bridge.dtmInit(bridge.erdTypeSet_, ERD, "XML Datatypes", {}, {});
    bridge.setXMLID(outer, ERD, 60);
    bridge.setXMLID(inner, ERD, 70);
    bridge.setXMLID(model.text, ERD, 80);
    bridge.nextId_ = 90;
    ASSERT_EQ(bridge.getDTMTypeID(bridge.erdTypeSet_, ERD, model.text), 90);
    bridge.printERDType(outer, 1);
    EXPECT_EQ(bridge.text(), R"xml(
<erd:Domain oim:id="_60" name="outer"
Precision="40"
IsNull="1"
>
<erd:DomainParentDomain>
<erd:Domain oim:href="#_70"/>
</erd:DomainParentDomain>
<erd:DomainDefaultType>
<erd:DataType oim:href="#_90"/>
</erd:DomainDefaultType>
</erd:Domain>
)xml"_lines);
}

TEST_F(Domains, WithoutABaseHaveNoParent) {
    auto* alias = model.addType<ZORAliasType>("alias", "SQL_DATE");
    auto* derived = model.addType<ZORDerivedType>("derived", "SQL_DATE");
    EXPECT_THAT(print(alias, 1), Not(HasSubstr("Parent")));
    EXPECT_THAT(print(derived, 0), Not(HasSubstr("Parent")));
    EXPECT_THAT(print(model.number, 2), Not(HasSubstr("Parent")));
}

TEST_F(Domains, TellPrecisionAndScaleUnlessZero) {
    ZORType* type = model.addType("t", "SQL_NUMERIC", 10, 2);
    EXPECT_THAT(print(type, 0), HasSubstr("name=\"t\"\nPrecision=\"10\"\nScale=\"2\"\n>"));
    type->setLength(0);
    EXPECT_THAT(print(type, 0), HasSubstr("name=\"t\"\nScale=\"2\"\n>"));
    type->setScale(0);
    EXPECT_THAT(print(type, 0), HasSubstr("name=\"t\">"));
}

TEST_F(Domains, CarryNameAndTextsOfTheirTypeAndNoNameForATypeWithoutOne) {
    ZORType* type = model.addType("", "SQL_DATE");
    type->setPhysicalName("not written");
    type->setDescription("What");
    type->setComments("Why");
    EXPECT_EQ(print(type, 2), R"xml(
<erd:Domain oim:id="_2"
description="What"
comments="Why"
IsNull="0"
>
</erd:Domain>
)xml"_lines);
}

TEST_F(Domains, NameADataTypeOnlyWithATypeSet) {
    use(model.number, true);
    for (const char* none : {"None", "Default"}) {
        EXPECT_THAT(exportModel(*model.model(), {{"Model", "ERD"}, {"ERD TypeSet", none}}),
                    Not(HasSubstr("erd:DomainDefaultType")));
    }
    EXPECT_EQ(domains("number", "XML Datatypes"), R"xml(
<erd:Domain oim:id="_5" name="number"
IsNull="1"
>
<erd:DomainDefaultType>
<erd:DataType oim:href="#_7"/>
</erd:DomainDefaultType>
</erd:Domain>
)xml"_lines);
}

TEST_F(Domains, OfADerivedTypeHoldItsDefaultAndItsValues) {
    ZORDerivedType* type = model.addDerived("grade", model.text, 1);
    type->setInitialValue("B");
    model.addValue(type, "good", 1, "G");
    model.addValue(type, "", 0, "");
    model.addValue(type, "bad", -2, "<B>");
    EXPECT_EQ(print(type, 1, "XML Datatypes"), R"xml(
<erd:Domain oim:id="_1" name="grade"
Precision="1"
IsNull="1"
>
<erd:DomainParentDomain>
<erd:Domain oim:href="#_3"/>
</erd:DomainParentDomain>
<erd:DomainDefaultType>
<erd:DataType oim:href="#_5"/>
</erd:DomainDefaultType>
<erd:DomainDefaultValue>
<erd:Value oim:id="_6"
StoredValue="B"
/>
</erd:DomainDefaultValue>
<erd:DomainValidationRule>
<erd:ValidationRule oim:id="_7">
<erd:ValidationRuleValidValues>
<erd:Value oim:id="_8"
name="good"
NumericValue="1"
StoredValue="G"
/>
<erd:Value oim:id="_9"
NumericValue="0"
/>
<erd:Value oim:id="_10"
name="bad"
NumericValue="-2"
StoredValue="&lt;B&gt;"
/>
</erd:ValidationRuleValidValues>
</erd:ValidationRule>
</erd:DomainValidationRule>
</erd:Domain>
)xml"_lines);
}

TEST_F(Domains, OfADerivedTypeWithoutADefaultHoldNone) {
    ZORDerivedType* type = model.addDerived("d", model.text);
    model.addValue(type, "one", 1, "1");
    EXPECT_THAT(print(type, 0), Not(HasSubstr("DomainDefaultValue")));
    EXPECT_THAT(print(type, 0), HasSubstr("DomainValidationRule"));
}

TEST_F(Domains, OfAnAliasOfADerivedTypeHoldTheAliasesOwnDefaultAndTheTypesValues) {
    ZORDerivedType* type = model.addDerived("d", model.text);
    type->setInitialValue("of the type");
    model.addValue(type, "one", 1, "1");
    ZORAliasType* alias = model.addAlias("a", type);
    EXPECT_THAT(print(alias, 0), HasSubstr(R"xml(
<erd:DomainDefaultValue>
<erd:Value oim:id="_5"/>
</erd:DomainDefaultValue>
<erd:DomainValidationRule>
)xml"_lines))
        << "the stored value is left out when the alias has none of its own";
    alias->setInitialValue("of the alias");
    EXPECT_THAT(print(alias, 0), HasSubstr("<erd:Value oim:id=\"_5\"\nStoredValue=\"of the alias\"\n/>\n"));
    type->setInitialValue("");
    EXPECT_THAT(print(alias, 0), Not(HasSubstr("DomainDefaultValue")))
        << "the actual type decides whether there is a default";
}

TEST_F(Domains, OfOtherTypesHoldNeitherDefaultNorValues) {
    for (ZORType* type :
         std::initializer_list<ZORType*>{model.addType("c", "SQL_DATE"), model.addType<ZORType>("b", ""),
                                         model.addType<ZORAliasType>("a", "")}) {
        type->setInitialValue("x");
        model.addValue(type, "one", 1, "1");
        EXPECT_THAT(print(type, 0), Not(HasSubstr("erd:Value"))) << type->getName().view();
        EXPECT_THAT(print(type, 0), Not(HasSubstr("Rule"))) << type->getName().view();
    }
}

TEST_F(Domains, NeverTellARange) {
    ZORDerivedType* type = model.addDerived("d", model.number);
    type->setLowerBound("1");
    type->setUpperBound("9");
    EXPECT_EQ(
        print(type, 0),
        "<erd:Domain oim:id=\"_1\" name=\"d\">\n<erd:DomainParentDomain>\n<erd:Domain oim:href=\"#_3\"/>\n"
        "</erd:DomainParentDomain>\n</erd:Domain>\n");
}

TEST_F(Domains, OfAllTypesStandInTheModelsOrder) {
    ZORDerivedType* derived = model.addDerived("derived", model.text);
    use(derived, false);
    const std::string text = exportModel(*model.model(), {{"Model", "ERD"}});
    const auto at = [&](const char* name) {
        return text.find(std::string("name=\"") + name + "\"", text.find("<erd:ModelDomains>"));
    };
    EXPECT_LT(at("number"), at("text"));
    EXPECT_LT(at("text"), at("derived"));
    EXPECT_NE(at("derived"), std::string::npos);
}

TEST(DomainsDeathTest, OfAnUnknownVariantEndTheProgramAndNameTheSource) {
    ModelBuilder model;
    TestBridge bridge(model.model(), MODEL_VIEW_ERD);
    bridge.getDomainVariants(model.number) = 4;
    EXPECT_DEATH(bridge.printERDModelDomains(model.model()), "false.*MicrosoftSqlServerMdsMdcERDExport.*572");
}

}  // namespace
