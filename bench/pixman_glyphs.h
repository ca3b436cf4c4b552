// bench/pixman_glyphs.h
// A string in pixman's glyph cache: white masks over a surface without row gaps.
#pragma once
#include <pixman.h>

#include <cstring>
#include <vector>

#include "lice/bitmap.h"

class PixmanGlyphs {
  public:
    explicit PixmanGlyphs(LICE_MemBitmap& bitmap)
        : dest_(pixman_image_create_bits(PIXMAN_a8r8g8b8, bitmap.getWidth(), bitmap.getHeight(), bitmap.getBits(),
                                         bitmap.getRowSpan() * 4)) {
        pixman_glyph_cache_freeze(cache_);
    }
    ~PixmanGlyphs() {
        pixman_glyph_cache_thaw(cache_);
        pixman_glyph_cache_destroy(cache_);
        pixman_image_unref(source_);
        pixman_image_unref(dest_);
    }
    PixmanGlyphs(const PixmanGlyphs&) = delete;

    // `mask` is height rows of width bytes.
    void Add(int x, int y, const unsigned char* mask, int width, int height) {
        const int stride = (width + 3) / 4 * 4;  // whole words
        std::vector<uint32_t> words(stride / 4 * height);
        for (int row = 0; row < height; ++row)
            memcpy(reinterpret_cast<char*>(words.data()) + row * stride, mask + row * width, width);
        pixman_image_t* image = pixman_image_create_bits(PIXMAN_a8, width, height, words.data(), stride);
        void* const key = reinterpret_cast<void*>(glyphs_.size() + 1);
        glyphs_.push_back({x, y, pixman_glyph_cache_insert(cache_, key, nullptr, 0, 0, image)});
        pixman_image_unref(image);
    }

    void Draw() {
        pixman_composite_glyphs_no_mask(PIXMAN_OP_OVER, source_, dest_, 0, 0, 0, 0, cache_,
                                        static_cast<int>(glyphs_.size()), glyphs_.data());
    }

  private:
    static constexpr pixman_color_t Color = {0xF0F0, 0xF0F0, 0xF0F0, 0xFFFF};
    pixman_image_t* dest_;
    pixman_image_t* source_ = pixman_image_create_solid_fill(&Color);
    pixman_glyph_cache_t* cache_ = pixman_glyph_cache_create();
    std::vector<pixman_glyph_t> glyphs_;
};
