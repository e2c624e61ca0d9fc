#include "Reading.h"

#include <malloc.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <stdexcept>

#include "Memory.h"

namespace bench {
namespace {

constexpr const char* FILE_BYTES = "bytes of the file";
constexpr const char* MODEL_BYTES = "bytes of the model";

class StrictContext : public readers::ReadContext {
  public:
    void warn(const std::string& where, const std::string& text) override {
        throw std::runtime_error("the reader has something to say of " + where + ": " + text);
    }
    void progress(std::uint64_t /*objects*/) override {}

    void assertNoLosses() const {
        if (!losses.isEmpty()) {
            const auto& [kind, where, detail] = losses.items().front();
            throw std::runtime_error("the model does not hold the " + kind + " of " + where);
        }
    }
};

}  // namespace

GeneratedFiles::~GeneratedFiles() {
    for (const auto& [size, path] : paths_) {
        std::error_code ignored;
        std::filesystem::remove(path, ignored);
    }
}

const std::string& GeneratedFiles::path(int size) {
    std::string& path = paths_[size];
    if (path.empty()) {
        path = (std::filesystem::current_path() / ("bench-" + std::to_string(size) + extension_)).string();
        std::filesystem::remove(path);
        generate_(path, size);
    }
    return path;
}

void writeFile(const std::string& path, const std::string& text) {
    std::ofstream file(path, std::ios::binary);
    if (!file.write(text.data(), static_cast<std::streamsize>(text.size())).flush()) {
        throw std::runtime_error("cannot write \"" + path + "\"");
    }
}

void measureReading(benchmark::State& state, const readers::Reader& reader, const std::string& path) {
    std::size_t modelBytes = 0;
    std::size_t before = allocatedBytes();
    for (auto _ : state) {
        StrictContext context;
        auto model = reader.read(readers::Source::fromFile(path), {}, context);
        state.PauseTiming();
        context.assertNoLosses();
        // What remains is the model alone: the text and the reader's memory are gone.
        modelBytes = allocatedBytes() - before;
        model.reset();
        malloc_trim(0);  // every reading begins with memory that was never used, as in a program of its own
        before = allocatedBytes();
        state.ResumeTiming();
    }
    state.counters[FILE_BYTES] = static_cast<double>(std::filesystem::file_size(path));
    state.counters[MODEL_BYTES] = static_cast<double>(modelBytes);
}

void printReadings(const Times& times, const ReadingTable& table) {
    const auto isThere = [&](int size) { return times.has(table.benchmark, size); };
    if (std::none_of(table.sizes.begin(), table.sizes.end(), isThere)) {
        return;
    }
    std::printf("\n%s, medians of %d runs\n\n", table.title, REPETITIONS);
    std::printf("%10s %8s %8s %8s %8s %11s %8s %14s\n", table.sizeUnit, "MB", "seconds", "CPU s", "MB/CPU s",
                (std::string("us/") + table.unit).c_str(), "CPU us",
                (std::string("bytes/") + table.unit).c_str());
    for (const int size : table.sizes) {
        if (isThere(size)) {
            const double units = static_cast<double>(size) * table.unitsPerSize;
            const double wall = times.wall(table.benchmark, size);
            const double cpu = times.cpu(table.benchmark, size);
            const double megabytes = times.counter(table.benchmark, size, FILE_BYTES) / 1e6;
            std::printf("%10d %8.1f %8.3f %8.3f %8.0f %11.2f %8.2f %14.0f\n", size, megabytes, wall, cpu,
                        megabytes / cpu, wall / units * 1e6, cpu / units * 1e6,
                        times.counter(table.benchmark, size, MODEL_BYTES) / units);
        }
    }
    std::printf("(bytes: what the finished model holds)\n");
}

}  // namespace bench
