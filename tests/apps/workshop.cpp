#include "tests/apps/workshop.h"

#include <sys/wait.h>

#include <cstdlib>
#include <sstream>

#include "tests/support/folders.h"

namespace fs = std::filesystem;

// The test's files lie in "here", beside what a program has said.
Workshop::Workshop() {
    std::string pattern = (fs::temp_directory_path() / "oficina-XXXXXX").string();
    folder_ = mkdtemp(pattern.data());
    fs::create_directory(folder_ / "here");
}

Workshop::~Workshop() {
    std::error_code ignored;
    fs::remove_all(folder_, ignored);
}

std::string Workshop::Listing() const {
    return Run("find . -mindepth 1 -printf '%P\\n' | LC_ALL=C sort | tr '\\n' ' '").out;
}

std::string Workshop::Write(const std::string& name, int format, int rate, int channels,
                            const std::vector<double>& samples) {
    SF_INFO written{0, rate, channels, format, 0, 0};
    if (SNDFILE* file = sf_open(Path(name).c_str(), SFM_WRITE, &written)) {
        sf_writef_double(file, samples.data(), static_cast<sf_count_t>(samples.size()) / channels);
        sf_close(file);
    }
    return Path(name);
}

std::vector<double> Workshop::Noise(int count) {
    std::vector<double> samples(count);
    for (int i = 0; i < count; ++i) samples[i] = (i % 2 ? -1 : 1) * (0.2 + 0.5 * (i * 7919LL % 10007) / 10007.0);
    return samples;
}

Outcome Workshop::Run(const std::string& line) const {
    const std::string script = "cd " + Path("") + " && PATH='" + BuildFolder() + "':$PATH && { " + line +
                               "\n} </dev/null >" + Path("../out") + " 2>" + Path("../err");
    const int status = std::system(script.c_str());
    return {WEXITSTATUS(status), Text("../out"), Text("../err")};
}

Outcome Workshop::Good(const std::string& line) const {
    const Outcome run = Run(line);
    EXPECT_EQ(run.status, 0) << line << '\n' << run.err;
    EXPECT_EQ(run.err, "") << line;
    return run;
}

std::string Workshop::Text(const std::string& name) const { return LerArquivo(Path(name)); }

std::vector<double> Workshop::Samples(const std::string& name) {
    info = {};
    SNDFILE* file = sf_open(Path(name).c_str(), SFM_READ, &info);
    if (!file) return {};
    std::vector<double> samples, block(static_cast<size_t>(info.channels) * 1000);
    for (sf_count_t n; (n = sf_readf_double(file, block.data(), 1000)) > 0;)
        samples.insert(samples.end(), block.begin(), block.begin() + n * info.channels);
    sf_close(file);
    return samples;
}

std::vector<double> Fatiar::Recording(int rate, double seconds, const std::vector<Sound>& sounds, int channels) {
    std::vector<double> samples = Noise(static_cast<int>(seconds * rate + 0.5) * channels);
    auto sound = sounds.begin();
    for (size_t i = 0; i < samples.size(); ++i) {
        const double t = static_cast<double>(i / channels) / rate;
        while (sound != sounds.end() && t >= sound->start + sound->length - 1e-9) ++sound;
        samples[i] *= sound != sounds.end() && t >= sound->start - 1e-9 ? sound->level : 0.005;
    }
    return samples;
}

std::string Fatiar::Pieces(const std::string& line, const std::string& recording) const {
    std::string pieces, row;
    for (std::istringstream rows(Good("fatiar --csv " + line).out); std::getline(rows, row);)
        if (row.starts_with(recording + ',')) pieces += row.substr(recording.size() + 1) + ' ';
    return pieces;
}
