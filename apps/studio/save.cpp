#include "apps/studio/save.h"

#include <algorithm>
#include <ctime>
#include <filesystem>

#include "apps/common/host_project.h"
#include "apps/common/text.h"
#include "apps/studio/wave_file.h"
#include "platform/files.h"

namespace {

// Takes without sound, and items without a take, stay out: there is no file to refer to.
const simhost::Take* Sounding(const simhost::Item& item) {
    const simhost::Take* take = item.Active();
    return take && take->source && !take->source->IsMidi() ? take : nullptr;
}

template <class FileOf>
std::vector<ProjectTrack> TracksOf(const simhost::Project& project, FileOf fileOf) {
    std::vector<ProjectTrack> tracks;
    for (const simhost::Box<simhost::Track>& track : project.tracks.All()) {
        ProjectTrack& told = tracks.emplace_back(ProjectTrack{track->name, {}});
        for (const simhost::Box<simhost::Item>& item : track->items)
            if (const simhost::Take* take = Sounding(*item))
                told.items.push_back({.position = item->position,
                                      .length = item->length,
                                      .offset = take->startOffset,
                                      .rate = take->playRate,
                                      .fadeIn = std::max(0.0, item->fadeIn),
                                      .fadeOut = std::max(0.0, item->fadeOut),
                                      .name = take->name,
                                      .file = fileOf(*take),
                                      .mute = item->mute != 0,
                                      .selected = item->selected});
    }
    return tracks;
}

// Beside the project, under its name, unless the take's begins with it, and the take's; numbered where there is such a
// file already.
std::string FreePath(const std::filesystem::path& project, std::string take) {
    for (char& c : take)
        if (static_cast<unsigned char>(c) < ' ' || std::string("<>:\"/\\|?*").find(c) != std::string::npos) c = '_';
    const std::wstring stem = project.stem().wstring(), own = Wide(take),
                       name = own.starts_with(stem) ? own : stem + L"-" + own;
    std::filesystem::path path = project.parent_path() / (name + L".wav");
    for (int n = 2; std::filesystem::exists(path); ++n)
        path = project.parent_path() / (name + L"-" + std::to_wstring(n) + L".wav");
    return Utf8(path.wstring());
}

bool WriteSource(const std::string& path, const simhost::SourceRef& source, const std::function<void()>& working,
                 std::string* error) {
    simhost::Project alone;
    simhost::Track& track = AddTrack(alone, "");
    alone.tracks.Add(track, simhost::MakeItem("", 0, source->Length(), source));
    const simhost::MixRange all{source->SampleRate(), source->Channels(), 0, source->Length()};
    return WriteWaveFile(path, alone, all, working, error);
}

}  // namespace

bool SaveProject(const simhost::Project& project, const std::string& path, SourceFiles& files,
                 const std::function<void()>& working, std::string* error) {
    int rate = 0;
    for (const simhost::Box<simhost::Track>& track : project.tracks.All())
        for (const simhost::Box<simhost::Item>& item : track->items) {
            const simhost::Take* take = Sounding(*item);
            if (!take) continue;
            if (!rate) rate = take->source->SampleRate();
            if (files.contains(take->source)) continue;
            const std::string file = FreePath(Wide(path), take->name);
            if (!WriteSource(file, take->source, working, error)) return false;
            files[take->source] = file;
        }
    const auto tracks = TracksOf(project, [&files](const simhost::Take& take) { return files.at(take.source); });
    const std::string text = HostProjectText(rate ? rate : 48000, std::time(nullptr), tracks);
    std::FILE* const file = OpenFile(path, "wb");
    const bool written = file && std::fwrite(text.data(), 1, text.size(), file) == text.size();
    if ((file && std::fclose(file) != 0) || !written) {
        *error = "'" + path + "' não pode ser gravado";
        return false;
    }
    return true;
}

std::string Kept(const simhost::Project& project) {
    const auto place = [](const simhost::Take& take) {
        return std::to_string(reinterpret_cast<uintptr_t>(take.source.get()));
    };
    std::vector<ProjectTrack> tracks = TracksOf(project, place);
    for (ProjectTrack& track : tracks)
        for (ProjectItem& item : track.items) item.selected = false;
    return HostProjectText(0, 0, tracks);
}
