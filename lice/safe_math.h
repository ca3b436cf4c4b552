// lice/safe_math.h
// Arithmetic for any argument. Numbers that no int holds become the ends of its range, and NaN becomes 0.
#pragma once
#include <algorithm>
#include <cmath>
#include <cstdint>

#include "platform/win32.h"

inline int HeldInInt(int64_t value) { return static_cast<int>(std::clamp<int64_t>(value, INT32_MIN, INT32_MAX)); }

inline int TruncateToInt(double value) {  // toward zero
    if (value != value) return 0;
    return static_cast<int>(std::clamp<double>(value, INT32_MIN, INT32_MAX));
}

// Far beyond any surface, with room left in an int for what is added. NaN is not within.
inline bool WithinReach(double value) { return std::abs(value) < 1 << 30; }

inline int64_t WidthOf(const RECT& r) { return int64_t{r.right} - r.left; }

inline int64_t HeightOf(const RECT& r) { return int64_t{r.bottom} - r.top; }

// Places on one axis, from `start` on. The size is below 1 where there are none.
struct Extent {
    int64_t start, size;

    Extent Within(int64_t first, int64_t end) const {
        const int64_t from = std::max(start, first);
        return {from, std::min(start + size, end) - from};
    }
};
