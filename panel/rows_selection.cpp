// panel/rows_selection.cpp: the slicer, gaps and selection, with their two popup menus. A menu is only asked for in the
// pass; the window opens it after painting.
#include "commands/commands.h"
#include "panel/rows.h"
#include "panel/state.h"
#include "slicer/preview.h"

void LinhaLacunas(ContextoGrade& contexto, int y) {
    static const BotaoDePagina fatiador = {
        {.rotulo = "AUTO FATIADOR", .cor = {190, 95, 40}, .dica = "FATIAR AUTOMATICAMENTE O ITEM"},
        "EntrarModoFatiador",
        EntrarModoFatiador};
    BotaoGrade(contexto, 1, 4, AlturaDaLinha, y, fatiador);
    const auto [x, w] = PosicaoGrade(5, 4);
    const AspectoBotao fechar = {.rotulo = "FECHAR LACUNAS", .cor = {42, 50, 58}, .dica = "OPCOES DE LACUNA"};
    if (BotaoDireto(contexto, {x, y, w, AlturaDaLinha}, fechar).cliqueEsquerdo) AbrirMenuLacunas = true;
}

void LinhaSelecao(ContextoGrade& contexto, int y) {
    constexpr CorBase cor = {45, 80, 115};
    const auto [x, w] = PosicaoGrade(1, 3);
    const AspectoBotao selecionar = {.rotulo = "SELECIONAR", .cor = cor, .dica = "MENU: SELECIONAR ITENS"};
    if (BotaoDireto(contexto, {x, y, w, AlturaDaLinha}, selecionar).cliqueEsquerdo) AbrirMenuSelecao = true;
    static const BotaoDaLinha linha[] = {
        {4, 3, {{.rotulo = "S. FLOW", .cor = cor, .dica = "SEL. CONTINUA EM FLUXO"}, "SelecaoFluxo", SelecaoFluxo}},
        {7,
         2,
         {{.rotulo = "S. TIME", .cor = cor, .dica = "SEL. DE TEMPO DOS ITENS SELECIONADOS"},
          "SelTempoItens",
          SelTempoItens}},
    };
    DesenharLinha(contexto, y, linha);
}
