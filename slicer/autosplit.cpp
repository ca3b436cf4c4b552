#include <cmath>

#include "commands/items.h"
#include "host/entry.h"
#include "host/imports.h"
#include "slicer/slice.h"

static constexpr int BlocoPadraoMs = 55;

static void FatiarSilencio(MediaItem* item, double limiarLinear, double blocoSegundos) {
    MediaItem_Take* take = host::GetActiveTake(item);
    if (!take) return;
    const double comprimento = ComprimentoDoItem(item);
    const ItemLido lido = {item, take, InicioDoItem(item), comprimento};
    const std::vector<TrechoSilencio> silencio = AnalisarItem(lido, limiarLinear, blocoSegundos);
    if (!silencio.empty()) FatiarItem(lido, silencio);
}

bool Quilmo_AutoSplit(bool fecharLacunas, int blocoMs, double thresholdDb) {
    if (!HostImportado()) return false;  // exported, so it can be called before the entry or after one that refused
    const double limiarLinear = std::pow(10.0, thresholdDb / 20.0);
    const double blocoSegundos = (blocoMs > 0 ? blocoMs : BlocoPadraoMs) / 1000.0;
    const int quantos = host::CountSelectedMediaItems(nullptr);
    if (quantos <= 0) {
        Mensagem("Selecione itens de audio.", "A.SPLIT");
        return false;
    }
    AbrirBloco();
    host::PreventUIRefresh(1);
    for (MediaItem* item : CopiarSelecao(quantos)) FatiarSilencio(item, limiarLinear, blocoSegundos);
    if (fecharLacunas) FecharLacunasFatias();
    host::PreventUIRefresh(-1);
    host::UpdateArrange();
    FecharBloco("Fatiador Preview");
    return true;
}
