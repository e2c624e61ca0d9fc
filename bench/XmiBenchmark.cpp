// How fast a UML model is read from XMI, from the file to the finished model.
#include "Reading.h"
#include "UmlGenerator.h"
#include "xmi/XmiReader.h"

namespace {

constexpr const char* READER = "XMI reader";
constexpr int SMALL = 100;
constexpr int MEDIUM = 1'000;
constexpr int LARGE = 10'000;

void writeModel(const std::string& path, int classes) {
    bench::writeFile(path, bench::generateUmlModel(classes));
}

void readModel(benchmark::State& state) {
    static bench::GeneratedFiles files(".uml", writeModel);
    bench::measureReading(state, readers::xmiReader(), files.path(static_cast<int>(state.range(0))));
}

void addBenchmarks() {
    for (const int classes : {SMALL, MEDIUM, LARGE}) {
        bench::add(READER, readModel, classes, LARGE / classes);
    }
}

bool print(const bench::Times& times) {
    bench::printReadings(
        times, {.title = "Reading UML models in XMI, 8 attributes, 2 operations and 2 relationships a class",
                .benchmark = READER,
                .sizes = {SMALL, MEDIUM, LARGE},
                .sizeUnit = "classes",
                .unit = "class",
                .unitsPerSize = 1});
    return true;
}

}  // namespace

int main(int argumentCount, char** arguments) {
    return bench::runProgram(argumentCount, arguments, addBenchmarks, print);
}
