// tests/counting_new.h
// A program that links counting_new.cpp counts its C++ memory, in whatever part of it: blocks, not bytes, since tables
// that grow are one block each.
#pragma once
#include <cstdint>

int64_t AllocationsMade();   // so far
int64_t AllocationsAlive();  // in use now
