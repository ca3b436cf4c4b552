// panel/menus.h
// The two popup menus: the only things of the panel that it does not paint itself, and the only commands that run
// outside a pass.
#pragma once
#include "platform/win32.h"

// Runs the menu to its end, then the chosen command, then repaints.
void MenuLacunas(HWND janela);
void MenuSelecao(HWND janela);
