#include "render/render.h"

#include "commands/items.h"

namespace {

constexpr int ColarItens = 40362, TakeStereo = 41993, TakeMono = 40361, MostrarTakes = 40435, RenderizarJa = 42230;

void DesativarFxDosItens() {
    ParaCadaSelecionado(host::CountSelectedMediaItems(0), [](MediaItem* item) {
        if (MediaTrack* faixa = host::GetMediaItem_Track(item)) host::SetMediaTrackInfo_Value(faixa, "I_FXEN", 0.0);
    });
}

void AtivarUltimaTake() {
    if (host::GetToggleCommandState(MostrarTakes) == 1) ExecutarAcao(MostrarTakes);
    ParaCadaSelecionado(host::CountSelectedMediaItems(0), [](MediaItem* item) {
        const int takes = host::CountTakes(item);
        MediaItem_Take* ultima = takes >= 1 ? host::GetTake(item, takes - 1) : nullptr;
        if (ultima) host::SetActiveTake(ultima);
    });
    host::UpdateArrange();
}

// Several selected items become one first; what was rendered then plays without the tracks' effects, which it holds.
template <class Renderizar>
void Colar(Renderizar renderizar) {
    if (host::CountSelectedMediaItems(0) > 1) ExecutarAcao(ColarItens);
    renderizar();
    DesativarFxDosItens();
    AtivarUltimaTake();
}

}  // namespace

void StereoRender() {
    Colar(Acao<TakeStereo>);
}

void MonoRender() {
    Colar(Acao<TakeMono>);
}

void BounceInteligente() {
    Colar([] {
        MediaItem* item = host::GetSelectedMediaItem(0, 0);
        MediaItem_Take* take = item ? host::GetActiveTake(item) : nullptr;
        if (!take) return;
        PCM_source* fonte = host::GetMediaItemTake_Source(take);
        const int canais = fonte ? host::GetMediaSourceNumChannels(fonte) : 0;
        ExecutarAcao(canais < 2 ? TakeMono : TakeStereo);
    });
}

void RenderProjeto() {
    constexpr double todasAsRegioes = 3.0, selecaoDeTempo = 1.0;
    int marcadores = 0, regioes = 0;
    host::CountProjectMarkers(0, &marcadores, &regioes);
    const SelecaoDeTempo tempo = LerSelecaoDeTempo();
    if (regioes > 0) {
        char porRegiao[] = "$region";
        host::GetSetProjectInfo(0, "RENDER_BOUNDSFLAG", todasAsRegioes, true);
        host::GetSetProjectInfo_String(0, "RENDER_PATTERN", porRegiao, true);
        return ExecutarAcao(RenderizarJa);
    }
    if (!tempo.Ativa()) {
        if (host::CountMediaItems(0) <= 0) return Mensagem("Projeto vazio.", "Quilmo");
        ExtensaoDeItens extensao;
        ParaCadaItem([&extensao](MediaItem* item) { extensao.Incluir(item); });
        host::GetSet_LoopTimeRange(true, false, &extensao.inicio, &extensao.fim, false);
    }
    host::GetSetProjectInfo(0, "RENDER_BOUNDSFLAG", selecaoDeTempo, true);
    ExecutarAcao(RenderizarJa);
}

void AbrirDiretorio() {
    ExecutarAcao(42411);
}
