#include "apps/common/plugin.h"
#include "apps/studio/text.h"

bool Plugin::Load(simhost::Host& host, std::string* error) {
    const auto refuse = [error](const std::string& why) {
        *error = why;
        return false;
    };
    const std::wstring path = ProgramFolder() + L"\\reaper_quilmo.dll";
    const HMODULE module = LoadLibraryW(path.c_str());
    if (!module) return refuse("o modulo nao abre: erro " + std::to_string(GetLastError()) + ", " + Utf8(path));
    entry_ = reinterpret_cast<decltype(entry_)>(reinterpret_cast<void*>(GetProcAddress(module, "ReaperPluginEntry")));
    if (!entry_ || entry_(module, host.Record()) != 1) return refuse("o modulo recusou o host: " + Utf8(path));
    autoSplit = reinterpret_cast<decltype(autoSplit)>(host.ApiFunction("Quilmo_AutoSplit"));
    return autoSplit || refuse("o modulo nao registrou Quilmo_AutoSplit");
}

Plugin::~Plugin() {
    if (entry_) entry_(nullptr, nullptr);  // the host's call at unload
}
