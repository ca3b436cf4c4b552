// One whole pass of the panel's main page, as the window asks for it: cleared, every widget drawn, copied to the
// window. Beside it the same scene drawn with Cairo: its rounded fills, outlines and labels in the same places and
// sizes, an icon where ours has one, fonts warm, then copied.
#include <map>
#include <numbers>
#include <string>
#include <vector>

#include "bench/cairo_page.h"
#include "bench/floor_scene.h"
#include "bench/ratios.h"
#include "module/entry.h"
#include "panel/observer.h"
#include "panel/state.h"
#include "platform/headless/desktop.h"
#include "platform/win32.h"
#include "simhost/host.h"

namespace {

constexpr int Width = 320, Height = 659;

// The panel on a host of its own.
struct OpenPanel {
    OpenPanel() {
        host.resourcePath = "nowhere/that/exists";  // log and window place are lost, and nobody minds
        ReaperPluginEntry(nullptr, host.Record());
        host.RunAction("_QUILMO_ABRIR_PAINEL");
    }
    ~OpenPanel() {
        DestroyWindow(JanelaPainel);
        ReaperPluginEntry(nullptr, nullptr);
    }
    static void Paint() {
        InvalidateRect(JanelaPainel, nullptr, FALSE);
        UpdateWindow(JanelaPainel);
    }
    simhost::Host host;
};

void PassOurs(benchmark::State& state) {
    OpenPanel panel;
    for (auto _ : state) OpenPanel::Paint();
}

// The mouse runs down the page, so that each pass lights another button and shows its tooltip.
void HoverOurs(benchmark::State& state) {
    OpenPanel panel;
    int y = 0;
    for (auto _ : state) {
        y = (y + 7) % Height;
        SendMessageA(JanelaPainel, WM_MOUSEMOVE, 0, MAKELPARAM(60, y));
        UpdateWindow(JanelaPainel);
    }
}

enum class Icon { None, Triangle, TriangleAndBar, Square, Disc, Lens, Arrows, Cross };

struct Box {
    int x, y, w, h;
    std::string label;
    Icon icon;
};

Icon IconOf(const char* name) {
    static const std::map<std::string, Icon> icons = {
        {"rec", Icon::Disc},           {"stop", Icon::Square},          {"play", Icon::Triangle},
        {"up", Icon::Triangle},        {"down", Icon::Triangle},        {"left", Icon::Triangle},
        {"right", Icon::Triangle},     {"start", Icon::TriangleAndBar}, {"zoom_in", Icon::Lens},
        {"end", Icon::TriangleAndBar}, {"zoom_vert", Icon::Arrows},     {"zoom_sel", Icon::Lens},
        {"zoom_all", Icon::Lens},      {"clear", Icon::Cross}};
    return name ? icons.at(name) : Icon::None;
}

// The main page's buttons, and its strip at the end.
std::vector<Box> Scene() {
    static std::vector<Box> boxes;
    boxes.clear();
    OpenPanel panel;
    Observador = [](const WidgetVisto& v) {
        const auto& [x, y, w, h] = v.lugar;
        boxes.push_back({x, y, w, h, v.aspecto.rotulo ? v.aspecto.rotulo : "", IconOf(v.aspecto.icone)});
    };
    OpenPanel::Paint();
    Observador = nullptr;
    return boxes;
}

void DrawLabel(cairo_t* cr, const Box& box, int size) {
    cairo_set_font_size(cr, size);
    cairo_text_extents_t extents;
    cairo_text_extents(cr, box.label.c_str(), &extents);
    cairo_set_source_rgb(cr, 1, 1, 1);
    cairo_move_to(cr, box.x + (box.w - extents.x_advance) / 2, box.y + (box.h + size) / 2);
    cairo_show_text(cr, box.label.c_str());
}

void Triangle(cairo_t* cr, double x, double y, double side) {
    cairo_move_to(cr, x, y);
    cairo_line_to(cr, x, y + side);
    cairo_line_to(cr, x + side, y + side / 2);
    cairo_close_path(cr);
}

void Line(cairo_t* cr, double x1, double y1, double x2, double y2) {
    cairo_move_to(cr, x1, y1);
    cairo_line_to(cr, x2, y2);
}

void DrawIcon(cairo_t* cr, const Box& box) {
    const double side = 0.45 * box.h, x = box.x + (box.w - side) / 2, y = box.y + (box.h - side) / 2;
    cairo_set_source_rgb(cr, 0.9, 0.9, 0.9);
    switch (box.icon) {
        case Icon::None:
            return;
        case Icon::TriangleAndBar:
            cairo_rectangle(cr, x + side, y, 2, side);
            [[fallthrough]];
        case Icon::Triangle:
            Triangle(cr, x, y, side);
            return cairo_fill(cr);
        case Icon::Square:
            cairo_rectangle(cr, x, y, side, side);
            return cairo_fill(cr);
        case Icon::Disc:
            cairo_arc(cr, x + side / 2, y + side / 2, side / 2, 0, 2 * std::numbers::pi);
            return cairo_fill(cr);
        case Icon::Lens:
            cairo_arc(cr, x + 6, y + 6, 6, 0, 2 * std::numbers::pi);
            Line(cr, x + 10, y + 10, x + side, y + side);
            Line(cr, x + 3, y + 6.5, x + 9, y + 6.5);
            Line(cr, x + 6.5, y + 3, x + 6.5, y + 9);
            return cairo_stroke(cr);
        case Icon::Arrows:
            Triangle(cr, x, y, side / 3);
            Triangle(cr, x, y + side * 2 / 3, side / 3);
            cairo_rectangle(cr, x + side / 2, y, 1, side);
            return cairo_fill(cr);
        case Icon::Cross:
            Line(cr, box.x + 2.5, box.y + 2.5, box.x + box.w - 2.5, box.y + box.h - 2.5);
            Line(cr, box.x + 3, box.y + 3, box.x + box.w - 2, box.y + box.h - 2);
            return cairo_stroke(cr);
    }
}

void PassCairo(benchmark::State& state) {
    std::vector<Box> boxes = Scene();
    const Box strip = boxes.back();
    boxes.pop_back();
    const CairoPage back(Width, Height, CAIRO_FORMAT_RGB24), window(Width, Height, CAIRO_FORMAT_RGB24);
    cairo_t* const cr = back.cr;
    cairo_select_font_face(cr, "sans-serif", CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_BOLD);
    for (auto _ : state) {
        cairo_set_source_rgb(cr, 0.05, 0.05, 0.06);
        cairo_paint(cr);
        for (const Box& box : boxes) {
            RoundedPath(cr, box.x, box.y, box.w, box.h, RaioDoCanto);
            cairo_set_source_rgb(cr, 0.16, 0.2, 0.23);
            cairo_fill(cr);
            RoundedPath(cr, box.x + 0.5, box.y + 0.5, box.w - 1, box.h - 1, RaioDoCanto);
            cairo_set_source_rgba(cr, 1, 1, 1, 0.03);
            cairo_stroke(cr);
            DrawIcon(cr, box);
            if (!box.label.empty()) DrawLabel(cr, box, TamanhoDaFonte(box.w));
        }
        cairo_rectangle(cr, strip.x, strip.y, strip.w, strip.h);
        cairo_set_source_rgba(cr, 0.08, 0.08, 0.09, 0.95);
        cairo_fill_preserve(cr);
        cairo_set_source_rgba(cr, 1, 1, 1, 0.03);
        cairo_stroke(cr);
        DrawLabel(cr, strip, 12);
        cairo_set_source_surface(window.cr, back.surface, 0, 0);
        cairo_paint(window.cr);
        benchmark::ClobberMemory();
    }
}

void PassFloor(benchmark::State& state) {
    std::vector<FloorScene::Box> faces;
    for (const Box& box : Scene()) faces.push_back({box.x, box.y, box.w, box.h});
    OpenPanel panel;
    OpenPanel::Paint();
    const desktop::Picture picture = desktop::PictureOf(JanelaPainel);
    FloorScene floor(picture.pixels, picture.width, picture.height, CorFundo, faces);
    if (floor.Draw() != picture.pixels) return state.SkipWithError("other pixels");
    for (auto _ : state) benchmark::DoNotOptimize(floor.Draw().data());
}

BENCHMARK(PassOurs)->Unit(benchmark::kMillisecond);
BENCHMARK(HoverOurs)->Unit(benchmark::kMillisecond);
BENCHMARK(PassFloor)->Unit(benchmark::kMillisecond);
BENCHMARK(PassCairo)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
    return RunWithRatios(argc, argv,
                         {{"a pass of the main page: times as fast as Cairo", "PassCairo", "PassOurs", 13},
                          {"a pass with the mouse on the move", "PassCairo", "HoverOurs", 13},
                          {"a pass / the same pixels by loops for this scene", "PassOurs", "PassFloor", 1, true}});
}
