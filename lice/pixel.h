// lice/pixel.h
// The pixel of every surface, and the mode word that every drawing routine takes.
#pragma once
#include <cstdint>

// Unsigned, 0xAARRGGBB, so that memory holds blue, green, red, alpha. Channels are 0 to 255.
using LICE_pixel = uint32_t;

constexpr LICE_pixel LICE_RGBA(int r, int g, int b, int a) {
    return static_cast<LICE_pixel>(a) << 24 | static_cast<LICE_pixel>(r) << 16 | static_cast<LICE_pixel>(g) << 8 |
           static_cast<LICE_pixel>(b);
}

// The mode word. Its low byte says how a colour is merged into what is there. Any byte not listed draws nothing.
inline constexpr int LICE_BLIT_MODE_MASK = 0xFF;
inline constexpr int LICE_BLIT_MODE_COPY = 0;
inline constexpr int LICE_BLIT_MODE_ADD = 1;
inline constexpr int LICE_BLIT_MODE_DODGE = 2;
inline constexpr int LICE_BLIT_MODE_MUL = 3;
inline constexpr int LICE_BLIT_MODE_OVERLAY = 4;
inline constexpr int LICE_BLIT_MODE_HSVADJ = 5;
// 0xF0 to 0xFF, in blits: bits 0 and 1 choose the byte taken from the source, bits 2 and 3 the byte it replaces.
inline constexpr int LICE_BLIT_MODE_CHANCOPY = 0xF0;

inline constexpr int LICE_BLIT_USE_ALPHA = 0x10000;       // the source's own alpha takes part
inline constexpr int LICE_BLIT_IGNORE_SCALING = 0x20000;  // coordinates count pixels of the backing store
