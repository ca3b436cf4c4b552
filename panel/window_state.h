// panel/window_state.h
// Where the panel stands. A small file keeps that between runs: left, top, width and height as four decimal integers
// with a blank between them. The last two may be missing.
#pragma once
#include <cstdint>
#include <string>

#include "platform/win32.h"

struct LugarDaJanela {
    int32_t x, y, largura, altura;  // screen pixels, frame included
    bool operator==(const LugarDaJanela&) const = default;
};

std::string CaminhoJanelaIni();
// True when a position was read; the size changes only if all four numbers are there.
bool LerJanelaIni(LugarDaJanela& lugar);
void GravarJanelaIni(const LugarDaJanela& lugar);  // in silence when it cannot be written

// Where the panel was last, else at the owner's top right corner, else at the work area's; always inside the work area.
LugarDaJanela LugarInicial(HWND dono);
