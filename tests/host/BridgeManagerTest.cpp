#include "ZORBridgeManager.h"

#include <dlfcn.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>

#include "CollectingLog.h"
#include "CompleteModel.h"
#include "PlainProcess.h"
#include "ZORModelCheck.h"

namespace {

namespace fs = std::filesystem;
using support::CollectingLog;
using support::CompleteModel;
using testing::ElementsAre;
using testing::EndsWith;
using testing::IsEmpty;

/// What the work's ZORException says; empty when it throws none.
template <typename Work>
std::string failureOf(const Work& work) {
    try {
        work();
    } catch (const ZORException& failure) {
        return failure.what();
    }
    return {};
}

std::string loadFailure(const ZORBridgeManager& manager, const std::string& nameOrFile) {
    return failureOf([&] { manager.load(nameOrFile.c_str()); });
}

/// A manager for the fake bridges, and a folder for files of the test's own.
class BridgeManagerTest : public testing::Test {
  protected:
    BridgeManagerTest() { fs::create_directories(folder); }
    ~BridgeManagerTest() override { fs::remove_all(folder); }
    std::string writeFile(const char* name, std::string_view contents) {
        std::ofstream(folder / name, std::ios::binary) << contents;
        return (folder / name).native();
    }

    const fs::path folder =
        fs::path(testing::TempDir()) / ("zor_bridge_manager_test_" + std::to_string(::getpid()));
    const ZORBridgeManager manager{FAKE_BRIDGE_FOLDER};
};

TEST_F(BridgeManagerTest, LooksInTheFolderBesideItsLibraryByDefault) {
    ::unsetenv("ZOR_BRIDGE_PATH");
    Dl_info info{};
    ASSERT_NE(::dladdr(reinterpret_cast<void*>(&checkModel), &info), 0);
    const fs::path expected = fs::canonical(info.dli_fname).parent_path() / "zor/bridges";
    EXPECT_EQ(ZORBridgeManager().getFolder().view(), expected.native());
    ::setenv("ZOR_BRIDGE_PATH", "", 1);
    EXPECT_EQ(ZORBridgeManager().getFolder().view(), expected.native());
}

TEST_F(BridgeManagerTest, LooksInTheFolderOfTheEnvironment) {
    ::setenv("ZOR_BRIDGE_PATH", "/some/where", 1);
    EXPECT_EQ(ZORBridgeManager().getFolder(), "/some/where");
    EXPECT_EQ(ZORBridgeManager("/else/where").getFolder(), "/else/where");
    ::unsetenv("ZOR_BRIDGE_PATH");
}

TEST_F(BridgeManagerTest, ListsBridgesInAlphabeticalOrder) {
    EXPECT_THAT(manager.listBridges(), ElementsAre("FakeExport", "NoSymbolExport", "NullExport",
                                                   "ThrowingExport", "UnresolvedExport"));
}

TEST_F(BridgeManagerTest, ListsOnlyFilesThatAreNamedLikeBridges) {
    writeFile("libZORB.so", "");
    writeFile("libZORA.so", "");
    writeFile("libOther.so", "");
    writeFile("libZORC.txt", "");
    fs::create_directory(folder / "libZORFolder.so");
    EXPECT_THAT(ZORBridgeManager(folder.c_str()).listBridges(), ElementsAre("A", "B"));
    EXPECT_THAT(ZORBridgeManager((folder / "missing").c_str()).listBridges(), IsEmpty());
}

TEST_F(BridgeManagerTest, LoadsABridgeByName) {
    const ZORBridge bridge = manager.load("FakeExport");
    EXPECT_EQ(bridge.getName(), "FakeExport");
    EXPECT_THAT(std::string(bridge.getPath()), EndsWith("/libZORFakeExport.so"));
    EXPECT_EQ(bridge.getSpecification().toolName, "tool of FakeExport");
    ZOROptionList options;
    bridge.getOptionList(options);
    ASSERT_EQ(options.getOptions().size(), 2U);
    EXPECT_EQ(options.getOptions()[1]->getDisplayName(), "Behaviour");
}

TEST_F(BridgeManagerTest, LoadsABridgeFromAFileAbsoluteOrNot) {
    const fs::path file = fs::path(FAKE_BRIDGE_FOLDER) / "libZORFakeExport.so";
    EXPECT_EQ(manager.load(file.c_str()).getName(), "FakeExport");
    const fs::path relative = fs::path(".") / fs::relative(file);
    const ZORBridge bridge = ZORBridgeManager("/nowhere").load(relative.c_str());
    EXPECT_EQ(bridge.getPath().view(), relative.native());
    EXPECT_EQ(bridge.getName(), "FakeExport");
}

TEST_F(BridgeManagerTest, LoadsALibraryWithItsVersionBehindItsName) {
    const fs::path file = folder / "libZORFakeExport.so.5.2";
    fs::create_symlink(fs::path(FAKE_BRIDGE_FOLDER) / "libZORFakeExport.so", file);
    EXPECT_EQ(manager.load(file.c_str()).getName(), "FakeExport");
}

TEST_F(BridgeManagerTest, UnloadsTheLibraryWithTheLastCopy) {
    const fs::path file = fs::path(FAKE_BRIDGE_FOLDER) / "libZORFakeExport.so";
    const auto isLoaded = [&] {
        void* handle = ::dlopen(file.c_str(), RTLD_NOW | RTLD_NOLOAD);
        if (handle != nullptr) {
            ::dlclose(handle);
        }
        return handle != nullptr;
    };
    std::optional<ZORBridge> bridge = manager.load("FakeExport");
    std::optional<ZORBridge> copy = bridge;
    EXPECT_EQ(&copy->getInterface(), &bridge->getInterface());
    bridge.reset();
    EXPECT_TRUE(isLoaded());
    EXPECT_EQ(copy->getName(), "FakeExport");
    copy.reset();
    EXPECT_FALSE(isLoaded());
}

TEST_F(BridgeManagerTest, NamesTheNearestBridgesForAnUnknownName) {
    const std::string start =
        "There is no bridge \"NulExport\" in the folder \"" + std::string(manager.getFolder()) + "\".";
    EXPECT_EQ(loadFailure(manager, "NulExport"), start + " Did you mean \"NullExport\"?");
    EXPECT_THAT(loadFailure(manager, ""),
                EndsWith(" It holds \"FakeExport\", \"NoSymbolExport\", \"NullExport\", "
                         "\"ThrowingExport\", \"UnresolvedExport\"."));
    EXPECT_EQ(
        loadFailure(ZORBridgeManager(folder.c_str()), "X"),
        "There is no bridge \"X\" in the folder \"" + folder.native() + "\". It holds no bridge at all.");
}

TEST_F(BridgeManagerTest, TellsThatThereIsNoFolderToLookIn) {
    for (const std::string& path : {(folder / "none").native(), writeFile("file", "")}) {
        EXPECT_EQ(loadFailure(ZORBridgeManager(path.c_str()), "X"),
                  "There is no folder \"" + path + "\" to look for bridges in.");
    }
}

TEST_F(BridgeManagerTest, TellsThatThereIsNoSuchFile) {
    const std::string file = (folder / "libZORX.so").native();
    EXPECT_EQ(loadFailure(manager, file), "There is no bridge library \"" + file + "\".");
    const std::string below = writeFile("file", "") + "/libZORX.so";
    EXPECT_EQ(loadFailure(manager, below), "There is no bridge library \"" + below + "\".");
}

TEST_F(BridgeManagerTest, TellsThatAFileIsNoSharedLibrary) {
    for (const std::string_view contents : {"", "\177EL", "just some text"}) {
        const std::string file = writeFile("libZORText.so", contents);
        EXPECT_EQ(loadFailure(manager, file),
                  "\"" + file + "\" is not a bridge: it is not a shared library.");
    }
    EXPECT_EQ(loadFailure(manager, folder.native() + "/"),
              "\"" + folder.native() + "/\" is not a bridge: it is not a file.");
}

TEST_F(BridgeManagerTest, DoesNotWaitForAPipe) {
    const std::string pipe = (folder / "libZORPipe.so").native();
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_EQ(loadFailure(manager, pipe), "\"" + pipe + "\" is not a bridge: it is not a file.");
}

TEST_F(BridgeManagerTest, TellsThatAFileMayNotBeRead) {
    const std::string file = writeFile("libZORClosed.so", "");
    fs::permissions(file, fs::perms::none);
    EXPECT_EQ(support::inPlainProcess([&] { return loadFailure(manager, file); }),
              "The bridge library \"" + file + "\" cannot be read: Permission denied.");
}

TEST_F(BridgeManagerTest, TellsThatAFolderMayNotBeLookedInto) {
    fs::create_directories(folder / "closed" / "bridges");
    fs::permissions(folder / "closed", fs::perms::none);
    const ZORBridgeManager closed((folder / "closed" / "bridges").c_str());
    EXPECT_EQ(support::inPlainProcess([&] { return loadFailure(closed, "X"); }),
              "The folder \"" + std::string(closed.getFolder()) +
                  "\" cannot be looked into for bridges: Permission denied.");
    fs::permissions(folder / "closed", fs::perms::owner_all);
}

TEST_F(BridgeManagerTest, GivesTheLoadersReasonForADamagedLibrary) {
    const std::string file = writeFile("libZORDamaged.so", "\177ELF and nothing else");
    EXPECT_EQ(loadFailure(manager, file),
              "The bridge library \"" + file + "\" cannot be loaded: file too short.");
}

TEST_F(BridgeManagerTest, GivesTheLoadersReasonForALibraryThatLacksAnother) {
    EXPECT_THAT(loadFailure(manager, "UnresolvedExport"),
                EndsWith("cannot be loaded: undefined symbol: missing."));
}

TEST_F(BridgeManagerTest, TellsWhichFunctionALibraryLacks) {
    const std::string failure = loadFailure(manager, "NoSymbolExport");
    EXPECT_THAT(failure,
                EndsWith("/libZORNoSymbolExport.so\" is not a bridge: it does not export the function "
                         "\"getZORNoSymbolExportInterface\"."));
}

TEST_F(BridgeManagerTest, TellsThatAFactoryGivesNothing) {
    EXPECT_THAT(loadFailure(manager, "NullExport"),
                EndsWith("gives no interface: \"getZORNullExportInterface\" returned null."));
}

TEST_F(BridgeManagerTest, ReplacesAnExceptionOfTheFactory) {
    EXPECT_EQ(loadFailure(manager, "ThrowingExport"),
              "[QLCM_F0001] An unexpected error occurred in the bridge 'ThrowingExport'");
}

class BridgeTest : public testing::Test {
  protected:
    BridgeTest() { bridge.getOptionList(options); }
    std::string runFailure(const char* behaviour) {
        options.setValue("Behaviour", behaviour);
        return failureOf([&] { bridge.run(m.model, options, log); });
    }

    const ZORBridge bridge = ZORBridgeManager(FAKE_BRIDGE_FOLDER).load("FakeExport");
    CompleteModel m;
    ZOROptionList options;
    CollectingLog log;
};

TEST_F(BridgeTest, RunsWithTheFileOfItsOptionAndTheHostsLog) {
    options.setValue("File", "/tmp/x.xml");
    EXPECT_EQ(runFailure("complete"), "");
    EXPECT_EQ(log.lines(), "[FAKE_I0001] running into /tmp/x.xml\n");
}

TEST_F(BridgeTest, PassesOnWhatTheBridgeSaysOfAFailure) {
    EXPECT_EQ(runFailure("host exception"), "the bridge's own words");
}

TEST_F(BridgeTest, ReplacesExceptionsThatAreNotTheHosts) {
    const char* unexpected = "[QLCM_F0001] An unexpected error occurred in the bridge 'FakeExport'";
    EXPECT_EQ(runFailure("standard exception"), unexpected);
    EXPECT_EQ(runFailure("number"), unexpected);
    EXPECT_EQ(failureOf([&] { bridge.getMappingSpecificationXmlFile(); }), unexpected);
    EXPECT_EQ(failureOf([&] { bridge.findMappingSpecification(); }), unexpected);
}

TEST_F(BridgeTest, TellsThatAnExportWasNotCompleted) {
    EXPECT_EQ(runFailure("something else"), "The bridge \"FakeExport\" did not complete the export.");
}

TEST_F(BridgeTest, TellsThatItDoesNotOfferToInspect) {
    class NoObserver : public ZORExportObserver {
        void written(const ZORObject* /*object*/, const char* /*area*/, const ZORString& /*tag*/) override {}
        void leftOut(const ZORObject* /*object*/, const char* /*area*/, const ZORString& /*reason*/,
                     const ZORString& /*reasonInGeneral*/) override {}
    } observer;
    EXPECT_FALSE(bridge.canInspect());
    EXPECT_EQ(failureOf([&] { bridge.inspect(m.model, options, log, observer); }),
              "The bridge \"FakeExport\" does not tell what it would write.");
}

TEST_F(BridgeTest, DoesNotShowABridgeAnUnsoundModel) {
    m.customerId->setType(nullptr);
    m.buyer->setAggregationKind(7);
    EXPECT_EQ(
        runFailure("complete"),
        "The model \"Shop\" is not sound:\n"
        "Class 'Sales.Customer': attribute 'id' has no type.\n"
        "Association 'Sales.places': role 'buyer' has the aggregation kind 7, which is none of 0 to 2.");
    EXPECT_THAT(log.events(), IsEmpty());
}

TEST_F(BridgeTest, ListsTwentyFaultsAndTellsThatThereAreMore) {
    for (int i = 0; i < 20; ++i) {
        m.rebate->addAttribute(std::make_unique<ZORAttribute>());
    }
    EXPECT_THAT(runFailure("complete"), EndsWith("Class 'Sales.Rebate': attribute #20 has no type."));
    m.rebate->addAttribute(std::make_unique<ZORAttribute>());
    EXPECT_THAT(runFailure("complete"),
                EndsWith("Class 'Sales.Rebate': attribute #20 has no type.\nThere are more faults."));
}

}  // namespace
