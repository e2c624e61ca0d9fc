// tests/cases/: whole exports, each a folder with its source, options and expected results. README.md tells
// what stands in a folder; here it is read, run and compared.
#pragma once

#include <string>
#include <utility>
#include <vector>

namespace cases {

/// What stands in a case's folder.
struct Case {
    std::string folder;  ///< the path
    std::string name;    ///< "GROUP.CASE"
    std::string source;  ///< the path
    std::string modelName;
    bool mayDangle = false;  ///< references may lead nowhere
    std::vector<std::pair<std::string, std::string>> options;
};

/// Reads `case.txt` of the folder. Throws std::runtime_error with file and line when it is not understood.
Case readCase(const std::string& group, const std::string& name);

/// The content of a file; empty when there is none.
std::string readFile(const std::string& path);
void writeFile(const std::string& path, const std::string& content);

}  // namespace cases
