// tests/random/live_allocations.h
// How many blocks of C++ memory are in use, in the whole program. Their number, since the tables of the stand-in host
// and of the desktop that grow with every handle are one block each. Always 0 under sanitizers.
#pragma once
#include <cstdint>

int64_t LiveAllocations();
