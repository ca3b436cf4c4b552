#include "lice/bitmap.h"

#include <algorithm>
#include <cstdlib>
#include <limits>

#include "lice/safe_math.h"

namespace {

constexpr int64_t IntMax = std::numeric_limits<int>::max();
constexpr int64_t IntMin = std::numeric_limits<int>::min();
constexpr size_t AlignmentSlack = 63;

// The scale that a caller asks for: null, negative and 1:1 all mean none.
int AskedScale(const void* parameter) {
    const int scale = parameter ? *static_cast<const int*>(parameter) : 0;
    return scale < 0 || scale == 256 ? 0 : scale;
}

// A side of the backing store, held inside int. No section of that size is ever given.
int ScaledSide(int side, int scale) {
    return scale > 0 ? static_cast<int>(std::clamp(int64_t{side} * scale >> 8, IntMin, IntMax - 3)) : side;
}

}  // namespace

int LICE_ScaleCoord(int value, int scale) { return HeldInInt(int64_t{value} * scale / 256); }

unsigned LICE_ScaleSize(int value, int scale) {
    return static_cast<unsigned>(std::min(static_cast<uint64_t>(int64_t{value} * scale >> 8), uint64_t{0xFFFFFFFF}));
}

double LICE_ScaleFloat(double value, int scale) { return value * scale / 256.0; }

LICE_SysBitmap::LICE_SysBitmap(int width, int height) : dc_(CreateCompatibleDC(nullptr)) {
    LICE_SysBitmap::resize(width, height);
}

LICE_SysBitmap::~LICE_SysBitmap() {
    ReleaseSection();
    if (dc_) DeleteDC(dc_);
}

// A section may not be deleted while it is selected, so the selection is undone first.
void LICE_SysBitmap::ReleaseSection() {
    if (previousBitmap_) SelectObject(dc_, previousBitmap_);
    if (bitmap_) DeleteObject(bitmap_);
    previousBitmap_ = nullptr;
    bitmap_ = nullptr;
    bits_ = nullptr;
}

bool LICE_SysBitmap::resize(int width, int height) {
    if (!dc_) {
        width_ = height_ = 0;
        bits_ = nullptr;
        return false;
    }
    if (width == width_ && height == height_) return false;
    width_ = width;
    height_ = height;

    const int w = static_cast<int>(std::min<int64_t>(ScaledSide(width, drawScale_), IntMax - 3) + 3) & ~3;
    const int h = ScaledSide(height, drawScale_);
    if (w && h && w <= allocWidth_ && h <= allocHeight_ && bits_) return true;

    allocWidth_ = w;
    allocHeight_ = h;
    ReleaseSection();
    if (w < 1 || h < 1) return false;

    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof(BITMAPINFOHEADER);
    info.bmiHeader.biWidth = w;
    info.bmiHeader.biHeight = isFlipped() ? h : -h;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    info.bmiHeader.biCompression = BI_RGB;
    void* bits = nullptr;
    if (int64_t{w} * h <= IntMax / 4)  // larger ones would overflow in the system
        bitmap_ = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    if (bitmap_) {
        bits_ = static_cast<LICE_pixel*>(bits);
        previousBitmap_ = SelectObject(dc_, bitmap_);
    } else {
        width_ = height_ = 0;
    }
    return true;
}

INT_PTR LICE_SysBitmap::Extended(int code, void* parameter) {
    switch (code) {
        case LICE_EXT_SET_SCALING: {
            const int scale = AskedScale(parameter);
            if (scale == drawScale_) return 1;
            const int width = width_;
            drawScale_ = scale;
            width_ = 0;  // so that the same size is not taken for no change
            resize(width, height_);
            return 1;
        }
        case LICE_EXT_GET_SCALING:
            return drawScale_;
        case LICE_EXT_SET_ADVISORY_SCALING:
            advisoryScale_ = AskedScale(parameter);
            return 1;
        case LICE_EXT_GET_ADVISORY_SCALING:
            return advisoryScale_;
        case LICE_EXT_GET_EFFECTIVE_SCALING:
            if (drawScale_ == 0) return advisoryScale_;
            return advisoryScale_ < 1 ? drawScale_ : static_cast<INT_PTR>(int64_t{advisoryScale_} * drawScale_ >> 8);
    }
    return 0;
}

LICE_MemBitmap::LICE_MemBitmap(int width, int height, int rowAlign)
    : rowMask_(rowAlign < 2 ? 0 : std::min((rowAlign & -rowAlign) - 1, 16)) {
    if (width > 0 && height > 0) LICE_MemBitmap::resize(width, height);
}

LICE_MemBitmap::~LICE_MemBitmap() { free(buffer_); }

LICE_pixel* LICE_MemBitmap::getBits() {
    return reinterpret_cast<LICE_pixel*>((reinterpret_cast<uintptr_t>(buffer_) + AlignmentSlack) & ~AlignmentSlack);
}

int LICE_MemBitmap::getRowSpan() { return static_cast<int>((int64_t{width_} + rowMask_) & ~int64_t{rowMask_}); }

bool LICE_MemBitmap::resize(int width, int height) {
    if (width == width_ && height == height_) return false;
    width_ = width;
    height_ = height;

    const int64_t pixels = ((int64_t{width} + rowMask_) & ~int64_t{rowMask_}) * height;
    const int64_t bytes = std::clamp<int64_t>(pixels, 0, IntMax) * 4;
    if (width < 1 || height < 1 || bytes > IntMax) {  // no int counts more bytes
        free(buffer_);
        buffer_ = nullptr;
        allocBytes_ = 0;
    } else if (!buffer_) {
        allocBytes_ = static_cast<int>(bytes);
        buffer_ = malloc(bytes + AlignmentSlack);
    } else if (bytes > allocBytes_) {
        allocBytes_ = static_cast<int>(std::min(bytes + bytes / 4, IntMax));
        if (void* grown = realloc(buffer_, allocBytes_ + AlignmentSlack)) {
            buffer_ = grown;
        } else {
            free(buffer_);
            allocBytes_ = static_cast<int>(bytes);
            buffer_ = malloc(bytes + AlignmentSlack);
        }
    }
    if (!buffer_) width_ = height_ = 0;
    return true;
}
