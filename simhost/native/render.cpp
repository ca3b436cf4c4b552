#include "simhost/native/render.h"

#include <algorithm>
#include <cmath>
#include <filesystem>

#include "simhost/mixdown.h"
#include "simhost/native/audio_file.h"

namespace simhost {

namespace {

struct Stretch {
    std::string region;  // its name, for $region
    double start, end;
};

enum Bounds { Custom, WholeProject, TimeSelection, AllRegions };  // values of RENDER_BOUNDSFLAG

std::vector<Stretch> Stretches(const Project& project) {
    std::vector<Stretch> stretches;
    switch (static_cast<int>(project.numbers.at("RENDER_BOUNDSFLAG"))) {
        case Custom:
            stretches.push_back({"", project.numbers.at("RENDER_STARTPOS"), project.numbers.at("RENDER_ENDPOS")});
            break;
        case TimeSelection:
            stretches.push_back({"", project.timeSelection.start, project.timeSelection.end});
            break;
        case AllRegions:
            for (const Marker& marker : project.markers)
                if (marker.isRegion) stretches.push_back({marker.name, marker.start, marker.end});
            break;
        default:
            stretches.push_back({"", 0, ProjectEnd(project)});
    }
    return stretches;
}

std::string FileName(const std::string& pattern, const std::string& region) {
    constexpr char wildcard[] = "$region";
    std::string name = pattern;
    for (size_t at; (at = name.find(wildcard)) != std::string::npos;) name.replace(at, sizeof wildcard - 1, region);
    std::replace_if(
        name.begin(), name.end(), [](char c) { return c == '/' || c == '\\'; }, '_');
    return name.empty() ? "untitled" : name;
}

struct Kind {
    AudioFormat format;
    const char* ending;
};

// The format records are base64 of four letters, written backwards, and their settings.
std::vector<Kind> Kinds(const Project& project) {
    std::vector<Kind> kinds;
    for (const char* key : {"RENDER_FORMAT", "RENDER_FORMAT2"}) {
        const std::string& record = project.texts.at(key);
        if (record.starts_with("ZXZhd")) kinds.push_back({AudioFormat::Wav, ".wav"});  // evaw
        if (record.starts_with("bDNwb")) kinds.push_back({AudioFormat::Mp3, ".mp3"});  // l3pm
    }
    if (kinds.empty()) kinds.push_back({AudioFormat::Wav, ".wav"});
    return kinds;
}

void Render(Host& host) {
    const Project& project = host.project;
    const auto setting = [&project](const char* key, double otherwise) {
        const double value = project.numbers.at(key);
        return static_cast<int>(value > 0 ? value : otherwise);
    };
    const std::filesystem::path folder = project.texts.at("RENDER_FILE");
    for (const Stretch& stretch : Stretches(project)) {
        const MixRange range = {setting("RENDER_SRATE", 44100), setting("RENDER_CHANNELS", 2), stretch.start,
                                stretch.end};
        for (const Kind& kind : Kinds(project)) {
            const std::filesystem::path path =
                folder / (FileName(project.texts.at("RENDER_PATTERN"), stretch.region) + kind.ending);
            std::string error;
            const auto writer = AudioWriter::Create(path.string(), kind.format, range.rate, range.channels,
                                                    std::llround((range.end - range.start) * range.rate), &error);
            const bool written =
                writer &&
                MixProject(project, range,
                           [&writer](const double* block, int frames) { return writer->Write(block, frames); }) &&
                writer->Finish(&error);
            if (!written) return host.Violate("the render failed: " + error);
        }
    }
}

}  // namespace

void RenderToFiles(Host& host) {
    host.onRender = [&host](int) { Render(host); };
}

}  // namespace simhost
