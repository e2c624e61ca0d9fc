#include "ModelDump.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

#include "CompleteModel.h"
#include "ModelChanges.h"

namespace support {
namespace {

using testing::HasSubstr;

TEST(ModelDump, OfEqualModelsIsEqual) {
    const CompleteModel one;
    const CompleteModel other;
    EXPECT_EQ(dumpModel(one.model), dumpModel(other.model));
}

TEST(ModelDump, NamesEveryObjectOnceWithItsClass) {
    const CompleteModel m;
    const std::string dump = dumpModel(m.model);
    for (const char* className : {"ZORModel",
                                  "ZORDatabaseCatalog",
                                  "ZORDesignPackage",
                                  "ZORDiagram",
                                  "ZORType",
                                  "ZORConcreteType",
                                  "ZORDerivedType",
                                  "ZORAliasType",
                                  "ZORClassType",
                                  "ZORTypeValue",
                                  "ZORClass",
                                  "ZORAttribute",
                                  "ZORAssociationRoleNameMap",
                                  "ZORCandidateKey",
                                  "ZORForeignKey",
                                  "ZORIndex",
                                  "ZORIndexMember",
                                  "ZORSynonym",
                                  "ZOROperation",
                                  "ZORTrigger",
                                  "ZORStoredProcedure",
                                  "ZORArgument",
                                  "ZORAssociation",
                                  "ZORAssociationRole",
                                  "ZORGeneralization",
                                  "ZORDependency",
                                  "ZORRealization",
                                  "ZORSQLViewEntity",
                                  "ZORSQLViewAttribute",
                                  "ZORNote"}) {
        EXPECT_THAT(dump, HasSubstr(" class " + std::string(className) + "\n"));
    }
    EXPECT_THAT(dump, HasSubstr("#0 code 2 class ZORModel\n  name \"Shop\"\n"));
}

TEST(ModelDump, TellsLineFeedsAndQuotesOfTextsFromItsOwn) {
    ZORModel one;
    one.setName("a\n  comments \"b\"");
    ZORModel other;
    other.setName("a");
    other.setComments("b");
    EXPECT_NE(dumpModel(one), dumpModel(other));
}

TEST(ModelDump, NumbersWhatIsNoPartOfTheModelWithoutFollowingIt) {
    ZORModel model;
    auto* cls = model.addChildPackage(std::make_unique<ZORDesignPackage>())
                    ->addModelElement(std::make_unique<ZORClass>());
    auto* attribute = cls->addAttribute(std::make_unique<ZORAttribute>());
    auto* map = attribute->addRoleNameMap(std::make_unique<ZORAssociationRoleNameMap>());
    // What is no object at all: following it would crash.
    alignas(ZORAttribute) static char bytes[sizeof(ZORAttribute)];
    map->setReferencedAttribute(reinterpret_cast<ZORAttribute*>(bytes));
    EXPECT_THAT(dumpModel(model), HasSubstr("  referencedAttribute outside0\n"));
}

TEST(ModelDump, NeedsNoStackForDeepNesting) {
    ZORModel model;
    ZORPackage* package = &model;
    for (int level = 0; level < 200000; ++level) {
        package = package->addChildPackage(std::make_unique<ZORDesignPackage>());
    }
    package->setName("deepest");
    EXPECT_THAT(dumpModel(model), HasSubstr("#200000 code 9 class ZORDesignPackage\n  name \"deepest\"\n"));
}

class ModelDumpShows : public testing::TestWithParam<ModelChange> {};

TEST_P(ModelDumpShows, TheChange) {
    CompleteModel m;
    const std::string before = dumpModel(m.model);
    GetParam().make(m);
    EXPECT_NE(dumpModel(m.model), before);
}

INSTANTIATE_TEST_SUITE_P(Of, ModelDumpShows, testing::ValuesIn(modelChanges()),
                         [](const testing::TestParamInfo<ModelChange>& row) { return row.param.what; });

}  // namespace
}  // namespace support
