#include "apps/common/arrangement.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "lice/lice.h"
#include "platform/font.h"
#include "simhost/sound.h"

using simhost::Box, simhost::Item, simhost::Marker, simhost::Project, simhost::Take, simhost::TimeRange, simhost::Track;

namespace {

constexpr LICE_pixel Ground = 0xFF16171B, LaneColour = 0xFF1C1E23, Divider = 0xFF0D0D0F, HeaderColour = 0xFF24262C;
constexpr LICE_pixel RulerColour = 0xFF1F2127, GridLine = 0xFFFFFFFF, DimText = 0xFF9AA3AD, BrightText = 0xFFE8ECF0;
constexpr LICE_pixel ItemColour = 0xFF35566E, WaveColour = 0xFFBBE0F5, DarkWave = 0xFF20303C, RegionColour = 0xFF2D6E4A;
constexpr LICE_pixel CursorColour = 0xFFF0A040, SelectionColour = 0xFF4CA6F2, FadeColour = 0xFFF0D090,
                     EnvelopeColour = 0xFF60D080;

struct Canvas {
    LICE_IBitmap* bm;
    TimeRange view;
    ArrangementLayout layout;

    int Width() const { return bm->getWidth(); }
    int Height() const { return bm->getHeight(); }
    double PixelsPerSecond() const { return (Width() - layout.headerWidth) / (view.end - view.start); }
    int Scaled(int pixels) const { return static_cast<int>(std::lround(pixels * layout.scale)); }
    // The column of a time, held to a little outside the picture.
    int X(double time) const {
        const double x = layout.headerWidth + (time - view.start) * PixelsPerSecond();
        return static_cast<int>(std::clamp(x, -100.0, Width() + 100.0));
    }
    double TimeAt(int x) const { return view.start + (x - layout.headerWidth) / PixelsPerSecond(); }
    void Fill(int x, int y, int w, int h, LICE_pixel colour, float alpha = 1.0f) const {
        LICE_FillRect(bm, x, y, w, h, colour, alpha, LICE_BLIT_MODE_COPY);
    }
    void Line(int x1, int y1, int x2, int y2, LICE_pixel colour, float alpha, bool smooth) const {
        LICE_Line(bm, x1, y1, x2, y2, colour, alpha, LICE_BLIT_MODE_COPY, smooth);
    }
};

// Fonts and their glyphs live as long as the process, as everywhere where lice draws text.
LICE_CachedFont& Font(int height, int weight) {
    static std::map<std::pair<int, int>, LICE_CachedFont> fonts;
    const auto [found, fresh] = fonts.try_emplace({height, weight});
    if (fresh) found->second.SetFromHFont(CreateInterfaceFont(-height, weight), LICE_FONT_FLAG_OWNS_HFONT);
    return found->second;
}

void Write(const Canvas& c, const std::string& text, RECT place, LICE_pixel colour, int height = 12, int weight = 600) {
    if (place.right <= place.left) return;
    LICE_CachedFont& font = Font(c.Scaled(height), weight);
    font.SetTextColor(colour);
    font.DrawText(c.bm, text.c_str(), -1, &place, DT_SINGLELINE | DT_NOPREFIX);
}

std::string BaseName(const std::string& path) { return path.substr(path.find_last_of('/') + 1); }

// The first of 1, 2, 5, 10 ... seconds (then minutes) that leaves room for its label.
double GridStep(const Canvas& c) {
    for (const double step : {0.1, 0.2, 0.5, 1.0, 2.0, 5.0, 10.0, 30.0, 60.0, 120.0, 300.0, 600.0, 1800.0})
        if (step * c.PixelsPerSecond() >= c.Scaled(70)) return step;
    return 3600.0;
}

// Below the tracks.
void PaintGrid(const Canvas& c, const Project& project) {
    const int top = c.layout.rulerHeight;
    const double step = GridStep(c);
    for (double i = std::ceil(c.view.start / step); i * step <= c.view.end; ++i)
        c.Line(c.X(i * step), top, c.X(i * step), c.Height(), GridLine, 0.05f, false);
    for (const Marker& marker : project.markers)
        c.Line(c.X(marker.start), top, c.X(marker.start), c.Height(), RegionColour, 0.6f, false);
}

void PaintRuler(const Canvas& c, const Project& project) {
    const int height = c.layout.rulerHeight;
    c.Fill(0, 0, c.Width(), height, RulerColour);
    const double step = GridStep(c);
    for (double i = std::ceil(c.view.start / step); i * step <= c.view.end; ++i) {
        const double time = i * step;
        const int x = c.X(time);
        const int minutes = static_cast<int>(time / 60);
        char label[32];
        step < 1 ? std::snprintf(label, sizeof label, "%d:%04.1f", minutes, std::fmod(time + 1e-9, 60))
                 : std::snprintf(label, sizeof label, "%d:%02d", minutes, static_cast<int>(std::fmod(time, 60)));
        c.Line(x, height - c.Scaled(6), x, height - 1, DimText, 1.0f, false);
        Write(c, label, {x + c.Scaled(4), height - c.Scaled(18), c.Width(), height}, DimText, 11, 400);
    }
    for (const Marker& marker : project.markers) {
        const int x = c.X(marker.start), end = marker.isRegion ? c.X(marker.end) : x + 2;
        c.Fill(x, c.Scaled(3), std::max(2, end - x), c.Scaled(18), RegionColour);
        c.Line(x, c.Scaled(3), x, height - 1, RegionColour, 0.6f, false);
        if (marker.isRegion) Write(c, marker.name, {x + c.Scaled(5), c.Scaled(4), end - 3, c.Scaled(20)}, BrightText);
    }
}

struct Peak {
    double low = 0, high = 0;
};

// The extremes of what the item plays in each of the columns from x0 on, each `step` seconds wide.
std::vector<Peak> Peaks(const Item& item, const Take* take, double from, double step, int columns, int columnFrames) {
    std::vector<Peak> peaks(std::max(columns, 0));
    if (!take || !take->source || take->source->SampleRate() <= 0) return peaks;
    const int rate = take->source->SampleRate(), channels = take->source->Channels();
    const bool sparse = columnFrames > 0 && step * rate > columnFrames;
    constexpr int pieces = 8;
    const int block = sparse ? std::max(1, columnFrames / pieces) : 8192;
    std::vector<double> samples(static_cast<size_t>(block) * channels);
    for (size_t i = 0; i < peaks.size(); ++i) {
        const double start = from + i * step;
        // On whole frames, each column from where the last one ended, so that a packed recording is read in one go.
        const double first = std::floor(start * rate),
                     frames = std::clamp(std::floor((start + step) * rate) - first, 1.0, 2e9);
        const double hop = sparse ? std::max(1.0, std::floor(frames / pieces)) : block;
        for (double done = 0; done < frames; done += hop) {
            const int n = static_cast<int>(std::min<double>(block, frames - done));
            if (!ReadTake(*take, rate, channels, (first + done) / rate, n, samples.data())) break;
            const auto [low, high] =
                std::minmax_element(samples.begin(), samples.begin() + static_cast<size_t>(n) * channels);
            peaks[i].low = std::min(peaks[i].low, *low);
            peaks[i].high = std::max(peaks[i].high, *high);
        }
        const double factor = item.Fades().At(start + step / 2);
        peaks[i] = {peaks[i].low * factor, peaks[i].high * factor};
    }
    return peaks;
}

// A fade that is too short to be seen as one would only hide the sound.
void PaintFade(const Canvas& c, double from, double to, int top, int bottom) {
    constexpr int narrowest = 4;
    if (std::abs(c.X(to) - c.X(from)) >= narrowest) c.Line(c.X(from), bottom, c.X(to), top, FadeColour, 0.9f, true);
}

// After all items, because the later of two that are crossfaded covers the earlier one's end.
void PaintFades(const Canvas& c, const Item& item, int top, int height) {
    PaintFade(c, item.position, item.position + std::max(0.0, item.fadeIn), top, top + height - 1);
    PaintFade(c, item.End(), item.End() - std::max(0.0, item.fadeOut), top, top + height - 1);
}

LICE_pixel Tint(double native) {
    const int colour = static_cast<int>(native);
    return LICE_RGBA(colour & 255, colour >> 8 & 255, colour >> 16 & 255, 255);
}

// What the take shows of its item, in the columns from left on.
void PaintTake(const Canvas& c, const Item& item, const Take* take, RECT place, float strength, bool ground) {
    const int left = place.left, width = place.right - left, top = place.top, height = place.bottom - top;
    const int title = height < c.Scaled(40) ? 0 : c.Scaled(16);
    const double colour = item.colour ? item.colour : item.track->colour;
    const LICE_pixel body = colour ? Tint(colour) : ItemColour;
    const bool light = (body >> 16 & 255) + (body >> 8 & 255) + (body & 255) > 3 * 140;
    const LICE_pixel wave = light ? DarkWave : WaveColour, text = light ? Divider : BrightText;
    if (ground) c.Fill(left, top, width, height, body, strength);
    if (ground) c.Fill(left, top, width, title, light ? 0xFFFFFFFF : 0xFF000000, 0.25f);

    const int middle = top + title + (height - title) / 2, reach = (height - title) / 2 - 2;
    // No sound from outside the item, however short it is.
    const double from = std::max(0.0, c.TimeAt(left) - item.position);
    const double step = std::min(1 / c.PixelsPerSecond(), item.length);
    const std::vector<Peak> peaks = Peaks(item, take, from, step, width, c.layout.columnFrames);
    const auto y = [&](double level) { return middle - static_cast<int>(std::clamp(level, -1.0, 1.0) * reach); };
    for (int i = 0; i < width; ++i)
        c.Fill(left + i, y(peaks[i].high), 1, y(peaks[i].low) - y(peaks[i].high) + 1, wave, strength);
    if (take && take->volumeEnvelope) c.Fill(left, y(0.5), width, 2, EnvelopeColour, strength);
    if (title && width > c.Scaled(24))
        Write(c, BaseName(take ? take->name : ""), {left + c.Scaled(5), top + 1, place.right - 3, top + title}, text,
              11);
}

// Pieces in order of their starts. A column that several share is the first one's, up to `painted`. The others add
// their sound and no ground, so that the smallest pieces leave a waveform too.
void PaintItem(const Canvas& c, const Item& item, int top, int height, int& painted) {
    const int right = std::min(c.X(item.End()), c.Width());
    int left = std::max(c.X(item.position), c.layout.headerWidth);
    if (c.X(item.End()) < c.layout.headerWidth || left >= c.Width()) return;
    const bool shared = left == painted - 1, ground = !shared || right - left > 1;
    if (shared && ground) ++left;
    const int width = std::max(right - left, 1);
    painted = std::max(painted, left + width);
    const float strength = item.mute ? 0.4f : 1.0f;
    const int lanes = c.layout.takesInLanes ? std::max(1, static_cast<int>(item.takes.size())) : 1;
    for (int i = 0; i < lanes; ++i) {
        const bool active = lanes == 1 || i == item.activeTake;
        const RECT place = {left, top + height * i / lanes, left + width, top + height * (i + 1) / lanes};
        const Take* take = active ? item.Active() : &*item.takes[i];
        PaintTake(c, item, take, place, active ? strength : 0.5f * strength, ground);
    }
    // Of an item that is only a sliver, its edges would be all that one sees.
    const bool sliver = width < 8;
    if (item.selected && sliver) c.Fill(left, top, width, 2, BrightText);
    if (item.selected && !sliver)
        LICE_DrawRect(c.bm, left, top, width - 1, height - 1, BrightText, 0.9f, LICE_BLIT_MODE_COPY);
    if (!sliver) c.Line(left, top, left, top + height - 1, Divider, 1.0f, false);
}

void PaintTrack(const Canvas& c, const Track& track, Lane lane) {
    const int top = lane.top, height = lane.bottom - top - 2, header = c.layout.headerWidth;
    const bool low = height < c.Scaled(48);
    int painted = 0;
    for (const Box<Item>& item : track.items) PaintItem(c, *item, top + 4, height - 8, painted);
    for (const Box<Item>& item : track.items) PaintFades(c, *item, top + 4, height - 8);
    c.Fill(0, top, header, height, HeaderColour);
    c.Fill(0, top, c.Scaled(4), height, track.colour ? Tint(track.colour) : SelectionColour,
           track.selected ? 1.0f : 0.5f);
    const int margin = c.Scaled(12), nameX = low ? c.Scaled(34) : margin, nameY = top + c.Scaled(low ? 7 : 26);
    Write(c, std::to_string(track.index + 1), {margin, top + c.Scaled(8), header, top + c.Scaled(26)}, DimText, 11,
          400);
    Write(c, BaseName(track.name), {nameX, nameY, header - c.Scaled(6), top + c.Scaled(46)}, BrightText);
    if (track.armed)
        LICE_FillCircle(c.bm, static_cast<float>(header - c.Scaled(16)), static_cast<float>(top + c.Scaled(18)),
                        static_cast<float>(c.Scaled(5)), 0xFFD94040, 1.0f, LICE_BLIT_MODE_COPY, true);
    c.Fill(0, top + height, c.Width(), 2, Divider);
}

}  // namespace

Lane LaneOf(const Project& project, const Track& track, const ArrangementLayout& layout) {
    Lane lane = {0, layout.rulerHeight - layout.scrolled};
    for (int i = 0; i <= track.index; ++i) {
        const double own = project.tracks.All()[i]->height;
        lane = {lane.bottom, lane.bottom + (own > 0 ? static_cast<int>(std::clamp(own, 24 * layout.scale, 2000.0))
                                                    : layout.laneHeight)};
    }
    return lane;
}

int ArrangementHeight(const Project& project, const ArrangementLayout& layout) {
    const auto& tracks = project.tracks.All();
    return tracks.empty() ? layout.rulerHeight + layout.laneHeight
                          : LaneOf(project, *tracks.back(), layout).bottom + layout.scrolled;
}

void PaintArrangement(const Project& project, LICE_IBitmap* bitmap, TimeRange view, const ArrangementLayout& layout) {
    if (!bitmap || !(view.end > view.start)) return;
    const Canvas c = {bitmap, view, layout};
    LICE_Clear(bitmap, Ground);
    for (const Box<Track>& track : project.tracks.All()) {
        const Lane lane = LaneOf(project, *track, layout);
        c.Fill(0, lane.top, c.Width(), lane.bottom - lane.top - 2, LaneColour);
    }
    PaintGrid(c, project);
    for (const Box<Track>& track : project.tracks.All()) {
        const Lane lane = LaneOf(project, *track, layout);
        if (lane.bottom > layout.rulerHeight && lane.top < c.Height()) PaintTrack(c, *track, lane);
    }
    PaintRuler(c, project);
    const auto [start, end] = project.timeSelection;
    if (end > start) {
        const int x = std::max(c.X(start), layout.headerWidth);
        c.Fill(x, 0, c.X(end) - x, c.Height(), SelectionColour, 0.15f);
    }
    if (const int x = c.X(project.cursor); x >= layout.headerWidth)
        c.Line(x, 0, x, c.Height(), CursorColour, 1.0f, false);
}
