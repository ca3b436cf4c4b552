// Lines in every direction, beside Cairo's of width 1.
#include <cmath>
#include <numbers>

#include "bench/cairo_page.h"
#include "bench/ratios.h"
#include "lice/lice.h"

namespace {

constexpr int Side = 320, Lines = 31;

// A line from the middle outward. None of 31 directions is level, upright or diagonal.
struct Spoke {
    int x1, y1, x2, y2;

    Spoke(int i, int radius) {
        const double angle = 2 * std::numbers::pi * (i + 0.25) / Lines;
        x1 = y1 = Side / 2;
        x2 = x1 + static_cast<int>(radius * std::cos(angle));
        y2 = y1 + static_cast<int>(radius * std::sin(angle));
    }
};

void Ours(benchmark::State& state, int radius, bool aa) {
    LICE_MemBitmap bitmap(Side, Side);
    LICE_Clear(&bitmap, 0xFF223344);
    Repeat(state, [&] {
        for (int i = 0; i < Lines; ++i) {
            const Spoke s(i, radius);
            LICE_Line(&bitmap, s.x1, s.y1, s.x2, s.y2, 0xFFF0F0F0, 1.0f, 0, aa);
        }
    });
}

void Cairo(benchmark::State& state, int radius, bool aa) {
    const CairoPage page(Side, Side);
    cairo_set_source_rgb(page.cr, 0.94, 0.94, 0.94);
    cairo_set_antialias(page.cr, aa ? CAIRO_ANTIALIAS_DEFAULT : CAIRO_ANTIALIAS_NONE);
    Repeat(state, [&] {
        for (int i = 0; i < Lines; ++i) {
            const Spoke s(i, radius);
            cairo_move_to(page.cr, s.x1 + 0.5, s.y1 + 0.5);
            cairo_line_to(page.cr, s.x2 + 0.5, s.y2 + 0.5);
            cairo_stroke(page.cr);
        }
    });
}

}  // namespace

int main(int argc, char** argv) {
    const struct {
        const char* name;
        void (*work)(benchmark::State&, int, bool);
        int radius;
        bool aa;
    } kinds[] = {{"soft_12", Ours, 12, true},     {"cairo_soft_12", Cairo, 12, true},
                 {"soft_120", Ours, 120, true},   {"cairo_soft_120", Cairo, 120, true},
                 {"plain_120", Ours, 120, false}, {"cairo_plain_120", Cairo, 120, false}};
    for (const auto& [name, work, radius, aa] : kinds) benchmark::RegisterBenchmark(name, work, radius, aa);
    return RunWithRatios(argc, argv,
                         {{"Anti-aliased lines of 12 pixels: speed, of Cairo's", "cairo_soft_12", "soft_12", 4},
                          {"Anti-aliased lines of 120 pixels: speed, of Cairo's", "cairo_soft_120", "soft_120", 4},
                          {"Plain lines of 120 pixels: speed, of Cairo's", "cairo_plain_120", "plain_120", 0}});
}
