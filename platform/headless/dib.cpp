// DIB sections, and copying between contexts.
#include <algorithm>
#include <cstring>
#include <new>

#include "platform/headless/gdi_objects.h"

HBITMAP CreateDIBSection(HDC, const BITMAPINFO* info, UINT usage, void** bits, HANDLE section, DWORD) {
    if (bits) *bits = nullptr;
    if (!info || usage != DIB_RGB_COLORS || section) return nullptr;
    const BITMAPINFOHEADER& header = info->bmiHeader;
    const int64_t width = header.biWidth;
    const int64_t height = header.biHeight < 0 ? -int64_t{header.biHeight} : header.biHeight;
    if (header.biSize < sizeof(BITMAPINFOHEADER) || header.biPlanes != 1 || header.biBitCount != 32 ||
        header.biCompression != BI_RGB || width < 1 || height < 1 || width * height > INT32_MAX / 4)
        return nullptr;

    auto bitmap = std::make_unique<GdiBitmap>();
    bitmap->pixels.reset(new (std::nothrow) uint32_t[width * height]());
    if (!bitmap->pixels) return nullptr;
    uint32_t* first = bitmap->pixels.get();
    const bool topDown = header.biHeight < 0;
    bitmap->surface = {topDown ? first : first + width * (height - 1), static_cast<int>(width),
                       static_cast<int>(height), static_cast<ptrdiff_t>(topDown ? width : -width)};
    if (bits) *bits = first;
    return static_cast<HBITMAP>(AddGdiObject(std::move(bitmap)));
}

namespace {

// One axis of a copy.
struct Span {
    int64_t to, from, length;

    // Keeps what lies in [low, high) of the target and in [0, limit) of the source.
    void Cut(int low, int high, int limit) {
        const int64_t skip = std::max({int64_t{0}, low - to, -from});
        to += skip;
        from += skip;
        length = std::min({length - skip, high - to, limit - from});
    }
};

}  // namespace

BOOL BitBlt(HDC dest, int x, int y, int w, int h, HDC source, int sourceX, int sourceY, DWORD operation) {
    const DeviceContext* to = FindGdi<DeviceContext>(dest);
    const DeviceContext* from = FindGdi<DeviceContext>(source);
    if (!to || !from || operation != SRCCOPY) return FALSE;
    const Surface target = to->Target();
    const Surface picture = from->Target();
    const RECT drawable = to->Drawable();
    Span across{x, sourceX, w};
    Span down{y, sourceY, h};
    across.Cut(drawable.left, drawable.right, picture.width);
    down.Cut(drawable.top, drawable.bottom, picture.height);
    if (across.length < 1) return TRUE;
    const bool upward = target.top == picture.top && down.to > down.from;  // rows not yet copied must not be hit
    for (int64_t i = 0; i < down.length; ++i) {
        const int row = static_cast<int>(upward ? down.length - 1 - i : i);
        std::memmove(target.Row(static_cast<int>(down.to) + row) + across.to,
                     picture.Row(static_cast<int>(down.from) + row) + across.from, across.length * sizeof(uint32_t));
    }
    return TRUE;
}
