// panel/main_page.h
// The panel's usual page.
#pragma once
#include "platform/win32.h"

void PaginaPrincipal(HWND janela, HDC dc);  // one pass, for each WM_PAINT
