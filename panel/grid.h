// panel/grid.h
// The pages' grid of eight columns, the buttons placed on it, and the rows that are tables of such buttons. A button of
// the grid runs its own command and writes the status line.
#pragma once
#include "panel/widgets.h"

using Comando = void (*)();

// What the widgets of one pass share.
struct ContextoGrade {
    LICE_IBitmap* bm;
    const EstadoMouse& mouse;
    const char* dica = nullptr;  // the tooltip of the widget hovered last in this pass
};

struct PosicaoNaGrade {
    int x, w;
};
// column is 1 to 8; span counts the cells that the widget covers.
PosicaoNaGrade PosicaoGrade(int coluna, int vao);

// A direct button: the page handles its result itself. Its tooltip counts like any other.
ResultadoBotao BotaoDireto(ContextoGrade& contexto, const Celula& c, const AspectoBotao& aspecto);

// A button with what its clicks run, and how the status line then calls it: "Action_<number>" for a bare host action.
struct BotaoDePagina {
    AspectoBotao aspecto;
    const char* nome = "";
    Comando comando = nullptr;          // null: that click does nothing
    const char* nomeDireito = nullptr;  // null: as `nome`
    Comando comandoDireito = nullptr;
    bool repete = false;  // while held, the command runs again with each tick of timer 2
};

// Draws the button, runs the command of a click, and writes the status after it, whatever the command did.
void BotaoComComando(ContextoGrade& contexto, const Celula& c, const BotaoDePagina& botao);
void BotaoGrade(ContextoGrade& contexto, int coluna, int vao, int h, int y, const BotaoDePagina& botao);
