// tests/support/folders.h
// Where tests find what is kept beside the sources, and what was built.
#pragma once
#include <string>

std::string SourceFolder();
std::string BuildFolder();
