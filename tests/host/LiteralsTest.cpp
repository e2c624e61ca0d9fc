#include <gtest/gtest.h>

#include "CollectingLog.h"
#include "ZORI18n.h"

namespace {

using support::CollectingLog;

const ZORMessageLiteralOf<> PLAIN("PLAIN", "TEST", "7", "Plain text", "ERROR");
const ZORMessageLiteralOf<ZORString, ZORString, ZORString> THREE("THREE", "TEST", "12", "{0}, {1} and {2}",
                                                                 "WARNING");

struct Filling {
    const char* what;
    const char* text;
    const char* values[3];  ///< null: not set
    const char* filled;
};

const Filling FILLINGS[] = {
    {"no_placeholder", "text", {"a", "b", "c"}, "text"},
    {"in_order", "{0}{1}{2}", {"a", "b", "c"}, "abc"},
    {"out_of_order_and_twice", "{2} {0} {2}", {"a", "b", "c"}, "c a c"},
    {"a_value_with_a_placeholder_stays", "{0} {1}", {"{1}", "{0}", "c"}, "{1} {0}"},
    {"a_value_that_completes_a_placeholder_stays", "{{0}}", {"1", "b", "c"}, "{1}"},
    {"a_placeholder_without_a_value_stays", "{0} {1}", {"a", nullptr, nullptr}, "a {1}"},
    {"an_empty_value_vanishes", "<{0}>", {"", "b", "c"}, "<>"},
    {"other_numbers_stay", "{3} {9} {00}", {"a", "b", "c"}, "{3} {9} {00}"},
    {"other_braces_stay", "{ {} {a} } {0", {"x", "b", "c"}, "{ {} {a} } {0"},
    {"at_the_very_end", "is {0}", {"a", "b", "c"}, "is a"},
    {"brace_at_the_end", "x{", {"a", "b", "c"}, "x{"},
    {"signs_before_the_digits_stay", "{/} {-}", {"a", "b", "c"}, "{/} {-}"},
};

std::ostream& operator<<(std::ostream& out, const Filling& row) {
    return out << row.what;
}

class TextParameters : public testing::TestWithParam<Filling> {};

TEST_P(TextParameters, FillPlaceholders) {
    const Filling& row = GetParam();
    const ZORTextLiteral literal("KEY", row.text);
    ZORTextParameters parameters(literal);
    const ZORString values[] = {row.values[0], row.values[1], row.values[2]};
    for (std::size_t i = 0; i < 3; ++i) {
        if (row.values[i] != nullptr) {
            parameters.setValue(i, values[i]);
        }
    }
    EXPECT_EQ(parameters.createText().view(), row.filled);
}

INSTANTIATE_TEST_SUITE_P(Rows, TextParameters, testing::ValuesIn(FILLINGS),
                         [](const testing::TestParamInfo<Filling>& row) { return row.param.what; });

TEST(TextLiteral, GivesKeyAndText) {
    const ZORTextLiteral literal("KEY", "A {0}");
    EXPECT_EQ(literal.getKey(), "KEY");
    EXPECT_EQ(literal.getText(), "A {0}");
    EXPECT_EQ(literal.toString(), "A {0}");
}

TEST(MessageLiteral, BuildsItsIdentifierFromPrefixSeverityAndFourDigits) {
    EXPECT_EQ(PLAIN.getMessageId(), "TEST_E0007");
    EXPECT_EQ(THREE.getMessageId(), "TEST_W0012");
    EXPECT_EQ(ZORMessageLiteral("K", "P", "1234", "", "FATAL").getMessageId(), "P_F1234");
    EXPECT_EQ(ZORMessageLiteral("K", "P", "12345", "", "INFORMATION").getMessageId(), "P_I12345");
    EXPECT_EQ(THREE.getCode(), "12");
    EXPECT_EQ(THREE.getSeverity(), "WARNING");
}

TEST(MessageLiteral, LogsTextIdentifierAndSeverity) {
    CollectingLog log;
    THREE.log(log, "a", "b", "c");
    PLAIN.log(log);
    ASSERT_EQ(log.events().size(), 2U);
    EXPECT_EQ(log.events()[0].getSeverity(), ZORSeverity::WARNING);
    EXPECT_EQ(log.events()[1].getSeverity(), ZORSeverity::ERROR);
    EXPECT_EQ(log.events()[0].getExtraText(), "");
    EXPECT_EQ(log.lines(), "[TEST_W0012] a, b and c\n[TEST_E0007] Plain text\n");
}

TEST(MessageLiteral, ThrowsItsMessage) {
    EXPECT_EQ(THREE.toString("a", "b", "c"), "a, b and c");
    EXPECT_EQ(THREE.getMessage("a", "b", "c"), "[TEST_W0012] a, b and c");
    try {
        PLAIN.throwException();
        FAIL();
    } catch (const ZORException& failure) {
        EXPECT_EQ(failure.getText(), "[TEST_E0007] Plain text");
    }
}

TEST(Severity, HasAWordForEachValueAndBack) {
    for (const ZORSeverity severity :
         {ZORSeverity::INFORMATION, ZORSeverity::WARNING, ZORSeverity::ERROR, ZORSeverity::FATAL}) {
        EXPECT_EQ(getSeverity(getSeverityText(severity)), severity);
    }
    EXPECT_STREQ(getSeverityText(ZORSeverity::FATAL), "FATAL");
    EXPECT_EQ(getSeverity("warning"), ZORSeverity::ERROR) << "an unknown word";
}

TEST(HostCatalogue, HoldsTheMessagesOfEveryBridge) {
    EXPECT_EQ(QLCM::BRIDGE_UNEXPECTED_ERROR.getMessage("X"),
              "[QLCM_F0001] An unexpected error occurred in the bridge 'X'");
    EXPECT_EQ(QLCM::FILE_WRITE_ERROR.getMessage("/x", "full"),
              "[QLCM_F0003] Unable to write file '/x': full");
    EXPECT_EQ(QLCM::ICU_CONVERSION_ERROR.getMessageId(), "QLCM_W0002");
}

TEST(HostCatalogue, HasOneTextForEachBooleanValue) {
    EXPECT_EQ(QLCM::BOOLEAN_ENUM_VALUE_TRUE.getText(), "True");
    EXPECT_EQ(BLIB::BOOLEAN_ENUM_VALUE_TRUE.getText(), "True");
    EXPECT_EQ(QLCM::BOOLEAN_ENUM_VALUE_FALSE.getText(), "False");
    EXPECT_EQ(BLIB::BOOLEAN_ENUM_VALUE_FALSE.getText(), "False");
    ASSERT_EQ(QLCM::BOOLEAN_ENUM.size(), 2U);
    EXPECT_EQ(&QLCM::BOOLEAN_ENUM[0], &QLCM::BOOLEAN_ENUM_VALUE_TRUE);
}

TEST(HostCatalogue, FindsTheSpecificationOfABridge) {
    const ZORBridgeSpecificationLiteral* found =
        QLLST::findBridgeSpecification("MicrosoftSqlServerMdsMdcExport");
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(found->getVendorName(), "Microsoft");
    EXPECT_EQ(QLLST::findBridgeSpecification("Unknown"), nullptr);
}

}  // namespace
