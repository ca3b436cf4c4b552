// simhost/native/audio_file.h
// Recordings on disk as sources, and sliced results back to disk. A recording is read when it is asked for, a block at
// a time, so that an hour costs no more memory than a second.
#pragma once
#include <cstdint>
#include <memory>
#include <string>

#include "simhost/source.h"

namespace simhost {

// Any format that libsndfile reads; samples are exactly those of sf_readf_double. Null when the file is no recording,
// with a sentence for the user in *error. Where libsndfile cannot jump, the first jump unpacks the file into a nameless
// temporary one. So does a header that promises frames that are not there: the source is as long as what can be read.
SourceRef OpenAudioFile(const std::string& path, std::string* error);

enum class AudioFormat { Wav, Flac, Mp3 };  // the first two with 24 bits; a WAV beyond 4 GB becomes RF64

// Writes beside `path` under a hidden temporary name; only Finish gives the file its own, replacing any that was there.
class AudioWriter {
  public:
    // Null, with a sentence for the user in *error, when the folder or the format refuses.
    static std::unique_ptr<AudioWriter> Create(const std::string& path, AudioFormat format, int rate, int channels,
                                               int64_t frames, std::string* error);
    ~AudioWriter();  // takes an unfinished file away

    bool Write(const double* interleaved, int frames);
    bool Finish(std::string* error);

    // The unfinished file, for a handler of signals to unlink; empty when there is none.
    static const char* UnfinishedPath();

  private:
    AudioWriter() = default;
    struct State;
    std::unique_ptr<State> state_;
};

}  // namespace simhost
