#include "SourceOpening.h"

#include <fmt/format.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cctype>
#include <cerrno>
#include <cstdint>
#include <filesystem>
#include <vector>

#include "Text.h"

namespace cli {

namespace {

constexpr const char* STANDARD_INPUT = "standard input";

const readers::Reader* findReader(std::string_view name) {
    for (const readers::Reader* reader : readers::allReaders()) {
        if (reader->describe().name == name) {
            return reader;
        }
    }
    return nullptr;
}

std::string knownSources() {
    std::vector<std::string> known;
    for (const readers::Reader* reader : readers::allReaders()) {
        const readers::ReaderDescription& description = reader->describe();
        known.push_back(fmt::format("{}: ({})", description.name, description.title));
    }
    return joinWords(known, "or");
}

std::string readStandardInput(Progress& progress) {
    std::atomic<std::uint64_t> bytes = 0;
    const Progress::Stage stage(
        progress, [&] { return fmt::format("{}: {} read", STANDARD_INPUT, formatBytes(bytes)); });
    std::string content;
    std::vector<char> block(1 << 20);
    while (true) {
        const ssize_t count = ::read(STDIN_FILENO, block.data(), block.size());
        if (count < 0 && errno != EINTR) {
            throw Failure(ExitCode::SOURCE_NOT_OPENED, STANDARD_INPUT,
                          "cannot be read: " + describeErrno(errno));
        }
        if (count == 0) {
            return content;
        }
        content.append(block.data(), static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
        bytes = content.size();
    }
}

/// The hint for a source that does not exist and looks as though it had a prefix.
std::string prefixHint(const std::string& text) {
    const std::size_t colon = text.find(':');
    const bool hasWord = colon != std::string::npos && colon > 1 && text.find('/') > colon;
    return hasWord ? "the prefixes of sources are " + knownSources() : std::string();
}

readers::Source openFile(const std::string& path, bool hasPrefix) {
    try {
        return readers::Source::fromFile(path);
    } catch (const readers::SourceError& error) {
        Failure failure = toFailure(error, path);
        if (hasPrefix || !failure.hint().empty()) {
            throw failure;
        }
        throw Failure(failure.code(), path, failure.what(), prefixHint(path));
    }
}

/// What may be wrong with a file that is called like a source of some kind.
std::string damageHint(const std::string& path) {
    std::string extension = std::filesystem::path(path).extension().string();
    std::transform(extension.begin(), extension.end(), extension.begin(),
                   [](unsigned char byte) { return static_cast<char>(std::tolower(byte)); });
    for (const readers::Reader* reader : readers::allReaders()) {
        const readers::ReaderDescription& description = reader->describe();
        const std::vector<std::string>& endings = description.usualEndings;
        if (std::find(endings.begin(), endings.end(), extension) != endings.end()) {
            return fmt::format("; if this is a {}, {}", description.title, description.unrecognised);
        }
    }
    return {};
}

const readers::Reader& recognise(const readers::Source& source) {
    for (const readers::Reader* reader : readers::allReaders()) {
        if (reader->identify(source)) {
            return *reader;
        }
    }
    if (source.head().empty()) {
        throw Failure(ExitCode::SOURCE_NOT_READ, source.name(), "there is nothing in it");
    }
    throw Failure(ExitCode::SOURCE_NOT_READ, source.name(), "this is no kind of source that is known",
                  fmt::format("when it is one, name its kind in front: {}{}", knownSources(),
                              damageHint(source.path())));
}

}  // namespace

SourceName parseSourceName(const std::string& text) {
    const std::size_t colon = text.find(':');
    const readers::Reader* reader = colon == std::string::npos ? nullptr : findReader(text.substr(0, colon));
    const std::string path = reader == nullptr ? text : text.substr(colon + 1);
    if (path.empty()) {
        throw Failure(ExitCode::WRONG_USE, text, "the path is missing behind the prefix");
    }
    return {path, reader};
}

OpenedSource openSource(const SourceName& name, Progress& progress) {
    readers::Source source = name.isStandardInput()
                                 ? readers::Source::fromText(STANDARD_INPUT, readStandardInput(progress))
                                 : openFile(name.path, name.reader != nullptr);
    try {
        const readers::Reader& chosen = name.reader == nullptr ? recognise(source) : *name.reader;
        return {std::move(source), &chosen};
    } catch (const readers::SourceError& error) {
        throw toFailure(error, source.name());
    }
}

Failure toFailure(const readers::SourceError& error, const std::string& sourceName) {
    constexpr std::array CODES = {ExitCode::SOURCE_NOT_OPENED, ExitCode::SOURCE_NOT_READ,
                                  ExitCode::INTERRUPTED, ExitCode::WRONG_USE};
    return {CODES[static_cast<std::size_t>(error.kind())], sourceName, error.what(), error.hint()};
}

}  // namespace cli
