// slicer/presets.h
// The slicer's six presets and the settings last used. A small text file in the host's resource folder keeps them.
// Numbers are written and read with a point, whatever the process's locale. Nothing here clamps a value, and no failure
// of a file is reported: what is in memory stays.
#pragma once
#include <array>
#include <string>

struct PresetFatiador {
    double thresholdDb;
    int blocoMs;
    bool fecharLacunas;
    bool definido;  // written to the file
};

inline constexpr int QuantosPresets = 6;
using TabelaDePresets = std::array<PresetFatiador, QuantosPresets>;
extern TabelaDePresets PresetsFatiador;  // slots 1 to 6
extern bool PresetsCarregados;           // the file was read, once a process

// Starts from the built-in rows, then takes what the file has; without a file the three settings keep what they hold.
void CarregarPresets(TabelaDePresets& tabela, double& thresholdDb, int& blocoMs, bool& fecharLacunas,
                     const std::string& caminhoRecursos);
void GravarPresets(const TabelaDePresets& tabela, double thresholdDb, int blocoMs, bool fecharLacunas,
                   const std::string& caminhoRecursos);
// Into that slot, 1 to 6, and the whole file. Any other slot: nothing.
void SalvarPreset(TabelaDePresets& tabela, int slot, double thresholdDb, int blocoMs, bool fecharLacunas,
                  const std::string& caminhoRecursos);
