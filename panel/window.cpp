#include "panel/window.h"

static HWND janela = nullptr;

void AbrirJanelaPainel(HWND, const std::string&) {}

bool JanelaPainelAberta() {
    return janela != nullptr;
}
