// panel/window.h
// The floating window of the panel. It has no child controls: each WM_PAINT runs one pass of a page, which draws the
// widgets, tests the mouse against them and runs what was clicked.
#pragma once
#include <string>

#include "platform/win32.h"

// Creates the window, or brings it to the front if it is open; sets the host's options either way. `dono` is the host's
// main window, or null; caminho is the folder of the panel's files. In silence when no window can be created.
void AbrirJanelaPainel(HWND dono, const std::string& caminho);
bool JanelaPainelAberta();

// Leaves the slicer mode, with the project as it was before; nothing outside the mode.
void CancelarFatiador();

LRESULT CALLBACK ProcJanelaPainel(HWND janela, UINT mensagem, WPARAM wParam, LPARAM lParam);
