#include "tests/allocations/counter.h"

#include <atomic>
#include <cstdlib>
#include <new>

static std::atomic<int64_t> count = 0;

int64_t Allocations() {
    return count;
}

// The other forms of new and delete end here, too.
void* operator new(size_t size) {
    ++count;
    if (void* memory = std::malloc(size ? size : 1)) return memory;
    throw std::bad_alloc();
}
void operator delete(void* memory) noexcept {
    std::free(memory);
}
void operator delete(void* memory, size_t) noexcept {
    std::free(memory);
}
