// Unique keys, foreign keys and indexes of a table.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "ModelBuilder.h"
#include "TestBridge.h"

namespace {

using namespace support;
using ::testing::HasSubstr;
using ::testing::Not;

class Keys : public ::testing::Test {
  protected:
    Keys() { table = model.addTable("T", {"a", "b", "c"}); }

    std::string print(ZORKey* key, MDCModelView view = MODEL_VIEW_DBM) const {
        TestBridge bridge(model.model(), view);
        bridge.printDBMKey(key);
        return bridge.text();
    }
    bool isWritten(ZORCandidateKey* key) const {
        const TestBridge bridge(nullptr);
        const bool written = bridge.isExportableDBMCandidateKey(key);
        EXPECT_EQ(bridge.isExportableDBMCandidateKey(key), written) << "the second answer is the first one";
        key->setGeneralPointer(nullptr);
        return written;
    }
    void makeLogical(const char* column) const {
        table->getAttribute(column)->setDesignLevel(ZOR_LOGICAL_ONLY);
    }

    ModelBuilder model;
    ZORClass* table = nullptr;
};

TEST_F(Keys, ThatAreUniqueTellOnlyWhenTheyArePrimary) {
    EXPECT_EQ(print(model.addKey(table, "UK", {"a"})), R"xml(
<dbm:UniqueKey oim:id="_1" name="UK">
<dbm:KeyColumns>
<dbm:LogicalColumn oim:href="#_2"/>
</dbm:KeyColumns>
</dbm:UniqueKey>
)xml"_lines);
    EXPECT_EQ(print(model.addPrimaryKey(table, "PK", {"a"})), R"xml(
<dbm:UniqueKey oim:id="_1" name="PK"
IsPrimary="1"
>
<dbm:KeyColumns>
<dbm:LogicalColumn oim:href="#_2"/>
</dbm:KeyColumns>
</dbm:UniqueKey>
)xml"_lines);
}

TEST_F(Keys, HaveNamesTextsAndFallbacksLikeAnyObject) {
    ZORCandidateKey* key = model.addKey(table, "", {"a"});
    EXPECT_THAT(print(key), HasSubstr("<dbm:UniqueKey oim:id=\"_1\" name=\"unnamed$1\">"));
    key->setPhysicalName("K");
    key->setDescription("What");
    EXPECT_THAT(print(key), HasSubstr("<dbm:UniqueKey oim:id=\"_1\" name=\"K\"\ndescription=\"What\"\n>"));
}

TEST_F(Keys, ReferToTheirPhysicalColumnsOnly) {
    makeLogical("b");
    EXPECT_EQ(count(print(model.addKey(table, "UK", {"a", "b", "c"})), "oim:href"), 2U);
}

TEST_F(Keys, ThatAreForeignHaveAnElementOfTheirOwnAndAreNeverPrimary) {
    ZORCandidateKey* key = model.addPrimaryKey(model.addTable("P", {"a"}), "PK", {"a"});
    ZORForeignKey* foreignKey = model.addForeignKey(table, "FK", {"a"}, key);
    model.addRelationship("R", foreignKey);
    EXPECT_EQ(print(foreignKey), R"xml(
<dbm:ForeignKey oim:id="_1" name="FK">
<dbm:KeyColumns>
<dbm:LogicalColumn oim:href="#_2"/>
</dbm:KeyColumns>
</dbm:ForeignKey>
)xml"_lines);
}

TEST_F(Keys, AreWrittenWhenUniqueAndOneColumnIsPhysical) {
    EXPECT_TRUE(isWritten(model.addKey(table, "UK", {"a"})));
    EXPECT_TRUE(isWritten(model.addPrimaryKey(table, "PK", {"a"})));
    makeLogical("a");
    EXPECT_TRUE(isWritten(model.addKey(table, "one physical", {"a", "b"})));
    EXPECT_FALSE(isWritten(model.addKey(table, "none physical", {"a"})));
    EXPECT_FALSE(isWritten(model.addKey(table, "no columns", {})));
}

TEST_F(Keys, ThatAreNotUniqueAreNeverWritten) {
    ZORCandidateKey* inversion = model.addKey(table, "inversion", {"a", "b"});
    inversion->setUnique(false);
    EXPECT_FALSE(isWritten(inversion));
    ZORCandidateKey* primary = model.addPrimaryKey(table, "primary", {"a"});
    primary->setUnique(false);
    EXPECT_FALSE(isWritten(primary)) << "not even the primary one";
}

TEST_F(Keys, ThatAreLogicalOnlyAreNotWritten) {
    ZORCandidateKey* key = model.addKey(table, "K", {"a"});
    key->setDesignLevel(ZOR_LOGICAL_ONLY);
    EXPECT_FALSE(isWritten(key));
    key->setDesignLevel(ZOR_PHYSICAL_ONLY);
    EXPECT_TRUE(isWritten(key));
}

TEST_F(Keys, LinkToTheErdKeyInTheCombinedViewWhenTheErdViewHasIt) {
    ZORCandidateKey* key = model.addKey(table, "UK", {"a"});
    EXPECT_EQ(print(key, MODEL_VIEW_ERD_AND_DBM), R"xml(
<dbm:UniqueKey oim:id="_1" name="UK">
<dbm:KeyColumns>
<dbm:LogicalColumn oim:href="#_2"/>
</dbm:KeyColumns>
<uml:ModelElementClientDependency>
<uml:Abstraction name="Derived" oim:id="_3">
<uml:DependencySupplier>
<erd:Key oim:href="#_4"/>
</uml:DependencySupplier>
</uml:Abstraction>
</uml:ModelElementClientDependency>
</dbm:UniqueKey>
)xml"_lines);
    EXPECT_THAT(print(key, MODEL_VIEW_DBM), Not(HasSubstr("erd:")));
    key->setDesignLevel(ZOR_PHYSICAL_ONLY);
    EXPECT_THAT(print(key, MODEL_VIEW_ERD_AND_DBM), Not(HasSubstr("erd:")));
    key->setDesignLevel(ZOR_LOGICAL_AND_PHYSICAL);
    table->setDesignLevel(ZOR_PHYSICAL_ONLY);
    EXPECT_THAT(print(key, MODEL_VIEW_ERD_AND_DBM), Not(HasSubstr("erd:")));
}

class Indexes : public Keys {
  protected:
    std::string print(ZORIndex* index, MDCModelView view = MODEL_VIEW_DBM) const {
        TestBridge bridge(model.model(), view);
        bridge.printDBMIndex(index);
        return bridge.text();
    }
    std::string printTable() const {
        TestBridge bridge(model.model());
        bridge.printDBMClass(table);
        return bridge.text();
    }
};

TEST_F(Indexes, HoldTheirColumnsInOrder) {
    EXPECT_EQ(print(model.addIndex(table, "I", {"c", "a"})), R"xml(
<dbm:LogicalIndex oim:id="_1" name="I">
<dbm:IndexIndexColumns>
<dbm:IndexColumn oim:id="_2">
<dbm:IndexColumnColumn>
<dbm:LogicalColumn oim:href="#_3"/>
</dbm:IndexColumnColumn>
</dbm:IndexColumn>
<dbm:IndexColumn oim:id="_4">
<dbm:IndexColumnColumn>
<dbm:LogicalColumn oim:href="#_5"/>
</dbm:IndexColumnColumn>
</dbm:IndexColumn>
</dbm:IndexIndexColumns>
</dbm:LogicalIndex>
)xml"_lines);
}

TEST_F(Indexes, AreDecidedOnOnce) {
    TestBridge bridge(model.model(), MODEL_VIEW_DBM);
    ZORIndex* written = model.addIndex(table, "I", {"a"});
    EXPECT_TRUE(bridge.isExportableDBMIndex(written));
    EXPECT_TRUE(bridge.isExportableDBMIndex(written));
    makeLogical("b");
    ZORIndex* leftOut = model.addIndex(table, "J", {"b"});
    EXPECT_FALSE(bridge.isExportableDBMIndex(leftOut));
    EXPECT_FALSE(bridge.isExportableDBMIndex(leftOut));
}

TEST_F(Indexes, TellWhenTheyAreClusteredOrUnique) {
    ZORIndex* index = model.addIndex(table, "", {"a"});
    index->setUnique(true);
    EXPECT_THAT(print(index),
                HasSubstr("<dbm:LogicalIndex oim:id=\"_1\" name=\"unnamed$1\"\nIsUnique=\"1\"\n>"));
    index->setClustered(true);
    EXPECT_THAT(print(index), HasSubstr("name=\"unnamed$1\"\nIsClustered=\"1\"\nIsUnique=\"1\"\n>"));
    index->setUnique(false);
    EXPECT_THAT(print(index), HasSubstr("name=\"unnamed$1\"\nIsClustered=\"1\"\n>"));
}

TEST_F(Indexes, TellTheSortOrderOfTheirColumnsWhenItIsSet) {
    ZORIndex* index = model.addIndex(table, "I", {"a"});
    ZORIndexMember* member = index->getIndexMembers()[0];
    const auto memberTag = [&] { return part(print(index), "<dbm:IndexColumn ", ">\n"); };
    EXPECT_EQ(memberTag(), "<dbm:IndexColumn oim:id=\"_2\">\n");
    member->setSortOrder(ZOR_SORT_ASCENDING);
    EXPECT_EQ(memberTag(), "<dbm:IndexColumn oim:id=\"_2\"\nIsAscending=\"1\"\n>\n");
    member->setSortOrder(ZOR_SORT_DESCENDING);
    EXPECT_EQ(memberTag(), "<dbm:IndexColumn oim:id=\"_2\"\nIsAscending=\"0\"\n>\n");
    member->setSortOrder(static_cast<ZORSortOrder>(7));
    EXPECT_EQ(memberTag(), "<dbm:IndexColumn oim:id=\"_2\"\nIsAscending=\"0\"\n>\n");
}

TEST_F(Indexes, NameAMemberThatHasAName) {
    ZORIndex* index = model.addIndex(table, "I", {"a"});
    index->getIndexMembers()[0]->setName("m");
    EXPECT_THAT(print(index), HasSubstr("<dbm:IndexColumn oim:id=\"_2\" name=\"m\">"));
}

TEST_F(Indexes, LeaveLogicalColumnsOut) {
    makeLogical("a");
    EXPECT_EQ(count(print(model.addIndex(table, "I", {"a", "b"})), "<dbm:IndexColumn "), 1U);
}

TEST_F(Indexes, OfLogicalColumnsAloneAreLeftOutWithTheirCollection) {
    makeLogical("a");
    makeLogical("b");
    model.addIndex(table, "I", {"a", "b"});
    model.addIndex(table, "without columns", {});
    model.addIndex(table, "logical", {"c"})->setDesignLevel(ZOR_LOGICAL_ONLY);
    EXPECT_THAT(printTable(), Not(HasSubstr("Ind")));
    model.addIndex(table, "J", {"a", "c"});
    const std::string collection = part(printTable(), "<dbm:TableIndices>", "</dbm:TableIndices>");
    EXPECT_EQ(count(collection, "<dbm:LogicalIndex "), 1U);
    EXPECT_THAT(collection, HasSubstr("name=\"J\""));
}

TEST_F(Indexes, LinkToTheErdKeyThatTheyImplementInTheCombinedView) {
    ZORCandidateKey* key = model.addKey(table, "UK", {"a"});
    ZORIndex* index = model.addIndex(table, "I", {"a"});
    EXPECT_THAT(print(index, MODEL_VIEW_ERD_AND_DBM), Not(HasSubstr("erd:")));
    index->setKey(key);
    EXPECT_THAT(print(index, MODEL_VIEW_ERD_AND_DBM), HasSubstr("<erd:Key oim:href=\"#_5\"/>\n"));
    EXPECT_THAT(print(index, MODEL_VIEW_DBM), Not(HasSubstr("erd:")));
    key->setDesignLevel(ZOR_PHYSICAL_ONLY);
    EXPECT_THAT(print(index, MODEL_VIEW_ERD_AND_DBM), Not(HasSubstr("erd:")));
}

TEST_F(Indexes, LinkToNoKeyThatTheErdViewLeavesOut) {
    ZORClass* physical = model.addTable("physical only", {"p"});
    physical->setDesignLevel(ZOR_PHYSICAL_ONLY);
    ZORClass* interface = model.addTable("interface", {"i"});
    interface->setClassType(9);
    for (const char* column : {"b", "c"}) {
        table->getAttribute(column)->setDesignLevel(ZOR_PHYSICAL_ONLY);
    }
    ZORCandidateKey* referenced = model.addPrimaryKey(model.addTable("P", {"a"}), "PK", {"a"});
    ZORForeignKey* related = model.addForeignKey(table, "related", {"a"}, referenced);
    model.addRelationship("R", related);
    ZORForeignKey* inTheDatabase = model.addForeignKey(table, "in the database", {"a"}, referenced);
    model.addRelationship("physical", inTheDatabase)->setDesignLevel(ZOR_PHYSICAL_ONLY);
    struct Row {
        const char* description;
        ZORKey* key;
        bool isLinked;
    };
    const Row rows[] = {
        {"of a physical class", model.addKey(physical, "K1", {"p"}), false},
        {"of a class that is no entity", model.addKey(interface, "K2", {"i"}), false},
        {"of physical attributes", model.addKey(table, "K3", {"b", "c"}), false},
        {"of attributes of which one is logical", model.addKey(table, "K4", {"b", "a"}), true},
        {"foreign, with a relationship", related, true},
        {"foreign, with a physical relationship", inTheDatabase, false},
        {"foreign, without a relationship", model.addForeignKey(table, "FK", {"a"}, referenced), false},
    };
    ZORIndex* index = model.addIndex(table, "I", {"a"});
    for (const Row& row : rows) {
        index->setKey(row.key);
        EXPECT_EQ(count(print(index, MODEL_VIEW_ERD_AND_DBM), "<erd:Key oim:href="), row.isLinked ? 1U : 0U)
            << row.description;
    }
}

TEST_F(Indexes, LinkToTheVeryElementOfTheErdView) {
    ZORCandidateKey* key = model.addKey(table, "UK", {"a"});
    model.addIndex(table, "I", {"a"})->setKey(key);
    const std::string text = exportModel(*model.model(), {{"Model", "ERD and DBM"}});
    const std::string id =
        part(text, "<erd:Key oim:id=\"_", "\"").substr(std::string("<erd:Key oim:id=\"_").size());
    EXPECT_EQ(
        count(part(text, "<dbm:LogicalIndex", "</dbm:LogicalIndex>"), "<erd:Key oim:href=\"#_" + id + "/>"),
        1U);
}

}  // namespace
