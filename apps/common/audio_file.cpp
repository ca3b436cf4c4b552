#include "apps/common/audio_file.h"

#include <emmintrin.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>

namespace {

using SndfileRef = std::unique_ptr<SNDFILE, decltype([](SNDFILE* file) { sf_close(file); })>;

// The MP3 decoder below libsndfile tells standard error what it thinks of a damaged file. While one of these lives,
// nobody hears it: the user gets one sentence from us.
class Hush {
  public:
    explicit Hush(bool wanted) : kept_(wanted ? dup(STDERR_FILENO) : -1) {
        const int nowhere = kept_ < 0 ? -1 : open("/dev/null", O_WRONLY | O_CLOEXEC);
        if (nowhere < 0) return;
        dup2(nowhere, STDERR_FILENO);
        close(nowhere);
    }
    Hush(const Hush&) = delete;
    Hush& operator=(const Hush&) = delete;
    ~Hush() {
        if (kept_ < 0) return;
        dup2(kept_, STDERR_FILENO);
        close(kept_);
    }

  private:
    int kept_;
};

constexpr int BlockBytes = 128 * 1024;  // fits the second-level cache together with the doubles made from it

constexpr int MostFramesPerByte = 4096;  // no coding comes near, not even of silence
constexpr int LowestRate = 1000, HighestRate = 1'000'000;

// On a page border, because libsndfile reads straight into it and the kernel copies much slower to some addresses.
using BlockRef = std::unique_ptr<void, decltype([](void* block) { std::free(block); })>;

// Exact and in one subtraction: the bits of the sample, moved to 0..65535, become the lowest of the double 2^37, where
// one step is 1/32768; taking 2^37 + 1 away leaves sample / 32768.
void ToDoubles(const short* from, int count, double* to) {
    const __m128i flip = _mm_set1_epi16(-32768), zero = _mm_setzero_si128(), exponent = _mm_set1_epi32(0x42400000);
    const __m128d base = _mm_set1_pd(137438953473.0);
    const auto put = [base](double* at, __m128i bits) { _mm_storeu_pd(at, _mm_sub_pd(_mm_castsi128_pd(bits), base)); };
    int i = 0;
    for (; i + 8 <= count; i += 8) {
        const __m128i s = _mm_xor_si128(_mm_loadu_si128(reinterpret_cast<const __m128i*>(from + i)), flip);
        const __m128i low = _mm_unpacklo_epi16(s, zero), high = _mm_unpackhi_epi16(s, zero);
        put(to + i, _mm_unpacklo_epi32(low, exponent));
        put(to + i + 2, _mm_unpackhi_epi32(low, exponent));
        put(to + i + 4, _mm_unpacklo_epi32(high, exponent));
        put(to + i + 6, _mm_unpackhi_epi32(high, exponent));
    }
    for (; i < count; ++i) to[i] = from[i] / 32768.0;
}

void ToDoubles(const int* from, int count, double* to) {
    for (int i = 0; i < count; ++i) to[i] = from[i] / 2147483648.0;
}

void ToDoubles(const float* from, int count, double* to) {
    for (int i = 0; i < count; ++i) to[i] = from[i];
}

// With these codings libsndfile finds any frame. With the others a seek may land beside the frame, or lose the stream.
bool FindsAnyFrame(const SF_INFO& info) {
    constexpr int codings[] = {SF_FORMAT_PCM_S8, SF_FORMAT_PCM_U8, SF_FORMAT_PCM_16, SF_FORMAT_PCM_24, SF_FORMAT_PCM_32,
                               SF_FORMAT_FLOAT,  SF_FORMAT_DOUBLE, SF_FORMAT_ULAW,   SF_FORMAT_ALAW};
    return info.seekable && std::count(std::begin(codings), std::end(codings), info.format & SF_FORMAT_SUBMASK);
}

bool LastFrameIsThere(SNDFILE* file, const SF_INFO& info) {
    std::vector<double> last(info.channels);
    return sf_seek(file, info.frames - 1, SEEK_SET) == info.frames - 1 && sf_readf_double(file, last.data(), 1) == 1 &&
           sf_seek(file, 0, SEEK_SET) == 0;
}

// Everything that can be read of the file, as a file of doubles that vanishes with its descriptor. Null when there is
// no room for it.
SndfileRef Unpack(const std::string& path, SF_INFO* info) {
    SF_INFO packed{};
    const SndfileRef from(sf_open(path.c_str(), SFM_READ, &packed));
    std::FILE* const nameless = from ? std::tmpfile() : nullptr;
    if (!nameless) return nullptr;
    const int descriptor = dup(fileno(nameless));
    std::fclose(nameless);

    *info = {};
    info->samplerate = packed.samplerate;
    info->channels = packed.channels;
    info->format = SF_FORMAT_W64 | SF_FORMAT_DOUBLE;
    SndfileRef to(sf_open_fd(descriptor, SFM_RDWR, info, true));
    const int atOnce = 4096;
    std::vector<double> block(static_cast<size_t>(atOnce) * packed.channels);
    int64_t frames = 0;
    while (to) {
        const sf_count_t got = sf_readf_double(from.get(), block.data(), atOnce);
        if (got <= 0) break;
        if (sf_writef_double(to.get(), block.data(), got) != got) return nullptr;
        frames += got;
    }
    info->frames = frames;
    info->seekable = true;
    if (to && sf_seek(to.get(), 0, SEEK_SET) != 0) to.reset();
    return to;
}

class FileSource : public simhost::Source {
  public:
    FileSource(std::string path, SndfileRef file, const SF_INFO& info)
        : Source(info.samplerate, info.channels, info.frames),
          path_(std::move(path)),
          file_(std::move(file)),
          info_(info) {}

  protected:
    bool ReadInside(int64_t first, int frames, double* out) override {
        const Hush hush((info_.format & SF_FORMAT_TYPEMASK) == SF_FORMAT_MPEG);
        if (first != next_ && !GoTo(first)) return Lost();
        next_ = first + frames;
        // The samples as they are stored, where that spares libsndfile a conversion through a small buffer of its own.
        switch (info_.format & SF_FORMAT_SUBMASK) {
            case SF_FORMAT_PCM_16:
                return ReadStored<short>(sf_readf_short, frames, out);
            case SF_FORMAT_PCM_32:
                return ReadStored<int>(sf_readf_int, frames, out);
            case SF_FORMAT_FLOAT:
                return ReadStored<float>(sf_readf_float, frames, out);
        }
        return sf_readf_double(file_.get(), out, frames) == frames || Lost();
    }

  private:
    // A coding that can only be read onwards is opened anew for its start, and unpacked at the first step elsewhere.
    bool GoTo(int64_t frame) {
        if (!FindsAnyFrame(info_)) {
            info_ = {};
            file_ = frame == 0 ? SndfileRef(sf_open(path_.c_str(), SFM_READ, &info_)) : Unpack(path_, &info_);
            if (frame == 0) return file_ != nullptr;
        }
        return file_ && sf_seek(file_.get(), frame, SEEK_SET) == frame;
    }

    template <class Sample>
    bool ReadStored(sf_count_t (*read)(SNDFILE*, Sample*, sf_count_t), int frames, double* out) {
        if (!block_) block_.reset(std::aligned_alloc(4096, BlockBytes));
        auto* const block = static_cast<Sample*>(block_.get());
        const int channels = info_.channels, atOnce = BlockBytes / static_cast<int>(sizeof(Sample)) / channels;
        while (frames > 0) {
            const int n = std::min(frames, atOnce);
            if (!block || read(file_.get(), block, n) != n) return Lost();
            ToDoubles(block, n * channels, out);
            out += static_cast<ptrdiff_t>(n) * channels;
            frames -= n;
        }
        return true;
    }

    bool Lost() {
        next_ = -1;  // wherever the file stands now, the next read seeks first
        return false;
    }

    std::string path_;
    SndfileRef file_;  // null after an unpacking that failed
    SF_INFO info_;     // of the file that is open now; the source stays as it was first told
    int64_t next_ = 0;
    BlockRef block_;
};

}  // namespace

simhost::SourceRef OpenAudioFile(const std::string& path, std::string* error, AudioFacts* facts) {
    const auto refuse = [&](const std::string& why) {
        *error = "'" + path + "' " + why;
        return nullptr;
    };
    struct stat status;
    if (stat(path.c_str(), &status) != 0) return refuse(errno == ENOENT ? "nao existe" : "nao pode ser aberto");
    if (S_ISDIR(status.st_mode)) return refuse("e uma pasta, nao uma gravacao");
    if (!S_ISREG(status.st_mode)) return refuse("nao e um arquivo comum");  // a pipe would wait for a writer
    if (access(path.c_str(), R_OK) != 0) return refuse("nao pode ser lido");

    const Hush hush(true);
    SF_INFO info{};
    SndfileRef file(sf_open(path.c_str(), SFM_READ, &info));
    if (!file) return refuse("nao e audio que se possa ler");
    if (info.frames == 0) return refuse("nao tem audio nenhum");
    if (info.samplerate < LowestRate || info.samplerate > HighestRate)
        return refuse("tem uma taxa absurda, " + std::to_string(info.samplerate) + " Hz");
    if (facts) *facts = FactsOf(file.get(), info, path);
    const int64_t promised = info.frames;
    // Where a seek may lose the stream, the end is looked for through a handle of its own.
    const bool believable = FindsAnyFrame(info)
                                ? LastFrameIsThere(file.get(), info)
                                : info.frames > 0 && info.frames / MostFramesPerByte <= status.st_size &&
                                      LastFrameIsThere(SndfileRef(sf_open(path.c_str(), SFM_READ, &info)).get(), info);
    if (!believable) file = Unpack(path, &info);
    if (!file || info.frames == 0) return refuse("nao tem audio que se possa ler, ou nao cabe na pasta temporaria");
    if (facts && promised != SF_COUNT_MAX && promised > info.frames)
        facts->promisedShare = static_cast<double>(promised) / static_cast<double>(info.frames);
    return std::make_shared<FileSource>(path, std::move(file), info);
}
