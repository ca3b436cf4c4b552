// tests/out_of_memory/failing_memory.h
// Memory that runs out at will. Only the module's own requests count, not those of the host or the system.
#pragma once
#include <cstdint>
#include <functional>

// Runs it with the module's n-th request failing, counted from 1; whether it came to that.
bool FailsAt(int64_t n, const std::function<void()>& run);

// Tells the calls of the host's functions apart from the module's own work; after each load of the module.
void WatchHostCalls();
