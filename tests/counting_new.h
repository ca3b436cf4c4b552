// tests/counting_new.h
// A program that links counting_new.cpp counts its C++ memory, in whatever part of it.
#pragma once
#include <cstdint>

int64_t AllocationsMade();   // so far
int64_t AllocationsAlive();  // in use now
int64_t BytesAllocated();    // so far, also those given back
