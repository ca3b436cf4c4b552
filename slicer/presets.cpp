#include "slicer/presets.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <string_view>

#include "platform/files.h"

namespace {

// What the table starts with, and each load starts from.
constexpr TabelaDePresets PresetsDeFabrica = {{{-37.0, 50, false, true},
                                               {-40.0, 55, true, true},
                                               {-30.0, 60, true, true},
                                               {-25.0, 40, false, true},
                                               {-45.0, 100, true, true},
                                               {-50.0, 150, true, true}}};
constexpr char NomeDoArquivo[] = "presets_fatiador.ini";
constexpr char ChaveDosUltimos[] = "LAST_USED=";

bool Espaco(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

// Reads from the front of a text the way formatted input does: white space is skipped before each value, not before a
// comma.
struct Leitor {
    std::string_view texto;

    void PularEspacos() {
        while (!texto.empty() && Espaco(texto.front())) texto.remove_prefix(1);
    }
    template <class Numero>
    bool Ler(Numero& numero) {
        PularEspacos();
        if (texto.size() > 1 && texto[0] == '+' && texto[1] != '-') texto.remove_prefix(1);
        const auto [fim, erro] = std::from_chars(texto.data(), texto.data() + texto.size(), numero);
        texto.remove_prefix(fim - texto.data());
        return erro == std::errc();
    }
    bool Virgula() {
        const bool ha = texto.starts_with(',');
        if (ha) texto.remove_prefix(1);
        return ha;
    }
    std::string_view Palavra() {
        PularEspacos();
        return texto.substr(0, std::find_if(texto.begin(), texto.end(), Espaco) - texto.begin());
    }
};

// "threshold,block,close": all three, or the preset stays as it was.
void LerAjustes(std::string_view texto, PresetFatiador& preset) {
    Leitor leitor = {texto};
    PresetFatiador lido = {};
    if (!leitor.Ler(lido.thresholdDb) || !leitor.Virgula() || !leitor.Ler(lido.blocoMs) || !leitor.Virgula()) return;
    const std::string_view fechar = leitor.Palavra();
    if (fechar.empty()) return;
    lido.fecharLacunas = fechar == "true";
    lido.definido = true;
    preset = lido;
}

std::string ChaveDoSlot(int n) { return "P" + std::to_string(n) + "="; }

void LerLinha(std::string_view linha, TabelaDePresets& tabela, PresetFatiador& ultimos) {
    const auto ler = [linha](std::string_view chave, PresetFatiador& preset) {
        if (linha.starts_with(chave)) LerAjustes(linha.substr(chave.size()), preset);
    };
    ler(ChaveDosUltimos, ultimos);
    for (int n = 1; n <= QuantosPresets; ++n) ler(ChaveDoSlot(n), tabela[n - 1]);
}

// Cut to 63 bytes; no sane line comes near.
void GravarLinha(std::FILE* arquivo, const std::string& chave, const PresetFatiador& preset) {
    char db[400];  // room for the largest double, with its two decimals
    char* fimDb = std::to_chars(db, db + sizeof db, preset.thresholdDb, std::chars_format::fixed, 2).ptr;
    const std::string linha = chave + std::string(db, fimDb) + ',' + std::to_string(preset.blocoMs) + ',' +
                              (preset.fecharLacunas ? "true" : "false") + '\n';
    std::fputs(linha.substr(0, 63).c_str(), arquivo);
}

}  // namespace

TabelaDePresets PresetsFatiador = PresetsDeFabrica;
bool PresetsCarregados = false;

void CarregarPresets(TabelaDePresets& tabela, double& thresholdDb, int& blocoMs, bool& fecharLacunas,
                     const std::string& caminhoRecursos) {
    tabela = PresetsDeFabrica;
    std::string texto;
    if (!ReadTextFile(caminhoRecursos + PathSeparator + NomeDoArquivo, texto) &&
        !ReadTextFile(caminhoRecursos + PathSeparator + "Scripts" + PathSeparator + NomeDoArquivo, texto))
        return;
    PresetFatiador ultimos = {thresholdDb, blocoMs, fecharLacunas, true};
    for (std::string_view resto = texto; !resto.empty();) {
        const size_t fim = std::min(resto.find('\n'), resto.size());
        LerLinha(resto.substr(0, fim), tabela, ultimos);
        resto.remove_prefix(std::min(fim + 1, resto.size()));
    }
    thresholdDb = ultimos.thresholdDb;
    blocoMs = ultimos.blocoMs;
    fecharLacunas = ultimos.fecharLacunas;
}

void GravarPresets(const TabelaDePresets& tabela, double thresholdDb, int blocoMs, bool fecharLacunas,
                   const std::string& caminhoRecursos) {
    std::FILE* arquivo = OpenFile(caminhoRecursos + PathSeparator + NomeDoArquivo, "w");
    if (!arquivo) return;
    GravarLinha(arquivo, ChaveDosUltimos, {thresholdDb, blocoMs, fecharLacunas, true});
    for (int n = 1; n <= QuantosPresets; ++n)
        if (tabela[n - 1].definido) GravarLinha(arquivo, ChaveDoSlot(n), tabela[n - 1]);
    std::fclose(arquivo);
}

void SalvarPreset(TabelaDePresets& tabela, int slot, double thresholdDb, int blocoMs, bool fecharLacunas,
                  const std::string& caminhoRecursos) {
    if (slot < 1 || slot > QuantosPresets) return;
    tabela[slot - 1] = {thresholdDb, blocoMs, fecharLacunas, true};
    GravarPresets(tabela, thresholdDb, blocoMs, fecharLacunas, caminhoRecursos);
}
