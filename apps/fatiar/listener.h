// apps/fatiar/listener.h
// A recording as the host plays it, which tells what went by: how loud it was, and whether all of it could be read.
#pragma once
#include <vector>

#include "apps/fatiar/progress.h"
#include "simhost/source.h"

struct Levels {
    double background = 0;  // the tenth percentile of the peaks of 10 ms windows
    double loudest = 0;
    bool known = false;  // the recording was heard to its end
};

class Listener : public simhost::Source {
  public:
    Listener(simhost::SourceRef inner, Progress* progress);  // null: nobody is told

    bool Failed() const { return failed_; }  // a read did; what was asked for there sounded as silence
    Levels Heard();

  protected:
    bool ReadInside(int64_t first, int frames, double* out) override;

  private:
    void Listen(const double* samples, int frames);

    simhost::SourceRef inner_;
    Progress* progress_;
    int64_t heard_ = 0;  // frames from the start; only the first time through counts
    int windowFrames_, filled_ = 0;
    double peak_ = 0, loudest_ = 0;
    std::vector<float> peaks_;
    bool failed_ = false;
};

// Several recordings of one rate as one, with all their channels; the shorter ones are filled up with silence.
simhost::SourceRef SideBySide(std::vector<simhost::SourceRef> sources);
