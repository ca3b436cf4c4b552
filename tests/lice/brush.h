// tests/lice/brush.h
// What a slow raster draws its single pixels with: any colour, opacity and mode, and the forms that copying has in its
// family of loops.
#pragma once
#include "lice/combine.h"
#include "tests/lice/reference.h"
#include "tests/lice/support.h"

template <CopyForms forms>
struct Brush {
    LICE_pixel color;
    float alpha;
    int mode;

    static Brush Any(Random& random) {
        const int mode = random.Chance(40) ? random.In(6, 0xFF) : random.Of({0, 0, 0, 1, 2, 3, 4, 5});
        return {random.Pixel(), random.Alpha(), mode | (random.Chance(3) ? LICE_BLIT_IGNORE_SCALING : 0)};
    }

    int Ia() const { return static_cast<int>(256 * alpha); }
    bool Scales(const TestSurface& surface) const { return surface.Scale() > 0 && !(mode & LICE_BLIT_IGNORE_SCALING); }

    // `row` counts in memory. The opacity decides which function is used, the weight how strongly.
    void Blend(TestSurface& surface, int x, int row, int weight) const {
        LICE_pixel& pixel = surface.getBits()[row * surface.getRowSpan() + x];
        pixel = Blended(pixel, weight);
    }

  private:
    LICE_pixel Blended(LICE_pixel old, int weight) const {
        const int ia = Ia(), modeByte = mode & LICE_BLIT_MODE_MASK;
        if (ia == 0 || modeByte > LICE_BLIT_MODE_HSVADJ) return old;
        if (modeByte != LICE_BLIT_MODE_COPY) return reference::Combine(old, color, weight, modeByte);
        if (ia < 0) return old;
        if (forms != CopyForms::General && ia == 256) return color;
        if (forms == CopyForms::SolidHalf && ia == 128) return reference::Mean(old, color);
        if (forms == CopyForms::Fast && ia % 64 == 0 && ia < 256) {
            reference::Channels d = reference::Split(old);
            for (int i = 0; i < 4; ++i) {
                const int64_t n = d.c[i], s = reference::Split(color).c[i];
                d.c[i] = ia == 64 ? n / 2 + n / 4 + s / 4 : ia == 128 ? n / 2 + s / 2 : n / 4 + s / 2 + s / 4;
            }
            return reference::Join(d);
        }
        return reference::Combine(old, color, weight, modeByte);
    }
};
