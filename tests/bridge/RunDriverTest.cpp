// One whole run: what the options decide, what is logged, and what the model and the file are like
// afterwards.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "EverythingModel.h"
#include "ModelDump.h"
#include "TestBridge.h"
#include "ZORClock.h"

namespace {

using namespace support;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

class Run : public ::testing::Test {
  protected:
    Run() { ZORClock::setFixed(0); }
    ~Run() override { ZORClock::setFixed({}); }

    static bool run(ZORModel& model, ZOROptionList& options, ZORLog& log, const char* fileName = "") {
        return getZORMicrosoftSqlServerMdsMdcExportInterface()->run(fileName, model, options, log);
    }

    CollectingLog log;
};

struct ChoiceRow {
    const char* value;
    int expected;
};

TEST_F(Run, TakesTheViewFromTheExactWord) {
    constexpr ChoiceRow ROWS[] = {
        {"UML", MODEL_VIEW_UML}, {"", MODEL_VIEW_UML},     {"erd", MODEL_VIEW_UML},
        {"ERD", MODEL_VIEW_ERD}, {"DBM", MODEL_VIEW_DBM},  {"ERD and DBM", MODEL_VIEW_ERD_AND_DBM},
        {"Dbm", MODEL_VIEW_UML}, {"ERD ", MODEL_VIEW_UML}, {"ERD and DB", MODEL_VIEW_UML},
    };
    for (const ChoiceRow& row : ROWS) {
        TestBridge bridge(ModelBuilder().model());
        bridge.model_ = nullptr;
        bridge.readOptions(TestOptions({{"Model", row.value}, {"DBM TypeSet", "None"}}));
        EXPECT_EQ(bridge.modelView_, row.expected) << "\"" << row.value << "\"";
    }
}

TEST_F(Run, TreatsUmlNothingAndLowerCaseAsOneView) {
    const ModelBuilder model = makeEverything();
    const std::string uml = exportModel(*model.model(), {{"Model", "UML"}});
    EXPECT_THAT(uml, HasSubstr("xmlns:uml"));
    EXPECT_THAT(uml, Not(HasSubstr("xmlns:erd")));
    EXPECT_EQ(exportModel(*model.model(), {{"Model", ""}}), uml);
    EXPECT_EQ(exportModel(*model.model(), {{"Model", "erd"}}), uml);
    EXPECT_NE(exportModel(*model.model(), {{"Model", "ERD"}}), uml);
}

TEST_F(Run, TakesTheLevelOfUmlSupportFromTheExactWord) {
    constexpr ChoiceRow ROWS[] = {{"Default", UML_1_3_FULL},    {"Enabled", UML_1_3_FULL},
                                  {"Partial", UML_1_3_PARTIAL}, {"Disabled", UML_1_3_DISABLED},
                                  {"disabled", UML_1_3_FULL},   {"", UML_1_3_FULL},
                                  {"something", UML_1_3_FULL}};
    for (const ChoiceRow& row : ROWS) {
        TestBridge bridge(nullptr);
        bridge.readOptions(TestOptions({{"UML 1.3 Support", row.value}}));
        EXPECT_EQ(bridge.uml13Support_, row.expected) << "\"" << row.value << "\"";
    }
}

TEST_F(Run, WritesTheSameForTheDefaultAndTheFullUmlSupport) {
    const ModelBuilder model = makeEverything();
    EXPECT_EQ(exportModel(*model.model(), {{"UML 1.3 Support", "Default"}}),
              exportModel(*model.model(), {{"UML 1.3 Support", "Enabled"}}));
}

TEST_F(Run, TakesTheRepositoryModeFromTheExactWord) {
    constexpr ChoiceRow ROWS[] = {{"True", 1}, {"False", 0}, {"true", 0}, {"", 0}, {"1", 0}};
    for (const ChoiceRow& row : ROWS) {
        TestBridge bridge(nullptr);
        bridge.readOptions(TestOptions({{"MS Repository", row.value}}));
        EXPECT_EQ(bridge.msRepository_, row.expected == 1) << "\"" << row.value << "\"";
    }
}

TEST_F(Run, ChoosesTypeSetsOnlyForTheViewsThatAreWritten) {
    struct Row {
        const char* view;
        const char* erdName;
        bool erdTable;
        const char* dbmName;
        bool dbmTable;
    };
    constexpr Row ROWS[] = {{"UML", "XML Datatypes", false, "SQL Server 7.x", false},
                            {"ERD", "E", true, "SQL Server 7.x", false},
                            {"DBM", "XML Datatypes", false, "D", true},
                            {"ERD and DBM", "E", true, "D", true}};
    for (const Row& row : ROWS) {
        TestBridge bridge(nullptr);
        bridge.readOptions(TestOptions({{"Model", row.view},
                                        {"ERD TypeSet", "XML Datatypes"},
                                        {"ERD TypeSet Name", "E"},
                                        {"ERD TypeSet Version", "1"},
                                        {"DBM TypeSet", "Oracle 8.x"},
                                        {"DBM TypeSet Name", "D"},
                                        {"DBM TypeSet Version", "2"}}));
        EXPECT_EQ(bridge.erdTypeSet_.name.view(), row.erdName) << row.view;
        EXPECT_EQ(bridge.erdTypeSet_.typeTable != nullptr, row.erdTable) << row.view;
        EXPECT_EQ(bridge.erdTypeSet_.version.view(), row.erdTable ? "1" : "") << row.view;
        EXPECT_EQ(bridge.dbmTypeSet_.name.view(), row.dbmName) << row.view;
        EXPECT_EQ(bridge.dbmTypeSet_.typeTable != nullptr, row.dbmTable) << row.view;
        EXPECT_EQ(bridge.dbmTypeSet_.version.view(), row.dbmTable ? "2" : "") << row.view;
    }
}

TEST_F(Run, IndentsWithTheOptionsText) {
    const ModelBuilder model;
    for (const char* unit : {"  ", "\t", "..", ""}) {
        const std::string text =
            exportModel(*model.model(), {{"Model", "DBM"}, {"XML Indentation (pretty printing)", unit}});
        EXPECT_THAT(text, HasSubstr(std::string("\n") + unit + "<uml:Subsystem")) << unit;
        EXPECT_THAT(text, HasSubstr(std::string("\n") + unit + unit + "<uml:NamespaceOwnedElement>")) << unit;
    }
}

TEST_F(Run, WarnsOnceOfSeveralCatalogsAndExportsAll) {
    ModelBuilder model;
    model.addTable("T", {"id"});
    model.addCatalog("");
    const std::string single = exportModel(*model.model(), {{"Model", "DBM"}});
    model.addCatalog("");
    model.addCatalog("");
    TestOptions options({{"Model", "DBM"}});
    EXPECT_EQ(exportModel(*model.model(), options, log), single);
    EXPECT_EQ(
        log.lines(),
        "[QLT_SQMDC_W0007] This bridge does not support multiple catalogs. The source model has multiple "
        "catalogs.\n");
}

TEST_F(Run, FailsWithThePathWhenTheFileCannotBeOpened) {
    const std::string path = testing::TempDir() + "no such folder/out.xml";
    const ModelBuilder model = makeEverything();
    const std::string before = dumpModel(*model.model());
    TestOptions options({{"File", path.c_str()}, {"Model", "DBM"}});
    try {
        run(*model.model(), options, log);
        FAIL() << "no exception";
    } catch (const ZORException& failure) {
        EXPECT_EQ(failure.getText().view(),
                  "[QLT_SQMDC_F0002] Unable to open or create output file '" + path + "'");
    }
    EXPECT_FALSE(std::filesystem::exists(path));
    EXPECT_EQ(dumpModel(*model.model()), before);
}

TEST_F(Run, WritesToThePathOfTheOptionWhateverTheFileNameSays) {
    const std::string folder = testing::TempDir() + "run_driver_test_" + std::to_string(::getpid());
    std::filesystem::remove_all(folder);
    std::filesystem::create_directory(folder);
    const std::string path = folder + "/chosen.xml";
    const std::string ignored = folder + "/ignored.xml";
    std::ofstream(path) << std::string(100000, 'x');
    const ModelBuilder model;
    TestOptions options({{"File", path.c_str()}, {"Model", "DBM"}});
    EXPECT_TRUE(run(*model.model(), options, log, ignored.c_str()));
    EXPECT_FALSE(std::filesystem::exists(ignored));
    std::ifstream file(path);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(file), {}),
              exportModel(*model.model(), {{"Model", "DBM"}}))
        << "what was there before is gone";
    std::filesystem::remove_all(folder);
}

TEST_F(Run, GivesTheSameIdentifiersEveryTime) {
    const ModelBuilder model = makeEverything();
    for (const char* view : {"UML", "ERD", "DBM", "ERD and DBM"}) {
        const std::string first =
            exportModel(*model.model(), {{"Model", view}, {"DBM TypeSet", "Oracle 8.x"}});
        EXPECT_EQ(exportModel(*model.model(), {{"Model", view}, {"DBM TypeSet", "Oracle 8.x"}}), first)
            << view;
    }
}

TEST_F(Run, LeavesTheModelAsItWas) {
    const ModelBuilder model = makeEverything();
    const std::string before = dumpModel(*model.model());
    for (const char* view : {"UML", "ERD", "DBM", "ERD and DBM"}) {
        exportModel(*model.model(),
                    {{"Model", view}, {"ERD TypeSet", "XML Datatypes"}, {"DBM TypeSet", "Oracle 8.x"}});
        EXPECT_EQ(dumpModel(*model.model()), before) << view;
    }
}

TEST_F(Run, ReportsWhatCouldNotBeConvertedWhenTheDocumentIsComplete) {
    ModelBuilder model;
    model.addTable("bad\x01name\x02", {"\xFF"});
    TestOptions options({{"Model", "DBM"}});
    const std::string text = exportModel(*model.model(), options, log);
    EXPECT_THAT(text, HasSubstr("name=\"bad\xEF\xBF\xBDname\xEF\xBF\xBD\""));
    EXPECT_THAT(text, HasSubstr("</oim:Transfer>\n"));
    EXPECT_EQ(
        log.lines(),
        "[QLCM_W0002] characters that an XML document cannot hold were replaced: 3, in this many texts of "
        "the model: 2\n");
}

TEST_F(Run, LogsNothingOfASoundModel) {
    ModelBuilder model;
    model.addTable("T", {"id"});
    TestOptions options({{"Model", "DBM"}});
    exportModel(*model.model(), options, log);
    EXPECT_THAT(log.lines(), IsEmpty());
}

}  // namespace
