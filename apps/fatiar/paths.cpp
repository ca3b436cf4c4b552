#include "apps/fatiar/paths.h"

#include <algorithm>
#include <cctype>
#include <map>
#include <set>

static const std::map<FileKind, std::set<std::string>> Endings = {
    {FileKind::Wav, {"wav", "wave", "rf64"}},
    {FileKind::Flac, {"flac"}},
    {FileKind::Sound, {"aif", "aiff", "aifc", "mp3", "ogg", "oga", "opus", "w64", "caf", "au", "snd", "voc", "mp2"}},
    {FileKind::Video,
     {"m4a", "aac", "wma", "mp4", "m4v", "mov", "mkv", "webm", "avi", "mpg", "mpeg", "mts", "m2ts", "ts", "wmv", "flv",
      "mxf", "3gp", "ogv"}},
};

FileKind KindOf(const std::string& path) {
    const size_t dot = path.find_last_of("./\\");
    if (dot == std::string::npos || path[dot] != '.') return FileKind::Other;
    std::string ending = path.substr(dot + 1);
    std::transform(ending.begin(), ending.end(), ending.begin(), [](unsigned char c) { return std::tolower(c); });
    for (const auto& [kind, endings] : Endings)
        if (endings.contains(ending)) return kind;
    return FileKind::Other;
}

bool IsForeign(const std::string& path) {
    return path.find("://") != std::string::npos || path.starts_with("\\\\") || path.find(":\\") == 1;
}

std::string FileName(const std::string& path) {
    return path.substr(path.find_last_of(IsForeign(path) ? "/\\" : "/") + 1);
}
