// lice/safe_math.h
// Arithmetic for any argument: what no int holds is held at the ends of its range, and NaN is 0.
#pragma once
#include <algorithm>
#include <cstdint>

#include "platform/win32.h"

inline int HeldInInt(int64_t value) {
    return static_cast<int>(std::clamp<int64_t>(value, INT32_MIN, INT32_MAX));
}

inline int TruncateToInt(double value) {  // toward zero
    if (value != value) return 0;
    return static_cast<int>(std::clamp<double>(value, INT32_MIN, INT32_MAX));
}

inline int64_t WidthOf(const RECT& r) {
    return int64_t{r.right} - r.left;
}

inline int64_t HeightOf(const RECT& r) {
    return int64_t{r.bottom} - r.top;
}
