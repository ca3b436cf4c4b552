// panel/rows_colour.cpp: the palette. A left click colours the selected items, a right click the selected tracks. The
// commands get the palette's own values; on screen a swatch is dimmed and lit as every button is.
#include "panel/rows.h"
#include "panel/status.h"

static constexpr CorBase PaletaCores[15] = {
    {250, 206, 205}, {250, 223, 196}, {255, 251, 171}, {135, 254, 185}, {187, 227, 250},
    {220, 196, 222}, {196, 189, 217}, {244, 169, 200}, {252, 205, 224}, {150, 150, 150},
    {119, 146, 165}, {39, 190, 171},  {240, 75, 75},   {255, 130, 45},  {60, 220, 110},
};

static void Amostra(ContextoGrade& contexto, int coluna, CorBase cor) {
    const AspectoBotao aspecto = {.rotulo = "", .cor = cor, .dica = "E: COR DO ITEM | D: COR DA TRACK"};
    const ResultadoBotao botao = BotaoDireto(contexto, CelulaGrade(contexto, coluna, 1), aspecto);
    if (botao.cliqueEsquerdo) {
        AplicarCorItens(cor.r, cor.g, cor.b);
        StatusExecutado("AplicarCorItens");
    }
    if (botao.cliqueDireito) {
        AplicarCorFaixas(cor.r, cor.g, cor.b);
        StatusExecutado("AplicarCorFaixas");
    }
}

void LinhaCores1(ContextoGrade& contexto) {
    for (int coluna = 1; coluna <= 8; ++coluna) Amostra(contexto, coluna, PaletaCores[coluna - 1]);
}

// The clear swatch stands in the first column.
void LinhaCores2(ContextoGrade& contexto) {
    BotaoGrade(contexto, 1, 1,
               {.icone = "clear", .cor = {25, 25, 28}, .dica = "E: LIMPA COR DO ITEM | D: LIMPA COR DA TRACK"},
               clique::LimparCorItens, clique::LimparCorFaixas);
    for (int coluna = 2; coluna <= 8; ++coluna) Amostra(contexto, coluna, PaletaCores[coluna + 6]);
}
