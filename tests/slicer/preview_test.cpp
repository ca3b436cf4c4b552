// The preview mode, from the page's buttons and from outside, by what it leaves in the project and on the undo history.
#include "slicer/preview.h"

#include "host/actions.h"
#include "panel/slicer_page.h"
#include "slicer/bounce.h"
#include "slicer/presets.h"
#include "tests/support/panel_scene.h"

constexpr char ComPreview[] = "Fatiador Bounce Entrada | Fatiador Preview";

class Previa : public Painel {
  protected:
    // One item of 6 seconds that shows the middle of a longer source: loud, quiet (-40 dB) and loud again.
    void SetUp() override {
        Painel::SetUp();
        Abrir();
        MediaTrack* faixa = Faixa("Voz");
        const auto fonte =
            Bursts(8000, 1, {{24000, 0}, {16000, 0.5}, {8000, 0}, {8000, 0.01}, {8000, 0}, {8000, 0.5}, {80000, 0}});
        NovoItem(faixa, {"curto", 10, 12});
        Dados(NovoItem(faixa, {"A", 10, 16, fonte})).takes[0]->startOffset = 3;
        NovoItem(faixa, {"B", 30, 31});
        Selecionar({"A"});
        host.undo.Start();
        original = RetratoCompleto();
    }
    void Entrar() {
        AbrirFatiador();
        driver::Pump();
    }
    // The mode's flags and the undo history.
    void Conferir(const char* modo, const std::string& historico) {
        EXPECT_EQ(std::string(ModoFatiadorAtivo ? "modo" : "-") + (PreviewAtivo ? " preview" : "") +
                      (BounceEntradaAtivo ? " bounce" : ""),
                  modo);
        EXPECT_EQ(Historico(), historico);
    }
    void PontoDeOutro(const char* titulo) {
        host.undo.Begin();
        host.undo.End(titulo);
    }
    std::string UltimosGravados() {
        const std::string texto = LerArquivo(host.resourcePath + "/presets_fatiador.ini");
        return texto.substr(0, texto.find('\n'));
    }
    int64_t Cortes() { return host.calls.Count("GetAudioAccessorSamples"); }
    void PisoMenos() { Clicar("DIMINUIR PISO"); }

    std::string original;
};

TEST_F(Previa, RecusaAntesDeMexer) {
    Selecionar({});
    AbrirFatiador();
    EXPECT_EQ(Mensagens(), "A.SPLIT: Selecione itens de audio.");
    Selecionar({"A", "B"});
    ResponderMensagem(7);
    AbrirFatiador();
    EXPECT_EQ(host.dialogs.messages.back().title, "Auto Fatiador");
    EXPECT_EQ(host.dialogs.messages.back().type, 4);
    Conferir("-", "");
    Faixa("Som", {{"C", 0, 1}});
    Selecionar({"A", "C"});  // joined per track, two are still two
    ResponderMensagem(6);
    AbrirFatiador();
    EXPECT_EQ(host.dialogs.messages.back().text,
              "Ainda ha mais de um item (itens em faixas diferentes?).\nSelecione apenas um item e tente de novo.");
    EXPECT_FALSE(ModoFatiadorAtivo);
    EXPECT_EQ(Historico().find("Fatiador"), std::string::npos);
}

TEST_F(Previa, VariosItensViramUmAntes) {
    Selecionar({"A", "B"});
    ResponderMensagem(6);
    Entrar();
    EXPECT_TRUE(ModoFatiadorAtivo);
    Clicar("VOLTAR");
    EXPECT_FALSE(ModoFatiadorAtivo);
    EXPECT_EQ(Historico().find("Fatiador"), std::string::npos);
    EXPECT_EQ(Dados(FaixaChamada("Voz")).items.size(), 2u) << "the joining stands";
}

// Handles die with each undo, and the host may keep the selection to itself.
TEST_F(Previa, CadaMudancaDesfazECortaDeNovo) {
    host.preferences.undoRestoresSelection = false;
    PainelEmFrente = SalvarPresetAberto = true;
    Entrar();
    Conferir("modo preview bounce", ComPreview);
    EXPECT_FALSE(SalvarPresetAberto);
    const std::string cortado = Retrato();
    EXPECT_NE(cortado, original);
    for (int i = 0; i < 5; ++i) PisoMenos();
    EXPECT_EQ(thresholdDb, -42);
    EXPECT_NE(Retrato(), cortado) << "the quiet part sounds at -42 dB";
    Conferir("modo preview bounce", ComPreview);
    Clicar("VOLTAR");
    Conferir("-", "");
    EXPECT_EQ(RetratoCompleto(), original);
    EXPECT_EQ(UltimosGravados(), "LAST_USED=-42.00,55,true");
    RestaurarEstadoFatiador();  // the next process
    Entrar();
    EXPECT_EQ(thresholdDb, -42);
}

TEST_F(Previa, AplicarGuardaOsCortesEODesfazerDoHost) {
    Entrar();
    const std::string cortado = Retrato();
    Clicar("APLICAR FATIAS");
    Conferir("-", ComPreview);
    EXPECT_EQ(Retrato(), cortado);
    EXPECT_EQ(UltimosGravados(), "LAST_USED=-37.00,55,true");
    // A second run starts from the settings of the first, and leaves its points alone when it goes back.
    thresholdDb = -20;
    Selecionar({"B"});
    Entrar();
    EXPECT_EQ(thresholdDb, -20);
    Clicar("VOLTAR");
    Conferir("-", ComPreview);
    EXPECT_EQ(Retrato(), cortado) << "what was applied is no preview any more";
    host.undo.Back();
    host.undo.Back();
    EXPECT_EQ(Retrato(), "Voz: curto 10-12 | A 10-16 @3 | B 30-31");
}

TEST_F(Previa, SemItemParaReconhecerFicaVazioAteEleVoltar) {
    Entrar();
    // Somebody deletes the item below the preview: nothing is left to select.
    host.undo.Back();
    host.undo.Begin();
    host.project.tracks.Remove(*host.project.tracks.Selected()[0]);
    host.undo.End("Script");
    PisoMenos();
    Conferir("modo bounce", "Fatiador Bounce Entrada | Script");
    EXPECT_EQ(Mensagens(), "");
    host.undo.Back();
    PisoMenos();
    Conferir("modo preview bounce", ComPreview);
    Clicar("VOLTAR");
    EXPECT_EQ(RetratoCompleto(), original);
}

// A foreign point on top is left alone, with all below it; previews that a script piled up go together, 64 at most.
TEST_F(Previa, OTopoDoHistoricoMandaNoDesfazer) {
    Entrar();
    PontoDeOutro("Script");
    const std::string cortado = Retrato();
    Clicar("VOLTAR");
    Conferir("-", std::string(ComPreview) + " | Script");
    EXPECT_EQ(Retrato(), cortado);
    host.undo.Back();
    Selecionar({"B"});
    Entrar();
    for (int i = 0; i < 66; ++i) PontoDeOutro("Fatiador Preview");
    Clicar("VOLTAR");
    EXPECT_EQ(Historico(), std::string(ComPreview) + " | " + ComPreview + " | Fatiador Preview | Fatiador Preview");
}

TEST_F(Previa, SliderCortaSoAoSoltar) {
    Entrar();
    const Celula piso = Achar("AJUSTA O PISO").lugar;
    Mover("AJUSTA O PISO");
    Apertar();
    const std::string antes = Retrato();
    const int64_t cortes = Cortes();
    Mover(180, piso.y);
    EXPECT_EQ(thresholdDb, std::floor((180.0 - piso.x) / piso.w * 74 - 80));
    Mover(900, 5);
    EXPECT_EQ(thresholdDb, -6);
    Mover(150, 300);
    EXPECT_EQ(Cortes(), cortes);
    EXPECT_EQ(Retrato(), antes);
    Soltar();
    driver::Pump();
    EXPECT_GT(Cortes(), cortes);
    Conferir("modo preview bounce", ComPreview);
    // A drag that outside work cut short does not go on in the next run.
    Mover("AJUSTA O PISO");
    Apertar();
    SetForegroundWindow(outra);
    driver::Pump();
    Soltar();
    const double parado = thresholdDb;
    Entrar();
    Mover(200, 500);
    EXPECT_EQ(thresholdDb, parado);
}

// A host may let messages in while it glues or reads: the cuts are not touched from two sides at once.
TEST_F(Previa, NadaMaisMexeNosCortesEnquantoSaoFeitos) {
    host.actions.outside[acao::ColarSelecao] = [] { AbrirFatiador(); };
    Entrar();
    host.calls.onRead = [this](int64_t) {
        host.calls.onRead = nullptr;
        Soltar();
        PisoMenos();
        SetForegroundWindow(outra);
        SendMessageA(JanelaPainel, WM_CLOSE, 0, 0);
    };
    PisoMenos();
    ASSERT_TRUE(JanelaPainelAberta());
    EXPECT_EQ(thresholdDb, -38);
    Conferir("-", "");  // as soon as the cuts are whole
    EXPECT_EQ(RetratoCompleto(), original);

    Entrar();
    host.calls.onRead = [this](int64_t) {
        host.calls.onRead = nullptr;
        SetForegroundWindow(outra);
        SetForegroundWindow(JanelaPainel);
    };
    PisoMenos();
    Conferir("modo preview bounce", ComPreview);  // the user is back in the panel
}

// A step tests its own limit only, and cuts anew also there.
TEST_F(Previa, PassosEPresets) {
    Entrar();
    const std::tuple<const char*, double, double> casos[] = {
        {"DIMINUIR PISO", -80, -80},         {"AUMENTA PISO", -6, -6},    {"DIMINUIR PISO", -90, -80},
        {"AUMENTA PISO", -90, -89},          {"AUMENTA PISO", 3, -6},     {"DIMINUIR PISO", 3, 2},
        {"DIMINUIR PISO", -37.5, -38.5},     {"AUMENTA BLOCO", 500, 500}, {"AUMENTA BLOCO", 2147483647, 500},
        {"DIMINUI BLOCO", -2147483648.0, 1}, {"AUMENTA BLOCO", 55, 56},   {"DIMINUI BLOCO", 1, 1},
    };
    for (const auto& [botao, antes, depois] : casos) {
        const bool piso = std::string_view(botao).ends_with("PISO");
        const int64_t cortes = Cortes();
        if (piso)
            thresholdDb = antes;
        else
            blocoMs = static_cast<int>(antes);
        Clicar(botao);
        EXPECT_EQ(piso ? thresholdDb : blocoMs, depois) << botao;
        EXPECT_GT(Cortes(), cortes) << botao;
    }
    Clicar("FECHA LACUNAS?");
    EXPECT_FALSE(fecharLacunas);
    Clicar("P3", driver::Button::Right);
    EXPECT_EQ(blocoMs, 1) << "only left clicks count";
    Clicar("P3");
    EXPECT_EQ(thresholdDb, -30);
    EXPECT_EQ(blocoMs, 60);
    EXPECT_TRUE(fecharLacunas);
}

TEST_F(Previa, PerguntaCongelaAPaginaESalvaUmPreset) {
    Entrar();
    Clicar("SALVAR PRESET");
    ASSERT_TRUE(SalvarPresetAberto);
    const int64_t cortes = Cortes();
    for (const WidgetNaTela& w : Widgets())
        if (w.pagina == "fatiador") Clicar(w.Meio().x, w.Meio().y);
    EXPECT_TRUE(ModoFatiadorAtivo && SalvarPresetAberto);
    thresholdDb = -33.25;
    Clicar("P5");
    EXPECT_FALSE(SalvarPresetAberto);
    EXPECT_EQ(PresetsFatiador[4].thresholdDb, -33.25);
    EXPECT_EQ(Cortes(), cortes) << "neither the frozen page nor storing cuts anew";
    Clicar("SALVAR PRESET");
    Clicar("CANCELAR");
    EXPECT_FALSE(SalvarPresetAberto);
    thresholdDb = -44;
    SetForegroundWindow(outra);
    driver::Pump();
    EXPECT_EQ(UltimosGravados(), "LAST_USED=-33.25,55,true") << "work outside writes nothing";
    EXPECT_EQ(RetratoCompleto(), original);
}
