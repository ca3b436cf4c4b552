// retratos: takes the manual's pictures of the real module's panel on the headless desktop. The same module, fonts and
// recording give the same pictures, so that a changed picture tells of a changed panel.
#include <filesystem>

#include "apps/common/plugin.h"
#include "apps/common/recording.h"
#include "apps/common/tool.h"
#include "apps/common/user.h"

namespace fs = std::filesystem;

// The main page's rows, by their first widgets.
static constexpr struct {
    const char *name, *widget;
} Rows[] = {
    {"gravar", "GRAVAR"},      {"tocar", "PLAY / PAUSE"}, {"parar", "PARAR"},
    {"navegacao", "start"},    {"regioes", "1"},          {"edicao", "[< TRIM"},
    {"itens", "DUP"},          {"mover", "MEDIA"},        {"lacunas", "AUTO FATIADOR"},
    {"selecao", "SELECIONAR"}, {"zoom", "zoom_in"},       {"bounce", "BOUNCE"},
    {"render", "RENDER"},
};

class Album {
  public:
    Album(const fs::path& recording, const fs::path& folder);
    ~Album() { fs::remove_all(home_); }

    void MainPage();
    void SlicerPage();
    void AtWork();
    void CloseUp();

  private:
    void Keep(const char* name, int top = 0, int height = 0) { user_.Photograph(Path(name), top, height); }
    // From the first widget's row to the last one's, with a little of the ground.
    void KeepRows(const char* name, const char* first, const char* last) {
        const Widget top = FindWidget(first);
        const int margin = top.h / 12;
        Keep(name, top.y - margin, FindWidget(last).Bottom() + 2 * margin - top.y);
    }
    void KeepRow(const char* name, const char* widget) { KeepRows(name, widget, widget); }
    void KeepArrangement(const char* name) {
        constexpr ArrangementLayout layout = {.headerWidth = 80, .rulerHeight = 44, .laneHeight = 90};
        PhotographArrangement(host_.project, length_, Path(name), 900, layout);
    }
    std::string Path(const char* name) const { return (folder_ / name).string() + ".png"; }

    const fs::path folder_, home_;  // home_ holds the files that the module leaves
    simhost::Host host_;
    double length_ = 0;
    Plugin plugin_;
    User user_{nullptr};
};

Album::Album(const fs::path& recording, const fs::path& folder) : folder_(folder), home_(folder / "casa") {
    fs::create_directories(home_);
    host_.resourcePath = home_.string();
    host_.mainWindow = OpenMainWindow();
    PutOnTrack(recording.string(), host_);
    plugin_.Load(host_);
    simhost::Item& item = *host_.project.tracks.ItemAt(0);
    item.track->name = item.Active()->name = "Fala";
    item.track->selected = true;
    length_ = item.length;
    user_ = OpenPanel(host_);
}

void Album::MainPage() {
    Keep("painel");
    for (const auto& [name, widget] : Rows) KeepRow(name, widget);
    KeepRows("cores", "E: COR DO ITEM | D: COR DA TRACK", "clear");
    user_.PointAt("GRAVAR");
    Keep("dica", 0, FindWidget("start").y);
    user_.PointAtNothing();
}

void Album::SlicerPage() {
    // Below them the window is empty.
    const int page = FindWidget("VOLTAR").Bottom() + 5, prompt = FindWidget("CANCELAR").Bottom() + 45;
    KeepArrangement("antes");
    user_.Click("AUTO FATIADOR");
    user_.PointAtNothing();
    Keep("fatiador", 0, page);
    KeepArrangement("depois");
    user_.Click("SALVAR PRESET");
    user_.PointAtNothing();
    Keep("salvar", 0, prompt);
    user_.Click("CANCELAR");
    for (const auto& [preset, name] : {std::pair{"P3", "piso-30"}, {"P2", "piso-40"}, {"P6", "piso-50"}}) {
        user_.Click(preset);
        KeepArrangement(name);
    }
    user_.Click("VOLTAR");
}

// What the buttons show while they are at work.
void Album::AtWork() {
    user_.Press("S. TIME");
    KeepRow("apertado", "S. TIME");
    user_.Release();
    user_.Click("GRAVAR");
    user_.PointAtNothing();
    KeepRow("gravando", "GRAVAR");
    user_.Click("GRAVAR");
}

void Album::CloseUp() {
    user_.CloseWindow();
    DestroyWindow(host_.mainWindow);
    ExpectNoMisuse(host_);
}

int main(int argc, char** argv) {
    return RunTool("retratos", argc, argv, [](const std::string& recording, const std::string& folder) {
        Album album(recording, folder);
        album.MainPage();
        album.SlicerPage();
        album.AtWork();
        album.CloseUp();
    });
}
