#include "apps/common/audio_writer.h"

#include <fcntl.h>
#include <unistd.h>

#include <vector>

#include "simhost/sound.h"

constexpr double MostWavBytes = 4.29e9;  // what the sizes in a WAV file can count

struct AudioWriter::State {
    SNDFILE* file = nullptr;
    std::string path;
    int channels = 0;
    std::vector<int> block;
};

static int FormatCode(const AudioShape& shape, bool placed) {
    if (shape.format == AudioFormat::Flac) return SF_FORMAT_FLAC | SF_FORMAT_PCM_24;
    if (shape.format == AudioFormat::Mp3) return SF_FORMAT_MPEG | SF_FORMAT_MPEG_LAYER_III;
    const bool large = static_cast<double>(shape.frames) * shape.channels * 3 > MostWavBytes;
    return (large ? SF_FORMAT_RF64 : placed ? SF_FORMAT_WAVEX : SF_FORMAT_WAV) | SF_FORMAT_PCM_24;
}

// What a format refuses of it is lost in silence: the sound is what counts.
static void KeepFacts(SNDFILE* file, const AudioFacts& facts) {
    for (const auto& [tag, text] : facts.tags) sf_set_string(file, tag, text.c_str());
    std::vector<int> map = facts.channelMap;
    if (!map.empty())
        sf_command(file, SFC_SET_CHANNEL_MAP_INFO, map.data(), static_cast<int>(map.size() * sizeof(int)));
}

std::unique_ptr<AudioWriter> AudioWriter::Create(const std::string& path, const AudioShape& shape,
                                                 const AudioFacts& facts, std::string* why) {
    const auto refuse = [why](const std::string& reason) {
        *why = reason;
        return nullptr;
    };
    SF_INFO info{};
    info.samplerate = shape.rate;
    info.channels = shape.channels;
    info.format = FormatCode(shape, !facts.channelMap.empty());
    if (!sf_format_check(&info))
        return refuse("o formato nao aceita " + std::to_string(shape.channels) + " canais a " +
                      std::to_string(shape.rate) + " Hz");
    const int descriptor = open(path.c_str(), O_RDWR | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
    if (descriptor < 0) return refuse("a pasta nao existe ou nao aceita arquivos");

    std::unique_ptr<AudioWriter> writer(new AudioWriter);
    writer->state_ = std::make_unique<State>();
    State& s = *writer->state_;
    s.path = path;
    s.channels = shape.channels;
    s.file = sf_open_fd(descriptor, SFM_WRITE, &info, true);
    if (!s.file) return refuse("o formato nao aceita este audio");
    KeepFacts(s.file, facts);
    return writer;
}

AudioWriter::~AudioWriter() {
    if (state_->file) sf_close(state_->file);
    if (!state_->path.empty()) unlink(state_->path.c_str());
}

bool AudioWriter::Write(const double* interleaved, int frames) {
    const size_t count = static_cast<size_t>(frames) * state_->channels;
    state_->block.resize(count);
    // libsndfile takes the upper 24 bits of an int.
    for (size_t i = 0; i < count; ++i) state_->block[i] = simhost::To24Bits(interleaved[i]) * 256;
    return sf_writef_int(state_->file, state_->block.data(), frames) == frames;
}

bool AudioWriter::Finish() {
    const bool whole = sf_error(state_->file) == SF_ERR_NO_ERROR;
    const bool closed = sf_close(state_->file) == 0;
    state_->file = nullptr;
    if (!whole || !closed) return false;
    state_->path.clear();  // it stays
    return true;
}
