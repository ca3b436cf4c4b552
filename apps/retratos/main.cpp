// retratos: takes the manual's pictures of the real module's panel on the headless desktop. The same module, fonts and
// recording give the same pictures, so that a changed picture tells of a changed panel.
#include <filesystem>

#include "apps/common/plugin.h"
#include "apps/common/recording.h"
#include "apps/common/tool.h"
#include "apps/common/user.h"

namespace fs = std::filesystem;

// The main page's rows, by the lines of the window that they take.
static constexpr struct {
    const char* name;
    int top, height;
} Rows[] = {
    {"gravar", 24, 36},  {"tocar", 60, 36},    {"parar", 96, 36},    {"navegacao", 131, 42}, {"regioes", 176, 42},
    {"edicao", 221, 42}, {"lacunas", 266, 42}, {"selecao", 311, 42}, {"itens", 356, 42},     {"mover", 396, 42},
    {"zoom", 441, 42},   {"bounce", 486, 42},  {"render", 527, 42},  {"cores", 572, 82},
};
static constexpr Place Record = {160, 42}, SelectTime = {274, 332}, AutoSlicer = {84, 287}, Nowhere = {2, 655};
static constexpr Place SavePreset = {160, 220}, CancelPrompt = {160, 397}, Back = {82, 261};

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
    std::string error;
    Expect(plugin_.Load(host_, &error), error);
    simhost::Item& item = *host_.project.tracks.ItemAt(0);
    item.track->name = item.Active()->name = "Fala";
    item.track->selected = true;
    length_ = item.length;
    user_ = OpenPanel(host_);
}

void Album::MainPage() {
    Keep("painel");
    for (const auto& [name, top, height] : Rows) Keep(name, top, height);
    constexpr int topOfWindow = 134;  // the strip and the row below it
    user_.PointAt(Record);
    Keep("dica", 0, topOfWindow);
    user_.PointAt(Nowhere);
}

void Album::SlicerPage() {
    constexpr int page = 284, prompt = 460;  // below them the window is empty
    KeepArrangement("antes");
    user_.Click(AutoSlicer);
    user_.PointAt(Nowhere);
    Keep("fatiador", 0, page);
    KeepArrangement("depois");
    user_.Click(SavePreset);
    user_.PointAt(Nowhere);
    Keep("salvar", 0, prompt);
    user_.Click(CancelPrompt);
    user_.Click(Back);
}

// What the buttons show while they are at work.
void Album::AtWork() {
    const auto& transport = Rows[0];
    const auto& selection = Rows[7];
    user_.Press(SelectTime);
    Keep("apertado", selection.top, selection.height);
    user_.Release();
    user_.Click(Record);
    user_.PointAt(Nowhere);
    Keep("gravando", transport.top, transport.height);
    user_.Click(Record);
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
