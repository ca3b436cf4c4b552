// panel/slicer_page.h
// The panel's second page, shown while ModoFatiadorAtivo is set: the slicer's settings, its presets, and the two ways
// out.
#pragma once
#include "platform/win32.h"

// Enters the mode and brings the panel to the front, so that working elsewhere cancels it; or the mode says why not.
void AbrirFatiador();

void PaginaFatiador(HWND janela, HDC dc);  // a whole pass
