// apps/fatiar/doubts.h
// Results that a person should doubt: one sentence for each, with what to try.
#pragma once
#include <string>
#include <vector>

#include "apps/fatiar/cut.h"
#include "apps/fatiar/listener.h"
#include "apps/fatiar/options.h"

bool Silent(const Levels& levels, const Options& options);  // throughout
std::string DoubtSilence(const Levels& levels, const Options& options);
std::string DoubtHeader(double promisedSeconds, double seconds);
std::vector<std::string> DoubtCut(const Cut& cut, const Levels& levels,
                                  const Options& options);  // of what is not silent
