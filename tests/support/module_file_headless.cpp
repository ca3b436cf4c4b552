#include "tests/support/module_file.h"

#include <dlfcn.h>
#include <elf.h>

#include <fstream>
#include <iterator>
#include <stdexcept>

#include "tests/support/folders.h"

static const std::string Path = BuildFolder() + "/reaper_quilmo.so";

ModuleFile::ModuleFile() : handle_(dlopen(Path.c_str(), RTLD_NOW | RTLD_LOCAL)) {
    if (!handle_) throw std::runtime_error(dlerror());
}

ModuleFile::~ModuleFile() { dlclose(handle_); }

void* ModuleFile::Address(const char* name) const { return dlsym(handle_, name); }

// What the dynamic symbol table defines for others to see.
std::vector<std::string> NamesExportedByModule() {
    std::ifstream file(Path, std::ios::binary);
    const std::vector<char> bytes{std::istreambuf_iterator<char>(file), {}};
    if (bytes.size() < sizeof(Elf64_Ehdr)) throw std::runtime_error("no such module");
    const char* base = bytes.data();
    const auto* header = reinterpret_cast<const Elf64_Ehdr*>(base);
    const auto* sections = reinterpret_cast<const Elf64_Shdr*>(base + header->e_shoff);
    std::vector<std::string> names;
    for (const auto* section = sections; section < sections + header->e_shnum; ++section) {
        if (section->sh_type != SHT_DYNSYM) continue;
        const char* texts = base + sections[section->sh_link].sh_offset;
        const auto* symbols = reinterpret_cast<const Elf64_Sym*>(base + section->sh_offset);
        for (size_t i = 0; i < section->sh_size / sizeof(Elf64_Sym); ++i)
            if (symbols[i].st_shndx != SHN_UNDEF && ELF64_ST_BIND(symbols[i].st_info) != STB_LOCAL)
                names.emplace_back(texts + symbols[i].st_name);
    }
    std::sort(names.begin(), names.end());
    return names;
}
