// lice/pixel.h
// The pixel of every surface: unsigned, 0xAARRGGBB, so that memory holds blue, green, red, alpha.
#pragma once
#include <cstdint>

using LICE_pixel = uint32_t;

// Channels are 0 to 255.
constexpr LICE_pixel LICE_RGBA(int r, int g, int b, int a) {
    return static_cast<LICE_pixel>(a) << 24 | static_cast<LICE_pixel>(r) << 16 | static_cast<LICE_pixel>(g) << 8 |
           static_cast<LICE_pixel>(b);
}
