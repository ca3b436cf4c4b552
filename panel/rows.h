// panel/rows.h
// The rows of the main page, one file for each group of them. Each function draws one row whose top is y, and runs what
// was clicked on it.
#pragma once
#include "panel/grid.h"

// rows_transport.cpp, height 32, the last one 36
void LinhaGravar(ContextoGrade& contexto, int y);
void LinhaTocar(ContextoGrade& contexto, int y);
void LinhaParar(ContextoGrade& contexto, int y);
void LinhaNavegacao(ContextoGrade& contexto, int y);
// rows_edit.cpp, height 36 from here on
void LinhaRegioes(ContextoGrade& contexto, int y);
void LinhaEdicao(ContextoGrade& contexto, int y);
// rows_selection.cpp
void LinhaLacunas(ContextoGrade& contexto, int y);
void LinhaSelecao(ContextoGrade& contexto, int y);
// rows_items.cpp
void LinhaItens(ContextoGrade& contexto, int y);
void LinhaMover(ContextoGrade& contexto, int y);
void LinhaZoom(ContextoGrade& contexto, int y);
// rows_render.cpp
void LinhaBounce(ContextoGrade& contexto, int y);
void LinhaRender(ContextoGrade& contexto, int y);
// rows_colour.cpp
void LinhaCores1(ContextoGrade& contexto, int y);
void LinhaCores2(ContextoGrade& contexto, int y);

inline constexpr int AlturaBaixa = 32, AlturaDaLinha = 36;

// A row that is a table of grid buttons.
struct BotaoDaLinha {
    int coluna, vao;
    BotaoDePagina botao;
};
template <size_t N>
void DesenharLinha(ContextoGrade& contexto, int y, const BotaoDaLinha (&linha)[N]) {
    for (const auto& [coluna, vao, botao] : linha) BotaoGrade(contexto, coluna, vao, AlturaDaLinha, y, botao);
}
