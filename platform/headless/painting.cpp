// What waits to be painted, and the pixels that a window shows.
#include <algorithm>

#include "platform/headless/desktop_state.h"

namespace desktop {

static RECT ClientRect(const Window& window) {
    const RECT area = ClientArea(window);
    return {0, 0, area.right - area.left, area.bottom - area.top};
}

static RECT Joined(const RECT& a, const RECT& b) {
    if (IsEmpty(a)) return b;
    if (IsEmpty(b)) return a;
    return {std::min(a.left, b.left), std::min(a.top, b.top), std::max(a.right, b.right), std::max(a.bottom, b.bottom)};
}

void InvalidateAll(Window& window) {
    if (!OnScreen(window)) return;  // what is not shown has nothing to paint; showing it invalidates it
    window.invalid = ClientRect(window);
    window.erase = true;
}

// The picture for the present size of the client area.
static Picture& PictureFor(Window& window) {
    const RECT client = ClientRect(window);
    if (!window.picture || window.picture->width != client.right || window.picture->height != client.bottom) {
        const size_t size = static_cast<size_t>(client.right) * static_cast<size_t>(client.bottom);
        window.picture = std::make_shared<Picture>(Picture{client.right, client.bottom, std::vector<uint32_t>(size)});
    }
    return *window.picture;
}

static HDC Lend(Window& window) {
    Picture& picture = PictureFor(window);
    ++Desktop().contextsLent;
    return OpenWindowDC({picture.pixels.data(), picture.width, picture.height, picture.width}, window.picture);
}

static bool TakeBack(HDC dc) {
    if (!CloseWindowDC(dc)) return false;
    --Desktop().contextsLent;
    return true;
}

Picture PictureOf(HWND handle) {
    Window* window = Find(handle);
    return window ? PictureFor(*window) : Picture{};
}

std::string Leftovers() {
    const int contexts = Desktop().contextsLent;
    const size_t menus = Desktop().menus.size();
    std::string sentence;
    if (contexts) sentence += std::to_string(contexts) + " device contexts not given back. ";
    if (menus) sentence += std::to_string(menus) + " menus not destroyed. ";
    return sentence;
}

}  // namespace desktop

using namespace desktop;

BOOL InvalidateRect(HWND handle, const RECT* rect, BOOL erase) {
    Window* window = Find(handle);
    if (!window) return false;
    if (!OnScreen(*window)) return true;
    const RECT client = ClientRect(*window);
    window->invalid = Joined(window->invalid, rect ? Intersection(*rect, client) : client);
    window->erase |= erase != 0;
    return true;
}

BOOL ValidateRect(HWND handle, const RECT*) {
    Window* window = Find(handle);
    if (!window) return false;
    window->invalid = {};
    window->erase = false;
    return true;
}

BOOL GetUpdateRect(HWND handle, RECT* rect, BOOL) {
    const Window* window = Find(handle);
    if (rect) *rect = window ? window->invalid : RECT{};
    return window && !IsEmpty(window->invalid);
}

// Paints now, and only if something waits to be painted.
BOOL UpdateWindow(HWND handle) {
    const Window* window = Find(handle);
    if (!window) return false;
    if (!IsEmpty(window->invalid)) SendMessageA(handle, WM_PAINT, 0, 0);
    return true;
}

HDC BeginPaint(HWND handle, PAINTSTRUCT* paint) {
    *paint = {};
    Window* window = Find(handle);
    if (!window) return nullptr;
    paint->hdc = Lend(*window);
    const RECT area = paint->rcPaint = window->invalid;
    IntersectClipRect(paint->hdc, area.left, area.top, area.right, area.bottom);
    const bool erase = window->erase;
    ValidateRect(handle, nullptr);
    if (erase) paint->fErase = !SendMessageA(handle, WM_ERASEBKGND, reinterpret_cast<WPARAM>(paint->hdc), 0);
    return paint->hdc;
}

BOOL EndPaint(HWND, const PAINTSTRUCT* paint) {
    return TakeBack(paint->hdc);
}

HDC GetDC(HWND handle) {
    Window* window = Find(handle);
    return window ? Lend(*window) : nullptr;
}

int ReleaseDC(HWND, HDC dc) {
    return TakeBack(dc);
}
