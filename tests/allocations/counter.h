#pragma once
#include <cstdint>

int64_t Allocations();  // by operator new in this program so far, in whatever part of it
