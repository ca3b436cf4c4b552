// simhost/sound.h
// What takes sound like before their volumes and fades.
#pragma once
#include "simhost/project.h"

namespace simhost {

// A take as somebody hears it who listens at a rate and to channels of his own. Each frame is the same whatever frames
// are read with it. Frames on the source's own come straight from Source::Read; others lie on the line between two.
// One channel goes to all; otherwise channels that the source lacks are zero.
class Reading {
  public:
    // From `start` seconds behind the item's start on, `frames` in all. The playback outlives the reading.
    Reading(const Playback& playback, int rate, int channels, double start, int64_t frames);
    bool Read(int64_t first, int frames, double* interleaved) const;  // false: the source cannot be read, or is none
    bool Straight() const;  // each frame is one of the source's, from FirstFrame on
    int64_t FirstFrame() const { return static_cast<int64_t>(at_); }

  private:
    bool OnFrames() const;
    bool ReadOwn(int64_t first, int frames, double* interleaved) const;
    double PlaceOf(int64_t frame) const;

    const Playback& playback_;
    int channels_;
    double at_ = 0, step_ = 0;  // the first frame in the source, and from each to the next; a step of 0 stands still
    bool readable_ = false;
    int64_t low_ = 0;  // the first of the source's frames that are heard
    double span_ = 0;  // how many more there are
};

// All of a reading at once.
inline bool ReadTake(const Playback& take, int rate, int channels, double start, int frames, double* interleaved) {
    return Reading(take, rate, channels, start, frames).Read(0, frames, interleaved);
}

// The sample as a file keeps it: rounded to 24 bits; what is beyond full scale is held there, and what is no number is
// silence.
int To24Bits(double sample);

}  // namespace simhost
