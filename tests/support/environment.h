// tests/support/environment.h
// Environment variables of this process, on either system.
#pragma once
#include <string>

void SetEnvironment(const char* name, const std::string& value);  // UTF-8; empty: not set
