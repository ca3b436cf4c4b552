// lice/truncate.h
// Numbers to int, for any number: what no int holds is held at the ends of its range, and NaN is 0.
#pragma once
#include <algorithm>
#include <cstdint>
#include <limits>

inline int HeldInInt(int64_t value) {
    return static_cast<int>(
        std::clamp<int64_t>(value, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
}

inline int TruncateToInt(double value) {  // toward zero
    constexpr double beyond = 2147483648.0;
    if (value != value) return 0;
    return value >= beyond   ? std::numeric_limits<int>::max()
           : value < -beyond ? std::numeric_limits<int>::min()
                             : static_cast<int>(value);
}
