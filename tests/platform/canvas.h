// tests/platform/canvas.h
#pragma once
#include <algorithm>

#include "platform/font.h"
#include "tests/support/rects.h"

// A memory context with a section in it.
struct Canvas {
    int w, h;
    bool topDown;
    HDC dc = CreateCompatibleDC(nullptr);
    uint32_t* bits = nullptr;
    HBITMAP section = nullptr;
    HGDIOBJ previous = nullptr;

    Canvas(int width, int height, bool top = true) : w(width), h(height), topDown(top) {
        BITMAPINFO info{};
        info.bmiHeader = {40, width, top ? -height : height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
        void* pixels = nullptr;
        section = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &pixels, nullptr, 0);
        bits = static_cast<uint32_t*>(pixels);
        previous = SelectObject(dc, section);
    }
    Canvas(const Canvas&) = delete;
    ~Canvas() {
        SelectObject(dc, previous);
        DeleteObject(section);
        DeleteDC(dc);
    }
    uint32_t& At(int x, int y) { return bits[(topDown ? y : h - 1 - y) * w + x]; }
    void Fill(uint32_t pixel) { std::fill_n(bits, w * h, pixel); }

    // The smallest rectangle around everything that isn't background.
    RECT Ink(uint32_t background) {
        GdiFlush();
        RECT box{w, h, 0, 0};
        for (LONG y = 0; y < h; ++y)
            for (LONG x = 0; x < w; ++x)
                if ((At(x, y) & 0xFFFFFF) != background)
                    box = {std::min(box.left, x), std::min(box.top, y), std::max(box.right, x + 1),
                           std::max(box.bottom, y + 1)};
        return box;
    }
};

struct Font {
    HFONT handle;
    explicit Font(int height) : handle(CreateInterfaceFont(height)) {}
    ~Font() { DeleteObject(handle); }
};
