// platform/pictures/png_file.h
// Pictures as files for people to look at.
#pragma once
#include <cstddef>
#include <cstdint>
#include <string>

struct PixelRows {
    const uint32_t* first;  // 0xAARRGGBB; the top row's, from the left
    int width, height;
    ptrdiff_t span;  // pixels from one row to the next
};
// The picture without its alpha. False when the file cannot be written; what was begun is taken away.
bool WritePng(const std::string& path, const PixelRows& picture);
