// Circles, rounded rectangles and polygons beside Cairo, in the panel's sizes. Each has a surface as large as the
// panel.
#include <functional>
#include <numbers>
#include <string>

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
    Repeat(state, [&] { draw(&surface); });
}

struct Pen {
    bool fill;  // the path; else it is stroked one pixel wide
    float alpha;
    cairo_antialias_t antialias = CAIRO_ANTIALIAS_DEFAULT;
};

void Cairo(benchmark::State& state, Pen pen, const std::function<void(cairo_t*)>& path) {
    const CairoPage page(Width, Height);
    cairo_set_source_rgba(page.cr, 217 / 255.0, 64 / 255.0, 64 / 255.0, pen.alpha);
    cairo_set_antialias(page.cr, pen.antialias);
    Repeat(state, [&] {
        path(page.cr);
        pen.fill ? cairo_fill(page.cr) : cairo_stroke(page.cr);
    });
}

// One shape drawn by us and by Cairo; the size tells its kinds apart.
void Add(const std::string& shape, const std::string& size, const std::function<void(LICE_IBitmap*)>& draw, Pen pen,
         const std::function<void(cairo_t*)>& path) {
    benchmark::RegisterBenchmark((shape + "Ours" + size).c_str(), Ours, draw);
    benchmark::RegisterBenchmark((shape + "Cairo" + size).c_str(), Cairo, pen, path);
}

void AddRounded() {
    Add(
        "RoundedFill", "", [](LICE_IBitmap* bm) { PreencheArredondado(bm, 10, 20, 140, 36, 5, Color, Face); },
        {true, Face}, [](cairo_t* cr) { RoundedPath(cr, 10, 20, 140, 36, 5); });
    Add(
        "RoundedOutline", "", [](LICE_IBitmap* bm) { LICE_RoundRect(bm, 10, 20, 139, 35, 5, Color, Edge, 0, true); },
        {false, Edge}, [](cairo_t* cr) { RoundedPath(cr, 10.5, 20.5, 139, 35, 5); });
}

void AddCircles(int radius) {
    const std::string size = "/" + std::to_string(radius);
    const auto r = static_cast<float>(radius);
    const auto arc = [](double reach) {
        return [reach](cairo_t* cr) { cairo_arc(cr, 100.5, 100.5, reach, 0, 2 * std::numbers::pi); };
    };
    Add(
        "Ring", size, [r](LICE_IBitmap* bm) { LICE_Circle(bm, 100, 100, r, Color, Alpha, 0, true); }, {false, Alpha},
        arc(r));
    Add(
        "Disc", size, [r](LICE_IBitmap* bm) { LICE_FillCircle(bm, 100, 100, r, Color, Alpha, 0, true); }, {true, Alpha},
        arc(r + 0.5));
}

void RasteredRing(LICE_IBitmap* bm) { LICE_Circle(bm, 100, 100, 7.25f, Color, Alpha, 0, true); }  // no mask is held

// As on transport buttons. Neither library smooths them.
void AddTriangles(int height) {
    const auto ours = [h = height](LICE_IBitmap* bm) {
        LICE_FillTriangle(bm, 50, 50, 50, 50 + h, 50 + h * 3 / 4, 50 + h / 2, Color, Alpha, 0);
    };
    const auto path = [h = static_cast<double>(height)](cairo_t* cr) {
        cairo_move_to(cr, 50, 50);
        cairo_line_to(cr, 50, 50 + h);
        cairo_line_to(cr, 50 + h * 3 / 4, 50 + h / 2);
        cairo_close_path(cr);
    };
    Add("Triangle", "/" + std::to_string(height), ours, {true, Alpha, CAIRO_ANTIALIAS_NONE}, path);
}

constexpr int OctagonX[] = {30, 50, 64, 64, 50, 30, 16, 16}, OctagonY[] = {10, 10, 24, 44, 58, 58, 44, 24};
void OctagonOurs(LICE_IBitmap* bm) { LICE_FillConvexPolygon(bm, OctagonX, OctagonY, 8, Color, Alpha, 0); }
void OctagonPath(cairo_t* cr) {
    for (int i = 0; i < 8; ++i) cairo_line_to(cr, OctagonX[i], OctagonY[i]);
    cairo_close_path(cr);
}

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

int main(int argc, char** argv) {
    AddRounded();
    for (const int radius : {7, 40}) AddCircles(radius);
    benchmark::RegisterBenchmark("RasteredRingOurs/7", Ours, RasteredRing);
    for (const int height : {14, 80}) AddTriangles(height);
    Add("Octagon", "", OctagonOurs, {true, Alpha, CAIRO_ANTIALIAS_NONE}, OctagonPath);
    return RunWithRatios(argc, argv, Ratios);
}
