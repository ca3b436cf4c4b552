// commands/transport.cpp: recording, stopping, and the jumps to item edges. Nothing is remembered: each click asks the
// host afresh.
#include <optional>

#include "commands/commands.h"
#include "host/editing.h"

static void DesarmarTodasFaixas() {
    ParaCadaFaixa([](MediaTrack* faixa) { host::SetMediaTrackInfo_Value(faixa, "I_RECARM", 0.0); });
}

static void ArmarFaixasSelecionadas() {
    ParaCadaFaixaSelecionada(host::CountSelectedTracks(0),
                             [](MediaTrack* faixa) { host::SetMediaTrackInfo_Value(faixa, "I_RECARM", 1.0); });
}

static bool AlgumaFaixaArmada() {
    bool armada = false;
    ParaCadaFaixa(
        [&armada](MediaTrack* faixa) { armada = armada || host::GetMediaTrackInfo_Value(faixa, "I_RECARM") == 1.0; });
    return armada;
}

bool GravacaoEmCurso() { return (host::GetPlayState() & 4) == 4; }

bool BotaoGravarAtivo() { return host::GetToggleCommandState(acao::Gravar) == 1; }

bool TocandoSemGravar() { return (host::GetPlayState() & 1) != 0 && !BotaoGravarAtivo(); }

void ExecutarGravacao() {
    if (BotaoGravarAtivo()) {
        ExecutarAcao(acao::PararGravacao);
        DesarmarTodasFaixas();
    } else {
        if (!AlgumaFaixaArmada()) {
            if (host::CountSelectedTracks(0) == 0)
                return Mensagem("Nenhuma faixa selecionada. Selecione uma faixa para gravar.", "Quilmo");
            ArmarFaixasSelecionadas();
        }
        ExecutarAcao(acao::Gravar);
    }
    host::TrackList_AdjustWindows(false);
    host::UpdateTimeline();
}

void PararTudo() {
    host::SelectAllMediaItems(0, false);
    ExecutarAcao(acao::DesselecionarFaixas);
    ExecutarAcao(acao::TirarSelecaoDeTempo);
    ExecutarAcao(acao::Parar);
    DesarmarTodasFaixas();
    host::UpdateArrange();
}

// How far beyond the cursor an item edge must lie, so that a second jump goes on.
static constexpr double FolgaDoCursor = 0.001;

template <class F>
static void ParaCadaItemDoEscopo(F f) {
    if (MediaTrack* faixa = FaixaDoEscopo())
        ParaCadaItemDaFaixa(faixa, f);
    else
        ParaCadaItem(f);
}

void PrevItemStart() {
    const double cursor = host::GetCursorPosition();
    std::optional<double> melhor;
    ParaCadaItemDoEscopo([&](MediaItem* item) {
        const double inicio = InicioDoItem(item);
        if (cursor - FolgaDoCursor > inicio && (!melhor || inicio > *melhor)) melhor = inicio;
    });
    host::SetEditCurPos(melhor.value_or(0.0), true, false);
}

void NextItemEnd() {
    const double cursor = host::GetCursorPosition();
    std::optional<double> melhor;
    ParaCadaItemDoEscopo([&](MediaItem* item) {
        const double fim = FimDoItem(item);
        if (fim > cursor + FolgaDoCursor && (!melhor || fim < *melhor)) melhor = fim;
    });
    if (melhor) host::SetEditCurPos(*melhor, true, false);
}
