#include "tests/counting_new.h"

#include <atomic>
#include <cstdlib>
#include <new>

static std::atomic<int64_t> made = 0, gone = 0, bytes = 0;

int64_t AllocationsMade() { return made; }

int64_t AllocationsAlive() { return made - gone; }

int64_t BytesAllocated() { return bytes; }

// The other forms of new and delete end here, too; the sanitizers' own would not go through the first.
void* operator new(size_t size, const std::nothrow_t&) noexcept {
    void* block = std::malloc(size ? size : 1);
    made += block != nullptr;
    bytes += static_cast<int64_t>(size);
    return block;
}
void* operator new(size_t size) {
    if (void* block = operator new(size, std::nothrow)) return block;
    throw std::bad_alloc();
}
void operator delete(void* block) noexcept {
    gone += block != nullptr;
    std::free(block);
}
void operator delete(void* block, size_t) noexcept { operator delete(block); }
