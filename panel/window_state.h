// panel/window_state.h
// The small file that keeps the panel's place between runs: left, top, width and height as four decimal integers with
// a blank between them, in screen pixels, frame included. The last two may be missing.
#pragma once
#include <cstdint>
#include <string>

std::string CaminhoJanelaIni();
// True when a position was read; the size is written only if all four numbers are there.
bool LerJanelaIni(int32_t& x, int32_t& y, int32_t& largura, int32_t& altura);
void GravarJanelaIni(int32_t x, int32_t y, int32_t largura, int32_t altura);  // in silence when it cannot be written
