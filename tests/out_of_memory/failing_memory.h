// tests/out_of_memory/failing_memory.h
// Memory that runs out at will: C++ blocks and the raster library's. Only the module's own requests count; those made
// inside a call of the host or of what stands in for the system succeed.
#pragma once
#include <cstdint>

// The module's n-th request from now on fails, counted from 1. At the end tells whether it came to that.
class OneFailure {
  public:
    explicit OneFailure(int64_t n);
    ~OneFailure();
    OneFailure(const OneFailure&) = delete;
    OneFailure& operator=(const OneFailure&) = delete;
    bool Happened() const;
};

// Tells the calls of the host's functions apart from the module's own work; after each load of the module.
void WatchHostCalls();
