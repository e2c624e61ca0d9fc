// What documents are refused for, and in which words. Each row is a piece of a document and the whole
// message.
#include <gtest/gtest.h>

#include "Documents.h"

namespace {

using documents::hintOf;
using documents::nameOf;
using documents::refusalOf;
using documents::Row;
using documents::withElements;
using documents::withModel;

class Refusal : public testing::TestWithParam<Row> {};

TEST_P(Refusal, SaysWhereWhatWasFoundAndWhatWasExpected) {
    EXPECT_EQ(refusalOf(GetParam().text), GetParam().message);
}

const Row TEXT_ROWS[] = {
    {"EmptyDocument", "", "line 1, column 1: found the end of the document; expected a value"},
    {"OnlyBlanks", " \n\t", "line 2, column 2: found the end of the document; expected a value"},
    {"OnlyAByteOrderMark", "\xEF\xBB\xBF",
     "line 1, column 1: found the end of the document; expected a value"},
    {"TruncatedInAnObject", "{\"format\": \"oim-source-model\",\n\"version\": 1",
     "line 2, column 13: found the end of the document; expected \",\" or \"}\""},
    {"TruncatedInAText", "{\"format\": \"oim-sou",
     "line 1, column 12, /format: found a text without its end; expected a closing quotation mark"},
    {"TruncatedBehindAKey", "{\"format\"",
     "line 1, column 10, /format: found the end of the document; expected \":\" behind the key"},
    {"MoreBehindTheDocument", withModel("") + "{}",
     "line 5, column 1: found \"{\"; expected the end of the document"},
    {"BraceTooMany", withModel("") + "}", "line 5, column 1: found \"}\"; expected the end of the document"},
    {"BraceMissing", R"({"format": "oim-source-model", "version": 1, "model": {"name": "x"})",
     "line 1, column 68: found the end of the document; expected \",\" or \"}\""},
    {"CommaMissingInAnObject", withModel(R"("name": "a" "comments": "b")"),
     "line 3, column 13, /model: found a text; expected \",\" or \"}\""},
    {"CommaMissingInAList", withModel(R"("notes": ["a" "b"])"),
     "line 3, column 15, /model/notes: found a text; expected \",\" or \"]\""},
    {"CommaTooManyInAnObject", withModel(R"("name": "a",)"),
     "line 4, column 1, /model: found \"}\"; expected a key in quotation marks"},
    {"CommaTooManyInAList", withModel(R"("notes": ["a",])"),
     "line 3, column 15, /model/notes/1: found \"]\"; expected a value"},
    {"ColonMissing", withModel(R"("name" "a")"),
     "line 3, column 8, /model/name: found a text; expected \":\" behind the key"},
    {"WrongClosingBracket", withModel(R"("notes": ["a"})"),
     "line 3, column 14, /model/notes: found \"}\"; expected \",\" or \"]\""},
    {"KeyWithoutQuotationMarks", withModel("name: \"a\""),
     "line 3, column 1, /model: found name; expected a key in quotation marks"},
    {"TextInApostrophes", withModel("\"name\": 'a'"),
     "line 3, column 9, /model/name: found 'a'; expected a value"},
    {"Comment", withModel("// remark"),
     "line 3, column 1, /model: found //; expected a key in quotation marks"},
    {"MisspelledWord", withModel(R"("$x": [tru])"),
     "line 3, column 8, /model/$x/0: found tru; expected a value"},
    {"WordThatGoesOn", withModel(R"("$x": nullx)"),
     "line 3, column 7, /model/$x: found nullx; expected a value"},
    {"LineBreakInAText", withModel("\"name\": \"a\nb\""),
     "line 3, column 11, /model/name: found the character U+000A in a text; expected its escape \\u000a"},
    {"NulInAText", withModel(std::string("\"name\": \"a\0b\"", 13)),
     "line 3, column 11, /model/name: found the character U+0000 in a text; expected its escape \\u0000"},
    {"NulOutsideTexts", withModel(std::string("\"name\": \0", 9)),
     "line 3, column 9, /model/name: found the character U+0000; expected a value"},
    {"UnknownEscape", withModel(R"("name": "\x")"),
     R"(line 3, column 10, /model/name: found the escape \x; expected one of \" \\ \/ \b \f \n \r \t \u)"},
    {"ShortUnicodeEscape", withModel(R"("name": "\u12")"),
     R"(line 3, column 10, /model/name: found the escape \u12; expected four hexadecimal digits behind \u)"},
    {"LoneHighSurrogate", withModel(R"("name": "\ud83dx")"),
     R"(line 3, column 10, /model/name: found the escape \ud83d, half a surrogate pair; expected two escapes that make a pair)"},
    {"LoneLowSurrogate", withModel(R"("name": "\ude00")"),
     R"(line 3, column 10, /model/name: found the escape \ude00, half a surrogate pair; expected two escapes that make a pair)"},
    {"TwoHighSurrogates", withModel(R"("name": "\ud83d\ud83d")"),
     R"(line 3, column 10, /model/name: found the escape \ud83d, half a surrogate pair; expected two escapes that make a pair)"},
    {"BadEscapeInAnIgnoredValue", withModel(R"("$x": "\x")"),
     R"(line 3, column 8, /model/$x: found the escape \x; expected one of \" \\ \/ \b \f \n \r \t \u)"},
    {"LatinOneByte", withModel("\"name\": \"gr\xFCn\""),
     "line 3, column 12, /model/name: found the byte FC, which is not UTF-8; expected UTF-8 text"},
    {"EncodedSurrogate", withModel("\"name\": \"\xED\xA0\x80\""),
     "line 3, column 10, /model/name: found the byte ED, which is not UTF-8; expected UTF-8 text"},
    {"OverlongEncoding", withModel("\"name\": \"\xC0\x80\""),
     "line 3, column 10, /model/name: found the byte C0, which is not UTF-8; expected UTF-8 text"},
    {"Utf16", std::string("\xFF\xFE{\0", 4),
     "line 1, column 1: found the byte FF, which is not UTF-8; expected a value"},
    {"NumberWithLeadingZero", withModel(R"("types": [{"kind": "base", "length": 01}])"),
     "line 3, column 38, /model/types/0/length: found 01; expected a number as JSON writes it"},
    {"NumberWithPlus", withModel(R"("types": [{"kind": "base", "length": +1}])"),
     "line 3, column 38, /model/types/0/length: found +1; expected a value"},
    {"NumberWithoutFraction", withModel(R"("$x": 1.)"),
     "line 3, column 7, /model/$x: found 1.; expected a number as JSON writes it"},
    {"ColumnCountsCharacters", withModel("\"name\": \"\xC3\xBC\xE2\x82\xAC\xF0\x9F\x98\x80\", \"x\": 1"),
     "line 3, column 16, /model/x: found the key \"x\"; expected a key of a model"},
};

INSTANTIATE_TEST_SUITE_P(Text, Refusal, testing::ValuesIn(TEXT_ROWS), nameOf);

const Row FRAME_ROWS[] = {
    {"ListInsteadOfDocument", "[]", "line 1, column 1: found a list; expected an object, the model document"},
    {"TextInsteadOfDocument", " \"x\"",
     "line 1, column 2: found \"x\"; expected an object, the model document"},
    {"NumberInsteadOfDocument", "5", "line 1, column 1: found 5; expected an object, the model document"},
    {"EmptyObject", "{}",
     "line 1, column 1: found no \"format\" in this model document; expected \"oim-source-model\""},
    {"OtherFormat", R"({"format": "xmi"})",
     "line 1, column 12, /format: found \"xmi\"; expected \"oim-source-model\""},
    {"FormatInCapitals", R"({"format": "OIM-source-model"})",
     "line 1, column 12, /format: found \"OIM-source-model\"; expected \"oim-source-model\""},
    {"VersionMissing", R"({"format": "oim-source-model", "model": {}})",
     "line 1, column 1: found no \"version\" in this model document; expected the number 1"},
    {"LaterVersion", R"({"format": "oim-source-model", "version": 2, "model": {}})",
     "line 1, column 43, /version: found 2; expected the number 1"},
    {"VersionAsText", R"({"format": "oim-source-model", "version": "1", "model": {}})",
     "line 1, column 43, /version: found \"1\"; expected the number 1"},
    {"ModelMissing", R"({"format": "oim-source-model", "version": 1})",
     "line 1, column 1: found no \"model\" in this model document; expected an object"},
    {"ModelIsAList", R"({"format": "oim-source-model", "version": 1, "model": []})",
     "line 1, column 55, /model: found a list; expected an object"},
    {"UnknownKeyOfTheDocument", R"({"format": "oim-source-model", "versoin": 1})",
     "line 1, column 32, /versoin: found the key \"versoin\"; expected a key of a model document"},
};

INSTANTIATE_TEST_SUITE_P(Frame, Refusal, testing::ValuesIn(FRAME_ROWS), nameOf);

const Row KEY_ROWS[] = {
    {"UnknownKey", withModel(R"("nmae": "x")"),
     "line 3, column 1, /model/nmae: found the key \"nmae\"; expected a key of a model"},
    {"KeyInOtherLetterCase", withModel(R"("Name": "x")"),
     "line 3, column 1, /model/Name: found the key \"Name\"; expected a key of a model"},
    {"EmptyKey", withModel(R"("": "x")"),
     "line 3, column 1, /model/: found the key \"\"; expected a key of a model"},
    {"KeyThatNeedsEscapesInAPointer", withModel(R"("a/b~c\u001b": 1)"),
     R"(line 3, column 1, /model/a~1b~0c\u001b: found the key "a/b~c\u001b"; expected a key of a model)"},
    {"LongKey", withModel("\"" + std::string(100, 'k') + "\": 1"),
     "line 3, column 1, /model/" + std::string(100, 'k') + ": found the key \"" + std::string(59, 'k') +
         "...; expected a key of a model"},
    {"KeyTwice", withModel(R"("name": "a", "name": "b")"),
     "line 3, column 14, /model/name: found the key \"name\" a second time; expected each key once"},
    {"KeyTwiceOnceWithEscapes", withModel(R"("name": "a", "n\u0061me": "b")"),
     R"(line 3, column 14, /model/n\u0061me: found the key "n\u0061me" a second time; expected each key once)"},
    {"KindTwice", withModel(R"("types": [{"kind": "base", "kind": "base"}])"),
     "line 3, column 28, /model/types/0/kind: found the key \"kind\" a second time; expected each key once"},
    {"ListTwice", withModel(R"("types": [], "types": [])"),
     "line 3, column 14, /model/types: found the key \"types\" a second time; expected each key once"},
    {"BaseOfAConcreteType", withModel(R"("types": [{"kind": "concrete", "base": "t"}])"),
     "line 3, column 32, /model/types/0/base: found the key \"base\", which belongs to a derived type and an "
     "alias type; expected a key of a concrete type"},
    {"ClassOfABaseType", withModel(R"("types": [{"kind": "base", "class": "c"}])"),
     "line 3, column 28, /model/types/0/class: found the key \"class\", which belongs to a class type; "
     "expected a key of a base type"},
    {"TimingOfAnOperation", withElements(R"({"kind": "class", "operations": [{"timing": "after"}]})"),
     "line 5, column 35, /model/children/0/elements/0/operations/0/timing: found the key \"timing\", which "
     "belongs to a trigger; expected a key of an operation"},
    {"EventsOfAProcedure",
     withElements(R"({"kind": "class", "operations": [{"events": [], "kind": "procedure"}]})"),
     "line 5, column 35, /model/children/0/elements/0/operations/0/events: found the key \"events\", which "
     "belongs to a trigger; expected a key of a procedure"},
    {"PrimaryForeignKey",
     withElements(R"({"kind": "class", "keys": [{"kind": "foreign", "primary": false}]})"),
     "line 5, column 48, /model/children/0/elements/0/keys/0/primary: found the key \"primary\", which "
     "belongs to a candidate key; expected a key of a foreign key"},
    {"AttributesOfAView", withElements(R"({"kind": "view", "attributes": []})"),
     "line 5, column 18, /model/children/0/elements/0/attributes: found the key \"attributes\", which "
     "belongs to a class; expected a key of a view"},
    {"ElementsOfACatalog", withModel(R"("children": [{"kind": "catalog", "elements": []}])"),
     "line 3, column 34, /model/children/0/elements: found the key \"elements\", which belongs to a package; "
     "expected a key of a catalog"},
    {"IdOfATypeValue", withModel(R"("types": [{"kind": "base", "values": [{"id": "v"}]}])"),
     "line 3, column 40, /model/types/0/values/0/id: found the key \"id\"; expected a key of a type value"},
    {"NameOfARoleNameMap",
     withElements(R"({"kind": "class", "attributes": [{"type": "t", "roleNameMaps": [{"name": "m"}]}]})"),
     "line 5, column 66, /model/children/0/elements/0/attributes/0/roleNameMaps/0/name: found the key "
     "\"name\"; expected a key of a role-name map"},
    {"KindOfAnAttribute", withElements(R"({"kind": "class", "attributes": [{"kind": "attribute"}]})"),
     "line 5, column 35, /model/children/0/elements/0/attributes/0/kind: found the key \"kind\"; expected a "
     "key of an attribute"},
};

INSTANTIATE_TEST_SUITE_P(Keys, Refusal, testing::ValuesIn(KEY_ROWS), nameOf);

const Row VALUE_ROWS[] = {
    {"NumberAsText", withModel(R"("name": 5)"), "line 3, column 9, /model/name: found 5; expected a text"},
    {"NullAsText", withModel(R"("name": null)"),
     "line 3, column 9, /model/name: found null; expected a text"},
    {"NullAsId", withModel(R"("id": null)"), "line 3, column 7, /model/id: found null; expected a text"},
    {"ListAsText", withModel(R"("name": ["a"])"),
     "line 3, column 9, /model/name: found a list; expected a text"},
    {"TextAsListOfTexts", withModel(R"("notes": "x")"),
     "line 3, column 10, /model/notes: found \"x\"; expected a list of texts"},
    {"NullAsListOfTexts", withModel(R"("notes": null)"),
     "line 3, column 10, /model/notes: found null; expected a list of texts"},
    {"NumberInAListOfTexts", withModel(R"("notes": ["x", 5])"),
     "line 3, column 16, /model/notes/1: found 5; expected a text"},
    {"UnknownWord", withModel(R"("designLevel": "phsyical")"),
     "line 3, column 16, /model/designLevel: found \"phsyical\"; expected \"both\", \"logical\" or "
     "\"physical\""},
    {"WordInCapitals", withModel(R"("designLevel": "Both")"),
     "line 3, column 16, /model/designLevel: found \"Both\"; expected \"both\", \"logical\" or \"physical\""},
    {"NumberAsWord", withModel(R"("designLevel": 1)"),
     "line 3, column 16, /model/designLevel: found 1; expected \"both\", \"logical\" or \"physical\""},
    {"TextAsBoolean", withElements(R"({"kind": "class", "abstract": "true"})"),
     "line 5, column 31, /model/children/0/elements/0/abstract: found \"true\"; expected true or false"},
    {"NumberAsBoolean", withElements(R"({"kind": "class", "abstract": 1})"),
     "line 5, column 31, /model/children/0/elements/0/abstract: found 1; expected true or false"},
    {"NullAsBoolean", withElements(R"({"kind": "class", "abstract": null})"),
     "line 5, column 31, /model/children/0/elements/0/abstract: found null; expected true or false"},
    {"TextAsInteger", withModel(R"("types": [{"kind": "base", "length": "5"}])"),
     "line 3, column 38, /model/types/0/length: found \"5\"; expected an integer from 0 to 2147483647"},
    {"NullAsInteger", withModel(R"("types": [{"kind": "base", "length": null}])"),
     "line 3, column 38, /model/types/0/length: found null; expected an integer from 0 to 2147483647"},
    {"FractionAsInteger", withModel(R"("types": [{"kind": "base", "length": 1.5}])"),
     "line 3, column 38, /model/types/0/length: found 1.5; expected an integer from 0 to 2147483647"},
    {"IntegerWithAFraction", withModel(R"("types": [{"kind": "base", "length": 1.0}])"),
     "line 3, column 38, /model/types/0/length: found 1.0; expected an integer from 0 to 2147483647"},
    {"IntegerWithAnExponent", withModel(R"("types": [{"kind": "base", "length": 1e2}])"),
     "line 3, column 38, /model/types/0/length: found 1e2; expected an integer from 0 to 2147483647"},
    {"HugeExponent", withModel(R"("types": [{"kind": "base", "length": 1e999}])"),
     "line 3, column 38, /model/types/0/length: found 1e999; expected an integer from 0 to 2147483647"},
    {"NegativeLength", withModel(R"("types": [{"kind": "base", "length": -1}])"),
     "line 3, column 38, /model/types/0/length: found -1; expected an integer from 0 to 2147483647"},
    {"NegativeScale", withModel(R"("types": [{"kind": "base", "scale": -1}])"),
     "line 3, column 37, /model/types/0/scale: found -1; expected an integer from 0 to 2147483647"},
    {"LengthBeyond32Bits", withModel(R"("types": [{"kind": "base", "length": 2147483648}])"),
     "line 3, column 38, /model/types/0/length: found 2147483648; expected an integer from 0 to 2147483647"},
    {"IntegerBeyond64Bits", withModel(R"("types": [{"kind": "base", "length": 99999999999999999999}])"),
     "line 3, column 38, /model/types/0/length: found 99999999999999999999; expected an integer from 0 to "
     "2147483647"},
    {"IntegerBeyondAllBits",
     withModel(R"("types": [{"kind": "base", "length": )" + std::string(500, '9') + "}]"),
     "line 3, column 38, /model/types/0/length: found " + std::string(60, '9') +
         "...; expected an integer from 0 to 2147483647"},
    {"SizeBeyond32Bits", withElements(R"({"kind": "class", "estimatedSize": -2147483649})"),
     "line 5, column 36, /model/children/0/elements/0/estimatedSize: found -2147483649; expected an integer "
     "of at most 32 bits"},
    {"CodeBeyond16Bits", withModel(R"("types": [{"kind": "base", "values": [{"code": 32768}]}])"),
     "line 3, column 48, /model/types/0/values/0/code: found 32768; expected an integer from -32768 to "
     "32767"},
    {"CodeBelow16Bits", withModel(R"("types": [{"kind": "base", "values": [{"code": -32769}]}])"),
     "line 3, column 48, /model/types/0/values/0/code: found -32769; expected an integer from -32768 to "
     "32767"},
    {"PositionBeyond16Bits",
     withElements(R"({"kind": "class", "attributes": [{"type": "t", "position": 32768}]})"),
     "line 5, column 60, /model/children/0/elements/0/attributes/0/position: found 32768; expected an "
     "integer from 0 to 32767"},
    {"NegativePosition", withElements(R"({"kind": "class", "attributes": [{"type": "t", "position": -1}]})"),
     "line 5, column 60, /model/children/0/elements/0/attributes/0/position: found -1; expected an integer "
     "from 0 to 32767"},
    {"ClassTypeTooHigh", withElements(R"({"kind": "class", "classType": 10})"),
     "line 5, column 32, /model/children/0/elements/0/classType: found 10; expected an integer from 0 to 9"},
    {"NegativeClassType", withElements(R"({"kind": "class", "classType": -1})"),
     "line 5, column 32, /model/children/0/elements/0/classType: found -1; expected an integer from 0 to 9"},
    {"AggregationKindTooHigh",
     withElements(R"({"kind": "association", "roles": [{"class": "c", "aggregationKind": 3}]})"),
     "line 5, column 69, /model/children/0/elements/0/roles/0/aggregationKind: found 3; expected an integer "
     "from 0 to 2"},
    {"TextAsReferences",
     withElements(R"({"kind": "class", "keys": [{"kind": "candidate", "attributes": "a"}]})"),
     "line 5, column 64, /model/children/0/elements/0/keys/0/attributes: found \"a\"; expected a list of "
     "references to attributes of the same class"},
    {"NullInReferences",
     withElements(R"({"kind": "class", "keys": [{"kind": "candidate", "attributes": [null]}]})"),
     "line 5, column 65, /model/children/0/elements/0/keys/0/attributes/0: found null; expected a reference "
     "to an attribute of the same class"},
    {"NullAsReference", withElements(R"({"kind": "class", "attributes": [{"type": null}]})"),
     "line 5, column 43, /model/children/0/elements/0/attributes/0/type: found null; expected a reference to "
     "a type"},
    {"NullAsForeignKeyOfAMap",
     withElements(
         R"({"kind": "class", "attributes": [{"type": "t", "roleNameMaps": [{"foreignKey": null}]}]})"),
     "line 5, column 80, /model/children/0/elements/0/attributes/0/roleNameMaps/0/foreignKey: found null; "
     "expected a reference to a foreign key"},
    {"NumberAsNullableReference",
     withElements(R"({"kind": "class", "attributes": [{"type": "t", "roleNameMaps": [{"references": 0}]}]})"),
     "line 5, column 80, /model/children/0/elements/0/attributes/0/roleNameMaps/0/references: found 0; "
     "expected a reference to an attribute, or null"},
    {"HalfANull",
     withElements(
         R"({"kind": "class", "attributes": [{"type": "t", "roleNameMaps": [{"references": nul}]}]})"),
     "line 5, column 80, /model/children/0/elements/0/attributes/0/roleNameMaps/0/references: found nul; "
     "expected a value"},
    {"UnknownEvent",
     withElements(
         R"({"kind": "class", "operations": [{"kind": "trigger", "events": ["insert", "truncate"]}]})"),
     "line 5, column 75, /model/children/0/elements/0/operations/0/events/1: found \"truncate\"; expected "
     "\"insert\", \"update\" or \"delete\""},
    {"TextAsEvents",
     withElements(R"({"kind": "class", "operations": [{"kind": "trigger", "events": "insert"}]})"),
     "line 5, column 64, /model/children/0/elements/0/operations/0/events: found \"insert\"; expected a list "
     "of \"insert\", \"update\" and \"delete\""},
    {"ObjectAsListOfObjects", withModel(R"("types": {})"),
     "line 3, column 10, /model/types: found an object; expected a list of types"},
    {"TextInAListOfObjects", withModel(R"("types": ["t"])"),
     "line 3, column 11, /model/types/0: found \"t\"; expected an object"},
    {"LongTextIsCutBetweenCharacters",
     withModel("\"designLevel\": \"" + std::string(58, 'x') + "\xE2\x82\xAC\""),
     "line 3, column 16, /model/designLevel: found \"" + std::string(58, 'x') +
         "...; expected \"both\", \"logical\" or \"physical\""},
};

INSTANTIATE_TEST_SUITE_P(Values, Refusal, testing::ValuesIn(VALUE_ROWS), nameOf);

TEST(RefusalHint, ListsTheKeysThatAnObjectMayHave) {
    EXPECT_EQ(hintOf(withModel(R"("types": [{"kind": "base", "values": [{"nmae": "x"}]}])")),
              "a type value may have the keys \"name\", \"code\" and \"value\"");
    EXPECT_EQ(
        hintOf(withElements(R"({"kind": "class", "keys": [{"kind": "foreign", "unique": true}]})")),
        "a foreign key may have the keys \"kind\", \"id\", \"name\", \"physicalName\", \"description\", "
        "\"comments\", \"stereotype\", \"designLevel\", \"notes\", \"attributes\" and \"references\"");
}

TEST(RefusalHint, IsEmptyWhereTheMessageSaysItAll) {
    EXPECT_EQ(hintOf(withModel(R"("name": 5)")), "");
}

}  // namespace
