// Each of the module's own requests for memory fails in turn: nothing is thrown at the host, and the next try works.
#include <sys/wait.h>

#include <cstdlib>
#include <new>

#include "commands/commands.h"
#include "module/entry.h"
#include "panel/slicer_page.h"
#include "platform/files.h"
#include "render/render.h"
#include "slicer/autosplit.h"
#include "slicer/bounce.h"
#include "slicer/preview.h"
#include "tests/out_of_memory/failing_memory.h"
#include "tests/support/panel_scene.h"
#include "tests/support/story.h"

class SemMemoria : public Painel {
  protected:
    void SetUp() override {
        Painel::SetUp();
        WatchHostCalls();
        host.dialogs.onMessage = [](const std::string&, const std::string&, int) { return 6; };
        host.dialogs.onInput = [](const simhost::ShownInput&) { return "nome"; };
    }
    static void CenarioComFala() {
        Projeto("1: a 0-3.5 *");
        Dados(ItemChamado("a")).takes[0]->source = Bursts(800, 1, {{800, 0.5}, {400, 0}, {800, 0.5}, {800, 0}});
        simhost::Host::Current().undo.Start();
    }
    void Inteiro() {
        EXPECT_FALSE(host.undo.Open());
        EXPECT_EQ(host.screen.heldOff, 0);
        EXPECT_TRUE(host.accessors.empty());
        EXPECT_FALSE(PreviewEmObra);
    }

    // Runs it with the first, the second, ... request failing, until none does.
    template <class Antes, class Rodar, class Depois>
    void CadaPedidoFalha(Antes antes, Rodar rodar, Depois depois) {
        for (int64_t n = 1;; ++n) {
            SCOPED_TRACE("request " + std::to_string(n));
            antes();
            if (!FailsAt(n, rodar)) return;
            Inteiro();
            depois();
            if (HasFailure()) return;
        }
    }
};

const std::pair<const char*, void (*)()> Comandos[] = {
#define LINHA(comando) {#comando, comando},
    COMANDOS_DE_EDICAO(LINHA) COMANDOS_DE_RENDER(LINHA)
#undef LINHA
        {"PlayRegiao", [] { PlayRegiao(1); }},
};

TEST_F(SemMemoria, ComandosFechamOQueAbriram) {
    for (const auto& [nome, comando] : Comandos) {
        SCOPED_TRACE(nome);
        const bool soUm = std::string(nome).starts_with("Trim");
        const auto cenario = [&] {
            Projeto(
                "1 (selected): a 0.5-3 * | b 2.5-5 * | c 6-9 / 2: d 1-3.5 [M1 m 0] [R1 r 0-2] {cursor 1.5} {time 1-2}");
            if (soUm) Selecionar({"a"});
        };
        cenario();
        comando();
        const std::string titulos = Historico();
        const auto rodar = [&comando] {
            try {
                comando();
            } catch (const std::bad_alloc&) {  // the doors catch it
            }
        };
        CadaPedidoFalha(cenario, rodar, [&] { EXPECT_TRUE(titulos.starts_with(Historico())) << Historico(); });
        if (HasFailure()) return;
    }
}

TEST_F(SemMemoria, PortasNaoDeixamPassarNada) {
    const std::string log = host.resourcePath + "/quilmo_extension_log.txt";
    const auto cenario = [&] {
        CenarioComFala();
        RemoveFile(log);
    };
    bool cortou = true;
    CadaPedidoFalha(
        cenario, [&] { cortou = Quilmo_AutoSplit(true, 55, -30); },
        [&] {
            EXPECT_EQ(Historico(), "Fatiador Preview");
            EXPECT_EQ(LerArquivo(log).find("Falha em Quilmo_AutoSplit: ") != std::string::npos, !cortou);
        });
}

// A fresh process for each: what a panel draws for the first time is kept to the end.
TEST_F(SemMemoria, OPainelAbreDepoisDeCadaFalha) {
    for (int64_t n = 1, falhas = 1; falhas; ++n) {
        falhas = 0;
        EXPECT_EXIT(
            {
                const bool falhou = FailsAt(n, [] {
                    HookCommand2Proc(nullptr, AcaoPainelId, 0, 0, 0, nullptr);
                    if (JanelaPainel) UpdateWindow(JanelaPainel);
                });
                Quilmo_AbrirPainel();
                InvalidateRect(JanelaPainel, nullptr, FALSE);
                UpdateWindow(JanelaPainel);
                const driver::Picture imagem = driver::PictureOf(JanelaPainel);
                std::_Exit(!JanelaPainel || imagem.At(160, 40) == 0 ? 2 : falhou ? 1 : 0);
            },
            [&falhas](int status) {
                falhas = WEXITSTATUS(status);
                return WIFEXITED(status) && falhas < 2;
            },
            "");
        if (HasFailure()) return;
    }
}

// Through the window: the mode is entered, cut anew and left by either way out. Whatever failed, VOLTAR leads back.
TEST_F(SemMemoria, OModoSegueInteiro) {
    Abrir();
    const POINT entrar = Achar("AUTO FATIADOR").Meio();
    ModoFatiadorAtivo = true;
    const POINT cortar = Achar("P5").Meio(), voltar = Achar("VOLTAR").Meio(), aplicar = Achar("APLICAR FATIAS").Meio();
    std::string original;
    const auto cenario = [&] {
        RestaurarEstadoFatiador();
        CenarioComFala();
        original = Retrato();
    };
    const auto clicar = [](POINT onde) {  // without the tests' own requests
        SendMessageA(JanelaPainel, WM_MOUSEMOVE, 0, MAKELPARAM(onde.x, onde.y));
        SendMessageA(JanelaPainel, WM_LBUTTONDOWN, 0, 0);
        SendMessageA(JanelaPainel, WM_LBUTTONUP, 0, 0);
        UpdateWindow(JanelaPainel);
    };
    for (const POINT saida : {voltar, aplicar}) {
        const auto passear = [&] {
            clicar(entrar);
            if (ModoFatiadorAtivo) clicar(cortar);
            if (ModoFatiadorAtivo) clicar(saida);
        };
        CadaPedidoFalha(cenario, passear, [] {});
    }
    // A mode that a failure has left open.
    for (int64_t n = 1; n < 40; ++n) {
        cenario();
        clicar(entrar);
        FailsAt(n, [&] { clicar(cortar), clicar(voltar); });
        if (ModoFatiadorAtivo) clicar(voltar);
        EXPECT_FALSE(ModoFatiadorAtivo);
        EXPECT_EQ(Retrato(), original);
    }
}
