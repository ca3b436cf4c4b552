#include "commands/crossfade.h"

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
