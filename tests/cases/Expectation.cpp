#include "Expectation.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>

namespace cases {

namespace {

std::string quote(const std::string& text) {
    std::string quoted = "'";
    for (const char character : text) {
        quoted += character == '\'' ? std::string("'\\''") : std::string(1, character);
    }
    return quoted + "'";
}

std::string escapeDots(const std::string& name) {
    std::string escaped;
    for (const char character : name) {
        escaped += character == '.' ? "\\." : std::string(1, character);
    }
    return escaped;
}

std::string unifiedDifference(const std::string& expected, const std::string& actual) {
    const std::string command =
        "diff -u --label expected --label actual -- " + quote(expected) + " " + quote(actual) + " 2>&1";
    const std::unique_ptr<FILE, int (*)(FILE*)> output(popen(command.c_str(), "r"), pclose);
    std::string text;
    char part[4096];
    while (output != nullptr && std::fgets(part, sizeof part, output.get()) != nullptr) {
        text += part;
    }
    return text;
}

}  // namespace

bool isUpdating() {
    const char* value = std::getenv("ZOR_UPDATE_GOLDEN");
    return value != nullptr && *value != '\0' && std::string(value) != "0";
}

std::string compareWithExpected(const Case& which, const std::string& fileName, const std::string& actual) {
    const std::string expectedPath = which.folder + "/" + fileName;
    const std::string actualPath = ACTUAL_FOLDER "/" + which.name + "." + fileName;
    const bool exists = std::filesystem::exists(expectedPath);
    if (exists && readFile(expectedPath) == actual) {
        std::filesystem::remove(actualPath);
        return {};
    }
    if (isUpdating()) {
        writeFile(expectedPath, actual);
        std::filesystem::remove(actualPath);
        return {};
    }
    writeFile(actualPath, actual);
    return (exists ? unifiedDifference(expectedPath, actualPath) : expectedPath + " does not exist\n") +
           "\nkept:      " + actualPath + "\nto accept: ./dev test --update-golden -R '" +
           escapeDots("cases." + which.name) + "$'";
}

}  // namespace cases
