#include "apps/common/plugin.h"

#include <dlfcn.h>

#include <filesystem>

bool Plugin::Load(simhost::Host& host, std::string* error) {
    const auto refuse = [error](const std::string& why) {
        *error = why;
        return false;
    };
    std::error_code ignored;
    const auto path = std::filesystem::read_symlink("/proc/self/exe", ignored).parent_path() / "reaper_quilmo.so";
    void* const module = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (!module) return refuse(std::string("o modulo nao abre: ") + dlerror());
    entry_ = reinterpret_cast<decltype(entry_)>(dlsym(module, "ReaperPluginEntry"));
    if (!entry_ || entry_(nullptr, host.Record()) != 1) return refuse("o modulo recusou o host: " + path.string());
    autoSplit = reinterpret_cast<decltype(autoSplit)>(host.ApiFunction("Quilmo_AutoSplit"));
    return autoSplit || refuse("o modulo nao registrou Quilmo_AutoSplit");
}

Plugin::~Plugin() {
    if (entry_) entry_(nullptr, nullptr);  // the host's call at unload
}
