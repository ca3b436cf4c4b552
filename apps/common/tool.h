// apps/common/tool.h
// The command line tools end with one line on standard error when something stands in their way.
#pragma once
#include <string>

// The text without control characters, so that a file's name stays on one line.
std::string OnOneLine(std::string text);

// Throws std::runtime_error with the sentence, which ends the tool, unless the condition holds.
void Expect(bool condition, const std::string& otherwise);

// The main function of a tool that is given a recording, and a folder for what it makes of it.
int RunTool(const char* name, int argc, char** argv,
            void (*run)(const std::string& recording, const std::string& folder));
