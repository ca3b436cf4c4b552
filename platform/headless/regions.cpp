// Clip regions, each of one rectangle.
#include <algorithm>

#include "platform/headless/gdi_objects.h"

// Of an empty box all edges are 0, as the system tells it.
static RECT Told(const RECT& r) { return IsEmpty(r) ? RECT{} : r; }

static RECT Ordered(int x1, int y1, int x2, int y2) {
    return Told({std::min(x1, x2), std::min(y1, y2), std::max(x1, x2), std::max(y1, y2)});
}

static int Clip(DeviceContext& context, const RECT& box) {
    context.clip = Told(box);
    return IsEmpty(box) ? NULLREGION : SIMPLEREGION;
}

HRGN CreateRectRgn(int left, int top, int right, int bottom) {
    auto region = std::make_unique<GdiRegion>();
    region->box = Ordered(left, top, right, bottom);
    return static_cast<HRGN>(AddGdiObject(std::move(region)));
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
    const RECT box = Ordered(left, top, right, bottom);
    return Clip(*context, context->clip ? Intersection(*context->clip, box) : box);
}

int SelectClipRgn(HDC dc, HRGN handle) {
    DeviceContext* context = FindGdi<DeviceContext>(dc);
    if (!context) return ERROR;
    if (!handle) {
        context->clip.reset();
        return SIMPLEREGION;
    }
    const GdiRegion* region = FindGdi<GdiRegion>(handle);
    return region ? Clip(*context, region->box) : ERROR;
}
