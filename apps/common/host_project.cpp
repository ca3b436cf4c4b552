#include "apps/common/host_project.h"

#include <algorithm>
#include <charconv>

namespace {

std::string Quoted(std::string text) {
    for (char& c : text)
        if (static_cast<unsigned char>(c) < ' ') c = ' ';  // a text is one line
    for (const char quote : {'"', '\'', '`'})
        if (text.find(quote) == std::string::npos) return quote + text + quote;
    std::replace(text.begin(), text.end(), '`', '\'');  // all three cannot be said
    return '`' + text + '`';
}

std::string Name(const std::string& name) {
    return name.empty() || name.find_first_of(" \t\r\n\"'`") != std::string::npos ? Quoted(name) : name;
}

const char* SourceKind(const std::string& file) {
    constexpr struct {
        const char *ending, *kind;
    } kinds[] = {{".wav", "WAVE"},   {".wave", "WAVE"},  {".rf64", "WAVE"},  {".aif", "WAVE"},
                 {".aiff", "WAVE"},  {".aifc", "WAVE"},  {".flac", "FLAC"},  {".mp3", "MP3"},
                 {".ogg", "VORBIS"}, {".oga", "VORBIS"}, {".opus", "VORBIS"}};
    std::string lower = file;
    for (char& c : lower)
        if (c >= 'A' && c <= 'Z') c += 'a' - 'A';
    for (const auto& [ending, kind] : kinds)
        if (lower.ends_with(ending)) return kind;
    return "VIDEO";
}

std::string Text(const ProjectItem& item) {
    return "    <ITEM\n      POSITION " + Decimal(item.position) + "\n      SNAPOFFS 0\n      LENGTH " +
           Decimal(item.length) + "\n      LOOP 0\n      ALLTAKES 0\n      FADEIN 0 " + Decimal(item.fadeIn) +
           " 0 1 0 0 0\n      FADEOUT 0 " + Decimal(item.fadeOut) + " 0 1 0 0 0\n      MUTE " +
           (item.mute ? "1" : "0") + " 0\n      SEL " + (item.selected ? "1" : "0") + "\n      NAME " +
           Name(item.name) + "\n      VOLPAN 1 0 1 -1\n      SOFFS " + Decimal(item.offset) + "\n      PLAYRATE " +
           Decimal(item.rate) + " 1 0 -1 0 0.0025\n      CHANMODE 0\n      <SOURCE " + SourceKind(item.file) +
           "\n        FILE " + Quoted(item.file) + "\n      >\n    >\n";
}

}  // namespace

std::string Decimal(double value) {
    char text[400];  // room for the largest
    std::string decimal(text, std::to_chars(text, text + sizeof text, value, std::chars_format::fixed, 9).ptr);
    decimal.erase(decimal.find_last_not_of('0') + 1);
    if (decimal.ends_with('.')) decimal.pop_back();
    return decimal;
}

std::string HostProjectText(int rate, int64_t time, const std::vector<ProjectTrack>& tracks) {
    std::string text =
        "<REAPER_PROJECT 0.1 \"6.0\" " + std::to_string(time) + "\n  SAMPLERATE " + std::to_string(rate) + " 0 0\n";
    for (const ProjectTrack& track : tracks) {
        text += "  <TRACK\n    NAME " + Name(track.name) + "\n";
        for (const ProjectItem& item : track.items) text += Text(item);
        text += "  >\n";
    }
    return text + ">\n";
}
