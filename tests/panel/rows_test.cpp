// Every button of the main page, clicked with both buttons: what it did to the host, and what the status line says.
#include "commands/commands.h"
#include "host/actions.h"
#include "panel/status.h"
#include "slicer/preview.h"
#include "tests/support/panel_scene.h"
#include "tests/support/story.h"

using driver::Button;

namespace {

// The moving arrows, by their tooltips: the row of jumps has such icons too.
constexpr char Esquerda[] = "L: COLA NO ANTERIOR | SHIFT+L / R: MOVE 20MS ESQ";
constexpr char Direita[] = "L: COLA ITEM SEGUINTE | SHIFT+L / R: MOVE 20MS DIR";

struct Alvo {
    const char *nome, *esquerdo, *direito;
};

class Linhas : public Painel {
  protected:
    void SetUp() override {
        Painel::SetUp();
        Abrir();
    }
    // A scene in which every command has something to do.
    static void Cenario() {
        Projeto("Voz (selected): a 2-4 * | b 6-8 | c 9-10 / Som: d 1-2 {cursor 3}");
        StatusMsg[0] = '\0';
    }

    // Status, actions run, undo points and messages of one click.
    std::string Efeito(const std::string& nome, Button botao = Button::Left) {
        Cenario();
        Clicar(nome, botao);
        std::string efeito = StatusMsg;
        const auto juntar = [&efeito](const char* abre, const std::string& texto) {
            if (!texto.empty()) efeito += abre + texto;
        };
        juntar(" #", Acoes());
        juntar(" <", Historico());
        juntar(" !", Mensagens());
        return efeito;
    }
    void Conferir(const std::vector<Alvo>& alvos) {
        for (const Alvo& alvo : alvos) {
            EXPECT_EQ(Efeito(alvo.nome), alvo.esquerdo) << alvo.nome;
            EXPECT_EQ(Efeito(alvo.nome, Button::Right), alvo.direito) << alvo.nome;
        }
    }
};

TEST_F(Linhas, CadaBotaoFazODeleEDiz) {
    const char* semRegiao = "Executado: PlayRegiao(7) !Quilmo: Nenhuma regiao encontrada no projeto.";
    Conferir({
        {"GRAVAR", "Executado: ExecutarGravacao #Gravar", ""},
        {"PLAY / PAUSE", "Executado: Play/Pause #TocarOuPausar", "Executado: Play/Stop #TocarOuParar"},
        {"PARAR", "Executado: PararTudo #DesselecionarFaixas TirarSelecaoDeTempo Parar", ""},
        {"INICIO DO PROJETO", " #IrAoInicio", ""},
        {"INICIO DO ITEM FAIXA SEL.", "Executado: PrevItemStart", ""},
        {"FIM DO ITEM FAIXA SEL.", "Executado: NextItemEnd", ""},
        {"FIM DO PROJETO", " #IrAoFim", ""},
        {"7", semRegiao, ""},
        {"+", "Executado: CriarOuRenomearRegiao",
         "Executado: SelTempoERegiao #DesselecionarFaixas TirarSelecaoDeTempo <Criar Regiao (Itens)"},
        {"-", "Executado: DeletarRegiaoSobCursor <Deletar regiao sob cursor ou item",
         "Executado: LimparRegioes !Atencao: Tem certeza que deseja apagar TODAS as regioes?"},
        {"[< TRIM", "Executado: TrimEsquerda <Corta e Apaga Esquerda (Ripple)", ""},
        {"PARTIR", "Executado: SplitNoCursor", ""},
        {"TRIM >]", "Executado: TrimDireita <Corta e Apaga Direita (Ripple)", ""},
        {"DEL", "Executado: ExcluirRipple <Excluir Ripple Manual", ""},
        {"S. FLOW", "Executado: SelecaoFluxo <Selecao em Fluxo", ""},
        {"S. TIME", "Executado: SelTempoItens", ""},
        {"DUP", " #DuplicarItens <Duplicate items", " #DuplicarFaixas <Duplicate tracks"},
        {"VOL", "Executado: VolEnvelope #AlternarEnvelopeDeVolume <Acionar Take Volume Envelope", ""},
        {"up", "Executado: MvClipCima <Move itens para faixa acima", "Executado: MvPistaCima <Move Pista para Cima"},
        {"MUTE", "Executado: MuteClip <Mute/Unmute Clips", ""},
        {"MEDIA", " #AlternarMediaExplorer", ""},
        {Esquerda, "Executado: ColaClipEsq <Colar Clips Esquerda",
         "Executado: MvClipEsq <Move Clip Esq | Move Clip Esq"},
        {"down", "Executado: MvClipBaixo <Move itens para faixa abaixo",
         "Executado: MvPistaBaixo #DesselecionarFaixas <Move Pista para Baixo"},
        {Direita, "Executado: ColaClipDir <Colar Clips Direita", "Executado: MvClipDir <Move Clip Dir | Move Clip Dir"},
        {"zoom_in", " #AproximarHorizontal", " #AfastarHorizontal"},
        {"zoom_vert", " #AproximarVertical", " #AfastarVertical"},
        {"zoom_sel", "Executado: VerSelecao #ZoomNosItens <Ver Selecao", ""},
        {"zoom_all", "Executado: ZoomAllFaixas(esticar)", "Executado: ZoomAllFaixas(so_altura)"},
        {"BOUNCE", "Executado: BounceInteligente #RenderTakeStereo <Render items to new stereo take", ""},
        {"STEM", " #AlternarTakesEmPistas", " #ApagarTakeAtivo <Delete active take"},
        {"STEREO", "Executado: StereoRender #RenderTakeStereo AlternarTakesEmPistas <Render items to new stereo take",
         ""},
        {"MONO", "Executado: MonoRender #RenderTakeMono <Render items to new mono take", ""},
        {"RENDER", "Executado: RenderProjeto #RenderizarProjeto", ""},
        {"FOLDER", "Executado: AbrirDiretorio #AbrirPastaDoRender", ""},
        {"CONFIG", " #AbrirConfigRender", ""},
        {"250 206 205", "Executado: AplicarCorItens", "Executado: AplicarCorFaixas"},
        {"clear", "Executado: LimparCorItens", "Executado: LimparCorFaixas"},
    });
    EXPECT_EQ(Efeito("AUTO FATIADOR"),
              "Executado: EntrarModoFatiador #ColarSelecao <Fatiador Bounce Entrada | Fatiador Preview");
    EXPECT_TRUE(ModoFatiadorAtivo);
}

TEST_F(Linhas, UmaCorPelaAmostraUmaRegiaoPeloNumero) {
    Cenario();
    Clicar("60 220 110");  // the last swatch; the command gets its own values, not the lit ones
    Clicar("252 205 224", Button::Right);
    EXPECT_EQ(RetratoCompleto(), "Voz (#fccde0, selected): a 2-4 #3cdc6e * | b 6-8 | c 9-10 / Som: d 1-2 {cursor 3}");
    Projeto("[R1 a 1-2] [R2 b 3-4]");
    Clicar("2");
    EXPECT_STREQ(StatusMsg, "Executado: PlayRegiao(2)");
    EXPECT_EQ(host.project.cursor, 3);
}

TEST_F(Linhas, SemRippleOsCortesSaoOutros) {
    EXPECT_EQ(Efeito("[R]"), "Ripple: OFF");
    EXPECT_EQ(Efeito("R", Button::Right), "");
    Conferir({{"[< TRIM", "Executado: CortarE #ApararBordaEsquerda <Cortar Esquerda", ""},
              {"TRIM >]", "Executado: CortarD #ApararBordaDireita <Cortar Direita", ""},
              {"DEL", "Executado: Deletar Itens (nativo) #RemoverItens <Remove items", ""}});
    Fechar();
    Abrir();
    EXPECT_FALSE(ModoRipple) << "the switch outlives the window";
    EXPECT_EQ(Efeito("R"), "Ripple: ON");
}

TEST_F(Linhas, CadaEscolhaDosMenus) {
    const struct {
        const char *nome, *escolha, *efeito;
    } menus[] = {
        {"FECHAR LACUNAS", "Fecha Lacuna Entre Selecionados",
         "Executado: FechaLacuna !Erro: Selecione mais de 2 itens na mesma trilha para usar este script."},
        {"FECHAR LACUNAS", "Fecha Lacunas Subsequentes",
         "Executado: FechaLacunaSubsequente <Fechar Lacunas Subsequentes"},
        {"FECHAR LACUNAS", "Fecha Lacuna Selecionada com Mixagem", "Executado: JuntaClipCrossfade"},
        {"FECHAR LACUNAS", "Fechar", ""},
        {"FECHAR LACUNAS", "", ""},
        {"SELECIONAR", "Todos os itens do projeto", "Executado: SelecionarTodosProjeto <Selecionar Todos os Itens"},
        {"SELECIONAR", "Todos os itens da faixa", "Executado: SelecionarTodosFaixa <Selecionar Itens da Faixa"},
        {"SELECIONAR", "Tudo antes do ponteiro", "Executado: SelecionarAntesCursor <Selecionar Antes do Cursor"},
        {"SELECIONAR", "Tudo depois do ponteiro", "Executado: SelecionarDepoisCursor <Selecionar Depois do Cursor"},
        {"SELECIONAR", "Tudo antes do ponteiro (faixa selecionada)",
         "Executado: SelecionarAntesCursorFaixa <Selecionar Antes do Cursor (Faixa)"},
        {"SELECIONAR", "Tudo depois do ponteiro (faixa selecionada)",
         "Executado: SelecionarDepoisCursorFaixa <Selecionar Depois do Cursor (Faixa)"},
        {"SELECIONAR", "Fechar", ""},
    };
    for (const auto& menu : menus) {
        driver::AnswerNextMenu(menu.escolha);
        EXPECT_EQ(Efeito(menu.nome), menu.efeito) << menu.escolha;
        EXPECT_FALSE(Mouse.esquerdoSeguro || GetCapture()) << "the menu took the release";
    }
}

TEST_F(Linhas, ShiftMoveEmVezDeColar) {
    driver::HoldKey(VK_SHIFT, true);
    EXPECT_EQ(Efeito(Esquerda), "Executado: ColaClipEsq <Move Clip Esq | Move Clip Esq");
    EXPECT_EQ(Efeito(Direita), "Executado: ColaClipDir <Move Clip Dir | Move Clip Dir");
    EXPECT_EQ(Efeito("down"), "Executado: MvClipBaixo <Move itens para faixa abaixo");
    driver::HoldKey(VK_SHIFT, false);
}

TEST_F(Linhas, ZoomRepeteEnquantoSeguro) {
    for (const Button botao : {Button::Left, Button::Right}) {
        const std::string uma = botao == Button::Left ? "AproximarVertical" : "AfastarVertical",
                          tres = uma + " " + uma + " " + uma;
        host.actionsRun.clear();
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
        const double intervalo = driver::TimerInterval(JanelaPainel, 2);
        EXPECT_GE(intervalo, 90 * 0.9);
        EXPECT_LE(intervalo, 90 * (1 + driver::IntervalSlack));
        Soltar(botao);
        EXPECT_FALSE(EsperarTique(2));
    }
}

// A click whose command does nothing still reports; a bare action wipes the line.
TEST_F(Linhas, StatusDizOUltimoComando) {
    host.toggles[acao::Gravar] = 1;
    host.playState = 4;
    host.actionsRun.clear();
    Clicar("PLAY / PAUSE");
    EXPECT_EQ(Acoes(), "") << "a recording is not paused";
    EXPECT_STREQ(StatusMsg, "Executado: Play/Pause");
    Clicar("CONFIG");
    EXPECT_STREQ(StatusMsg, "");
}

}  // namespace
