// What a click on each button of the main page does; cliques.txt keeps it.
#include "commands/commands.h"
#include "host/actions.h"
#include "panel/status.h"
#include "slicer/preview.h"
#include "tests/support/kept.h"
#include "tests/support/panel_scene.h"
#include "tests/support/story.h"

using driver::Button;

class Linhas : public Painel {
  protected:
    void SetUp() override {
        Painel::SetUp();
        Abrir();
    }
    // What the click did where every command has something to do: status, #actions, <undo, !messages, =project.
    template <class Clique>
    static std::string Efeito(Clique clicar) {
        Projeto("Voz (selected): a 2-4 * | b 6-8 | c 9-10 / Som: d 1-2 [R1 um 1-2] [R2 dois 3-4] {cursor 3}");
        DefinirStatus("-");
        const std::string antes = RetratoCompleto();
        clicar();
        EXPECT_FALSE(Mouse.esquerdoSeguro || GetCapture()) << "also when a menu took the release";
        const std::string depois = RetratoCompleto(),
                          partes[] = {Acoes(), Historico(), Mensagens(), depois == antes ? "" : depois};
        std::string efeito = StatusMsg;
        for (int i = 0; i < 4; ++i)
            if (!partes[i].empty()) efeito += std::string(" ") + "#<!="[i] + partes[i];
        RestaurarEstadoFatiador();
        return efeito;
    }
    static void ClicarPorMensagens(POINT onde, Button botao) {
        const UINT aperto = botao == Button::Left ? WM_LBUTTONDOWN : WM_RBUTTONDOWN;
        for (const UINT mensagem : {UINT{WM_MOUSEMOVE}, aperto, aperto + 1})  // the last is the button's release
            SendMessageA(JanelaPainel, mensagem, 0, MAKELPARAM(onde.x, onde.y));
    }
    // Each click that does anything, and each choice of the menus, on a line of its own.
    std::vector<std::string> Efeitos(bool ripple) {
        ModoRipple = ripple;
        std::vector<std::string> linhas;
        for (const WidgetNaTela& w : Widgets())
            for (const Button botao : {Button::Left, Button::Right}) {
                const bool menu = botao == Button::Left && (w.rotulo == "FECHAR LACUNAS" || w.rotulo == "SELECIONAR");
                std::vector<std::string> escolhas = {""};
                for (size_t i = 0; i < escolhas.size(); ++i) {
                    ModoRipple = ripple;
                    if (menu) driver::AnswerNextMenu(escolhas[i]);
                    const std::string efeito = Efeito([&] { ClicarPorMensagens(w.Meio(), botao); });
                    if (menu && i == 0)
                        for (const std::string& entrada : driver::LastMenu()) escolhas.push_back(entrada);
                    if (efeito == "-") continue;
                    const std::string nome = !w.rotulo.empty() ? w.rotulo : !w.icone.empty() ? w.icone : w.cor;
                    const std::string escolha = escolhas[i].empty() ? "" : " > " + escolhas[i];
                    linhas.push_back((botao == Button::Left ? "E " : "D ") + nome + escolha + ": " + efeito);
                }
            }
        return linhas;
    }
};

TEST_F(Linhas, CadaCliqueFazODeleEDiz) {
    std::string achado;
    std::vector<std::string> antes;
    // In the first state all clicks; in another one those that do something else.
    const auto estado = [&](const char* titulo, bool ripple) {
        achado += std::string("# ") + titulo + '\n';
        const std::vector<std::string> linhas = Efeitos(ripple);
        for (const std::string& linha : linhas)
            if (std::find(antes.begin(), antes.end(), linha) == antes.end()) achado += linha + '\n';
        if (antes.empty()) antes = linhas;
    };
    estado("com ripple", true);
    estado("sem ripple", false);
    achado += "# com Shift\n";
    driver::HoldKey(VK_SHIFT, true);
    for (const char* nome :
         {"L: COLA NO ANTERIOR | SHIFT+L / R: MOVE 20MS ESQ", "L: COLA ITEM SEGUINTE | SHIFT+L / R: MOVE 20MS DIR",
          "L: ITEM PARA BAIXO | R: PISTA PARA BAIXO"})
        achado += "E " + Achar(nome).icone + ": " + Efeito([&] { Clicar(nome); }) + '\n';
    driver::HoldKey(VK_SHIFT, false);
    ConfereGuardado("tests/panel/cliques.txt", achado);
}

TEST_F(Linhas, ZoomRepeteEnquantoSeguro) {
    for (const Button botao : {Button::Left, Button::Right}) {
        const std::string uma = botao == Button::Left ? "AproximarVertical" : "AfastarVertical",
                          tres = uma + " " + uma + " " + uma;
        host.actions.run.clear();
        Mover("zoom_vert");
        Apertar(botao);
        EXPECT_EQ(Acoes(), uma) << "once at the press";
        EXPECT_TRUE(EsperarTique(2) && EsperarTique(2));
        EXPECT_EQ(Acoes(), tres);
        Mover("zoom_sel");
        EXPECT_TRUE(EsperarTique(2));  // the tick that finds nothing to repeat, and ends the timer
        Mover("zoom_vert");
        EXPECT_FALSE(EsperarTique(2)) << "back on the button does not begin again";
        EXPECT_EQ(Acoes(), tres);
        Soltar(botao);
        Apertar(botao);
        EsperarIntervalo(2, 90);
        Soltar(botao);
        EXPECT_FALSE(EsperarTique(2));
    }
}

// A click whose command does nothing still reports; a bare action wipes the line.
TEST_F(Linhas, StatusDizOUltimoComando) {
    host.actions.toggles[acao::Gravar] = 1;
    host.transport.state = 4;
    host.actions.run.clear();
    Clicar("PLAY / PAUSE");
    EXPECT_EQ(Acoes(), "") << "a recording is not paused";
    EXPECT_STREQ(StatusMsg, "Executado: Play/Pause");
    Clicar("CONFIG");
    EXPECT_STREQ(StatusMsg, "");
    Clicar("[R]");
    Fechar();
    Abrir();
    EXPECT_FALSE(ModoRipple) << "the switch outlives the window";
}
