// apps/fatiar/text.h
#pragma once
#include <cstdio>
#include <string>

// As snprintf, however long the text is.
std::string Formatted(const char* format, auto... values) {
    std::string text(static_cast<size_t>(std::snprintf(nullptr, 0, format, values...)), '\0');
    std::snprintf(text.data(), text.size() + 1, format, values...);
    return text;
}
