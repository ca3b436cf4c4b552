// Timers on the virtual clock.
#include <algorithm>

#include "platform/headless/desktop_state.h"

using namespace desktop;

static Timer* FindTimer(HWND window, UINT_PTR id) {
    for (Timer& each : Desktop().timers)
        if (each.window == window && each.id == id) return &each;
    return nullptr;
}

// The next is looked up afresh each time, since a handler may set or kill timers, its own too.
void desktop::AdvanceClock(int ms) {
    State& state = Desktop();
    const int64_t end = state.now + ms;
    Pump();
    for (;;) {
        const auto next = std::min_element(state.timers.begin(), state.timers.end(),
                                           [](const Timer& a, const Timer& b) { return a.due < b.due; });
        if (next == state.timers.end() || next->due > end) break;
        state.now = std::max(state.now, next->due);  // a handler may have moved it further
        Pump();
    }
    state.now = std::max(state.now, end);
}

int desktop::AwaitTimer(HWND window, UINT_PTR id) {
    const Timer* timer = FindTimer(window, id);
    if (!timer) return -1;
    const int64_t start = Desktop().now;
    AdvanceClock(static_cast<int>(timer->due - start));
    return static_cast<int>(Desktop().now - start);
}

UINT_PTR SetTimer(HWND window, UINT_PTR id, UINT ms, TIMERPROC procedure) {
    if (procedure) Fail("a timer is to call a procedure instead of sending a message");
    if (!Find(window)) return 0;
    KillTimer(window, id);  // the same number again starts the timer anew
    const int interval = static_cast<int>(std::clamp<UINT>(ms, 10, 0x7FFFFFFF));
    Desktop().timers.push_back({window, id, interval, Desktop().now + interval});
    return id;
}

BOOL KillTimer(HWND window, UINT_PTR id) {
    return Desktop().timers.remove_if([=](const Timer& each) { return each.window == window && each.id == id; }) != 0;
}
