// host/editing.h
// The idiom of every operation on the open project: actions, messages, the undo block, walks over items and tracks, the
// time selection, and the joining of two items. Times are seconds; an item's end is always its position plus its
// length.
#pragma once
#include <algorithm>
#include <vector>

#include "host/actions.h"
#include "host/api.h"

inline void ExecutarAcao(int id) { host::Main_OnCommand(id, 0); }

// A host action as a command without arguments.
template <int id>
void Acao() {
    ExecutarAcao(id);
}

inline void Mensagem(const char* texto, const char* titulo) { host::ShowMessageBox(texto, titulo, 0); }
inline bool Confirmar(const char* pergunta, const char* titulo) {
    constexpr int simOuNao = 4, sim = 6;
    return host::ShowMessageBox(pergunta, titulo, simOuNao) == sim;
}

// An undo block, open as long as this lives: a point of that title is left behind, whatever happens in it.
class BlocoDeDesfazer {
  public:
    explicit BlocoDeDesfazer(const char* titulo) : titulo_(titulo) { host::Undo_BeginBlock2(0); }
    ~BlocoDeDesfazer() { Fechar(); }
    BlocoDeDesfazer(const BlocoDeDesfazer&) = delete;
    BlocoDeDesfazer& operator=(const BlocoDeDesfazer&) = delete;
    void Chamar(const char* titulo) { titulo_ = titulo; }  // by another title
    void Fechar() {                                        // now; for calls that have to follow it
        if (titulo_) host::Undo_EndBlock2(0, titulo_, -1);
        titulo_ = nullptr;
    }

  private:
    const char* titulo_;
};

// The host repaints nothing while one of these lives.
class TelaParada {
  public:
    TelaParada() { host::PreventUIRefresh(1); }
    ~TelaParada() { host::PreventUIRefresh(-1); }
    TelaParada(const TelaParada&) = delete;
    TelaParada& operator=(const TelaParada&) = delete;
};

inline double InicioDoItem(MediaItem* item) { return host::GetMediaItemInfo_Value(item, "D_POSITION"); }
inline double ComprimentoDoItem(MediaItem* item) { return host::GetMediaItemInfo_Value(item, "D_LENGTH"); }
inline double FimDoItem(MediaItem* item) {
    const double inicio = InicioDoItem(item);
    return inicio + ComprimentoDoItem(item);
}
inline void MoverItem(MediaItem* item, double inicio) { host::SetMediaItemInfo_Value(item, "D_POSITION", inicio); }

int IndiceDaFaixa(MediaTrack* faixa);      // from 0; negative when the host does not know the track
bool FaixaSelecionada(MediaTrack* faixa);  // false for null
// The track of the first selected item, else the first selected track, else null: the whole project.
MediaTrack* FaixaDoEscopo();

// Calls f with each handle of a walk by index, whose count is asked once, at the start. Null handles are passed over,
// so that a list that shrinks on the way does no harm; a null track has no items.
template <class Handle, class F>
void Percorrer(int quantos, Handle daPosicao, F f) {
    for (int i = 0; i < quantos; ++i)
        if (auto* achado = daPosicao(i)) f(achado);
}
// quantos is what CountSelectedMediaItems gave.
template <class F>
void ParaCadaSelecionado(int quantos, F f) {
    Percorrer(
        quantos, [](int i) { return host::GetSelectedMediaItem(0, i); }, f);
}
template <class F>
void ParaCadaItem(F f) {
    Percorrer(
        host::CountMediaItems(0), [](int i) { return host::GetMediaItem(0, i); }, f);
}
template <class F>
void ParaCadaItemDaFaixa(MediaTrack* faixa, F f) {
    if (faixa)
        Percorrer(
            host::CountTrackMediaItems(faixa), [faixa](int i) { return host::GetTrackMediaItem(faixa, i); }, f);
}
template <class F>
void ParaCadaFaixa(F f) {
    Percorrer(
        host::CountTracks(0), [](int i) { return host::GetTrack(0, i); }, f);
}
template <class F>
void ParaCadaFaixaSelecionada(int quantas, F f) {
    Percorrer(
        quantas, [](int i) { return host::GetSelectedTrack(0, i); }, f);
}

// The first so many selected items, in the host's order, so that the selection can change under the caller.
std::vector<MediaItem*> CopiarSelecao(int quantos);

// Sorts by a comparison that may ask the host; equal ones keep no order. A host may contradict itself, or answer with
// what is not a number. A heap sort then gives a bad order; faster sorts would leave the list's bounds.
template <class T, class Antes>
void OrdenarComCautela(std::vector<T>& lista, Antes antes) {
    std::make_heap(lista.begin(), lista.end(), antes);
    std::sort_heap(lista.begin(), lista.end(), antes);
}
// By D_POSITION, ascending; each comparison asks the host for both positions.
void OrdenarPorPosicao(std::vector<MediaItem*>& itens);

// The stretch from the earliest start to the latest end; ends at or before 0 leave `fim` at 0.
struct ExtensaoDeItens {
    double inicio = 1e18, fim = 0.0;
    void Incluir(MediaItem* item);
};
ExtensaoDeItens ExtensaoDaSelecao(int quantos);

struct SelecaoDeTempo {
    double inicio = 0.0, fim = 0.0;
    bool Ativa() const { return fim > inicio; }
};
SelecaoDeTempo LerSelecaoDeTempo();

inline constexpr double ComprimentoDoFade = 0.005;  // seconds, of an automatic fade; also the overlap of a join

void FadeDeEntrada(MediaItem* item);
void FadeDeSaida(MediaItem* item);
// Moves `b` left so that it overlaps the end of `a`, unless it already does, and fades one into the other.
void UnirComCrossfade(MediaItem* a, MediaItem* b);
