// panel/rows.h
// The rows of the main page, one file for each group of them. Each function draws the row that `contexto` places, from
// left to right, and runs what was clicked on it.
#pragma once
#include "commands/commands.h"
#include "host/editing.h"
#include "panel/grid.h"
#include "render/render.h"

// rows_transport.cpp
void LinhaGravar(ContextoGrade& contexto);
void LinhaTocar(ContextoGrade& contexto);
void LinhaParar(ContextoGrade& contexto);
void LinhaNavegacao(ContextoGrade& contexto);
// rows_edit.cpp
void LinhaRegioes(ContextoGrade& contexto);
void LinhaEdicao(ContextoGrade& contexto);
// rows_selection.cpp
void LinhaLacunas(ContextoGrade& contexto);
void LinhaSelecao(ContextoGrade& contexto);
// rows_items.cpp
void LinhaItens(ContextoGrade& contexto);
void LinhaMover(ContextoGrade& contexto);
void LinhaZoom(ContextoGrade& contexto);
// rows_render.cpp
void LinhaBounce(ContextoGrade& contexto);
void LinhaRender(ContextoGrade& contexto);
// rows_colour.cpp
void LinhaCores1(ContextoGrade& contexto);
void LinhaCores2(ContextoGrade& contexto);

// A click on each command, which the status line calls by its name.
namespace clique {
#define CLIQUE(comando) inline constexpr Clique comando = {#comando, ::comando};
COMANDOS_DE_EDICAO(CLIQUE)
COMANDOS_DE_RENDER(CLIQUE)
#undef CLIQUE
}  // namespace clique

// A bare action of the host; by its name it clears the status line.
template <int id>
inline constexpr Clique AcaoDoHost = {"Action_", Acao<id>};
