#include "panel/menus.h"

#include <cstddef>

#include "panel/rows.h"
#include "panel/state.h"

namespace {

// A menu's rows in order; the chosen id is the row's number among those that are not separators, from 1.
struct LinhaDeMenu {
    const char* rotulo;  // null: a separator
    Clique escolha = {};
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
    if (escolhida) Executar(escolhida->escolha);
    InvalidateRect(janela, nullptr, FALSE);
}

}  // namespace

void MenuLacunas(HWND janela) {
    static const LinhaDeMenu linhas[] = {
        {"Fecha Lacuna Entre Selecionados", clique::FechaLacuna},
        {"Fecha Lacunas Subsequentes", clique::FechaLacunaSubsequente},
        {"Fecha Lacuna Selecionada com Mixagem", clique::JuntaClipCrossfade},
        {nullptr},
        {"Fechar"},
    };
    AbrirMenu(janela, linhas);
}

void MenuSelecao(HWND janela) {
    static const LinhaDeMenu linhas[] = {
        {"Todos os itens do projeto", clique::SelecionarTodosProjeto},
        {"Todos os itens da faixa", clique::SelecionarTodosFaixa},
        {nullptr},
        {"Tudo antes do ponteiro", clique::SelecionarAntesCursor},
        {"Tudo depois do ponteiro", clique::SelecionarDepoisCursor},
        {nullptr},
        {"Tudo antes do ponteiro (faixa selecionada)", clique::SelecionarAntesCursorFaixa},
        {"Tudo depois do ponteiro (faixa selecionada)", clique::SelecionarDepoisCursorFaixa},
        {nullptr},
        {"Fechar"},
    };
    AbrirMenu(janela, linhas);
}
