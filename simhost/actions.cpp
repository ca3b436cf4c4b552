// The numbered actions. One that edited something makes an undo point of its own, or belongs to the block that is open.
#include "simhost/actions.h"

#include <algorithm>

#include "host/actions.h"
#include "platform/files.h"
#include "simhost/calls.h"

namespace simhost {

static void UnselectTracks(Host& host) {
    for (Track* track : SelectedTracks(host)) track->selected = false;
}

static void ZoomToItems(Host& host) {
    if (host.actions.toggles[acao::ZoomNosItens] == 0) {
        host.project.view = host.screen.beforeZoom;
        return;
    }
    host.screen.beforeZoom = host.project.view;
    if (const auto& items = host.project.tracks.Selected(); !items.empty()) host.project.view = SpanOf(items);
}

// What stays where it is: the cursor where it is in view, else the middle.
static void ScaleView(Host& host, double factor) {
    const auto [start, end] = host.project.view;
    const double cursor = host.project.cursor, still = start <= cursor && cursor <= end ? cursor : (start + end) / 2;
    host.project.view = {std::max(0.0, still - (still - start) * factor), still + (end - still) * factor};
}

// Heights that tracks have of their own change alike.
static void ZoomVertically(Host& host, int times, int over) {
    const auto zoomed = [=](int height) { return std::clamp(height * times / over, 30, 600); };
    host.screen.laneHeight = zoomed(host.screen.laneHeight);
    for (int i = 0; Track* track = host.project.tracks.At(i); ++i)
        if (track->height > 0) track->height = zoomed(static_cast<int>(std::min(track->height, 600.0)));
}

static const struct Action {
    int number;
    const char* name;                    // also the undo point's title
    void (*run)(Host& host);             // null: only recorded, unless there is an edit
    bool (*edit)(Host& host) = nullptr;  // false: nothing was edited, so there is no undo point
    bool toggles = false;                // flips its toggle state before it runs
} HostActions[] = {
    {acao::Tocar, "Play", Play},
    {acao::Parar, "Stop", Stop},
    {acao::Gravar, "Record", Record},
    {acao::TocarOuPausar, "Play/pause", PlayPause},
    {acao::TocarOuParar, "Play/stop", PlayStop},
    {acao::PararGravacao, "Play/stop, moving the cursor", PlayStopMovingCursor},
    {acao::IrAoInicio, "Go to start of project", [](Host& host) { host.project.cursor = 0; }},
    {acao::IrAoFim, "Go to end of project", [](Host& host) { host.project.cursor = ProjectEnd(host.project); }},
    {acao::TirarSelecaoDeTempo, "Remove time selection",
     [](Host& host) { host.project.timeSelection = host.project.loop = {}; }},
    {acao::DesselecionarFaixas, "Unselect all tracks", UnselectTracks},
    {acao::RemoverItens, "Remove items", nullptr, RemoveByFocus},
    {acao::ApararBordaEsquerda, "Trim left edge of items", nullptr, TrimLeftEdge},
    {acao::ApararBordaDireita, "Trim right edge of items", nullptr, TrimRightEdge},
    {acao::ColarItens, "Glue items", nullptr, Glue},
    {acao::ColarSelecao, "Glue items", nullptr, Glue},
    {acao::RenderTakeStereo, "Render items to new stereo take", nullptr,
     [](Host& host) { return RenderTakes(host, 2); }},
    {acao::RenderTakeMono, "Render items to new mono take", nullptr, [](Host& host) { return RenderTakes(host, 1); }},
    {acao::AlternarTakesEmPistas, "Show all takes in lanes", nullptr, nullptr, true},
    {acao::AlternarEnvelopeDeVolume, "Toggle take volume envelope", nullptr, ToggleVolumeEnvelope},
    {acao::ZoomNosItens, "Zoom to selected items", ZoomToItems, nullptr, true},
    {acao::AfastarHorizontal, "Zoom out horizontally", [](Host& host) { ScaleView(host, 2); }},
    {acao::AproximarHorizontal, "Zoom in horizontally", [](Host& host) { ScaleView(host, 0.5); }},
    {acao::AproximarVertical, "Zoom in vertically", [](Host& host) { ZoomVertically(host, 5, 4); }},
    {acao::AfastarVertical, "Zoom out vertically", [](Host& host) { ZoomVertically(host, 4, 5); }},
    {acao::DuplicarItens, "Duplicate items", nullptr, DuplicateItems},
    {acao::DuplicarFaixas, "Duplicate tracks", nullptr, DuplicateTracks},
    {acao::ApagarTakeAtivo, "Delete active take", nullptr, DeleteActiveTake},
    {acao::AlternarMediaExplorer, "Media explorer", nullptr},
    {acao::AbrirConfigRender, "Render dialog", nullptr},
    {acao::AbrirPastaDoRender, "Open render output", nullptr},
    {acao::RenderizarProjeto, "Render project, closing the window", nullptr},
    {acao::RenderizarComUltimas, "Render project", nullptr},
    {acao::DesligarSnap, "Disable snapping", nullptr},
    {acao::AlternarLinhasDeGrade, "Toggle grid lines", nullptr, nullptr, true},
    {acao::Opcao1161, "1161", nullptr, nullptr, true},
    {acao::DesligarOpcao1161, "1162", nullptr},
};

bool Host::RunAction(const std::string& idText) {
    const int number = extension.ActionNumber(idText);
    if (!number) return false;
    actions.run.push_back(number);
    return RunRegistered(number);
}

// A hook may run actions itself, or register more, so the list is walked by index.
bool Host::RunRegistered(int number) {
    for (size_t i = 0; i < extension.registrations.size(); ++i) {
        const Registration& r = extension.registrations[i];
        using Hook = bool (*)(KbdSectionInfo*, int, int, int, int, HWND);
        if (r.name == "hookcommand2" && reinterpret_cast<Hook>(r.info)(nullptr, number, 0, 0, 0, mainWindow))
            return true;
    }
    return false;
}

static void Run(Host& host, const Action& action) {
    if (action.toggles) host.actions.toggles[action.number] ^= 1;
    if (action.run) action.run(host);
    const auto outside = host.actions.outside.find(action.number);
    if (outside != host.actions.outside.end()) outside->second();
    if (!action.edit) return;
    host.undo.Begin();
    if (action.edit(host))
        host.undo.End(action.name);
    else
        host.undo.Drop();
}

void Host::RunAction(int number) {
    actions.run.push_back(number);
    for (const Action& action : HostActions)
        if (action.number == number) return Run(*this, action);
    for (const Script& script : scripts.added)
        if (script.number == number) {
            const Script copy = script;  // it may take itself out
            scripts.run.push_back(copy);
            if (scripts.runner) scripts.runner(copy);
            return;
        }
    if (!RunRegistered(number)) Violate("there is no action " + std::to_string(number));
}

// The command number; 0 when the file cannot be read, or is to be removed and was never added.
int api::AddRemoveReaScript(bool add, int, const char* file, bool) {
    Host& host = Host::Current();
    std::vector<Script>& scripts = host.scripts.added;
    const std::string path = file ? file : "";
    const auto script =
        std::find_if(scripts.begin(), scripts.end(), [&path](const Script& s) { return s.path == path; });
    if (script != scripts.end()) {
        const int number = script->number;
        if (!add) scripts.erase(script);
        return number;
    }
    if (!add) host.Violate("the script " + path + " is not in the action list");
    std::string text;
    if (!add || !ReadTextFile(path, text)) return 0;
    scripts.push_back({++host.actions.lastNumber, path, text});
    return host.actions.lastNumber;
}

void api::Main_OnCommand(int command, int) { Host::Current().RunAction(command); }

int api::GetToggleCommandState(int command) {
    const Host& host = Host::Current();
    if (command == acao::Gravar) return host.transport.state & Transport::Recording ? 1 : 0;
    for (size_t i = 0; i < host.extension.registrations.size(); ++i) {
        const Registration& r = host.extension.registrations[i];
        if (r.name != "toggleaction") continue;
        const int state = reinterpret_cast<int (*)(int)>(r.info)(command);
        if (state != -1) return state;
    }
    const auto found = host.actions.toggles.find(command);
    return found == host.actions.toggles.end() ? -1 : found->second;
}

}  // namespace simhost
