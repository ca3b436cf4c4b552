#include "platform/files.h"

bool ReadTextFile(const std::string& path, std::string& text) {
    std::FILE* file = OpenFile(path, "r");
    if (!file) return false;
    text.clear();
    char block[4096];
    while (const size_t read = std::fread(block, 1, sizeof block, file)) text.append(block, read);
    std::fclose(file);
    return true;
}
