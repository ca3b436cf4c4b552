#include "tests/apps/workshop.h"

#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <set>

namespace fs = std::filesystem;

Workshop::Workshop() {
    std::string pattern = (fs::temp_directory_path() / "oficina-XXXXXX").string();
    folder_ = mkdtemp(pattern.data());
}

Workshop::~Workshop() {
    std::error_code ignored;
    fs::remove_all(folder_, ignored);
}

std::string Workshop::Listing() const {
    std::set<std::string> names;
    for (const auto& entry : fs::recursive_directory_iterator(folder_))
        names.insert(fs::relative(entry.path(), folder_).string());
    std::string text;
    for (const std::string& name : names) text += name + " ";
    return text;
}

std::string Workshop::Write(const std::string& name, int format, int rate, int channels,
                            const std::vector<double>& samples) {
    SF_INFO info{0, rate, channels, format, 0, 0};
    if (SNDFILE* file = sf_open(Path(name).c_str(), SFM_WRITE, &info)) {
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
    const Workshop streams;
    const std::string script = "cd " + folder_.string() + " && PATH='" BUILD_FOLDER "':$PATH && { " + line +
                               "\n} </dev/null >" + streams.Path("out") + " 2>" + streams.Path("err");
    const int status = std::system(script.c_str());
    return {WEXITSTATUS(status), streams.Text("out"), streams.Text("err")};
}

std::string Workshop::Text(const std::string& name) const {
    std::ifstream file(Path(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<double> Workshop::Samples(const std::string& name, SF_INFO* info) const {
    *info = {};
    SNDFILE* file = sf_open(Path(name).c_str(), SFM_READ, info);
    if (!file) return {};
    std::vector<double> samples, block(static_cast<size_t>(info->channels) * 1000);
    for (sf_count_t n; (n = sf_readf_double(file, block.data(), 1000)) > 0;)
        samples.insert(samples.end(), block.begin(), block.begin() + n * info->channels);
    sf_close(file);
    return samples;
}
