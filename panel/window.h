// panel/window.h
// The floating window of the panel.
#pragma once
#include <string>

#include "platform/win32.h"

// Creates the window, or brings it to the front if it is open. caminho is the folder of the panel's files.
void AbrirJanelaPainel(HWND principal, const std::string& caminho);
bool JanelaPainelAberta();
