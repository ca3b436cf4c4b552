#include "apps/common/render.h"

#include <algorithm>
#include <cstring>
#include <set>

#include "platform/files.h"

using simhost::Marker, simhost::Project;

namespace {

struct Part {
    std::string region;  // its name, for $region
    double start, end;
};

enum Bounds { Custom, WholeProject, TimeSelection, AllRegions };  // values of RENDER_BOUNDSFLAG

// A setting above 0 as a whole number; for any other, what stands for "not set".
int Setting(const Project& project, const char* key, int otherwise) {
    const double value = project.numbers.at(key);
    return value > 0 ? static_cast<int>(std::min(value, 1e6)) : otherwise;
}

std::vector<Part> PartsToRender(const Project& project) {
    std::vector<Part> parts;
    switch (Setting(project, "RENDER_BOUNDSFLAG", Custom)) {
        case Custom:
            parts.push_back({"", project.numbers.at("RENDER_STARTPOS"), project.numbers.at("RENDER_ENDPOS")});
            break;
        case TimeSelection:
            parts.push_back({"", project.timeSelection.start, project.timeSelection.end});
            break;
        case AllRegions:
            for (const Marker& marker : project.markers)
                if (marker.isRegion) parts.push_back({marker.name, marker.start, marker.end});
            break;
        default:
            parts.push_back({"", 0, ProjectEnd(project)});
    }
    return parts;
}

std::string FileName(const std::string& pattern, const std::string& region) {
    constexpr char wildcard[] = "$region";
    std::string name = pattern;
    for (size_t at = 0; (at = name.find(wildcard, at)) != std::string::npos; at += region.size())
        name.replace(at, sizeof wildcard - 1, region);
    std::replace_if(
        name.begin(), name.end(), [](char c) { return (c >= 0 && c < ' ') || std::strchr("\"*/:<>?\\|", c); }, '_');
    return name.empty() ? "untitled" : name;
}

// The format records are base64 of four letters, written backwards, and their settings.
std::vector<const char*> Endings(const Project& project) {
    std::vector<const char*> endings;
    for (const char* key : {"RENDER_FORMAT", "RENDER_FORMAT2"}) {
        const std::string& record = project.texts.at(key);
        if (record.starts_with("ZXZhd")) endings.push_back(".wav");  // evaw
        if (record.starts_with("bDNwb")) endings.push_back(".mp3");  // l3pm
    }
    if (endings.empty()) endings.push_back(".wav");
    return endings;
}

}  // namespace

std::vector<RenderedFile> FilesToRender(const Project& project) {
    const std::string& file = project.texts.at("RENDER_FILE");
    const std::string folder = file.empty() ? file : file + PathSeparator;
    std::set<std::string> taken;
    std::vector<RenderedFile> files;
    for (const Part& part : PartsToRender(project)) {
        const std::string wanted = FileName(project.texts.at("RENDER_PATTERN"), part.region);
        std::string name = wanted;
        for (int i = 2; !taken.insert(name).second; ++i) name = wanted + '-' + std::to_string(i);
        for (const char* ending : Endings(project))
            files.push_back({folder + name + ending,
                             simhost::MixRange{Setting(project, "RENDER_SRATE", 44100),
                                               Setting(project, "RENDER_CHANNELS", 2), part.start, part.end}});
    }
    return files;
}
