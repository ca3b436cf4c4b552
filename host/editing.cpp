#include "host/editing.h"

int IndiceDaFaixa(MediaTrack* faixa) {
    const double numero = host::GetMediaTrackInfo_Value(faixa, "IP_TRACKNUMBER");  // from 1
    return numero >= 1 && numero < 2147483647 ? static_cast<int>(numero) - 1 : -1;
}

bool FaixaSelecionada(MediaTrack* faixa) { return faixa && host::GetMediaTrackInfo_Value(faixa, "I_SELECTED") > 0.5; }

MediaTrack* FaixaDoEscopo() {
    if (host::CountSelectedMediaItems(0) > 0)
        if (MediaItem* item = host::GetSelectedMediaItem(0, 0)) return host::GetMediaItem_Track(item);
    if (host::CountSelectedTracks(0) > 0) return host::GetSelectedTrack(0, 0);
    return nullptr;
}

std::vector<MediaItem*> CopiarSelecao(int quantos) {
    std::vector<MediaItem*> itens;
    ParaCadaSelecionado(quantos, [&itens](MediaItem* item) { itens.push_back(item); });
    return itens;
}

void OrdenarPorPosicao(std::vector<MediaItem*>& itens) {
    OrdenarComCautela(itens, [](MediaItem* a, MediaItem* b) { return InicioDoItem(a) < InicioDoItem(b); });
}

void ExtensaoDeItens::Incluir(MediaItem* item) {
    const double comeco = InicioDoItem(item);
    inicio = std::min(inicio, comeco);
    fim = std::max(fim, comeco + ComprimentoDoItem(item));
}

ExtensaoDeItens ExtensaoDaSelecao(int quantos) {
    ExtensaoDeItens extensao;
    ParaCadaSelecionado(quantos, [&extensao](MediaItem* item) { extensao.Incluir(item); });
    return extensao;
}

SelecaoDeTempo LerSelecaoDeTempo() {
    SelecaoDeTempo selecao;
    host::GetSet_LoopTimeRange(false, false, &selecao.inicio, &selecao.fim, false);
    return selecao;
}

void FadeDeEntrada(MediaItem* item) {
    host::SetMediaItemInfo_Value(item, "D_FADEINLEN_AUTO", ComprimentoDoFade);
    host::SetMediaItemInfo_Value(item, "D_FADEINDIR", 0.0);
}

void FadeDeSaida(MediaItem* item) {
    host::SetMediaItemInfo_Value(item, "D_FADEOUTLEN_AUTO", ComprimentoDoFade);
    host::SetMediaItemInfo_Value(item, "D_FADEOUTDIR", 0.0);
}

void UnirComCrossfade(MediaItem* a, MediaItem* b) {
    const double alvo = FimDoItem(a) - ComprimentoDoFade;
    if (InicioDoItem(b) > alvo) host::SetMediaItemPosition(b, alvo, false);
    host::SetMediaItemInfo_Value(a, "D_FADEOUTLEN_AUTO", ComprimentoDoFade);
    host::SetMediaItemInfo_Value(b, "D_FADEINLEN_AUTO", ComprimentoDoFade);
    host::SetMediaItemInfo_Value(a, "D_FADEOUTDIR", 0.0);
    host::SetMediaItemInfo_Value(b, "D_FADEINDIR", 0.0);
}
