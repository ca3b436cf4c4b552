#include "tests/out_of_memory/failing_memory.h"

#include <dlfcn.h>
#include <execinfo.h>

#include <cstdlib>
#include <cstring>
#include <new>

#include "host/api.h"

extern "C" {
void* __real_malloc(size_t size);
void* __real_realloc(void* block, size_t size);
void* __wrap_malloc(size_t size);
void* __wrap_realloc(void* block, size_t size);
}

static int64_t untilFailure = 0;  // 0: nothing fails
static bool failed = false, looking = false;
static int hostDepth = 0;

// A request is the system's when the first frame above the language's own libraries is.
static bool FromSystem(void* caller) {
    void* frames[64];
    const int count = backtrace(frames, 64);
    int i = 0;
    while (i < count && frames[i] != caller) ++i;
    for (; i < count; ++i) {
        Dl_info where{};
        if (!dladdr(frames[i], &where) || !where.dli_fname) return false;
        if (!std::strstr(where.dli_fname, "libstdc++") && !std::strstr(where.dli_fname, "libc.so"))
            return std::strstr(where.dli_fname, "libquilmo_headless") != nullptr;
    }
    return false;
}

static bool Fails(void* caller) {
    if (untilFailure == 0 || hostDepth > 0 || looking) return false;
    looking = true;  // the look itself may ask for memory
    const bool counts = !FromSystem(caller);
    looking = false;
    if (!counts || --untilFailure > 0) return false;
    return failed = true;
}

bool FailsAt(int64_t n, const std::function<void()>& run) {
    void* once[1];
    backtrace(once, 1);  // its first call loads a library
    failed = false;
    untilFailure = n;
    run();
    untilFailure = 0;
    return failed;
}

template <int index, class Result, class... Arguments>
struct Watched {
    static inline Result (*original)(Arguments...) = nullptr;
    static Result Run(Arguments... arguments) {
        struct Inside {
            Inside() { ++hostDepth; }
            ~Inside() { --hostDepth; }
        } inside;
        return original(arguments...);
    }
};

template <int index, class Result, class... Arguments>
static void Watch(Result (*&slot)(Arguments...)) {
    using Here = Watched<index, Result, Arguments...>;
    if (slot == &Here::Run) return;
    Here::original = slot;
    slot = &Here::Run;
}

void WatchHostCalls() {
    enum Index {
#define NUMBER(result, name, parameters) Index_##name,
        FUNCOES_DO_HOST(NUMBER)
#undef NUMBER
    };
#define WATCH(result, name, parameters) Watch<Index_##name>(host::name);
    FUNCOES_DO_HOST(WATCH)
#undef WATCH
}

// The raster library's requests, and those of the code linked into this program besides.
void* __wrap_malloc(size_t size) { return Fails(__builtin_return_address(0)) ? nullptr : __real_malloc(size); }
void* __wrap_realloc(void* block, size_t size) {
    return Fails(__builtin_return_address(0)) ? nullptr : __real_realloc(block, size);
}

// The other forms of new and delete end in these.
void* operator new(size_t size, const std::nothrow_t&) noexcept {
    return Fails(__builtin_return_address(0)) ? nullptr : __real_malloc(size ? size : 1);
}
void* operator new(size_t size) {
    void* block = Fails(__builtin_return_address(0)) ? nullptr : __real_malloc(size ? size : 1);
    if (!block) throw std::bad_alloc();
    return block;
}
void* operator new(size_t size, std::align_val_t alignment, const std::nothrow_t&) noexcept {
    const size_t step = static_cast<size_t>(alignment);
    return Fails(__builtin_return_address(0)) ? nullptr : std::aligned_alloc(step, (size + step - 1) / step * step);
}
void operator delete(void* block) noexcept { std::free(block); }
void operator delete(void* block, size_t) noexcept { std::free(block); }
void operator delete(void* block, std::align_val_t) noexcept { std::free(block); }
