#include "apps/fatiar/lists.h"

#include <algorithm>
#include <cmath>
#include <ctime>
#include <filesystem>

#include "apps/common/host_project.h"
#include "apps/common/tool.h"
#include "apps/fatiar/paths.h"
#include "apps/fatiar/text.h"

namespace fs = std::filesystem;

namespace {

std::vector<std::string> AsLabels(const std::vector<ListedCut>& cuts, FrameRate) {
    std::string text;
    int number = 0;
    for (const Span& span : WithoutOverlaps(cuts.front().cut))
        text += Formatted("%.6f\t%.6f\t%d\n", span.source, span.source + span.end - span.start, ++number);
    return {text};
}

std::vector<std::string> AsConcat(const std::vector<ListedCut>& cuts, FrameRate) {
    std::string file = "file '";
    for (const char c : cuts.front().reference) file += c == '\'' ? std::string(R"('\'')") : std::string(1, c);
    std::string text = "ffconcat version 1.0\n";
    for (const Span& span : WithoutOverlaps(cuts.front().cut))
        text += file + Formatted("'\ninpoint %.6f\noutpoint %.6f\n", span.source, span.source + span.end - span.start);
    return {text};
}

// One piece on a video's frames: from which of the source's on, and where. Starts are rounded from their absolute
// times, and a piece gets the frames up to its end; so nothing drifts. A piece shorter than a frame may vanish.
struct Shot {
    int64_t source, start, length;
};

std::vector<Shot> Shots(const Cut& cut, FrameRate rate) {
    const double perSecond = static_cast<double>(rate.frames) / rate.seconds;
    const auto there = static_cast<int64_t>(std::ceil(cut.Seconds(cut.recorded) * perSecond));
    std::vector<Shot> shots;
    for (const Span& span : WithoutOverlaps(cut)) {
        const int64_t start = std::llround(span.start * perSecond), length = std::llround(span.end * perSecond) - start;
        if (length <= 0) continue;
        // Around the piece's middle, so that neither end is more than a frame off.
        const double middle = (span.source + (span.end - span.start) / 2) * perSecond;
        const int64_t source = std::llround(middle - static_cast<double>(length) / 2);
        shots.push_back({std::clamp<int64_t>(source, 0, std::max<int64_t>(0, there - length)), start, length});
    }
    return shots;
}

std::string TimeCode(int64_t frame, FrameRate rate) {
    const int base = (rate.frames + rate.seconds / 2) / rate.seconds;  // 29.97 counts to 30, and drops none
    const auto seconds = static_cast<int>(frame / base), rest = static_cast<int>(frame % base);
    return Formatted("%02d:%02d:%02d:%02d", seconds / 3600, seconds / 60 % 60, seconds % 60, rest);
}

std::vector<std::string> AsEdl(const std::vector<ListedCut>& cuts, FrameRate rate) {
    constexpr int mostEvents = 999;
    const auto& [cut, channels, name, reference] = cuts.front();
    const char* const kind = KindOf(reference) == FileKind::Video ? "AA/V" : channels == 1 ? "A" : "AA";
    const std::string clip = OnOneLine(FileName(reference));
    const std::string head = "TITLE: " + OnOneLine(name) + "\nFCM: NON-DROP FRAME\n";
    std::vector<std::string> texts = {head};
    int event = 0;
    for (const auto& [source, start, length] : Shots(cut, rate)) {
        if (event == mostEvents) {
            texts.push_back(head);
            event = 0;
        }
        const std::string times = TimeCode(source, rate) + ' ' + TimeCode(source + length, rate) + ' ' +
                                  TimeCode(start, rate) + ' ' + TimeCode(start + length, rate);
        texts.back() += Formatted("\n%03d  AX       %-5s C        ", ++event, kind) += times;
        texts.back().append("\n* FROM CLIP NAME: ").append(clip) += '\n';
    }
    return texts;
}

// Of the characters that XML 1.0 cannot hold at all, none is let through.
std::string Escaped(const std::string& text) {
    std::string escaped;
    for (const char c : text)
        escaped += c == '&'   ? "&amp;"
                   : c == '<' ? "&lt;"
                   : c == '"' ? "&quot;"
                              : std::string(1, static_cast<unsigned char>(c) < 32 ? '?' : c);
    return escaped;
}

std::vector<std::string> AsMlt(const std::vector<ListedCut>& cuts, FrameRate rate) {
    const ListedCut& listed = cuts.front();
    std::string text = "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<mlt LC_NUMERIC=\"C\" title=\"" +
                       Escaped(listed.name) + "\" producer=\"final\">\n";
    text += Formatted(
        "  <profile description=\"fatiar\" width=\"1920\" height=\"1080\" progressive=\"1\" sample_aspect_num=\"1\" "
        "sample_aspect_den=\"1\" display_aspect_num=\"16\" display_aspect_den=\"9\" frame_rate_num=\"%d\" "
        "frame_rate_den=\"%d\" colorspace=\"709\"/>\n",
        rate.frames, rate.seconds);
    text += "  <producer id=\"gravacao\">\n    <property name=\"resource\">" + Escaped(listed.reference) +
            "</property>\n    <property name=\"mlt_service\">avformat</property>\n  </producer>\n"
            "  <playlist id=\"pedacos\">\n";
    int64_t at = 0;
    for (const auto& [source, start, length] : Shots(listed.cut, rate)) {
        if (start > at) text += Formatted("    <blank length=\"%jd\"/>\n", intmax_t{start - at});
        text += Formatted("    <entry producer=\"gravacao\" in=\"%jd\" out=\"%jd\"/>\n", intmax_t{source},
                          intmax_t{source + length - 1});
        at = start + length;
    }
    return {text +
            "  </playlist>\n  <tractor id=\"final\">\n    <track producer=\"pedacos\"/>\n  </tractor>\n</mlt>\n"};
}

std::vector<std::string> AsHostProject(const std::vector<ListedCut>& cuts, FrameRate) {
    std::vector<ProjectTrack> tracks;
    for (const auto& [cut, channels, name, reference] : cuts) {
        ProjectTrack& track = tracks.emplace_back(ProjectTrack{OnOneLine(name), {}});
        const std::string file = OnOneLine(reference);
        for (const Piece& piece : cut.pieces)
            track.items.push_back({piece.position, cut.Seconds(piece.length), cut.Seconds(piece.source), 1,
                                   piece.fadeIn, piece.fadeOut, FileName(file), file});
    }
    return {HostProjectText(cuts.front().cut.rate, std::time(nullptr), tracks)};
}

constexpr ListFormat Formats[] = {{"rotulos", "txt", false, AsLabels},
                                  {"ffconcat", "ffconcat", false, AsConcat},
                                  {"mlt", "mlt", false, AsMlt},
                                  {"edl", "edl", false, AsEdl},
                                  {"rpp", "rpp", true, AsHostProject}};

}  // namespace

const ListFormat* FindListFormat(const std::string& name) {
    const auto found =
        std::find_if(std::begin(Formats), std::end(Formats), [&](const auto& f) { return f.name == name; });
    return found == std::end(Formats) ? nullptr : found;
}

std::string ReferenceTo(const std::string& path, const std::string& listPath) {
    if (IsForeign(path)) return path;
    const fs::path target = fs::absolute(path).lexically_normal();
    const fs::path folder = fs::absolute(listPath).parent_path().lexically_normal();
    const std::string relative = target.lexically_relative(folder).string();
    return relative.empty() || relative.starts_with("..") ? target.string() : relative;
}
