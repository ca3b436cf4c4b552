#include "tests/apps/program.h"

#include <sys/wait.h>

#include <cstdlib>
#include <fstream>

#include "tests/apps/workshop.h"

// As one word of the shell, whatever bytes it holds.
static std::string Quoted(std::string word) {
    for (size_t at = 0; (at = word.find('\'', at)) != std::string::npos; at += 4) word.replace(at, 1, R"('\'')");
    return "'" + word + "'";
}

Outcome RunProgram(const std::string& name, const std::vector<std::string>& arguments, const char* out) {
    Workshop streams;
    const std::string outPath = out ? out : streams.Path("out"), errPath = streams.Path("err");
    std::string line = Quoted(BUILD_FOLDER "/" + name);
    for (const std::string& argument : arguments) line += ' ' + Quoted(argument);
    const int status = std::system((line + " </dev/null >" + Quoted(outPath) + " 2>" + Quoted(errPath)).c_str());
    return {WEXITSTATUS(status), out ? "" : Text(outPath), Text(errPath)};
}

std::string Text(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<double> ReadAll(const std::string& path, SF_INFO* info) {
    *info = {};
    SNDFILE* file = sf_open(path.c_str(), SFM_READ, info);
    if (!file) return {};
    std::vector<double> samples, block(static_cast<size_t>(info->channels) * 1000);
    for (sf_count_t n; (n = sf_readf_double(file, block.data(), 1000)) > 0;)
        samples.insert(samples.end(), block.begin(), block.begin() + n * info->channels);
    sf_close(file);
    return samples;
}
