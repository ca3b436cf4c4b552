#include "bench/ratios.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <map>
#include <string>

namespace {

class FastestRuns : public benchmark::ConsoleReporter {
  public:
    std::map<std::string, double> seconds;

    void ReportRuns(const std::vector<Run>& runs) override {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& run : runs) {
            if (run.run_type != Run::RT_Iteration || run.error_occurred) continue;
            const double time = run.cpu_accumulated_time / static_cast<double>(run.iterations);
            const std::string args = run.run_name.args.empty() ? "" : "/" + run.run_name.args;
            const auto [entry, fresh] = seconds.emplace(run.run_name.function_name + args, time);
            if (!fresh) entry->second = std::min(entry->second, time);
        }
    }
};

void Print(const Ratio& ratio, const std::map<std::string, double>& seconds) {
    const auto above = seconds.find(ratio.numerator), below = seconds.find(ratio.denominator);
    if (above == seconds.end() || below == seconds.end()) return;  // left out by a filter
    const double value = above->second / below->second;
    std::printf("%-66s %7.2f", ratio.what, value);
    if (ratio.goal > 0) {
        const bool met = ratio.atMost ? value <= ratio.goal : value >= ratio.goal;
        std::printf("  (goal: at %s %g%s)", ratio.atMost ? "most" : "least", ratio.goal, met ? "" : ", MISSED");
    }
    std::printf("\n");
}

}  // namespace

int RunWithRatios(int argc, char** argv, const std::vector<Ratio>& ratios) {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    FastestRuns fastest;
    benchmark::RunSpecifiedBenchmarks(&fastest);
    benchmark::Shutdown();
    std::printf("\n");
    for (const Ratio& ratio : ratios) Print(ratio, fastest.seconds);
    return 0;
}
