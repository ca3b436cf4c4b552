// slicer/page.h
// The panel's second page, shown while ModoFatiadorAtivo is set: the slicer's settings, its presets, and the two ways
// out.
#pragma once
#include "platform/win32.h"

void PaginaFatiador(HWND janela, HDC dc);  // a whole pass
