// simhost/mixdown.h
// Items as one stream of sound. Every item starts on the frame nearest to its position. At its source's own rate it is
// therefore heard sample for sample, never between two of them.
#pragma once
#include <cmath>
#include <functional>

#include "simhost/project.h"

namespace simhost {

struct MixRange {
    int rate, channels;
    double start, end;  // project time in seconds

    int64_t Frames() const;  // the nearest to (end - start) * rate; 0 where they cannot be counted
};

// The sum of what items play, made when it is read: it shares their sources and holds no samples of its own. Each frame
// is the same whatever frames are read with it. An item that cannot be read is silent.
class Mix : public Source {
  public:
    Mix(std::vector<const Item*> items, const MixRange& range);

    static constexpr int BlockFrames = 16384;  // an item's times are counted from where it begins in such a block

  protected:
    bool ReadInside(int64_t first, int frames, double* interleaved) override;

  private:
    // What an item plays, on its frame.
    struct Player {
        Playback playback;
        Fades fades;
        double position;
        double End() const { return position + fades.length; }
    };
    struct Part;
    // Frames that are a source's own from `first` on. That source is no mix with a run of its own there: mixes of mixes
    // are read at the cost of one.
    struct Run {
        int64_t begin, end;
        Source* source;
        int64_t first;
    };
    double FrameOf(double time) const { return std::ceil((time - origin_) * SampleRate() - 1e-6); }
    void FindRuns();
    void AddRun(const Run& run);
    std::vector<Run>::const_iterator RunBehind(int64_t frame) const;  // the first that ends behind it
    std::vector<Part> PartsOf(int64_t block) const;
    void Compose(int64_t block, int from, int to, double* out);
    void KeepSum(const std::vector<Part>& parts, int64_t block, int from, int to);
    bool Play(const Part& part, int from, int to, double* out) const;

    double origin_;                     // the time of frame 0
    std::vector<Player> players_;       // by position
    std::vector<double> latestEnd_;     // of each player and all before it
    std::vector<Run> runs_;             // in order
    std::vector<double> sum_, addend_;  // where several play: the last sum that was made; one of them
    int64_t sumFirst_ = -1;             // the sum's first frame; below 0: there is none
};

// Takes the next frames of a mix; false stops it.
using MixSink = std::function<bool(const double* interleaved, int frames)>;

// The sum of the items, or of all that a project has. False: the sink stopped it.
bool MixItems(const std::vector<const Item*>& items, const MixRange& range, const MixSink& sink);
bool MixProject(const Project& project, const MixRange& range, const MixSink& sink);

}  // namespace simhost
