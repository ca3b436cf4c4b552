#include "panel/menus.h"

#include <cstddef>

#include "commands/commands.h"
#include "panel/state.h"
#include "panel/status.h"

namespace {

// A menu's rows in order; the chosen id is the row's number among those that are not separators, from 1.
struct LinhaDeMenu {
    const char* rotulo;  // null: a separator
    const char* nome = nullptr;
    void (*comando)() = nullptr;  // null: the choice does nothing
};

template <size_t N>
void AbrirMenu(HWND janela, const LinhaDeMenu (&linhas)[N]) {
    const LinhaDeMenu* escolhas[N + 1] = {};  // by id; 0 is a menu that was dismissed
    int ultimo = 0;
    HMENU menu = CreatePopupMenu();
    for (const LinhaDeMenu& linha : linhas) {
        if (linha.rotulo) {
            escolhas[++ultimo] = &linha;
            AppendMenuA(menu, MF_STRING, ultimo, linha.rotulo);
        } else {
            AppendMenuA(menu, MF_SEPARATOR, 0, nullptr);
        }
    }
    POINT ponto = {};
    GetCursorPos(&ponto);
    const int id = TrackPopupMenu(menu, TPM_NONOTIFY | TPM_RETURNCMD, ponto.x, ponto.y, 0, janela, nullptr);
    DestroyMenu(menu);

    // The menu took the release of the button that opened it.
    Mouse.esquerdoSeguro = false;
    Mouse.esquerdoSeguroAntes = false;
    const LinhaDeMenu* escolhida = id >= 1 && id <= ultimo ? escolhas[id] : nullptr;
    if (escolhida && escolhida->comando) {
        escolhida->comando();
        StatusExecutado(escolhida->nome);
    }
    InvalidateRect(janela, nullptr, FALSE);
}

}  // namespace

void MenuLacunas(HWND janela) {
    static const LinhaDeMenu linhas[] = {
        {"Fecha Lacuna Entre Selecionados", "FechaLacuna", FechaLacuna},
        {"Fecha Lacunas Subsequentes", "FechaLacunaSubsequente", FechaLacunaSubsequente},
        {"Fecha Lacuna Selecionada com Mixagem", "JuntaClipCrossfade", JuntaClipCrossfade},
        {nullptr},
        {"Fechar"},
    };
    AbrirMenu(janela, linhas);
}

void MenuSelecao(HWND janela) {
    static const LinhaDeMenu linhas[] = {
        {"Todos os itens do projeto", "SelecionarTodosProjeto", SelecionarTodosProjeto},
        {"Todos os itens da faixa", "SelecionarTodosFaixa", SelecionarTodosFaixa},
        {nullptr},
        {"Tudo antes do ponteiro", "SelecionarAntesCursor", SelecionarAntesCursor},
        {"Tudo depois do ponteiro", "SelecionarDepoisCursor", SelecionarDepoisCursor},
        {nullptr},
        {"Tudo antes do ponteiro (faixa selecionada)", "SelecionarAntesCursorFaixa", SelecionarAntesCursorFaixa},
        {"Tudo depois do ponteiro (faixa selecionada)", "SelecionarDepoisCursorFaixa", SelecionarDepoisCursorFaixa},
        {nullptr},
        {"Fechar"},
    };
    AbrirMenu(janela, linhas);
}
