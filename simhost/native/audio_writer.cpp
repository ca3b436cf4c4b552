#include <fcntl.h>
#include <sndfile.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <cstring>
#include <vector>

#include "simhost/native/audio_file.h"
#include "simhost/sound.h"

namespace simhost {

// In static memory, because a handler of signals may read it at any moment.
static char unfinished[4096] = "";

struct AudioWriter::State {
    SNDFILE* file = nullptr;
    std::string path;
    int channels = 0;
    std::vector<int> block;
};

static int FormatCode(AudioFormat format, bool large) {
    switch (format) {
        case AudioFormat::Flac:
            return SF_FORMAT_FLAC | SF_FORMAT_PCM_24;
        case AudioFormat::Mp3:
            return SF_FORMAT_MPEG | SF_FORMAT_MPEG_LAYER_III;
        default:
            return (large ? SF_FORMAT_RF64 : SF_FORMAT_WAV) | SF_FORMAT_PCM_24;
    }
}

const char* AudioWriter::UnfinishedPath() {
    return unfinished;
}

std::unique_ptr<AudioWriter> AudioWriter::Create(const std::string& path, AudioFormat format, int rate, int channels,
                                                 int64_t frames, std::string* error) {
    const auto refuse = [&](const std::string& why) {
        *error = "'" + path + "' nao pode ser gravado: " + why;
        return nullptr;
    };
    SF_INFO info{};
    info.samplerate = rate;
    info.channels = channels;
    info.format = FormatCode(format, static_cast<double>(frames) * channels * 3 > 4.29e9);
    if (!sf_format_check(&info))
        return refuse("o formato nao aceita " + std::to_string(channels) + " canais a " + std::to_string(rate) + " Hz");

    const size_t slash = path.rfind('/');
    const std::string folder = slash == std::string::npos ? "." : path.substr(0, slash + 1);
    const std::string temporary = folder + "/.fatiar-" + std::to_string(getpid()) + ".tmp";
    if (temporary.size() >= sizeof unfinished) return refuse("o caminho e longo demais");
    const int descriptor = open(temporary.c_str(), O_RDWR | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
    if (descriptor < 0) return refuse("a pasta nao existe ou nao aceita arquivos");
    std::memcpy(unfinished, temporary.c_str(), temporary.size() + 1);

    std::unique_ptr<AudioWriter> writer(new AudioWriter);
    writer->state_ = std::make_unique<State>();
    State& s = *writer->state_;
    s.path = path;
    s.channels = channels;
    s.file = sf_open_fd(descriptor, SFM_WRITE, &info, true);
    if (!s.file) return refuse("o formato nao aceita este audio");
    return writer;
}

AudioWriter::~AudioWriter() {
    if (state_ && state_->file) sf_close(state_->file);
    if (*unfinished) unlink(unfinished);
    *unfinished = '\0';
}

bool AudioWriter::Write(const double* interleaved, int frames) {
    const size_t count = static_cast<size_t>(frames) * state_->channels;
    state_->block.resize(count);
    // libsndfile takes the upper 24 bits of an int.
    for (size_t i = 0; i < count; ++i) state_->block[i] = To24Bits(interleaved[i]) * 256;
    return sf_writef_int(state_->file, state_->block.data(), frames) == frames;
}

bool AudioWriter::Finish(std::string* error) {
    const bool failedBefore = sf_error(state_->file) != SF_ERR_NO_ERROR;
    const bool closed = sf_close(state_->file) == 0;
    state_->file = nullptr;
    if (failedBefore || !closed || std::rename(unfinished, state_->path.c_str()) != 0) {
        *error = "'" + state_->path + "' nao pode ser gravado ate o fim";
        return false;
    }
    *unfinished = '\0';
    return true;
}

}  // namespace simhost
