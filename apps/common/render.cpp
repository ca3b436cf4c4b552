#include "apps/common/render.h"

#include "apps/common/audio_writer.h"
#include "host/actions.h"

static bool Write(const simhost::Project& project, const RenderedFile& file) {
    const simhost::MixRange& range = file.range;
    const AudioFormat format = file.path.ends_with(".mp3") ? AudioFormat::Mp3 : AudioFormat::Wav;
    std::string why;
    const auto writer = AudioWriter::Create(file.path, {format, range.rate, range.channels, range.Frames()}, {}, &why);
    if (!writer) return false;
    MixProject(project, range, [&](const double* block, int frames) { return writer->Write(block, frames); });
    return writer->Finish();
}

void RenderToFiles(simhost::Host& host) {
    host.actions.outside[acao::RenderizarProjeto] = host.actions.outside[acao::RenderizarComUltimas] = [&host] {
        for (const RenderedFile& file : FilesToRender(host.project))
            if (!Write(host.project, file)) return host.Violate("the render failed: '" + file.path + "'");
    };
}
