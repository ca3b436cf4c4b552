#include "panel/pass.h"

#include "panel/observer.h"

static LICE_SysBitmap* fundo = nullptr;  // made by the first pass
static int passesAbertos = 0;            // more than one while a command inside a pass runs its own message loop
static bool janelaFechou = false;        // during a pass, which still draws on `fundo`

void LargarFundo() {
    janelaFechou = passesAbertos > 0;
    if (janelaFechou) return;
    delete fundo;
    fundo = nullptr;
}

static void NotarCliques() {
    Mouse.esquerdoApertou = Mouse.esquerdoSeguro && !Mouse.esquerdoSeguroAntes;
    Mouse.direitoApertou = Mouse.direitoSeguro && !Mouse.direitoSeguroAntes;
    Mouse.esquerdoSeguroAntes = Mouse.esquerdoSeguro;
    Mouse.direitoSeguroAntes = Mouse.direitoSeguro;
}

Passe::Passe(HWND janela, HDC dc, const char* pagina) : dc_(dc) {
    PaginaEmCurso = pagina;
    NotarCliques();
    AcaoRepetir = nullptr;
    RECT cliente{};
    GetClientRect(janela, &cliente);
    if (!fundo) fundo = new LICE_SysBitmap(0, 0);
    if (++passesAbertos == 1) fundo->resize(cliente.right, cliente.bottom);
    LICE_Clear(fundo, CorFundo);
}

LICE_IBitmap* Passe::Fundo() const { return fundo; }

Passe::~Passe() {
    BitBlt(dc_, 0, 0, fundo->getWidth(), fundo->getHeight(), fundo->getDC(), 0, 0, SRCCOPY);
    // The pass that this one stood in must not count its click again.
    if (--passesAbertos > 0) Mouse.esquerdoApertou = Mouse.direitoApertou = false;
    if (janelaFechou) LargarFundo();
}
