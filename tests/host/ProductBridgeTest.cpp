#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "CollectingLog.h"
#include "CompleteModel.h"
#include "MemorySink.h"
#include "ModelChanges.h"
#include "ModelDump.h"
#include "ZORManager.h"

namespace {

using support::CollectingLog;
using support::CompleteModel;
using support::ModelChange;
using support::modelChanges;
using testing::EndsWith;

/// The product's own bridge, found where the manager looks for it, writing into memory.
class ProductBridgeTest : public testing::Test {
  protected:
    ProductBridgeTest() {
        ZORFile::setFlushPolicy(ZORFlushPolicy::BUFFER_FULL);
        ZORFile::setSinkOpener([this](const ZORString&) {
            record = std::make_shared<support::SinkRecord>();
            return std::make_unique<support::MemorySink>(record);
        });
        bridge.getOptionList(options);
        options.setValue("ERD TypeSet", "XML Datatypes");
        options.setValue("DBM TypeSet", "SQL Server 7.x");
    }
    ~ProductBridgeTest() override {
        ZORFile::setSinkOpener({});
        ZORFile::setFlushPolicy(ZORFlushPolicy::EACH_LINE);
    }
    /// Exports a sound model in all views, with names as they are and with unique names.
    void expectExports(ZORModel& model) {
        const std::string before = support::dumpModel(model);
        for (const char* view : {"UML", "ERD", "DBM", "ERD and DBM"}) {
            for (const char* repository : {"True", "False"}) {
                options.setValue("Model", view);
                options.setValue("MS Repository", repository);
                bridge.run(model, options, log);
                EXPECT_THAT(record->text(), EndsWith("</oim:Transfer>\n"));
                ASSERT_EQ(support::dumpModel(model), before)
                    << "the export of " << view << " leaves the model as it was";
            }
        }
    }

    const ZORBridge bridge = [] {
        ::unsetenv("ZOR_BRIDGE_PATH");
        return ZORBridgeManager().load("MicrosoftSqlServerMdsMdcExport");
    }();
    ZOROptionList options;
    CollectingLog log;
    std::shared_ptr<support::SinkRecord> record;
};

TEST_F(ProductBridgeTest, HasItsMappingDocumentBesideIt) {
    const std::string path(bridge.findMappingSpecification().view());
    EXPECT_THAT(path, EndsWith("/" + std::string(bridge.getMappingSpecificationXmlFile().view()) + ".xml"));
    std::ostringstream text;
    text << std::ifstream(path).rdbuf();
    EXPECT_THAT(text.str(), testing::HasSubstr("<mapping bridge=\"MicrosoftSqlServerMdsMdcExport\">"));
    EXPECT_THAT(text.str(), EndsWith("</mapping>\n"));
}

TEST_F(ProductBridgeTest, OffersToInspect) {
    EXPECT_TRUE(bridge.canInspect());
}

TEST_F(ProductBridgeTest, FindsNoMappingDocumentWhereThereIsNone) {
    namespace fs = std::filesystem;
    const fs::path folder =
        fs::path(testing::TempDir()) / ("zor_product_bridge_test_" + std::to_string(::getpid()));
    fs::create_directories(folder);
    const fs::path library = fs::path(bridge.getPath().c_str());
    fs::create_symlink(library, folder / library.filename());
    const ZORBridge alone = ZORBridgeManager(folder.c_str()).load(bridge.getName());
    EXPECT_EQ(alone.findMappingSpecification(), "");
    const fs::path document = folder / (alone.getMappingSpecificationXmlFile() + ".xml").c_str();
    fs::create_directory(document);
    EXPECT_EQ(alone.findMappingSpecification(), "") << "a folder is no document";
    fs::remove(document);
    std::ofstream(document) << "<mapping/>";
    EXPECT_EQ(alone.findMappingSpecification(), document.c_str());
    fs::remove_all(folder);
}

TEST_F(ProductBridgeTest, ExportsAModelThatHoldsEverything) {
    CompleteModel m;
    expectExports(m.model);
    EXPECT_EQ(log.lines(), "");
}

TEST_F(ProductBridgeTest, RefusesTheStereotypeOfADataTypeInTheUmlViewOnly) {
    CompleteModel m;
    m.integer->setStereotype("x");
    for (const char* view : {"ERD", "DBM", "ERD and DBM"}) {
        options.setValue("Model", view);
        EXPECT_NO_THROW(bridge.run(m.model, options, log)) << view;
    }
    options.setValue("Model", "UML");
    try {
        bridge.run(m.model, options, log);
        FAIL() << "the model was not refused";
    } catch (const ZORException& error) {
        EXPECT_THAT(error.getText().c_str(),
                    testing::HasSubstr("Type 'integer' has a stereotype, which in the UML view only"));
    }
}

TEST_F(ProductBridgeTest, ExportsWhateverTheCheckLetsThrough) {
    std::size_t exported = 0;
    for (const ModelChange& change : modelChanges()) {
        SCOPED_TRACE(change.what);
        CompleteModel m;
        change.make(m);
        if (checkModel(m.model).empty()) {
            expectExports(m.model);
            ++exported;
        }
    }
    EXPECT_GT(exported, modelChanges().size() / 2);
    EXPECT_LT(exported, modelChanges().size());
}

TEST_F(ProductBridgeTest, ExportsWhateverPairOfChangesTheCheckLetsThrough) {
    for (const ModelChange& first : modelChanges()) {
        for (const ModelChange& second : modelChanges()) {
            SCOPED_TRACE(std::string(first.what) + ", " + second.what);
            CompleteModel m;
            first.make(m);
            second.make(m);
            if (checkModel(m.model).empty()) {
                options.setValue("Model", &first < &second ? "UML" : "ERD and DBM");
                ASSERT_NO_THROW(bridge.run(m.model, options, log));
            }
        }
    }
}

}  // namespace
