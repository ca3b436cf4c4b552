#include "apps/common/recording.h"

#include "apps/common/tool.h"
#include "simhost/native/audio_file.h"

void PutOnTrack(const std::string& path, simhost::Host& host) {
    std::string error;
    const simhost::SourceRef source = simhost::OpenAudioFile(path, &error);
    Expect(source != nullptr, error);
    simhost::Track& track = AddTrack(host.project, path);
    simhost::Item item = simhost::MakeItem(path, 0, source->Length(), source);
    item.selected = true;
    host.project.tracks.Add(track, std::move(item));
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
