// Rectangles of pixels moved between surfaces, beside pixman and memcpy. They are as large as the panel's page and as
// one of its icons, whose rows have a gap. The source-alpha blit takes alphas of every value, opaque pixels, and a
// shape. The shape is clear outside, opaque inside and soft at its edge.
#include <pixman.h>

#include <cmath>
#include <cstring>
#include <random>

#include "bench/ratios.h"
#include "lice/lice.h"

namespace {

struct Size {
    const char* name;
    int width, height;
};
constexpr Size Sizes[] = {{"page", 320, 659}, {"icon", 35, 36}};

enum class Alphas { Any, Opaque, Shape };

LICE_pixel WithAlpha(LICE_pixel p, Alphas alphas, double fromCentre) {
    if (alphas == Alphas::Opaque) return p | 0xFF000000;
    if (alphas == Alphas::Any) return p;
    const double cover = std::clamp((0.9 - fromCentre) * 20.0, 0.0, 1.0);
    return (p & 0xFFFFFF) | static_cast<LICE_pixel>(cover * 255.0) << 24;
}

void Paint(LICE_IBitmap& bitmap, Alphas alphas, unsigned seed) {
    std::mt19937 random(seed);
    const int w = bitmap.getWidth(), h = bitmap.getHeight();
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x) {
            const double fromCentre = std::hypot(2.0 * x / w - 1.0, 2.0 * y / h - 1.0);
            bitmap.getBits()[y * bitmap.getRowSpan() + x] = WithAlpha(random(), alphas, fromCentre);
        }
}

struct Surfaces {
    LICE_MemBitmap src, dest;
    Surfaces(const Size& size, Alphas alphas) : src(size.width, size.height, 4), dest(size.width, size.height, 4) {
        Paint(src, alphas, 1);
        Paint(dest, Alphas::Any, 2);
    }
};

template <class Work>
void Measure(benchmark::State& state, const Size& size, Work work) {
    Repeat(state, work);
    state.SetItemsProcessed(state.iterations() * size.width * size.height);
}

void Ours(benchmark::State& state, Size size, Alphas alphas, float alpha, int mode) {
    Surfaces s(size, alphas);
    Measure(state, size, [&] { LICE_Blit(&s.dest, &s.src, 0, 0, nullptr, alpha, mode); });
}

void Pixman(benchmark::State& state, Size size, Alphas alphas, pixman_op_t op) {
    Surfaces s(size, alphas);
    const auto image = [&](LICE_IBitmap& b) {
        return pixman_image_create_bits(PIXMAN_a8r8g8b8, size.width, size.height, b.getBits(), b.getRowSpan() * 4);
    };
    pixman_image_t *src = image(s.src), *dest = image(s.dest);
    Measure(state, size,
            [&] { pixman_image_composite32(op, src, nullptr, dest, 0, 0, 0, 0, 0, 0, size.width, size.height); });
    pixman_image_unref(src);
    pixman_image_unref(dest);
}

void Memcpy(benchmark::State& state, Size size) {
    Surfaces s(size, Alphas::Any);
    Measure(state, size,
            [&] { memcpy(s.dest.getBits(), s.src.getBits(), s.dest.getRowSpan() * size.height * sizeof(LICE_pixel)); });
}

}  // namespace

int main(int argc, char** argv) {
    for (const Size& size : Sizes) {
        const auto add = [&](const char* what, auto run, auto... arguments) {
            const std::string name = std::string(size.name) + "_" + what;
            benchmark::RegisterBenchmark(name.c_str(), run, size, arguments...);
        };
        add("alpha_any", Ours, Alphas::Any, 1.0f, LICE_BLIT_USE_ALPHA);
        add("alpha_any_pixman", Pixman, Alphas::Any, PIXMAN_OP_OVER);
        add("alpha_opaque", Ours, Alphas::Opaque, 1.0f, LICE_BLIT_USE_ALPHA);
        add("alpha_opaque_pixman", Pixman, Alphas::Opaque, PIXMAN_OP_OVER);
        add("alpha_shape", Ours, Alphas::Shape, 1.0f, LICE_BLIT_USE_ALPHA);
        add("alpha_shape_pixman", Pixman, Alphas::Shape, PIXMAN_OP_OVER);
        add("alpha_faded", Ours, Alphas::Any, 0.8f, LICE_BLIT_USE_ALPHA);
        add("mixed", Ours, Alphas::Any, 0.8f, LICE_BLIT_MODE_COPY);
        add("copy", Ours, Alphas::Any, 1.0f, LICE_BLIT_MODE_COPY);
        add("copy_pixman", Pixman, Alphas::Any, PIXMAN_OP_SRC);
        add("copy_memcpy", Memcpy);
    }
    return RunWithRatios(argc, argv,
                         {{"page, every alpha: pixman / blit", "page_alpha_any_pixman", "page_alpha_any", 1.05},
                          {"page, opaque: pixman / blit", "page_alpha_opaque_pixman", "page_alpha_opaque", 1.05},
                          {"page, a shape: pixman / blit", "page_alpha_shape_pixman", "page_alpha_shape", 1.05},
                          {"icon, every alpha: pixman / blit", "icon_alpha_any_pixman", "icon_alpha_any", 1.05},
                          {"icon, opaque: pixman / blit", "icon_alpha_opaque_pixman", "icon_alpha_opaque", 1.05},
                          {"icon, a shape: pixman / blit", "icon_alpha_shape_pixman", "icon_alpha_shape", 1.05},
                          {"page, copy: blit / memcpy", "page_copy", "page_copy_memcpy", 0, true},
                          {"icon, copy: blit / memcpy", "icon_copy", "icon_copy_memcpy", 0, true},
                          {"page, copy: pixman / blit", "page_copy_pixman", "page_copy", 1.0},
                          {"icon, copy: pixman / blit", "icon_copy_pixman", "icon_copy", 1.0}});
}
