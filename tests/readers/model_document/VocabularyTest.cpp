// The tables of the vocabulary: that they are sound, and that words mean what the model has for them.
#include "model_document/Vocabulary.h"

#include <gtest/gtest.h>

#include <set>

#include "Documents.h"

namespace {

using documents::firstElement;
using documents::read;
using documents::withElements;
using documents::withModel;
using readers::document::Family;
using readers::document::Field;
using readers::document::Kind;
using readers::document::kindsOf;

std::string quoted(const char* word) {
    return '"' + std::string(word) + '"';
}

struct WordRow {
    const char* word;
    int number;
};

TEST(DocumentWords, OfDesignLevels) {
    for (const auto& [word, number] : {WordRow{"both", 0}, {"logical", 1}, {"physical", 2}}) {
        EXPECT_EQ(read(withModel("\"designLevel\": " + quoted(word)))->getDesignLevel(), number) << word;
    }
}

TEST(DocumentWords, OfVisibility) {
    for (const auto& [word, number] :
         {WordRow{"public", 0}, {"protected", 1}, {"private", 2}, {"implementation", 3}}) {
        const std::string key = "\"visibility\": " + quoted(word) + "}";
        const auto model = read(withElements(
            R"({"kind": "class", "attributes": [{"type": "t", )" + key + R"(], "operations": [{)" + key +
            "], \"id\": \"c\", " + key + R"(, {"kind": "association", "roles": [{"class": "c", )" + key +
            R"(]}, {"kind": "generalization", "parents": ["c"], "children": ["c"], )" + key));
        const auto& cls = firstElement<ZORClass>(*model);
        EXPECT_EQ(cls.getVisibility(), number) << word;
        EXPECT_EQ(cls.getAttributes()[0]->getVisibility(), number) << word;
        EXPECT_EQ(cls.getOperations()[0]->getVisibility(), number) << word;
        EXPECT_EQ(cls.getGeneralizations()[0]->getVisibility(), number) << word;
        const auto& elements = static_cast<ZORDesignPackage*>(cls.getOwner())->getModelElements();
        EXPECT_EQ(static_cast<ZORAssociation*>(elements[1])->getRoles()[0]->getVisibility(), number) << word;
    }
}

TEST(DocumentWords, OfConcurrency) {
    for (const auto& [word, number] :
         {WordRow{"sequential", 0}, {"guarded", 1}, {"active", 2}, {"synchronous", 3}}) {
        const std::string key = "\"concurrency\": " + quoted(word) + "}";
        const auto model = read(withElements(R"({"kind": "class", "operations": [{)" + key + "], " + key));
        const auto& cls = firstElement<ZORClass>(*model);
        EXPECT_EQ(cls.getConcurrency(), number) << word;
        EXPECT_EQ(cls.getOperations()[0]->getConcurrency(), number) << word;
    }
}

TEST(DocumentWords, OfDirections) {
    for (const auto& [word, number] :
         {WordRow{"none", 0}, {"in", 1}, {"out", 2}, {"inout", 3}, {"return", 4}}) {
        const auto model = read(withElements(
            R"({"kind": "class", "templateArguments": [{"type": "t", "direction": )" + quoted(word) + "}]}"));
        EXPECT_EQ(firstElement<ZORClass>(*model).getArguments()[0]->getKind(), number) << word;
    }
}

TEST(DocumentWords, OfSortOrders) {
    for (const auto& [word, number] : {WordRow{"none", 0}, {"ascending", 1}, {"descending", 2}}) {
        const auto model = read(withElements(
            R"({"kind": "class", "attributes": [{"id": "a", "type": "t"}], "indexes": [{"members": [{"attribute": "a",
                "order": )" +
            quoted(word) + "}]}]}"));
        EXPECT_EQ(firstElement<ZORClass>(*model).getIndexes()[0]->getIndexMembers()[0]->getSortOrder(),
                  number)
            << word;
    }
}

TEST(DocumentWords, OfRules) {
    for (const auto& [word, number] : {WordRow{"none", 0},
                                       {"setDefault", 1},
                                       {"noAction", 2},
                                       {"restrict", 3},
                                       {"cascade", 4},
                                       {"setNull", 5}}) {
        for (const char* rule : {"updateRule", "deleteRule", "insertRule"}) {
            const auto model =
                read(withElements(R"({"kind": "association", "roles": [{"class": "c", )" + quoted(rule) +
                                  ": " + quoted(word) + R"(}]}, {"kind": "class", "id": "c"})"));
            const ZORAssociationRole& role = *firstElement<ZORAssociation>(*model).getRoles()[0];
            const std::string name = rule;
            EXPECT_EQ(role.getUpdateRule(), name == "updateRule" ? number : 0) << word;
            EXPECT_EQ(role.getDeleteRule(), name == "deleteRule" ? number : 0) << word;
            EXPECT_EQ(role.getInsertRule(), name == "insertRule" ? number : 0) << word;
        }
    }
}

TEST(DocumentWords, OfTimingAndEvents) {
    for (const auto& [word, number] : {WordRow{"before", 0}, {"after", 1}}) {
        for (const char* event : {"insert", "update", "delete"}) {
            const auto model =
                read(withElements(R"({"kind": "class", "operations": [{"kind": "trigger", "timing": )" +
                                  quoted(word) + ", \"events\": [" + quoted(event) + "]}]}"));
            const auto& trigger =
                dynamic_cast<ZORTrigger&>(*firstElement<ZORClass>(*model).getOperations()[0]);
            const std::string name = event;
            EXPECT_EQ(trigger.isAfter(), number != 0) << word;
            EXPECT_EQ(trigger.isInsert(), name == "insert");
            EXPECT_EQ(trigger.isUpdate(), name == "update");
            EXPECT_EQ(trigger.isDelete(), name == "delete");
        }
    }
}

TEST(DocumentRanges, TakeTheirEnds) {
    const auto model =
        read(withModel(R"("types": [{"kind": "base", "id": "t", "length": 2147483647, "scale": 0,
                                           "values": [{"code": -32768}, {"code": 32767}]}],
        "children": [{"kind": "package", "elements": [
            {"kind": "class", "id": "c", "classType": 9, "estimatedSize": -2147483648,
             "attributes": [{"type": "t", "position": 32767}, {"type": "t", "position": 0}]},
            {"kind": "association", "associationKind": 2147483647, "roles": [
                {"class": "c", "aggregationKind": 0}, {"class": "c", "aggregationKind": 2}]}]}])"));
    EXPECT_EQ(model->getTypes()[0]->getLength(), 2147483647);
    EXPECT_EQ(model->getTypes()[0]->getTypeValues()[0]->getCode(), -32768);
    EXPECT_EQ(model->getTypes()[0]->getTypeValues()[1]->getCode(), 32767);
    const auto& cls = firstElement<ZORClass>(*model);
    EXPECT_EQ(cls.getClassType(), 9);
    EXPECT_EQ(cls.getEstimatedSize(), -2147483647 - 1);
    EXPECT_EQ(cls.getAttributes()[0]->getPosition(), 32767);
    EXPECT_EQ(cls.getAttributes()[1]->getPosition(), 0);
}

TEST(DocumentRanges, MinusZeroIsZero) {
    const auto model = read(withModel(R"("types": [{"kind": "base", "length": -0}])"));
    EXPECT_EQ(model->getTypes()[0]->getLength(), 0);
}

TEST(Vocabulary, HasEachKeyOncePerKindAndRoomForItsMark) {
    for (int id = 0; id < static_cast<int>(Family::COUNT); ++id) {
        for (const Kind& kind : kindsOf(static_cast<Family>(id)).kinds) {
            std::set<std::string_view> keys;
            for (const Field& field : kind.fields) {
                EXPECT_TRUE(keys.insert(field.key).second) << kind.noun << ": " << field.key;
                EXPECT_FALSE(field.description.empty()) << kind.noun << ": " << field.key;
            }
            EXPECT_LE(kind.fields.size(), 64U) << kind.noun;
        }
    }
}

TEST(Vocabulary, DefaultsOfWordsAreTheirFirst) {
    for (int id = 0; id < static_cast<int>(Family::COUNT); ++id) {
        for (const Kind& kind : kindsOf(static_cast<Family>(id)).kinds) {
            for (const Field& field : kind.fields) {
                if (field.shape == readers::document::Shape::WORD) {
                    EXPECT_EQ(field.words.front().number, 0) << kind.noun << ": " << field.key;
                }
            }
        }
    }
}

}  // namespace
