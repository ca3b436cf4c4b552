#include "bench/floor_scene.h"

#include <emmintrin.h>

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <cstring>

namespace {

constexpr int Radius = 5, Insets[Radius] = {5, 2, 1, 1, 1};

// color + (old - color) * (256 - weight) / 256, toward zero, for 8 channels of 16 bits; kept is (256 - weight) * 256
// + 1.
__m128i Mixed(__m128i old, __m128i color, __m128i kept) {
    return _mm_add_epi16(color, _mm_mulhi_epu16(_mm_sub_epi16(old, color), kept));
}

// Four pixels; the weights, 1 to 256, stand in four words each.
__m128i MixFour(__m128i old, __m128i color, __m128i lowKept, __m128i highKept) {
    const __m128i zero = _mm_setzero_si128(), bytes = _mm_set1_epi16(255);
    const __m128i low = Mixed(_mm_unpacklo_epi8(old, zero), color, lowKept);
    const __m128i high = Mixed(_mm_unpackhi_epi8(old, zero), color, highKept);
    return _mm_packus_epi16(_mm_and_si128(low, bytes), _mm_and_si128(high, bytes));
}

uint32_t MixOne(uint32_t old, uint32_t color, int weight) {
    uint32_t mixed = 0;
    for (int shift = 0; shift < 32; shift += 8) {
        const int d = old >> shift & 255, s = color >> shift & 255;
        mixed |= static_cast<uint32_t>(s + (d - s) * (256 - weight) / 256) << shift;
    }
    return mixed;
}

void Store(uint32_t* row, int count, __m128i four) {
    uint32_t* const last = row + count - 4;
    for (; row < last; row += 4) _mm_storeu_si128(reinterpret_cast<__m128i*>(row), four);
    _mm_storeu_si128(reinterpret_cast<__m128i*>(last), four);
}

}  // namespace

FloorScene::FloorScene(const std::vector<uint32_t>& picture, int width, int height, uint32_t page,
                       const std::vector<Box>& faces)
    : width_(width), height_(height), page_(page), drawn_(picture.size()), copied_(picture.size()) {
    const auto at = [&](int x, int y) { return picture[static_cast<size_t>(y) * width + x]; };
    for (const Box& b : faces) faces_.push_back({b, at(b.x + 7, b.y + 2), at(b.x + 7, b.y)});
    Draw();
    const std::vector<uint32_t> bare = drawn_;
    for (const Face& face : faces_) {
        const Box& b = face.box;
        Ink ink{b.x + 6, b.y + 3, b.w - 12, b.h - 6, 0, {}};
        std::vector<uint32_t> pixels;
        for (int y = ink.y; y < ink.y + ink.h; ++y)
            for (int x = ink.x; x < ink.x + ink.w; ++x) pixels.push_back(at(x, y));
        const auto distance = [green = static_cast<int>(face.fill >> 8 & 255)](uint32_t pixel) {
            return std::abs(static_cast<int>(pixel >> 8 & 255) - green);
        };
        ink.color = *std::max_element(pixels.begin(), pixels.end(),
                                      [&](uint32_t near, uint32_t far) { return distance(near) < distance(far); });
        for (const uint32_t pixel : pixels) {
            int weight = 0;
            while (weight < 255 && (weight ? MixOne(face.fill, ink.color, weight) : face.fill) != pixel) ++weight;
            ink.weights.push_back(static_cast<uint8_t>(weight));
        }
        inks_.push_back(ink);
    }
    Draw();
    for (size_t i = 0; i < picture.size(); ++i)
        if (drawn_[i] != picture[i]) rest_.push_back({static_cast<int>(i), picture[i]});
}

void FloorScene::Fill(const Face& face) {
    const __m128i fill = _mm_set1_epi32(static_cast<int>(face.fill)),
                  edge = _mm_set1_epi32(static_cast<int>(face.edge));
    const Box& b = face.box;
    uint32_t* row = drawn_.data() + static_cast<std::ptrdiff_t>(b.y) * width_ + b.x;
    for (int y = 0; y < b.h; ++y, row += width_) {
        const int i = std::min(y, b.h - 1 - y), inset = i < Radius ? Insets[i] : 0;
        Store(row + inset, b.w - 2 * inset, i == 0 ? edge : fill);
        if (i >= Radius) row[0] = row[b.w - 1] = face.edge;
    }
}

void FloorScene::Blend(const Ink& ink) {
    const __m128i zero = _mm_setzero_si128();
    const __m128i color = _mm_unpacklo_epi8(_mm_set1_epi32(static_cast<int>(ink.color)), zero);
    const uint8_t* weights = ink.weights.data();
    uint32_t* row = drawn_.data() + static_cast<std::ptrdiff_t>(ink.y) * width_ + ink.x;
    for (int y = 0; y < ink.h; ++y, row += width_, weights += ink.w)
        for (int x = 0; x + 4 <= ink.w; x += 4) {
            int four;
            memcpy(&four, weights + x, 4);
            if (four == 0) continue;
            const __m128i bytes = _mm_unpacklo_epi8(zero, _mm_cvtsi32_si128(four));  // times 256
            const __m128i twice = _mm_unpacklo_epi16(bytes, bytes), clear = _mm_cmpeq_epi32(twice, zero);
            const __m128i kept = _mm_sub_epi16(_mm_set1_epi16(1), twice);
            auto* const pixels = reinterpret_cast<__m128i*>(row + x);
            const __m128i old = _mm_loadu_si128(pixels);
            const __m128i mixed = MixFour(old, color, _mm_unpacklo_epi32(kept, kept), _mm_unpackhi_epi32(kept, kept));
            _mm_storeu_si128(pixels, _mm_or_si128(_mm_and_si128(clear, old), _mm_andnot_si128(clear, mixed)));
        }
}

const std::vector<uint32_t>& FloorScene::Draw() {
    Store(drawn_.data(), width_ * height_, _mm_set1_epi32(static_cast<int>(page_)));
    for (const Face& face : faces_) Fill(face);
    for (const Ink& ink : inks_) Blend(ink);
    for (const auto& [place, pixel] : rest_) drawn_[place] = pixel;
    memcpy(copied_.data(), drawn_.data(), drawn_.size() * sizeof drawn_[0]);
    return copied_;
}
