// What waits to be painted, and the pixels that a window shows.
#include "platform/headless/desktop_state.h"
#include "platform/headless/gdi_objects.h"

namespace desktop {

// The picture for the present size of the client area.
static Picture& PictureFor(Window& window) {
    RECT client;
    GetClientRect(window.handle, &client);
    if (!window.picture || window.picture->width != client.right || window.picture->height != client.bottom) {
        const size_t size = static_cast<size_t>(client.right) * static_cast<size_t>(client.bottom);
        window.picture = std::make_shared<Picture>(Picture{client.right, client.bottom, std::vector<uint32_t>(size)});
    }
    return *window.picture;
}

Picture PictureOf(HWND handle) {
    Window* window = Find(handle);
    return window ? PictureFor(*window) : Picture{};
}

}  // namespace desktop

using namespace desktop;

BOOL InvalidateRect(HWND handle, const RECT* rect, BOOL) {
    if (rect) Fail("a part of a window is invalidated");
    Window* window = Find(handle);
    if (window) Invalidate(*window);
    return window != nullptr;
}

// Paints now, and only if the window waits to be painted.
BOOL UpdateWindow(HWND handle) {
    const Window* window = Find(handle);
    if (!window) return false;
    if (window->invalid) SendMessageA(handle, WM_PAINT, 0, 0);
    return true;
}

HDC BeginPaint(HWND handle, PAINTSTRUCT* paint) {
    *paint = {};
    Window* window = Find(handle);
    if (!window) return nullptr;
    window->invalid = false;
    ++Desktop().contextsLent;
    Picture& picture = PictureFor(*window);
    const Surface surface{picture.pixels.data(), picture.width, picture.height, picture.width};
    paint->rcPaint = surface.Whole();
    return paint->hdc = OpenWindowDC(surface, window->picture);
}

BOOL EndPaint(HWND, const PAINTSTRUCT* paint) {
    if (!CloseWindowDC(paint->hdc)) return false;
    --Desktop().contextsLent;
    return true;
}
