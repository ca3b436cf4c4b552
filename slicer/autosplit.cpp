#include <cmath>

#include "commands/items.h"
#include "host/entry.h"
#include "host/imports.h"
#include "slicer/slice.h"

static constexpr int BlocoPadraoMs = 55;

static void FatiarSilencio(MediaItem* item, double limiarLinear, double blocoSegundos) {
    MediaItem_Take* take = host::GetActiveTake(item);
    if (!take) return;
    const double comprimento = host::GetMediaItemInfo_Value(item, "D_LENGTH");
    const double posicao = host::GetMediaItemInfo_Value(item, "D_POSITION");
    const ItemLido lido = {item, take, posicao, comprimento};
    const std::vector<TrechoSilencio> silencio = AnalisarItem(lido, limiarLinear, blocoSegundos);
    if (!silencio.empty()) FatiarItem(lido, silencio);
}

bool Quilmo_AutoSplit(bool fecharLacunas, int blocoMs, double thresholdDb) {
    if (!HostImportado()) return false;  // exported, so it can be called before the entry or after one that refused
    const double limiarLinear = std::pow(10.0, thresholdDb / 20.0);
    const double blocoSegundos = (blocoMs > 0 ? blocoMs : BlocoPadraoMs) / 1000.0;
    const int quantos = host::CountSelectedMediaItems(nullptr);
    if (quantos <= 0) {
        host::ShowMessageBox("Selecione itens de audio.", "A.SPLIT", 0);
        return false;
    }
    host::Undo_BeginBlock2(nullptr);
    host::PreventUIRefresh(1);
    for (MediaItem* item : CopiarSelecao(quantos)) FatiarSilencio(item, limiarLinear, blocoSegundos);
    if (fecharLacunas) FecharLacunasFatias();
    host::PreventUIRefresh(-1);
    host::UpdateArrange();
    host::Undo_EndBlock2(nullptr, "Fatiador Preview", -1);
    return true;
}
