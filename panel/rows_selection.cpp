// panel/rows_selection.cpp: the slicer, gaps and selection, with their two popup menus. A menu is only asked for in the
// pass; the window opens it after painting.
#include "panel/rows.h"
#include "panel/slicer_page.h"
#include "panel/state.h"

void LinhaLacunas(ContextoGrade& contexto) {
    BotaoGrade(contexto, 1, 4,
               {.rotulo = "AUTO FATIADOR", .cor = {190, 95, 40}, .dica = "FATIAR AUTOMATICAMENTE O ITEM"},
               {"EntrarModoFatiador", AbrirFatiador});
    const AspectoBotao fechar = {.rotulo = "FECHAR LACUNAS", .cor = {42, 50, 58}, .dica = "OPCOES DE LACUNA"};
    if (BotaoDireto(contexto, CelulaGrade(contexto, 5, 4), fechar).cliqueEsquerdo) AbrirMenuLacunas = true;
}

void LinhaSelecao(ContextoGrade& contexto) {
    constexpr CorBase cor = {45, 80, 115};
    const AspectoBotao selecionar = {.rotulo = "SELECIONAR", .cor = cor, .dica = "MENU: SELECIONAR ITENS"};
    if (BotaoDireto(contexto, CelulaGrade(contexto, 1, 3), selecionar).cliqueEsquerdo) AbrirMenuSelecao = true;
    BotaoGrade(contexto, 4, 3, {.rotulo = "S. FLOW", .cor = cor, .dica = "SEL. CONTINUA EM FLUXO"},
               clique::SelecaoFluxo);
    BotaoGrade(contexto, 7, 2, {.rotulo = "S. TIME", .cor = cor, .dica = "SEL. DE TEMPO DOS ITENS SELECIONADOS"},
               clique::SelTempoItens);
}
