// panel/state.h
// The panel's process-wide state. There is at most one panel; all of this but the window outlives it.
#pragma once
#include <string>

#include "panel/mouse.h"
#include "platform/win32.h"

extern HWND JanelaPainel;          // null while closed; written by panel/window.cpp
extern std::string CaminhoPainel;  // folder of the panel's files; written at every opening
extern EstadoMouse Mouse;          // written by the window's messages, its edges by the start of each pass
// What is repeated while a button is held: set by a widget in every pass that finds the pointer on it, null otherwise.
extern void (*AcaoRepetir)();
extern bool ModoRipple;   // starts true, not saved: trims and deletions close up what they remove
extern bool PiscaLigado;  // flipped by timer 1, every 250 ms
// A pass asks for a popup menu, which opens after painting.
extern bool AbrirMenuLacunas;
extern bool AbrirMenuSelecao;

void RestaurarEstadoPainel();  // as at load, for tests; the window must be closed
