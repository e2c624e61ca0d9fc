// The same model gives the same bytes: again in one process, and beside another export on another thread.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <thread>

#include "CollectingLog.h"
#include "EverythingModel.h"
#include "TestBridge.h"
#include "ZORClock.h"

namespace {

using namespace support;

ModelBuilder makePeople() {
    ModelBuilder model("People");
    addModelParts(model);
    return model;
}

class Repeatability : public ::testing::TestWithParam<const char*> {
  protected:
    Repeatability() { ZORClock::setFixed(0); }
    ~Repeatability() override {
        ZORClock::setFixed({});
        std::filesystem::remove_all(folder_);
    }

    /// Exports to a file of this name. May be called on several threads, with a name and a model for each.
    std::string exported(const char* name, ZORModel& model) const {
        const std::string path = folder_ / name;
        TestOptions options{{"Model", GetParam()},
                            {"File", path.c_str()},
                            {"ERD TypeSet", "XML Datatypes"},
                            {"DBM TypeSet", "SQL Server 7.x"}};
        CollectingLog log;
        getZORMicrosoftSqlServerMdsMdcExportInterface()->run({}, model, options, log);
        std::ostringstream text;
        text << std::ifstream(path).rdbuf() << log.lines();
        return text.str();
    }

  private:
    static std::filesystem::path makeFolder() {
        std::string name = (std::filesystem::temp_directory_path() / "repeatability-XXXXXX").string();
        return ::mkdtemp(name.data());
    }
    const std::filesystem::path folder_ = makeFolder();
};

TEST_P(Repeatability, OfOneModelExportedAgainAndAgain) {
    const ModelBuilder model = makeEverything();
    const std::string first = exported("out.xml", *model.model());
    EXPECT_NE(first.find("</oim:Transfer>"), std::string::npos);
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(exported("out.xml", *model.model()), first);
    }
}

TEST_P(Repeatability, OfTwoModelsOnTwoThreadsAtOnce) {
    const ModelBuilder everything = makeEverything();
    const ModelBuilder people = makePeople();
    const std::string first = exported("first.xml", *everything.model());
    const std::string second = exported("second.xml", *people.model());
    ASSERT_NE(first, second);
    int differences = 0;
    const auto repeat = [&](const char* name, ZORModel& model, const std::string& expected) {
        int different = 0;
        for (int i = 0; i < 20; ++i) {
            different += exported(name, model) == expected ? 0 : 1;
        }
        return different;
    };
    std::thread other([&] { differences = repeat("second.xml", *people.model(), second); });
    EXPECT_EQ(repeat("first.xml", *everything.model(), first), 0);
    other.join();
    EXPECT_EQ(differences, 0);
}

INSTANTIATE_TEST_SUITE_P(View, Repeatability, ::testing::Values("UML", "ERD", "DBM", "ERD and DBM"),
                         [](const auto& test) {
                             std::string name = test.param;
                             std::erase(name, ' ');
                             return name;
                         });

}  // namespace
