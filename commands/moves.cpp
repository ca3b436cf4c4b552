// commands/moves.cpp: items between tracks, tracks in the list, and items in time. Nothing is clamped.
#include <unordered_map>

#include "commands/commands.h"
#include "host/editing.h"

void MvClipCima() {
    const BlocoDeDesfazer bloco("Move itens para faixa acima");
    ParaCadaSelecionado(host::CountSelectedMediaItems(0), [](MediaItem* item) {
        MediaTrack* faixa = host::GetMediaItem_Track(item);
        const int acima = faixa ? IndiceDaFaixa(faixa) - 1 : -1;
        if (acima < 0) return;  // on the top track: stays
        if (MediaTrack* destino = host::GetTrack(0, acima)) host::MoveMediaItemToTrack(item, destino);
    });
    host::UpdateArrange();
}

// The track of that index, made if the list ends just before it.
static MediaTrack* FaixaOuNova(int indice) {
    if (MediaTrack* faixa = host::GetTrack(0, indice)) return faixa;
    host::InsertTrackAtIndex(indice, true);
    return host::GetTrack(0, indice);
}

void MvClipBaixo() {
    const BlocoDeDesfazer bloco("Move itens para faixa abaixo");
    const int selecionados = host::CountSelectedMediaItems(0);
    if (selecionados == 0) return;
    // Grouped before anything moves, so that a moved item is not seen again on its new track.
    std::unordered_map<MediaTrack*, std::vector<MediaItem*>> porFaixa;
    ParaCadaSelecionado(selecionados, [&porFaixa](MediaItem* item) {
        if (MediaTrack* faixa = host::GetMediaItem_Track(item)) porFaixa[faixa].push_back(item);
    });
    for (const auto& [faixa, itens] : porFaixa)
        if (MediaTrack* destino = FaixaOuNova(IndiceDaFaixa(faixa) + 1))
            for (MediaItem* item : itens) host::MoveMediaItemToTrack(item, destino);
    host::UpdateArrange();
}

void MvPistaCima() {
    const BlocoDeDesfazer bloco("Move Pista para Cima");
    if (MediaTrack* faixa = host::GetSelectedTrack(0, 0)) {
        const int indice = IndiceDaFaixa(faixa);
        if (indice > 0) host::ReorderSelectedTracks(indice - 1, 0);
    }
}

// Moves the track below up instead: tracks go before an index, and above itself that needs no counting.
void MvPistaBaixo() {
    const BlocoDeDesfazer bloco("Move Pista para Baixo");
    if (MediaTrack* faixa = host::GetSelectedTrack(0, 0)) {
        if (MediaTrack* abaixo = host::GetTrack(0, IndiceDaFaixa(faixa) + 1)) {
            host::SetOnlyTrackSelected(abaixo);
            const int indice = IndiceDaFaixa(abaixo);
            if (indice > 0) host::ReorderSelectedTracks(indice - 1, 0);
        }
        ExecutarAcao(acao::DesselecionarFaixas);
        host::SetTrackSelected(faixa, true);
    }
}

static void Cutucar(double segundos, const char* titulo) {
    const int selecionados = host::CountSelectedMediaItems(0);
    if (selecionados == 0) return;
    const BlocoDeDesfazer bloco(titulo);
    // A copy: the host may list its selection in another order after each move.
    for (MediaItem* item : CopiarSelecao(selecionados)) MoverItem(item, InicioDoItem(item) + segundos);
    host::UpdateArrange();
}

void MvClipEsq() { Cutucar(-0.01, "Move Clip Esq"); }

void MvClipDir() { Cutucar(0.01, "Move Clip Dir"); }

// The unselected item of the track that starts nearest before (or after) `inicio`, strictly; null when there is none.
// To the left, a start at or before -1.0 is none.
static MediaItem* Vizinho(MediaTrack* faixa, bool antes, double inicio) {
    MediaItem* vizinho = nullptr;
    double melhor = -1.0;
    ParaCadaItemDaFaixa(faixa, [&](MediaItem* item) {
        if (host::IsMediaItemSelected(item)) return;
        const double p = InicioDoItem(item);
        const bool maisPerto = antes ? p < inicio && p > melhor : p > inicio && (!vizinho || p < melhor);
        if (!maisPerto) return;
        vizinho = item;
        melhor = p;
    });
    return vizinho;
}

static double FimDosNaoSelecionados() {
    double fim = 0.0;
    ParaCadaItem([&fim](MediaItem* item) {
        if (!host::IsMediaItemSelected(item)) fim = std::max(fim, FimDoItem(item));
    });
    return fim;
}

// Each item behind the one before it, or before it: then the selection stands in reversed order.
static void Empilhar(const std::vector<MediaItem*>& itens, bool paraTras) {
    for (size_t i = 1; i < itens.size(); ++i)
        MoverItem(itens[i],
                  paraTras ? InicioDoItem(itens[i - 1]) - ComprimentoDoItem(itens[i]) : FimDoItem(itens[i - 1]));
}

static void ColarClips(bool esquerda) {
    const int selecionados = host::CountSelectedMediaItems(0);
    if (selecionados == 0) return;
    const BlocoDeDesfazer bloco(esquerda ? "Colar Clips Esquerda" : "Colar Clips Direita");
    std::vector<MediaItem*> itens = CopiarSelecao(selecionados);
    OrdenarPorPosicao(itens);
    if (!itens.empty()) {
        MediaItem* primeiro = itens[0];
        MediaTrack* faixa = host::GetMediaItem_Track(primeiro);
        MediaItem* vizinho = Vizinho(faixa, esquerda, InicioDoItem(primeiro));
        if (esquerda)
            MoverItem(primeiro, vizinho ? FimDoItem(vizinho) : 0.0);
        else if (vizinho)
            MoverItem(primeiro, InicioDoItem(vizinho) - ComprimentoDoItem(primeiro));
        else
            MoverItem(primeiro, FimDosNaoSelecionados());
        Empilhar(itens, !esquerda && vizinho);
    }
    host::UpdateArrange();
}

void ColaClipEsq() { ColarClips(true); }

void ColaClipDir() { ColarClips(false); }
