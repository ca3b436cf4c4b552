// panel/observer.h
// Tells whoever asks what each widget of a pass is, so that it can be found by what it says. In a user's run nobody
// asks. The texts live for the call only.
#pragma once
#include "panel/widgets.h"

struct WidgetVisto {
    const char* pagina;  // "principal", "fatiador", or "pergunta" for what the open prompt lays over that
    Celula lugar;
    AspectoBotao aspecto;  // a slider's, too; of the status strip its text and ground
    bool sobre = false, apertado = false;
    const AspectoSlider* slider = nullptr;  // null: a button, or the strip
};

extern void (*Observador)(const WidgetVisto&);  // null at load
extern const char* PaginaEmCurso;               // written where a pass begins, and by the prompt
