// The catalogue as a whole, and its messages.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>
#include <string>

#include "CollectingLog.h"
#include "QLT_SQMDC.h"
#include "TypeSetTexts.h"

namespace {

using support::CollectingLog;

std::vector<std::string> allKeys() {
    std::vector<std::string> keys;
    for (const ZORTextLiteral* const* literal = QLT_SQMDC::getAllLiterals(); *literal != nullptr; ++literal) {
        keys.emplace_back((*literal)->getKey().view());
    }
    return keys;
}

void appendTypeSets(std::vector<std::string>& keys, const std::string& enumeration) {
    for (const char* text : TYPE_SET_TEXTS) {
        keys.push_back(valueName(enumeration, text));
    }
    keys.push_back(enumeration);
}

TEST(Catalogue, ListsEveryLiteralInTheOrderOfTheOptionsAndThenTheMessages) {
    std::vector<std::string> expected = {"MicrosoftSqlServerMdsMdcExportDescription",
                                         "BP_FILE_DEFAULT",
                                         "BP_FILE",
                                         "BP_MODEL_ENUM_UML",
                                         "BP_MODEL_ENUM_ERD",
                                         "BP_MODEL_ENUM_DBM",
                                         "BP_MODEL_ENUM_ERD_AND_DBM",
                                         "BP_MODEL_ENUM",
                                         "BP_MODEL",
                                         "BP_MS_REPOSITORY",
                                         "BP_UML_1_3_SUPPORT_ENUM_DEFAULT",
                                         "BP_UML_1_3_SUPPORT_ENUM_ENABLED",
                                         "BP_UML_1_3_SUPPORT_ENUM_PARTIAL",
                                         "BP_UML_1_3_SUPPORT_ENUM_DISABLED",
                                         "BP_UML_1_3_SUPPORT_ENUM",
                                         "BP_UML_1_3_SUPPORT"};
    appendTypeSets(expected, "BP_ERD_TYPESET_ENUM");
    expected.insert(expected.end(), {"BP_ERD_TYPESET", "BP_ERD_TYPESET_NAME_DEFAULT", "BP_ERD_TYPESET_NAME",
                                     "BP_ERD_TYPESET_VERSION_DEFAULT", "BP_ERD_TYPESET_VERSION"});
    appendTypeSets(expected, "BP_DBM_TYPESET_ENUM");
    expected.insert(expected.end(),
                    {"BP_DBM_TYPESET", "BP_DBM_TYPESET_NAME_DEFAULT", "BP_DBM_TYPESET_NAME",
                     "BP_DBM_TYPESET_VERSION_DEFAULT", "BP_DBM_TYPESET_VERSION",
                     "BP_XML_INDENTATION__PRETTY_PRINTING__DEFAULT", "BP_XML_INDENTATION__PRETTY_PRINTING_",
                     "MDC_E_UNABLE_TO_OPEN_OUTPUT_FILE", "MDC_E_INPUT_MODEL_PARAMETER_IS_NULL",
                     "MDC_E_UNKNOWN_TYPESET", "MDC_E_NAME_CLASH", "MDC_E_MULTIPLE_CATALOGS_DETECTED"});
    EXPECT_EQ(allKeys(), expected);
    EXPECT_EQ(allKeys().size(), 149U);
}

TEST(Catalogue, GivesNoKeyTwice) {
    const std::vector<std::string> keys = allKeys();
    EXPECT_EQ(std::set<std::string>(keys.begin(), keys.end()).size(), keys.size());
}

TEST(Catalogue, ListsTheSameLiteralsUnderBothNames) {
    EXPECT_EQ(QLT_SQMDC::listAllLiterals(), QLT_SQMDC::getAllLiterals());
}

TEST(Catalogue, NamesTheBridgeAndItsPrefix) {
    EXPECT_EQ(QLT_SQMDC::getDocumentId(), "ZORMicrosoftSqlServerMdsMdcExport");
    EXPECT_EQ(&QLT_SQMDC::getDocumentId(), &QLT_SQMDC::DOCUMENT_ID);
    EXPECT_EQ(QLT_SQMDC::PREFIX, "QLT_SQMDC");
}

TEST(Catalogue, FindsEveryLiteralByItsKey) {
    for (const ZORTextLiteral* const* literal = QLT_SQMDC::getAllLiterals(); *literal != nullptr; ++literal) {
        EXPECT_EQ(QLT_SQMDC::findTextLiteral((*literal)->getKey()), *literal) << (*literal)->getKey().view();
    }
}

TEST(Catalogue, DescribesTheBridgeUnderTheKeyOfTheHostsSpecification) {
    const ZORTextLiteral* description =
        QLT_SQMDC::findTextLiteral(QLLST::BRIDGE_SPEC_MICROSOFTSQLSERVERMDSMDC_EXPORT.getDescriptionId());
    ASSERT_EQ(description, &QLT_SQMDC::BRIDGE_SPEC_MICROSOFTSQLSERVERMDSMDC_EXPORT_DESCRIPTION);
    EXPECT_EQ(description->toString(), "");
}

TEST(Catalogue, FindsNothingForAKeyThatIsNotWhole) {
    EXPECT_EQ(QLT_SQMDC::findTextLiteral("BP_MODE"), nullptr) << "a prefix of a key";
    EXPECT_EQ(QLT_SQMDC::findTextLiteral("MDC_E_NAME_CLAS"), nullptr) << "a prefix of a key";
    EXPECT_EQ(QLT_SQMDC::findTextLiteral("BP_MODEL_"), nullptr) << "a key and more";
    EXPECT_EQ(QLT_SQMDC::findTextLiteral("bp_model"), nullptr) << "another letter case";
    EXPECT_EQ(QLT_SQMDC::findTextLiteral(ZORString("BP_MODEL\0", 9)), nullptr) << "a key and a NUL";
    EXPECT_EQ(QLT_SQMDC::findTextLiteral(""), nullptr);
    EXPECT_EQ(QLT_SQMDC::findTextLiteral("BRIDGE_SPEC_MICROSOFTSQLSERVERMDSMDC_EXPORT_DESCRIPTION"), nullptr)
        << "the literal's name, where the key is another";
}

struct MessageRow {
    const ZORMessageLiteral& literal;
    const char* code;
    const char* severity;
    const char* identifier;
    const char* text;
};

TEST(Messages, HaveTheirIdentifiersSeveritiesAndTexts) {
    const MessageRow rows[] = {
        {QLT_SQMDC::MDC_E_UNABLE_TO_OPEN_OUTPUT_FILE, "2", "FATAL", "QLT_SQMDC_F0002",
         "Unable to open or create output file '{0}'"},
        {QLT_SQMDC::MDC_E_INPUT_MODEL_PARAMETER_IS_NULL, "3", "FATAL", "QLT_SQMDC_F0003",
         "Input model pointer is null"},
        {QLT_SQMDC::MDC_E_UNKNOWN_TYPESET, "5", "ERROR", "QLT_SQMDC_E0005",
         "The typeset '{0}' was not found. Using the default '{1}' instead"},
        {QLT_SQMDC::MDC_E_NAME_CLASH, "6", "WARNING", "QLT_SQMDC_W0006",
         "Renaming the {0} '{1}' to '{2}' to avoid a name clash"},
        {QLT_SQMDC::MDC_E_MULTIPLE_CATALOGS_DETECTED, "7", "WARNING", "QLT_SQMDC_W0007",
         "This bridge does not support multiple catalogs. The source model has multiple catalogs."},
    };
    for (const MessageRow& row : rows) {
        EXPECT_EQ(row.literal.getCode(), row.code);
        EXPECT_EQ(row.literal.getSeverity(), row.severity) << row.code;
        EXPECT_EQ(row.literal.getMessageId(), row.identifier) << row.code;
        EXPECT_EQ(row.literal.getText(), row.text) << row.code;
    }
}

TEST(Messages, AreTheLiteralsThatHaveACode) {
    std::string codes;
    for (const ZORTextLiteral* const* literal = QLT_SQMDC::getAllLiterals(); *literal != nullptr; ++literal) {
        if (const auto* message = dynamic_cast<const ZORMessageLiteral*>(*literal)) {
            codes.append(message->getCode().view());
        }
    }
    EXPECT_EQ(codes, "23567");
}

TEST(Messages, TextsBehindTheIdentifierTellOfANameClash) {
    EXPECT_EQ(QLT_SQMDC::MDC_E_NAME_CLASH.getMessage("Entity", "A", "A/1"),
              "[QLT_SQMDC_W0006] Renaming the Entity 'A' to 'A/1' to avoid a name clash");
}

TEST(Messages, FillTheirPlaceholders) {
    EXPECT_EQ(QLT_SQMDC::MDC_E_UNABLE_TO_OPEN_OUTPUT_FILE.toString("/no/such/x.xml"),
              "Unable to open or create output file '/no/such/x.xml'");
    EXPECT_EQ(QLT_SQMDC::MDC_E_INPUT_MODEL_PARAMETER_IS_NULL.toString(), "Input model pointer is null");
    EXPECT_EQ(QLT_SQMDC::MDC_E_UNKNOWN_TYPESET.toString("Sybase 3", "SQL Server 7.x"),
              "The typeset 'Sybase 3' was not found. Using the default 'SQL Server 7.x' instead");
}

TEST(Messages, TakeAnArgumentThatLooksLikeAPlaceholderAsItIs) {
    EXPECT_EQ(QLT_SQMDC::MDC_E_NAME_CLASH.toString("{1}", "{2}", "{0}"),
              "Renaming the {1} '{2}' to '{0}' to avoid a name clash");
}

TEST(Messages, ReachTheLogWithTextIdentifierAndSeverity) {
    CollectingLog log;
    QLT_SQMDC::MDC_E_NAME_CLASH.log(log, "Type", "B", "B/2");
    QLT_SQMDC::MDC_E_UNKNOWN_TYPESET.log(log, "x", "y");
    QLT_SQMDC::MDC_E_MULTIPLE_CATALOGS_DETECTED.log(log);
    ASSERT_EQ(log.events().size(), 3U);
    EXPECT_EQ(log.events()[0].getText(), "Renaming the Type 'B' to 'B/2' to avoid a name clash");
    EXPECT_EQ(log.events()[0].getMessageId(), "QLT_SQMDC_W0006");
    EXPECT_EQ(log.events()[0].getSeverity(), ZORSeverity::WARNING);
    EXPECT_EQ(log.events()[0].getExtraText(), "");
    EXPECT_EQ(log.events()[1].getSeverity(), ZORSeverity::ERROR);
    EXPECT_EQ(log.events()[2].getSeverity(), ZORSeverity::WARNING);
}

TEST(Messages, AreThrownWithTheirIdentifier) {
    try {
        QLT_SQMDC::MDC_E_UNABLE_TO_OPEN_OUTPUT_FILE.throwException("out.xml");
        FAIL() << "the message was not thrown";
    } catch (const ZORException& exception) {
        EXPECT_EQ(exception.getText(), "[QLT_SQMDC_F0002] Unable to open or create output file 'out.xml'");
    }
    EXPECT_THROW(QLT_SQMDC::MDC_E_INPUT_MODEL_PARAMETER_IS_NULL.throwException(), ZORException);
}

TEST(Messages, FillTheCodeUpToFourDigits) {
    const ZORString prefix("P");
    EXPECT_EQ(ZORMessageLiteral("k", prefix, "12", "", "ERROR").getMessageId(), "P_E0012");
    EXPECT_EQ(ZORMessageLiteral("k", prefix, "1234", "", "ERROR").getMessageId(), "P_E1234");
    EXPECT_EQ(ZORMessageLiteral("k", prefix, "12345", "", "ERROR").getMessageId(), "P_E12345");
}

}  // namespace
