#include "slicer/autosplit.h"

#include <cmath>
#include <map>

#include "host/door.h"
#include "host/editing.h"
#include "host/imports.h"
#include "slicer/analysis.h"
#include "slicer/titles.h"

namespace {

constexpr int BlocoPadraoMs = 55;
constexpr double MargemBorda = 0.001;  // seconds; a cut this near an edge goes to the edge itself: no slivers

// Cuts the spans out of the item, whose position and length are those from before. The surviving pieces are selected;
// the item itself is gone if its start was silent. From the last span to the first, so that the item keeps being the
// left part.
void FatiarItem(MediaItem* item, double inicioItem, double comprimento, const std::vector<TrechoSilencio>& silencio) {
    MediaTrack* faixa = host::GetMediaItem_Track(item);
    if (!faixa || !std::isfinite(inicioItem)) return;  // there is nowhere to cut
    const double fimItem = inicioItem + comprimento;
    for (auto trecho = silencio.rbegin(); trecho != silencio.rend(); ++trecho) {
        double fim = inicioItem + trecho->fim;
        double inicio = inicioItem + trecho->inicio;
        if (fim >= fimItem - MargemBorda) fim = fimItem;
        if (inicioItem + MargemBorda >= inicio) inicio = inicioItem;

        if (fim < fimItem) {
            if (MediaItem* direita = host::SplitMediaItem(item, fim)) host::SetMediaItemSelected(direita, true);
        }
        MediaItem* apagar = inicio > inicioItem ? host::SplitMediaItem(item, inicio) : item;
        if (apagar) host::DeleteTrackMediaItem(faixa, apagar);
        if (apagar == item) return;  // nothing is left of its start
    }
}

void FatiarSilencio(MediaItem* item, double limiarLinear, double blocoSegundos) {
    MediaItem_Take* take = host::GetActiveTake(item);
    if (!take) return;
    const double comprimento = ComprimentoDoItem(item);
    const double inicio = InicioDoItem(item);
    const std::vector<TrechoSilencio> silencio = AnalisarItem(take, comprimento, limiarLinear, blocoSegundos);
    if (!silencio.empty()) FatiarItem(item, inicio, comprimento, silencio);
}

// One track's items, sorted by start; the first never moves. The moves add up: an end is read after the item moved.
void EncostarFatias(const std::vector<MediaItem*>& itens) {
    FadeDeEntrada(itens.front());
    for (size_t i = 1; i < itens.size(); ++i) UnirComCrossfade(itens[i - 1], itens[i]);
    FadeDeSaida(itens.back());
}

// On each track, moves the selected items left until each overlaps the end of the one before it, and fades their edges.
// A single selected item is not touched.
void FecharLacunasFatias() {
    const int quantos = host::CountSelectedMediaItems(0);
    if (quantos <= 1) return;
    std::vector<MediaItem*> itens = CopiarSelecao(quantos);
    OrdenarPorPosicao(itens);
    std::map<MediaTrack*, std::vector<MediaItem*>> itensPorFaixa;
    for (MediaItem* item : itens) itensPorFaixa[host::GetMediaItem_Track(item)].push_back(item);
    for (const auto& [faixa, daFaixa] : itensPorFaixa) EncostarFatias(daFaixa);
}

bool FatiarSelecao(bool fecharLacunas, int blocoMs, double thresholdDb) {
    if (!HostImportado()) return false;
    const double limiarLinear = std::pow(10.0, thresholdDb / 20.0);
    const double blocoSegundos = (blocoMs > 0 ? blocoMs : BlocoPadraoMs) / 1000.0;
    const int quantos = host::CountSelectedMediaItems(0);
    if (quantos <= 0) {
        Mensagem("Selecione itens de audio.", "A.SPLIT");
        return false;
    }
    const BlocoDeDesfazer bloco(TituloDoPreview);
    {
        const TelaParada parada;
        for (MediaItem* item : CopiarSelecao(quantos)) FatiarSilencio(item, limiarLinear, blocoSegundos);
        if (fecharLacunas) FecharLacunasFatias();
    }
    host::UpdateArrange();
    return true;
}

}  // namespace

bool Quilmo_AutoSplit(bool fecharLacunas, int blocoMs, double thresholdDb) {
    return Porta("Quilmo_AutoSplit", false, [=] { return FatiarSelecao(fecharLacunas, blocoMs, thresholdDb); });
}
