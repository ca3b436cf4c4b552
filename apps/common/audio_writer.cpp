#include "apps/common/audio_writer.h"

#include <fcntl.h>
#include <unistd.h>

#include "simhost/sound.h"

constexpr double MostWavBytes = 4.29e9;  // what the sizes in a WAV file can count

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
    writer->path_ = path;
    writer->channels_ = shape.channels;
    writer->file_ = sf_open_fd(descriptor, SFM_WRITE, &info, true);
    if (!writer->file_) return refuse("o formato nao aceita este audio");
    KeepFacts(writer->file_, facts);
    return writer;
}

AudioWriter::~AudioWriter() {
    if (file_) sf_close(file_);
    if (!path_.empty()) unlink(path_.c_str());
}

bool AudioWriter::Write(const double* interleaved, int frames) {
    block_.resize(static_cast<size_t>(frames) * channels_);
    // libsndfile takes the upper 24 bits of an int.
    for (int& sample : block_) sample = simhost::To24Bits(*interleaved++) * 256;
    return sf_writef_int(file_, block_.data(), frames) == frames;
}

bool AudioWriter::Finish() {
    const bool whole = sf_error(file_) == SF_ERR_NO_ERROR;
    const bool closed = sf_close(file_) == 0;
    file_ = nullptr;
    if (whole && closed) path_.clear();
    return whole && closed;
}
