#include "tests/support/portrait.h"

#include <cstdio>

#include "simhost/host.h"

using namespace simhost;

std::string Numero(double value) {
    char text[32];
    std::snprintf(text, sizeof text, "%.9g", value);
    return std::string(text) == "-0" ? "0" : text;
}

static std::string Range(double start, double end) { return Numero(start) + '-' + Numero(end); }

// A colour as ColorToNative makes it, red lowest, with the flag that it is in use.
static std::string Colour(double value) {
    const auto colour = static_cast<int>(value);
    if (!(colour & 0x1000000)) return "#raw " + std::to_string(colour);
    char text[16];
    std::snprintf(text, sizeof text, "#%02x%02x%02x", colour & 255, colour >> 8 & 255, colour >> 16 & 255);
    return text;
}

static std::string Portrait(const Item& item, bool complete) {
    const Take* take = item.Active();
    std::string text = item.Name() + ' ' + Range(item.position, item.End());
    const auto mark = [&text](bool present, const std::string& words) {
        if (present) text += ' ' + words;
    };
    if (take) {
        mark(take->startOffset != 0, '@' + Numero(take->startOffset));
        mark(take->playRate != 1, 'x' + Numero(take->playRate));
    }
    mark(item.takes.size() > 1,
         "take " + std::to_string(item.activeTake + 1) + '/' + std::to_string(item.takes.size()));
    mark(item.fadeIn >= 0, "~/" + Numero(item.fadeIn));
    mark(item.fadeOut >= 0, "~\\" + Numero(item.fadeOut));
    mark(item.mute != 0, "mute");
    mark(item.lock != 0, "lock");
    mark(take && take->volumeEnvelope, "envelope");
    mark(take && take->source && take->source->IsMidi(), "midi");
    mark(!take, "no take");
    mark(take && !take->source, "no source");
    mark(item.colour != 0, Colour(item.colour));
    mark(complete && item.selected, "*");
    return text;
}

static std::string Portrait(const Track& track, bool complete) {
    std::string marks;
    const auto mark = [&marks](bool present, const std::string& words) {
        if (present) marks += (marks.empty() ? "" : ", ") + words;
    };
    mark(track.armed != 0, "armed" + (track.armed != 1 ? ' ' + Numero(track.armed) : ""));
    mark(track.fxEnabled == 0, "fx off");
    mark(track.height != 0, "height " + Numero(track.height));
    mark(track.colour != 0, Colour(track.colour));
    mark(complete && track.selected, "selected");
    std::string text = track.name + (marks.empty() ? "" : " (" + marks + ")") + ':';
    const char* bar = " ";
    for (const Box<Item>& item : track.items) {
        text += bar + Portrait(*item, complete);
        bar = " | ";
    }
    return text;
}

static std::string Portrait(const Host& host, bool complete) {
    std::string text;
    const Project& project = host.project;
    for (const Box<Track>& track : project.tracks.All())
        text += (text.empty() ? "" : " / ") + Portrait(*track, complete);
    const auto append = [&text](const std::string& words) { text += (text.empty() ? "" : " ") + words; };
    for (const Marker& marker : project.markers) {
        std::string words = (marker.isRegion ? "[R" : "[M") + std::to_string(marker.number) + ' ';
        if (!marker.name.empty()) words += marker.name + ' ';
        words += marker.isRegion ? Range(marker.start, marker.end) : Numero(marker.start);
        if (marker.colour) words += ' ' + Colour(marker.colour);
        append(words + ']');
    }
    if (!complete) return text;
    const Project fresh;
    const auto range = [&](const char* name, const TimeRange& now, const TimeRange& plain) {
        if (now != plain) append(std::string("{") + name + ' ' + Range(now.start, now.end) + '}');
    };
    if (project.cursor != 0) append("{cursor " + Numero(project.cursor) + '}');
    range("time", project.timeSelection, fresh.timeSelection);
    range("loop", project.loop, fresh.loop);
    range("view", project.view, fresh.view);
    if (host.transport.state) append("{play " + std::to_string(host.transport.state) + '}');
    return text;
}

std::string Retrato() { return Portrait(Host::Current(), false); }

std::string RetratoCompleto() { return Portrait(Host::Current(), true); }
