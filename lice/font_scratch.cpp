#include "lice/font_scratch.h"

#include <algorithm>
#include <utility>

LICE_SysBitmap* ScratchMeasure = nullptr;
LICE_SysBitmap* ScratchNative = nullptr;
int ScratchUsers = 0;

LICE_SysBitmap& MeasureScratch(int size) {
    if (!ScratchMeasure) ScratchMeasure = new LICE_SysBitmap(0, 0);
    if (ScratchMeasure->getWidth() < size || ScratchMeasure->getHeight() < size) {
        ScratchMeasure->resize(size, size);
        SetTextColor(ScratchMeasure->getDC(), RGB(255, 255, 255));
        SetBkMode(ScratchMeasure->getDC(), OPAQUE);
        SetBkColor(ScratchMeasure->getDC(), RGB(0, 0, 0));
    }
    return *ScratchMeasure;
}

LICE_SysBitmap& NativeScratch(int width, int height) {
    if (!ScratchNative) ScratchNative = new LICE_SysBitmap(0, 0);
    if (ScratchNative->getWidth() < width || ScratchNative->getHeight() < height)
        ScratchNative->resize(std::max(width, ScratchNative->getWidth()), std::max(height, ScratchNative->getHeight()));
    return *ScratchNative;
}

void EnterScratch() { ++ScratchUsers; }

void LeaveScratch() {
    if (--ScratchUsers > 0) return;
    delete std::exchange(ScratchMeasure, nullptr);
    delete std::exchange(ScratchNative, nullptr);
}

SelectedFont::SelectedFont(HDC dc, HFONT font) : dc_(dc), previous_(font ? SelectObject(dc, font) : nullptr) {}

SelectedFont::~SelectedFont() {
    if (previous_) SelectObject(dc_, previous_);
}
