#include "lice/heap_buffer.h"

#include <algorithm>
#include <climits>
#include <cstdint>
#include <cstdlib>
#include <cstring>

namespace {

constexpr int Page = 4096;
constexpr int LargestExtra = 0x400000;
constexpr int HeapOverhead = 96;  // what the heap keeps beside a block, so that both fill whole pages

// The allocation for a size that does not fit. Beyond INT_MAX it cannot be had.
int64_t AllocationFor(int newSize, int granularity) {
    if (newSize < 1) return 0;
    int64_t extra = std::max(newSize / 2, granularity);
    if (granularity < Page) return newSize + extra;
    extra = std::clamp<int64_t>(extra / Page * Page, Page, LargestExtra);
    return (newSize + extra + HeapOverhead) / Page * Page - HeapOverhead;
}

}  // namespace

HeapBuffer::~HeapBuffer() { std::free(block_); }

void* HeapBuffer::resize(int newSize, bool mayShrink) {
    newSize = std::max(newSize, 0);
    if (newSize == used_ && (!mayShrink || newSize >= allocated_ / 2)) return Get();

    int lowest = 0;
    if (mayShrink && newSize < used_)
        lowest = std::max<int64_t>(std::min<int64_t>(allocated_ - int64_t{granularity_} * 4, allocated_ / 2), 1);
    if (newSize > allocated_ || newSize < lowest) {
        const int64_t allocation = AllocationFor(newSize, granularity_);
        if (allocation > INT_MAX) return Get();
        if (allocation != allocated_ && !Reallocate(newSize, static_cast<int>(allocation))) return Get();
    }
    used_ = newSize;
    return Get();
}

bool HeapBuffer::Reallocate(int newSize, int allocation) {
    if (allocation < 1) {
        std::free(block_);
        block_ = nullptr;
        allocated_ = 0;
        return true;
    }
    void* grown = std::realloc(block_, allocation);
    if (!grown) {
        grown = std::malloc(allocation);
        if (!grown) return false;
        if (block_) std::memcpy(grown, block_, std::min(newSize, used_));
        std::free(block_);
    }
    block_ = grown;
    allocated_ = allocation;
    return true;
}
