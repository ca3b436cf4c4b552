// panel/rows_edit.cpp: the regions; trim, split and delete, which close up what they remove while ripple is on.
#include "commands/commands.h"
#include "commands/items.h"
#include "panel/rows.h"
#include "panel/status.h"

// Nine narrow cells that stand off the grid: play regions 1 to 7, create, delete.
void LinhaRegioes(ContextoGrade& contexto, int y) {
    Celula c = {8, y, 30, AlturaDaLinha};
    const auto avancar = [&c] { c.x += 34; };
    for (int n = 1; n <= 7; ++n, avancar()) {
        const char rotulo[2] = {static_cast<char>('0' + n), '\0'};
        const AspectoBotao aspecto = {.rotulo = rotulo, .cor = {45, 100, 65}, .dica = "TOCA A REGIAO"};
        if (!BotaoDireto(contexto, c, aspecto).cliqueEsquerdo) continue;
        PlayRegiao(n);
        DefinirStatus("Executado: PlayRegiao(%d)", n);
    }
    static const BotaoDePagina criar = {
        {.rotulo = "+", .cor = {45, 110, 130}, .dica = "ESQ: CRIA/RENOMEIA COM NOME | DIR: CRIA REGIAO NA SEL."},
        "CriarOuRenomearRegiao",
        CriarOuRenomearRegiao,
        "SelTempoERegiao",
        SelTempoERegiao};
    static const BotaoDePagina apagar = {
        {.rotulo = "-", .cor = {140, 50, 50}, .dica = "ESQ: DELETA REGIAO (CURSOR) | DIR: LIMPA TODAS"},
        "DeletarRegiaoSobCursor",
        DeletarRegiaoSobCursor,
        "LimparRegioes",
        LimparRegioes};
    BotaoComComando(contexto, c, criar);
    avancar();
    BotaoComComando(contexto, c, apagar);
}

// Drawn before it flips, so its new look comes with the next pass.
static void InterruptorDeRipple(ContextoGrade& contexto, int y) {
    const auto [x, w] = PosicaoGrade(8, 1);
    const AspectoBotao aspecto = {.rotulo = ModoRipple ? "[R]" : "R",
                                  .cor = ModoRipple ? CorBase{45, 140, 95} : CorBase{42, 50, 58},
                                  .dica = "RIPPLE: TRIM REMOVENDO"};
    if (!BotaoDireto(contexto, {x, y, w, AlturaDaLinha}, aspecto).cliqueEsquerdo) return;
    ModoRipple = !ModoRipple;
    DefinirStatus("Ripple: %s", ModoRipple ? "ON" : "OFF");
}

void LinhaEdicao(ContextoGrade& contexto, int y) {
    constexpr AspectoBotao trimE = {.rotulo = "[< TRIM", .cor = {80, 45, 95}, .dica = "APARA BORDA ESQ"};
    constexpr AspectoBotao partir = {.rotulo = "PARTIR", .cor = {110, 60, 135}, .dica = "DIVIDIR ITEM"};
    constexpr AspectoBotao trimD = {.rotulo = "TRIM >]", .cor = {80, 45, 95}, .dica = "APARA BORDA DIR"};
    constexpr AspectoBotao excluir = {.rotulo = "DEL", .cor = {105, 35, 40}, .dica = "EXCLUIR SEL."};
    static const BotaoDaLinha comRipple[] = {
        {1, 2, {trimE, "TrimEsquerda", TrimEsquerda}},
        {3, 2, {partir, "SplitNoCursor", SplitNoCursor}},
        {5, 2, {trimD, "TrimDireita", TrimDireita}},
        {7, 1, {excluir, "ExcluirRipple", ExcluirRipple}},
    };
    static const BotaoDaLinha semRipple[] = {
        {1, 2, {trimE, "CortarE", CortarE}},
        {3, 2, {partir, "SplitNoCursor", SplitNoCursor}},
        {5, 2, {trimD, "CortarD", CortarD}},
        {7, 1, {excluir, "Deletar Itens (nativo)", Acao<40697>}},
    };
    DesenharLinha(contexto, y, ModoRipple ? comRipple : semRipple);
    InterruptorDeRipple(contexto, y);
}
