#include "bench/ratios.h"

#include <cstdio>
#include <iostream>
#include <map>

namespace {

// Why that run ended early; null if it did not. Newer releases of the library name the fields anew.
template <class Run>
const std::string* Error(const Run& run) {
    if constexpr (requires { run.error_occurred; })
        return run.error_occurred ? &run.error_message : nullptr;
    else
        return run.skipped ? &run.skip_message : nullptr;
}

// One line for each benchmark: its fastest repetition, by CPU time.
class FastestRuns : public benchmark::BenchmarkReporter {
  public:
    std::map<std::string, double> seconds;
    bool failed = false;

    bool ReportContext(const Context& context) override {
        PrintBasicContext(&std::cerr, context);
        return true;
    }

    void ReportRuns(const std::vector<Run>& runs) override {
        const Run* fastest = nullptr;
        for (const Run& run : runs) {
            if (const std::string* error = Error(run)) {
                std::printf("%-44s %s\n", run.benchmark_name().c_str(), error->c_str());
                failed = true;
            } else if (run.run_type == Run::RT_Iteration && (!fastest || Seconds(run) < Seconds(*fastest))) {
                fastest = &run;
            }
        }
        if (!fastest) return;
        const std::string args = fastest->run_name.args.empty() ? "" : "/" + fastest->run_name.args;
        const std::string name = fastest->run_name.function_name + args;
        seconds[name] = Seconds(*fastest);
        std::printf("%-44s %12.6f ms", name.c_str(), 1e3 * seconds[name]);
        for (const auto& [what, counter] : fastest->counters) std::printf("   %.4g %s", counter.value, what.c_str());
        std::printf("\n");
    }

  private:
    static double Seconds(const Run& run) { return run.cpu_accumulated_time / static_cast<double>(run.iterations); }
};

void Print(const Ratio& ratio, const std::map<std::string, double>& seconds) {
    const auto above = seconds.find(ratio.numerator), below = seconds.find(ratio.denominator);
    if (above == seconds.end() || below == seconds.end()) return;  // left out by a filter
    const double value = above->second / below->second;
    std::printf("%-66s %7.2f", ratio.what.c_str(), value);
    if (ratio.goal > 0) {
        const bool met = ratio.atMost ? value <= ratio.goal : value >= ratio.goal;
        std::printf("  (goal: at %s %g%s)", ratio.atMost ? "most" : "least", ratio.goal, met ? "" : ", MISSED");
    }
    std::printf("\n");
}

}  // namespace

int RunWithRatios(int argc, char** argv, const std::vector<Ratio>& ratios) {
    // Many short repetitions that take turns: what else the machine does meanwhile falls on both sides of a ratio.
    std::vector<std::string> flags = {"--benchmark_enable_random_interleaving=true", "--benchmark_repetitions=25",
                                      "--benchmark_min_time=0.08"};
    std::vector<char*> arguments = {argv[0]};
    for (std::string& flag : flags) arguments.push_back(flag.data());
    arguments.insert(arguments.end(), argv + 1, argv + argc);
    int count = static_cast<int>(arguments.size());
    benchmark::Initialize(&count, arguments.data());
    if (benchmark::ReportUnrecognizedArguments(count, arguments.data())) return 1;
    FastestRuns fastest;
    benchmark::RunSpecifiedBenchmarks(&fastest);
    benchmark::Shutdown();
    std::printf("\n");
    for (const Ratio& ratio : ratios) Print(ratio, fastest.seconds);
    return fastest.failed;
}
