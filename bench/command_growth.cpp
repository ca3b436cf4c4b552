// How each edit command's cost grows with the project's items, on the stand-in host: ten times the items should cost
// about ten times the time and the calls into the host. Two have no goal for the time: MvClipCima asks for the
// selection anew after each move, as users see it, and the stand-in lists it anew; ExcluirRipple moves every item once
// for each deletion before it, in memory, because sums of lengths would round differently.
#include <map>
#include <memory>
#include <string>

#include "bench/ratios.h"
#include "commands/commands.h"
#include "module/entry.h"
#include "simhost/calls.h"
#include "tests/support/sources.h"

namespace {

constexpr int Few = 1000, Many = 10000;

struct Command {
    const char* name;
    void (*run)();
};
const Command Commands[] = {
#define ROW(command) {#command, command},
    COMANDOS_DE_EDICAO(ROW)
#undef ROW
        {"AplicarCorItens", [] { AplicarCorItens(1, 2, 3); }},
    {"AplicarCorFaixas", [] { AplicarCorFaixas(1, 2, 3); }},
    {"ZoomAllFaixas", [] { ZoomAllFaixas(true); }},
    {"TodosItensMudos", [] { TodosItensMudos(); }},
};

// Two tracks of items with pauses between them; every other item is selected, or only the one under the cursor for a
// command that takes no more.
std::unique_ptr<simhost::Host> Scene(int items, bool onlyOne) {
    auto host = std::make_unique<simhost::Host>();
    host->preferences.sortsAtOnce = false;       // the host's own sorting is not what is measured
    host->resourcePath = "nowhere/that/exists";  // the log line is lost, and nobody minds
    host->dialogs.onMessage = [](const std::string&, const std::string&, int) { return 6; };
    host->dialogs.onInput = [](const simhost::ShownInput&) { return "nome"; };
    const simhost::SourceRef tone = Silence(8000, 1, 8000);
    for (const char* name : {"Voz", "Som"}) {
        simhost::Track& track = AddTrack(host->project, name);
        track.selected = true;
        for (int i = 0; i < items / 2; ++i) {
            simhost::Item& item = host->project.tracks.Add(track, simhost::MakeItem("a", i, i + 0.75, tone));
            const bool underCursor = i == items / 4 && track.index == 0;
            host->project.tracks.Select(item, onlyOne ? underCursor : i % 2 == 0);
        }
    }
    host->project.cursor = items / 4 + 0.5;
    return host;
}

int64_t Calls(const simhost::Host& host) {
    int64_t sum = 0;
    for (const simhost::Function& function : simhost::Functions) sum += host.calls.Count(function.name);
    return sum;
}

std::map<std::string, int64_t> callsOfFew;

void Run(benchmark::State& state, const Command& command, int items) {
    const std::string name = command.name;
    const bool onlyOne = name.starts_with("Trim") || name == "SelecaoFluxo";
    int64_t calls = 0;
    for (auto _ : state) {
        state.PauseTiming();
        auto host = Scene(items, onlyOne);
        if (ReaperPluginEntry(nullptr, host->Record()) != 1) state.SkipWithError("the module does not load");
        const int64_t before = Calls(*host);
        state.ResumeTiming();

        command.run();

        state.PauseTiming();
        calls = Calls(*host) - before;
        if (!host->Check()) state.SkipWithError("the host was misused");
        host.reset();
        state.ResumeTiming();
    }
    state.counters["calls"] = static_cast<double>(calls);
    if (items == Few) callsOfFew[name] = calls;
    if (items == Many && callsOfFew.count(name) && calls > 15 * callsOfFew[name])
        state.SkipWithError("the calls grow faster than the items");
}

}  // namespace

int main(int argc, char** argv) {
    std::vector<Ratio> ratios;
    for (const Command& command : Commands) {
        const std::string name = command.name;
        const std::string few = name + "_few", many = name + "_many";
        for (const int items : {Few, Many})
            benchmark::RegisterBenchmark((items == Few ? few : many).c_str(), Run, command, items)
                ->Unit(benchmark::kMillisecond)
                ->Iterations(items == Few ? 5 : 1)
                ->Repetitions(3);
        const double goal = name == "MvClipCima" || name == "ExcluirRipple" ? 0 : 15;
        ratios.push_back({name + ": 10 000 items / 1 000", many, few, goal, true});
    }
    return RunWithRatios(argc, argv, ratios);
}
