#include "apps/fatiar/lists.h"
#include "apps/fatiar/text.h"

// Of the characters that XML 1.0 cannot hold at all, none is let through.
static std::string Escaped(const std::string& text) {
    std::string escaped;
    for (const char c : text) switch (c) {
            case '&':
                escaped += "&amp;";
                break;
            case '<':
                escaped += "&lt;";
                break;
            case '"':
                escaped += "&quot;";
                break;
            default:
                escaped += static_cast<unsigned char>(c) < 32 ? '?' : c;
        }
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
