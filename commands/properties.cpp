// commands/properties.cpp: one property on the selected items or tracks, and the take envelope.
#include "commands/commands.h"
#include "host/editing.h"

static bool TodosMudos(int quantos) {
    for (int i = 0; i < quantos; ++i) {
        MediaItem* item = host::GetSelectedMediaItem(0, i);
        if (item && host::GetMediaItemInfo_Value(item, "B_MUTE") == 0.0) return false;
    }
    return quantos > 0;
}

bool TodosItensMudos() { return TodosMudos(host::CountSelectedMediaItems(0)); }

// A mixed selection is muted as a whole; only one that is muted throughout is unmuted.
void MuteClip() {
    const int selecionados = host::CountSelectedMediaItems(0);
    if (selecionados == 0) return Mensagem("Nenhum item selecionado.", "Aviso");
    const BlocoDeDesfazer bloco("Mute/Unmute Clips");
    const double novo = TodosMudos(selecionados) ? 0.0 : 1.0;
    ParaCadaSelecionado(selecionados, [novo](MediaItem* item) { host::SetMediaItemInfo_Value(item, "B_MUTE", novo); });
    host::UpdateArrange();
}

// Bit 24 tells the host that the colour counts: black is a colour, 0 is none.
static double CorDoHost(int r, int g, int b) { return host::ColorToNative(r, g, b) | 0x1000000; }

static void PintarItens(int quantos, double cor) {
    ParaCadaSelecionado(quantos, [cor](MediaItem* item) { host::SetMediaItemInfo_Value(item, "I_CUSTOMCOLOR", cor); });
    host::UpdateArrange();
}

static void PintarFaixas(int quantas, double cor) {
    ParaCadaFaixaSelecionada(quantas,
                             [cor](MediaTrack* faixa) { host::SetMediaTrackInfo_Value(faixa, "I_CUSTOMCOLOR", cor); });
    host::UpdateArrange();
}

void AplicarCorItens(int r, int g, int b) {
    if (const int itens = host::CountSelectedMediaItems(0)) PintarItens(itens, CorDoHost(r, g, b));
}

void AplicarCorFaixas(int r, int g, int b) {
    if (const int faixas = host::CountSelectedTracks(0)) PintarFaixas(faixas, CorDoHost(r, g, b));
}

void LimparCorItens() {
    if (const int itens = host::CountSelectedMediaItems(0)) PintarItens(itens, 0.0);
}

void LimparCorFaixas() {
    if (const int faixas = host::CountSelectedTracks(0)) PintarFaixas(faixas, 0.0);
}

void VolEnvelope() {
    MediaItem* item = host::GetSelectedMediaItem(0, 0);
    if (!item) return Mensagem("Nenhum item de midia selecionado.", "Erro");
    if (!host::GetActiveTake(item)) return Mensagem("Nenhuma take ativa.", "Erro");
    BlocoDeDesfazer bloco("Acionar Take Volume Envelope");
    host::SelectAllMediaItems(0, false);
    host::SetMediaItemSelected(item, true);
    ExecutarAcao(acao::AlternarEnvelopeDeVolume);
    bloco.Fechar();
    host::UpdateArrange();
}
