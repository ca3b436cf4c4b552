#include "apps/fatiar/inputs.h"

#include <algorithm>
#include <filesystem>

#include "apps/common/tool.h"
#include "apps/fatiar/paths.h"

namespace fs = std::filesystem;

static std::string NameOf(const std::string& path) { return fs::path(FileName(path)).stem().string(); }

static bool Readable(const fs::directory_entry& entry) {
    const FileKind kind = KindOf(entry.path().string());
    std::error_code unknown;
    return kind != FileKind::Other && kind != FileKind::Video && !entry.path().filename().string().starts_with('.') &&
           !entry.is_directory(unknown);
}

static std::vector<Input> InFolder(const std::string& folder) {
    std::vector<Input> found;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder))
        if (Readable(entry)) found.push_back({entry.path().string(), NameOf(entry.path().string())});
    std::sort(found.begin(), found.end(), [](const Input& a, const Input& b) { return a.path < b.path; });
    return found;
}

Inputs FindInputs(const Options& options) {
    Inputs inputs;
    for (const std::string& path : options.inputs) {
        std::error_code failed;
        if (path == "-") {
            inputs.found.push_back({path, options.origin.empty() ? "entrada" : NameOf(options.origin)});
        } else if (!fs::is_directory(path, failed)) {
            inputs.found.push_back({path, NameOf(path)});
        } else {
            try {
                const std::vector<Input> found = InFolder(path);
                if (found.empty()) inputs.failures.push_back("a pasta '" + path + "' nao tem gravacoes");
                inputs.found.insert(inputs.found.end(), found.begin(), found.end());
            } catch (const fs::filesystem_error&) {
                inputs.failures.push_back("a pasta '" + path + "' nao pode ser lida");
            }
        }
    }
    return inputs;
}

Recording OpenRecording(const Input& input, const Options& options, Progress* progress) {
    Recording recording{input, input.path, options.origin.empty() ? input.path : options.origin, {}, nullptr, nullptr};
    std::string path = input.path;
    if (path == "-") {
        recording.label = options.origin.empty() ? "entrada" : options.origin;
        recording.spool = std::make_shared<Spool>();
        recording.spool->FillFromStandardInput();
        path = recording.spool->Path();
    }
    std::string error;
    const simhost::SourceRef source = OpenAudioFile(path, &error, &recording.facts);
    if (!source && recording.spool)
        error = "a entrada padrao" + error.substr(path.size() + 2);  // behind its quoted name
    Expect(source != nullptr, error);
    recording.source = std::make_shared<Listener>(source, progress);
    return recording;
}
