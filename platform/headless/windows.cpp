// Window classes, windows from creation to destruction, and what they do with messages that they leave alone.
#include <utility>

#include "platform/headless/activation.h"

namespace desktop {

static void Forget(HWND window) {
    State& state = Desktop();
    state.timers.remove_if([window](const Timer& timer) { return timer.window == window; });
    std::erase_if(state.queue, [window](const Message& message) { return message.window == window; });
    state.windows.remove_if([window](const Window& each) { return each.handle == window; });
}

static void LeaveScreen(Window& window) {
    window.invalid = false;
    if (Desktop().active == window.handle) ActivateAnother(window);
}

// The window that an owner's end takes along, or null.
static HWND SomeOwned(HWND owner) {
    for (const Window& each : Desktop().windows)
        if (each.owner == owner && !each.dying) return each.handle;
    return nullptr;
}

std::string Leftovers() {
    const int contexts = Desktop().contextsLent;
    const size_t menus = Desktop().menus.size();
    std::string sentence;
    if (contexts) sentence += std::to_string(contexts) + " device contexts not given back. ";
    if (menus) sentence += std::to_string(menus) + " menus not destroyed. ";
    return sentence;
}

void Reset() {
    State& state = Desktop();
    while (!state.windows.empty()) {
        const HWND front = state.windows.front().handle;
        if (!DestroyWindow(front)) Fail("a window is destroyed while the desktop is reset");
    }
    auto classes = std::move(state.classes);
    const uint64_t lastHandle = state.lastHandle;
    state = {};
    state.classes = std::move(classes);
    state.lastHandle = lastHandle;
}

}  // namespace desktop

using namespace desktop;

HCURSOR LoadCursorA(HINSTANCE, const char* name) {
    return name == IDC_ARROW ? reinterpret_cast<HCURSOR>(uintptr_t{0x10003}) : nullptr;  // the pointer is not drawn
}

ATOM RegisterClassA(const WNDCLASSA* c) {
    return Desktop().classes.emplace(c->lpszClassName, c->lpfnWndProc).second ? 0xC001 : 0;
}

BOOL UnregisterClassA(const char* name, HINSTANCE) {
    return !FindWindowA(name, nullptr) && Desktop().classes.erase(name) != 0;
}

HWND CreateWindowExA(DWORD, const char* className, const char* title, DWORD style, int x, int y, int width, int height,
                     HWND owner, HMENU, HINSTANCE, void*) {
    if (style != WS_OVERLAPPEDWINDOW) Fail("a window of another style than the usual one");
    State& state = Desktop();
    const auto kind = state.classes.find(className);
    if (kind == state.classes.end() || (owner && !Find(owner))) return nullptr;
    const HWND handle = NewHandle<HWND>();
    state.windows.push_front(
        {.handle = handle, .owner = owner, .className = className, .title = title, .procedure = kind->second});
    MoveWindow(handle, x, y, width, height, false);
    return Find(handle) ? handle : nullptr;
}

// The window first leaves the screen, which deactivates it, and takes the windows that it owns along.
// Only then does it hear that it is destroyed, with its timers still running.
BOOL DestroyWindow(HWND handle) {
    Window* window = Find(handle);
    if (!window || window->dying) return false;
    window->dying = true;
    window->visible = false;
    LeaveScreen(*window);
    while (const HWND owned = SomeOwned(handle)) DestroyWindow(owned);
    SendMessageA(handle, WM_DESTROY, 0, 0);
    if (Desktop().capture == handle) ReleaseCapture();
    SendMessageA(handle, WM_NCDESTROY, 0, 0);
    Forget(handle);
    return true;
}

BOOL IsWindow(HWND window) { return Find(window) != nullptr; }

BOOL IsIconic(HWND handle) {
    const Window* window = Find(handle);
    return window && window->minimised;
}

// A minimised window stands far off the screen; its own place is kept for the way back.
static void Minimise(Window& window) {
    if (window.minimised) return;
    window.normal = window.place;
    window.place = {-32000, -32000, -32000 + 160, -32000 + 31};
    window.minimised = true;
    LeaveScreen(window);
}

static void Restore(Window& window) {
    if (!window.minimised) return;
    window.place = window.normal;
    window.minimised = false;
    Invalidate(window);
}

BOOL ShowWindow(HWND handle, int command) {
    Window* window = Find(handle);
    if (!window || window->dying) return false;
    const bool before = std::exchange(window->visible, true);
    if (!before) Invalidate(*window);
    if (command == SW_RESTORE) Restore(*window);
    if (command == SW_MINIMIZE)
        Minimise(*window);
    else
        Activate(handle, WA_ACTIVE);
    return before;
}

HWND FindWindowA(const char* className, const char* title) {
    for (const Window& each : Desktop().windows)
        if ((!className || each.className == className) && (!title || each.title == title)) return each.handle;
    return nullptr;
}

HWND GetWindow(HWND handle, UINT relation) {
    const Window* window = Find(handle);
    return window && relation == GW_OWNER ? window->owner : nullptr;
}

LONG_PTR SetWindowLongPtrA(HWND handle, int index, LONG_PTR value) {
    Window* window = Find(handle);
    if (!window || index != GWLP_WNDPROC) return 0;
    return reinterpret_cast<LONG_PTR>(std::exchange(window->procedure, reinterpret_cast<WNDPROC>(value)));
}

LRESULT DefWindowProcA(HWND handle, UINT message, WPARAM, LPARAM) {
    if (message == WM_CLOSE) DestroyWindow(handle);
    if (message == WM_PAINT) {
        PAINTSTRUCT paint;
        BeginPaint(handle, &paint);
        EndPaint(handle, &paint);
    }
    return 0;
}
