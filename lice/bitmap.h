// lice/bitmap.h
// The surfaces that everything draws on. Rows run top-down unless isFlipped says otherwise.
// A surface may have a draw scale, in 1/256. Its size and coordinates are then logical, and getBits points to a backing
// store of the scaled size. A surface without pixels has a null getBits or a size below 1, and is not drawn on.
#pragma once
#include "lice/pixel.h"
#include "platform/win32.h"

// Codes of LICE_IBitmap::Extended. `parameter` points to an int for the two that set; null sets 0.
inline constexpr int LICE_EXT_SET_SCALING = 0x2000;
inline constexpr int LICE_EXT_GET_SCALING = 0x2001;  // asked by every drawing routine; 0: not scaled
inline constexpr int LICE_EXT_SET_ADVISORY_SCALING = 0x2002;
inline constexpr int LICE_EXT_GET_ADVISORY_SCALING = 0x2003;
inline constexpr int LICE_EXT_GET_EFFECTIVE_SCALING = 0x2004;  // both scales multiplied

class LICE_IBitmap {
  public:
    virtual ~LICE_IBitmap() {}

    virtual LICE_pixel* getBits() = 0;
    virtual int getWidth() = 0;
    virtual int getHeight() = 0;
    virtual int getRowSpan() = 0;                    // pixels from one row to the next
    virtual bool isFlipped() { return false; }       // true: the top row is the last in memory
    virtual bool resize(int width, int height) = 0;  // whether anything changed, not whether it succeeded
    virtual HDC getDC() { return nullptr; }
    virtual INT_PTR Extended(int /*code*/, void* /*parameter*/) { return 0; }
};

// Pixels that GDI draws on too: a DIB section selected into a memory context. The section only grows, and what a new
// one holds is undefined. After a failure the size reads as 0 by 0.
class LICE_SysBitmap : public LICE_IBitmap {
  public:
    LICE_SysBitmap(int width = 0, int height = 0);
    ~LICE_SysBitmap() override;
    LICE_SysBitmap(const LICE_SysBitmap&) = delete;
    LICE_SysBitmap& operator=(const LICE_SysBitmap&) = delete;

    LICE_pixel* getBits() override { return bits_; }
    int getWidth() override { return width_; }
    int getHeight() override { return height_; }
    int getRowSpan() override { return allocWidth_; }
    bool resize(int width, int height) override;
    HDC getDC() override { return dc_; }
    INT_PTR Extended(int code, void* parameter) override;

  private:
    void ReleaseSection();

    int width_ = 0, height_ = 0;
    HDC dc_;
    LICE_pixel* bits_ = nullptr;            // owned by the section
    int allocWidth_ = 0, allocHeight_ = 0;  // of the section
    HBITMAP bitmap_ = nullptr;              // the section
    HGDIOBJ previousBitmap_ = nullptr;      // goes back into dc_ before the section goes
    int drawScale_ = 0;                     // 1/256; 256 is kept as 0
    int advisoryScale_ = 0;                 // 1/256; only kept and reported
};

// Pixels on the heap, aligned to 64 bytes. The block only grows. After a failed allocation the size reads as 0 by 0.
class LICE_MemBitmap : public LICE_IBitmap {
  public:
    // rowAlign: a power of two, in pixels, to which the row span is rounded up.
    LICE_MemBitmap(int width = 0, int height = 0, int rowAlign = 0);
    ~LICE_MemBitmap() override;
    LICE_MemBitmap(const LICE_MemBitmap&) = delete;
    LICE_MemBitmap& operator=(const LICE_MemBitmap&) = delete;

    LICE_pixel* getBits() override;
    int getWidth() override { return width_; }
    int getHeight() override { return height_; }
    int getRowSpan() override;
    bool resize(int width, int height) override;

  private:
    void* buffer_ = nullptr;
    int width_ = 0, height_ = 0;
    int allocBytes_ = 0;  // usable, without the slack for alignment
    int rowMask_;
};

// From logical numbers to the backing store's. Coordinates round toward zero, sizes down, floats not at all.
int LICE_ScaleCoord(int value, int scale);      // held in the range of int
unsigned LICE_ScaleSize(int value, int scale);  // a negative size comes out huge, and as an int negative again
double LICE_ScaleFloat(double value, int scale);
