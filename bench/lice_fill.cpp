// The whole panel and one button cleared and filled, beside memset and pixman.
#include <pixman.h>

#include <cstring>
#include <string>

#include "bench/ratios.h"
#include "lice/lice.h"

namespace {

constexpr LICE_pixel Color = 0xFF405060;
constexpr float Translucent = 0.12f;  // an opacity of the panel that has no fast form

struct Surface {
    int width, height;
    LICE_MemBitmap bitmap{width, height};
    pixman_image_t* image = pixman_image_create_bits(PIXMAN_a8r8g8b8, width, height, bitmap.getBits(), width * 4);

    Surface(int w, int h) : width(w), height(h) { LICE_Clear(&bitmap, 0xFF223344); }
    ~Surface() { pixman_image_unref(image); }
};

void Memset(Surface& s) {
    memset(s.bitmap.getBits(), 0x55, static_cast<size_t>(s.width) * s.height * sizeof(LICE_pixel));
}

void Clear(Surface& s) { LICE_Clear(&s.bitmap, Color); }

template <int percent>
void Fill(Surface& s) {
    LICE_FillRect(&s.bitmap, 0, 0, s.width, s.height, Color, static_cast<float>(percent) / 100.0f, 0);
}

void PixmanFill(Surface& s) { pixman_fill(s.bitmap.getBits(), s.width, 32, 0, 0, s.width, s.height, Color); }

void PixmanOver(Surface& s) {
    const auto part = [](int channel) { return static_cast<uint16_t>(channel * 257 * Translucent); };
    const pixman_color_t color = {part(0x40), part(0x50), part(0x60), part(0xFF)};  // premultiplied
    const pixman_box32_t all = {0, 0, s.width, s.height};
    pixman_image_fill_boxes(PIXMAN_OP_OVER, s.image, &color, 1, &all);
}

void Run(benchmark::State& state, void (*work)(Surface&), int width, int height) {
    Surface surface(width, height);
    Repeat(state, [&] { work(surface); });
}

}  // namespace

int main(int argc, char** argv) {
    const struct {
        const char* name;
        void (*work)(Surface&);
    } kinds[] = {{"memset", Memset},
                 {"clear", Clear},
                 {"opaque", Fill<100>},
                 {"pixman_opaque", PixmanFill},
                 {"half", Fill<50>},
                 {"translucent", Fill<12>},
                 {"pixman_translucent", PixmanOver}};
    for (const auto& [name, work] : kinds) {
        benchmark::RegisterBenchmark((std::string("panel_") + name).c_str(), Run, work, 320, 659);
        benchmark::RegisterBenchmark((std::string("button_") + name).c_str(), Run, work, 35, 36);
    }
    return RunWithRatios(
        argc, argv,
        {{"320x659: time to clear, of memset's", "panel_clear", "panel_memset", 1.2, true},
         {"320x659: time of an opaque fill, of memset's", "panel_opaque", "panel_memset", 1.2, true},
         {"320x659: speed of an opaque fill, of pixman's", "panel_pixman_opaque", "panel_opaque", 0},
         {"320x659: speed of a translucent fill, of pixman's", "panel_pixman_translucent", "panel_translucent", 1.3},
         {"35x36: speed of an opaque fill, of pixman's", "button_pixman_opaque", "button_opaque", 0},
         {"35x36: speed of a translucent fill, of pixman's", "button_pixman_translucent", "button_translucent", 1.2}});
}
