// apps/common/plugin.h
// The module as a host loads it. Its file lies beside this program; it is entered once with the host's record, and used
// only through what it registered.
#pragma once
#include "simhost/host.h"

class Plugin {
  public:
    // Throws a sentence when there is no module, or it refuses this host, which must outlive the plugin.
    void Load(simhost::Host& host);
    ~Plugin();

    bool (*autoSplit)(bool closeGaps, int blockMs, double thresholdDb) = nullptr;  // on the selected items

  private:
    using Entry = int(HINSTANCE, reaper_plugin_info_t*);
    static Entry* FindEntry(HINSTANCE* module);  // in the file; each system has its own

    Entry* entry_ = nullptr;
};
