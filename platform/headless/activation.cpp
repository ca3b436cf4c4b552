#include "platform/headless/activation.h"

#include <algorithm>
#include <utility>

namespace desktop {

static const HWND OtherProgram = reinterpret_cast<HWND>(uintptr_t{0x4});  // below every handle of our own

static void Tell(HWND window, WORD how, HWND other) {
    const Window* it = Find(window);
    if (it) SendMessageA(window, WM_ACTIVATE, MAKEWPARAM(how, it->minimised), reinterpret_cast<LPARAM>(other));
}

void Activate(HWND handle, WORD how) {
    State& state = Desktop();
    const HWND previous = state.active;
    if (previous == handle && state.foreground == handle) return;
    state.active = state.foreground = nullptr;  // nobody is in front while the old one hears of it
    if (previous != handle) Tell(previous, WA_INACTIVE, handle);
    const auto window = std::find_if(state.windows.begin(), state.windows.end(),
                                     [handle](const Window& each) { return each.handle == handle; });
    if (window == state.windows.end()) return;
    state.windows.splice(state.windows.begin(), state.windows, window);
    state.active = state.foreground = handle;
    Tell(handle, how, previous);
}

// The owner comes next, then whatever else is on the screen.
void ActivateAnother(const Window& than) {
    if (const Window* owner = Find(than.owner); owner && OnScreen(*owner)) return Activate(owner->handle, WA_ACTIVE);
    for (const Window& each : Desktop().windows)
        if (OnScreen(each)) return Activate(each.handle, WA_ACTIVE);
    Activate(nullptr, WA_INACTIVE);
}

void ActivateOtherProgram() {
    Activate(nullptr, WA_INACTIVE);
    Desktop().foreground = OtherProgram;
    Pump();
}

void LeaveNobodyInFront() {
    Activate(nullptr, WA_INACTIVE);
    Pump();
}

}  // namespace desktop

using namespace desktop;

HWND GetForegroundWindow() { return Desktop().foreground; }

BOOL SetForegroundWindow(HWND window) {
    if (!Find(window)) return false;
    Activate(window, WA_ACTIVE);
    return true;
}

// Who loses it is told who has it now.
static HWND PassCapture(HWND to) {
    const HWND before = std::exchange(Desktop().capture, to);
    if (before && before != to) SendMessageA(before, WM_CAPTURECHANGED, 0, reinterpret_cast<LPARAM>(to));
    return before;
}

HWND SetCapture(HWND window) { return Find(window) ? PassCapture(window) : nullptr; }

HWND GetCapture() { return Desktop().capture; }

BOOL ReleaseCapture() {
    PassCapture(nullptr);
    return true;
}
