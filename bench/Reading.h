#pragma once

#include <map>
#include <string>
#include <vector>

#include "Reader.h"
#include "Times.h"

// What the benchmarks of the readers share: generated files, the measuring of a reading, and its table.

namespace bench {

/// Files of one kind in the working directory, made when they are first asked for and removed in the end.
class GeneratedFiles {
  public:
    using Generator = void (*)(const std::string& path, int size);

    GeneratedFiles(std::string extension, Generator generate)
        : extension_(std::move(extension)), generate_(generate) {}
    ~GeneratedFiles();
    GeneratedFiles(const GeneratedFiles&) = delete;
    GeneratedFiles& operator=(const GeneratedFiles&) = delete;

    const std::string& path(int size);

  private:
    std::string extension_;
    Generator generate_;
    std::map<int, std::string> paths_;
};

/// Writes the text to a file. Throws std::runtime_error.
void writeFile(const std::string& path, const std::string& text);

/// Reads the file once per iteration. A reader that warns, or meets what the model cannot hold, ends the
/// benchmark: generated sources are sound.
void measureReading(benchmark::State& state, const readers::Reader& reader, const std::string& path);

/// One row for each size of a benchmark that calls measureReading.
struct ReadingTable {
    const char* title;
    const char* benchmark;
    std::vector<int> sizes;
    const char* sizeUnit;  ///< what the sizes count, such as "tables"
    const char* unit;      ///< what times are told of, such as "column"
    int unitsPerSize;
};
void printReadings(const Times& times, const ReadingTable& table);

}  // namespace bench
