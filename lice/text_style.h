// lice/text_style.h
// How a font draws: its flags, what its setters set, and the bits that a text's format has beside Win32's.
#pragma once
#include "lice/pixel.h"
#include "platform/win32.h"

// Flags of SetFromHFont.
inline constexpr int LICE_FONT_FLAG_VERTICAL = 1;           // text runs down, lines step to the right
inline constexpr int LICE_FONT_FLAG_VERTICAL_BOTTOMUP = 2;  // with the former: text runs up
inline constexpr int LICE_FONT_FLAG_PRECALC = 4;            // render ASCII at once, and nothing else ever
inline constexpr int LICE_FONT_FLAG_BLUR = 16;
inline constexpr int LICE_FONT_FLAG_INVERT = 32;
inline constexpr int LICE_FONT_FLAG_MONO = 64;  // covered or not, nothing between
inline constexpr int LICE_FONT_FLAG_SHADOW = 128;
inline constexpr int LICE_FONT_FLAG_OUTLINE = 256;
inline constexpr int LICE_FONT_FLAG_OWNS_HFONT = 512;     // the handle goes when it is replaced, and with the font
inline constexpr int LICE_FONT_FLAG_FORCE_NATIVE = 1024;  // prefer GDI's text where that looks the same

// Beside Win32's DT_CENTER, DT_RIGHT, DT_VCENTER (of several lines too), DT_BOTTOM, DT_WORDBREAK, DT_SINGLELINE (a line
// feed is a space), DT_NOCLIP (clip to the surface only) and DT_CALCRECT.
inline constexpr UINT LICE_DT_USE_TEXT_ALPHA = 0x40000000;  // the text colour's alpha byte counts, this once
inline constexpr UINT LICE_DT_NO_NATIVE = 0x80000000;       // not by GDI on account of LICE_FONT_FLAG_FORCE_NATIVE

inline constexpr UINT TextAlignments = DT_CENTER | DT_RIGHT | DT_VCENTER | DT_BOTTOM;

struct TextStyle {
    LICE_pixel textColor = 0;
    LICE_pixel bkColor = 0xFFFFFFFF;
    LICE_pixel effectColor = 0xFFFFFFFF;  // of what shadow or outline adds
    int bkMode = TRANSPARENT;
    int combineMode = 0;
    float alpha = 1.0f;
    int flags = 0;
    int lineHeight = 0;
    int lineSpacing = 0;

    bool Vertical() const { return flags & LICE_FONT_FLAG_VERTICAL; }
    bool BottomUp() const { return (flags & 3) == (LICE_FONT_FLAG_VERTICAL | LICE_FONT_FLAG_VERTICAL_BOTTOMUP); }
    bool HasEffect() const { return flags & (LICE_FONT_FLAG_SHADOW | LICE_FONT_FLAG_OUTLINE); }
};
