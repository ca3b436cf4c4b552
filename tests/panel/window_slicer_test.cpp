// What ends the slicer mode from outside: everything that is not work in the panel.
#include "panel/status.h"
#include "slicer/preview.h"
#include "tests/support/panel_scene.h"

static const char* const Cancelado = "Modo Fatiador cancelado (atividade fora do painel)";

class PainelFatiador : public Painel {
  protected:
    // The panel is open and the mode is on; the item is cut.
    void Entrar() {
        Abrir();
        Faixa("Voz", {{"A", 0, 4, simhost::Bursts(8000, 1, {{8000, 0.5}, {16000, 0}, {8000, 0.5}})}});
        Selecionar({"A"});
        host.StartHistory();
        inteiro = Retrato();
        EntrarModoFatiador();
        driver::Pump();
        ASSERT_TRUE(ModoFatiadorAtivo);
        ASSERT_NE(Retrato(), inteiro);
    }
    void ConfereCancelado() {
        EXPECT_FALSE(ModoFatiadorAtivo);
        EXPECT_EQ(Retrato(), inteiro);
        EXPECT_STREQ(StatusMsg, Cancelado);
    }
    std::string inteiro;  // the project before the mode
};

TEST_F(PainelFatiador, OutraJanelaNaFrenteCancela) {
    Abrir();
    SetForegroundWindow(outra);
    driver::Pump();
    EXPECT_STREQ(StatusMsg, "") << "outside the mode there is nothing to cancel";
    Entrar();
    SalvarPresetAberto = true;
    SetForegroundWindow(outra);
    ConfereCancelado();
    EXPECT_FALSE(SalvarPresetAberto);
}

TEST_F(PainelFatiador, AVigiaSoValeDepoisDoPainelTerEstadoNaFrente) {
    Entrar();
    Espiar([](UINT mensagem, WPARAM) { return mensagem == WM_ACTIVATE; });
    PainelEmFrente = false;
    SetForegroundWindow(outra);
    ASSERT_TRUE(EsperarTique(1));
    EXPECT_TRUE(ModoFatiadorAtivo) << "not seen in front yet";
    SetForegroundWindow(JanelaPainel);
    ASSERT_TRUE(EsperarTique(1));
    EXPECT_TRUE(PainelEmFrente);
    if (driver::LeaveNobodyInFront()) {
        ASSERT_TRUE(EsperarTique(1));
        EXPECT_TRUE(ModoFatiadorAtivo) << "nobody in front is no sign of work elsewhere";
    }
    SetForegroundWindow(outra);
    ASSERT_TRUE(EsperarTique(1));
    ConfereCancelado();
}

TEST_F(PainelFatiador, FecharOPainelCancelaAntes) {
    Entrar();
    Espiar([](UINT mensagem, WPARAM) { return mensagem == WM_ACTIVATE; });  // so that only the closing itself can tell
    Fechar();
    EXPECT_FALSE(JanelaPainelAberta());
    ConfereCancelado();
    Abrir();
    EXPECT_FALSE(ModoFatiadorAtivo);
}
