// The walk over a model.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "ModelBuilder.h"

namespace {

using namespace support;
using ::testing::ElementsAre;
using ::testing::ElementsAreArray;

/// Notes what it visits by name, or by text for notes.
class Recorder : public ZORTraversalOperation {
  public:
    bool pre_process(ZORObject* object, void*& /*context*/) override {
        visited.push_back(nameOf(object));
        if (onVisit) {
            onVisit(object);
        }
        return visited.back() != stopAt;
    }
    bool post_process(ZORObject* object, void*& /*context*/) override {
        finished.push_back(nameOf(object));
        return finished.back() != stopBehind;
    }

    bool walk(ZORObject* root) {
        void* context = nullptr;
        return root->_depthTraversal(*this, context);
    }

    std::vector<std::string> visited;
    std::vector<std::string> finished;
    std::string stopAt;
    std::string stopBehind;
    std::function<void(ZORObject*)> onVisit;

  private:
    static std::string nameOf(const ZORObject* object) {
        return object->getElementType() == ZOR_NOTE
                   ? std::string(static_cast<const ZORNote*>(object)->getDescription().view())
                   : std::string(object->getName().view());
    }
};

std::vector<std::string> walk(ZORObject* root) {
    Recorder recorder;
    EXPECT_TRUE(recorder.walk(root));
    return recorder.visited;
}

void addNote(ZORModelObject* object) {
    object->addNote(std::make_unique<ZORNote>(("note of " + object->getName()).c_str()));
}

class Traversal : public ::testing::Test {
  protected:
    ModelBuilder builder;
};

TEST_F(Traversal, OfAModelVisitsItsChildrenThenItsTypesThenItsNotes) {
    builder.addPackage("p1");
    addNote(builder.addCatalog("Oracle 8.x"));
    builder.addPackage("p2");
    ModelBuilder::addValue(builder.number, "value", 1, "1");
    addNote(builder.number);
    addNote(builder.model());
    EXPECT_THAT(walk(builder.model()), ElementsAre("Shop", "p1", "catalog", "note of catalog", "p2", "number",
                                                   "value", "note of number", "text", "note of Shop"));
}

TEST_F(Traversal, OfAPackageVisitsPackagesElementsOperationsDiagramsAndNotes) {
    ZORDesignPackage* package = builder.addPackage("p");
    builder.addDiagram("diagram");
    ModelBuilder::addOperation<ZORStoredProcedure>(package, "procedure");
    builder.addTable("table");
    builder.addView("view");
    addNote(package);
    builder.addPackage("inner", package);
    EXPECT_THAT(walk(package),
                ElementsAre("p", "inner", "table", "view", "procedure", "diagram", "note of p"));
}

TEST_F(Traversal, OfAClassVisitsItsPartsListByList) {
    ZORClass* table = builder.addTable("table");
    addNote(table);
    ModelBuilder::addSynonym(table, "synonym");
    ZORAttribute* column = builder.addColumn(table, "column");
    addNote(column);
    ZORIndex* index = ModelBuilder::addIndex(table, "index", {"column"});
    index->getIndexMembers()[0]->setName("member");
    addNote(index);
    ModelBuilder::addKey(table, "key", {"column"});
    auto templateArgument = std::make_unique<ZORArgument>();
    templateArgument->setName("template argument");
    table->addArgument(std::move(templateArgument));
    ZORTrigger* trigger = ModelBuilder::addOperation<ZORTrigger>(table, "trigger");
    builder.addArgument(trigger, "argument");
    EXPECT_THAT(walk(table),
                ElementsAre("table", "column", "note of column", "trigger", "argument", "template argument",
                            "key", "index", "member", "note of index", "synonym", "note of table"));
}

TEST_F(Traversal, OfAnAssociationVisitsRolesWithTheirQualifiers) {
    ZORAssociation* association = builder.addAssociation("association");
    for (const char* name : {"role 1", "role 2"}) {
        ZORAssociationRole* role = ModelBuilder::addRole(association, nullptr, "1");
        role->setName(name);
        addNote(role);
        role->addQualifier(std::make_unique<ZORAttribute>())->setName("qualifier");
    }
    addNote(association);
    EXPECT_THAT(walk(association),
                ElementsAre("association", "role 1", "qualifier", "note of role 1", "role 2", "qualifier",
                            "note of role 2", "note of association"));
}

TEST_F(Traversal, OfAViewVisitsColumnsThenOperations) {
    ZORSQLViewEntity* view = builder.addView("view");
    ModelBuilder::addOperation<ZORTrigger>(view, "trigger");
    ModelBuilder::addViewColumn(view, "column");
    addNote(view);
    EXPECT_THAT(walk(view), ElementsAre("view", "column", "trigger", "note of view"));
}

TEST_F(Traversal, FollowsNoReferences) {
    ZORClass* table = builder.addTable("table", {"column"});
    ZORForeignKey* key = ModelBuilder::addForeignKey(table, "key", {"column"}, nullptr);
    builder.addDiagram("diagram", {table});
    ModelBuilder::addMap(table->getAttribute("column"), key, nullptr);
    EXPECT_THAT(walk(builder.package()), ElementsAre("Sales", "table", "column", "key", "diagram"));
}

TEST_F(Traversal, FinishesAnObjectBehindItsParts) {
    builder.addPackage("p");
    builder.addTable("t", {"c"});
    Recorder recorder;
    recorder.walk(builder.model());
    EXPECT_THAT(recorder.visited, ElementsAre("Shop", "p", "t", "c", "number", "text"));
    EXPECT_THAT(recorder.finished, ElementsAre("c", "t", "p", "number", "text", "Shop"));
}

TEST_F(Traversal, EndsWhereTheOperationSaysSo) {
    builder.addPackage("p");
    builder.addTable("t", {"c1", "c2"});
    Recorder stopping;
    stopping.stopAt = "c1";
    EXPECT_FALSE(stopping.walk(builder.model()));
    EXPECT_THAT(stopping.visited, ElementsAre("Shop", "p", "t", "c1"));
    EXPECT_TRUE(stopping.finished.empty());

    Recorder stoppingBehind;
    stoppingBehind.stopBehind = "c1";
    EXPECT_FALSE(stoppingBehind.walk(builder.model()));
    EXPECT_THAT(stoppingBehind.visited, ElementsAre("Shop", "p", "t", "c1"));
}

TEST_F(Traversal, VisitsWhatIsAppendedToTheListThatItIsWalking) {
    builder.addPackage("p");
    builder.addTable("first");
    builder.addTable("last");
    int added = 0;
    Recorder recorder;
    recorder.onVisit = [&](const ZORObject* object) {
        if (object->getElementType() == ZOR_CLASS && added < 100) {
            builder.addTable(("added " + std::to_string(++added)).c_str());
        }
    };
    EXPECT_TRUE(recorder.walk(builder.package()));
    std::vector<std::string> expected = {"p", "first", "last"};
    for (int i = 1; i <= 100; ++i) {
        expected.push_back("added " + std::to_string(i));
    }
    EXPECT_THAT(recorder.visited, ElementsAreArray(expected));
}

TEST_F(Traversal, VisitsTypesThatAreAddedWhileItWalksOverTheElements) {
    builder.addTable("t");
    Recorder recorder;
    recorder.onVisit = [&](const ZORObject* object) {
        if (object->getName() == "t") {
            builder.addType("new", "SQL_DATE");
        }
    };
    recorder.walk(builder.model());
    EXPECT_THAT(recorder.visited, ElementsAre("Shop", "Sales", "t", "number", "text", "new"));
}

TEST_F(Traversal, GoesAThousandPackagesDeep) {
    ZORPackage* package = builder.addPackage("0");
    for (int depth = 1; depth < 1000; ++depth) {
        package = builder.addPackage(std::to_string(depth).c_str(), package);
    }
    EXPECT_EQ(walk(builder.model()).size(), 1003U);
}

TEST_F(Traversal, DestroyingDeepNestingCostsNoStack) {
    ModelBuilder deep;
    ZORPackage* package = deep.addPackage("0");
    for (int depth = 1; depth < 200000; ++depth) {
        package = deep.addPackage("n", package);
    }
    SUCCEED() << "the destructor runs behind this line";
}

TEST_F(Traversal, HandsTheContextOn) {
    class Counter : public ZORTraversalOperation {
      public:
        bool pre_process(ZORObject* /*object*/, void*& context) override {
            ++*static_cast<int*>(context);
            return true;
        }
    };
    int count = 0;
    void* context = &count;
    Counter counter;
    EXPECT_TRUE(builder.model()->_depthTraversal(counter, context));
    EXPECT_EQ(count, 3);
}

}  // namespace
