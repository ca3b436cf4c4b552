// apps/common/tool.h
// How the tools for the command line end when something stands in their way: with one line on standard error.
#pragma once
#include <string>

// The text without control characters, so that a file's name stays on one line.
std::string OnOneLine(std::string text);

// Ends the tool with this sentence, unless the condition holds.
void Expect(bool condition, const std::string& otherwise);  // throws std::runtime_error

// The main function of a tool that is given a recording, and a folder for what it makes of it.
int RunTool(const char* name, int argc, char** argv,
            void (*run)(const std::string& recording, const std::string& folder));
