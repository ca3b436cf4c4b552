#include "apps/studio/render.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <filesystem>

#include "apps/common/render.h"
#include "apps/common/text.h"
#include "apps/studio/dialogs.h"
#include "apps/studio/wave_file.h"
#include "host/actions.h"
// Needs windows.h first.
#include <shellapi.h>

namespace {

constexpr char RenderTitle[] = "Render";
constexpr size_t MostNames = 20;  // in a message

void Render(simhost::Host& host, const std::function<void()>& working) {
    std::error_code refused;
    std::filesystem::create_directories(Wide(host.project.texts["RENDER_FILE"]),
                                        refused);  // a file that cannot be written says so
    const std::vector<RenderedFile> files = FilesToRender(host.project);
    for (const RenderedFile& file : files) {
        std::string error = "'" + file.path + "' não pode ser gravado: este programa não grava MP3";
        if (file.path.ends_with(".mp3") || !WriteWaveFile(file.path, host.project, file.range, working, &error)) {
            host.dialogs.onMessage(error, RenderTitle, MB_ICONWARNING);
            return;
        }
    }
    std::string done;
    for (size_t i = 0; i < files.size() && i < MostNames; ++i) done += '\n' + files[i].path;
    if (files.size() > MostNames) done += "\n...";
    host.dialogs.onMessage("Gravado:" + done, RenderTitle, MB_ICONINFORMATION);
}

void AskSettings(simhost::Project& project) {
    std::string &folder = project.texts["RENDER_FILE"], &pattern = project.texts["RENDER_PATTERN"];
    double &rate = project.numbers["RENDER_SRATE"], &channels = project.numbers["RENDER_CHANNELS"];
    std::vector<Field> fields = {{"Pasta", folder},
                                 {"Nome ($region)", pattern},
                                 {"Taxa (Hz; 0: 44100)", std::to_string(std::lround(rate))},
                                 {"Canais (0: 2)", std::to_string(std::lround(channels))}};
    if (!AskFields(RenderTitle, fields)) return;
    folder = fields[0].value;
    pattern = fields[1].value;
    const auto number = [&](int field, long most) {
        return std::clamp(std::strtol(fields[field].value.c_str(), nullptr, 10), 0L, most);
    };
    rate = number(2, 384000);
    channels = number(3, 64);
}

}  // namespace

bool ShowFolder(HWND owner, const std::string& folder) {
    std::error_code unknown;
    if (!std::filesystem::is_directory(Wide(folder), unknown)) return false;
    ShellExecuteW(owner, L"explore", Wide(folder).c_str(), nullptr, nullptr, SW_SHOW);
    return true;
}

void RenderBeside(simhost::Project& project, const std::string& recording, const simhost::Source& source) {
    if (!project.texts["RENDER_FILE"].empty()) return;
    const std::filesystem::path path = std::filesystem::absolute(Wide(recording));
    project.texts["RENDER_FILE"] = Utf8((path.parent_path() / "render").wstring());
    project.texts["RENDER_PATTERN"] = Utf8(path.stem().wstring());
    project.numbers["RENDER_SRATE"] = source.SampleRate();
}

void AnswerRenderActions(simhost::Host& host, const std::function<void()>& working) {
    host.actions.outside[acao::RenderizarProjeto] =
        host.actions.outside[acao::RenderizarComUltimas] = [&host, working] { Render(host, working); };
    host.actions.outside[acao::AbrirConfigRender] = [&host] { AskSettings(host.project); };
    host.actions.outside[acao::AbrirPastaDoRender] = [&host] {
        if (!ShowFolder(host.mainWindow, host.project.texts["RENDER_FILE"]))
            host.dialogs.onMessage("Nada foi gravado ainda.", RenderTitle, MB_ICONINFORMATION);
    };
}
