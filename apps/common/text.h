// apps/common/text.h
// Texts are UTF-8 inside and UTF-16 at the system's calls.
#pragma once
#include <string>

std::wstring Wide(const std::string& utf8);
std::string Utf8(const std::wstring& wide);
std::wstring ProgramFolder();  // where this program's file lies, without a separator at the end
