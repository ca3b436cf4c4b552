// panel/grid.h
// The pages' grid of eight columns, and the buttons that run their own commands and write the status line.
#pragma once
#include "panel/widgets.h"

// What the widgets of one pass share.
struct ContextoGrade {
    LICE_IBitmap* bm;
    const EstadoMouse& mouse;
    const char* dica = nullptr;  // the tooltip of the widget hovered last in this pass
    int y = 0, h = 0;            // of the row that is being drawn
};

struct PosicaoNaGrade {
    int x, w;
};
// column is 1 to 8; span counts the cells that the widget covers.
PosicaoNaGrade PosicaoGrade(int coluna, int vao);
Celula CelulaGrade(const ContextoGrade& contexto, int coluna, int vao);  // in the row that is being drawn

// A direct button: the page handles its result itself. Its tooltip counts like any other.
ResultadoBotao BotaoDireto(ContextoGrade& contexto, const Celula& c, const AspectoBotao& aspecto);

// What a click runs, and how the status line then calls it: never null with a command.
struct Clique {
    const char* nome = nullptr;
    void (*comando)() = nullptr;  // null: the click does nothing
};

void Executar(const Clique& clique);  // and writes the status after it, whatever the command did

// Draws the button, runs the command of a click, and writes the status after it, whatever the command did.
ResultadoBotao BotaoComComandos(ContextoGrade& contexto, const Celula& c, const AspectoBotao& aspecto, Clique esquerdo,
                                Clique direito = {});
ResultadoBotao BotaoGrade(ContextoGrade& contexto, int coluna, int vao, const AspectoBotao& aspecto, Clique esquerdo,
                          Clique direito = {});
