// Help and manual: both tell all that the tables hold.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <span>
#include <sstream>

#include "CommandTable.h"
#include "ExitCode.h"
#include "ModelCounts.h"
#include "ProgramRunner.h"
#include "Reader.h"

namespace cli_test {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

std::string help(const std::vector<std::string>& arguments) {
    const Scratch scratch;
    const Result result = run(scratch, arguments);
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.err, "");
    return result.out;
}

/// The text lists these codes and no others.
void expectExitCodes(const std::string& text, std::span<const cli::ExitCodeEntry> entries) {
    std::string expected = "\nExit codes:\n";
    for (const cli::ExitCodeEntry& entry : entries) {
        std::string code = std::to_string(static_cast<int>(entry.code));
        code.resize(5, ' ');
        expected += "  " + code + std::string(entry.meaning) + "\n";
    }
    const std::size_t at = text.find("\nExit codes:\n");
    ASSERT_NE(at, std::string::npos);
    EXPECT_EQ(text.substr(at, expected.size()), expected);
    EXPECT_THAT(text.substr(at + expected.size(), 1), testing::AnyOf("", "\n"));
}

void expectLinesFit(const std::string& text) {
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        EXPECT_LE(line.size(), 100U) << line;
        EXPECT_TRUE(line.empty() || line.back() != ' ') << line;
    }
}

TEST(Help, OfTheProgramNamesCommandsReadersAndExitCodes) {
    const std::string text = help({"--help"});
    for (const cli::Command& command : cli::allCommands()) {
        EXPECT_THAT(text, HasSubstr("  " + command.name + " "));
        EXPECT_THAT(text, HasSubstr(command.summary));
    }
    for (const readers::Reader* reader : readers::allReaders()) {
        EXPECT_THAT(text, HasSubstr(reader->describe().name + ":PATH"));
    }
    expectExitCodes(text, cli::EXIT_CODES);
    expectLinesFit(text);
    EXPECT_EQ(help({"-h"}), text);
    EXPECT_EQ(help({"-q", "--help"}), text);
}

TEST(Help, OfACommandNamesItsOptionsAndExamples) {
    for (const cli::Command& command : cli::allCommands()) {
        const std::string text = help({command.name, "--help"});
        EXPECT_THAT(text, StartsWith("Usage: oimbridge " + command.name + " "));
        for (const cli::OptionEntry& option : cli::allOptions()) {
            EXPECT_EQ(text.find(option.dashed() + " ") != std::string::npos ||
                          text.find(option.dashed() + "\n") != std::string::npos,
                      command.takes(option))
                << option.name;
        }
        EXPECT_FALSE(command.examples.empty());
        for (const cli::ExampleEntry& example : command.examples) {
            EXPECT_THAT(text, HasSubstr("oimbridge " + example.commandLine));
        }
        expectExitCodes(text, command.exitCodes);
        expectLinesFit(text);
        EXPECT_EQ(help({command.name, "-h"}), text);
        EXPECT_EQ(help({"--help", command.name}), text);
        EXPECT_EQ(help({command.name, "--view", "--help", "--bogus"}), text)
            << "help comes before all mistakes";
    }
}

struct TruthCase {
    const char* command;
    const char* told;
    const char* untold;  ///< what is true of other commands
};

class HelpOfACommand : public testing::TestWithParam<TruthCase> {};

TEST_P(HelpOfACommand, TellsWhatIsTrueForItAlone) {
    const std::string text = help({GetParam().command, "--help"});
    EXPECT_THAT(text, HasSubstr(GetParam().told));
    EXPECT_THAT(text, testing::Not(HasSubstr(GetParam().untold)));
}

INSTANTIATE_TEST_SUITE_P(
    Rows, HelpOfACommand,
    testing::Values(TruthCase{"export", "left out, the one that suits the source", "inspect"},
                    TruthCase{"inspect", "left out, all of them", "suits the source"},
                    TruthCase{"inspect", "  1    done", "--check"},
                    TruthCase{"convert", "MODEL.model.json; \"-\" is", "--indent"},
                    TruthCase{"check", "  1    errors in the document", "the model cannot hold"},
                    TruthCase{"check", "  3    the document", "nothing selected"},
                    TruthCase{"options", "  2    wrong use", "  3    "}));

TEST(Help, WithTheVersionIsOneLine) {
    EXPECT_THAT(help({"--version"}), testing::MatchesRegex("oimbridge [0-9]+\\.[0-9]+\\.[0-9]+\n"));
    EXPECT_EQ(help({"export", "--version"}), help({"--version"}));
}

TEST(Manual, NamesAllThereIs) {
    std::ifstream file(MANUAL);
    const std::string manual{std::istreambuf_iterator<char>(file), {}};
    for (const cli::Command& command : cli::allCommands()) {
        EXPECT_THAT(manual, HasSubstr("## `oimbridge " + command.name));
    }
    for (const cli::OptionEntry& option : cli::allOptions()) {
        EXPECT_THAT(
            manual,
            testing::AnyOf(HasSubstr("`" + option.dashed() + "`"), HasSubstr("`" + option.dashed() + " "),
                           HasSubstr(", " + option.dashed() + "`"), HasSubstr(", " + option.dashed() + " ")));
        if (!option.bridgeOption.empty()) {
            EXPECT_THAT(manual, HasSubstr(option.bridgeOption));
        }
    }
    for (const cli::ExitCodeEntry& entry : cli::EXIT_CODES) {
        EXPECT_THAT(manual, HasSubstr("| " + std::to_string(static_cast<int>(entry.code)) + " | "));
    }
    for (const readers::Reader* reader : readers::allReaders()) {
        EXPECT_THAT(manual, HasSubstr("`" + reader->describe().name + ":`"));
    }
    for (const cli::ObjectKindEntry& kind : cli::objectKinds()) {
        EXPECT_THAT(manual, HasSubstr("`" + std::string(kind.key) + "`"));
    }
}

}  // namespace
}  // namespace cli_test
