#include "apps/common/tool.h"

#include <algorithm>
#include <cstdio>
#include <stdexcept>

std::string OnOneLine(std::string text) {
    std::replace_if(
        text.begin(), text.end(), [](unsigned char c) { return c < 32 || c == 127; }, '?');
    return text;
}

void Expect(bool condition, const std::string& otherwise) {
    if (!condition) throw std::runtime_error(otherwise);
}

int RunTool(const char* name, int argc, char** argv,
            void (*run)(const std::string& recording, const std::string& folder)) {
    if (argc != 3) {
        std::fprintf(stderr, "Uso: %s gravacao pasta\n", name);
        return 2;
    }
    try {
        run(argv[1], argv[2]);
    } catch (const std::exception& why) {
        std::fflush(stdout);
        std::fprintf(stderr, "%s: %s\n", name, OnOneLine(why.what()).c_str());
        return 1;
    }
    return 0;
}
