// How fast a SQLite database is read, beside SQLite's own program that prints its schema.
#include <algorithm>
#include <cstdio>

#include "DatabaseGenerator.h"
#include "Reading.h"
#include "SqliteShell.h"
#include "sqlite/SqliteReaders.h"

namespace {

constexpr const char* READER = "SQLite reader";
constexpr const char* SCHEMA = "sqlite3 FILE .schema";
constexpr const char* START = "sqlite3 FILE .exit";
constexpr const char* CHILD_CPU = "processor time of the process";
constexpr int COLUMNS_PER_TABLE = 20;
constexpr int SMALL = 100;
constexpr int MEDIUM = 1'000;
constexpr int LARGE = 5'000;

const std::string& databaseOf(const benchmark::State& state) {
    static bench::GeneratedFiles files(".sqlite", [](const std::string& path, int tables) {
        bench::generateDatabase(path, {tables, COLUMNS_PER_TABLE});
    });
    return files.path(static_cast<int>(state.range(0)));
}

void readDatabase(benchmark::State& state) {
    bench::measureReading(state, readers::sqliteDatabaseReader(), databaseOf(state));
}

void runShell(benchmark::State& state, const char* command) {
    const std::string& path = databaseOf(state);
    double cpu = 0;
    for (auto _ : state) {
        cpu += bench::runSqliteShell(path, command, "/dev/null");
    }
    state.counters[CHILD_CPU] = cpu / static_cast<double>(state.iterations());
}

void printSchema(benchmark::State& state) {
    runShell(state, ".schema");
}

void startOnly(benchmark::State& state) {
    runShell(state, ".exit");
}

void addBenchmarks() {
    for (const int tables : {SMALL, MEDIUM, LARGE}) {
        bench::add(READER, readDatabase, tables, LARGE / tables);
        bench::add(SCHEMA, printSchema, tables, LARGE / tables);
    }
    bench::add(START, startOnly, MEDIUM, LARGE / MEDIUM);
}

void printComparison(const bench::Times& times) {
    const auto sizes = {SMALL, MEDIUM, LARGE};
    const auto isThere = [&](int tables) { return times.has(READER, tables) && times.has(SCHEMA, tables); };
    if (std::none_of(sizes.begin(), sizes.end(), isThere)) {
        return;
    }
    std::printf("\n%10s %10s %8s %12s %8s %14s %8s\n", "tables", "reader ms", "CPU ms", ".schema ms",
                "CPU ms", "times .schema", "CPU");
    for (const int tables : sizes) {
        if (isThere(tables)) {
            const double wall = times.wall(SCHEMA, tables);
            const double cpu = times.counter(SCHEMA, tables, CHILD_CPU);
            std::printf("%10d %10.1f %8.1f %12.1f %8.1f %14.2f %8.2f\n", tables,
                        times.wall(READER, tables) * 1e3, times.cpu(READER, tables) * 1e3, wall * 1e3,
                        cpu * 1e3, times.wall(READER, tables) / wall, times.cpu(READER, tables) / cpu);
        }
    }
    if (times.has(START, MEDIUM)) {
        std::printf("(\".schema\": the process \"%s\", of which its start takes %.1f ms, CPU %.1f)\n", SCHEMA,
                    times.wall(START, MEDIUM) * 1e3, times.counter(START, MEDIUM, CHILD_CPU) * 1e3);
    }
}

bool print(const bench::Times& times) {
    bench::printReadings(
        times, {.title = "Reading SQLite databases, 20 columns a table, an index each, a view to ten tables",
                .benchmark = READER,
                .sizes = {SMALL, MEDIUM, LARGE},
                .sizeUnit = "tables",
                .unit = "table",
                .unitsPerSize = 1});
    printComparison(times);
    return true;
}

}  // namespace

int main(int argumentCount, char** arguments) {
    return bench::runProgram(argumentCount, arguments, addBenchmarks, print);
}
