// platform/pictures/png_file.h
// Pictures as files for people to look at.
#pragma once
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

struct PixelRows {
    const uint32_t* first;  // 0xAARRGGBB; the top row's, from the left
    int width, height;
    ptrdiff_t span;  // pixels from one row to the next
};
// The picture without its alpha. False when the file cannot be written; what was begun is taken away.
bool WritePng(const std::string& path, const PixelRows& picture);
// A picture that WritePng wrote, 0x00RRGGBB from the top, without gaps. False for a file that it would not have
// written.
bool ReadPng(const std::string& path, int* width, int* height, std::vector<uint32_t>* pixels);
