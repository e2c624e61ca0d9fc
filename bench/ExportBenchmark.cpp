// The time of an export beside that of its yardsticks, and the memory of models and exports, as one table.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <string>

#include "Exporter.h"
#include "Memory.h"
#include "ModelGenerator.h"
#include "Times.h"
#include "Yardsticks.h"
#include "ZORModelCheck.h"

namespace {

using bench::Times;

constexpr int COLUMNS_PER_TABLE = 20;
constexpr int SMALL = 500;
constexpr int MEDIUM = 5'000;
constexpr int LARGE = 50'000;

constexpr const char* RAW = "raw write in blocks of 1 MiB";
constexpr const char* EXPORT = "export";
constexpr const char* LIBXML2 = "libxml2's text writer";
constexpr const char* CHECK = "check of the model before an export";
constexpr const char* RAW_TO_DISK = "raw write, and on to the disk";
constexpr const char* EXPORT_TO_DISK = "export, and on to the disk";
constexpr const char* EXPORT_LINES = "export, flushed at each line";

/// What is compared at the largest size.
constexpr const char* AT_LARGE[] = {RAW, EXPORT, LIBXML2, CHECK, RAW_TO_DISK, EXPORT_TO_DISK};

/// What the benchmarks share. Files stand in the working directory: one file system for all of them.
class Setting {
  public:
    bench::Exporter exporter;
    const std::string path = (std::filesystem::current_path() / "bench-document.xml").string();
    const std::string otherPath = (std::filesystem::current_path() / "bench-document-2.xml").string();

    ~Setting() {
        std::filesystem::remove(path);
        std::filesystem::remove(otherPath);
    }

    ZORModel& model(int tables) {
        std::unique_ptr<ZORModel>& model = models_[tables];
        if (model == nullptr) {
            const std::size_t before = bench::allocatedBytes();
            model = bench::generateModel({.tables = tables, .columnsPerTable = COLUMNS_PER_TABLE});
            modelBytes_[tables] = bench::allocatedBytes() - before;
        }
        return *model;
    }
    std::size_t modelBytes(int tables) {
        model(tables);
        return modelBytes_[tables];
    }
    /// The bytes of the large model's document.
    const std::string& document() {
        if (document_.empty()) {
            exportLarge();
            document_ = bench::readFile(path);
        }
        return document_;
    }
    const bench::RecordedDocument& recording() {
        if (!recording_) {
            exportLarge();
            recording_.emplace(path);
        }
        return *recording_;
    }

  private:
    void exportLarge() {
        ZORFile::setFlushPolicy(ZORFlushPolicy::BUFFER_FULL);
        exporter.run(model(LARGE), path);
    }

    std::map<int, std::unique_ptr<ZORModel>> models_;
    std::map<int, std::size_t> modelBytes_;
    std::string document_;
    std::optional<bench::RecordedDocument> recording_;
};

Setting& setting() {
    static Setting setting;
    return setting;
}

/// Runs the action once per iteration, each time to a file that does not exist.
template <typename Action>
void measure(benchmark::State& state, Action action) {
    for (auto _ : state) {
        state.PauseTiming();
        std::filesystem::remove(setting().path);
        state.ResumeTiming();
        action();
    }
}

void exportModel(benchmark::State& state, ZORFlushPolicy policy) {
    ZORModel& model = setting().model(static_cast<int>(state.range(0)));
    ZORFile::setFlushPolicy(policy);
    measure(state, [&] { setting().exporter.run(model, setting().path); });
}

void exportBuffered(benchmark::State& state) {
    exportModel(state, ZORFlushPolicy::BUFFER_FULL);
}

void exportByLines(benchmark::State& state) {
    exportModel(state, ZORFlushPolicy::EACH_LINE);
}

void exportToDisk(benchmark::State& state) {
    ZORModel& model = setting().model(static_cast<int>(state.range(0)));
    ZORFile::setFlushPolicy(ZORFlushPolicy::BUFFER_FULL);
    measure(state, [&] {
        setting().exporter.run(model, setting().path);
        bench::flushToDisk(setting().path);
    });
}

void checkOnly(benchmark::State& state) {
    ZORModel& model = setting().model(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        if (!checkModel(model).empty()) {
            state.SkipWithError("the generated model is not sound");
        }
    }
}

void writeRaw(benchmark::State& state) {
    const std::string& document = setting().document();
    measure(state, [&] { bench::writeRaw(setting().path, document); });
}

void writeRawToDisk(benchmark::State& state) {
    const std::string& document = setting().document();
    measure(state, [&] {
        bench::writeRaw(setting().path, document);
        bench::flushToDisk(setting().path);
    });
}

void writeWithLibxml2(benchmark::State& state) {
    const bench::RecordedDocument& recording = setting().recording();
    measure(state, [&] { recording.writeWithLibxml2(setting().path); });
}

void registerBenchmarks() {
    using bench::add;
    add(RAW, writeRaw, LARGE, 1);
    add(EXPORT, exportBuffered, LARGE, 1);
    add(LIBXML2, writeWithLibxml2, LARGE, 1);
    add(CHECK, checkOnly, LARGE, 1);
    add(RAW_TO_DISK, writeRawToDisk, LARGE, 1);
    add(EXPORT_TO_DISK, exportToDisk, LARGE, 1);
    add(EXPORT, exportBuffered, MEDIUM, LARGE / MEDIUM);
    add(EXPORT, exportBuffered, SMALL, LARGE / SMALL);
    add(EXPORT_LINES, exportByLines, SMALL, 2);
}

void printRow(const Times& times, const char* name, const char* yardstick) {
    const double wall = times.wall(name, LARGE);
    const double cpu = times.cpu(name, LARGE);
    std::printf("%-38s %8.3f %8.3f", name, wall, cpu);
    if (yardstick != nullptr) {
        std::printf(" %8.0f %10.2f %8.2f", static_cast<double>(setting().document().size()) / 1e6 / wall,
                    wall / times.wall(yardstick, LARGE), cpu / times.cpu(yardstick, LARGE));
    }
    std::printf("\n");
}

void printTimes(const Times& times) {
    std::printf("\n%d tables of %d columns, a document of %.0f MB, medians of %d runs\n\n", LARGE,
                COLUMNS_PER_TABLE, static_cast<double>(setting().document().size()) / 1e6,
                bench::REPETITIONS);
    std::printf("%-38s %8s %8s %8s %10s %8s\n", "", "seconds", "CPU s", "MB/s", "times raw", "CPU");
    for (const char* name : {RAW, EXPORT, LIBXML2}) {
        printRow(times, name, RAW);
    }
    for (const char* name : {RAW_TO_DISK, EXPORT_TO_DISK}) {
        printRow(times, name, RAW_TO_DISK);
    }
    printRow(times, CHECK, nullptr);
    const auto wall = [&](const char* a, const char* b) {
        return times.wall(a, LARGE) / times.wall(b, LARGE);
    };
    const auto cpu = [&](const char* a, const char* b) { return times.cpu(a, LARGE) / times.cpu(b, LARGE); };
    std::printf(
        "\nThe export takes %.2f times as long as the raw write (CPU time: %.2f; aim: at most 2),\n"
        "%.2f times with the way to the disk.\n",
        wall(EXPORT, RAW), cpu(EXPORT, RAW), wall(EXPORT_TO_DISK, RAW_TO_DISK));
    std::printf(
        "libxml2's writer takes %.2f times as long as the export (CPU time: %.2f; aim: at least 4).\n",
        wall(LIBXML2, EXPORT), cpu(LIBXML2, EXPORT));
}

void printSizes(const Times& times) {
    std::printf("\n%-28s %8s %8s\n\n", "An export's time per column", "ns", "CPU ns");
    const auto row = [&](const char* name, const char* remark, int tables) {
        const int columns = tables * COLUMNS_PER_TABLE;
        std::printf("%9d columns%-11s %8.0f %8.0f\n", columns, remark,
                    times.wall(name, tables) / columns * 1e9, times.cpu(name, tables) / columns * 1e9);
    };
    for (const int tables : {SMALL, MEDIUM, LARGE}) {
        if (times.has(EXPORT, tables)) {
            row(EXPORT, "", tables);
        }
    }
    if (times.has(EXPORT_LINES, SMALL)) {
        row(EXPORT_LINES, ", by lines", SMALL);
    }
    std::printf("(\"by lines\": each line of the document is flushed on its own)\n");
}

void printMemory() {
    std::printf("\nMemory\n\n");
    constexpr int COLUMNS = LARGE * COLUMNS_PER_TABLE;
    ZORModel& model = setting().model(LARGE);
    const std::size_t objects = bench::countObjects(model);
    const std::size_t added = bench::measurePeakMemory(setting().exporter, model);
    const auto bytes = static_cast<double>(setting().modelBytes(LARGE));
    std::printf("loaded model:       %6.0f bytes per column, keys, indexes and relationships included\n",
                bytes / COLUMNS);
    std::printf("                    %6.0f bytes per object (%zu objects)\n",
                bytes / static_cast<double>(objects), objects);
    const std::size_t before = bench::allocatedBytes();
    const std::unique_ptr<ZORModel> wide = bench::generateModel({.tables = 1,
                                                                 .columnsPerTable = 30'000,
                                                                 .keysPerTable = 0,
                                                                 .relationshipsPerTable = 0,
                                                                 .columnsPerDescription = 0});
    std::printf("                    %6.0f bytes for a column alone, its name included\n",
                static_cast<double>(bench::allocatedBytes() - before) / 30'000);
    std::printf("added by an export: %6.1f bytes per object at the peak (aim: below 32)\n",
                static_cast<double>(added) / static_cast<double>(objects));
}

/// A yardstick that wrote something else would measure nothing.
bool yardstickWritesTheSame() {
    setting().recording().writeWithLibxml2(setting().otherPath);
    return bench::RecordedDocument(setting().otherPath) == setting().recording();
}

bool print(const Times& times) {
    const auto isThere = [&](const char* name) { return times.has(name, LARGE); };
    const bool isWhole = std::all_of(std::begin(AT_LARGE), std::end(AT_LARGE), isThere);
    if (isWhole && !yardstickWritesTheSame()) {
        std::fprintf(stderr,
                     "libxml2's writer produced another document than the export; nothing is comparable\n");
        return false;
    }
    if (isWhole) {
        printTimes(times);
    }
    printSizes(times);
    if (isWhole) {
        printMemory();
    }
    return true;
}

}  // namespace

int main(int argumentCount, char** arguments) {
    return bench::runProgram(argumentCount, arguments, registerBenchmarks, print);
}
