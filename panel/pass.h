// panel/pass.h
// What every page does around its widgets. A pass draws the whole client area into the back buffer and copies it to
// the screen; a command that is clicked runs inside it, and may let a further pass run before this one goes on. The
// pixels of a pass stay where they are until it ends, whatever the window does meanwhile.
#pragma once
#include "lice/bitmap.h"
#include "panel/state.h"

// Notes which buttons went down since the last pass, forgets what was to be repeated, and gives the back buffer, as
// large as the client area and cleared. The page's name is for an observer.
LICE_IBitmap* ComecarPasse(HWND janela, const char* pagina);
void TerminarPasse(HDC dc);  // once for each ComecarPasse: copies the back buffer to the window

// The panel is closed: frees the back buffer, or leaves that to the end of the pass that is still running.
void LargarFundo();
