// panel/widgets.h
// Buttons and sliders: plain functions, called once a pass, that draw themselves, test the mouse and return what
// happened. They keep nothing; a slider's drag lives in a slot that the page owns.
#pragma once
#include "panel/mouse.h"
#include "panel/theme.h"

struct Celula {
    int x, y, w, h;  // the mouse is on it from x to x + w and from y to y + h, all four edges included
};

struct CorBase {
    int r = 0, g = 0, b = 0;  // 0 to 255
};

struct ResultadoBotao {
    bool cliqueEsquerdo, cliqueDireito;  // pressed in this pass, on the button
    bool sobre;
    const char* dica;  // the tooltip while the pointer is on the button, else null
};

struct AspectoBotao {
    const char* rotulo = nullptr;  // null or empty: no text
    const char* icone = nullptr;   // a name of icons.h, or "clear" for the crossed swatch
    CorBase cor = {};
    const char* dica = nullptr;
    bool ativo = false;
    bool desativado = false;  // looks idle and takes no mouse: a caption
};

ResultadoBotao Botao(LICE_IBitmap* bm, const EstadoMouse& mouse, const Celula& c, const AspectoBotao& aspecto);

struct ResultadoSlider {
    float valor;          // after this pass: a whole number once it was dragged
    bool mudou = false;   // differs from the value passed in
    bool soltou = false;  // the drag ended in this pass
    bool sobre = false;   // hovered or dragged
    const char* dica = nullptr;
};

struct AspectoSlider {
    const char* id;  // its name in the slot of the slider that is being dragged
    const char* rotulo = nullptr;
    CorBase cor = {};
    float valor = 0, minimo = 0, maximo = 1;
    bool desativado = false;
    const char* dica = nullptr;
};

// `arrastado` names the slider that is being dragged, null when none is; compared by text.
ResultadoSlider SliderPainel(LICE_IBitmap* bm, const EstadoMouse& mouse, const char*& arrastado, const Celula& c,
                             const AspectoSlider& aspecto);
