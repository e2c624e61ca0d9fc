#include "Times.h"

#include <algorithm>
#include <cstdio>
#include <exception>

namespace bench {
namespace {

double median(std::vector<double> values) {
    if (values.empty()) {
        return 0;
    }
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

}  // namespace

void Times::ReportRuns(const std::vector<Run>& runs) {
    for (const Run& run : runs) {
        if (run.error_occurred) {
            std::fprintf(stderr, "%s: %s\n", run.run_name.function_name.c_str(), run.error_message.c_str());
            failed_ = true;
        } else if (run.run_type == Run::RT_Iteration) {
            Samples& samples = collected_[run.run_name.function_name + '/' + run.run_name.args];
            const auto iterations = static_cast<double>(run.iterations);
            samples.wall.push_back(run.real_accumulated_time / iterations);
            samples.cpu.push_back(run.cpu_accumulated_time / iterations);
            for (const auto& [name, counter] : run.counters) {
                samples.counters[name].push_back(counter.value);
            }
        }
    }
}

double Times::wall(const char* name, int size) const {
    return median(find(name, size).wall);
}

double Times::cpu(const char* name, int size) const {
    return median(find(name, size).cpu);
}

double Times::counter(const char* name, int size, const char* counter) const {
    const Samples& samples = find(name, size);
    const auto found = samples.counters.find(counter);
    return found == samples.counters.end() ? 0 : median(found->second);
}

const Times::Samples& Times::find(const char* name, int size) const {
    static const Samples none;
    const auto found = collected_.find(std::string(name) + '/' + std::to_string(size));
    return found == collected_.end() ? none : found->second;
}

int runProgram(int argumentCount, char** arguments, void (*addBenchmarks)(), bool (*print)(const Times&)) {
    benchmark::Initialize(&argumentCount, arguments);
    if (benchmark::ReportUnrecognizedArguments(argumentCount, arguments)) {
        return 2;
    }
    try {
        addBenchmarks();
        Times times;
        benchmark::RunSpecifiedBenchmarks(&times);
        return times.failed() || (!times.isEmpty() && !print(times)) ? 1 : 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s: %s\n", arguments[0], error.what());
        return 1;
    }
}

}  // namespace bench
