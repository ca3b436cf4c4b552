// lice/heap_buffer.h
// A growable block of plain bytes, for what is appended piece by piece. It grows by half of its size in whole pages. It
// shrinks when asked to, and when most of it is idle. Sizes are in bytes.
#pragma once

class HeapBuffer {
  public:
    explicit HeapBuffer(int granularity) : granularity_(granularity) {}  // the least that it grows by
    ~HeapBuffer();
    HeapBuffer(const HeapBuffer&) = delete;
    HeapBuffer& operator=(const HeapBuffer&) = delete;

    // Gives the block, which may have moved. Size tells afterwards whether there was memory; if not, nothing changed.
    void* resize(int newSize, bool mayShrink);
    void* Get() const { return used_ > 0 ? block_ : nullptr; }  // null when nothing is in use
    int Size() const { return used_; }
    int Allocated() const { return allocated_; }

    template <class Item>
    Item* Items() const {
        return static_cast<Item*>(Get());
    }
    template <class Item>
    int Count() const {
        return used_ / static_cast<int>(sizeof(Item));
    }

  private:
    bool Reallocate(int newSize, int allocation);

    void* block_ = nullptr;
    int allocated_ = 0;
    int used_ = 0;
    int granularity_;
};
