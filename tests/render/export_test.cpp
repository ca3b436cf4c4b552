// The export: the temporary script, its header, and what is left when the host refuses it.
#include <cstdlib>
#include <filesystem>

#include "platform/files.h"
#include "render/render.h"
#include "tests/support/environment.h"
#include "tests/support/story.h"

namespace fs = std::filesystem;

namespace {

class Exportar : public Cena {
  protected:
    void SetUp() override {
        Cena::SetUp();
        SetEnvironment("TEMP", host.resourcePath);
        SetEnvironment("TMP", "");
        host.projectConfigVars["projrenderresample"] = {3, 0, 0, 0};
        script = host.resourcePath + PathSeparator + "~quilmo_desktop_temp.lua";
    }
    bool ScriptNoDisco() {
        std::string texto;
        return ReadTextFile(script, texto);
    }
    // The first line that the script gets for a project of that path.
    std::string Cabecalho(const std::string& caminho) {
        host.project.path = caminho;
        host.scriptsRun.clear();
        RenderPreLeigo();
        return Script().substr(0, Script().find('\n'));
    }
    // The one that was run. It is a text file, whose lines end as the system's do.
    std::string Script() {
        std::string texto = host.scriptsRun.empty() ? "" : host.scriptsRun[0].text;
        std::erase(texto, '\r');
        return texto;
    }
    std::string script;
};

TEST_F(Exportar, NomeDoProjetoChegaInteiroAoScript) {
    const struct {
        const char *caminho, *nome;
    } casos[] = {
        {"/musicas/Show.RPP", "Show"},
        {"C:\\musicas\\a.rpp", "a"},
        {"Show.rpp", "Show"},
        {".rpp", ""},
        {"/a.rpp/.rpp", ""},
        {"/x/Show.txt", ""},
        {"", ""},
        {"/x/aRpP", ""},
        {"/x/100%s \"ao vivo\".rpp", "100%s \\\"ao vivo\\\""},
        {"/x/S\xC3\xA3o.rpp", "S\xC3\xA3o"},
    };
    for (const auto& caso : casos)
        EXPECT_EQ(Cabecalho(caso.caminho), std::string("local proj_name_cpp = \"") + caso.nome + '"') << caso.caminho;
    const std::string texto = Script();
    EXPECT_NE(texto.find("\nlocal proj_name = (proj_name_cpp ~= \"\") and proj_name_cpp or "
                         "os.date(\"Gravacao_%Y-%m-%d_%Hh%M\")\n"),
              std::string::npos);
    EXPECT_EQ(host.scriptsRun[0].path, script);
    EXPECT_FALSE(ScriptNoDisco());
    EXPECT_TRUE(host.scripts.empty()) << "the action is taken out again";
    EXPECT_EQ(host.projectConfigVars["projrenderresample"], (std::vector<char>{9, 0, 0, 0}));
}

TEST_F(Exportar, RecusasNaoDeixamNada) {
    host.FailFrom("AddRemoveReaScript", 1);
    RenderPreLeigo();
    EXPECT_EQ(Mensagens(), "Quilmo: Nao foi possivel registrar o script temporario de render.");
    EXPECT_FALSE(ScriptNoDisco());
    host.StopFailing();
    host.messages.clear();
    host.projectConfigVars["projrenderresample"] = {3, 0};
    SetEnvironment("TEMP", host.resourcePath + "/nao/existe");
    RenderPreLeigo();
    EXPECT_EQ(Mensagens(), "Quilmo: Nao foi possivel criar o script temporario de render.");
    EXPECT_EQ(host.projectConfigVars["projrenderresample"], (std::vector<char>{3, 0})) << "of another size: left alone";
    EXPECT_TRUE(host.scriptsRun.empty());
}

}  // namespace
