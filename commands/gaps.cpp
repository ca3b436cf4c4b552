// commands/gaps.cpp: closes the silence between items by moving items to the left; overlaps stay.
#include "commands/commands.h"
#include "host/editing.h"

// Moves each item left onto the end of the one before it. The list is sorted by start; its first item never moves.
static void EncostarItens(const std::vector<MediaItem*>& itens) {
    if (itens.empty()) return;
    double fimAnterior = FimDoItem(itens[0]);
    for (size_t i = 1; i < itens.size(); ++i) {
        if (InicioDoItem(itens[i]) - fimAnterior > 0) MoverItem(itens[i], fimAnterior);
        fimAnterior = FimDoItem(itens[i]);  // asked again, because it may just have moved
    }
}

static bool MesmaFaixa(const std::vector<MediaItem*>& itens) {
    if (itens.empty()) return true;
    MediaTrack* faixa = host::GetMediaItem_Track(itens[0]);
    return std::all_of(itens.begin() + 1, itens.end(),
                       [faixa](MediaItem* item) { return host::GetMediaItem_Track(item) == faixa; });
}

void FechaLacuna() {
    const int selecionados = host::CountSelectedMediaItems(0);
    if (selecionados < 2) return Mensagem("Selecione mais de 2 itens na mesma trilha para usar este script.", "Erro");
    BlocoDeDesfazer bloco("Fechar Lacunas");
    std::vector<MediaItem*> itens = CopiarSelecao(selecionados);
    if (!MesmaFaixa(itens)) {
        bloco.Chamar("Fechar Lacuna");
        return Mensagem("Os itens selecionados devem estar na mesma trilha.", "Erro");
    }
    OrdenarPorPosicao(itens);
    EncostarItens(itens);
    host::UpdateArrange();
}

void FechaLacunaSubsequente() {
    MediaItem* ancora = host::CountSelectedMediaItems(0) > 0 ? host::GetSelectedMediaItem(0, 0) : nullptr;
    if (!ancora) return Mensagem("Selecione pelo menos 1 item para usar este script.", "Erro");
    const BlocoDeDesfazer bloco("Fechar Lacunas Subsequentes");
    MediaTrack* faixa = host::GetMediaItem_Track(ancora);
    const double inicio = InicioDoItem(ancora);
    host::SelectAllMediaItems(0, false);
    ParaCadaItemDaFaixa(faixa, [inicio](MediaItem* item) {
        if (InicioDoItem(item) >= inicio) host::SetMediaItemSelected(item, true);
    });
    std::vector<MediaItem*> itens = CopiarSelecao(host::CountSelectedMediaItems(0));
    OrdenarPorPosicao(itens);
    EncostarItens(itens);
    host::SelectAllMediaItems(0, false);
    host::SetMediaItemSelected(ancora, true);
    host::UpdateArrange();
}

void JuntaClipCrossfade() {
    const int quantos = host::CountSelectedMediaItems(0);
    if (quantos <= 0) return Mensagem("Selecione pelo menos um item.", "Erro");
    // In the host's order as it was before the first move, whatever the tracks; a null handle parts its neighbours.
    std::vector<MediaItem*> itens;
    for (int i = 0; i < quantos; ++i) itens.push_back(host::GetSelectedMediaItem(0, i));
    if (itens.front()) FadeDeEntrada(itens.front());
    // A moved item's end is read after its move, so the moves add up.
    for (size_t i = 1; i < itens.size(); ++i)
        if (itens[i - 1] && itens[i]) UnirComCrossfade(itens[i - 1], itens[i]);
    if (itens.back()) FadeDeSaida(itens.back());
    host::UpdateArrange();
}
