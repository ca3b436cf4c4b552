// apps/common/decimal.h
// Numbers as other programs read them, whatever the locale.
#pragma once
#include <charconv>
#include <string>

// To the nanosecond, without zeros at its end.
inline std::string Decimal(double value) {
    char text[400];  // room for the largest
    std::string decimal(text, std::to_chars(text, text + sizeof text, value, std::chars_format::fixed, 9).ptr);
    decimal.erase(decimal.find_last_not_of('0') + 1);
    if (decimal.ends_with('.')) decimal.pop_back();
    return decimal;
}
