// Documents that are large, deep, or written in unusual ways.
#include <gmock/gmock.h>

#include "Documents.h"
#include "model_document/ModelDocumentReader.h"

namespace {

using documents::firstElement;
using documents::read;
using documents::RecordingContext;
using documents::refusalOf;
using documents::withElements;
using documents::withModel;
using documents::withNestedPackages;
using readers::Source;
using readers::SourceError;
using testing::EndsWith;
using testing::StartsWith;

std::string repeat(const std::string& text, std::size_t times) {
    std::string repeated;
    for (std::size_t i = 0; i < times; ++i) {
        repeated += text;
    }
    return repeated;
}

TEST(DocumentLimits, ThousandNestedPackagesAreRead) {
    const auto model = read(withNestedPackages(1000));
    const ZORPackage* package = model.get();
    int levels = 0;
    while (!package->getChildPackages().isEmpty()) {
        package = package->getChildPackages()[0];
        ++levels;
    }
    EXPECT_EQ(levels, 1000);
    EXPECT_EQ(package->getName(), "level 1000");
}

TEST(DocumentLimits, MoreThanThousandNestedPackagesAreRefused) {
    const std::string message = refusalOf(withNestedPackages(1001));
    EXPECT_THAT(message, StartsWith("line 3, column 34926, /model/children/0/packages/0/packages/0/"));
    EXPECT_THAT(message,
                EndsWith("/packages/0/packages/0: found packages nested deeper than 1000 levels; expected at "
                         "most 1000 levels"));
    EXPECT_LT(message.size(), 500U) << "a pointer of a thousand steps is told in part";
}

TEST(DocumentLimits, HundredThousandNestedPackagesAreRefusedLikewise) {
    EXPECT_THAT(refusalOf(withNestedPackages(100000)), EndsWith("expected at most 1000 levels"));
}

TEST(DocumentLimits, PackagesSideBySideAreNotNested) {
    const std::string package = R"({"kind": "package", "packages": [{}, {}]})";
    const auto model = read(withModel("\"children\": [" + package + repeat(", " + package, 1999) + "]"));
    EXPECT_EQ(model->getChildPackages().size(), 2000U);
}

TEST(DocumentLimits, DeepListsAreRefusedWhereverTheyStand) {
    const std::string open = repeat("[", 100000);
    EXPECT_EQ(refusalOf(open), "line 1, column 1: found a list; expected an object, the model document");
    EXPECT_EQ(refusalOf(withModel("\"types\": " + open)),
              "line 3, column 11, /model/types/0: found a list; expected an object");
    EXPECT_THAT(refusalOf(withModel("\"notes\": " + open)),
                EndsWith("/notes/0: found a list; expected a text"));
}

TEST(DocumentLimits, IgnoredValuesMayBeThousandLevelsDeep) {
    EXPECT_EQ(read(withModel("\"$x\": " + repeat("[", 1000) + repeat("]", 1000)))->getName(), "");
}

TEST(DocumentLimits, DeeperIgnoredValuesAreRefused) {
    const std::string message =
        refusalOf(withModel("\"$x\": " + repeat("{\"a\":", 1001) + "1" + repeat("}", 1001)));
    EXPECT_THAT(message, StartsWith("line 3, column 5007, /model/$x/a/a/"));
    EXPECT_THAT(message,
                EndsWith("found lists and objects nested deeper than 1000 levels; expected less nesting"));
}

TEST(DocumentLimits, DeepTextThatIsNoJsonIsRefusedWithoutGoingToItsEnd) {
    EXPECT_THAT(refusalOf(repeat("[", 1000000) + "\"unclosed"),
                EndsWith("found lists and objects nested deeper than 10000 levels; expected less nesting"));
}

TEST(DocumentLimits, LongTextsAreKept) {
    const std::string longText(5000000, 'x');
    const auto model = read(withModel("\"description\": \"" + longText + "\""));
    EXPECT_TRUE(model->getDescription() == longText);
}

TEST(DocumentLimits, LongTextsWithEscapesAreKept) {
    const auto model = read(withModel("\"description\": \"" + repeat("\\u00fc\\n", 500000) + "\""));
    EXPECT_TRUE(model->getDescription() == repeat("\xC3\xBC\n", 500000));
}

TEST(DocumentLimits, EscapesAreUndone) {
    const auto model = read(withModel(R"("name": "a\"b\\c\/d\b\f\n\r\t\u0041\u00e9\u20ac\ud83d\ude00")"));
    EXPECT_EQ(model->getName(), "a\"b\\c/d\b\f\n\r\tA\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80");
}

TEST(DocumentLimits, NulInATextIsKept) {
    const auto model = read(withModel(R"("name": "a\u0000b")"));
    EXPECT_EQ(model->getName().view(), std::string_view("a\0b", 3));
}

TEST(DocumentLimits, NulInAnIdTellsIdsApart) {
    const auto model =
        read(withModel(R"("types": [{"kind": "base", "id": "a"}, {"kind": "base", "id": "a\u0000b"},
                                          {"kind": "alias", "base": "a\u0000b"}])"));
    EXPECT_EQ(model->getTypes()[2]->getBaseType(), model->getTypes()[1]);
}

TEST(DocumentLimits, KeysAndWordsMayBeWrittenWithEscapes) {
    const auto model = read(withModel(R"("\u0074ypes": [{"\u0069d": "\u0074", "k\u0069nd": "\u0062ase"},
                                          {"base": "\u0074", "kind": "ali\u0061s"}], "designLevel": "bot\u0068")"));
    EXPECT_EQ(model->getTypes()[1]->getElementType(), ZOR_ALIAS_TYPE);
    EXPECT_EQ(model->getTypes()[1]->getBaseType(), model->getTypes()[0]);
}

TEST(DocumentLimits, IdsOfAllLengthsAreToldApart) {
    std::string types;
    std::string aliases;
    for (int length = 1; length <= 100; ++length) {
        const std::string id(static_cast<std::size_t>(length), 'x');
        types += "{\"kind\": \"base\", \"id\": \"" + id + "\"}, ";
        aliases += std::string(length == 1 ? "" : ", ") + "{\"kind\": \"alias\", \"base\": \"" + id + "\"}";
    }
    const auto model = read(withModel("\"types\": [" + types + aliases + "]"));
    for (std::size_t i = 0; i < 100; ++i) {
        EXPECT_EQ(model->getTypes()[100 + i]->getBaseType(), model->getTypes()[i]);
    }
}

TEST(DocumentLimits, LongChainsOfBasesAreRead) {
    std::string types = R"({"kind": "base", "id": "t0"})";
    for (int i = 1; i <= 100000; ++i) {
        types += ",\n{\"kind\": \"alias\", \"id\": \"t" + std::to_string(i) + "\", \"base\": \"t" +
                 std::to_string(i - 1) + "\"}";
    }
    const auto model = read(withModel("\"types\": [" + types + "]"));
    EXPECT_EQ(model->getTypes().last()->getActualType(), model->getTypes()[0]);
}

TEST(DocumentLimits, ByteOrderMarkIsPassedOver) {
    const auto model = read("\xEF\xBB\xBF" + withModel(R"("name": "x")"));
    EXPECT_EQ(model->getName(), "x");
}

TEST(DocumentLimits, ByteOrderMarkDoesNotCountAsAColumn) {
    EXPECT_EQ(refusalOf("\xEF\xBB\xBF[]"),
              "line 1, column 1: found a list; expected an object, the model document");
}

TEST(DocumentLimits, PositionsByIndexEndWhereTheirNumbersEnd) {
    const std::string attribute = R"({"type": "t"})";
    const std::string many = attribute + repeat(",\n" + attribute, 32767);
    const auto model = read(withElements(R"({"kind": "class", "attributes": [)" + many + "]}"));
    EXPECT_EQ(firstElement<ZORClass>(*model).getAttributes().last()->getPosition(), 32767);
    EXPECT_EQ(
        refusalOf(withElements(R"({"kind": "class", "attributes": [)" + many + ",\n" + attribute + "]}")),
        "line 32773, column 1, /model/children/0/elements/0/attributes/32768: found an attribute behind "
        "32768 "
        "others; expected an integer from 0 to 32767 as its \"position\"");
}

TEST(DocumentLimits, MoreAttributesMayBeGivenPositions) {
    const std::string attribute = R"({"type": "t", "position": 7})";
    const auto model = read(withElements(R"({"kind": "class", "attributes": [)" + attribute +
                                         repeat(",\n" + attribute, 40000) + "]}"));
    EXPECT_EQ(firstElement<ZORClass>(*model).getAttributeCount(), 40001U);
}

TEST(DocumentLimits, ReaderReportsProgressWhileItReads) {
    const auto source = Source::fromText(
        "document",
        withModel("\"types\": [{\"kind\": \"base\"}" + repeat(",\n{\"kind\": \"base\"}", 10000) + "]"));
    RecordingContext context;
    readers::modelDocumentReader().read(source, {}, context);
    EXPECT_GE(context.reports.size(), 3U);
    EXPECT_TRUE(std::is_sorted(context.reports.begin(), context.reports.end()));
    EXPECT_EQ(context.reports.back(), 10003U) << "the types, the model and the document";
}

TEST(DocumentLimits, InterruptLeavesAtOnceWithoutAModel) {
    const auto source = Source::fromText(
        "document",
        withModel("\"types\": [{\"kind\": \"base\"}" + repeat(",\n{\"kind\": \"base\"}", 10000) + "]"));
    RecordingContext context;
    context.interruptAt = 1;
    EXPECT_THROW(readers::modelDocumentReader().read(source, {}, context), SourceError);
    EXPECT_EQ(context.reports.size(), 1U);
}

}  // namespace
