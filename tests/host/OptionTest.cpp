#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "ZORBridgeLib.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const ZORBridgeEnumValueLiteral UML("UML", "UML");
const ZORBridgeEnumValueLiteral ERD("ERD", "ERD");
const ZORBridgeEnumValueLiteral BOTH("BOTH", "ERD and DBM");
const ZORBridgeEnumValueLiteral* const VIEWS[] = {&UML, &ERD, &BOTH, nullptr};
const ZORBridgeOptionEnumerationLiteral VIEW_ENUM("VIEW_ENUM", VIEWS);
const ZORBridgeOptionLiteral VIEW("BP_MODEL", "Model", "Enumerated", "What is written", &VIEW_ENUM, UML);
const ZORTextLiteral DEFAULT_PATH("PATH", "/out.xml");
const ZORBridgeOptionLiteral PATH("BP_FILE", "File", "File", "Where it goes", nullptr, DEFAULT_PATH);

class OptionTest : public testing::Test {
  protected:
    OptionTest() {
        options.append(generateOption(PATH, "xml", "Default"));
        options.append(generateOption(VIEW));
    }
    std::string failureOf(const char* name, const char* value) {
        try {
            options.setValue(name, value);
        } catch (const ZORException& failure) {
            return failure.what();
        }
        return {};
    }
    ZOROptionList options;
};

TEST_F(OptionTest, IsWhatItsLiteralSays) {
    const ZOROption& view = *options.getOptions()[1];
    EXPECT_EQ(view.getName(), "BP_MODEL");
    EXPECT_EQ(view.getDisplayName(), "Model");
    EXPECT_EQ(view.getType(), "Enumerated");
    EXPECT_EQ(view.getDescription(), "What is written");
    EXPECT_EQ(view.getDefault(), "UML");
    EXPECT_EQ(view.getValue(), "UML");
    EXPECT_EQ(view.getFileExtension(), "");
    EXPECT_EQ(view.getFileText(), "");
    EXPECT_THAT(view.getPermittedValues(), ElementsAre("UML", "ERD", "ERD and DBM"));
    const ZOROption& path = *options.getOptions()[0];
    EXPECT_EQ(path.getValue(), "/out.xml");
    EXPECT_EQ(path.getFileExtension(), "xml");
    EXPECT_EQ(path.getFileText(), "Default");
    EXPECT_THAT(path.getPermittedValues(), IsEmpty());
}

TEST_F(OptionTest, IsFoundByDisplayNameWithLetterCase) {
    EXPECT_EQ(options.find("Model"), options.getOptions()[1]);
    EXPECT_EQ(options.find("model"), nullptr);
    EXPECT_EQ(options.find("BP_MODEL"), nullptr);
    EXPECT_EQ(options.getValue("Model"), "UML");
    EXPECT_EQ(options.getValue("Modell"), "");
}

TEST_F(OptionTest, TakesPermittedValues) {
    options.setValue("Model", "ERD and DBM");
    EXPECT_EQ(options.getValue("Model"), "ERD and DBM");
    options.setValue("File", "anything at all");
    EXPECT_EQ(options.getValue("File"), "anything at all");
    EXPECT_EQ(options.getOptions()[1]->getDefault(), "UML") << "the default stays";
}

TEST_F(OptionTest, RefusesOtherValuesAndNamesTheNearest) {
    EXPECT_EQ(failureOf("Model", "uml"),
              "The option \"Model\" does not permit the value \"uml\". Did you mean \"UML\"?");
    EXPECT_EQ(failureOf("Model", "ERD & DBM"),
              "The option \"Model\" does not permit the value \"ERD & DBM\". Did you mean \"ERD and DBM\"?");
    EXPECT_EQ(failureOf("Model", "zzzzzz"), "The option \"Model\" does not permit the value \"zzzzzz\".");
    EXPECT_EQ(options.getValue("Model"), "UML");
}

TEST_F(OptionTest, RefusesUnknownNamesAndNamesTheNearest) {
    EXPECT_EQ(failureOf("model", "UML"), "There is no option \"model\". Did you mean \"Model\"?");
    EXPECT_EQ(failureOf("Fiel", "x"), "There is no option \"Fiel\". Did you mean \"File\"?");
    EXPECT_EQ(failureOf("Colour", "x"), "There is no option \"Colour\".");
}

TEST_F(OptionTest, ListIsEmptyAfterRemovingAll) {
    options.removeAll();
    EXPECT_TRUE(options.getOptions().isEmpty());
    EXPECT_EQ(options.find("Model"), nullptr);
    EXPECT_EQ(failureOf("Model", "UML"), "There is no option \"Model\".");
}

TEST(Nearest, PutsTheFewestChangesFirstAndAtMostThree) {
    const std::vector<std::string_view> names = {"Orders", "Order", "Orderz", "Ordner", "Customer"};
    EXPECT_THAT(findNearest("order", names), ElementsAre("Order", "Orders", "Orderz"));
    EXPECT_THAT(findNearest("Odrer", names), ElementsAre("Order"));
    EXPECT_THAT(findNearest("Custmer", names), ElementsAre("Customer"));
}

TEST(Nearest, AreLongerNamesThatBeginLikeTheWordWhenNoneIsNearAsAWhole) {
    const std::vector<std::string_view> names = {"SQL Server 7.x", "Oracle 7.3", "Oracle 8.x", "Ora",
                                                 "SQLBase 5.0"};
    EXPECT_THAT(findNearest("sqlserver", names), ElementsAre("SQL Server 7.x"));
    EXPECT_THAT(findNearest("Orcale", names), ElementsAre("Oracle 7.3", "Oracle 8.x"));
    EXPECT_THAT(findNearest("Oracle 8x", names), ElementsAre("Oracle 8.x", "Oracle 7.3"));
    EXPECT_THAT(findNearest("Postgres", names), IsEmpty());
}

TEST(Nearest, FindsPartsOfNames) {
    EXPECT_THAT(findNearest("erd", {"ERD TypeSet Name", "DBM TypeSet Name"}),
                ElementsAre("ERD TypeSet Name"));
    EXPECT_THAT(findNearest("er", {"ERD TypeSet Name"}), IsEmpty()) << "two letters are in too many names";
}

TEST(Nearest, FindsNothingForWordsThatAreEmptyFarAwayOrEndless) {
    EXPECT_THAT(findNearest("", {"A"}), IsEmpty());
    EXPECT_THAT(findNearest("Customer", {"Order"}), IsEmpty());
    EXPECT_THAT(findNearest(std::string(100000, 'x'), {std::string(100000, 'x')}), IsEmpty());
    EXPECT_THAT(findNearest("x", {}), IsEmpty());
}

TEST(Nearest, AreDescribedAsTheEndOfASentence) {
    EXPECT_EQ(describeNearest("Ordr", {"Order"}), " Did you mean \"Order\"?");
    EXPECT_EQ(describeNearest("Ordr", {"Order", "Ord"}), " Did you mean \"Order\" or \"Ord\"?");
    EXPECT_EQ(describeNearest("Ordr", {"Order", "Ord", "Ordx"}),
              " Did you mean \"Order\", \"Ord\" or \"Ordx\"?");
    EXPECT_EQ(describeNearest("Colour", {"Order"}), "");
}

}  // namespace
