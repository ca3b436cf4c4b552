#include <ctime>

#include "apps/common/tool.h"
#include "apps/fatiar/lists.h"
#include "apps/fatiar/paths.h"
#include "apps/fatiar/text.h"

static std::string Quoted(std::string text) {
    for (const char quote : {'"', '\'', '`'})
        if (text.find(quote) == std::string::npos) return quote + text + quote;
    for (char& c : text)
        if (c == '`') c = '\'';  // all three cannot be said
    return '`' + text + '`';
}

static std::string Name(const std::string& path) {
    const std::string name = OnOneLine(FileName(path));
    return name.empty() || name.find_first_of(" \"'`") != std::string::npos ? Quoted(name) : name;
}

static const char* SourceKind(const std::string& reference) {
    switch (KindOf(reference)) {
        case FileKind::Wav:
        case FileKind::Aiff:
            return "WAVE";
        case FileKind::Flac:
            return "FLAC";
        case FileKind::Mp3:
            return "MP3";
        case FileKind::Ogg:
            return "VORBIS";
        default:
            return "VIDEO";
    }
}

static std::string AsItem(const ListedCut& listed, const Piece& piece) {
    const auto seconds = [&listed](int64_t frames) { return Decimal(listed.cut.Seconds(frames)); };
    return "    <ITEM\n      POSITION " + Decimal(piece.position) + "\n      SNAPOFFS 0\n      LENGTH " +
           seconds(piece.length) + "\n      LOOP 0\n      ALLTAKES 0\n      FADEIN 0 " + Decimal(piece.fadeIn) +
           " 0 1 0 0 0\n      FADEOUT 0 " + Decimal(piece.fadeOut) +
           " 0 1 0 0 0\n      MUTE 0 0\n      SEL 0\n      NAME " + Name(listed.reference) +
           "\n      VOLPAN 1 0 1 -1\n      SOFFS " + seconds(piece.source) +
           "\n      PLAYRATE 1 1 0 -1 0 0.0025\n      CHANMODE 0\n      <SOURCE " + SourceKind(listed.reference) +
           "\n        FILE " + Quoted(OnOneLine(listed.reference)) + "\n      >\n    >\n";
}

std::vector<std::string> AsHostProject(const std::vector<ListedCut>& cuts, FrameRate) {
    std::string text = Formatted("<REAPER_PROJECT 0.1 \"6.0\" %jd\n  SAMPLERATE %d 0 0\n", intmax_t{std::time(nullptr)},
                                 cuts.front().cut.rate);
    for (const ListedCut& listed : cuts) {
        text += "  <TRACK\n    NAME " + Name(listed.name) + "\n";
        for (const Piece& piece : listed.cut.pieces) text += AsItem(listed, piece);
        text += "  >\n";
    }
    return {text + ">\n"};
}
