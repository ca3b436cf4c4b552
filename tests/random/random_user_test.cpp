// A user who does anything at any time, on projects that are anything, while the host does what hosts do.
// QUILMO_SEED=n does what that seed does, to the letter; QUILMO_EVENTS=n for so many events.
#include <cstdio>
#include <cstdlib>

#include "host/actions.h"
#include "panel/status.h"
#include "slicer/bounce.h"
#include "slicer/preview.h"
#include "tests/counting_new.h"
#include "tests/random/random_project.h"

using driver::Button;

class UsuarioAleatorio : public ProjetoAleatorio {
  protected:
    void SetUp() override {
        ProjetoAleatorio::SetUp();
        MoveWindow(dono, 0, 0, 1200, 900, TRUE);  // so that no frame of its lies behind the panel
        if (const char* pedidos = std::getenv("QUILMO_EVENTS")) eventos = std::atoi(pedidos);
        std::printf("QUILMO_SEED=%u QUILMO_EVENTS=%d\n", acaso.seed, eventos);  // at once: a fault may end the program
        std::fflush(stdout);
        host.dialogs.onMessage = [this](const std::string&, const std::string&, int) {
            ++mensagens;
            MomentoModal(true);
            return acaso.Of({1, 2, 6, 6, 7});
        };
        host.dialogs.onInput = [this](const simhost::ShownInput&) -> std::optional<std::string> {
            ++mensagens;
            MomentoModal(true);
            if (acaso.Chance(3)) return std::nullopt;
            return std::string(acaso.Of({0, 1, 7, 700}), acaso.Of({'a', '%', '"', '\xE3', '\n'}));
        };
        host.transport.recorded = UmaFonte();
        EsperarMenu();
        Abrir();
        fatiador = Achar("AUTO FATIADOR").Meio();
        GetClientRect(JanelaPainel, &cliente);
        Fechar();
    }

    void OutroProjeto() {
        if (JanelaPainel) Fechar();
        ProjetoNovo();
        alocacoes = AllocationsAlive();
        for (int n = acaso.In(0, 8); n > 0; --n) MaisUmItem();
        host.undo.Start();
    }

    // --- Events

    void ApontarAoAcaso() {
        if (!JanelaPainel) return;
        if (perto = acaso.Chance(10); perto)
            return Mover(fatiador.x, fatiador.y);  // the slicer's button, and its page's frozen or empty ground
        perto = !acaso.Chance(12);
        Mover(perto ? acaso.In(0, cliente.right - 1) : acaso.In(-2000, 2000),
              perto ? acaso.In(0, cliente.bottom - 1) : acaso.In(-2000, 2000));
    }
    // Not on a caption or a frame, where the system begins a loop of its own that waits for the user.
    void ApertarNoPainel(Button botao) {
        if (JanelaPainel && perto) Apertar(botao);
    }
    // What a user's hand does, and what a window hears of: all that can happen while a dialog or a menu is open too.
    void EventoDaMao() {
        const int qual = acaso.In(1, 24);
        if (qual <= 4) return ApontarAoAcaso();
        if (qual == 5) return ApertarNoPainel(UmBotao());
        if (qual == 6) return Soltar(UmBotao());
        if (qual == 7) return driver::Wheel(acaso.In(-3, 3));
        if (qual == 8) return driver::HoldKey(VK_SHIFT, acaso.Chance(3));
        if (qual == 9 && JanelaPainel && acaso.Chance(3)) Fechar();
        if (qual == 10) Abrir();
        if (qual == 11 && acaso.Chance(2)) SetForegroundWindow(acaso.Chance(2) ? dono : outra);
        // A tick may also be one that was on its way when its timer was stopped.
        if ((qual == 12 || qual == 13) && JanelaPainel) SendMessageA(JanelaPainel, WM_TIMER, acaso.In(1, 2), 0);
        constexpr UINT soltos[] = {WM_LBUTTONUP, WM_RBUTTONUP, WM_RBUTTONDBLCLK};
        if (qual == 14 && JanelaPainel) SendMessageA(JanelaPainel, acaso.Of(soltos), 0, 0);
        qual <= 14 ? driver::Pump() : CliqueAoAcaso();
    }
    void CliqueAoAcaso() {
        ApontarAoAcaso();
        const Button botao = UmBotao();
        ApertarNoPainel(botao);
        if (acaso.Chance(4)) ApontarAoAcaso();
        if (!acaso.Chance(8)) Soltar(botao);
    }
    Button UmBotao() { return acaso.Chance(4) ? Button::Right : Button::Left; }

    void EventoDoHost() {
        if (acaso.Chance(2)) SetForegroundWindow(outra);  // else a script, behind the user's back
        driver::Pump();
        hostMexeu = true;
        static constexpr int acoes[] = {acao::Tocar, acao::Gravar, acao::Parar, acao::RemoverItens,
                                        acao::DuplicarFaixas};
        const int qual = acaso.In(1, 10);
        if (qual == 1) host.undo.Back();
        if (qual == 2) host.undo.Redo();
        if (qual == 3) host.transport.Elapse(acaso.In(1, 10) * 0.1);
        if (qual == 4) host.RunAction(acaso.Of(acoes));
        if (qual == 5) host.undo.Begin();
        if (qual == 5 || qual == 6) MexerNoProjeto();
        if (qual == 5) host.undo.End("Edit");
        if (qual > 6) SelecionarAoAcaso();
    }

    // A dialog or a menu is open and its loop delivers events, to the panel too.
    void MomentoModal(bool janelaPropria) {
        if (aninhados >= 3) return;
        ++aninhados;
        if (janelaPropria && acaso.Chance(2)) SetForegroundWindow(outra);
        if (acaso.Chance(2))
            for (int n = acaso.In(1, 6); n > 0; --n) {
                hostMexeu = true;  // commands within commands: what is on the history is anyone's guess
                ++feitos;
                if (acaso.Chance(3))
                    MexerNoProjeto();
                else
                    EventoDaMao();
                ConferirSempre();
            }
        --aninhados;
    }
    // There is always exactly one answer waiting.
    void EsperarMenu() {
        static const char* const escolhas[] = {"",
                                               "Fechar",
                                               "Fecha Lacuna Entre Selecionados",
                                               "Fecha Lacunas Subsequentes",
                                               "Fecha Lacuna Selecionada com Mixagem",
                                               "Todos os itens do projeto",
                                               "Todos os itens da faixa",
                                               "Tudo antes do ponteiro",
                                               "Tudo depois do ponteiro (faixa selecionada)"};
        driver::AnswerNextMenu(acaso.Of(escolhas), [this] {
            ++menus;
            EsperarMenu();
            MomentoModal(false);
        });
    }

    // --- What must be true

    void ConferirSempre() {
        ASSERT_EQ(host.FirstViolation(), "");
        ASSERT_TRUE(!JanelaPainel || IsWindow(JanelaPainel));
        ASSERT_EQ(FindWindowA("QuilmoPainelClass", nullptr), JanelaPainel);
        ASSERT_TRUE(JanelaPainel || !ModoFatiadorAtivo || hostMexeu) << "the mode begins and ends in its window";
    }
    void ConferirEmRepouso() {
        ConferirSempre();
        ASSERT_TRUE(host.Check()) << host.FirstViolation();
        if (ModoFatiadorAtivo) return;
        ASSERT_FALSE(PreviewAtivo);
        ASSERT_FALSE(BounceEntradaAtivo);
        ASSERT_FALSE(SalvarPresetAberto);
    }
    // The mode's points lie on the history as it was, as long as nobody else touched it.
    void ConferirHistorico(bool estavaNoModo) {
        constexpr char bounce[] = "Fatiador Bounce Entrada", preview[] = "Fatiador Preview";
        const auto comMais = [](const std::string& antes, const std::string& mais) {
            return antes.empty() ? mais : antes + " | " + mais;
        };
        if (!estavaNoModo && ModoFatiadorAtivo) {
            ++modos;
            if (hostMexeu) return;
            // A joining of the items may come first; below the cuts of a run that was kept, undoing goes too far.
            const std::string historico = Historico();
            const std::string meus = BounceEntradaAtivo ? comMais(bounce, preview) : preview;
            ASSERT_TRUE(historico.ends_with(meus)) << historico;
            antesDoModo = historico.substr(0, historico.size() - meus.size());
            if (antesDoModo.ends_with(" | ")) antesDoModo.resize(antesDoModo.size() - 3);
            const std::string_view ultimo = BounceEntradaAtivo ? bounce : preview;
            hostMexeu = antesDoModo.ends_with(ultimo) || host.preferences.undoPoints < 100;
            return;
        }
        if (!estavaNoModo || hostMexeu) return;
        const std::string comBounce = BounceEntradaAtivo ? comMais(antesDoModo, bounce) : antesDoModo;
        if (ModoFatiadorAtivo)
            ASSERT_EQ(Historico(), PreviewAtivo ? comMais(comBounce, preview) : comBounce);
        else if (std::string_view(StatusMsg).starts_with("Modo Fatiador cancelado"))
            ASSERT_EQ(Historico(), antesDoModo);
        else
            ASSERT_TRUE(Historico().starts_with(antesDoModo)) << Historico();
    }

    int eventos = RANDOM_EVENTS;
    int feitos = 0, aninhados = 0, modos = 0, mensagens = 0, menus = 0;
    bool perto = false;      // the pointer is where the panel's client area is or was
    bool hostMexeu = false;  // in this event, or since the mode began
    std::string antesDoModo;
    POINT fatiador = {};
    RECT cliente = {};
    int64_t alocacoes = 0;  // with the panel closed and the project empty
};

TEST_F(UsuarioAleatorio, NaoQuebraNada) {
    constexpr int porProjeto = 250;
    int64_t cedo = 0;
    for (int proximo = 0; feitos < eventos; ++feitos) {
        if (feitos >= proximo || Faixas().ItemCount() > 60 || Faixas().Count() > 12) {
            OutroProjeto();
            proximo = feitos + porProjeto;
            if (!cedo && feitos > eventos / 5) cedo = alocacoes;
        }
        const int este = feitos;
        const bool noModo = ModoFatiadorAtivo;
        if (!noModo) hostMexeu = false;
        if (acaso.Chance(6))
            EventoDoHost();
        else
            EventoDaMao();
        ConferirEmRepouso();
        ConferirHistorico(noModo);
        if (HasFatalFailure()) FAIL() << "at event " << este;
    }
    OutroProjeto();
    std::printf("%d events: the mode %d times, %d dialogs, %d menus; live allocations %lld, at the end %lld\n", feitos,
                modos, mensagens, menus, static_cast<long long>(cedo), static_cast<long long>(alocacoes));
    EXPECT_LT(alocacoes, cedo + 200) << "memory grows";
    EXPECT_GE(modos, eventos / 2000) << "the slicer was hardly tried";
}
