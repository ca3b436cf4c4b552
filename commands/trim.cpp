// commands/trim.cpp: cuts at the cursor, and the ripple that closes what was cut. The ripple is our own arithmetic on
// the positions of one track's items: the host's ripple mode is neither read nor set, other tracks, markers and
// envelopes stay, and no position is clamped.
#include <bit>
#include <cstdint>
#include <unordered_map>

#include "commands/commands.h"
#include "host/editing.h"

namespace {

struct MovimentoPendente {
    MediaItem* item;
    double inicio;  // the new position
};

struct RegistroRipple {
    MediaItem* item;
    double inicio, comprimento;
};

// False: the host keeps the item, and then nothing moves on its account.
bool ExcluirItem(MediaTrack* faixa, MediaItem* item) { return faixa && host::DeleteTrackMediaItem(faixa, item); }

// The one selected item, cut at the cursor inside it.
struct Corte {
    MediaItem *esquerda, *direita;
    double inicio, cursor;  // where the item starts, where it was cut
};

// The head and the tail that both trims share. Refused with a message, without a block; where the host cannot cut, the
// block stays empty.
template <class Apagar>
void CortarSelecionado(const char* titulo, Apagar apagar) {
    const int selecionados = host::CountSelectedMediaItems(0);
    if (selecionados >= 2) return Mensagem("Mais de um item selecionado. Por favor, selecione apenas um item.", "Erro");
    MediaItem* item = selecionados == 1 ? host::GetSelectedMediaItem(0, 0) : nullptr;
    if (!item) return Mensagem("Nenhum item selecionado.", "Erro");

    const double cursor = host::GetCursorPosition();
    const double inicio = InicioDoItem(item);
    const double fim = inicio + ComprimentoDoItem(item);
    if (cursor > inicio && fim > cursor) {
        const BlocoDeDesfazer bloco(titulo);
        if (MediaItem* direita = host::SplitMediaItem(item, cursor)) apagar(Corte{item, direita, inicio, cursor});
    } else {
        Mensagem("O cursor nao esta dentro do item selecionado.", "Erro");
    }
    host::UpdateArrange();
}

void CortarPelaAcao(int acao, const char* titulo) {
    const BlocoDeDesfazer bloco(titulo);
    ExecutarAcao(acao);
}

// Deletes one part of the cut item; the items of its track that `segue` takes, by handle and start, close the hole. The
// left part is never asked about: it stays, or is the part that goes. False: the host keeps the part.
template <class Segue>
bool ApagarParte(const Corte& corte, MediaItem* parte, double removido, Segue segue) {
    MediaTrack* faixa = host::GetMediaItem_Track(corte.esquerda);
    std::vector<MovimentoPendente> movimentos;
    ParaCadaItemDaFaixa(faixa, [&](MediaItem* item) {
        if (item == corte.esquerda || item == parte) return;
        const double inicio = InicioDoItem(item);
        if (segue(item, inicio)) movimentos.push_back({item, inicio - removido});
    });
    if (!ExcluirItem(faixa, parte)) return false;
    for (const MovimentoPendente& m : movimentos) host::SetMediaItemPosition(m.item, m.inicio, false);
    return true;
}

// What was deleted, in the order in which the holes are closed: each stands where the ones before have left it.
struct Buraco {
    double inicio, comprimento;
};

void Seguir(double& inicio, const Buraco& buraco) { inicio -= inicio > buraco.inicio ? buraco.comprimento : 0.0; }

// Deletes the recorded items of one track, earliest first.
std::vector<Buraco> Excluir(MediaTrack* faixa, std::vector<RegistroRipple>& registros) {
    OrdenarComCautela(registros, [](const auto& a, const auto& b) { return a.inicio < b.inicio; });
    std::vector<Buraco> buracos;
    for (auto registro = registros.begin(); registro != registros.end(); ++registro) {
        if (!ExcluirItem(faixa, registro->item)) continue;
        const Buraco buraco = buracos.emplace_back(registro->inicio, registro->comprimento);
        for (auto outro = registro + 1; outro != registros.end(); ++outro) Seguir(outro->inicio, buraco);
    }
    return buracos;
}

// Moves what is left on the track. The host is asked once for each position and told once: in between, a position takes
// the same steps, in the same order, as if every deletion had moved the items at once.
void FecharBuracos(MediaTrack* faixa, const std::vector<Buraco>& buracos) {
    std::vector<MediaItem*> itens;
    std::vector<double> inicios;
    ParaCadaItemDaFaixa(faixa, [&](MediaItem* item) {
        itens.push_back(item);
        inicios.push_back(InicioDoItem(item));
    });
    const std::vector<double> antes = inicios;
    for (const Buraco& buraco : buracos)
        for (double& inicio : inicios) Seguir(inicio, buraco);
    for (size_t i = 0; i < itens.size(); ++i)
        if (std::bit_cast<uint64_t>(inicios[i]) != std::bit_cast<uint64_t>(antes[i])) MoverItem(itens[i], inicios[i]);
}

}  // namespace

void TrimDireita() {
    CortarSelecionado("Corta e Apaga Direita (Ripple)", [](const Corte& corte) {
        ApagarParte(corte, corte.direita, ComprimentoDoItem(corte.direita),
                    [&corte](MediaItem*, double inicio) { return inicio > corte.inicio; });
    });
}

void TrimEsquerda() {
    constexpr double margem = 0.0001;
    CortarSelecionado("Corta e Apaga Esquerda (Ripple)", [](const Corte& corte) {
        // The kept part always follows, also where the host crossfades at splits and it starts before the cursor.
        const auto segue = [&corte](MediaItem* item, double inicio) {
            return item == corte.direita || inicio >= corte.cursor - margem;
        };
        if (ApagarParte(corte, corte.esquerda, corte.cursor - corte.inicio, segue))
            host::SetEditCurPos(corte.inicio, false, false);
    });
}

void CortarE() { CortarPelaAcao(acao::ApararBordaEsquerda, "Cortar Esquerda"); }

void CortarD() { CortarPelaAcao(acao::ApararBordaDireita, "Cortar Direita"); }

void SplitNoCursor() {
    const double cursor = host::GetCursorPosition();
    std::vector<MediaItem*> direitas;
    for (MediaItem* item : CopiarSelecao(host::CountSelectedMediaItems(0)))
        if (MediaItem* direita = host::SplitMediaItem(item, cursor)) direitas.push_back(direita);
    host::SelectAllMediaItems(0, false);
    for (MediaItem* direita : direitas) host::SetMediaItemSelected(direita, true);
    host::UpdateArrange();
}

void ExcluirRipple() {
    const int selecionados = host::CountSelectedMediaItems(0);
    if (selecionados == 0) return;
    BlocoDeDesfazer bloco("Excluir Ripple Manual");
    std::unordered_map<MediaTrack*, std::vector<RegistroRipple>> porFaixa;
    ParaCadaSelecionado(selecionados, [&porFaixa](MediaItem* item) {
        const double inicio = InicioDoItem(item);
        const double comprimento = ComprimentoDoItem(item);
        porFaixa[host::GetMediaItem_Track(item)].push_back({item, inicio, comprimento});
    });
    for (auto& [faixa, registros] : porFaixa) FecharBuracos(faixa, Excluir(faixa, registros));
    bloco.Fechar();
    host::UpdateArrange();
}
