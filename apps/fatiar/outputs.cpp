#include "apps/fatiar/outputs.h"

#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <set>

#include "simhost/native/png_file.h"

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

bool Outputs::Plan(const Options& options, std::string* error) {
    if (options.output.empty()) return true;
    std::error_code ignored;
    const std::string ending = AudioEnding(options.output);
    const bool oneFile = !ending.empty() && !fs::is_directory(options.output, ignored);
    if (oneFile && options.inputs.size() > 1) {
        *error = "com varias entradas, -o deve ser uma pasta, nao '" + options.output + "'";
        return false;
    }
    if (oneFile && !options.format.empty() && options.format != ending) {
        *error = "--formato " + options.format + " nao combina com '" + options.output + "'";
        return false;
    }

    // A slash at the end makes no other folder.
    const fs::path folder = oneFile ? fs::path(options.output).parent_path() : fs::path(options.output) / "";
    if (!oneFile) folder_ = folder;
    std::set<std::string> taken;
    for (const std::string& input : options.inputs) {
        std::string format = !options.format.empty() ? options.format : oneFile ? ending : AudioEnding(input);
        if (format.empty()) format = "wav";
        const std::string name = fs::path(input).stem().string() + "-fatiado";
        std::string path = oneFile ? options.output : (folder / (name + "." + format)).string();
        for (int number = 2; !taken.insert(OutputFile{path, {}}.Beside("")).second; ++number)
            path = (folder / (name + "-" + std::to_string(number) + "." + format)).string();
        files_.push_back({path, format == "flac" ? simhost::AudioFormat::Flac : simhost::AudioFormat::Wav});
        for (const std::string& other : options.inputs)
            if (fs::equivalent(path, other, ignored)) {
                *error = "a saida '" + path + "' seria a propria entrada";
                return false;
            }
    }
    const fs::path plain = folder.has_filename() ? folder : folder.parent_path();
    if (MakeFolder(plain) && access(plain.empty() ? "." : plain.c_str(), W_OK | X_OK) == 0) return true;
    *error = "a pasta '" + plain.string() + "' nao pode ser criada ou nao aceita arquivos";
    return false;
}

bool Outputs::WriteAudio(const OutputFile& file, const simhost::Track& track, const simhost::MixRange& range,
                         const simhost::MixSink& onWritten, std::string* error) {
    const auto writer =
        simhost::AudioWriter::Create(file.audio, file.format, range.rate, range.channels, range.Frames(), error);
    if (!writer) return false;
    std::vector<const simhost::Item*> items;
    for (const auto& item : track.items) items.push_back(&*item);
    simhost::MixItems(items, range,
                      [&](const double* mix, int n) { return writer->Write(mix, n) && onWritten(mix, n); });
    if (!writer->Finish(error)) return false;
    made_.push_back(file.audio);
    return true;
}

bool Outputs::WritePicture(const char* name, LICE_IBitmap* bitmap, std::string* error) {
    const fs::path path = folder_ / name;
    if (!simhost::WritePng(path.string(), bitmap)) {
        *error = "'" + path.string() + "' nao pode ser gravado";
        return false;
    }
    made_.push_back(path);
    return true;
}

bool Outputs::WriteText(const std::string& path, const std::string& text, std::string* error) {
    std::FILE* const file = std::fopen(path.c_str(), "wb");
    if (file) made_.push_back(path);
    const bool written = file && std::fwrite(text.data(), 1, text.size(), file) == text.size();
    if ((file && std::fclose(file) != 0) || !written) {
        *error = "'" + path + "' nao pode ser gravado";
        return false;
    }
    return true;
}
