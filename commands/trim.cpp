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
    CortarSelecionado("Corta e Apaga Direita (Ripple)", [](const Corte& corte) {
        ApagarParte(corte, corte.direita, ComprimentoDoItem(corte.direita),
                    [&corte](double inicio) { return inicio > corte.inicio; });
    });
}

void TrimEsquerda() {
    constexpr double margem = 0.0001;  // so that the kept part, which starts at the cursor, is always among the moved
    CortarSelecionado("Corta e Apaga Esquerda (Ripple)", [](const Corte& corte) {
        ApagarParte(corte, corte.esquerda, corte.cursor - corte.inicio,
                    [&corte](double inicio) { return inicio >= corte.cursor - margem; });
        host::SetEditCurPos(corte.inicio, false, false);
    });
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
    BlocoDeDesfazer bloco("Excluir Ripple Manual");
    std::unordered_map<MediaTrack*, std::vector<RegistroRipple>> porFaixa;
    ParaCadaSelecionado(selecionados, [&porFaixa](MediaItem* item) {
        const double inicio = InicioDoItem(item);
        const double comprimento = ComprimentoDoItem(item);
        porFaixa[host::GetMediaItem_Track(item)].push_back({item, inicio, comprimento});
    });
    for (auto& [faixa, registros] : porFaixa) ExcluirDaFaixa(faixa, registros);
    bloco.Fechar();
    host::UpdateArrange();
}
