// tests/support/pattern.h
// Regular expressions for tests, compiled in one place.
#pragma once
#include <string>
#include <vector>

// The text with each match replaced; in `by`, $1 is the first group.
std::string Replaced(const std::string& text, const std::string& pattern, const char* by = "");
// Of each match, itself and its groups; empty where a group took no part.
std::vector<std::vector<std::string>> Matches(const std::string& text, const std::string& pattern);
