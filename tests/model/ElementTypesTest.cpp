// Which codes the classes of the model answer for.

#include <gtest/gtest.h>

#include <memory>
#include <set>
#include <vector>

#include "ZOR.h"

namespace {

struct ClassRow {
    const char* description;
    std::unique_ptr<ZORObject> object;
    int code;
    std::set<int> bases;
};

std::vector<ClassRow> makeRows() {
    std::vector<ClassRow> rows;
    const auto add = [&rows](const char* description, std::unique_ptr<ZORObject> object, int code,
                             std::set<int> bases) {
        rows.push_back({description, std::move(object), code, std::move(bases)});
    };
    add("note", std::make_unique<ZORNote>(), 1, {});
    add("model", std::make_unique<ZORModel>(), 2, {144, 59});
    add("type", std::make_unique<ZORType>(), 3, {59});
    add("concrete type", std::make_unique<ZORConcreteType>(), 4, {3, 59});
    add("derived type", std::make_unique<ZORDerivedType>(), 5, {50, 3, 59});
    add("alias type", std::make_unique<ZORAliasType>(), 6, {3, 59});
    add("type value", std::make_unique<ZORTypeValue>(), 7, {59});
    add("design package", std::make_unique<ZORDesignPackage>(), 9, {144, 59});
    add("class", std::make_unique<ZORClass>(), 13, {75, 12, 59});
    add("attribute", std::make_unique<ZORAttribute>(), 14, {99, 77, 59});
    add("generalization", std::make_unique<ZORGeneralization>(), 16, {15, 12, 59});
    add("association", std::make_unique<ZORAssociation>(), 17, {15, 12, 59});
    add("association role", std::make_unique<ZORAssociationRole>(), 18, {59});
    add("role-name map", std::make_unique<ZORAssociationRoleNameMap>(), 19, {59});
    add("candidate key", std::make_unique<ZORCandidateKey>(), 21, {20, 59});
    add("foreign key", std::make_unique<ZORForeignKey>(), 22, {20, 59});
    add("operation", std::make_unique<ZOROperation>(), 23, {59});
    add("argument", std::make_unique<ZORArgument>(), 24, {59});
    add("view", std::make_unique<ZORSQLViewEntity>(), 25, {75, 12, 59});
    add("view column", std::make_unique<ZORSQLViewAttribute>(), 26, {99, 77, 59});
    add("dependency", std::make_unique<ZORDependency>(), 40, {15, 12, 59});
    add("realization", std::make_unique<ZORRealization>(), 41, {15, 12, 59});
    add("synonym", std::make_unique<ZORSynonym>(), 49, {59});
    add("index", std::make_unique<ZORIndex>(), 51, {59});
    add("index member", std::make_unique<ZORIndexMember>(), 52, {59});
    add("class type", std::make_unique<ZORClassType>(), 66, {3, 59});
    add("stored procedure", std::make_unique<ZORStoredProcedure>(), 67, {23, 59});
    add("trigger", std::make_unique<ZORTrigger>(), 68, {23, 59});
    add("catalog", std::make_unique<ZORDatabaseCatalog>(), 74, {141, 144, 59});
    add("diagram", std::make_unique<ZORDiagram>(), 90, {59});
    return rows;
}

TEST(ElementTypes, AnswerForTheirOwnCodeTheirBasesAndNothingElse) {
    for (ClassRow& row : makeRows()) {
        EXPECT_EQ(row.object->getElementType(), row.code) << row.description;
        row.bases.insert({0, 33, row.code});
        for (int code = -1; code <= 200; ++code) {
            EXPECT_EQ(row.object->isInstanceOf(static_cast<ZORElementType>(code)), row.bases.count(code) == 1)
                << row.description << " and the code " << code;
        }
    }
}

TEST(ElementTypes, OfAnObjectThatABridgeMakesIsTheRoots) {
    struct OwnAssociation : ZORAssociation {
        OwnAssociation() : ZORAssociation(ZOR_OBJECT) {}
    };
    const OwnAssociation association;
    EXPECT_EQ(association.getElementType(), 33);
    EXPECT_TRUE(association.isInstanceOf(ZOR_ASSOCIATION));
}

}  // namespace
