#include "simhost/native/render.h"

#include "simhost/native/audio_file.h"
#include "simhost/render.h"

namespace simhost {

static bool Write(const Project& project, const RenderedFile& file, std::string* error) {
    const MixRange& range = file.range;
    const auto writer =
        AudioWriter::Create(file.path, file.kind == RenderKind::Mp3 ? AudioFormat::Mp3 : AudioFormat::Wav, range.rate,
                            range.channels, range.Frames(), error);
    if (!writer) return false;
    MixProject(project, range, [&](const double* block, int frames) { return writer->Write(block, frames); });
    return writer->Finish(error);
}

void RenderToFiles(Host& host) {
    host.onAction[42230] = host.onAction[41824] = [&host] {
        std::string error;
        for (const RenderedFile& file : FilesToRender(host.project))
            if (!Write(host.project, file, &error)) return host.Violate("the render failed: " + error);
    };
}

}  // namespace simhost
