#include "apps/fatiar/outputs.h"

#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <set>

#include "apps/common/recording.h"
#include "apps/common/tool.h"

namespace fs = std::filesystem;

std::string OutputFile::Beside(const char* ending) const {
    return fs::path(audio).replace_extension(ending).string();
}

Outputs::~Outputs() {
    std::error_code ignored;
    for (auto path = made_.rbegin(); path != made_.rend(); ++path) fs::remove(*path, ignored);
}

bool Outputs::MakeFolder(const fs::path& folder) {
    std::error_code failed;
    if (folder.empty() || fs::is_directory(folder, failed)) return true;
    if (!MakeFolder(folder.parent_path()) || !fs::create_directory(folder, failed)) return false;
    made_.push_back(folder);
    return true;
}

// The one file that -o names; empty when it names a folder.
static std::string NamedFile(const Options& options) {
    std::error_code ignored;
    const std::string ending = AudioEnding(options.output);
    if (ending.empty() || fs::is_directory(options.output, ignored)) return "";
    Expect(options.inputs.size() == 1, "com varias entradas, -o deve ser uma pasta, nao '" + options.output + "'");
    Expect(options.format.empty() || options.format == ending,
           "--formato " + options.format + " nao combina com '" + options.output + "'");
    return options.output;
}

// In the folder, under the input's name; a number keeps apart what two inputs would both be called.
static std::string FreeName(const fs::path& folder, const std::string& input, const std::string& format,
                            std::set<std::string>* taken) {
    const std::string name = (folder / fs::path(input).stem()).string() + "-fatiado";
    std::string path = name;
    for (int number = 2; !taken->insert(path).second; ++number) path = name + "-" + std::to_string(number);
    return path + "." + format;
}

void Outputs::Plan(const Options& options) {
    if (options.output.empty()) return;
    const std::string file = NamedFile(options);
    if (file.empty()) folder_ = fs::path(options.output) / "";  // a slash at the end makes no other folder

    std::set<std::string> taken;
    for (const std::string& input : options.inputs) {
        std::string format = options.format.empty() ? AudioEnding(file.empty() ? input : file) : options.format;
        if (format.empty()) format = "wav";
        const std::string path = file.empty() ? FreeName(folder_, input, format, &taken) : file;
        files_.push_back({path, format == "flac" ? simhost::AudioFormat::Flac : simhost::AudioFormat::Wav});
        std::error_code ignored;
        for (const std::string& other : options.inputs)
            Expect(!fs::equivalent(path, other, ignored), "a saida '" + path + "' seria a propria entrada");
    }

    const fs::path folder = fs::path(files_.front().audio).parent_path();
    Expect(MakeFolder(folder) && access(folder.empty() ? "." : folder.c_str(), W_OK | X_OK) == 0,
           "a pasta '" + folder.string() + "' nao pode ser criada ou nao aceita arquivos");
}

void Outputs::WriteAudio(const OutputFile& file, const simhost::Track& track, const simhost::MixRange& range,
                         const simhost::MixSink& onWritten) {
    std::string error;
    const auto writer =
        simhost::AudioWriter::Create(file.audio, file.format, range.rate, range.channels, range.Frames(), &error);
    Expect(writer != nullptr, error);
    std::vector<const simhost::Item*> items;
    for (const auto& item : track.items) items.push_back(&*item);
    simhost::MixItems(items, range,
                      [&](const double* mix, int n) { return writer->Write(mix, n) && onWritten(mix, n); });
    const bool finished = writer->Finish(&error);
    Expect(finished, error);
    made_.push_back(file.audio);
}

void Outputs::KeepPicture(const char* name, const simhost::Project& project, double seconds) {
    if (folder_.empty()) return;
    const fs::path path = folder_ / name;
    PhotographArrangement(project, seconds, path.string());
    made_.push_back(path);
}

void Outputs::WriteText(const std::string& path, const std::string& text) {
    std::FILE* const file = std::fopen(path.c_str(), "wb");
    if (file) made_.push_back(path);
    const bool written = file && std::fwrite(text.data(), 1, text.size(), file) == text.size();
    const bool closed = file && std::fclose(file) == 0;
    Expect(written && closed, "'" + path + "' nao pode ser gravado");
}
