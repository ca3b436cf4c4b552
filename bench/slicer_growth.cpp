// How the slicer's cost grows with the pieces of an item and with the items of a selection, on the stand-in host: the
// whole call, as a script makes it, with its cuts, moves, fades and undo point.
#include <string>

#include "bench/ratios.h"
#include "module/entry.h"
#include "simhost/host.h"
#include "slicer/autosplit.h"
#include "tests/support/sources.h"

namespace {

constexpr int Rate = 8000;

// So many items, one behind another, each of so many bursts of 80 ms with pauses of 120 ms.
void Slice(benchmark::State& state, int items, int pieces) {
    std::vector<Segment> segments;
    for (int i = 0; i < pieces; ++i) {
        segments.push_back({Rate * 80 / 1000, 0.5});
        segments.push_back({Rate * 120 / 1000, 0.0});
    }
    const simhost::SourceRef speech = Bursts(Rate, 1, segments);
    for (auto _ : state) {
        state.PauseTiming();
        auto host = std::make_unique<simhost::Host>();
        host->resourcePath = "nowhere/that/exists";  // the log line is lost, and nobody minds
        if (ReaperPluginEntry(nullptr, host->Record()) != 1) state.SkipWithError("the module does not load");
        simhost::Track& track = AddTrack(host->project, "Voz");
        for (int i = 0; i < items; ++i)
            host->project.tracks.Add(track,
                                     simhost::MakeItem("A", i * speech->Length(), (i + 1) * speech->Length(), speech));
        host->project.tracks.SelectAll(true);
        state.ResumeTiming();

        Quilmo_AutoSplit(true, 55, -37.0);

        state.PauseTiming();
        if (host->project.tracks.ItemCount() != items * pieces) state.SkipWithError("not sliced as expected");
        host.reset();
        state.ResumeTiming();
    }
    state.counters["pieces/s"] =
        benchmark::Counter(static_cast<double>(state.iterations()) * items * pieces, benchmark::Counter::kIsRate);
}

}  // namespace

int main(int argc, char** argv) {
    for (const int many : {1, 10, 100, 1000}) {
        const std::string pieces = "pieces_" + std::to_string(many), items = "items_" + std::to_string(many);
        benchmark::RegisterBenchmark(pieces.c_str(), Slice, 1, many)->Unit(benchmark::kMillisecond)->Repetitions(3);
        benchmark::RegisterBenchmark(items.c_str(), Slice, many, 10)->Unit(benchmark::kMillisecond)->Repetitions(3);
    }
    return RunWithRatios(argc, argv,
                         {{"pieces of an item: 100 / 10 (linear: 10)", "pieces_100", "pieces_10", 13, true},
                          {"pieces of an item: 1000 / 100 (linear: 10)", "pieces_1000", "pieces_100", 13, true},
                          {"items: 10 / 1 (linear: 10)", "items_10", "items_1", 13, true},
                          {"items: 100 / 10 (linear: 10)", "items_100", "items_10", 13, true},
                          {"items: 1000 / 100 (linear: 10)", "items_1000", "items_100", 13, true}});
}
