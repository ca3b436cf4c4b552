#include "apps/fatiar/text.h"

#include <charconv>

std::string Decimal(double value) {
    char text[64];
    std::string decimal(text, std::to_chars(text, text + sizeof text, value, std::chars_format::fixed, 9).ptr);
    decimal.erase(decimal.find_last_not_of('0') + 1);
    if (decimal.ends_with('.')) decimal.pop_back();
    return decimal;
}
