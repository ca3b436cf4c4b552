// Bytes to UTF-16.
#include <cstring>

#include "platform/headless/win32_gdi.h"

namespace {

constexpr char32_t Invalid = 0xFFFFFFFF;
constexpr WCHAR Replacement = 0xFFFD;

// Windows-1252 where it differs from Latin-1: 0x80 to 0x9F; undefined bytes stay control characters.
constexpr WCHAR Windows1252[] = {0x20AC, 0x81,   0x201A, 0x192,  0x201E, 0x2026, 0x2020, 0x2021, 0x2C6,  0x2030, 0x160,
                                 0x2039, 0x152,  0x8D,   0x17D,  0x8F,   0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
                                 0x2013, 0x2014, 0x2DC,  0x2122, 0x161,  0x203A, 0x153,  0x9D,   0x17E,  0x178};

char32_t ReadByte(const BYTE*& at, const BYTE*) {
    const BYTE b = *at++;
    return b >= 0x80 && b < 0xA0 ? Windows1252[b - 0x80] : b;
}

// Strict UTF-8: overlong forms, surrogates and what lies beyond U+10FFFF are invalid, and use up one byte.
char32_t ReadUtf8(const BYTE*& at, const BYTE* end) {
    const BYTE b = *at++;
    if (b < 0x80) return b;
    const int more = b >= 0xC2 && b < 0xE0 ? 1 : b >= 0xE0 && b < 0xF0 ? 2 : b >= 0xF0 && b < 0xF5 ? 3 : 0;
    if (more == 0 || end - at < more) return Invalid;
    char32_t code = b & (0x3F >> more);
    for (int i = 0; i < more; ++i) {
        if ((at[i] & 0xC0) != 0x80) return Invalid;
        code = code << 6 | (at[i] & 0x3F);
    }
    constexpr char32_t Smallest[] = {0, 0x80, 0x800, 0x10000};
    if (code < Smallest[more] || code > 0x10FFFF || (code >= 0xD800 && code < 0xE000)) return Invalid;
    at += more;
    return code;
}

}  // namespace

int MultiByteToWideChar(UINT page, DWORD flags, LPCSTR text, int count, LPWSTR wide, int room) {
    if ((page != CP_UTF8 && page != CP_ACP) || !text || count == 0 || count < -1 || room < 0 || (room > 0 && !wide))
        return 0;
    const BYTE* at = reinterpret_cast<const BYTE*>(text);
    const BYTE* const end = at + (count == -1 ? std::strlen(text) + 1 : static_cast<size_t>(count));
    int length = 0;
    bool fits = true;
    const auto put = [&](char32_t unit) {
        if (room > 0 && length < room) wide[length] = static_cast<WCHAR>(unit);
        fits = fits && (room == 0 || length < room);
        ++length;
    };
    while (at < end) {
        const char32_t code = page == CP_UTF8 ? ReadUtf8(at, end) : ReadByte(at, end);
        if (code == Invalid && flags & MB_ERR_INVALID_CHARS) return 0;
        if (code == Invalid) {
            put(Replacement);
        } else if (code < 0x10000) {
            put(code);
        } else {
            put(0xD7C0 + (code >> 10));
            put(0xDC00 + (code & 0x3FF));
        }
    }
    return fits ? length : 0;
}
