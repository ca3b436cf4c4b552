#include "apps/fatiar/paths.h"

#include <algorithm>
#include <cctype>

static constexpr std::pair<const char*, FileKind> Endings[] = {
    {"wav", FileKind::Wav},    {"wave", FileKind::Wav},   {"rf64", FileKind::Wav},  {"flac", FileKind::Flac},
    {"aif", FileKind::Aiff},   {"aiff", FileKind::Aiff},  {"aifc", FileKind::Aiff}, {"mp3", FileKind::Mp3},
    {"ogg", FileKind::Ogg},    {"oga", FileKind::Ogg},    {"opus", FileKind::Ogg},  {"w64", FileKind::Sound},
    {"caf", FileKind::Sound},  {"au", FileKind::Sound},   {"snd", FileKind::Sound}, {"voc", FileKind::Sound},
    {"mp2", FileKind::Sound},  {"m4a", FileKind::Video},  {"aac", FileKind::Video}, {"wma", FileKind::Video},
    {"mp4", FileKind::Video},  {"m4v", FileKind::Video},  {"mov", FileKind::Video}, {"mkv", FileKind::Video},
    {"webm", FileKind::Video}, {"avi", FileKind::Video},  {"mpg", FileKind::Video}, {"mpeg", FileKind::Video},
    {"mts", FileKind::Video},  {"m2ts", FileKind::Video}, {"ts", FileKind::Video},  {"wmv", FileKind::Video},
    {"flv", FileKind::Video},  {"mxf", FileKind::Video},  {"3gp", FileKind::Video}, {"ogv", FileKind::Video},
};

FileKind KindOf(const std::string& path) {
    const size_t dot = path.find_last_of("./\\");
    if (dot == std::string::npos || path[dot] != '.') return FileKind::Other;
    std::string ending = path.substr(dot + 1);
    std::transform(ending.begin(), ending.end(), ending.begin(), [](unsigned char c) { return std::tolower(c); });
    const auto found =
        std::find_if(std::begin(Endings), std::end(Endings), [&](const auto& e) { return e.first == ending; });
    return found == std::end(Endings) ? FileKind::Other : found->second;
}

bool IsForeign(const std::string& path) {
    return path.find("://") != std::string::npos || path.starts_with("\\\\") || path.find(":\\") == 1;
}

std::string FileName(const std::string& path) {
    return path.substr(path.find_last_of(IsForeign(path) ? "/\\" : "/") + 1);
}
