// lice/rect_math.h
// Sums and differences of coordinates, which may be any ints, in 64 bits; and back.
#pragma once
#include <algorithm>
#include <cstdint>

#include "platform/win32.h"

inline int Saturate(int64_t value) {
    return static_cast<int>(std::clamp<int64_t>(value, INT32_MIN, INT32_MAX));
}

inline int64_t WidthOf(const RECT& r) {
    return int64_t{r.right} - r.left;
}

inline int64_t HeightOf(const RECT& r) {
    return int64_t{r.bottom} - r.top;
}
