// A string of twenty glyph masks, 10 by 14, beside pixman's glyph cache.
#include <cmath>
#include <vector>

#include "bench/pixman_glyphs.h"
#include "bench/ratios.h"
#include "lice/lice.h"

namespace {

constexpr int Width = 10, Height = 14, Count = 20, Advance = 11;
constexpr int PanelWidth = 320;

// Strokes with soft edges. About a third of each mask is empty, and a quarter is full.
const std::vector<std::vector<unsigned char>>& Masks() {
    static const auto masks = [] {
        std::vector<std::vector<unsigned char>> all(Count);
        for (int i = 0; i < Count; ++i)
            for (int y = 0; y < Height; ++y)
                for (int x = 0; x < Width; ++x) {
                    const double rim = std::hypot(x - 4.5, (y - 6.5) * 0.7) - 3.0 - 0.05 * i;
                    const double edge = std::clamp(1.9 - std::abs(rim), 0.0, 1.0);
                    all[i].push_back(static_cast<unsigned char>(255 * edge));
                }
        return all;
    }();
    return masks;
}

void Ours(benchmark::State& state, float alpha) {
    LICE_MemBitmap bitmap(PanelWidth, 40);
    LICE_Clear(&bitmap, 0xFF223344);
    Repeat(state, [&] {
        for (int i = 0; i < Count; ++i)
            LICE_DrawGlyph(&bitmap, 20 + i * Advance, 12, 0xFFF0F0F0, Masks()[i].data(), Width, Height, alpha, 0);
    });
}

void Pixman(benchmark::State& state) {
    LICE_MemBitmap bitmap(PanelWidth, 40);
    LICE_Clear(&bitmap, 0xFF223344);
    PixmanGlyphs glyphs(bitmap);
    for (int i = 0; i < Count; ++i) glyphs.Add(20 + i * Advance, 12, Masks()[i].data(), Width, Height);
    Repeat(state, [&] { glyphs.Draw(); });
}

}  // namespace

int main(int argc, char** argv) {
    benchmark::RegisterBenchmark("string", Ours, 1.0f);
    benchmark::RegisterBenchmark("string_translucent", Ours, 0.95f);
    benchmark::RegisterBenchmark("pixman_string", Pixman);
    return RunWithRatios(argc, argv,
                         {{"Twenty glyph masks: speed, of pixman's glyph cache", "pixman_string", "string", 1.6},
                          {"The same at opacity 0.95", "pixman_string", "string_translucent", 0}});
}
