#include <dlfcn.h>

#include <filesystem>
#include <stdexcept>

#include "apps/common/plugin.h"

Plugin::Entry* Plugin::FindEntry(HINSTANCE*) {
    std::error_code ignored;
    const auto path = std::filesystem::read_symlink("/proc/self/exe", ignored).parent_path() / "reaper_quilmo.so";
    void* const module = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    void* const entry = module ? dlsym(module, "ReaperPluginEntry") : nullptr;
    if (!entry) throw std::runtime_error(std::string("o modulo nao abre: ") + dlerror());
    return reinterpret_cast<Entry*>(entry);
}
