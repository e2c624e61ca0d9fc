#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

namespace bench {

/// How often each benchmark runs; tables show medians.
constexpr int REPETITIONS = 5;

/// Registers a benchmark that runs REPETITIONS times, each time with so many iterations.
template <typename Function>
void add(const char* name, Function* function, int size, int iterations) {
    benchmark::RegisterBenchmark(name, function)
        ->Arg(size)
        ->Iterations(iterations)
        ->Repetitions(REPETITIONS)
        ->UseRealTime();
}

/// Collects what the benchmarks of a program measure; its tables are printed when all of it is there.
/// A benchmark is called by its name and its argument, the size of what it works on.
class Times : public benchmark::BenchmarkReporter {
  public:
    bool ReportContext(const Context& /*context*/) override { return true; }
    void ReportRuns(const std::vector<Run>& runs) override;

    bool has(const char* name, int size) const { return !find(name, size).wall.empty(); }
    bool isEmpty() const noexcept { return collected_.empty(); }
    /// Whether a benchmark ended with an error, which stands on standard error by then.
    bool failed() const noexcept { return failed_; }

    /// Seconds per iteration; 0 when the benchmark did not run.
    double wall(const char* name, int size) const;
    double cpu(const char* name, int size) const;
    /// One of the benchmark's counters; 0 when it has none of that name.
    double counter(const char* name, int size, const char* counter) const;

  private:
    /// One value per repetition.
    struct Samples {
        std::vector<double> wall;
        std::vector<double> cpu;
        std::map<std::string, std::vector<double>> counters;
    };
    const Samples& find(const char* name, int size) const;

    std::map<std::string, Samples> collected_;
    bool failed_ = false;
};

/// The main function of a benchmark program: runs what `addBenchmarks` registers and hands it to `print`,
/// which returns false when the figures mean nothing. A run that was filtered tells only what it measured.
int runProgram(int argumentCount, char** arguments, void (*addBenchmarks)(), bool (*print)(const Times&));

}  // namespace bench
