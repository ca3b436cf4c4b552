// platform/headless/win32_gdi.h
// Win32's drawing, as far as it is used here: device contexts, DIB sections, clip regions, fonts and text.
// A null, dead or foreign handle makes each call fail as documented; nothing is ever drawn outside a surface.
// Handles are never given out twice. Sections have 32 bits, and SRCCOPY is the one raster operation.
// Fonts are upright, of one face whatever their name. Tabs are not expanded, and an ampersand is drawn as itself.
#pragma once
#include "platform/headless/win32_types.h"

using HGDIOBJ = void*;
using HDC = struct HDC__*;
using HBITMAP = struct HBITMAP__*;
using HFONT = struct HFONT__*;
using HRGN = struct HRGN__*;
using HKEY = struct HKEY__*;
using COLORREF = DWORD;  // 0x00BBGGRR

struct BITMAPINFOHEADER {
    DWORD biSize;
    LONG biWidth, biHeight;  // a negative height: the top row is first in memory
    WORD biPlanes, biBitCount;
    DWORD biCompression, biSizeImage;
    LONG biXPelsPerMeter, biYPelsPerMeter;
    DWORD biClrUsed, biClrImportant;
};

struct RGBQUAD {
    BYTE rgbBlue, rgbGreen, rgbRed, rgbReserved;
};

struct BITMAPINFO {
    BITMAPINFOHEADER bmiHeader;
    RGBQUAD bmiColors[1];
};

inline constexpr int LF_FACESIZE = 32;

struct LOGFONTA {
    LONG lfHeight;  // negative: of the em; positive: of the cell; 0: a default
    LONG lfWidth, lfEscapement, lfOrientation, lfWeight;
    BYTE lfItalic, lfUnderline, lfStrikeOut, lfCharSet, lfOutPrecision, lfClipPrecision, lfQuality, lfPitchAndFamily;
    char lfFaceName[LF_FACESIZE];
};

struct TEXTMETRICA {
    LONG tmHeight, tmAscent, tmDescent, tmInternalLeading, tmExternalLeading, tmAveCharWidth, tmMaxCharWidth, tmWeight,
        tmOverhang, tmDigitizedAspectX, tmDigitizedAspectY;
    BYTE tmFirstChar, tmLastChar, tmDefaultChar, tmBreakChar, tmItalic, tmUnderlined, tmStruckOut, tmPitchAndFamily,
        tmCharSet;
};

inline constexpr DWORD BI_RGB = 0;
inline constexpr UINT DIB_RGB_COLORS = 0;
inline constexpr DWORD SRCCOPY = 0x00CC0020;
inline constexpr int TRANSPARENT = 1;
inline constexpr int OPAQUE = 2;
inline constexpr COLORREF CLR_INVALID = 0xFFFFFFFF;
inline constexpr int ERROR = 0;  // of calls on regions
inline constexpr int NULLREGION = 1;
inline constexpr int SIMPLEREGION = 2;
inline constexpr int ANSI_CHARSET = 0;
inline constexpr int ANTIALIASED_QUALITY = 4;
inline constexpr DWORD GR_GDIOBJECTS = 0;

inline constexpr UINT DT_CENTER = 0x1;
inline constexpr UINT DT_RIGHT = 0x2;
inline constexpr UINT DT_VCENTER = 0x4;  // this and the next: only with DT_SINGLELINE
inline constexpr UINT DT_BOTTOM = 0x8;
inline constexpr UINT DT_WORDBREAK = 0x10;
inline constexpr UINT DT_SINGLELINE = 0x20;
inline constexpr UINT DT_NOCLIP = 0x100;
inline constexpr UINT DT_CALCRECT = 0x400;
inline constexpr UINT DT_NOPREFIX = 0x800;
inline constexpr UINT DT_END_ELLIPSIS = 0x8000;  // this and the next: without effect here
inline constexpr UINT DT_MODIFYSTRING = 0x10000;

inline constexpr UINT CP_ACP = 0;  // Windows-1252 here
inline constexpr UINT CP_UTF8 = 65001;
inline constexpr DWORD MB_ERR_INVALID_CHARS = 8;

inline constexpr LONG ERROR_SUCCESS = 0;
inline constexpr LONG ERROR_FILE_NOT_FOUND = 2;
inline constexpr LONG ERROR_INVALID_HANDLE = 6;
inline const HKEY HKEY_LOCAL_MACHINE = reinterpret_cast<HKEY>(static_cast<LONG_PTR>(-0x7FFFFFFE));

constexpr COLORREF RGB(BYTE r, BYTE g, BYTE b) { return static_cast<COLORREF>(r | g << 8 | b << 16); }

extern "C" {
// --- Device contexts. A memory context starts with a 1 by 1 bitmap, black text, white background, opaque.
HDC CreateCompatibleDC(HDC like);  // null: like the screen
BOOL DeleteDC(HDC dc);             // what is selected in it is released, not deleted
// Gives what was selected before. A bitmap can be in one memory context only; otherwise null.
HGDIOBJ SelectObject(HDC dc, HGDIOBJ object);
BOOL DeleteObject(HGDIOBJ object);  // false while it is selected into a context
// The number of live objects of this process, contexts included; what a test for leaks compares.
DWORD GetGuiResources(HANDLE process, DWORD which);
HANDLE GetCurrentProcess();
BOOL GdiFlush();  // before pixels are touched directly, since the system may put drawing off; here it never does

// --- Bitmaps. A new section is zeroed.
HBITMAP CreateDIBSection(HDC dc, const BITMAPINFO* info, UINT usage, void** bits, HANDLE section, DWORD offset);
BOOL BitBlt(HDC dest, int x, int y, int w, int h, HDC source, int sourceX, int sourceY, DWORD operation);

// --- Clipping. Every region here is one rectangle.
HRGN CreateRectRgn(int left, int top, int right, int bottom);  // the corners in any order
int GetClipRgn(HDC dc, HRGN region);                           // 1: copied into region; 0: there is none; -1: failure
int IntersectClipRect(HDC dc, int left, int top, int right, int bottom);
int SelectClipRgn(HDC dc, HRGN region);  // takes a copy; null: no clipping

// --- Text.
HFONT CreateFontIndirectA(const LOGFONTA* font);
BOOL GetTextMetricsA(HDC dc, TEXTMETRICA* metrics);
COLORREF SetTextColor(HDC dc, COLORREF color);
COLORREF SetBkColor(HDC dc, COLORREF color);
int SetBkMode(HDC dc, int mode);
int DrawTextW(HDC dc, LPCWSTR text, int count, RECT* rect, UINT format);  // count -1: up to the zero
int DrawTextA(HDC dc, LPCSTR text, int count, RECT* rect, UINT format);
// Both count the closing zero when count is -1, and measure when there is no room (room 0); 0 is failure.
int MultiByteToWideChar(UINT page, DWORD flags, LPCSTR text, int count, LPWSTR wide, int room);

// --- Rectangles.
BOOL IntersectRect(RECT* out, const RECT* a, const RECT* b);

// --- The registry, which is empty here.
LONG RegOpenKeyA(HKEY key, LPCSTR subkey, HKEY* result);
LONG RegCloseKey(HKEY key);
}
