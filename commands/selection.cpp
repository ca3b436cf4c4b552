// commands/selection.cpp: which items are selected, and the time selection made from them.
#include "commands/commands.h"
#include "host/editing.h"

// Gives every item of the project a new state, so that the old selection is replaced.
template <class Criterio>
static void SelecionarOnde(Criterio criterio) {
    ParaCadaItem([&criterio](MediaItem* item) { host::SetMediaItemSelected(item, criterio(item)); });
}

static bool EmFaixaSelecionada(MediaItem* item) { return FaixaSelecionada(host::GetMediaItem_Track(item)); }

void SelecionarTodosProjeto() {
    const BlocoDeDesfazer bloco("Selecionar Todos os Itens");
    host::SelectAllMediaItems(0, true);
    host::UpdateArrange();
}

void SelecionarTodosFaixa() {
    const BlocoDeDesfazer bloco("Selecionar Itens da Faixa");
    SelecionarOnde(EmFaixaSelecionada);
    host::UpdateArrange();
}

// An item that spans the cursor is both before and after it; one that ends at it is only before, one that starts at it
// only after.
static void SelecionarPorCursor(bool depois, bool soNaFaixa, const char* titulo) {
    const BlocoDeDesfazer bloco(titulo);
    const double cursor = host::GetCursorPosition();
    SelecionarOnde([=](MediaItem* item) {
        const bool elegivel = !soNaFaixa || EmFaixaSelecionada(item);
        const double inicio = InicioDoItem(item);
        const double fim = inicio + ComprimentoDoItem(item);
        return elegivel && (depois ? fim > cursor : cursor > inicio);
    });
    host::UpdateArrange();
}

void SelecionarAntesCursor() { SelecionarPorCursor(false, false, "Selecionar Antes do Cursor"); }

void SelecionarDepoisCursor() { SelecionarPorCursor(true, false, "Selecionar Depois do Cursor"); }

void SelecionarAntesCursorFaixa() { SelecionarPorCursor(false, true, "Selecionar Antes do Cursor (Faixa)"); }

void SelecionarDepoisCursorFaixa() { SelecionarPorCursor(true, true, "Selecionar Depois do Cursor (Faixa)"); }

// The item's place on its track; -1 when the track does not list it.
static int IndiceNaFaixa(MediaTrack* faixa, int quantos, MediaItem* item) {
    for (int i = 0; i < quantos; ++i)
        if (host::GetTrackMediaItem(faixa, i) == item) return i;
    return -1;
}

// Selects the unbroken run of items around `item`. The edge follows the last item taken, so a short item that lies
// inside a long one moves the edge back.
static void SelecionarVizinhos(MediaTrack* faixa, MediaItem* item, double inicio, double fim) {
    constexpr double maiorFresta = 0.001;
    const int quantos = host::CountTrackMediaItems(faixa);
    const int indice = IndiceNaFaixa(faixa, quantos, item);
    if (indice < 0) return;
    double borda = inicio;
    for (int i = indice - 1; i >= 0; --i) {
        MediaItem* vizinho = host::GetTrackMediaItem(faixa, i);
        if (!vizinho || !(borda - FimDoItem(vizinho) <= maiorFresta)) break;
        host::SetMediaItemSelected(vizinho, true);
        borda = InicioDoItem(vizinho);
    }
    borda = fim;
    for (int i = indice + 1; i < quantos; ++i) {
        MediaItem* vizinho = host::GetTrackMediaItem(faixa, i);
        if (!vizinho || !(InicioDoItem(vizinho) - borda <= maiorFresta)) break;
        host::SetMediaItemSelected(vizinho, true);
        borda = FimDoItem(vizinho);
    }
}

void SelecaoFluxo() {
    if (host::CountSelectedMediaItems(0) != 1) return;
    MediaItem* item = host::GetSelectedMediaItem(0, 0);
    if (!item) return;
    const BlocoDeDesfazer bloco("Selecao em Fluxo");
    MediaTrack* faixa = host::GetMediaItem_Track(item);
    const double inicio = InicioDoItem(item);
    const double fim = inicio + ComprimentoDoItem(item);
    host::SelectAllMediaItems(0, false);
    host::SetMediaItemSelected(item, true);
    if (faixa) SelecionarVizinhos(faixa, item, inicio, fim);
    host::UpdateArrange();
}

void SelTempoItens() {
    const int selecionados = host::CountSelectedMediaItems(0);
    if (selecionados <= 0) return Mensagem("Nenhum item selecionado.", "Quilmo");
    ExtensaoDeItens extensao = ExtensaoDaSelecao(selecionados);
    host::GetSet_LoopTimeRange(true, false, &extensao.inicio, &extensao.fim, false);
    host::UpdateArrange();
}
