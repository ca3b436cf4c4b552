#include "tests/support/pattern.h"

#include <regex>

std::string Replaced(const std::string& text, const std::string& pattern, const char* by) {
    return std::regex_replace(text, std::regex(pattern), by);
}

std::vector<std::vector<std::string>> Matches(const std::string& text, const std::string& pattern) {
    const std::regex rule(pattern);
    std::vector<std::vector<std::string>> all;
    for (std::sregex_iterator m(text.begin(), text.end(), rule), end; m != end; ++m)
        all.emplace_back(m->begin(), m->end());
    return all;
}
