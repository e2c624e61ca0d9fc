#include "Arguments.h"

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <filesystem>

#include "CommandTable.h"
#include "Failure.h"
#include "ZORNearest.h"

namespace cli {

namespace {

using Words = std::vector<std::string>;
using Options = std::vector<const OptionEntry*>;

[[noreturn]] void refuse(const std::string& subject, const std::string& text, std::string hint = {}) {
    throw Failure(ExitCode::WRONG_USE, subject, text, std::move(hint));
}

std::string nearestHint(std::string_view word, const std::vector<std::string_view>& candidates) {
    const std::string sentence = describeNearest(word, candidates);
    return sentence.empty() ? sentence : "did" + sentence.substr(std::string_view(" Did").size());
}

std::string helpHint(const Command* command) {
    return command == nullptr ? "\"oimbridge --help\" lists the commands"
                              : fmt::format("\"oimbridge {} --help\" lists the options", command->name);
}

/// The options of a command; for null, those that may stand before a command.
Options optionsOf(const Command* command) {
    Options options;
    for (const OptionEntry& option : allOptions()) {
        if (command == nullptr ? option.group == OptionGroup::GENERAL : command->takes(option)) {
            options.push_back(&option);
        }
    }
    return options;
}

const OptionEntry* findOption(const Options& options, std::string_view word) {
    for (const OptionEntry* option : options) {
        const bool isLetter =
            word.size() == 2 && word[0] == '-' && option->letter != '\0' && word[1] == option->letter;
        if (isLetter || word == option->dashed()) {
            return option;
        }
    }
    return nullptr;
}

bool looksLikeOption(std::string_view word) {
    return word.size() > 1 && word[0] == '-';
}

/// Refuses options without the value that they need, and switches with one, before the words are parsed: the
/// parser would take the next option or argument for the value.
void checkValuesPresent(const Words& words, const Options& options) {
    for (std::size_t i = 0; i < words.size() && words[i] != "--"; ++i) {
        const std::size_t equals = words[i].find('=');
        const OptionEntry* option = findOption(options, std::string_view(words[i]).substr(0, equals));
        if (option == nullptr) {
            continue;
        }
        const bool joined = equals != std::string::npos;
        if (option->isSwitch()) {
            if (joined) {
                refuse(option->dashed(), "this switch takes no value");
            }
            continue;
        }
        if (joined ? equals + 1 == words[i].size() : i + 1 == words.size()) {
            refuse(option->dashed(), fmt::format("the value {} is missing", option->value));
        }
        if (!joined && (words[i + 1] == "--" || findOption(options, words[i + 1]) != nullptr)) {
            refuse(option->dashed(),
                   fmt::format("the value {} is missing before \"{}\"", option->value, words[i + 1]),
                   fmt::format("write \"{}={}\" when that is the value", option->dashed(), words[i + 1]));
        }
        i += joined ? 0 : 1;
    }
}

void takeValues(Arguments& arguments, const OptionEntry& option, const std::vector<std::string>& values) {
    if (option.isSwitch()) {
        option.take(arguments, option, {});
        return;
    }
    if (values.size() > 1 && !option.repeatable) {
        refuse(option.dashed(), fmt::format("given {} times, but it takes one value", values.size()));
    }
    for (const std::string& value : values) {
        if (value.empty()) {
            refuse(option.dashed(), "the value is empty");
        }
        const std::vector<std::string>& permitted = option.permitted;
        if (!permitted.empty() && std::find(permitted.begin(), permitted.end(), value) == permitted.end()) {
            refuse(option.dashed(), fmt::format("\"{}\" is not one of {}", value, fmt::join(permitted, ", ")),
                   nearestHint(value, {permitted.begin(), permitted.end()}));
        }
        option.take(arguments, option, value);
    }
}

/// One parser over some of the table's options.
class TableParser {
  public:
    TableParser(Options options, const Command* command) : options_(std::move(options)), command_(command) {
        app_.set_help_flag();
        app_.allow_extras();
        for (const OptionEntry* option : options_) {
            const std::string names = option->letter == '\0'
                                          ? option->dashed()
                                          : fmt::format("-{},{}", option->letter, option->dashed());
            CLI::Option* bound = option->isSwitch() ? app_.add_flag(names) : app_.add_option(names);
            boundOptions_.push_back(bound->multi_option_policy(CLI::MultiOptionPolicy::TakeAll));
        }
        for (std::size_t i = 0; command != nullptr && i < command->positionals.size(); ++i) {
            boundPositionals_.push_back(app_.add_option(fmt::format("positional{}", i)));
        }
    }

    /// Stops at the first word that is no option of the table; `rest` gives it and what follows.
    void stopAtCommand() { app_.prefix_command(); }

    void parse(Words words) {
        checkValuesPresent(words, options_);
        std::reverse(words.begin(), words.end());
        try {
            app_.parse(std::move(words));
        } catch (const CLI::ParseError& error) {
            refuse({}, error.what(), helpHint(command_));
        }
    }

    Words rest() const { return app_.remaining(); }

    void takeOptions(Arguments& arguments) const {
        for (std::size_t i = 0; i < options_.size(); ++i) {
            if (boundOptions_[i]->count() > 0) {
                takeValues(arguments, *options_[i], boundOptions_[i]->results());
            }
        }
    }

    void takePositionals(Arguments& arguments) const {
        for (std::size_t i = 0; i < boundPositionals_.size(); ++i) {
            const PositionalEntry& positional = command_->positionals[i];
            const std::vector<std::string>& values = boundPositionals_[i]->results();
            if (values.empty() && positional.required) {
                refuse({}, fmt::format("{} is missing", positional.name), helpHint(command_));
            }
            if (values.empty()) {
                continue;
            }
            if (values.front().empty()) {
                refuse(positional.name, "the argument is empty");
            }
            positional.take(arguments, values.front());
        }
    }

  private:
    CLI::App app_;
    Options options_;
    const Command* command_;
    std::vector<CLI::Option*> boundOptions_;
    std::vector<CLI::Option*> boundPositionals_;
};

[[noreturn]] void refuseUnknownOption(const std::string& word, const Command* command) {
    const std::string name = word.substr(0, word.find('='));
    for (const Command& other : allCommands()) {
        if (const OptionEntry* option = findOption(optionsOf(&other), name); option != nullptr) {
            refuse(name,
                   command == nullptr ? "this option stands behind the command"
                                      : fmt::format("\"{}\" takes no such option", command->name),
                   fmt::format("\"oimbridge {}\" takes it", other.name));
        }
    }
    std::vector<std::string> names;
    for (const OptionEntry* option : optionsOf(command)) {
        names.push_back(option->dashed());
    }
    const std::string nearest = nearestHint(name, {names.begin(), names.end()});
    refuse(name, "there is no such option", nearest.empty() ? helpHint(command) : nearest);
}

/// Refuses what neither an option nor an argument took.
void refuseRest(const Words& rest, const Command* command) {
    bool optionsEnded = false;
    for (const std::string& word : rest) {
        if (!optionsEnded && word == "--") {
            optionsEnded = true;
        } else if (!optionsEnded && looksLikeOption(word)) {
            refuseUnknownOption(word, command);
        } else {
            refuse({}, fmt::format("the argument \"{}\" is one too many", word), helpHint(command));
        }
    }
}

const Command& selectCommand(const std::string& word) {
    if (looksLikeOption(word)) {
        refuseUnknownOption(word, nullptr);
    }
    if (const Command* command = findCommand(word); command != nullptr) {
        return *command;
    }
    std::vector<std::string_view> names;
    for (const Command& command : allCommands()) {
        names.push_back(command.name);
    }
    std::string hint = nearestHint(word, names);
    if (std::error_code ignored; hint.empty() && std::filesystem::exists(word, ignored)) {
        hint = fmt::format("a source stands behind a command: \"oimbridge export {}\"", word);
    }
    refuse({}, fmt::format("there is no command \"{}\"", word), hint.empty() ? helpHint(nullptr) : hint);
}

/// Whether one of the words before "--" is this one.
bool contains(const Words& words, std::string_view wanted) {
    const auto end = std::find(words.begin(), words.end(), "--");
    return std::find(words.begin(), end, wanted) != end;
}

/// Also messages about the command line itself come in the form that it asks for.
void findLogFormat(const Words& words, Console& console) {
    const auto end = std::find(words.begin(), words.end(), "--");
    const auto option = std::find(words.begin(), end, "--log-format");
    const bool separate = end - option > 1 && *(option + 1) == "json";
    if (separate || contains(words, "--log-format=json")) {
        console.setLogFormat(LogFormat::JSON);
    }
}

void setVerbosity(const Arguments& arguments, Console& console) {
    if (arguments.quiet && arguments.verbose) {
        refuse("--quiet", "this does not go together with --verbose");
    }
    console.setLogFormat(arguments.logFormat);
    console.setVerbosity(arguments.quiet     ? Verbosity::QUIET
                         : arguments.verbose ? Verbosity::VERBOSE
                                             : Verbosity::NORMAL);
}

}  // namespace

Arguments parseArguments(const Words& words, Console& console) {
    findLogFormat(words, console);
    Arguments arguments;
    TableParser before(optionsOf(nullptr), nullptr);
    before.stopAtCommand();
    before.parse(words);
    before.takeOptions(arguments);
    Words rest = before.rest();
    if (rest.empty()) {
        if (!arguments.help && !arguments.version) {
            refuse({}, "a command is missing", helpHint(nullptr));
        }
        return arguments;
    }
    arguments.command = &selectCommand(rest.front());
    rest.erase(rest.begin());
    arguments.help = arguments.help || contains(rest, "--help") || contains(rest, "-h");
    arguments.version = arguments.version || contains(rest, "--version");
    if (arguments.help || arguments.version) {
        return arguments;
    }
    TableParser parser(optionsOf(arguments.command), arguments.command);
    parser.parse(rest);
    refuseRest(parser.rest(), arguments.command);
    // The arguments come first: an option may find that it says the same as one of them.
    parser.takePositionals(arguments);
    parser.takeOptions(arguments);
    setVerbosity(arguments, console);
    return arguments;
}

}  // namespace cli
