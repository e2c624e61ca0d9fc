#include "Case.h"

#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace cases {

namespace {

/// The value of an option as it stands in a case: as it is, or between double quotes with escapes.
std::string readValue(const std::string& text) {
    if (text.size() < 2 || text.front() != '"' || text.back() != '"') {
        return text;
    }
    std::string value;
    for (std::size_t i = 1; i + 1 < text.size(); ++i) {
        char character = text[i];
        if (character == '\\' && i + 2 < text.size()) {
            character = text[++i];
            character = character == 't' ? '\t' : character == 'n' ? '\n' : character;
        }
        value += character;
    }
    return value;
}

void readLine(const std::string& line, Case& result) {
    if (line.front() != '@') {
        const std::size_t equals = line.find('=');
        if (equals == std::string::npos) {
            throw std::runtime_error("neither OPTION=VALUE nor @WORD");
        }
        result.options.emplace_back(line.substr(0, equals), readValue(line.substr(equals + 1)));
        return;
    }
    const std::size_t blank = line.find(' ');
    const std::string word = line.substr(1, blank - 1);
    const std::string rest = blank == std::string::npos ? "" : line.substr(blank + 1);
    if (rest.empty()) {
        throw std::runtime_error("nothing behind @" + word);
    }
    if (word == "source") {
        result.source = PROJECT_FOLDER "/" + rest;
    } else if (word == "model-name") {
        result.modelName = rest;
    } else if (word == "dangling") {
        result.mayDangle = true;
    } else {
        throw std::runtime_error("unknown word @" + word);
    }
}

std::string findSource(const std::string& folder) {
    for (const char* name : {"/model.model.json", "/model.uml", "/model.xmi", "/schema.sql"}) {
        if (std::filesystem::exists(folder + name)) {
            return folder + name;
        }
    }
    throw std::runtime_error(
        folder +
        ": none of model.model.json, model.uml, model.xmi and schema.sql, and no @source in case.txt");
}

}  // namespace

Case readCase(const std::string& group, const std::string& name) {
    Case result;
    result.folder = CASE_FOLDER "/" + group + "/" + name;
    result.name = group + "." + name;
    const std::string path = result.folder + "/case.txt";
    std::istringstream lines(readFile(path));
    std::string line;
    bool inDescription = true;
    for (int number = 1; std::getline(lines, line); ++number) {
        if (line.empty()) {
            if (number == 1) {
                throw std::runtime_error(path + ": the description is missing");
            }
            inDescription = false;
        } else if (!inDescription) {
            try {
                readLine(line, result);
            } catch (const std::runtime_error& error) {
                throw std::runtime_error(path + ":" + std::to_string(number) + ": " + error.what());
            }
        }
    }
    if (result.source.empty()) {
        result.source = findSource(result.folder);
    }
    return result;
}

std::string readFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void writeFile(const std::string& path, const std::string& content) {
    std::ofstream file(path, std::ios::binary);
    if (!(file << content).flush()) {
        throw std::runtime_error("cannot write " + path);
    }
}

}  // namespace cases
