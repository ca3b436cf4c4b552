#include <utility>

#include "platform/headless/gdi_objects.h"
#include "platform/headless/text_face.h"

struct FontFace::Engine {};
FontFace::FontFace(const LOGFONTA&) {}
FontFace::~FontFace() = default;
const FaceGlyph& FontFace::Glyph(char32_t code) {
    return glyphs[code];
}

HFONT CreateFontIndirectA(const LOGFONTA* font) {
    if (!font) return nullptr;
    auto object = std::make_unique<GdiFont>();
    object->asked = *font;
    return static_cast<HFONT>(AddGdiObject(std::move(object)));
}
BOOL GetTextMetricsA(HDC dc, TEXTMETRICA* metrics) {
    if (!FindGdi<DeviceContext>(dc) || !metrics) return FALSE;
    *metrics = {};
    metrics->tmHeight = 16;
    return TRUE;
}
COLORREF SetTextColor(HDC dc, COLORREF color) {
    DeviceContext* context = FindGdi<DeviceContext>(dc);
    return context ? std::exchange(context->textColor, color & 0xFFFFFF) : CLR_INVALID;
}
COLORREF SetBkColor(HDC dc, COLORREF color) {
    DeviceContext* context = FindGdi<DeviceContext>(dc);
    return context ? std::exchange(context->bkColor, color & 0xFFFFFF) : CLR_INVALID;
}
int SetBkMode(HDC dc, int mode) {
    DeviceContext* context = FindGdi<DeviceContext>(dc);
    return context && (mode == TRANSPARENT || mode == OPAQUE) ? std::exchange(context->bkMode, mode) : 0;
}
int DrawTextW(HDC, LPCWSTR, int, RECT*, UINT) {
    return 0;
}
int DrawTextA(HDC, LPCSTR, int, RECT*, UINT) {
    return 0;
}
int MultiByteToWideChar(UINT, DWORD, LPCSTR, int, LPWSTR, int) {
    return 0;
}
