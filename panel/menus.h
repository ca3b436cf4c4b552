// panel/menus.h
// The two popup menus: the only things of the panel that it does not paint itself, and the only commands that run
// outside a pass.
#pragma once
#include "platform/win32.h"

// Set in a pass by the button that asks for the menu; cleared by the window, which opens it once painting is over.
extern bool AbrirMenuLacunas, AbrirMenuSelecao;

// Runs the menu to its end, then the chosen command, then repaints.
void MenuLacunas(HWND janela);
void MenuSelecao(HWND janela);
