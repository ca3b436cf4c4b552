// tests/support/rects.h
// Rectangles as text, for comparisons.
#pragma once
#include <gtest/gtest.h>

#include <string>
#include <tuple>

#include "platform/win32.h"

inline std::string Show(const RECT& r) { return testing::PrintToString(std::tuple(r.left, r.top, r.right, r.bottom)); }
