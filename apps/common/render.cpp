#include "apps/common/render.h"

#include "apps/common/render_list.h"
#include "host/actions.h"
#include "simhost/native/audio_file.h"

using simhost::AudioFormat;

static bool Write(const simhost::Project& project, const RenderedFile& file, std::string* error) {
    const simhost::MixRange& range = file.range;
    const auto writer =
        simhost::AudioWriter::Create(file.path, file.kind == RenderKind::Mp3 ? AudioFormat::Mp3 : AudioFormat::Wav,
                                     range.rate, range.channels, range.Frames(), error);
    if (!writer) return false;
    MixProject(project, range, [&](const double* block, int frames) { return writer->Write(block, frames); });
    return writer->Finish(error);
}

void RenderToFiles(simhost::Host& host) {
    host.actions.outside[acao::RenderizarProjeto] = host.actions.outside[acao::RenderizarComUltimas] = [&host] {
        std::string error;
        for (const RenderedFile& file : FilesToRender(host.project))
            if (!Write(host.project, file, &error)) return host.Violate("the render failed: " + error);
    };
}
