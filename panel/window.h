// panel/window.h
// The panel: one floating window of the host's, without child controls. Each WM_PAINT runs one pass (pass.h) of a page.
// In it plain functions (widgets.h) draw themselves, test the mouse (mouse.h) and run at once what was clicked. The
// main page (main_page.h) is rows of buttons (rows.h) on a grid (grid.h); the slicer's page is slicer_page.h.
#pragma once
#include <string>

#include "platform/win32.h"

// Creates the window, or brings it to the front if it is open; sets the host's options either way. `dono` is the host's
// main window, or null; caminho is the folder of the panel's files. In silence when no window can be created.
void AbrirJanelaPainel(HWND dono, const std::string& caminho);
bool JanelaPainelAberta();
