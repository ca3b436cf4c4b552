// platform/files.h
// Files whose paths are UTF-8 on every system. Windows' narrow C functions cannot open a path with accented letters,
// so here, and nowhere else, paths become UTF-16.
#pragma once
#include <cstdio>
#include <string>

inline constexpr char PathSeparator =
#ifdef _WIN32
    '\\';
#else
    '/';
#endif

// As std::fopen; null when the file cannot be opened or the path is not UTF-8.
std::FILE* OpenFile(const std::string& path, const char* mode);
// The whole file, read in text mode; false when it cannot be opened.
bool ReadTextFile(const std::string& path, std::string& text);
// True when the file was there and is gone now.
bool RemoveFile(const std::string& path);
// The value of an environment variable, as UTF-8; empty when it is not set.
std::string EnvironmentVariable(const char* name);
