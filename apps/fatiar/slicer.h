// apps/fatiar/slicer.h
// The real module in the stand-in host, loaded once for the whole run.
#pragma once
#include "apps/common/plugin.h"
#include "apps/fatiar/cut.h"
#include "apps/fatiar/options.h"

class Slicer {
  public:
    Slicer();  // throws when there is no module, or it refuses the host

    // The module's own cut, with the margins that were asked for. Throws when the module misuses the host.
    Cut Slice(const simhost::SourceRef& source, const Options& options);

  private:
    Cut ByModule(const simhost::SourceRef& source, const Options& options, bool close);

    simhost::Host host_;
    Plugin plugin_;
};
