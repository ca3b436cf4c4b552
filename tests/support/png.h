// tests/support/png.h
// Pictures for people to look at, on either system.
#pragma once
#include <string>

#include "tests/support/desktop_driver.h"

// Uncompressed. False when the file cannot be written.
bool WritePng(const std::string& path, const driver::Picture& picture);
