// One recomputation of the slicer's live preview on long recordings: the cuts are undone, the item is selected again,
// analysed, cut anew, and the gaps are closed. Time spent inside the host's functions is told apart, so that the
// module's own share is seen; the host here is a stand-in that reads from memory, and another one's functions cost what
// they cost there.
#include <algorithm>
#include <chrono>
#include <memory>
#include <utility>
#include <vector>

#include "bench/ratios.h"
#include "host/actions.h"
#include "host/imports.h"
#include "module/entry.h"
#include "panel/slicer_page.h"
#include "panel/state.h"
#include "simhost/host.h"
#include "slicer/analysis.h"
#include "slicer/autosplit.h"
#include "slicer/preview.h"

namespace {

constexpr int Rate = 48000, ChannelCount = 2;

// --- Host functions that are timed

using Clock = std::chrono::steady_clock;
Clock::duration inHost;
int64_t callsOfHost;

template <auto slot>
struct Timed;
template <class Result, class... Arguments, Result (**slot)(Arguments...)>
struct Timed<slot> {
    static inline Result (*real)(Arguments...) = nullptr;
    static Result Call(Arguments... arguments) {
        const struct Stopwatch {
            Clock::time_point start = Clock::now();
            ~Stopwatch() {
                inHost += Clock::now() - start;
                ++callsOfHost;
            }
        } stopwatch;
        return real(arguments...);
    }
    static void Install() {
        real = *slot;
        if (real) *slot = Call;
    }
};

void TimeHostFunctions() {
#define TIMED(result, name, parameters) Timed<&host::name>::Install();
    FUNCOES_DO_HOST(TIMED)
#undef TIMED
}

// What one look at the clock takes; of the two around each call, one's worth falls on the module's side.
Clock::duration PriceOfClock() {
    constexpr int looks = 100000;
    const Clock::time_point start = Clock::now();
    for (int i = 0; i < looks; ++i) benchmark::DoNotOptimize(Clock::now());
    return (Clock::now() - start) / looks;
}

// --- The preview

// Hours of speech: 420 ms of sound, 180 ms of pause, over and over.
simhost::SourceRef Speech(int pieces) {
    constexpr int frames = Rate * 6 / 10;
    std::vector<double> period(frames * ChannelCount);
    std::fill_n(period.begin(), frames * 7 / 10 * ChannelCount, 0.25);
    return simhost::Made(Rate, ChannelCount, int64_t{pieces} * frames, [=](int64_t first, int left, double* out) {
        for (int n; left > 0; first += n, left -= n) {
            const int at = static_cast<int>(first % frames);
            n = std::min(left, frames - at);
            out = std::copy_n(period.data() + at * ChannelCount, n * ChannelCount, out);
        }
        return true;
    });
}

// The module on a host with so many pieces of speech, as one selected item.
struct Studio {
    explicit Studio(int pieces) {
        host.resourcePath = "nowhere/that/exists";
        ReaperPluginEntry(nullptr, host.Record());
        const simhost::SourceRef speech = Speech(pieces);
        host.project.tracks.Add(AddTrack(host.project, "Voz"), simhost::MakeItem("A", 0, speech->Length(), speech));
        host.project.tracks.SelectAll(true);
    }
    ~Studio() {
        RestaurarEstadoFatiador();
        ReaperPluginEntry(nullptr, nullptr);
    }
    simhost::Host host;
};

// The mode as a click on the panel leaves it, on the recording itself.
void Recompute(benchmark::State& state, int pieces) {
    Studio studio(pieces);
    TimeHostFunctions();
    studio.host.calls.FailFrom("Main_OnCommand", 1);
    AbrirFatiador();
    inHost = {};
    callsOfHost = 0;
    const Clock::time_point start = Clock::now();
    for (auto _ : state) RecalcularPreview(fecharLacunas, blocoMs, thresholdDb);
    const Clock::duration whole = Clock::now() - start;
    if (studio.host.project.tracks.ItemCount() != pieces) state.SkipWithError("not sliced as expected");
    const Clock::duration own = whole - inHost - callsOfHost * PriceOfClock();
    state.counters["% own"] = 100.0 * own.count() / whole.count();
    state.counters["pieces"] = studio.host.project.tracks.ItemCount();
}

// The same speech each time: as it was recorded, or glued from the pieces that were left where they sound.
void Analyse(benchmark::State& state, bool glued) {
    Studio studio(6000);
    simhost::TrackList& tracks = studio.host.project.tracks;
    if (glued) {
        Quilmo_AutoSplit(false, blocoMs, thresholdDb);
        tracks.SelectAll(true);
        studio.host.RunAction(acao::ColarItens);
    }
    MediaItem_Take* take = simhost::Host::Handle(*tracks.ItemAt(0)->Active());
    for (auto _ : state)
        if (AnalisarItem(take, tracks.ItemAt(0)->length, 0.014, 0.055).size() < 5999) state.SkipWithError("no pauses");
}

}  // namespace

int main(int argc, char** argv) {
    for (const auto& [name, pieces] : {std::pair{"10_min", 1000}, {"1_hour", 6000}, {"3_hours", 18000}})
        benchmark::RegisterBenchmark(name, Recompute, pieces)->Unit(benchmark::kMillisecond);
    for (const auto& [name, glued] : {std::pair{"recorded", false}, {"glued", true}})
        benchmark::RegisterBenchmark(name, Analyse, glued)->Unit(benchmark::kMillisecond)->Repetitions(5);
    return RunWithRatios(argc, argv,
                         {{"1 hour / 10 minutes (linear: 6)", "1_hour", "10_min", 7, true},
                          {"3 hours / 1 hour (linear: 3)", "3_hours", "1_hour", 3.5, true},
                          {"analysis of an hour, glued from pieces / recorded", "glued", "recorded", 1.5, true}});
}
