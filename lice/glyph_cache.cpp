#include "lice/glyph_cache.h"

#include <algorithm>
#include <iterator>

// Where among the extended records a code is, or belongs.
int GlyphCache::PlaceOf(unsigned code) const {
    const GlyphRecord* const first = extended_.Items<GlyphRecord>();
    const auto before = [](const GlyphRecord& record, unsigned wanted) { return record.code < wanted; };
    return static_cast<int>(std::lower_bound(first, first + extended_.Count<GlyphRecord>(), code, before) - first);
}

const GlyphRecord* GlyphCache::FindExtended(unsigned code) const {
    const int place = PlaceOf(code);
    const GlyphRecord* const record = extended_.Items<GlyphRecord>() + place;
    return place < extended_.Count<GlyphRecord>() && record->code == code ? record : nullptr;
}

bool GlyphCache::Add(unsigned code) {
    if (Find(code)) return true;
    const int place = PlaceOf(code), count = extended_.Count<GlyphRecord>();
    extended_.resize((count + 1) * static_cast<int>(sizeof(GlyphRecord)), true);
    if (extended_.Count<GlyphRecord>() == count) return false;
    GlyphRecord* const records = extended_.Items<GlyphRecord>();
    std::copy_backward(records + place, records + count, records + count + 1);
    records[place] = {.code = code};
    return true;
}

void GlyphCache::Set(const GlyphRecord& record) {
    GlyphRecord* const extended = extended_.Items<GlyphRecord>();
    (record.code < 128 ? low_[record.code] : extended[PlaceOf(record.code)]) = record;
}

void GlyphCache::Clear() {
    std::fill(std::begin(low_), std::end(low_), GlyphRecord{});
    extended_.resize(0, false);
    masks_.resize(0, true);
}
