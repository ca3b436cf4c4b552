#include "apps/common/one_line.h"

#include <algorithm>

std::string OnOneLine(std::string text) {
    std::replace_if(
        text.begin(), text.end(), [](unsigned char c) { return c < 32 || c == 127; }, '?');
    return text;
}
