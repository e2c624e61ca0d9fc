// What the program says to command lines that it does not understand.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "ProgramRunner.h"
#include "Sources.h"

namespace cli_test {
namespace {

struct UsageCase {
    const char* name;
    std::vector<std::string> arguments;
    std::string message;
};

std::ostream& operator<<(std::ostream& out, const UsageCase& usage) {
    return out << usage.name;
}

class WrongUse : public testing::TestWithParam<UsageCase> {};

TEST_P(WrongUse, IsToldWithWhatToDo) {
    const Scratch scratch;
    scratch.write("shop.sql", SHOP_SQL);
    scratch.write("m.model.json", modelDocument("m"));
    const std::vector<std::string> before = scratch.list();
    const Result result = run(scratch, GetParam().arguments);
    EXPECT_EQ(result.err, GetParam().message);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_EQ(scratch.list(), before);
}

const std::string EXPORT_HELP = "hint: \"oimbridge export --help\" lists the options\n";
const std::string PROGRAM_HELP = "hint: \"oimbridge --help\" lists the commands\n";

std::string error(const std::string& text) {
    return "oimbridge: error: " + text + "\n";
}

INSTANTIATE_TEST_SUITE_P(
    Commands, WrongUse,
    testing::Values(UsageCase{"Missing", {}, error("a command is missing") + PROGRAM_HELP},
                    UsageCase{"Empty", {""}, error("there is no command \"\"") + PROGRAM_HELP},
                    UsageCase{"Mistyped",
                              {"exprot", "shop.sql"},
                              error("there is no command \"exprot\"") + "hint: did you mean \"export\"?\n"},
                    UsageCase{
                        "Unknown", {"compile"}, error("there is no command \"compile\"") + PROGRAM_HELP},
                    UsageCase{"IsASource",
                              {"shop.sql"},
                              error("there is no command \"shop.sql\"") +
                                  "hint: a source stands behind a command: \"oimbridge export shop.sql\"\n"},
                    UsageCase{"OnlyGeneralOptions", {"-q"}, error("a command is missing") + PROGRAM_HELP},
                    UsageCase{"UnknownOptionBefore",
                              {"--frob", "export"},
                              error("--frob: there is no such option") + PROGRAM_HELP},
                    UsageCase{"OptionOfACommandBefore",
                              {"--overwrite", "export", "shop.sql"},
                              error("--overwrite: this option stands behind the command") +
                                  "hint: \"oimbridge export\" takes it\n"}),
    [](const auto& usage) { return usage.param.name; });

INSTANTIATE_TEST_SUITE_P(
    Positionals, WrongUse,
    testing::Values(
        UsageCase{"SourceMissing", {"export"}, error("SOURCE is missing") + EXPORT_HELP},
        UsageCase{"SourceMissingOfInspect",
                  {"inspect"},
                  error("SOURCE is missing") + "hint: \"oimbridge inspect --help\" lists the options\n"},
        UsageCase{"SourceEmpty", {"export", ""}, error("SOURCE: the argument is empty")},
        UsageCase{"SourceIsOnlyAPrefix",
                  {"export", "json:"},
                  error("json:: the path is missing behind the prefix")},
        UsageCase{"OutEmpty", {"export", "shop.sql", ""}, error("OUT.xml: the argument is empty")},
        UsageCase{"OneTooMany",
                  {"export", "shop.sql", "a.xml", "b.xml"},
                  error("the argument \"b.xml\" is one too many") + EXPORT_HELP},
        UsageCase{"OneTooManyBehindTheMark",
                  {"inspect", "--", "shop.sql", "--strict"},
                  error("the argument \"--strict\" is one too many") +
                      "hint: \"oimbridge inspect --help\" lists the options\n"},
        UsageCase{"OutMissingForStandardInput",
                  {"export", "json:-", "--view", "dbm"},
                  error("OUT.xml is missing, and standard input has no name to make one from") +
                      "hint: \"-\" is standard output\n"},
        UsageCase{"FileMissingOfCheck",
                  {"check"},
                  error("FILE.xml is missing") + "hint: \"oimbridge check --help\" lists the options\n"},
        UsageCase{"FileEmptyOfCheck", {"check", ""}, error("FILE.xml: the argument is empty")},
        UsageCase{"OneTooManyOfCheck",
                  {"check", "a.xml", "b.xml"},
                  error("the argument \"b.xml\" is one too many") +
                      "hint: \"oimbridge check --help\" lists the options\n"},
        UsageCase{"SourceMissingOfConvert",
                  {"convert"},
                  error("SOURCE is missing") + "hint: \"oimbridge convert --help\" lists the options\n"},
        UsageCase{"SourceEmptyOfConvert", {"convert", ""}, error("SOURCE: the argument is empty")},
        UsageCase{"OutEmptyOfConvert",
                  {"convert", "shop.sql", ""},
                  error("MODEL.model.json: the argument is empty")},
        UsageCase{"OutMissingForStandardInputOfConvert",
                  {"convert", "sql:-"},
                  error("MODEL.model.json is missing, and standard input has no name to make one from") +
                      "hint: \"-\" is standard output\n"},
        UsageCase{"OutTwiceOfConvert",
                  {"convert", "shop.sql", "a.model.json", "-o", "b.model.json"},
                  error("--output: the output is named twice, as the argument OUT and with this option")},
        UsageCase{"OneTooManyOfConvert",
                  {"convert", "shop.sql", "a", "b"},
                  error("the argument \"b\" is one too many") +
                      "hint: \"oimbridge convert --help\" lists the options\n"},
        UsageCase{"OneTooManyOfOptions",
                  {"options", "Model", "File"},
                  error("the argument \"File\" is one too many") +
                      "hint: \"oimbridge options --help\" lists the options\n"},
        UsageCase{"OutTwice",
                  {"export", "shop.sql", "a.xml", "-o", "b.xml"},
                  error("--output: the output is named twice, as the argument OUT and with this option")},
        UsageCase{"NameUnknown",
                  {"options", "Modle"},
                  error("there is no option and no reader \"Modle\". Did you mean \"Model\"?") +
                      "hint: \"oimbridge options\" lists all\n"}),
    [](const auto& usage) { return usage.param.name; });

INSTANTIATE_TEST_SUITE_P(
    Options, WrongUse,
    testing::Values(
        UsageCase{"Mistyped",
                  {"export", "shop.sql", "--tabel", "x"},
                  error("--tabel: there is no such option") + "hint: did you mean \"--table\"?\n"},
        UsageCase{"MistypedWithValue",
                  {"export", "shop.sql", "--tabel=x"},
                  error("--tabel: there is no such option") + "hint: did you mean \"--table\"?\n"},
        UsageCase{"UnknownLetter",
                  {"export", "shop.sql", "-x"},
                  error("-x: there is no such option") + EXPORT_HELP},
        UsageCase{
            "OfAnotherCommand",
            {"inspect", "shop.sql", "--overwrite"},
            error("--overwrite: \"inspect\" takes no such option") + "hint: \"oimbridge export\" takes it\n"},
        UsageCase{
            "ViewOfConvert",
            {"convert", "shop.sql", "--view", "dbm"},
            error("--view: \"convert\" takes no such option") + "hint: \"oimbridge export\" takes it\n"},
        UsageCase{
            "IndentOfConvert",
            {"convert", "shop.sql", "--indent", "2"},
            error("--indent: \"convert\" takes no such option") + "hint: \"oimbridge export\" takes it\n"},
        UsageCase{
            "IndentOfInspect",
            {"inspect", "shop.sql", "--indent=2"},
            error("--indent: \"inspect\" takes no such option") + "hint: \"oimbridge export\" takes it\n"},
        UsageCase{
            "CheckOfConvert",
            {"convert", "shop.sql", "--check"},
            error("--check: \"convert\" takes no such option") + "hint: \"oimbridge export\" takes it\n"},
        UsageCase{
            "StrictOfCheck",
            {"check", "a.xml", "--strict"},
            error("--strict: \"check\" takes no such option") + "hint: \"oimbridge export\" takes it\n"},
        UsageCase{"ValueMissing",
                  {"export", "shop.sql", "--table"},
                  error("--table: the value PATTERN is missing")},
        UsageCase{"ValueMissingOfALetter",
                  {"export", "shop.sql", "-o"},
                  error("--output: the value OUT is missing")},
        UsageCase{"ValueMissingBeforeAnOption",
                  {"export", "shop.sql", "--table", "--no-views"},
                  error("--table: the value PATTERN is missing before \"--no-views\"") +
                      "hint: write \"--table=--no-views\" when that is the value\n"},
        UsageCase{"ValueMissingBehindTheEqualSign",
                  {"export", "shop.sql", "--view="},
                  error("--view: the value VIEW is missing")},
        UsageCase{"ValueEmpty",
                  {"export", "shop.sql", "--model-name", ""},
                  error("--model-name: the value is empty")},
        UsageCase{
            "ValueUnknown",
            {"export", "shop.sql", "--view", "db"},
            error("--view: \"db\" is not one of uml, erd, dbm, erd+dbm") + "hint: did you mean \"dbm\"?\n"},
        UsageCase{"ValueInAnotherLetterCase",
                  {"export", "shop.sql", "--view", "DBM"},
                  error("--view: \"DBM\" is not one of uml, erd, dbm, erd+dbm") +
                      "hint: did you mean \"dbm\" or \"erd+dbm\"?\n"},
        UsageCase{"SwitchWithValue",
                  {"export", "shop.sql", "--overwrite=yes"},
                  error("--overwrite: this switch takes no value")},
        UsageCase{"Twice",
                  {"export", "shop.sql", "--view", "dbm", "--view", "dbm"},
                  error("--view: given 2 times, but it takes one value")},
        UsageCase{"QuietAndVerbose",
                  {"export", "shop.sql", "-q", "-v"},
                  error("--quiet: this does not go together with --verbose")},
        UsageCase{"LogFormatUnknown",
                  {"export", "shop.sql", "--log-format", "xml"},
                  error("--log-format: \"xml\" is not one of text, json")},
        UsageCase{"FormatMistyped",
                  {"options", "--format", "jsno"},
                  error("--format: \"jsno\" is not one of text, json") + "hint: did you mean \"json\"?\n"}),
    [](const auto& usage) { return usage.param.name; });

INSTANTIATE_TEST_SUITE_P(
    Indentation, WrongUse,
    testing::Values(
        UsageCase{"Negative",
                  {"export", "shop.sql", "--indent", "-1"},
                  error("--indent: \"-1\" is neither a number from 0 to 16 nor \"tab\" nor \"none\"")},
        UsageCase{"TooWide",
                  {"export", "shop.sql", "--indent", "17"},
                  error("--indent: \"17\" is neither a number from 0 to 16 nor \"tab\" nor \"none\"")},
        UsageCase{"Overflowing",
                  {"export", "shop.sql", "--indent", "99999999999999999999"},
                  error("--indent: \"99999999999999999999\" is neither a number from 0 to 16 nor \"tab\" nor "
                        "\"none\"")},
        UsageCase{"NotANumber",
                  {"export", "shop.sql", "--indent", "2em"},
                  error("--indent: \"2em\" is neither a number from 0 to 16 nor \"tab\" nor \"none\"")},
        UsageCase{
            "InControlCharacters",
            {"export", "shop.sql", "--indent", "\x1b[2J"},
            error("--indent: \"\\u001b[2J\" is neither a number from 0 to 16 nor \"tab\" nor \"none\"")}),
    [](const auto& usage) { return usage.param.name; });

INSTANTIATE_TEST_SUITE_P(
    BridgeOptions, WrongUse,
    testing::Values(
        UsageCase{"SetWithoutValue",
                  {"export", "shop.sql", "--set", "Model"},
                  error("--set: \"Model\" is not of the form \"NAME=VALUE\"") +
                      "hint: \"oimbridge options\" lists the names\n"},
        UsageCase{"SetWithoutName",
                  {"export", "shop.sql", "--set", "=DBM"},
                  error("--set: \"=DBM\" is not of the form \"NAME=VALUE\"") +
                      "hint: \"oimbridge options\" lists the names\n"},
        UsageCase{"SetOfAnUnknownOption",
                  {"export", "shop.sql", "--set", "DBM TypSet=None"},
                  error("--set: There is no option \"DBM TypSet\". Did you mean \"DBM TypeSet\"?") +
                      "hint: oimbridge options lists all options\n"},
        UsageCase{"SetToAnUnknownValue",
                  {"export", "shop.sql", "--set", "Model=dbm"},
                  error("--set: The option \"Model\" does not permit the value \"dbm\". Did you mean \"DBM\" "
                        "or \"ERD and DBM\"?") +
                      "hint: oimbridge options \"Model\" lists what it permits\n"},
        UsageCase{"SetToNothing",
                  {"export", "shop.sql", "--set", "Model="},
                  error("--set: The option \"Model\" does not permit the value \"\".") +
                      "hint: oimbridge options \"Model\" lists what it permits\n"},
        UsageCase{"SetOfTheFile",
                  {"export", "shop.sql", "--set", "File=x.xml"},
                  error("--set: the option \"File\" is what OUT says") +
                      "hint: name the output as OUT or with --output\n"},
        UsageCase{
            "TypeSetMistyped",
            {"export", "shop.sql", "--dbm-typeset", "Oracle 8"},
            error("--dbm-typeset: The option \"DBM TypeSet\" does not permit the value \"Oracle 8\". Did you "
                  "mean \"Oracle 8.x\"?") +
                "hint: oimbridge options \"DBM TypeSet\" lists what it permits\n"},
        UsageCase{"ErdTypeSetUnknown",
                  {"export", "shop.sql", "--erd-typeset", "fish"},
                  error("--erd-typeset: The option \"ERD TypeSet\" does not permit the value \"fish\".") +
                      "hint: oimbridge options \"ERD TypeSet\" lists what it permits\n"}),
    [](const auto& usage) { return usage.param.name; });

INSTANTIATE_TEST_SUITE_P(Selection, WrongUse,
                         testing::Values(UsageCase{"OfAModelDocument",
                                                   {"inspect", "m.model.json", "--table", "x"},
                                                   error("--table: this kind of source is always read as a "
                                                         "whole (the source is read as: Model document)")},
                                         UsageCase{"NoViewsOfAModelDocument",
                                                   {"inspect", "m.model.json", "--no-views"},
                                                   error("--no-views: this kind of source is always read as "
                                                         "a whole (the source is read as: Model document)")},
                                         UsageCase{"PatternEmpty",
                                                   {"inspect", "shop.sql", "--table", ""},
                                                   error("--table: the value is empty")}),
                         [](const auto& usage) { return usage.param.name; });

struct IndentationCase {
    const char* name;
    std::string value;
    std::string shown;
};

std::ostream& operator<<(std::ostream& out, const IndentationCase& indentation) {
    return out << indentation.name;
}

class SetOfTheIndentation : public testing::TestWithParam<IndentationCase> {};

TEST_P(SetOfTheIndentation, TakesNothingThatWouldSpoilTheDocument) {
    const Scratch scratch;
    scratch.write("shop.sql", SHOP_SQL);
    for (const char* command : {"export", "inspect"}) {
        const Result result = run(
            scratch, {command, "shop.sql", "--set", "XML Indentation (pretty printing)=" + GetParam().value});
        EXPECT_EQ(result.err, error("--set: the value \"" + GetParam().shown +
                                    "\" of the option \"XML Indentation (pretty printing)\" holds more than "
                                    "blanks, tabs and line ends") +
                                  "hint: \"--indent\" indents by so many blanks\n");
        EXPECT_EQ(result.exitCode, 2);
    }
    EXPECT_EQ(scratch.list(), std::vector<std::string>{"shop.sql"});
}

INSTANTIATE_TEST_SUITE_P(Values, SetOfTheIndentation,
                         testing::Values(IndentationCase{"Letters", "abc", "abc"},
                                         IndentationCase{"Dots", "..", ".."},
                                         IndentationCase{"Tag", "<", "<"},
                                         IndentationCase{"Entity", "&#32;", "&#32;"},
                                         IndentationCase{"BehindABlank", " x", " x"},
                                         IndentationCase{"NoBreakSpace", "\u00A0", "\u00A0"},
                                         IndentationCase{"FormFeed", "\f", "\\u000c"},
                                         IndentationCase{"NotUtf8", "\xff", "\\xff"}),
                         [](const auto& test) { return test.param.name; });

TEST(WrongUseInJson, IsOneObject) {
    const Scratch scratch;
    for (const std::vector<std::string>& arguments :
         {std::vector<std::string>{"--log-format", "json", "exprot"}, {"exprot", "--log-format=json"}}) {
        const Result result = run(scratch, arguments);
        EXPECT_EQ(
            result.err,
            R"({"level":"error","subject":"","where":"","id":"","text":"there is no command \"exprot\"",)"
            R"("hint":"did you mean \"export\"?"})"
            "\n");
        EXPECT_EQ(result.exitCode, 2);
    }
}

TEST(SourceDateEpoch, HasToBeANumberOfSeconds) {
    const Scratch scratch;
    scratch.write("shop.sql", SHOP_SQL);
    for (const std::string value :
         {"yesterday", "-1", "1.5", " 1", "1 ", "253402300800", "99999999999999999999"}) {
        const Result result = run(scratch, Setting{.arguments = {"export", "shop.sql"},
                                                   .environment = {{"SOURCE_DATE_EPOCH", value}}});
        EXPECT_EQ(result.exitCode, 2) << value;
        EXPECT_EQ(
            result.err,
            "oimbridge: error: SOURCE_DATE_EPOCH: \"" + value +
                "\" is no number of seconds from 0 to 253402300799\n"
                "hint: \"date +%s\" prints such a number; without the variable, documents carry the time of "
                "day\n");
    }
    EXPECT_EQ(scratch.list(), std::vector<std::string>{"shop.sql"});
}

}  // namespace
}  // namespace cli_test
