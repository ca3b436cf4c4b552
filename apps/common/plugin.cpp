#include "apps/common/plugin.h"

#include <stdexcept>

void Plugin::Load(simhost::Host& host) {
    HINSTANCE module = nullptr;
    entry_ = FindEntry(&module);
    if (entry_(module, host.Record()) == 1)
        autoSplit = reinterpret_cast<decltype(autoSplit)>(host.extension.Function("Quilmo_AutoSplit"));
    if (!autoSplit) throw std::runtime_error("o modulo recusou o host, ou nao registrou Quilmo_AutoSplit");
}

Plugin::~Plugin() {
    if (entry_) entry_(nullptr, nullptr);  // the host's call at unload
}
