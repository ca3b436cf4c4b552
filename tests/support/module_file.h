// tests/support/module_file.h
// The module's file, loaded as a host loads it. What the test program links is another copy with its own state.
#pragma once
#include <string>
#include <vector>

class ModuleFile {
  public:
    ModuleFile();  // throws std::runtime_error, saying why, when it does not load
    ~ModuleFile();
    ModuleFile(const ModuleFile&) = delete;
    ModuleFile& operator=(const ModuleFile&) = delete;

    template <class Function>
    Function* Find(const char* name) const {
        return reinterpret_cast<Function*>(Address(name));
    }
    std::vector<std::string> ExportedNames() const;  // sorted

  private:
    void* Address(const char* name) const;  // null when there is none
    void* handle_;
};
