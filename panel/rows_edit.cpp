// panel/rows_edit.cpp: the regions; trim, split and delete, which close up what they remove while ripple is on.
#include "panel/rows.h"
#include "panel/state.h"
#include "panel/status.h"

// Nine narrow cells that stand off the grid: play regions 1 to 7, create, delete.
void LinhaRegioes(ContextoGrade& contexto) {
    const auto celula = [&contexto](int n) { return Celula{8 + 34 * (n - 1), contexto.y, 30, contexto.h}; };
    for (int n = 1; n <= 7; ++n) {
        const char rotulo[2] = {static_cast<char>('0' + n), '\0'};
        const AspectoBotao aspecto = {.rotulo = rotulo, .cor = {45, 100, 65}, .dica = "TOCA A REGIAO"};
        if (!BotaoDireto(contexto, celula(n), aspecto).cliqueEsquerdo) continue;
        PlayRegiao(n);
        DefinirStatus("Executado: PlayRegiao(%d)", n);
    }
    BotaoComComandos(
        contexto, celula(8),
        {.rotulo = "+", .cor = {45, 110, 130}, .dica = "ESQ: CRIA/RENOMEIA COM NOME | DIR: CRIA REGIAO NA SEL."},
        clique::CriarOuRenomearRegiao, clique::SelTempoERegiao);
    BotaoComComandos(contexto, celula(9),
                     {.rotulo = "-", .cor = {140, 50, 50}, .dica = "ESQ: DELETA REGIAO (CURSOR) | DIR: LIMPA TODAS"},
                     clique::DeletarRegiaoSobCursor, clique::LimparRegioes);
}

// Drawn before it flips, so its new look comes with the next pass.
static void InterruptorDeRipple(ContextoGrade& contexto) {
    const AspectoBotao aspecto = {.rotulo = ModoRipple ? "[R]" : "R",
                                  .cor = ModoRipple ? CorBase{45, 140, 95} : CorBase{42, 50, 58},
                                  .dica = "RIPPLE: TRIM REMOVENDO"};
    if (!BotaoDireto(contexto, CelulaGrade(contexto, 8, 1), aspecto).cliqueEsquerdo) return;
    ModoRipple = !ModoRipple;
    DefinirStatus("Ripple: %s", ModoRipple ? "ON" : "OFF");
}

void LinhaEdicao(ContextoGrade& contexto) {
    constexpr CorBase corDoTrim = {80, 45, 95};
    const auto escolher = [](Clique comRipple, Clique semRipple) { return ModoRipple ? comRipple : semRipple; };
    BotaoGrade(contexto, 1, 2, {.rotulo = "[< TRIM", .cor = corDoTrim, .dica = "APARA BORDA ESQ"},
               escolher(clique::TrimEsquerda, clique::CortarE));
    BotaoGrade(contexto, 3, 2, {.rotulo = "PARTIR", .cor = {110, 60, 135}, .dica = "DIVIDIR ITEM"},
               clique::SplitNoCursor);
    BotaoGrade(contexto, 5, 2, {.rotulo = "TRIM >]", .cor = corDoTrim, .dica = "APARA BORDA DIR"},
               escolher(clique::TrimDireita, clique::CortarD));
    BotaoGrade(contexto, 7, 1, {.rotulo = "DEL", .cor = {105, 35, 40}, .dica = "EXCLUIR SEL."},
               escolher(clique::ExcluirRipple, {"Deletar Itens (nativo)", Acao<acao::RemoverItens>}));
    InterruptorDeRipple(contexto);
}
