#include <filesystem>

#include "apps/common/text.h"
#include "apps/studio/dialogs.h"
#include "apps/studio/render.h"
#include "apps/studio/wave_file.h"
#include "apps/studio/window.h"

constexpr char Title[] = "Quilmo Studio";
constexpr int PanelRoom = 360;  // pixels that the panel takes inside the window's right edge, at any scale

void StudioWindow::Open(const std::string& path) {
    std::string error;
    const simhost::SourceRef source = OpenWaveFile(path, &error);
    if (!source) {
        ShowMessage(error, Title, MB_ICONWARNING);
        return;
    }
    const bool changed = Changed(), first = host_.project.tracks.Count() == 0;
    const std::filesystem::path full = std::filesystem::absolute(Wide(path));
    opened_ = Utf8(full.wstring());
    files_[source] = opened_;
    const std::string file = Utf8(full.filename().wstring()), name = Utf8(full.stem().wstring());
    host_.undo.Begin();
    host_.project.tracks.SelectAll(false);
    simhost::Track& track = AddTrack(host_.project, name);
    simhost::Item item = simhost::MakeItem(name, 0, source->Length(), source);
    item.selected = true;
    host_.project.tracks.Add(track, std::move(item));
    SelectTrack(&track, false);
    host_.undo.End("Abrir " + file);
    RenderBeside(host_.project, path, *source);
    view_.ScrollDownTo(ArrangementHeight(host_.project, view_.Layout()));  // the new track's place
    view_.ShowAll(first ? PanelRoom : 0);
    Stale();
    if (!changed) CallItSaved();
    SetWindowTextW(window_, Wide(file + " - " + Title).c_str());
}

void StudioWindow::Choose() {
    if (const auto path = AskForRecording()) Open(*path);
}

void StudioWindow::ShowRecordings() {
    if (!ShowFolder(window_, Utf8(std::filesystem::path(Wide(opened_)).parent_path().wstring())))
        ShowMessage("Nenhuma gravação foi aberta ainda.", Title, MB_ICONINFORMATION);
}

void StudioWindow::Save() {
    std::filesystem::path offered = Wide(host_.project.path.empty() ? opened_ : host_.project.path);
    offered.replace_extension(L".rpp");
    const auto path = AskWhereToSave(Utf8(offered.wstring()));
    if (!path) return;
    std::string error;
    lastTick_ = GetTickCount64();
    if (!SaveProject(
            host_.project, *path, files_, [this] { Working(); }, &error)) {
        ShowMessage(error, Title, MB_ICONWARNING);
        return;
    }
    host_.project.path = *path;
    CallItSaved();
}

// Some edits make no undo point, and the project's file does not hold all that undo takes back; so both are compared.
bool StudioWindow::Changed() { return host_.undo.Titles() != keptTitles_ || Kept(host_.project) != keptText_; }

void StudioWindow::CallItSaved() {
    keptTitles_ = host_.undo.Titles();
    keptText_ = Kept(host_.project);
}

void StudioWindow::ShowAll() {
    view_.ShowAll();
    Stale();
}

void StudioWindow::Drop(HDROP drop) {
    const UINT count = DragQueryFileW(drop, 0xFFFFFFFF, nullptr, 0);
    for (UINT i = 0; i < count; ++i) {
        std::wstring path(DragQueryFileW(drop, i, nullptr, 0) + 1, L'\0');
        path.resize(DragQueryFileW(drop, i, path.data(), static_cast<UINT>(path.size())));
        Open(Utf8(path));
    }
    DragFinish(drop);
}
