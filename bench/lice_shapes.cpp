// Circles, rounded rectangles and polygons beside Cairo, in the panel's sizes, one at a time on a surface as large as
// the panel.
#include <benchmark/benchmark.h>

#include <functional>
#include <numbers>

#include "bench/cairo_page.h"
#include "bench/ratios.h"
#include "lice/lice.h"
#include "panel/rounded.h"

namespace {

constexpr int Width = 320, Height = 659;
constexpr LICE_pixel Color = LICE_RGBA(217, 64, 64, 255);
constexpr float Alpha = 0.95f;
constexpr float Face = 1.0f, Edge = 0.12f;  // of a button

void Ours(benchmark::State& state, const std::function<void(LICE_IBitmap*)>& draw) {
    LICE_MemBitmap surface(Width, Height);
    LICE_Clear(&surface, 0xFF0D0D0F);
    for (auto _ : state) {
        draw(&surface);
        benchmark::DoNotOptimize(surface.getBits());
        benchmark::ClobberMemory();
    }
}

// `path` makes the path, which is then filled, or stroked one pixel wide.
void Cairo(benchmark::State& state, bool fill, cairo_antialias_t antialias, float alpha,
           const std::function<void(cairo_t*)>& path) {
    const CairoPage page(Width, Height);
    cairo_set_source_rgba(page.cr, 217 / 255.0, 64 / 255.0, 64 / 255.0, alpha);
    cairo_set_antialias(page.cr, antialias);
    for (auto _ : state) {
        path(page.cr);
        fill ? cairo_fill(page.cr) : cairo_stroke(page.cr);
        benchmark::ClobberMemory();
    }
}

void RoundedFillOurs(benchmark::State& state) {
    Ours(state, [](LICE_IBitmap* bm) { PreencheArredondado(bm, 10, 20, 140, 36, 5, Color, Face); });
}
void RoundedFillCairo(benchmark::State& state) {
    Cairo(state, true, CAIRO_ANTIALIAS_DEFAULT, Face, [](cairo_t* cr) { RoundedPath(cr, 10, 20, 140, 36, 5); });
}
void RoundedOutlineOurs(benchmark::State& state) {
    Ours(state, [](LICE_IBitmap* bm) { LICE_RoundRect(bm, 10, 20, 139, 35, 5, Color, Edge, 0, true); });
}
void RoundedOutlineCairo(benchmark::State& state) {
    Cairo(state, false, CAIRO_ANTIALIAS_DEFAULT, Edge, [](cairo_t* cr) { RoundedPath(cr, 10.5, 20.5, 139, 35, 5); });
}

// The argument is the radius.
void RingOurs(benchmark::State& state) {
    const auto r = static_cast<float>(state.range(0));
    Ours(state, [r](LICE_IBitmap* bm) { LICE_Circle(bm, 100, 100, r, Color, Alpha, 0, true); });
}
void RasteredRingOurs(benchmark::State& state) {  // a radius that no mask is held for
    const auto r = static_cast<float>(state.range(0)) + 0.25f;
    Ours(state, [r](LICE_IBitmap* bm) { LICE_Circle(bm, 100, 100, r, Color, Alpha, 0, true); });
}
void RingCairo(benchmark::State& state) {
    const auto r = static_cast<double>(state.range(0));
    Cairo(state, false, CAIRO_ANTIALIAS_DEFAULT, Alpha,
          [r](cairo_t* cr) { cairo_arc(cr, 100.5, 100.5, r, 0, 2 * std::numbers::pi); });
}
void DiscOurs(benchmark::State& state) {
    const auto r = static_cast<float>(state.range(0));
    Ours(state, [r](LICE_IBitmap* bm) { LICE_FillCircle(bm, 100, 100, r, Color, Alpha, 0, true); });
}
void DiscCairo(benchmark::State& state) {
    const auto r = static_cast<double>(state.range(0)) + 0.5;
    Cairo(state, true, CAIRO_ANTIALIAS_DEFAULT, Alpha,
          [r](cairo_t* cr) { cairo_arc(cr, 100.5, 100.5, r, 0, 2 * std::numbers::pi); });
}

// Triangles as on transport buttons, and an octagon. The argument is the height. Neither library smooths them.
void TriangleOurs(benchmark::State& state) {
    const int h = static_cast<int>(state.range(0));
    Ours(state, [h](LICE_IBitmap* bm) {
        LICE_FillTriangle(bm, 50, 50, 50, 50 + h, 50 + h * 3 / 4, 50 + h / 2, Color, Alpha, 0);
    });
}
void TriangleCairo(benchmark::State& state) {
    const auto h = static_cast<double>(state.range(0));
    Cairo(state, true, CAIRO_ANTIALIAS_NONE, Alpha, [h](cairo_t* cr) {
        cairo_move_to(cr, 50, 50);
        cairo_line_to(cr, 50, 50 + h);
        cairo_line_to(cr, 50 + h * 3 / 4, 50 + h / 2);
        cairo_close_path(cr);
    });
}

constexpr int OctagonX[] = {30, 50, 64, 64, 50, 30, 16, 16}, OctagonY[] = {10, 10, 24, 44, 58, 58, 44, 24};
void OctagonOurs(benchmark::State& state) {
    Ours(state, [](LICE_IBitmap* bm) { LICE_FillConvexPolygon(bm, OctagonX, OctagonY, 8, Color, Alpha, 0); });
}
void OctagonCairo(benchmark::State& state) {
    Cairo(state, true, CAIRO_ANTIALIAS_NONE, Alpha, [](cairo_t* cr) {
        for (int i = 0; i < 8; ++i) cairo_line_to(cr, OctagonX[i], OctagonY[i]);
        cairo_close_path(cr);
    });
}

BENCHMARK(RoundedFillOurs);
BENCHMARK(RoundedFillCairo);
BENCHMARK(RoundedOutlineOurs);
BENCHMARK(RoundedOutlineCairo);
BENCHMARK(RingOurs)->Arg(7)->Arg(40);
BENCHMARK(RasteredRingOurs)->Arg(7);
BENCHMARK(RingCairo)->Arg(7)->Arg(40);
BENCHMARK(DiscOurs)->Arg(7)->Arg(40);
BENCHMARK(DiscCairo)->Arg(7)->Arg(40);
BENCHMARK(TriangleOurs)->Arg(14)->Arg(80);
BENCHMARK(TriangleCairo)->Arg(14)->Arg(80);
BENCHMARK(OctagonOurs);
BENCHMARK(OctagonCairo);

const std::vector<Ratio> Ratios = {
    {"rounded rectangle 140x36, filled: times as fast as Cairo", "RoundedFillCairo", "RoundedFillOurs", 9},
    {"rounded rectangle 140x36, outline", "RoundedOutlineCairo", "RoundedOutlineOurs", 20},
    {"ring of radius 7", "RingCairo/7", "RingOurs/7", 7},
    {"ring of radius 7.25, which has no mask", "RingCairo/7", "RasteredRingOurs/7", 7},
    {"ring of radius 40", "RingCairo/40", "RingOurs/40", 3},
    {"disc of radius 7", "DiscCairo/7", "DiscOurs/7", 3},
    {"disc of radius 40", "DiscCairo/40", "DiscOurs/40", 3},
    {"triangle 14 high", "TriangleCairo/14", "TriangleOurs/14", 3},
    {"triangle 80 high", "TriangleCairo/80", "TriangleOurs/80", 3},
    {"octagon", "OctagonCairo", "OctagonOurs", 3},
};

}  // namespace

int main(int argc, char** argv) { return RunWithRatios(argc, argv, Ratios); }
