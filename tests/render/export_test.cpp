// The export: the temporary script, its header, and what is left when the host refuses it.
#include <filesystem>

#include "platform/files.h"
#include "render/render.h"
#include "tests/support/desktop_driver.h"
#include "tests/support/story.h"

namespace fs = std::filesystem;

class Exportar : public Cena {
  protected:
    void SetUp() override {
        Cena::SetUp();
        driver::SetEnvironment("TEMP", host.resourcePath);
        driver::SetEnvironment("TMP", "");
        reamostragem = {3, 0, 0, 0};
    }
    bool HaScriptNoDisco() { return fs::exists(DeUtf8(script)); }

    std::vector<char>& reamostragem = host.settings.project["projrenderresample"];
    const std::string script = host.resourcePath + PathSeparator + "~quilmo_desktop_temp.lua";
};

TEST_F(Exportar, NomeDoProjetoChegaInteiroAoScript) {
    const std::pair<const char*, const char*> casos[] = {{"/musicas/Show.RPP", "Show"},
                                                         {"C:\\musicas\\a.rpp", "a"},
                                                         {"Show.rpp", "Show"},
                                                         {".rpp", ""},
                                                         {"/a.rpp/.rpp", ""},
                                                         {"/x/Show.txt", ""},
                                                         {"", ""},
                                                         {"/x/aRpP", ""},
                                                         {"/x/100%s \"ao vivo\".rpp", "100%s \\\"ao vivo\\\""},
                                                         {"/x/S\xC3\xA3o.rpp", "S\xC3\xA3o"}};
    for (const auto& [caminho, nome] : casos) {
        host.project.path = caminho;
        host.scripts.run.clear();
        RenderPreLeigo();
        ASSERT_EQ(host.scripts.run.size(), 1u);
        std::string texto = host.scripts.run[0].text;
        std::erase(texto, '\r');  // a text file, whose lines end as the system's do
        const std::string cabecalho = std::string("local proj_name_cpp = \"") + nome +
                                      "\"\nlocal proj_name = (proj_name_cpp ~= \"\") and proj_name_cpp or "
                                      "os.date(\"Gravacao_%Y-%m-%d_%Hh%M\")\n";
        EXPECT_EQ(texto.substr(0, cabecalho.size()), cabecalho);
    }
    EXPECT_EQ(host.scripts.run[0].path, script);
    EXPECT_FALSE(HaScriptNoDisco());
    EXPECT_TRUE(host.scripts.added.empty()) << "the action is taken out again";
    EXPECT_EQ(reamostragem, (std::vector<char>{9, 0, 0, 0}));
}

TEST_F(Exportar, RecusasNaoDeixamNada) {
    host.calls.FailFrom("AddRemoveReaScript", 1);
    RenderPreLeigo();
    EXPECT_FALSE(HaScriptNoDisco());
    host.calls.StopFailing();
    reamostragem = {3, 0};
    driver::SetEnvironment("TEMP", host.resourcePath + "/nao/existe");
    RenderPreLeigo();
    EXPECT_EQ(Mensagens(),
              "Quilmo: Nao foi possivel registrar o script temporario de render. | "
              "Quilmo: Nao foi possivel criar o script temporario de render.");
    EXPECT_EQ(reamostragem, (std::vector<char>{3, 0})) << "of another size: left alone";
    EXPECT_TRUE(host.scripts.run.empty());
}
