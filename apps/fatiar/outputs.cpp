#include "apps/fatiar/outputs.h"

#include <unistd.h>

#include <cstdio>

#include "apps/common/tool.h"

namespace fs = std::filesystem;

Outputs::~Outputs() {
    std::error_code ignored;
    for (const auto& [path, draft] : drafts_) fs::remove(draft, ignored);
    for (auto folder = folders_.rbegin(); folder != folders_.rend(); ++folder) fs::remove(*folder, ignored);
}

bool Outputs::MakeFolder(const fs::path& folder) {
    std::error_code failed;
    if (folder.empty() || fs::is_directory(folder, failed)) return true;
    if (!MakeFolder(folder.parent_path()) || !fs::create_directory(folder, failed)) return false;
    folders_.push_back(folder);
    return true;
}

void Outputs::Plan(const fs::path& path) {
    static int planned = 0;
    const fs::path folder = path.parent_path();
    std::error_code failed;
    Expect(overwrite_ || !fs::exists(path, failed), "'" + path.string() + "' ja existe; --sobrescrever o troca");
    Expect(!fs::is_directory(path, failed), "'" + path.string() + "' e uma pasta");
    Expect(MakeFolder(folder) && access(folder.empty() ? "." : folder.c_str(), W_OK | X_OK) == 0,
           "a pasta '" + folder.string() + "' nao pode ser criada ou nao aceita arquivos");
    Expect(!drafts_.contains(path), "duas saidas teriam o nome '" + path.string() + "'");
    drafts_[path] = folder / (".fatiar-" + std::to_string(getpid()) + '-' + std::to_string(++planned) + ".tmp");
}

std::string Outputs::Draft(const fs::path& path) const { return drafts_.at(path).string(); }

void Outputs::WriteText(const fs::path& path, const std::string& text) {
    std::FILE* const file = std::fopen(Draft(path).c_str(), "wb");
    const bool written = file && std::fwrite(text.data(), 1, text.size(), file) == text.size();
    const bool closed = file && std::fclose(file) == 0;
    Expect(written && closed, "'" + path.string() + "' nao pode ser gravado");
}

void Outputs::Commit() {
    for (const auto& [path, draft] : drafts_) {
        std::error_code failed;
        fs::rename(draft, path, failed);
        Expect(!failed, "'" + path.string() + "' nao pode ser gravado");
    }
    drafts_.clear();
    folders_.clear();
}
