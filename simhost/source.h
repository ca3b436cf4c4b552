// simhost/source.h
// What a take plays: a rate, a channel count, and interleaved samples as doubles. Sources are shared between takes and
// undo points and never change once made.
#pragma once
#include <cstdint>
#include <functional>
#include <memory>

namespace simhost {

class Source {
  public:
    Source(int rate, int channels, int64_t frames) : rate_(rate), channels_(channels), frames_(frames) {}
    virtual ~Source() = default;
    Source(const Source&) = delete;
    Source& operator=(const Source&) = delete;

    int SampleRate() const { return rate_; }  // Hz; 0 for MIDI, like the next two
    int Channels() const { return channels_; }
    int64_t Frames() const { return frames_; }
    bool IsMidi() const { return rate_ == 0; }
    virtual double Length() const { return static_cast<double>(frames_) / rate_; }  // seconds; MIDI: quarter notes

    // Fills frames * Channels() doubles; frames outside the source are zero. False when the source cannot be read.
    bool Read(int64_t first, int frames, double* interleaved);

  protected:
    // As Read, with 0 <= first and first + frames <= Frames(), and frames above 0.
    virtual bool ReadInside(int64_t first, int frames, double* interleaved) = 0;

  private:
    int rate_, channels_;
    int64_t frames_;
};

using SourceRef = std::shared_ptr<Source>;

// A source that is no more than the way to read it, as ReadInside.
using ReadFrames = std::function<bool(int64_t first, int frames, double* interleaved)>;
SourceRef Made(int rate, int channels, int64_t frames, ReadFrames read);

// A tone made by integers and plain arithmetic, so that its bits are the same on every system.
SourceRef Sine(int rate, int channels, int64_t frames, double hertz, double amplitude);

}  // namespace simhost
