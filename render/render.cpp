#include "render/render.h"

#include "host/editing.h"

namespace {

void DesativarFxDosItens() {
    ParaCadaSelecionado(host::CountSelectedMediaItems(0), [](MediaItem* item) {
        if (MediaTrack* faixa = host::GetMediaItem_Track(item)) host::SetMediaTrackInfo_Value(faixa, "I_FXEN", 0.0);
    });
}

void AtivarUltimaTake() {
    if (host::GetToggleCommandState(acao::AlternarTakesEmPistas) == 1) ExecutarAcao(acao::AlternarTakesEmPistas);
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
    if (host::CountSelectedMediaItems(0) > 1) ExecutarAcao(acao::ColarItens);
    renderizar();
    DesativarFxDosItens();
    AtivarUltimaTake();
}

}  // namespace

void StereoRender() { Colar(Acao<acao::RenderTakeStereo>); }

void MonoRender() { Colar(Acao<acao::RenderTakeMono>); }

void BounceInteligente() {
    Colar([] {
        MediaItem* item = host::GetSelectedMediaItem(0, 0);
        MediaItem_Take* take = item ? host::GetActiveTake(item) : nullptr;
        if (!take) return;
        PCM_source* fonte = host::GetMediaItemTake_Source(take);
        const int canais = fonte ? host::GetMediaSourceNumChannels(fonte) : 0;
        ExecutarAcao(canais < 2 ? acao::RenderTakeMono : acao::RenderTakeStereo);
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
        return ExecutarAcao(acao::RenderizarProjeto);
    }
    if (!tempo.Ativa()) {
        if (host::CountMediaItems(0) <= 0) return Mensagem("Projeto vazio.", "Quilmo");
        ExtensaoDeItens extensao;
        ParaCadaItem([&extensao](MediaItem* item) { extensao.Incluir(item); });
        host::GetSet_LoopTimeRange(true, false, &extensao.inicio, &extensao.fim, false);
    }
    host::GetSetProjectInfo(0, "RENDER_BOUNDSFLAG", selecaoDeTempo, true);
    ExecutarAcao(acao::RenderizarProjeto);
}

void AbrirDiretorio() { ExecutarAcao(acao::AbrirPastaDoRender); }
