#include "tests/apps/program.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fstream>

#include "tests/apps/workshop.h"

Outcome RunProgram(const std::string& name, std::vector<std::string> arguments, const char* out) {
    Workshop streams;
    const std::string outPath = out ? out : streams.Path("out"), errPath = streams.Path("err");
    posix_spawn_file_actions_t files;
    posix_spawn_file_actions_init(&files);
    posix_spawn_file_actions_addopen(&files, 0, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_addopen(&files, 1, outPath.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    posix_spawn_file_actions_addopen(&files, 2, errPath.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    arguments.insert(arguments.begin(), BUILD_FOLDER "/" + name);
    std::vector<char*> argv;
    for (std::string& a : arguments) argv.push_back(a.data());
    argv.push_back(nullptr);
    pid_t child = 0;
    int status = -1;
    if (posix_spawn(&child, argv[0], &files, nullptr, argv.data(), environ) == 0) waitpid(child, &status, 0);
    posix_spawn_file_actions_destroy(&files);
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, out ? "" : Text(outPath), Text(errPath)};
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
