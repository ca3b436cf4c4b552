// The files that a user may have spoilt. Whatever they hold, what is written afterwards reads back as the same.
#include <filesystem>
#include <fstream>
#include <random>
#include <string>

#include "panel/state.h"
#include "panel/window_state.h"
#include "platform/files.h"
#include "slicer/presets.h"
#include "tests/fuzz/byte_eater.h"

namespace {

// The process's own folder, which goes with it.
struct Folder {
    const std::filesystem::path path =
        std::filesystem::temp_directory_path() / ("quilmo_fuzz_" + std::to_string(std::random_device{}()));
    Folder() { std::filesystem::create_directory(path); }
    ~Folder() {
        std::error_code ignored;
        std::filesystem::remove_all(path, ignored);
    }
};

std::string Content(ByteEater& in) {
    static const std::string parts[] = {
        "LAST_USED=", "P1=",   "P6=",   "\n",    "\r\n", ",",    "-37.25",      "55",         "true",
        " ",          "false", "1e300", "1e999", "nan",  "-inf", "-2147483648", "2147483647", "99999999999999999999",
        "+",          "-"};
    std::string text;
    while (!in.Empty()) {
        const int n = in.Byte();
        if (n == 255)
            text.append(4096, static_cast<char>(in.Byte()));
        else
            text += n < 128 ? parts[n % std::size(parts)] : std::string(1, static_cast<char>(in.Byte()));
    }
    return text;
}

struct Settings {
    TabelaDePresets table = {};
    double db = -37;
    int ms = 55;
    bool close = true;

    std::string LoadAndSave(const std::string& folder, const std::string& path) {
        CarregarPresets(table, db, ms, close, folder);
        GravarPresets(table, db, ms, close, folder);
        std::string text;
        ReadTextFile(path, text);
        return text;
    }
};

void Presets(const std::string& folder, const std::string& text) {
    const std::string path = folder + PathSeparator + "presets_fatiador.ini";
    if (!(std::ofstream(path, std::ios::binary) << text)) std::abort();
    const std::string once = Settings().LoadAndSave(folder, path);
    for (size_t start = 0, end; start < once.size(); start = end + 1) {
        end = once.find('\n', start);
        if (end > start + 62) return;  // a line that was cut, with its end
    }
    if (Settings().LoadAndSave(folder, path) != once) std::abort();
}

void Place(const std::string& folder, const std::string& text) {
    CaminhoPainel = folder;
    if (!(std::ofstream(CaminhoJanelaIni(), std::ios::binary) << text)) std::abort();
    LugarDaJanela written = {1, 2, 3, 4}, read = {};
    if (!LerJanelaIni(written)) return;
    GravarJanelaIni(written);
    if (!LerJanelaIni(read) || read != written) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static const Folder folder;
    ByteEater in(data, size);
    const bool presets = in.Bool();
    (presets ? Presets : Place)(folder.path.string(), Content(in));
    return 0;
}
