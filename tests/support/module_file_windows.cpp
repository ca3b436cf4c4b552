#include "tests/support/module_file.h"

#include <algorithm>
#include <filesystem>
#include <stdexcept>

#include "platform/win32.h"
#include "tests/support/folders.h"

// The build folder is a path of the machine that built, in UTF-8, whose root is a drive here.
static const std::string PathText = "Z:" + BuildFolder() + "/reaper_quilmo.dll";
static const std::filesystem::path Path(reinterpret_cast<const char8_t*>(PathText.c_str()));

ModuleFile::ModuleFile() : handle_(LoadLibraryW(Path.c_str())) {
    if (!handle_) throw std::runtime_error("LoadLibrary: error " + std::to_string(GetLastError()));
}

ModuleFile::~ModuleFile() { FreeLibrary(static_cast<HMODULE>(handle_)); }

void* ModuleFile::Address(const char* name) const {
    return reinterpret_cast<void*>(GetProcAddress(static_cast<HMODULE>(handle_), name));
}

// The names in the export directory, where the loader has put it: addresses count from the handle.
std::vector<std::string> ModuleFile::ExportedNames() const {
    const auto* base = static_cast<const char*>(handle_);
    const auto* dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
    const auto* header = reinterpret_cast<const IMAGE_NT_HEADERS64*>(base + dos->e_lfanew);
    const auto& entry = header->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_EXPORT];
    const auto* exports = reinterpret_cast<const IMAGE_EXPORT_DIRECTORY*>(base + entry.VirtualAddress);
    const auto* addresses = reinterpret_cast<const DWORD*>(base + exports->AddressOfNames);
    std::vector<std::string> names;
    for (DWORD i = 0; i < exports->NumberOfNames; ++i) names.emplace_back(base + addresses[i]);
    if (exports->NumberOfFunctions != exports->NumberOfNames) names.push_back("(exported without a name)");
    std::sort(names.begin(), names.end());
    return names;
}
