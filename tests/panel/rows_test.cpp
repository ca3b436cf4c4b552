// Every button of the main page, clicked with both buttons: what it did to the host, and what the status line says.
#include "commands/commands.h"
#include "host/actions.h"
#include "panel/status.h"
#include "slicer/preview.h"
#include "tests/support/panel_scene.h"
#include "tests/support/story.h"

using driver::Button;

namespace {

struct Alvo {
    int x, y;  // on the button
    const char *esquerdo, *direito;
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
    std::string Efeito(int x, int y, Button botao = Button::Left) {
        Cenario();
        Clicar(x, y, botao);
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
            SCOPED_TRACE("at " + std::to_string(alvo.x) + ", " + std::to_string(alvo.y));
            EXPECT_EQ(Efeito(alvo.x, alvo.y), alvo.esquerdo);
            EXPECT_EQ(Efeito(alvo.x, alvo.y, Button::Right), alvo.direito);
        }
    }
};

TEST_F(Linhas, CadaBotaoFazODeleEDiz) {
    const char* semRegiao = "Executado: PlayRegiao(7) !Quilmo: Nenhuma regiao encontrada no projeto.";
    Conferir({
        {160, 40, "Executado: ExecutarGravacao #Gravar", ""},
        {160, 78, "Executado: Play/Pause #TocarOuPausar", "Executado: Play/Stop #TocarOuParar"},
        {160, 114, "Executado: PararTudo #DesselecionarFaixas TirarSelecaoDeTempo Parar", ""},
        {45, 150, " #IrAoInicio", ""},
        {123, 150, "Executado: PrevItemStart", ""},
        {201, 150, "Executado: NextItemEnd", ""},
        {279, 150, " #IrAoFim", ""},
        {227, 197, semRegiao, ""},
        {261, 197, "Executado: CriarOuRenomearRegiao",
         "Executado: SelTempoERegiao #DesselecionarFaixas TirarSelecaoDeTempo <Criar Regiao (Itens)"},
        {295, 197, "Executado: DeletarRegiaoSobCursor <Deletar regiao sob cursor ou item",
         "Executado: LimparRegioes !Atencao: Tem certeza que deseja apagar TODAS as regioes?"},
        {45, 242, "Executado: TrimEsquerda <Corta e Apaga Esquerda (Ripple)", ""},
        {123, 242, "Executado: SplitNoCursor", ""},
        {201, 242, "Executado: TrimDireita <Corta e Apaga Direita (Ripple)", ""},
        {259, 242, "Executado: ExcluirRipple <Excluir Ripple Manual", ""},
        {182, 332, "Executado: SelecaoFluxo <Selecao em Fluxo", ""},
        {279, 332, "Executado: SelTempoItens", ""},
        {45, 377, " #DuplicarItens <Duplicate items", " #DuplicarFaixas <Duplicate tracks"},
        {123, 377, "Executado: VolEnvelope #AlternarEnvelopeDeVolume <Acionar Take Volume Envelope", ""},
        {201, 377, "Executado: MvClipCima <Move itens para faixa acima",
         "Executado: MvPistaCima <Move Pista para Cima"},
        {279, 377, "Executado: MuteClip <Mute/Unmute Clips", ""},
        {45, 417, " #AlternarMediaExplorer", ""},
        {123, 417, "Executado: ColaClipEsq <Colar Clips Esquerda",
         "Executado: MvClipEsq <Move Clip Esq | Move Clip Esq"},
        {201, 417, "Executado: MvClipBaixo <Move itens para faixa abaixo",
         "Executado: MvPistaBaixo #DesselecionarFaixas <Move Pista para Baixo"},
        {279, 417, "Executado: ColaClipDir <Colar Clips Direita",
         "Executado: MvClipDir <Move Clip Dir | Move Clip Dir"},
        {45, 462, " #AproximarHorizontal", " #AfastarHorizontal"},
        {123, 462, " #AproximarVertical", " #AfastarVertical"},
        {201, 462, "Executado: VerSelecao #ZoomNosItens <Ver Selecao", ""},
        {279, 462, "Executado: ZoomAllFaixas(esticar)", "Executado: ZoomAllFaixas(so_altura)"},
        {45, 507, "Executado: BounceInteligente #RenderTakeStereo <Render items to new stereo take", ""},
        {123, 507, " #AlternarTakesEmPistas", " #ApagarTakeAtivo <Delete active take"},
        {201, 507, "Executado: StereoRender #RenderTakeStereo AlternarTakesEmPistas <Render items to new stereo take",
         ""},
        {279, 507, "Executado: MonoRender #RenderTakeMono <Render items to new mono take", ""},
        {45, 548, "Executado: RenderProjeto #RenderizarProjeto", ""},
        {201, 548, "Executado: AbrirDiretorio #AbrirPastaDoRender", ""},
        {279, 548, " #AbrirConfigRender", ""},
        {25, 593, "Executado: AplicarCorItens", "Executado: AplicarCorFaixas"},
        {25, 633, "Executado: LimparCorItens", "Executado: LimparCorFaixas"},
    });
    EXPECT_EQ(Efeito(80, 287),
              "Executado: EntrarModoFatiador #ColarSelecao <Fatiador Bounce Entrada | Fatiador Preview");
    EXPECT_TRUE(ModoFatiadorAtivo);
}

TEST_F(Linhas, UmaCorPelaAmostraUmaRegiaoPeloNumero) {
    Cenario();
    Clicar(298, 633);  // the last swatch; the command gets its own values, not the lit ones
    Clicar(64, 633, Button::Right);
    EXPECT_EQ(RetratoCompleto(), "Voz (#fccde0, selected): a 2-4 #3cdc6e * | b 6-8 | c 9-10 / Som: d 1-2 {cursor 3}");
    Projeto("[R1 a 1-2] [R2 b 3-4]");
    Clicar(59, 197);
    EXPECT_STREQ(StatusMsg, "Executado: PlayRegiao(2)");
    EXPECT_EQ(host.project.cursor, 3);
}

TEST_F(Linhas, SemRippleOsCortesSaoOutros) {
    Conferir({{298, 242, "Ripple: OFF", ""},
              {45, 242, "Executado: CortarE #ApararBordaEsquerda <Cortar Esquerda", ""},
              {201, 242, "Executado: CortarD #ApararBordaDireita <Cortar Direita", ""},
              {259, 242, "Executado: Deletar Itens (nativo) #RemoverItens <Remove items", ""}});
    Fechar();
    Abrir();
    EXPECT_FALSE(ModoRipple) << "the switch outlives the window";
    EXPECT_EQ(Efeito(298, 242), "Ripple: ON");
}

TEST_F(Linhas, CadaEscolhaDosMenus) {
    const struct {
        int x, y;
        const char *escolha, *efeito;
    } menus[] = {
        {240, 287, "Fecha Lacuna Entre Selecionados",
         "Executado: FechaLacuna !Erro: Selecione mais de 2 itens na mesma trilha para usar este script."},
        {240, 287, "Fecha Lacunas Subsequentes", "Executado: FechaLacunaSubsequente <Fechar Lacunas Subsequentes"},
        {240, 287, "Fecha Lacuna Selecionada com Mixagem", "Executado: JuntaClipCrossfade"},
        {240, 287, "Fechar", ""},
        {240, 287, "", ""},
        {60, 332, "Todos os itens do projeto", "Executado: SelecionarTodosProjeto <Selecionar Todos os Itens"},
        {60, 332, "Todos os itens da faixa", "Executado: SelecionarTodosFaixa <Selecionar Itens da Faixa"},
        {60, 332, "Tudo antes do ponteiro", "Executado: SelecionarAntesCursor <Selecionar Antes do Cursor"},
        {60, 332, "Tudo depois do ponteiro", "Executado: SelecionarDepoisCursor <Selecionar Depois do Cursor"},
        {60, 332, "Tudo antes do ponteiro (faixa selecionada)",
         "Executado: SelecionarAntesCursorFaixa <Selecionar Antes do Cursor (Faixa)"},
        {60, 332, "Tudo depois do ponteiro (faixa selecionada)",
         "Executado: SelecionarDepoisCursorFaixa <Selecionar Depois do Cursor (Faixa)"},
        {60, 332, "Fechar", ""},
    };
    for (const auto& menu : menus) {
        driver::AnswerNextMenu(menu.escolha);
        EXPECT_EQ(Efeito(menu.x, menu.y), menu.efeito) << menu.escolha;
        EXPECT_FALSE(Mouse.esquerdoSeguro || GetCapture()) << "the menu took the release";
    }
    EXPECT_EQ(driver::LastMenu().size(), 10u);
}

TEST_F(Linhas, ShiftMoveEmVezDeColar) {
    driver::HoldKey(VK_SHIFT, true);
    EXPECT_EQ(Efeito(123, 417), "Executado: ColaClipEsq <Move Clip Esq | Move Clip Esq");
    EXPECT_EQ(Efeito(279, 417), "Executado: ColaClipDir <Move Clip Dir | Move Clip Dir");
    EXPECT_EQ(Efeito(201, 417), "Executado: MvClipBaixo <Move itens para faixa abaixo");
    driver::HoldKey(VK_SHIFT, false);
}

TEST_F(Linhas, ZoomRepeteEnquantoSeguro) {
    for (const Button botao : {Button::Left, Button::Right}) {
        const std::string uma = botao == Button::Left ? "AproximarVertical" : "AfastarVertical",
                          tres = uma + " " + uma + " " + uma;
        host.actionsRun.clear();
        Mover(123, 462);
        Apertar(botao);
        EXPECT_EQ(Acoes(), uma) << "once at the press";
        EXPECT_TRUE(EsperarTique(2) && EsperarTique(2));
        EXPECT_EQ(Acoes(), tres);
        Mover(201, 462);
        EXPECT_TRUE(EsperarTique(2));  // the tick that finds nothing to repeat, and ends the timer
        Mover(123, 462);
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
    Clicar(160, 78);
    EXPECT_EQ(Acoes(), "") << "a recording is not paused";
    EXPECT_STREQ(StatusMsg, "Executado: Play/Pause");
    Clicar(279, 548);
    EXPECT_STREQ(StatusMsg, "");
}

}  // namespace
