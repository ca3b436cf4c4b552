// What ends the slicer mode from outside, where the loss of the front alone would not tell.
#include "panel/slicer_page.h"
#include "panel/status.h"
#include "slicer/preview.h"
#include "tests/support/panel_scene.h"

class PainelFatiador : public Painel {
  protected:
    // The panel is open, the mode is on, the item is cut, and the panel hears nothing of its activation.
    void SetUp() override {
        Painel::SetUp();
        Abrir();
        SetForegroundWindow(outra);
        driver::Pump();
        EXPECT_STREQ(StatusMsg, "") << "outside the mode there is nothing to cancel";
        SetForegroundWindow(JanelaPainel);
        Faixa("Voz", {{"A", 0, 4, Bursts(8000, 1, {{8000, 0.5}, {16000, 0}, {8000, 0.5}})}});
        Selecionar({"A"});
        host.undo.Start();
        inteiro = Retrato();
        AbrirFatiador();
        driver::Pump();
        ASSERT_TRUE(ModoFatiadorAtivo);
        ASSERT_NE(Retrato(), inteiro);
        SalvarPresetAberto = true;
        Espiar([](UINT mensagem, WPARAM) { return mensagem == WM_ACTIVATE; });
    }
    void ConfereCancelado() {
        EXPECT_FALSE(ModoFatiadorAtivo || SalvarPresetAberto);
        EXPECT_EQ(Retrato(), inteiro);
        EXPECT_STREQ(StatusMsg, "Modo Fatiador cancelado (atividade fora do painel)");
    }
    std::string inteiro;  // the project before the mode
};

TEST_F(PainelFatiador, AVigiaSoValeDepoisDoPainelTerEstadoNaFrente) {
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
    Fechar();
    EXPECT_FALSE(JanelaPainelAberta());
    ConfereCancelado();
}
