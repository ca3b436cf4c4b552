// commands/regions.cpp: play, create, rename and delete regions. Three numbers name a region: its ordinal in time, its
// index in the host's list of markers and regions, and the host's own number. Each call says which it takes.
#include <cstdio>
#include <optional>

#include "commands/commands.h"
#include "host/editing.h"

namespace {

struct IntervaloRegiao {
    double inicio, fim;
};

struct Entrada {  // of the host's list of markers and regions
    bool regiao = false;
    double inicio = 0.0, fim = 0.0;
    const char* nome = nullptr;
    int numero = 0, cor = 0;
};

std::vector<IntervaloRegiao> RegioesNoTempo() {
    std::vector<IntervaloRegiao> regioes;
    int marcadores = 0, quantas = 0;
    const int entradas = host::CountProjectMarkers(0, &marcadores, &quantas);
    for (int i = 0; i < entradas; ++i) {
        bool regiao = false;
        IntervaloRegiao intervalo = {};
        if (!host::EnumProjectMarkers(i, &regiao, &intervalo.inicio, &intervalo.fim, nullptr, nullptr)) break;
        if (regiao) regioes.push_back(intervalo);
    }
    OrdenarComCautela(regioes, [](const auto& a, const auto& b) { return a.inicio < b.inicio; });
    return regioes;
}

// What a new region spans.
struct Alcance {
    double inicio, fim;
    bool deItens;  // of the selected items, for want of a time selection
};

// Without either, says so.
std::optional<Alcance> AlcanceSelecionado() {
    const SelecaoDeTempo tempo = LerSelecaoDeTempo();
    if (tempo.Ativa()) return Alcance{tempo.inicio, tempo.fim, false};
    if (const int selecionados = host::CountSelectedMediaItems(0); selecionados > 0) {
        const ExtensaoDeItens itens = ExtensaoDaSelecao(selecionados);
        return Alcance{itens.inicio, itens.fim, true};
    }
    Mensagem("Nenhum item selecionado e nenhuma selecao de tempo ativa.", "Quilmo");
    return std::nullopt;
}

// What made the region is used up: nothing stays selected, and no time selection.
void AdicionarRegiao(const Alcance& alcance, const char* nome) {
    host::AddProjectMarker2(0, true, alcance.inicio, alcance.fim, nome, -1, 0);
    host::SelectAllMediaItems(0, false);
    ExecutarAcao(acao::DesselecionarFaixas);
    ExecutarAcao(acao::TirarSelecaoDeTempo);
    host::UpdateArrange();
}

struct NomeDeRegiao {
    char texto[512] = "";
    bool Perguntar(const char* titulo) {
        return host::GetUserInputs(titulo, 1, "Nome da regiao:,extrawidth=220", texto, sizeof texto);
    }
};

void Renomear(const Entrada& regiao) {
    NomeDeRegiao nome;
    std::snprintf(nome.texto, sizeof nome.texto, "%s", regiao.nome ? regiao.nome : "");
    if (!nome.Perguntar("Renomear Regiao")) return;
    const BlocoDeDesfazer bloco("Renomear Regiao");
    host::SetProjectMarker3(0, regiao.numero, true, regiao.inicio, regiao.fim, nome.texto, regiao.cor);
    host::UpdateArrange();
}

}  // namespace

void PlayRegiao(int n) {
    const std::vector<IntervaloRegiao> regioes = RegioesNoTempo();
    const int quantas = static_cast<int>(regioes.size());
    if (quantas == 0) return Mensagem("Nenhuma regiao encontrada no projeto.", "Quilmo");
    if (n < 1 || n > quantas) {
        char texto[160];
        std::snprintf(texto, sizeof texto, "Regiao %d nao existe. O projeto tem %d regiao(oes).", n, quantas);
        return Mensagem(texto, "Quilmo");
    }
    IntervaloRegiao regiao = regioes[n - 1];
    const double inicio = regiao.inicio;
    host::GetSet_LoopTimeRange(true, true, &regiao.inicio, &regiao.fim, false);
    host::SetEditCurPos(inicio, false, false);
    ExecutarAcao(acao::Tocar);
}

void CriarOuRenomearRegiao() {
    int indice = -1;
    host::GetLastMarkerAndCurRegion(0, host::GetCursorPosition(), nullptr, &indice);
    Entrada e;
    if (indice >= 0 && host::EnumProjectMarkers3(0, indice, &e.regiao, &e.inicio, &e.fim, &e.nome, &e.numero, &e.cor) &&
        e.regiao)
        return Renomear(e);

    const std::optional<Alcance> alcance = AlcanceSelecionado();
    NomeDeRegiao nome;
    if (!alcance || !nome.Perguntar("Nova Regiao")) return;
    const BlocoDeDesfazer bloco(alcance->deItens ? "Criar Regiao (Itens)" : "Criar Regiao");
    AdicionarRegiao(*alcance, nome.texto);
}

void SelTempoERegiao() {
    BlocoDeDesfazer bloco("Criar Regiao");
    const std::optional<Alcance> alcance = AlcanceSelecionado();
    if (!alcance) return;
    bloco.Chamar(alcance->deItens ? "Criar Regiao (Itens)" : "Criar Regiao (Loop)");
    AdicionarRegiao(*alcance, "");
}

void DeletarRegiaoSobCursor() {
    const BlocoDeDesfazer bloco("Deletar regiao sob cursor ou item");
    double referencia = host::GetCursorPosition();
    if (host::CountSelectedMediaItems(0) > 0)
        if (MediaItem* item = host::GetSelectedMediaItem(0, 0)) referencia = InicioDoItem(item);
    int marcadores = 0, regioes = 0;
    host::CountProjectMarkers(0, &marcadores, &regioes);
    for (int i = marcadores + regioes - 1; i >= 0; --i) {
        Entrada e;
        if (!host::EnumProjectMarkers3(0, i, &e.regiao, &e.inicio, &e.fim, nullptr, &e.numero, nullptr)) continue;
        if (!(e.regiao && e.inicio <= referencia && referencia <= e.fim)) continue;
        if (host::DeleteProjectMarker(0, e.numero, true)) host::UpdateArrange();
        break;
    }
}

void LimparRegioes() {
    if (!Confirmar("Tem certeza que deseja apagar TODAS as regioes?", "Atencao")) return;
    const BlocoDeDesfazer bloco("Limpar Todas as Regioes");
    Entrada e;
    // Above 0: a host that answers -1 for ever would keep the loop going.
    for (int i = 0; host::EnumProjectMarkers3(0, i, &e.regiao, &e.inicio, &e.fim, nullptr, &e.numero, nullptr) > 0;) {
        // The list closes up over a region that goes; markers, and a region that the host keeps, are stepped over.
        if (!e.regiao || !host::DeleteProjectMarker(0, e.numero, true)) ++i;
    }
    host::UpdateArrange();
}
