#include "tests/apps/workshop.h"

#include <sndfile.h>

#include <cstdlib>
#include <filesystem>
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
