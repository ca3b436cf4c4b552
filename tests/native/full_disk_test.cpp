// A disk that is full, at once or in the middle of a file.
#include <sys/resource.h>

#include <csignal>
#include <filesystem>

#include "host/log.h"
#include "panel/slicer_page.h"
#include "render/render.h"
#include "slicer/presets.h"
#include "slicer/preview.h"
#include "tests/support/panel_scene.h"
#include "tests/support/story.h"

TEST_F(Painel, ComODiscoCheioTudoSegueENadaRodaPelaMetade) {
    driver::SetEnvironment("TEMP", host.resourcePath);
    const std::string script = host.resourcePath + "/~quilmo_desktop_temp.lua";
    std::signal(SIGXFSZ, SIG_IGN);  // the write fails instead
    rlimit vazio;
    getrlimit(RLIMIT_FSIZE, &vazio);
    for (const rlim_t bytes : {0, 3, 11, 64, 2000}) {
        SCOPED_TRACE(bytes);
        Projeto("1: a 0-1 *");
        const rlimit cheio = {bytes, vazio.rlim_max};  // no file grows beyond so many bytes
        setrlimit(RLIMIT_FSIZE, &cheio);
        Abrir();
        AbrirFatiador();
        SalvarPreset(PresetsFatiador, 2, -20, 10, true, host.resourcePath);
        EXPECT_TRUE(ModoFatiadorAtivo);
        Fechar();
        RegistrarLog("perdida");
        RenderPreLeigo();
        setrlimit(RLIMIT_FSIZE, &vazio);
        EXPECT_FALSE(ModoFatiadorAtivo);
        EXPECT_EQ(Mensagens(), "Quilmo: Nao foi possivel criar o script temporario de render.");
        EXPECT_TRUE(host.scripts.added.empty() && host.scripts.run.empty());
        EXPECT_FALSE(std::filesystem::exists(script));

        Abrir();
        EXPECT_TRUE(JanelaPainelAberta()) << "whatever is left of its file";
        PresetsCarregados = false;
        AbrirFatiador();
        EXPECT_TRUE(ModoFatiadorAtivo);
        Fechar();
        RenderPreLeigo();
        EXPECT_EQ(host.scripts.run.size(), 1u);
        host.scripts.run.clear();
    }
    std::signal(SIGXFSZ, SIG_DFL);
}
