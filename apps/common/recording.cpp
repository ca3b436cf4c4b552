#include "apps/common/recording.h"

#include "simhost/native/audio_file.h"

bool PutOnTrack(const std::string& path, simhost::Host& host, std::string* error) {
    const simhost::SourceRef source = simhost::OpenAudioFile(path, error);
    if (!source) return false;
    simhost::Track& track = AddTrack(host.project, path);
    simhost::Item item = simhost::MakeItem(path, 0, source->Length(), source);
    item.selected = true;
    host.project.tracks.Add(track, std::move(item));
    return true;
}
