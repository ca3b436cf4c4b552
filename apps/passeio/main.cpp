// passeio: walks a user's path through the real module's panel, by mouse alone. A folder keeps what was seen and heard.
// Effects are read from the host's project and the window's pixels. A step without its effect ends the walk.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <set>

#include "apps/common/audio_file.h"
#include "apps/common/plugin.h"
#include "apps/common/recording.h"
#include "apps/common/render.h"
#include "apps/common/tool.h"
#include "apps/common/user.h"

namespace fs = std::filesystem;

namespace {

// The module keeps its files in this home. It is emptied at the start, so that each walk is a first one.
constexpr char HomeName[] = "casa-do-passeio";

void Tell(const char* step, const char* format, auto... values) {
    std::printf("  %-24s ", step);
    std::printf(format, values...);
    std::printf("\n");
}

// Seconds of pauses: stretches of at least 100 ms in which no sample reaches -40 dB.
double Pauses(simhost::Source& source) {
    constexpr double blockSeconds = 0.01, loud = 0.01;
    constexpr int fewestBlocks = 10;
    const int frames = std::max(1, static_cast<int>(source.SampleRate() * blockSeconds));
    std::vector<double> block(static_cast<size_t>(frames) * source.Channels());
    int64_t quiet = 0, run = 0;
    for (int64_t at = 0; at < source.Frames(); at += frames) {
        Expect(source.Read(at, frames, block.data()), "a gravacao nao pode ser lida ate o fim");
        const bool pause = std::all_of(block.begin(), block.end(), [](double x) { return std::fabs(x) < loud; });
        run = pause ? run + 1 : 0;
        if (run == fewestBlocks) quiet += fewestBlocks;
        if (run > fewestBlocks) ++quiet;
    }
    return static_cast<double>(quiet) * frames / source.SampleRate();
}

class Walk {
  public:
    Walk(const fs::path& recording, const fs::path& folder);

    void OpenPanel();
    void Slice();
    void Adjust();
    void AskAndCancel();
    void Apply();
    void Export();
    void Finish();

  private:
    void Photograph(const char* name) { user_.Photograph((folder_ / name).string()); }
    void PhotographArrangement(const char* name) const {
        ::PhotographArrangement(host_.project, length_, (folder_ / name).string());
    }
    // The deed makes the module cut anew: it undoes once, and its cuts are again on top of the history.
    void CutAnew(const char* step, const std::function<void()>& deed);
    void TellPieces(const char* step);
    bool InPreview() const { return host_.undo.Title() && host_.undo.Title() == std::string("Fatiador Preview"); }

    const fs::path folder_, home_;
    simhost::Host host_;
    simhost::SourceRef source_;
    double length_ = 0;  // of the recording, in seconds
    Plugin plugin_;
    User user_{nullptr};
};

Walk::Walk(const fs::path& recording, const fs::path& folder)
    : folder_(folder), home_(fs::absolute(folder) / HomeName) {
    fs::remove_all(home_);
    for (const char* name : {"Desktop", ".config/REAPER", "recursos", "temp"}) fs::create_directories(home_ / name);
    setenv("HOME", home_.c_str(), 1);
    setenv("TEMP", (home_ / "temp").c_str(), 1);
    unsetenv("XDG_CACHE_HOME");  // the fonts' cache goes below HOME, too
    host_.resourcePath = (home_ / "recursos").string();
    host_.mainWindow = OpenMainWindow();
    simhost::RunScriptsWithLua(host_);
    RenderToFiles(host_);

    PutOnTrack(recording.string(), host_);
    simhost::Item& item = *host_.project.tracks.ItemAt(0);
    item.track->name = item.Active()->name = OnOneLine(recording.stem().string());
    source_ = item.Active()->source;
    length_ = source_->Length();
    host_.project.path = (home_ / recording.stem()).string() + ".rpp";
    plugin_.Load(host_);
}

void Walk::TellPieces(const char* step) {
    double kept = 0;
    const int pieces = host_.project.tracks.ItemCount();
    for (const simhost::Item* item : host_.project.tracks.Items()) kept += item->length;
    Tell(step, "%d %s, %.3f s de %.3f s", pieces, pieces == 1 ? "pedaco" : "pedacos", kept, length_);
}

void Walk::OpenPanel() {
    PhotographArrangement("arranjo-antes.png");
    user_ = ::OpenPanel(host_);
    Photograph("painel.png");
    const desktop::Picture idle = user_.Look();
    Tell("abrir o painel", "%d x %d pontos", idle.width, idle.height);

    user_.PointAt("AUTO FATIADOR");
    const desktop::Picture lit = user_.Look();
    size_t changed = 0;
    for (size_t i = 0; i < lit.pixels.size(); ++i) changed += lit.pixels[i] != idle.pixels[i];
    Expect(changed > 0, "o botao sob o mouse nao se acende");
    Tell("passar o mouse", "botao aceso e dica na barra: %zu pontos mudaram", changed);
}

void Walk::Slice() {
    user_.Click("AUTO FATIADOR");
    Expect(host_.dialogs.messages.empty(),
           host_.dialogs.messages.empty() ? "" : "o painel recusou: " + host_.dialogs.messages[0].text);
    Expect(InPreview(), "AUTO FATIADOR nao fatiou");
    TellPieces("AUTO FATIADOR (-37 dB)");
    Photograph("fatiador.png");
}

void Walk::CutAnew(const char* step, const std::function<void()>& deed) {
    const int64_t undone = host_.calls.Count("Undo_DoUndo2");
    deed();
    Expect(host_.calls.Count("Undo_DoUndo2") == undone + 1 && InPreview(), std::string(step) + " nao fatiou de novo");
    TellPieces(step);
}

void Walk::Adjust() {
    CutAnew("arrastar para -20 dB", [this] { user_.Slide("AJUSTA O PISO", -20); });
    PhotographArrangement("arranjo-previa.png");
    CutAnew("preset P2 (-40 dB)", [this] { user_.Click("P2"); });
}

void Walk::AskAndCancel() {
    user_.PointAt("SALVAR PRESET");
    const desktop::Picture before = user_.Look();
    user_.Click("SALVAR PRESET");
    Photograph("pergunta.png");
    Expect(user_.Look().pixels != before.pixels, "SALVAR PRESET nao perguntou nada");
    user_.Click("CANCELAR");
    user_.PointAt("SALVAR PRESET");
    Expect(user_.Look().pixels == before.pixels, "depois de CANCELAR a pagina nao e a de antes");
    Tell("SALVAR PRESET", "a pergunta abriu; CANCELAR voltou a pagina como era");
}

void Walk::Apply() {
    const desktop::Picture slicer = user_.Look();
    user_.Click("APLICAR FATIAS");
    Expect(InPreview() && user_.Look().pixels != slicer.pixels, "APLICAR FATIAS nao ficou com as fatias");
    TellPieces("APLICAR FATIAS");
    PhotographArrangement("arranjo-aplicado.png");
}

void Walk::Export() {
    user_.Click("DESKTOP");
    const fs::path wav = home_ / "Desktop" / (fs::path(host_.project.path).stem().string() + ".wav");
    std::string error;
    ExpectNoMisuse(host_);
    const simhost::SourceRef exported = OpenAudioFile(wav.string(), &error);
    Expect(exported != nullptr, "DESKTOP nao deixou a exportacao: " + error);
    std::set<fs::directory_entry> files(fs::directory_iterator(home_ / "Desktop"), {});
    for (const fs::directory_entry& file : files)
        Tell("DESKTOP", "%s, %ju bytes", OnOneLine(file.path().filename().string()).c_str(),
             static_cast<uintmax_t>(file.file_size()));
    Tell("ouvir a exportacao", "%.3f s, dos quais %.2f antes da primeira fatia", exported->Length(),
         host_.project.tracks.ItemAt(0)->position);
    Tell("pausas", "%.2f s na gravacao, %.2f s na exportacao", Pauses(*source_), Pauses(*exported));
}

void Walk::Finish() {
    user_.CloseWindow();
    DestroyWindow(host_.mainWindow);
    ExpectNoMisuse(host_);
    Expect(desktop::Leftovers().empty(), "o modulo nao devolveu tudo: " + desktop::Leftovers());
    std::printf("  nenhum uso indevido do host; imagens em %s, exportacao em %s\n", OnOneLine(folder_.string()).c_str(),
                OnOneLine((folder_ / HomeName / "Desktop").string()).c_str());
}

}  // namespace

int main(int argc, char** argv) {
    return RunTool("passeio", argc, argv, [](const std::string& recording, const std::string& folder) {
        Walk walk(recording, folder);
        std::printf("Passeio pelo painel, so com o mouse:\n");
        walk.OpenPanel();
        walk.Slice();
        walk.Adjust();
        walk.AskAndCancel();
        walk.Apply();
        walk.Export();
        walk.Finish();
    });
}
