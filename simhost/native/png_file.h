// simhost/native/png_file.h
#pragma once
#include <string>

#include "lice/bitmap.h"

namespace simhost {

// The surface without its alpha. False when the file cannot be written; what was begun is taken away.
bool WritePng(const std::string& path, LICE_IBitmap* bitmap);

}  // namespace simhost
