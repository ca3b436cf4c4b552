#include "panel/main_page.h"

#include "panel/pass.h"

void PaginaPrincipal(HWND janela, HDC dc) {
    ComecarPasse(janela);
    TerminarPasse(dc);
}
