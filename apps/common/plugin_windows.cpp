#include "apps/common/plugin.h"

#include <stdexcept>

#include "apps/common/text.h"

Plugin::Entry* Plugin::FindEntry(HINSTANCE* module) {
    const std::wstring path = ProgramFolder() + L"\\reaper_quilmo.dll";
    *module = LoadLibraryW(path.c_str());
    const FARPROC entry = *module ? GetProcAddress(*module, "ReaperPluginEntry") : nullptr;
    if (!entry)
        throw std::runtime_error("o modulo nao abre: erro " + std::to_string(GetLastError()) + ", " + Utf8(path));
    return reinterpret_cast<Entry*>(reinterpret_cast<void*>(entry));
}
