// Window classes, and windows from creation to destruction.
#include <algorithm>
#include <cstring>

#include "platform/headless/desktop_state.h"

namespace desktop {

State& Desktop() {
    static State& state = *new State;  // outlives every static object that still has a window
    return state;
}

Window* Find(HWND window) {
    for (Window& each : Desktop().windows)
        if (each.handle == window) return &each;
    return nullptr;
}

bool OnScreen(const Window& window) {
    return window.visible && !window.minimised;
}

static void Forget(HWND window) {
    State& state = Desktop();
    state.timers.remove_if([window](const Timer& timer) { return timer.window == window; });
    std::erase_if(state.queue, [window](const Message& message) { return message.window == window; });
    state.windows.remove_if([window](const Window& each) { return each.handle == window; });
}

static void Hide(Window& window) {
    window.visible = false;
    window.invalid = {};
    if (Desktop().active == window.handle) ActivateAnother(window);
}

// The window that an owner's end takes along, or null.
static HWND SomeOwned(HWND owner) {
    for (const Window& each : Desktop().windows)
        if (each.owner == owner && !each.dying) return each.handle;
    return nullptr;
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

HMODULE GetModuleHandleA(const char* name) {
    return name ? nullptr : reinterpret_cast<HMODULE>(uintptr_t{0x400000});
}

HCURSOR LoadCursorA(HINSTANCE, const char* name) {
    return name == IDC_ARROW ? reinterpret_cast<HCURSOR>(uintptr_t{0x10003}) : nullptr;  // the pointer is not drawn
}

ATOM RegisterClassA(const WNDCLASSA* c) {
    const WindowClass kind{c->style, c->lpfnWndProc, c->hbrBackground};
    return Desktop().classes.emplace(c->lpszClassName, kind).second ? 0xC001 : 0;
}

BOOL UnregisterClassA(const char* name, HINSTANCE) {
    return !FindWindowA(name, nullptr) && Desktop().classes.erase(name) != 0;
}

HWND CreateWindowExA(DWORD, const char* className, const char* title, DWORD style, int x, int y, int width, int height,
                     HWND owner, HMENU, HINSTANCE, void*) {
    State& state = Desktop();
    const auto kind = state.classes.find(className);
    if (kind == state.classes.end() || (owner && !Find(owner)) || (style & WS_CHILD)) return nullptr;
    const HWND handle = NewHandle<HWND>();
    state.windows.push_front({.handle = handle,
                              .owner = owner,
                              .className = className,
                              .kind = kind->second,
                              .title = title ? title : "",
                              .style = style & ~WS_VISIBLE,
                              .procedure = kind->second.procedure});
    SetWindowPos(handle, nullptr, x, y, width, height, SWP_NOACTIVATE);
    if (!SendMessageA(handle, WM_NCCREATE, 0, 0) || SendMessageA(handle, WM_CREATE, 0, 0) == -1) {
        DestroyWindow(handle);
        return nullptr;
    }
    if (style & WS_VISIBLE) ShowWindow(handle, SW_SHOW);
    return Find(handle) ? handle : nullptr;
}

// The window leaves the screen first, which deactivates it, and takes the windows that it owns along; only then does it
// hear that it is destroyed, with its timers still running.
BOOL DestroyWindow(HWND handle) {
    Window* window = Find(handle);
    if (!window || window->dying) return false;
    window->dying = true;
    Hide(*window);
    while (const HWND owned = SomeOwned(handle)) DestroyWindow(owned);
    SendMessageA(handle, WM_DESTROY, 0, 0);
    if (Desktop().capture == handle) ReleaseCapture();
    SendMessageA(handle, WM_NCDESTROY, 0, 0);
    Forget(handle);
    return true;
}

BOOL IsWindow(HWND window) {
    return Find(window) != nullptr;
}

BOOL IsWindowVisible(HWND handle) {
    const Window* window = Find(handle);
    return window && window->visible;
}

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
    window.invalid = {};
    if (Desktop().active == window.handle) ActivateAnother(window);
}

static void Restore(Window& window) {
    if (!window.minimised) return;
    window.place = window.normal;
    window.minimised = false;
    InvalidateAll(window);
}

BOOL ShowWindow(HWND handle, int command) {
    Window* window = Find(handle);
    if (!window || window->dying) return false;
    const bool before = window->visible, after = command != SW_HIDE;
    if (before != after) SendMessageA(handle, WM_SHOWWINDOW, after, 0);
    if (!(window = Find(handle))) return before;
    if (!after) {
        if (before) Hide(*window);
        return before;
    }
    window->visible = true;
    if (!before) InvalidateAll(*window);
    if (command == SW_MINIMIZE) {
        Minimise(*window);
        return before;
    }
    if (command == SW_RESTORE || command == SW_SHOWNORMAL) Restore(*window);
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

int GetWindowTextA(HWND handle, char* text, int size) {
    const Window* window = Find(handle);
    if (!window || size < 1) return 0;
    const size_t length = std::min(window->title.size(), static_cast<size_t>(size) - 1);
    std::memcpy(text, window->title.data(), length);
    text[length] = 0;
    return static_cast<int>(length);
}

LONG_PTR GetWindowLongPtrA(HWND handle, int index) {
    const Window* window = Find(handle);
    if (!window) return 0;
    switch (index) {
        case GWL_STYLE:
            return window->style | (window->visible ? WS_VISIBLE : 0);
        case GWLP_WNDPROC:
            return reinterpret_cast<LONG_PTR>(window->procedure);
        case GWLP_USERDATA:
            return window->userData;
        default:
            return 0;
    }
}

LONG_PTR SetWindowLongPtrA(HWND handle, int index, LONG_PTR value) {
    const LONG_PTR previous = GetWindowLongPtrA(handle, index);
    if (Window* window = Find(handle)) {
        if (index == GWLP_WNDPROC) window->procedure = reinterpret_cast<WNDPROC>(value);
        if (index == GWLP_USERDATA) window->userData = value;
    }
    return previous;
}
