// platform/headless/gdi_objects.h
// What stands behind the drawing handles, and the one table that they are looked up in.
// For platform/headless only; everybody else sees handles.
#pragma once
#include <cstdint>
#include <memory>
#include <optional>

#include "platform/headless/win32_gdi.h"

// The pixels that a context draws on. Row y starts at top + y * stride, in pixels; a bottom-up section has a negative
// stride.
struct Surface {
    uint32_t* top = nullptr;
    int width = 0, height = 0;
    ptrdiff_t stride = 0;

    RECT Whole() const { return {0, 0, width, height}; }
    uint32_t* Row(int y) const { return top + y * stride; }
};

struct GdiObject {
    virtual ~GdiObject() = default;
    int uses = 0;        // contexts that it is selected into
    bool stock = false;  // what contexts start with: never deleted, never counted, selected anywhere
};

struct GdiBitmap : GdiObject {
    Surface surface;
    std::unique_ptr<uint32_t[]> pixels;
};

struct GdiRegion : GdiObject {
    RECT box{};
};

struct FontFace;  // text_face.h

struct GdiFont : GdiObject {
    LOGFONTA asked{};
    std::unique_ptr<FontFace> face;  // made at the first use
    GdiFont();
    ~GdiFont() override;
};

struct DeviceContext : GdiObject {
    HGDIOBJ bitmap = nullptr;  // null for a window's context, which draws on `window`
    Surface window;
    std::shared_ptr<void> windowPixels;  // what `window` lies in lasts as long as the context
    HGDIOBJ font = nullptr;
    COLORREF textColor = RGB(0, 0, 0);
    COLORREF bkColor = RGB(255, 255, 255);
    int bkMode = OPAQUE;
    std::optional<RECT> clip;

    Surface Target() const;
    RECT Drawable() const;  // the surface, cut by the clip; may be empty
};

// Takes the object and gives its handle, which no other object ever had.
HGDIOBJ AddGdiObject(std::unique_ptr<GdiObject> object);
GdiObject* FindGdiObject(HGDIOBJ handle);  // null when dead, foreign or null
template <class Kind>
Kind* FindGdi(void* handle) {
    return dynamic_cast<Kind*>(FindGdiObject(handle));
}

// A context that draws on a window's pixels, which lie in `pixels`, until it is given back.
HDC OpenWindowDC(const Surface& window, std::shared_ptr<void> pixels);
bool CloseWindowDC(HDC dc);

bool IsEmpty(const RECT& r);
RECT Intersection(const RECT& a, const RECT& b);
