// apps/fatiar/listener.h
// A recording as the host plays it, which tells how much of it went by, and whether it could be read.
#pragma once
#include <vector>

#include "apps/fatiar/progress.h"
#include "simhost/source.h"

class Listener : public simhost::Source {
  public:
    Listener(simhost::SourceRef inner, Progress* progress);  // null: nobody is told

    bool Failed() const { return failed_; }  // a read did; what was asked for there sounded as silence
    bool HeardToItsEnd() const { return heard_ >= Frames(); }

  protected:
    bool ReadInside(int64_t first, int frames, double* out) override;

  private:
    simhost::SourceRef inner_;
    Progress* progress_;
    int64_t heard_ = 0;  // frames from the start; only the first time through counts
    bool failed_ = false;
};

// Several recordings of one rate as one, with all their channels; the shorter ones are filled up with silence.
simhost::SourceRef SideBySide(std::vector<simhost::SourceRef> sources);
