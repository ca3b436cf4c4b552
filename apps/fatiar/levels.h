// apps/fatiar/levels.h
// How loud a recording is. This reads it once more, and so is asked only where a cut is doubtful.
#pragma once
#include "simhost/source.h"

struct Levels {
    double background = 0;  // the tenth percentile of the peaks of 10 ms windows
    double loudest = 0;
};

Levels Hear(simhost::Source& source);                 // as far as it can be read
bool Reaches(simhost::Source& source, double level);  // some sample does; nothing is read behind the first
