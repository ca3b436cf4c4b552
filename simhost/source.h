// simhost/source.h
// What a take plays: a rate, a channel count, and interleaved samples as doubles. Sources are shared between takes and
// undo points and never change once made. The generated ones use integers and plain arithmetic only, so that they are
// bit-identical on every system.
#pragma once
#include <cstdint>
#include <memory>
#include <vector>

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

struct Segment {
    int64_t frames;
    double amplitude;  // 0 is a pause
    int channel = -1;  // the only channel that sounds; -1: all
};

SourceRef Silence(int rate, int channels, int64_t frames);
SourceRef Sine(int rate, int channels, int64_t frames, double hertz, double amplitude);
// Segments one behind another. A segment is a square wave of about a kilohertz: every one of its samples has exactly
// its amplitude, so that a level at a threshold is exact.
SourceRef Bursts(int rate, int channels, const std::vector<Segment>& segments);
SourceRef Noise(int rate, int channels, int64_t frames, uint64_t seed, double amplitude);
SourceRef Memory(int rate, int channels, std::vector<double> interleaved);  // a tail short of a whole frame is dropped
SourceRef Midi(double quarterNotes);                                        // no audio to read
SourceRef Reversed(SourceRef source);                                       // the same, last frame first
SourceRef Unreadable(int rate, int channels, int64_t frames);               // as a file that went offline: Read fails

}  // namespace simhost
