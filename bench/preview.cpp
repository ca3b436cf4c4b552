// One recomputation of the slicer's live preview on long recordings: the cuts are undone, the item is selected again,
// analysed, cut anew, and the gaps are closed. Time spent inside the host's functions is told apart, so that the
// module's own share is seen; the host here is a stand-in, and another one's functions cost what they cost there. The
// clocks around each call add a few hundredths, which count as the module's.
#include <benchmark/benchmark.h>

#include <chrono>
#include <string>

#include "bench/ratios.h"
#include "host/entry.h"
#include "host/imports.h"
#include "panel/state.h"
#include "simhost/host.h"
#include "slicer/preview.h"

namespace {

constexpr int Rate = 48000, Channels = 2;

// --- Host functions that are timed

using Clock = std::chrono::steady_clock;
Clock::duration inHost;

template <class Function>
struct Timed;
template <class Result, class... Arguments>
struct Timed<Result (*)(Arguments...)> {
    template <Result (**slot)(Arguments...)>
    struct Slot {
        static inline Result (*real)(Arguments...) = nullptr;
        static Result Call(Arguments... arguments) {
            const struct Stopwatch {
                Clock::time_point start = Clock::now();
                ~Stopwatch() { inHost += Clock::now() - start; }
            } stopwatch;
            return real(arguments...);
        }
        static void Install() {
            real = *slot;
            if (real) *slot = Call;
        }
    };
};

void TimeHostFunctions() {
#define TIMED(result, name, parameters) Timed<decltype(host::name)>::Slot<&host::name>::Install();
    FUNCOES_DO_HOST(TIMED)
#undef TIMED
}

// --- The preview

// Bursts of speech with pauses, `pieces` of them over the whole length.
simhost::SourceRef Speech(double seconds, int pieces) {
    const auto frames = static_cast<int64_t>(seconds * Rate) / pieces;
    std::vector<simhost::Segment> segments;
    for (int i = 0; i < pieces; ++i) {
        segments.push_back({frames * 7 / 10, 0.25});
        segments.push_back({frames - frames * 7 / 10, 0.0});
    }
    return simhost::Bursts(Rate, Channels, segments);
}

// The mode as a click on the panel leaves it, without the bounce of the entry, which would hold hours in memory.
void Recompute(benchmark::State& state, double seconds, int pieces) {
    auto host = std::make_unique<simhost::Host>();
    host->resourcePath = "nowhere/that/exists";
    if (ReaperPluginEntry(nullptr, host->Record()) != 1) state.SkipWithError("the module does not load");
    TimeHostFunctions();
    const simhost::SourceRef speech = Speech(seconds, pieces);
    host->project.tracks.Add(AddTrack(host->project, "Voz"), simhost::MakeItem("A", 0, seconds, speech));
    host->project.tracks.SelectAll(true);
    host->FailFrom("Main_OnCommand", 1);
    EntrarModoFatiador();
    inHost = {};
    const Clock::time_point start = Clock::now();
    for (auto _ : state) RecalcularPreview(fecharLacunas, blocoMs, thresholdDb);
    const Clock::duration whole = Clock::now() - start;
    if (host->project.tracks.ItemCount() != pieces) state.SkipWithError("not sliced as expected");
    state.counters["% own"] = 100 - 100.0 * inHost.count() / whole.count();
    state.counters["pieces"] = host->project.tracks.ItemCount();
    RestaurarEstadoFatiador();
    ReaperPluginEntry(nullptr, nullptr);
}

}  // namespace

int main(int argc, char** argv) {
    const struct {
        const char* name;
        double seconds;
        int pieces;
    } lengths[] = {{"10_min", 600, 1000}, {"1_hour", 3600, 6000}, {"3_hours", 10800, 18000}};
    for (const auto& [name, seconds, pieces] : lengths)
        benchmark::RegisterBenchmark(name, Recompute, seconds, pieces)->Unit(benchmark::kMillisecond);
    return RunWithRatios(argc, argv,
                         {{"1 hour / 10 minutes (linear: 6)", "1_hour", "10_min", 7, true},
                          {"3 hours / 1 hour (linear: 3)", "3_hours", "1_hour", 3.5, true}});
}
