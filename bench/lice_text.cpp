// Two labels, of nine letters and of twelve characters, drawn and measured with cached glyphs. Beside them stand
// Cairo's text call, its glyph call with all glyphs looked up beforehand, and pixman's glyph cache.
#include <string>
#include <vector>

#include "bench/cairo_page.h"
#include "bench/pixman_glyphs.h"
#include "bench/ratios.h"
#include "lice/lice.h"
#include "platform/font.h"

namespace {

constexpr const char* Nine = "Renderiza";
constexpr const char* Twelve = "Fechar tudo!";
constexpr int FontSize = 14;
constexpr int Width = 140, Height = 36;
constexpr UINT Centred = DT_NOPREFIX | DT_SINGLELINE | DT_VCENTER | DT_CENTER;
constexpr UINT FromTheLeft = DT_NOPREFIX | DT_SINGLELINE;

LICE_CachedFont& Font() {
    static LICE_CachedFont& font = *[] {
        auto* made = new LICE_CachedFont;
        made->SetFromHFont(CreateInterfaceFont(-FontSize), LICE_FONT_FLAG_OWNS_HFONT);
        made->SetTextColor(0xFFF0F0F0);
        return made;
    }();
    return font;
}

void Draw(benchmark::State& state, const char* text, UINT format) {
    LICE_MemBitmap bitmap(Width, Height);
    LICE_Clear(&bitmap, 0xFF223344);
    Repeat(state, [&] {
        RECT rect{4, 0, Width, Height};
        Font().DrawText(&bitmap, text, -1, &rect, format);
    });
}

void Measure(benchmark::State& state, const char* text) {
    for (auto _ : state) {
        RECT rect{};
        Font().DrawText(nullptr, text, -1, &rect, DT_CALCRECT | FromTheLeft);
        benchmark::DoNotOptimize(rect);
    }
}

struct TextPage : CairoPage {
    TextPage() : CairoPage(Width, Height) {
        cairo_select_font_face(cr, "Open Sans", CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_BOLD);
        cairo_set_font_size(cr, FontSize);
        cairo_font_options_t* options = cairo_font_options_create();
        cairo_font_options_set_antialias(options, CAIRO_ANTIALIAS_GRAY);
        cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_NONE);
        cairo_set_font_options(cr, options);
        cairo_font_options_destroy(options);
        cairo_set_source_rgb(cr, 0.94, 0.94, 0.94);
    }
};

void CairoText(benchmark::State& state, const char* text) {
    const TextPage page;
    Repeat(state, [&] {
        cairo_move_to(page.cr, 4, 22);
        cairo_show_text(page.cr, text);
    });
}

void CairoGlyphs(benchmark::State& state, const char* text) {
    const TextPage page;
    cairo_glyph_t* glyphs = nullptr;
    int count = 0;
    cairo_scaled_font_text_to_glyphs(cairo_get_scaled_font(page.cr), 4, 22, text, -1, &glyphs, &count, nullptr, nullptr,
                                     nullptr);
    Repeat(state, [&] { cairo_show_glyphs(page.cr, glyphs, count); });
    cairo_glyph_free(glyphs);
}

void CairoMeasure(benchmark::State& state, const char* text) {
    const TextPage page;
    for (auto _ : state) {
        cairo_text_extents_t extents;
        cairo_text_extents(page.cr, text, &extents);
        benchmark::DoNotOptimize(extents);
    }
}

// The masks that our font draws, at the same places.
void Pixman(benchmark::State& state, const char* text) {
    LICE_MemBitmap bitmap(Width, Height);
    LICE_Clear(&bitmap, 0xFF223344);
    PixmanGlyphs glyphs(bitmap);
    int pen = 4;
    for (const char* at = text; *at; ++at) {
        RECT cell{};
        Font().DrawText(nullptr, at, 1, &cell, DT_CALCRECT | FromTheLeft);
        LICE_MemBitmap ink(cell.right, cell.bottom);
        LICE_Clear(&ink, 0);
        Font().DrawText(&ink, at, 1, &cell, FromTheLeft);
        std::vector<unsigned char> mask;
        for (int i = 0; i < cell.right * cell.bottom; ++i) mask.push_back(ink.getBits()[i] >> 16 & 0xFF);
        glyphs.Add(pen, 9, mask.data(), cell.right, cell.bottom);
        pen += cell.right;
    }
    Repeat(state, [&] { glyphs.Draw(); });
}

}  // namespace

int main(int argc, char** argv) {
    for (const auto& [size, text] : {std::pair{"9", Nine}, std::pair{"12", Twelve}}) {
        const auto add = [size = std::string("/") + size](const char* name, auto... what) {
            benchmark::RegisterBenchmark((name + size).c_str(), what...);
        };
        add("draw", Draw, text, FromTheLeft);
        add("draw_centred", Draw, text, Centred);
        add("measure", Measure, text);
        add("cairo_text", CairoText, text);
        add("cairo_glyphs", CairoGlyphs, text);
        add("cairo_measure", CairoMeasure, text);
        add("pixman", Pixman, text);
    }
    return RunWithRatios(argc, argv,
                         {{"Nine letters: speed, of Cairo's text", "cairo_text/9", "draw/9", 3.8},
                          {"The same, of Cairo's glyphs without look-up", "cairo_glyphs/9", "draw/9", 3.0},
                          {"The same, ours centred, so measured too", "cairo_glyphs/9", "draw_centred/9", 0},
                          {"Measuring twelve characters: speed, of Cairo", "cairo_measure/12", "measure/12", 0},
                          {"Twelve characters: speed, of pixman's glyph cache", "pixman/12", "draw/12", 0}});
}
