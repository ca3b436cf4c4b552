// The preview mode, from the page's buttons and from outside, by what it leaves in the project and on the undo history.
#include "slicer/preview.h"
#include <cmath>

#include "panel/status.h"
#include "render/render.h"
#include "slicer/bounce.h"
#include "slicer/presets.h"
#include "tests/support/panel_scene.h"

namespace {

constexpr char ComPreview[] = "Fatiador Bounce Entrada | Fatiador Preview";

class Previa : public Painel {
  protected:
    // One item of 6 seconds that shows the middle of a longer source: loud, quiet (-40 dB) and loud again.
    void SetUp() override {
        Painel::SetUp();
        Abrir();
        faixa = Faixa("Voz");
        MediaItem* item = NovoItem(faixa, {"A", 10, 16, Fonte()});
        Dados(item).takes[0]->startOffset = 3;
        NovoItem(faixa, {"B", 30, 31});
        Selecionar({"A"});
        host.StartHistory();
        original = RetratoCompleto();
    }
    static simhost::SourceRef Fonte() {
        return simhost::Bursts(8000, 1,
                               {{24000, 0}, {16000, 0.5}, {8000, 0}, {8000, 0.01}, {8000, 0}, {8000, 0.5}, {80000, 0}});
    }
    void Entrar() {
        EntrarModoFatiador();
        driver::Pump();
        ASSERT_TRUE(ModoFatiadorAtivo);
        ASSERT_EQ(Historico(), ComPreview);
    }
    std::string Modo() const {
        return std::string(ModoFatiadorAtivo ? "modo" : "-") + (PreviewAtivo ? " preview" : "") +
               (BounceEntradaAtivo ? " bounce" : "");
    }
    void Voltar() { Clicar(80, 260); }
    void Aplicar() { Clicar(230, 260); }
    void PisoMenos() { Clicar(28, 87); }

    MediaTrack* faixa = nullptr;
    std::string original;
};

TEST_F(Previa, RecusaAntesDeMexer) {
    Selecionar({});
    EntrarModoFatiador();
    EXPECT_EQ(Mensagens(), "A.SPLIT: Selecione itens de audio.");
    Selecionar({"A", "B"});
    ResponderMensagem(7);
    EntrarModoFatiador();
    EXPECT_EQ(host.messages.back().title, "Auto Fatiador");
    EXPECT_EQ(host.messages.back().type, 4);
    Faixa("Som", {{"C", 0, 1}});
    Selecionar({"A", "C"});  // joined per track, two are still two
    ResponderMensagem(6);
    host.StartHistory();
    EntrarModoFatiador();
    EXPECT_EQ(host.messages.back().text,
              "Ainda ha mais de um item (itens em faixas diferentes?).\nSelecione apenas um item e tente de novo.");
    EXPECT_EQ(Modo(), "-");
    EXPECT_EQ(Historico().find("Fatiador"), std::string::npos);
}

TEST_F(Previa, VariosItensViramUmAntes) {
    Selecionar({"A", "B"});
    ResponderMensagem(6);
    EntrarModoFatiador();
    driver::Pump();
    EXPECT_EQ(Modo(), "modo preview bounce");
    Voltar();
    EXPECT_EQ(Modo(), "-");
    EXPECT_EQ(Historico().find("Fatiador"), std::string::npos);
    EXPECT_EQ(Dados(faixa).items.size(), 1u) << "the joining stands";
}

TEST_F(Previa, CadaMudancaDesfazECortaDeNovo) {
    Entrar();
    EXPECT_EQ(Modo(), "modo preview bounce");
    EXPECT_FALSE(PainelEmFrente || SalvarPresetAberto);
    const std::string cortado = Retrato();
    EXPECT_NE(cortado, original);
    for (int i = 0; i < 5; ++i) PisoMenos();
    EXPECT_EQ(thresholdDb, -42);
    EXPECT_EQ(Historico(), ComPreview) << "one preview at a time";
    EXPECT_NE(Retrato(), cortado) << "the quiet part sounds at -42 dB";
    EXPECT_EQ(Modo(), "modo preview bounce");
    Voltar();
    EXPECT_EQ(Modo(), "-");
    EXPECT_EQ(RetratoCompleto(), original);
    EXPECT_EQ(Historico(), "");
}

TEST_F(Previa, AplicarGuardaOsCortesEODesfazerDoHost) {
    Entrar();
    const std::string cortado = Retrato();
    Aplicar();
    EXPECT_EQ(Modo(), "-");
    EXPECT_EQ(Retrato(), cortado);
    EXPECT_EQ(Historico(), ComPreview);
    // A second run starts from the settings of the first, and leaves its points alone when it goes back.
    thresholdDb = -20;
    const std::string aplicado = Retrato();
    Selecionar({"B"});
    EntrarModoFatiador();
    driver::Pump();
    EXPECT_EQ(thresholdDb, -20);
    Voltar();
    EXPECT_EQ(Retrato(), aplicado);
    EXPECT_EQ(Historico(), ComPreview) << "what was applied is no preview any more";
    host.Undo();
    host.Undo();
    EXPECT_EQ(Retrato(), "Voz: A 10-16 @3 | B 30-31");
}

// Handles die with each undo, and the host may keep the selection to itself.
TEST_F(Previa, ReconheceOItemPelaFaixaLugarEComprimento) {
    host.preferences.undoRestoresSelection = false;
    Entrar();
    PisoMenos();
    PisoMenos();
    EXPECT_EQ(Modo(), "modo preview bounce");
    Voltar();
    EXPECT_EQ(RetratoCompleto(), original);
}

TEST_F(Previa, SemItemParaReconhecerFicaVazioAteEleVoltar) {
    Entrar();
    // Somebody deletes the item below the preview: nothing is left to select.
    host.Undo();
    host.BeginBlock();
    host.project.tracks.Remove(*host.project.tracks.ItemAt(0));
    host.EndBlock("Script");
    PisoMenos();
    EXPECT_EQ(Modo(), "modo bounce");
    EXPECT_EQ(Historico(), "Fatiador Bounce Entrada | Script") << "a foreign point on top is left alone";
    host.Undo();
    PisoMenos();
    EXPECT_EQ(Modo(), "modo preview bounce");
    Voltar();
    EXPECT_EQ(RetratoCompleto(), original);
}

TEST_F(Previa, PontoEstranhoNoTopoParaODesfazer) {
    Entrar();
    host.BeginBlock();
    host.EndBlock("Script");
    const std::string cortado = Retrato();
    Voltar();
    EXPECT_EQ(Modo(), "-") << "the flags go all the same";
    EXPECT_EQ(Retrato(), cortado);
    EXPECT_EQ(Historico(), std::string(ComPreview) + " | Script");
}

// Previews piled up by a script that calls the slicer are taken back together, 64 at most.
TEST_F(Previa, DesfazNoMaximoSessentaEQuatro) {
    Entrar();
    for (int i = 0; i < 66; ++i) {
        host.BeginBlock();
        host.EndBlock("Fatiador Preview");
    }
    Voltar();
    EXPECT_EQ(Historico(), "Fatiador Bounce Entrada | Fatiador Preview | Fatiador Preview | Fatiador Preview");
    EXPECT_EQ(Modo(), "-");
}

TEST_F(Previa, SliderCortaSoAoSoltar) {
    Entrar();
    Mover(160, 87);
    Apertar();
    const std::string antes = Retrato();
    const int64_t leituras = host.CallCount("GetAudioAccessorSamples");
    Mover(180, 87);
    EXPECT_EQ(thresholdDb, std::floor((180 - 53) / 214.0 * 74 - 80));
    Mover(900, 5);
    EXPECT_EQ(thresholdDb, -6);
    Mover(150, 300);
    EXPECT_EQ(host.CallCount("GetAudioAccessorSamples"), leituras);
    EXPECT_EQ(Retrato(), antes);
    Soltar();
    driver::Pump();
    EXPECT_GT(host.CallCount("GetAudioAccessorSamples"), leituras);
    EXPECT_EQ(Historico(), ComPreview);
}

TEST_F(Previa, PassosTestamSoOSeuLimite) {
    Entrar();
    const struct {
        double db;
        int xDoBotao;
        double depois;
    } casos[] = {{-80, 28, -80}, {-6, 292, -6}, {-90, 28, -80},    {-90, 292, -89},
                 {3, 292, -6},   {3, 28, 2},    {-37.5, 28, -38.5}};
    for (const auto& caso : casos) {
        thresholdDb = caso.db;
        const int64_t cortes = host.CallCount("Undo_EndBlock2");
        Clicar(caso.xDoBotao, 87);
        EXPECT_EQ(thresholdDb, caso.depois) << caso.db;
        EXPECT_EQ(host.CallCount("Undo_EndBlock2"), cortes + 1) << "cut anew also at the limit";
    }
    for (const int ms : {500, 2147483647}) {
        blocoMs = ms;
        Clicar(292, 133);
        EXPECT_EQ(blocoMs, 500) << ms;
    }
    for (const int ms : {-2147483647 - 1, 1}) {
        blocoMs = ms;
        Clicar(28, 133);
        EXPECT_EQ(blocoMs, 1) << ms;
    }
    Clicar(160, 180);
    EXPECT_FALSE(fecharLacunas);
    Clicar(28 + 2 * 51, 47, driver::Button::Right);
    EXPECT_EQ(blocoMs, 1) << "only left clicks count";
    Clicar(28 + 2 * 51, 47);
    EXPECT_EQ(thresholdDb, -30);
    EXPECT_EQ(blocoMs, 60);
    EXPECT_TRUE(fecharLacunas);
}

TEST_F(Previa, PerguntaCongelaAPaginaESalvaUmPreset) {
    Entrar();
    Clicar(160, 220);
    ASSERT_TRUE(SalvarPresetAberto);
    const int64_t cortes = host.CallCount("Undo_EndBlock2");
    for (const int y : {47, 87, 133, 180, 220, 260}) Clicar(30, y);
    EXPECT_EQ(host.CallCount("Undo_EndBlock2"), cortes);
    EXPECT_TRUE(ModoFatiadorAtivo && SalvarPresetAberto);
    thresholdDb = -33.25;
    Clicar(30 + 88 + 40, 279 + 41 + 18);  // P5
    EXPECT_FALSE(SalvarPresetAberto);
    EXPECT_EQ(PresetsFatiador[4].thresholdDb, -33.25);
    EXPECT_EQ(host.CallCount("Undo_EndBlock2"), cortes) << "storing cuts nothing anew";
    Clicar(160, 220);
    Clicar(160, 397);
    EXPECT_FALSE(SalvarPresetAberto);
    Clicar(160, 220);
    SetForegroundWindow(outra);
    driver::Pump();
    EXPECT_FALSE(SalvarPresetAberto || ModoFatiadorAtivo);
    EXPECT_EQ(RetratoCompleto(), original);
}

// A drag that outside work cut short does not go on in the next run.
TEST_F(Previa, ArrastoInterrompidoNaoContinua) {
    Entrar();
    Mover(160, 87);
    Apertar();
    SetForegroundWindow(outra);
    driver::Pump();
    Soltar();
    const double antes = thresholdDb;
    Entrar();
    Mover(200, 500);
    EXPECT_EQ(thresholdDb, antes);
    EXPECT_EQ(Historico(), ComPreview);
}

TEST_F(Previa, FecharAJanelaEncerraOModo) {
    Entrar();
    Fechar();
    EXPECT_EQ(Modo(), "-");
    EXPECT_EQ(RetratoCompleto(), original);
}

}  // namespace
