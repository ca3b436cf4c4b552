#include "apps/common/recording.h"

#include "apps/common/audio_file.h"
#include "apps/common/tool.h"

simhost::Track& PutOnTrack(const simhost::SourceRef& source, const std::string& name, simhost::Host& host) {
    simhost::Track& track = AddTrack(host.project, name);
    simhost::Item item = simhost::MakeItem(name, 0, source->Length(), source);
    item.selected = true;
    host.project.tracks.Add(track, std::move(item));
    return track;
}

void PutOnTrack(const std::string& path, simhost::Host& host) {
    std::string error;
    const simhost::SourceRef source = OpenAudioFile(path, &error);
    Expect(source != nullptr, error);
    PutOnTrack(source, path, host);
}

void PhotographArrangement(const simhost::Project& project, double seconds, const std::string& pngPath, int width,
                           const ArrangementLayout& layout) {
    LICE_MemBitmap bitmap(width, ArrangementHeight(project, layout));
    PaintArrangement(project, &bitmap, {0, seconds * 1.02}, layout);
    WritePicture(pngPath, {bitmap.getBits(), bitmap.getWidth(), bitmap.getHeight(), bitmap.getRowSpan()});
}

void WritePicture(const std::string& pngPath, const PixelRows& picture) {
    Expect(WritePng(pngPath, picture), "'" + pngPath + "' nao pode ser gravado");
}

void ExpectNoMisuse(simhost::Host& host) {
    const bool good = host.Check();
    Expect(good, "o modulo usou mal o host: " + host.FirstViolation());
}
