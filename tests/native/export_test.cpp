// The export from the click to the files on the desktop: a real interpreter, real renders.
#include <filesystem>
#include <set>

#include "apps/common/audio_file.h"
#include "apps/common/render.h"
#include "host/actions.h"
#include "render/render.h"
#include "tests/support/desktop_driver.h"
#include "tests/support/story.h"

namespace fs = std::filesystem;

class ExportarDeVerdade : public Cena {
  protected:
    void SetUp() override {
        Cena::SetUp();
        casa = fs::path(host.resourcePath) / "casa";
        fs::create_directories(casa / "Desktop");
        fs::create_directories(casa / ".config/REAPER");
        driver::SetEnvironment("HOME", casa.string());
        driver::SetEnvironment("TEMP", host.resourcePath);
        RunScriptsWithLua(host);
        RenderToFiles(host);
    }
    // "name.wav 2.5s", sorted.
    std::string NaAreaDeTrabalho() {
        std::set<std::string> nomes;
        for (const auto& arquivo : fs::directory_iterator(casa / "Desktop")) {
            std::string erro;
            const simhost::SourceRef audio = OpenAudioFile(arquivo.path().string(), &erro);
            EXPECT_TRUE(audio) << erro;
            if (!audio) continue;
            EXPECT_EQ(audio->SampleRate(), 48000);
            EXPECT_EQ(audio->Channels(), 2);
            // MP3 pads its ends, so only its whole seconds are said.
            const bool exato = arquivo.path().extension() == ".wav";
            nomes.insert(arquivo.path().filename().string() + ' ' +
                         Numero(exato ? audio->Length() : std::floor(audio->Length())) + 's');
        }
        std::string todos;
        for (const std::string& nome : nomes) todos += (todos.empty() ? "" : " | ") + nome;
        return todos;
    }
    fs::path casa;
};

TEST_F(ExportarDeVerdade, SemRegioesVaiOProjetoComSeuNome) {
    Projeto("1: a 1-2 | b 3-4.5");
    host.project.path = "/x/Ep \"1\" 100%.rpp";
    const std::string presetsDoHost = (casa / ".config/REAPER/reaper-render.ini").string();
    GravarArquivo(presetsDoHost, "<RENDERPRESET outro 44100\n>\n");
    RenderPreLeigo();
    RenderPreLeigo();
    EXPECT_EQ(NaAreaDeTrabalho(), "Ep _1_ 100%.mp3 4s | Ep _1_ 100%.wav 4.5s");
    EXPECT_EQ(host.project.timeSelection, (simhost::TimeRange{1, 4.5}));
    const std::string desktop = (casa / "Desktop").string(),
                      uma = "Quilmo - Concluido: Exportacao concluida!\n\nArquivo salvo em:\n" + desktop;
    EXPECT_EQ(Mensagens(), uma + " | " + uma);
    const std::string presets = LerArquivo(presetsDoHost);
    EXPECT_EQ(presets.find("<RENDERPRESET outro 44100\n>\n"), 0u);
    const std::string nosso =
        "RENDERPRESET_OUTPUT VELATURNO_PRE 1 0 124.128 0 0 Ep \"1\" 100% 0 \"" + desktop + "\" 1000 0 \"\" 0\n";
    EXPECT_NE(presets.find(nosso), std::string::npos) << presets;
    EXPECT_EQ(presets.find("VELATURNO_PRE"), presets.find("<RENDERPRESET VELATURNO_PRE") + 14);
    EXPECT_EQ(presets.find("<RENDERPRESET VELATURNO_PRE"), presets.rfind("<RENDERPRESET VELATURNO_PRE"))
        << "one, not two";
}

TEST_F(ExportarDeVerdade, ComRegioesUmArquivoParaCada) {
    Projeto("1: a 0-9 [R1 um 1-2] [R2 dois 4-6.5] {time 7-8}");
    host.project.markers.push_back({true, 8, 8.25, "um", 3});
    host.project.markers.push_back({true, 8.5, 9, "$region", 4});
    fs::remove_all(casa / ".config");  // no place for the host's presets: the render goes on without
    // Also on a host that cannot sleep; nobody waits after the last try.
    for (const std::string sono :
         {"reaper.sleep = nil", "local n = 0; reaper.sleep = function() n = n + 1; assert(n < 3) end"}) {
        host.scripts.runner = [rodar = host.scripts.runner, sono](simhost::Script script) {
            script.text = sono + "\n" + script.text;
            rodar(script);
        };
        RenderPreLeigo();
    }
    EXPECT_EQ(NaAreaDeTrabalho(),
              "$region.mp3 0s | $region.wav 0.5s | dois.mp3 2s | dois.wav 2.5s | um-2.mp3 0s | um-2.wav 0.25s | "
              "um.mp3 1s | um.wav 1s");
}

TEST_F(ExportarDeVerdade, SemNomeVaiComADataEAHora) {
    Projeto("1: a 0-1 {time 0-1}");
    RenderPreLeigo();
    EXPECT_EQ(NaAreaDeTrabalho().find("Gravacao_20"), 0u);
}

TEST_F(ExportarDeVerdade, OQueFalhaNoHostEViolacao) {
    simhost::Registration torta = {"APIdef_Torta", const_cast<char*>("long\0int\0a\0"), 1};
    host.extension.registrations.push_back(torta);
    host.scripts.runner({1, "", ""});
    EsperarViolacao("Torta: scripts cannot call it by its definition");
    host.extension.registrations.pop_back();
    host.scripts.runner({1, "", "reaper.GetMediaItem(0)"});
    EsperarViolacao("the script failed: ");
    host.project.texts["RENDER_FILE"] = (casa / "nenhuma").string();
    host.RunAction(acao::RenderizarProjeto);
    EsperarViolacao("the render failed: '" + (casa / "nenhuma").string());
}
