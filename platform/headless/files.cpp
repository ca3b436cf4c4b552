#include "platform/files.h"

#include <cstdlib>

std::FILE* OpenFile(const std::string& path, const char* mode) { return std::fopen(path.c_str(), mode); }

bool RemoveFile(const std::string& path) { return std::remove(path.c_str()) == 0; }

std::string EnvironmentVariable(const char* name) {
    const char* value = std::getenv(name);
    return value ? value : "";
}
