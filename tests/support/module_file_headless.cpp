#include "tests/support/module_file.h"

#include <dlfcn.h>

#include <cstdio>
#include <stdexcept>

#include "tests/support/folders.h"

static const std::string Path = BuildFolder() + "/reaper_quilmo.so";

ModuleFile::ModuleFile() : handle_(dlopen(Path.c_str(), RTLD_NOW | RTLD_LOCAL)) {
    if (!handle_) throw std::runtime_error(dlerror());
}

ModuleFile::~ModuleFile() { dlclose(handle_); }

void* ModuleFile::Address(const char* name) const { return dlsym(handle_, name); }

std::vector<std::string> ModuleFile::ExportedNames() const {
    std::FILE* told = popen(("nm -D --defined-only '" + Path + "' | sed 's/.* //' | sort").c_str(), "r");
    std::vector<std::string> names;
    for (char name[1000]; std::fscanf(told, "%999s", name) == 1;) names.emplace_back(name);
    pclose(told);
    return names;
}
