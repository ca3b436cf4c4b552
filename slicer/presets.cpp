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

bool Espaco(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

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
        const bool ha = !texto.empty() && texto.front() == ',';
        if (ha) texto.remove_prefix(1);
        return ha;
    }
    std::string_view Palavra(size_t limite) {
        PularEspacos();
        const size_t fim = std::find_if(texto.begin(), texto.end(), Espaco) - texto.begin();
        return texto.substr(0, std::min(fim, limite));
    }
};

// "threshold,block,close": all three or nothing.
bool LerAjustes(std::string_view texto, double& thresholdDb, int& blocoMs, bool& fecharLacunas) {
    Leitor leitor = {texto};
    double db;
    int ms;
    if (!leitor.Ler(db) || !leitor.Virgula() || !leitor.Ler(ms) || !leitor.Virgula()) return false;
    const std::string_view fechar = leitor.Palavra(7);
    if (fechar.empty()) return false;
    thresholdDb = db;
    blocoMs = ms;
    fecharLacunas = fechar == "true";
    return true;
}

void LerLinha(std::string_view linha, TabelaDePresets& tabela, double& thresholdDb, int& blocoMs, bool& fecharLacunas) {
    constexpr std::string_view ultimos = "LAST_USED=";
    if (linha.starts_with(ultimos)) LerAjustes(linha.substr(ultimos.size()), thresholdDb, blocoMs, fecharLacunas);
    for (int n = 1; n <= QuantosPresets; ++n) {
        const std::string chave = "P" + std::to_string(n) + "=";
        if (!linha.starts_with(chave)) continue;
        PresetFatiador& preset = tabela[n - 1];
        if (LerAjustes(linha.substr(chave.size()), preset.thresholdDb, preset.blocoMs, preset.fecharLacunas))
            preset.definido = true;
    }
}

// Cut to 63 bytes, as long as any sane line is far from.
void GravarLinha(std::FILE* arquivo, const std::string& chave, double thresholdDb, int blocoMs, bool fecharLacunas) {
    char db[400];  // room for the largest double, with its two decimals
    const char* fimDb = std::to_chars(db, db + sizeof db, thresholdDb, std::chars_format::fixed, 2).ptr;
    const std::string linha = chave + '=' + std::string(db, static_cast<size_t>(fimDb - db)) + ',' +
                              std::to_string(blocoMs) + ',' + (fecharLacunas ? "true" : "false") + '\n';
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
    for (std::string_view resto = texto; !resto.empty();) {
        const size_t fim = std::min(resto.find('\n'), resto.size());
        LerLinha(resto.substr(0, fim), tabela, thresholdDb, blocoMs, fecharLacunas);
        resto.remove_prefix(std::min(fim + 1, resto.size()));
    }
}

void GravarPresets(const TabelaDePresets& tabela, double thresholdDb, int blocoMs, bool fecharLacunas,
                   const std::string& caminhoRecursos) {
    std::FILE* arquivo = OpenFile(caminhoRecursos + PathSeparator + NomeDoArquivo, "w");
    if (!arquivo) return;
    GravarLinha(arquivo, "LAST_USED", thresholdDb, blocoMs, fecharLacunas);
    for (int n = 1; n <= QuantosPresets; ++n) {
        const PresetFatiador& preset = tabela[n - 1];
        if (!preset.definido) continue;
        GravarLinha(arquivo, "P" + std::to_string(n), preset.thresholdDb, preset.blocoMs, preset.fecharLacunas);
    }
    std::fclose(arquivo);
}

void SalvarPreset(TabelaDePresets& tabela, int slot, double thresholdDb, int blocoMs, bool fecharLacunas,
                  const std::string& caminhoRecursos) {
    if (slot < 1 || slot > QuantosPresets) return;
    tabela[slot - 1] = {thresholdDb, blocoMs, fecharLacunas, true};
    GravarPresets(tabela, thresholdDb, blocoMs, fecharLacunas, caminhoRecursos);
}
