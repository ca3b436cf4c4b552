#include "slicer/slice.h"

#include <cmath>
#include <map>

#include "commands/items.h"

static constexpr double MargemBorda = 0.001;   // seconds; a cut this near an edge would leave a sliver, so it takes all
static constexpr double Sobreposicao = 0.005;  // seconds; also the length of the fades

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

static void DefinirFade(MediaItem* item, const char* chaveDuracao, const char* chaveCurva) {
    host::SetMediaItemInfo_Value(item, chaveDuracao, Sobreposicao);
    host::SetMediaItemInfo_Value(item, chaveCurva, 0.0);
}

// One track's items, sorted by start; the first never moves.
static void EncostarFatias(const std::vector<MediaItem*>& itens) {
    DefinirFade(itens.front(), "D_FADEINLEN_AUTO", "D_FADEINDIR");
    for (size_t i = 1; i < itens.size(); ++i) {
        MediaItem* a = itens[i - 1];
        MediaItem* b = itens[i];
        const double posicaoA = host::GetMediaItemInfo_Value(a, "D_POSITION");  // asked again: it may just have moved
        const double fimA = posicaoA + host::GetMediaItemInfo_Value(a, "D_LENGTH");
        const double alvo = fimA - Sobreposicao;
        if (host::GetMediaItemInfo_Value(b, "D_POSITION") > alvo) host::SetMediaItemPosition(b, alvo, false);
        host::SetMediaItemInfo_Value(a, "D_FADEOUTLEN_AUTO", Sobreposicao);
        host::SetMediaItemInfo_Value(b, "D_FADEINLEN_AUTO", Sobreposicao);
        host::SetMediaItemInfo_Value(a, "D_FADEOUTDIR", 0.0);
        host::SetMediaItemInfo_Value(b, "D_FADEINDIR", 0.0);
    }
    DefinirFade(itens.back(), "D_FADEOUTLEN_AUTO", "D_FADEOUTDIR");
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
