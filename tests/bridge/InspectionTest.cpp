// What the bridge tells of an export while somebody looks on: one verdict on every object of the model for
// each subject area, in agreement with the document.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <set>

#include "EverythingModel.h"
#include "ModelDump.h"
#include "Verdicts.h"
#include "model_document/ModelDocumentReader.h"

namespace {

using namespace support;
using testing::Not;
using testing::StartsWith;

/// All objects that a walk over the model comes to.
class Objects : public ZORTraversalOperation {
  public:
    explicit Objects(ZORModel& model) {
        void* context = nullptr;
        model._depthTraversal(*this, context);
    }
    bool pre_process(ZORObject* object, void*& /*context*/) override {
        all.push_back(object);
        return true;
    }
    std::vector<ZORObject*> all;
};

std::unique_ptr<ZORModel> readExample() {
    class Context : public readers::ReadContext {
        void warn(const std::string& /*where*/, const std::string& /*text*/) override {}
        void progress(std::uint64_t /*objects*/) override {}
    } context;
    return readers::modelDocumentReader().read(
        readers::Source::fromFile(EXAMPLES_FOLDER "/everything.model.json"), {}, context);
}

/// Everything, with some objects of every kind logical only and some physical only.
std::unique_ptr<ZORModel> makeMixedLevels() {
    constexpr ZORDesignLevel LEVELS[] = {ZOR_LOGICAL_AND_PHYSICAL, ZOR_LOGICAL_ONLY, ZOR_LOGICAL_AND_PHYSICAL,
                                         ZOR_PHYSICAL_ONLY, ZOR_LOGICAL_AND_PHYSICAL};
    ModelBuilder builder = makeEverything();
    std::size_t turn = 0;
    for (ZORObject* object : Objects(*builder.model()).all) {
        if (object->isInstanceOf(ZOR_MODEL_OBJECT) && !object->isInstanceOf(ZOR_PACKAGE)) {
            static_cast<ZORModelObject*>(object)->setDesignLevel(LEVELS[turn++ % std::size(LEVELS)]);
        }
    }
    return builder.take();
}

struct Example {
    const char* name;
    std::unique_ptr<ZORModel> (*make)();
};

void PrintTo(const Example& example, std::ostream* out) {
    *out << example.name;
}

const Example EXAMPLES[] = {
    {"Document", readExample},
    {"Builder", [] { return makeEverything().take(); }},
    {"MixedLevels", makeMixedLevels},
};

class Inspection : public testing::TestWithParam<std::tuple<Example, std::string>> {
  protected:
    Inspection() : model(std::get<0>(GetParam()).make()) {}
    const char* view() const { return std::get<1>(GetParam()).c_str(); }
    std::vector<std::string> areas() const {
        const std::string name = view();
        if (name == "ERD and DBM") {
            return {"erd", "dbm"};
        }
        return {name == "UML" ? "uml" : name == "ERD" ? "erd" : "dbm"};
    }
    Verdicts inspectView() const {
        return inspect(
            *model, {{"Model", view()}, {"ERD TypeSet", "XML Datatypes"}, {"DBM TypeSet", "SQL Server 7.x"}});
    }
    std::string exportView() const {
        return exportModel(
            *model, {{"Model", view()}, {"ERD TypeSet", "XML Datatypes"}, {"DBM TypeSet", "SQL Server 7.x"}});
    }

    std::unique_ptr<ZORModel> model;
};

TEST_P(Inspection, ComesToOneVerdictOnEveryObjectForEachArea) {
    const Verdicts verdicts = inspectView();
    const Objects objects(*model);
    EXPECT_EQ(verdicts.repeated, 0U);
    EXPECT_EQ(verdicts.verdicts.size(), objects.all.size() * areas().size());
    for (const ZORObject* object : objects.all) {
        for (const std::string& area : areas()) {
            const std::string verdict = verdicts.of(object, area);
            EXPECT_NE(verdict, "nothing") << object->getElementType() << " " << object->getName().view();
            EXPECT_THAT(verdict, Not(StartsWith("it has no place in the ")))
                << area << ": " << object->getElementType() << " " << object->getName().view();
            EXPECT_NE(verdict, "");
        }
    }
}

TEST_P(Inspection, LeavesTheModelAsItWas) {
    const std::string before = dumpModel(*model);
    inspectView();
    EXPECT_EQ(dumpModel(*model), before);
}

/// Elements that stand for more than one object each, or objects that have more than one element.
const std::set<std::string> SHARED_TAGS = {"erd:Domain", "erd:Value", "dbm:ColumnType"};

TEST_P(Inspection, AgreesWithTheDocument) {
    const Verdicts verdicts = inspectView();
    const std::string document = exportView();
    std::map<std::string, std::size_t> expected;
    std::set<std::string> ofGeneralizations;
    for (const auto& [key, verdict] : verdicts.verdicts) {
        const ZORObject* object = key.first;
        const bool isOfAssociationClass =
            verdict.tag == "uml:AssociationClass" && object->getElementType() != ZOR_CLASS;
        if (verdict.tag.empty() || isOfAssociationClass) {
            continue;
        }
        ++expected[verdict.tag];
        if (object->getElementType() == ZOR_GENERALIZATION) {
            ofGeneralizations.insert(verdict.tag);
        }
        // Its result is one more parameter.
        if (object->isInstanceOf(ZOR_OPERATION) &&
            static_cast<const ZOROperation*>(object)->getResultType() != nullptr) {
            ++expected[key.second == "uml" ? "uml:Parameter" : "dbm:StoredProcedureParameter"];
        }
    }
    EXPECT_GT(expected.size(), 5U);
    for (const auto& [tag, objects] : expected) {
        const std::size_t elements = count(document, "<" + tag + " oim:id=");
        const bool isRole = tag.ends_with("Role");
        if (SHARED_TAGS.contains(tag)) {
            EXPECT_GT(elements, 0U) << tag;
        } else if (ofGeneralizations.contains(tag) || (isRole && !ofGeneralizations.empty())) {
            EXPECT_GE(elements, objects) << tag << ": a generalization has an element for each pair";
        } else {
            EXPECT_EQ(elements, objects) << tag;
        }
    }
    // And nothing is written that the inspection does not know.
    for (const char* tag :
         {"uml:Class", "uml:Attribute", "uml:Operation", "uml:Association", "erd:Entity", "erd:Attribute",
          "erd:Key", "erd:SubjectArea", "dbm:LogicalTable", "dbm:LogicalColumn", "dbm:UniqueKey",
          "dbm:ForeignKey", "dbm:LogicalIndex", "dbm:LogicalTrigger", "dbm:LogicalView",
          "dbm:StoredProcedure", "dbm:TableSynonym"}) {
        EXPECT_EQ(count(document, std::string("<") + tag + " oim:id="), expected[tag]) << tag;
    }
}

std::string nameOf(const testing::TestParamInfo<std::tuple<Example, std::string>>& info) {
    std::string view = std::get<1>(info.param);
    view.erase(std::remove(view.begin(), view.end(), ' '), view.end());
    return std::string(std::get<0>(info.param).name) + view;
}

INSTANTIATE_TEST_SUITE_P(Examples, Inspection,
                         testing::Combine(testing::ValuesIn(EXAMPLES),
                                          testing::Values("UML", "ERD", "DBM", "ERD and DBM")),
                         nameOf);

}  // namespace
