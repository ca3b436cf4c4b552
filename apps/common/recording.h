// apps/common/recording.h
// A recording on the stand-in host's tracks, and pictures of it. Failure is a sentence for the user, thrown.
#pragma once
#include <string>

#include "apps/common/arrangement.h"
#include "platform/pictures/png_file.h"

// A track of its own behind the last, with the recording as one selected item.
simhost::Track& PutOnTrack(const simhost::SourceRef& source, const std::string& name, simhost::Host& host);
void PutOnTrack(const std::string& path, simhost::Host& host);

// The arrangement's first seconds, with a little space behind them.
void PhotographArrangement(const simhost::Project& project, double seconds, const std::string& pngPath,
                           int width = 1280, const ArrangementLayout& layout = {});
void WritePicture(const std::string& pngPath, const PixelRows& picture);

void ExpectNoMisuse(simhost::Host& host);  // by the module
