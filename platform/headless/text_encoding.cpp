// Bytes to UTF-16.
#include <cstring>

#include "platform/headless/win32_gdi.h"
#include "platform/utf8.h"

namespace {

constexpr WCHAR Replacement = 0xFFFD;

// Windows-1252 where it differs from Latin-1: 0x80 to 0x9F; undefined bytes stay control characters.
constexpr WCHAR Windows1252[] = {0x20AC, 0x81,   0x201A, 0x192,  0x201E, 0x2026, 0x2020, 0x2021, 0x2C6,  0x2030, 0x160,
                                 0x2039, 0x152,  0x8D,   0x17D,  0x8F,   0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
                                 0x2013, 0x2014, 0x2DC,  0x2122, 0x161,  0x203A, 0x153,  0x9D,   0x17E,  0x178};

Utf8Character ReadAnsi(BYTE b) { return {b >= 0x80 && b < 0xA0 ? Windows1252[b - 0x80] : char32_t{b}, 1, true}; }

}  // namespace

int MultiByteToWideChar(UINT page, DWORD flags, LPCSTR text, int count, LPWSTR wide, int room) {
    if ((page != CP_UTF8 && page != CP_ACP) || !text || count == 0 || count < -1 || room < 0 || (room > 0 && !wide))
        return 0;
    const char* at = text;
    const char* const end = at + (count == -1 ? std::strlen(text) + 1 : static_cast<size_t>(count));
    int length = 0;
    bool fits = true;
    const auto put = [&](char32_t unit) {
        if (room > 0 && length < room) wide[length] = static_cast<WCHAR>(unit);
        fits = fits && (room == 0 || length < room);
        ++length;
    };
    while (at < end) {
        const Utf8Character c = page == CP_UTF8 ? ReadUtf8(at, end - at) : ReadAnsi(static_cast<BYTE>(*at));
        if (!c.wellFormed && flags & MB_ERR_INVALID_CHARS) return 0;
        at += c.wellFormed ? c.bytes : 1;
        if (!c.wellFormed) {
            put(Replacement);
        } else if (c.code < 0x10000) {
            put(c.code);
        } else {
            put(0xD7C0 + (c.code >> 10));
            put(0xDC00 + (c.code & 0x3FF));
        }
    }
    return fits ? length : 0;
}
