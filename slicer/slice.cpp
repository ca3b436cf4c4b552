#include "slicer/slice.h"

#include <cmath>
#include <map>

#include "commands/crossfade.h"

static constexpr double MargemBorda = 0.001;  // seconds; a cut this near an edge would leave a sliver, so it takes all

// From the last span to the first, so that the item keeps being the left part and its start and end stay valid.
void FatiarItem(const ItemLido& lido, const std::vector<TrechoSilencio>& silencio) {
    MediaTrack* faixa = host::GetMediaItem_Track(lido.item);
    if (!faixa || !std::isfinite(lido.posicao)) return;  // there is nowhere to cut
    const double inicioItem = lido.posicao;
    const double fimItem = lido.posicao + lido.comprimento;
    for (auto trecho = silencio.rbegin(); trecho != silencio.rend(); ++trecho) {
        double fim = inicioItem + trecho->fim;
        double inicio = inicioItem + trecho->inicio;
        if (fim >= fimItem - MargemBorda) fim = fimItem;
        if (inicioItem + MargemBorda >= inicio) inicio = inicioItem;

        MediaItem* apagar = lido.item;
        if (fim < fimItem) {
            if (MediaItem* direita = host::SplitMediaItem(lido.item, fim)) host::SetMediaItemSelected(direita, true);
        }
        if (inicio > inicioItem) apagar = host::SplitMediaItem(lido.item, inicio);
        if (apagar) host::DeleteTrackMediaItem(faixa, apagar);
        if (apagar == lido.item) return;  // the item is gone, and nothing is left of its start
    }
}

// One track's items, sorted by start; the first never moves. The moves add up: an end is read after the item moved.
static void EncostarFatias(const std::vector<MediaItem*>& itens) {
    FadeDeEntrada(itens.front());
    for (size_t i = 1; i < itens.size(); ++i) UnirComCrossfade(itens[i - 1], itens[i]);
    FadeDeSaida(itens.back());
}

void FecharLacunasFatias() {
    const int quantos = host::CountSelectedMediaItems(nullptr);
    if (quantos <= 1) return;
    std::vector<MediaItem*> itens = CopiarSelecao(quantos);
    OrdenarPorPosicao(itens);
    std::map<MediaTrack*, std::vector<MediaItem*>> itensPorFaixa;
    for (MediaItem* item : itens) itensPorFaixa[host::GetMediaItem_Track(item)].push_back(item);
    for (const auto& [faixa, daFaixa] : itensPorFaixa) EncostarFatias(daFaixa);
}
