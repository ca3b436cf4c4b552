// commands/view.cpp: what is seen of the project; its items stay as they are.
#include "commands/commands.h"
#include "host/editing.h"

void VerSelecao() {
    const BlocoDeDesfazer bloco("Ver Selecao");
    if (host::CountSelectedMediaItems(0) > 0) {
        ExecutarAcao(acao::ZoomNosItens);
    } else if (MediaTrack* faixa = host::GetSelectedTrack(0, 0)) {
        const auto marcar = [faixa](bool selecionado) {
            ParaCadaItemDaFaixa(faixa,
                                [selecionado](MediaItem* item) { host::SetMediaItemSelected(item, selecionado); });
        };
        marcar(true);
        ExecutarAcao(acao::ZoomNosItens);
        marcar(false);
    }
    host::UpdateArrange();
}

void ZoomAllFaixas(bool esticar) {
    constexpr double altura = 75.0, folga = 3.0;  // pixels; seconds behind the last item
    ParaCadaFaixa([](MediaTrack* faixa) { host::SetMediaTrackInfo_Value(faixa, "I_HEIGHTOVERRIDE", altura); });
    host::TrackList_AdjustWindows(false);
    if (esticar) {
        double inicio = 0.0, fim = 0.0;
        ParaCadaFaixa([&fim](MediaTrack* faixa) {
            ParaCadaItemDaFaixa(faixa, [&fim](MediaItem* item) { fim = std::max(fim, FimDoItem(item) + folga); });
        });
        host::GetSet_ArrangeView2(0, true, 0, 0, &inicio, &fim);
        host::TrackList_AdjustWindows(false);
    }
    host::UpdateArrange();
}
