// commands/trim.cpp: cuts at the cursor, and the ripple that closes what was cut. The ripple is our own arithmetic on
// the positions of one track's items: the host's ripple mode is neither read nor set, other tracks, markers and
// envelopes stay, and no position is clamped.
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

void ExcluirItem(MediaTrack* faixa, MediaItem* item) {
    if (faixa) host::DeleteTrackMediaItem(faixa, item);
}

// The one selected item, cut at the cursor inside it.
struct Corte {
    MediaItem *esquerda, *direita;
    double inicio, cursor;  // where the item starts, where it was cut
};

void Fechar(const char* titulo) {
    FecharBloco(titulo);
    host::UpdateArrange();
}

// The head that both trims share. True: cut, with the undo block open. False: refused with a message and no block, or
// the host could not cut and the block is closed again.
bool CortarSelecionado(const char* titulo, Corte& corte) {
    const auto recusar = [](const char* texto) {
        Mensagem(texto, "Erro");
        return false;
    };
    const int selecionados = host::CountSelectedMediaItems(0);
    if (selecionados >= 2) return recusar("Mais de um item selecionado. Por favor, selecione apenas um item.");
    MediaItem* item = selecionados == 1 ? host::GetSelectedMediaItem(0, 0) : nullptr;
    if (!item) return recusar("Nenhum item selecionado.");

    const double cursor = host::GetCursorPosition();
    const double inicio = InicioDoItem(item);
    const double fim = inicio + ComprimentoDoItem(item);
    if (!(cursor > inicio && fim > cursor)) {
        recusar("O cursor nao esta dentro do item selecionado.");
        host::UpdateArrange();
        return false;
    }
    AbrirBloco();
    MediaItem* direita = host::SplitMediaItem(item, cursor);
    if (!direita) {
        Fechar(titulo);
        return false;
    }
    corte = {item, direita, inicio, cursor};
    return true;
}

void CortarPelaAcao(int acao, const char* titulo) {
    AbrirBloco();
    ExecutarAcao(acao);
    FecharBloco(titulo);
}

// Deletes one part of the cut item, and moves the items of its track whose start `segue` takes left by what that part
// took. The left part is never among them: it stays, or is the part that goes.
template <class Segue>
void ApagarParte(const Corte& corte, MediaItem* parte, double removido, Segue segue) {
    MediaTrack* faixa = host::GetMediaItem_Track(corte.esquerda);
    std::vector<MovimentoPendente> movimentos;
    ParaCadaItemDaFaixa(faixa, [&](MediaItem* item) {
        if (item == corte.esquerda || item == parte) return;
        const double inicio = InicioDoItem(item);
        if (segue(inicio)) movimentos.push_back({item, inicio - removido});
    });
    ExcluirItem(faixa, parte);
    for (const MovimentoPendente& m : movimentos) host::SetMediaItemPosition(m.item, m.inicio, false);
}

// Deletes the recorded items of one track and closes each hole, earliest first.
void ExcluirDaFaixa(MediaTrack* faixa, std::vector<RegistroRipple>& registros) {
    OrdenarComCautela(registros, [](const auto& a, const auto& b) { return a.inicio < b.inicio; });
    for (const RegistroRipple& registro : registros) {
        const double inicio = registro.inicio, comprimento = registro.comprimento;
        ExcluirItem(faixa, registro.item);
        ParaCadaItemDaFaixa(faixa, [=](MediaItem* item) {
            const double q = InicioDoItem(item);
            if (q > inicio) MoverItem(item, q - comprimento);
        });
        // The records follow the items that have just moved.
        for (RegistroRipple& outro : registros)
            if (outro.inicio > inicio) outro.inicio -= comprimento;
    }
}

}  // namespace

void TrimDireita() {
    constexpr char titulo[] = "Corta e Apaga Direita (Ripple)";
    Corte corte;
    if (!CortarSelecionado(titulo, corte)) return;
    ApagarParte(corte, corte.direita, ComprimentoDoItem(corte.direita),
                [&](double inicio) { return inicio > corte.inicio; });
    Fechar(titulo);
}

void TrimEsquerda() {
    constexpr char titulo[] = "Corta e Apaga Esquerda (Ripple)";
    constexpr double margem = 0.0001;  // so that the kept part, which starts at the cursor, is always among the moved
    Corte corte;
    if (!CortarSelecionado(titulo, corte)) return;
    ApagarParte(corte, corte.esquerda, corte.cursor - corte.inicio,
                [&](double inicio) { return inicio >= corte.cursor - margem; });
    host::SetEditCurPos(corte.inicio, false, false);
    Fechar(titulo);
}

void CortarE() {
    CortarPelaAcao(acao::ApararBordaEsquerda, "Cortar Esquerda");
}

void CortarD() {
    CortarPelaAcao(acao::ApararBordaDireita, "Cortar Direita");
}

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
    AbrirBloco();
    std::unordered_map<MediaTrack*, std::vector<RegistroRipple>> porFaixa;
    ParaCadaSelecionado(selecionados, [&porFaixa](MediaItem* item) {
        const double inicio = InicioDoItem(item);
        const double comprimento = ComprimentoDoItem(item);
        porFaixa[host::GetMediaItem_Track(item)].push_back({item, inicio, comprimento});
    });
    for (auto& [faixa, registros] : porFaixa) ExcluirDaFaixa(faixa, registros);
    Fechar("Excluir Ripple Manual");
}
