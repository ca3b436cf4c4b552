#pragma once
#include <string>

// The text without control characters, so that a file's name stays on one line.
std::string OnOneLine(std::string text);
