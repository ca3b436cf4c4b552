// apps/common/audio_writer.h
// Sound to disk, a block at a time.
#pragma once
#include <memory>
#include <string>

#include "apps/common/audio_file.h"

enum class AudioFormat { Wav, Flac, Mp3 };  // the first two with 24 bits; a WAV beyond 4 GB becomes RF64

struct AudioShape {
    AudioFormat format;
    int rate, channels;
    int64_t frames;  // as many as will be written
};

class AudioWriter {
  public:
    // Replaces the file that is there. Tags and channel map are kept where the format holds them. Null, with the reason
    // for the user in *why, when the folder or the format refuses.
    static std::unique_ptr<AudioWriter> Create(const std::string& path, const AudioShape& shape,
                                               const AudioFacts& facts, std::string* why);
    ~AudioWriter();  // takes an unfinished file away

    bool Write(const double* interleaved, int frames);
    bool Finish();  // false: the file is not whole, and goes

  private:
    AudioWriter() = default;

    SNDFILE* file_ = nullptr;
    std::string path_;  // empty: the file stays
    int channels_ = 0;
    std::vector<int> block_;
};
