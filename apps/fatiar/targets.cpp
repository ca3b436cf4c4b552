#include "apps/fatiar/targets.h"

#include "apps/common/tool.h"
#include "apps/fatiar/lists.h"
#include "apps/fatiar/paths.h"

namespace fs = std::filesystem;

std::vector<fs::path> Target::Files() const {
    std::vector<fs::path> files = {audio, csv, json, before, after};
    files.insert(files.end(), lists.begin(), lists.end());
    std::erase_if(files, [](const fs::path& path) { return path.empty() || path == "-"; });
    return files;
}

Targets::Targets(const Options& options, const std::vector<Input>& inputs) : options_(options), inputs_(inputs) {
    const bool one = inputs.size() == 1;
    Expect(options.origin.empty() || one, "--origem vale para uma so entrada");
    for (const WantedList& list : options.lists)
        Expect(list.path.empty() || one || FindListFormat(list.format)->many,
               "com varias entradas, --lista " + list.format + " nao leva =ARQUIVO: cada uma tem a sua");
    if (options.output.empty()) return;
    std::error_code ignored;
    const std::string quoted = "'" + options.output + "'";
    const FileKind kind = fs::is_directory(options.output, ignored) ? FileKind::Other : KindOf(options.output);
    output_ = options.ToStandardOutput() ? Output::Standard : kind == FileKind::Other ? Output::Folder : Output::File;
    if (output_ == Output::Folder) folder_ = fs::path(options.output) / "";  // a slash at the end makes no other folder
    if (output_ != Output::File) return;

    Expect(kind == FileKind::Wav || kind == FileKind::Flac,
           quoted + " nao pode ser gravado: os formatos sao wav e flac (uma pasta desse nome leva / no fim)");
    Expect(one, "com varias entradas, -o deve ser uma pasta, nao " + quoted);
    Expect(options.format.empty() || (options.format == "flac") == (kind == FileKind::Flac),
           "--formato " + options.format + " nao combina com " + quoted);
}

bool Targets::InOneList(const WantedList& list) const {
    return FindListFormat(list.format)->many && !list.path.empty() && !options_.together && inputs_.size() > 1;
}

// Those that are cut together share a list that can hold them all: the first one's.
fs::path Targets::ListPath(const WantedList& list, const fs::path& base) const {
    const ListFormat& format = *FindListFormat(list.format);
    if (InOneList(list) || (format.many && options_.together && taken_.size() > 1)) return {};
    return list.path.empty() ? fs::path(base).replace_extension(format.ending) : fs::path(list.path);
}

Target Targets::For(const Input& input) {
    std::string name = input.name;
    for (int number = 2; !taken_.insert(name).second; ++number) name = input.name + '-' + std::to_string(number);
    const bool toFile = output_ == Output::File, toFolder = output_ == Output::Folder;
    const bool flac = options_.format.empty() ? KindOf(toFile ? options_.output : input.path) == FileKind::Flac
                                              : options_.format == "flac";
    const fs::path base = toFile ? fs::path(options_.output) : folder_ / (name + "-fatiado.wav");
    const auto beside = [&base](const char* ending) { return fs::path(base).replace_extension(ending); };

    Target target;
    target.format = flac ? AudioFormat::Flac : AudioFormat::Wav;
    if (output_ == Output::Standard) target.audio = "-";
    if (toFile || toFolder) {
        target.audio = toFolder && flac ? beside("flac") : base;
        if (options_.csv) target.csv = beside("csv");
        if (options_.json) target.json = beside("json");
    }
    if (toFolder && options_.pictures && (!options_.together || taken_.size() == 1)) {
        const std::string whose = inputs_.size() == 1 || options_.together ? "" : name + '-';
        target.before = folder_ / (whose + "antes.png");
        target.after = folder_ / (whose + "depois.png");
    }
    for (const WantedList& list : options_.lists) target.lists.push_back(ListPath(list, base));
    RefuseInputs(target);
    return target;
}

void Targets::RefuseInputs(const Target& target) const {
    std::error_code ignored;
    for (const fs::path& path : target.Files())
        if (fs::exists(path, ignored))  // seldom, so that thousands of inputs are seldom compared
            for (const Input& input : inputs_)
                Expect(!fs::equivalent(path, input.path, ignored),
                       "a saida '" + path.string() + "' seria a propria entrada");
}
