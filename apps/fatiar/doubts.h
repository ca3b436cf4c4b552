// apps/fatiar/doubts.h
// Results that a person should doubt: one sentence for each, with what to try.
#pragma once
#include <string>
#include <vector>

#include "apps/fatiar/cut.h"
#include "apps/fatiar/listener.h"
#include "apps/fatiar/options.h"

bool Silent(Listener& recording, const Options& options);  // throughout; not one that was never heard
std::string DoubtSilence(Listener& recording, const Options& options);
std::string DoubtHeader(double promisedSeconds, double seconds);
std::vector<std::string> DoubtCut(const Cut& cut, Listener& recording,
                                  const Options& options);  // of what is not silent
