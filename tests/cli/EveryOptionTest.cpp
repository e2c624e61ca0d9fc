// What the program says to missing, empty, repeated and absurd values of every option of every command.
#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <map>

#include "CommandTable.h"
#include "ProgramRunner.h"
#include "Sources.h"

namespace cli_test {
namespace {

constexpr const char* SOURCE = "s.db";

struct AbsurdValue {
    std::string given;
    std::string shown;  ///< as messages have it
};

const AbsurdValue LONG{std::string(5000, 'x'), std::string(5000, 'x')};
const AbsurdValue BINARY{"\xff\x01\n", R"(\xff\u0001\n)"};
const AbsurdValue FOLDERS{"../../..///..", "../../..///.."};
const AbsurdValue COMMANDS{"%s%n$(id)`id`", "%s%n$(id)`id`"};
const AbsurdValue NEGATIVE{"-99999999999999999999", "-99999999999999999999"};
const std::vector<AbsurdValue> ABSURD_VALUES = {LONG, BINARY, FOLDERS, COMMANDS, NEGATIVE};

struct Answer {
    int exitCode = 0;
    std::string err = {};
};

std::string error(const std::string& text) {
    return "oimbridge: error: " + text + "\n";
}

Answer refusal(const std::string& text, const std::string& hint = {}) {
    return {2, error(text) + (hint.empty() ? "" : "hint: " + hint + "\n")};
}

Answer answerOfTypeSet(const std::string& option, const AbsurdValue& value) {
    return refusal(fmt::format("--{}: The option \"{} TypeSet\" does not permit the value \"{}\".", option,
                               option == "dbm-typeset" ? "DBM" : "ERD", value.shown),
                   fmt::format("oimbridge options \"{} TypeSet\" lists what it permits",
                               option == "dbm-typeset" ? "DBM" : "ERD"));
}

/// A pattern that fits nothing is a warning; nothing is left when only what it fits is wanted.
Answer answerOfPattern(const std::string& option, const AbsurdValue& value) {
    const bool excludes = option.starts_with("exclude-");
    const char* wanted = option.ends_with("schema") ? "schema" : "table or view";
    const std::string warning =
        fmt::format("oimbridge: warning: s.db: {}: no {} matches this pattern\n", value.shown, wanted);
    return excludes ? Answer{0, warning}
                    : Answer{6, warning + error("s.db: the selection leaves no table or view") +
                                    "hint: --allow-empty accepts that\n"};
}

Answer answerOfOutput(const AbsurdValue& value) {
    if (value.given == FOLDERS.given) {
        return {5, error(value.shown + ": is a folder") + "hint: name a file in it\n"};
    }
    return value.given == LONG.given
               ? Answer{5, error(value.shown + ": cannot be written: File name too long")}
               : Answer{};
}

/// By the option, what is said to a value of those that take any text.
Answer answerTo(const std::string& option, const AbsurdValue& value) {
    if (option.ends_with("-typeset")) {
        return answerOfTypeSet(option, value);
    }
    if (option.ends_with("schema") || option.ends_with("table")) {
        return answerOfPattern(option, value);
    }
    if (option == "output") {
        return answerOfOutput(value);
    }
    if (option == "model-name" && value.given == BINARY.given) {
        return refusal("--model-name: a document cannot hold the name \"" + value.shown +
                       R"(" because of the '\xff' in it)");
    }
    const std::map<std::string, Answer> refusals = {
        {"indent", refusal("--indent: \"" + value.shown +
                           "\" is neither a number from 0 to 16 nor \"tab\" nor \"none\"")},
        {"set", refusal("--set: \"" + value.shown + "\" is not of the form \"NAME=VALUE\"",
                        "\"oimbridge options\" lists the names")},
        {"busy-timeout", refusal("--busy-timeout: \"" + value.shown + "\" is no number of milliseconds",
                                 "give a whole one that is not negative, such as 5000")},
        {"why", refusal("--why: nothing that was read is called \"" + value.shown + "\".")},
        {"model-name", {}}};
    const auto found = refusals.find(option);
    EXPECT_NE(found, refusals.end()) << "nothing is known of --" << option;
    return found == refusals.end() ? Answer{} : found->second;
}

class EveryOption : public testing::TestWithParam<const cli::Command*> {
  protected:
    EveryOption() { makeDatabase(scratch / SOURCE, "CREATE TABLE t (id INTEGER PRIMARY KEY)"); }

    std::vector<const cli::OptionEntry*> options(bool switches) const {
        std::vector<const cli::OptionEntry*> taken;
        for (const cli::OptionEntry& option : cli::allOptions()) {
            if (GetParam()->takes(option) && option.isSwitch() == switches) {
                taken.push_back(&option);
            }
        }
        return taken;
    }
    void expectAnswer(const std::vector<std::string>& words, const Answer& answer) const {
        std::vector<std::string> arguments = {GetParam()->name};
        if (!GetParam()->positionals.empty() && GetParam()->positionals.front().required) {
            arguments.emplace_back(SOURCE);
        }
        arguments.insert(arguments.end(), words.begin(), words.end());
        const Result result = run(scratch, arguments);
        EXPECT_EQ(result.err, answer.err) << words.front();
        EXPECT_EQ(result.exitCode, answer.exitCode) << words.front();
        for (const std::string& made : scratch.list()) {
            EXPECT_TRUE(made == SOURCE || answer.exitCode == 0) << made;
            if (made != SOURCE) {
                std::filesystem::remove(scratch.path() / made);
            }
        }
    }

    Scratch scratch;
};

TEST_P(EveryOption, ThatIsASwitchRefusesAValue) {
    for (const cli::OptionEntry* option : options(true)) {
        const Answer answer = refusal(option->dashed() + ": this switch takes no value");
        expectAnswer({option->dashed() + "=1"}, answer);
        expectAnswer({option->dashed() + "="}, answer);
    }
}

TEST_P(EveryOption, RefusesAMissingValue) {
    for (const cli::OptionEntry* option : options(false)) {
        const std::string name = option->dashed();
        const std::string missing = name + ": the value " + option->value + " is missing";
        expectAnswer({name}, refusal(missing));
        expectAnswer({name + "="}, refusal(missing));
        for (const std::string next : {"-q", "--"}) {
            expectAnswer({name, next}, refusal(missing + " before \"" + next + "\"",
                                               "write \"" + name + "=" + next + "\" when that is the value"));
        }
    }
}

TEST_P(EveryOption, RefusesAnEmptyValue) {
    for (const cli::OptionEntry* option : options(false)) {
        expectAnswer({option->dashed(), ""}, refusal(option->dashed() + ": the value is empty"));
    }
}

TEST_P(EveryOption, RefusesToBeRepeatedUnlessItMayBe) {
    for (const cli::OptionEntry* option : options(false)) {
        if (!option->repeatable) {
            const std::string name = option->dashed();
            expectAnswer({name, "x", name, "y", name, "z"},
                         refusal(name + ": given 3 times, but it takes one value"));
        }
    }
}

TEST_P(EveryOption, TellsWhatIsWrongWithAnAbsurdValue) {
    for (const cli::OptionEntry* option : options(false)) {
        for (const AbsurdValue& value : ABSURD_VALUES) {
            const std::string permitted = fmt::format("{}", fmt::join(option->permitted, ", "));
            expectAnswer({option->dashed() + "=" + value.given},
                         permitted.empty() ? answerTo(option->name, value)
                                           : refusal(option->dashed() + ": \"" + value.shown +
                                                     "\" is not one of " + permitted));
        }
    }
}

std::vector<const cli::Command*> pointersToCommands() {
    std::vector<const cli::Command*> commands;
    for (const cli::Command& command : cli::allCommands()) {
        commands.push_back(&command);
    }
    return commands;
}

INSTANTIATE_TEST_SUITE_P(Of, EveryOption, testing::ValuesIn(pointersToCommands()),
                         [](const auto& test) { return test.param->name; });

}  // namespace

}  // namespace cli_test
