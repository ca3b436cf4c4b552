#include "slicer/bounce.h"

#include <cmath>

#include "host/editing.h"
#include "slicer/titles.h"

bool BounceEntradaAtivo = false;

namespace {

// One selected item as it was; times in seconds on the timeline. The item's handle dies with the glue.
struct RegistroBounce {
    MediaItem* item;
    MediaTrack* faixa = nullptr;
    double posicao = 0.0, comprimento = 0.0;
    double alcaEsquerda = 0.0, alcaDireita = 0.0;
    double posicaoAberta = 0.0;  // posicao - alcaEsquerda
    bool usado = false;          // a glued item was matched to it
};

// How the take plays its source: where it starts, and at what rate.
struct ModoDeTocar {
    double inicio, taxa;
};

ModoDeTocar LerTake(MediaItem_Take* take) {
    const double inicio = host::GetMediaItemTakeInfo_Value(take, "D_STARTOFFS");
    const double taxa = host::GetMediaItemTakeInfo_Value(take, "D_PLAYRATE");
    return {inicio, taxa > 0 ? taxa : 1.0};
}

double ComprimentoDaFonte(MediaItem_Take* take) {
    PCM_source* fonte = host::GetMediaItemTake_Source(take);
    bool emBatidas = false;
    return fonte ? host::GetMediaSourceLength(fonte, &emBatidas) : 0.0;
}

RegistroBounce Medir(MediaItem* item, MediaItem_Take* take, double alca) {
    RegistroBounce r = {.item = item, .posicao = InicioDoItem(item), .comprimento = ComprimentoDoItem(item)};
    const ModoDeTocar toca = LerTake(take);
    const double fonte = ComprimentoDaFonte(take);
    const double aEsquerda = toca.inicio / toca.taxa;
    const double aDireita = fonte > 0 ? (fonte - (toca.inicio + r.comprimento * toca.taxa)) / toca.taxa : 0.0;
    r.alcaEsquerda = std::min(alca, std::max(0.0, aEsquerda));
    r.alcaDireita = std::min(alca, std::max(0.0, aDireita));
    if (r.posicao - r.alcaEsquerda < 0) r.alcaEsquerda = r.posicao;  // not before the project's start
    r.posicaoAberta = r.posicao - r.alcaEsquerda;
    r.faixa = host::GetMediaItem_Track(item);
    return r;
}

void Abrir(const RegistroBounce& r) {
    MediaItem_Take* take = host::GetActiveTake(r.item);
    if (!take) return;
    const ModoDeTocar toca = LerTake(take);
    host::SetMediaItemTakeInfo_Value(take, "D_STARTOFFS", std::max(0.0, toca.inicio - r.alcaEsquerda * toca.taxa));
    MoverItem(r.item, r.posicaoAberta);
    host::SetMediaItemInfo_Value(r.item, "D_LENGTH", r.comprimento + r.alcaEsquerda + r.alcaDireita);
}

// Shrinks a glued item back to the place of the first record that it can have come from; without one it stays open.
void Encolher(MediaItem* item, std::vector<RegistroBounce>& registros) {
    constexpr double tolerancia = 0.01;
    MediaTrack* faixa = host::GetMediaItem_Track(item);
    const double posicao = InicioDoItem(item);
    for (RegistroBounce& r : registros) {
        if (r.usado || r.faixa != faixa || !(std::fabs(r.posicaoAberta - posicao) <= tolerancia)) continue;
        if (MediaItem_Take* take = host::GetActiveTake(item)) {
            host::SetMediaItemTakeInfo_Value(take, "D_PLAYRATE", 1.0);  // the glued source plays at its own rate
            host::SetMediaItemTakeInfo_Value(take, "D_STARTOFFS", r.alcaEsquerda);
        }
        MoverItem(item, r.posicao);
        host::SetMediaItemInfo_Value(item, "D_LENGTH", r.comprimento);
        r.usado = true;
        return;
    }
}

}  // namespace

bool BounceEntrada(double alcaSegundos) {
    BounceEntradaAtivo = false;
    std::vector<RegistroBounce> registros;
    ParaCadaSelecionado(host::CountSelectedMediaItems(0), [&](MediaItem* item) {
        if (MediaItem_Take* take = host::GetActiveTake(item)) registros.push_back(Medir(item, take, alcaSegundos));
    });
    if (registros.empty()) return false;

    const BlocoDeDesfazer bloco(TituloDoBounce);
    {
        const TelaParada parada;
        BounceEntradaAtivo = true;  // whatever happens from here on, the block leaves its point
        for (const RegistroBounce& r : registros) Abrir(r);
        ExecutarAcao(acao::ColarSelecao);
        for (MediaItem* item : CopiarSelecao(host::CountSelectedMediaItems(0))) Encolher(item, registros);
    }
    host::UpdateArrange();
    return true;
}
