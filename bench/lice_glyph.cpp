// A string of twenty glyph masks, 10 by 14, beside pixman's glyph cache.
#include <benchmark/benchmark.h>
#include <pixman.h>

#include <cmath>
#include <cstring>
#include <vector>

#include "bench/ratios.h"
#include "lice/lice.h"

namespace {

constexpr int Width = 10, Height = 14, Count = 20, Advance = 11;
constexpr int PanelWidth = 320;

// Twenty letters' worth of strokes with soft edges: about a third is empty, a quarter full.
const std::vector<std::vector<unsigned char>>& Masks() {
    static const auto masks = [] {
        std::vector<std::vector<unsigned char>> all(Count);
        for (int i = 0; i < Count; ++i) {
            for (int y = 0; y < Height; ++y) {
                for (int x = 0; x < Width; ++x) {
                    const double rim = std::hypot(x - 4.5, (y - 6.5) * 0.7) - 3.0 - 0.05 * i;
                    const double edge = std::clamp(1.9 - std::abs(rim), 0.0, 1.0);
                    all[i].push_back(static_cast<unsigned char>(255 * edge));
                }
            }
        }
        return all;
    }();
    return masks;
}

void Ours(benchmark::State& state, float alpha) {
    LICE_MemBitmap bitmap(PanelWidth, 40);
    LICE_Clear(&bitmap, 0xFF223344);
    for (auto _ : state) {
        for (int i = 0; i < Count; ++i)
            LICE_DrawGlyph(&bitmap, 20 + i * Advance, 12, 0xFFF0F0F0, Masks()[i].data(), Width, Height, alpha, 0);
        benchmark::ClobberMemory();
    }
}

void Pixman(benchmark::State& state) {
    LICE_MemBitmap bitmap(PanelWidth, 40);
    LICE_Clear(&bitmap, 0xFF223344);
    pixman_image_t* dest = pixman_image_create_bits(PIXMAN_a8r8g8b8, PanelWidth, 40, bitmap.getBits(), PanelWidth * 4);
    const pixman_color_t color = {0xF0F0, 0xF0F0, 0xF0F0, 0xFFFF};
    pixman_image_t* source = pixman_image_create_solid_fill(&color);
    pixman_glyph_cache_t* cache = pixman_glyph_cache_create();
    pixman_glyph_t glyphs[Count];
    pixman_glyph_cache_freeze(cache);
    for (int i = 0; i < Count; ++i) {
        constexpr int stride = 12;  // whole words
        std::vector<uint32_t> words(stride / 4 * Height);
        for (int y = 0; y < Height; ++y)
            memcpy(reinterpret_cast<char*>(words.data()) + y * stride, Masks()[i].data() + y * Width, Width);
        pixman_image_t* mask = pixman_image_create_bits(PIXMAN_a8, Width, Height, words.data(), stride);
        glyphs[i] = {20 + i * Advance, 12, pixman_glyph_cache_insert(cache, nullptr, &glyphs[i], 0, 0, mask)};
        pixman_image_unref(mask);
    }
    for (auto _ : state) {
        pixman_composite_glyphs_no_mask(PIXMAN_OP_OVER, source, dest, 0, 0, 0, 0, cache, Count, glyphs);
        benchmark::ClobberMemory();
    }
    pixman_glyph_cache_thaw(cache);
    pixman_glyph_cache_destroy(cache);
    pixman_image_unref(source);
    pixman_image_unref(dest);
}

}  // namespace

int main(int argc, char** argv) {
    benchmark::RegisterBenchmark("string", Ours, 1.0f)->Repetitions(5);
    benchmark::RegisterBenchmark("string_translucent", Ours, 0.95f)->Repetitions(5);
    benchmark::RegisterBenchmark("pixman_string", Pixman)->Repetitions(5);
    return RunWithRatios(argc, argv,
                         {{"Twenty glyph masks: speed, of pixman's glyph cache", "pixman_string", "string", 1.5},
                          {"The same at opacity 0.95", "pixman_string", "string_translucent", 0}});
}
