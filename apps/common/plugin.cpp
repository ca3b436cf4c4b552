#include "apps/common/plugin.h"

bool Plugin::Load(simhost::Host& host, std::string* error) {
    HINSTANCE module = nullptr;
    entry_ = FindEntry(&module, error);
    if (!entry_) return false;
    if (entry_(module, host.Record()) == 1)
        autoSplit = reinterpret_cast<decltype(autoSplit)>(host.extension.Function("Quilmo_AutoSplit"));
    if (!autoSplit) *error = "o modulo recusou o host, ou nao registrou Quilmo_AutoSplit";
    return autoSplit;
}

Plugin::~Plugin() {
    if (entry_) entry_(nullptr, nullptr);  // the host's call at unload
}
