// How fast a model document is read, from the file to the finished model.
#include <benchmark/benchmark.h>
#include <malloc.h>

#include <cstdio>
#include <fstream>
#include <string>

#include "DocumentGenerator.h"
#include "model_document/ModelDocumentReader.h"

namespace {

class SilentContext : public readers::ReadContext {
  public:
    void warn(const std::string& /*where*/, const std::string& /*text*/) override {}
    void progress(std::uint64_t /*objects*/) override {}
};

std::size_t allocatedBytes() {
    const struct mallinfo2 info = mallinfo2();
    return info.uordblks + info.hblkhd;
}

/// A generated document in a file, removed afterwards.
class DocumentFile {
  public:
    explicit DocumentFile(const bench::DocumentShape& shape) {
        std::ofstream file(path_, std::ios::binary);
        const std::string text = bench::generateDocument(shape);
        size_ = text.size();
        file << text;
    }
    ~DocumentFile() { std::remove(path_); }
    DocumentFile(const DocumentFile&) = delete;
    DocumentFile& operator=(const DocumentFile&) = delete;

    const char* path() const { return path_; }
    std::size_t size() const { return size_; }

  private:
    const char* path_ = "bench_document.model.json";
    std::size_t size_ = 0;
};

/// Reads tables of 20 columns. What remains is the model alone: the text and the parser's memory are gone.
void readDocument(benchmark::State& state) {
    const bench::DocumentShape shape = {static_cast<int>(state.range(0)), 20};
    const DocumentFile file(shape);
    const double columns = static_cast<double>(shape.tables) * shape.columnsPerTable;
    double modelBytes = 0;
    for (auto _ : state) {
        SilentContext context;
        const std::size_t before = allocatedBytes();
        auto model = readers::modelDocumentReader().read(readers::Source::fromFile(file.path()), {}, context);
        state.PauseTiming();
        modelBytes = static_cast<double>(allocatedBytes() - before);
        model.reset();
        malloc_trim(0);  // every reading begins with memory that was never used, as in a program of its own
        state.ResumeTiming();
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(file.size()) * state.iterations());
    state.counters["document MB"] = static_cast<double>(file.size()) / 1e6;
    state.counters["model bytes/column"] = modelBytes / columns;
    state.counters["time/column"] = benchmark::Counter(
        columns, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

BENCHMARK(readDocument)->Arg(500)->Arg(5000)->Arg(36000)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
