// lice/glyph_cache.h
// The rendered characters of one font: a record for each, in the order of their codes, and all their masks.
// Nothing goes before Clear.
#pragma once
#include <cstdint>

#include "lice/heap_buffer.h"

struct GlyphRecord {
    int offset = 0;  // of the mask in the store, plus 1; 0: not rendered yet; -1: nothing to draw
    int width = 0;   // of the mask, cropped to its ink
    int height = 0;
    int advance = 0;             // of the pen
    unsigned code = 0;           // the character; a combining mark from bit 20 on
    int leftExtra = 0;           // columns of the mask left of the pen; negative: the mask starts right of it
    int inkTop = 0, inkEnd = 0;  // the rows of the mask with ink lie between
};

class GlyphCache {
  public:
    // Null when there is none; it stays where it is until the next Add.
    const GlyphRecord* Find(unsigned code) const { return code < 128 ? &low_[code] : FindExtended(code); }
    // Null for what takes no room.
    const GlyphRecord* FindDrawable(unsigned code) const {
        const GlyphRecord* record = Find(code);
        return record && record->offset > 0 && record->offset < masks_.Size() ? record : nullptr;
    }
    // width * height bytes, row by row, of what is drawable.
    const uint8_t* MaskOf(const GlyphRecord& record) const { return masks_.Items<uint8_t>() + (record.offset - 1); }

    bool Add(unsigned code);              // a record that is not rendered yet; false when memory runs out
    void Set(const GlyphRecord& record);  // for a code that was added
    void Clear();

    HeapBuffer& Masks() { return masks_; }

  private:
    const GlyphRecord* FindExtended(unsigned code) const;
    int PlaceOf(unsigned code) const;

    GlyphRecord low_[128];       // by code
    HeapBuffer extended_{4096};  // records of the other codes
    HeapBuffer masks_{65536};    // the masks, back to back
};
