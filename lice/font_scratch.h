// lice/font_scratch.h
// The surfaces on which GDI draws text for the fonts. All fonts share them. The first need makes them, and they go with
// the last font.
#pragma once
#include "lice/bitmap.h"

extern LICE_SysBitmap* ScratchMeasure;  // glyphs and metrics: white on opaque black
extern LICE_SysBitmap* ScratchNative;   // whole texts for surfaces without a context
extern int ScratchUsers;                // living fonts

// Makes the surface, or enlarges it, where it is smaller than that on either axis.
LICE_SysBitmap& MeasureScratch(int size);
LICE_SysBitmap& NativeScratch(int width, int height);

// Each font enters once and leaves once.
void EnterScratch();
void LeaveScratch();

// Selects a font for the time of a block; null leaves what is selected.
class SelectedFont {
  public:
    SelectedFont(HDC dc, HFONT font);
    ~SelectedFont();
    SelectedFont(const SelectedFont&) = delete;
    SelectedFont& operator=(const SelectedFont&) = delete;

  private:
    HDC dc_;
    HGDIOBJ previous_;
};
