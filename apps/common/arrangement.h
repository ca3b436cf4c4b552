// apps/common/arrangement.h
// The picture of an arrangement: a ruler with regions, and a lane for each track with its items, their waveforms and
// fades; the time selection and the cursor over all of it.
#pragma once
#include "lice/bitmap.h"
#include "simhost/host.h"

// Where things stand in the picture, in pixels.
struct ArrangementLayout {
    int headerWidth = 120;      // of the tracks' names
    int rulerHeight = 44;       // times and regions
    int laneHeight = 110;       // of tracks without a height of their own
    int scrolled = 0;           // how much of the lanes is hidden above the ruler's lower edge
    double scale = 1;           // of the texts and margins; the sizes above are the caller's to scale
    bool takesInLanes = false;  // all takes of an item, one under the other; else the active one
    // Frames read for a column of waveform at most, in eight pieces spread over it; 0: all that there are.
    int columnFrames = 0;
};

// The height that shows all tracks.
int ArrangementHeight(const simhost::Project& project, const ArrangementLayout& layout = {});
struct Lane {
    int top, bottom;
};
Lane LaneOf(const simhost::Project& project, const simhost::Track& track, const ArrangementLayout& layout);
// Paints what lies between the two times over the whole surface.
void PaintArrangement(const simhost::Project& project, LICE_IBitmap* bitmap, simhost::TimeRange view,
                      const ArrangementLayout& layout = {});
