// tests/lice/brush.h
// What a slow raster draws its single pixels with: any colour, opacity and mode.
#pragma once
#include "lice/paint.h"
#include "tests/lice/reference.h"
#include "tests/lice/support.h"

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
    int64_t Scaled(int64_t value, const TestSurface& surface) const {
        return Scales(surface) ? reference::ScaleCoord(value, surface.Scale()) : value;
    }

    // `row` counts in memory; outside of the surface nothing happens. `forms` are those that copying has in the
    // routine's family of loops. The opacity decides which of them is used, the weight how strongly.
    void Blend(TestSurface& surface, int64_t x, int64_t row, int weight, CopyForms forms) const {
        if (!surface.Has(x, row)) return;
        LICE_pixel& pixel = surface.getBits()[row * surface.getRowSpan() + x];
        pixel = Blended(pixel, weight, forms);
    }

  private:
    LICE_pixel Blended(LICE_pixel old, int weight, CopyForms forms) const {
        const int ia = Ia(), modeByte = mode & LICE_BLIT_MODE_MASK;
        if (ia == 0 || modeByte > LICE_BLIT_MODE_HSVADJ || (modeByte == 0 && ia < 0)) return old;
        if (modeByte != 0 || forms == CopyForms::General) return reference::Combine(old, color, weight, modeByte);
        if (ia == 256) return color;
        if (forms == CopyForms::SolidHalf && ia == 128) return reference::Mean(old, color);
        if (forms != CopyForms::Fast || ia % 64 != 0 || ia > 256) return reference::Combine(old, color, weight, 0);
        return reference::EachChannel(old, color, [ia](int64_t n, int64_t s) {
            return ia == 64 ? n / 2 + n / 4 + s / 4 : ia == 128 ? n / 2 + s / 2 : n / 4 + s / 2 + s / 4;
        });
    }
};

// Arguments as they would be written, for the failure of a random round.
template <class... Value>
std::string Told(const Brush& brush, const TestSurface& surface, const Value&... value) {
    std::ostringstream out;
    ((out << value << ' '), ...);
    out << "mode " << brush.mode << " alpha " << brush.alpha << " scale " << surface.Scale();
    return out.str();
}
