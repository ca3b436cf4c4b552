// bench/cairo_page.h
// A page to draw on with Cairo, and the path of a rounded rectangle.
#pragma once
#include <cairo.h>

#include <numbers>

struct CairoPage {
    CairoPage(int width, int height, cairo_format_t format = CAIRO_FORMAT_ARGB32)
        : surface(cairo_image_surface_create(format, width, height)), cr(cairo_create(surface)) {
        cairo_set_source_rgb(cr, 0.13, 0.2, 0.27);
        cairo_paint(cr);
        cairo_set_line_width(cr, 1);
    }
    ~CairoPage() {
        cairo_destroy(cr);
        cairo_surface_destroy(surface);
    }
    CairoPage(const CairoPage&) = delete;

    cairo_surface_t* const surface;
    cairo_t* const cr;
};

inline void RoundedPath(cairo_t* cr, double x, double y, double w, double h, double r) {
    constexpr double quarter = std::numbers::pi / 2;
    cairo_new_sub_path(cr);
    cairo_arc(cr, x + w - r, y + r, r, -quarter, 0);
    cairo_arc(cr, x + w - r, y + h - r, r, 0, quarter);
    cairo_arc(cr, x + r, y + h - r, r, quarter, 2 * quarter);
    cairo_arc(cr, x + r, y + r, r, 2 * quarter, 3 * quarter);
    cairo_close_path(cr);
}
