// How fast a model document is read, from the file to the finished model.
#include "DocumentGenerator.h"
#include "Reading.h"
#include "model_document/ModelDocumentReader.h"

namespace {

constexpr const char* READER = "model document reader";
constexpr int COLUMNS_PER_TABLE = 20;
constexpr int SMALL = 500;
constexpr int MEDIUM = 5'000;
constexpr int LARGE = 36'000;

void writeDocument(const std::string& path, int tables) {
    bench::writeFile(path, bench::generateDocument({tables, COLUMNS_PER_TABLE}));
}

void readDocument(benchmark::State& state) {
    static bench::GeneratedFiles files(".model.json", writeDocument);
    bench::measureReading(state, readers::modelDocumentReader(),
                          files.path(static_cast<int>(state.range(0))));
}

void addBenchmarks() {
    for (const int tables : {SMALL, MEDIUM, LARGE}) {
        bench::add(READER, readDocument, tables, LARGE / tables);
    }
}

bool print(const bench::Times& times) {
    bench::printReadings(times, {.title = "Reading model documents, 20 columns a table",
                                 .benchmark = READER,
                                 .sizes = {SMALL, MEDIUM, LARGE},
                                 .sizeUnit = "tables",
                                 .unit = "column",
                                 .unitsPerSize = COLUMNS_PER_TABLE});
    return true;
}

}  // namespace

int main(int argumentCount, char** arguments) {
    return bench::runProgram(argumentCount, arguments, addBenchmarks, print);
}
