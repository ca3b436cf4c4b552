// Rectangles, and regions of one rectangle.
#include <algorithm>
#include <utility>

#include "platform/headless/gdi_objects.h"

static int Complexity(const RECT& r) {
    return IsEmpty(r) ? NULLREGION : SIMPLEREGION;
}

BOOL SetRect(RECT* rect, int left, int top, int right, int bottom) {
    if (!rect) return FALSE;
    *rect = {left, top, right, bottom};
    return TRUE;
}

BOOL SetRectEmpty(RECT* rect) {
    return SetRect(rect, 0, 0, 0, 0);
}

BOOL IntersectRect(RECT* out, const RECT* a, const RECT* b) {
    if (!out || !a || !b) return FALSE;
    *out = Intersection(*a, *b);
    const bool some = !IsEmpty(*a) && !IsEmpty(*b) && !IsEmpty(*out);
    if (!some) SetRectEmpty(out);
    return some;
}

// The corners may be given in any order; an empty region's box is all zero.
static RECT Ordered(int left, int top, int right, int bottom) {
    if (left > right) std::swap(left, right);
    if (top > bottom) std::swap(top, bottom);
    const RECT r{left, top, right, bottom};
    return IsEmpty(r) ? RECT{} : r;
}

HRGN CreateRectRgn(int left, int top, int right, int bottom) {
    auto region = std::make_unique<GdiRegion>();
    region->box = Ordered(left, top, right, bottom);
    return static_cast<HRGN>(AddGdiObject(std::move(region)));
}

int GetRgnBox(HRGN handle, RECT* box) {
    const GdiRegion* region = FindGdi<GdiRegion>(handle);
    if (!region || !box) return ERROR;
    *box = region->box;
    return Complexity(*box);
}

int GetClipRgn(HDC dc, HRGN handle) {
    const DeviceContext* context = FindGdi<DeviceContext>(dc);
    if (!context) return -1;
    if (!context->clip) return 0;
    GdiRegion* region = FindGdi<GdiRegion>(handle);
    if (!region) return -1;
    region->box = *context->clip;
    return 1;
}

int IntersectClipRect(HDC dc, int left, int top, int right, int bottom) {
    DeviceContext* context = FindGdi<DeviceContext>(dc);
    if (!context) return ERROR;
    RECT box = Ordered(left, top, right, bottom);
    if (context->clip) box = Intersection(*context->clip, box);
    context->clip = IsEmpty(box) ? RECT{} : box;
    return Complexity(*context->clip);
}

int SelectClipRgn(HDC dc, HRGN handle) {
    DeviceContext* context = FindGdi<DeviceContext>(dc);
    if (!context) return ERROR;
    if (!handle) {
        context->clip.reset();
        return SIMPLEREGION;
    }
    const GdiRegion* region = FindGdi<GdiRegion>(handle);
    if (!region) return ERROR;
    context->clip = region->box;
    return Complexity(region->box);
}
