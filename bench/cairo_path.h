// bench/cairo_path.h
// What the benchmarks beside Cairo draw alike.
#pragma once
#include <cairo.h>

#include <numbers>

inline void RoundedPath(cairo_t* cr, double x, double y, double w, double h, double r) {
    constexpr double quarter = std::numbers::pi / 2;
    cairo_new_sub_path(cr);
    cairo_arc(cr, x + w - r, y + r, r, -quarter, 0);
    cairo_arc(cr, x + w - r, y + h - r, r, 0, quarter);
    cairo_arc(cr, x + r, y + h - r, r, quarter, 2 * quarter);
    cairo_arc(cr, x + r, y + r, r, 2 * quarter, 3 * quarter);
    cairo_close_path(cr);
}
