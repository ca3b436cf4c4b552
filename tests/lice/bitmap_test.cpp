#include "lice/bitmap.h"

#include <gtest/gtest.h>

#include <climits>

namespace {

// What a caller can see of a surface after a resize.
struct Seen {
    bool changed;
    int width, height, span;
    bool sameBits, hasBits;
    bool operator==(const Seen&) const = default;
    friend std::ostream& operator<<(std::ostream& out, const Seen& s) {
        return out << s.changed << ' ' << s.width << 'x' << s.height << " span " << s.span << " same " << s.sameBits
                   << " has " << s.hasBits;
    }
};

Seen Resized(LICE_IBitmap& bm, int width, int height) {
    const LICE_pixel* before = bm.getBits();
    const bool changed = bm.resize(width, height);
    const LICE_pixel* bits = bm.getBits();
    return {changed, bm.getWidth(), bm.getHeight(), bm.getRowSpan(), bits == before, bits != nullptr};
}

int SetScale(LICE_IBitmap& bm, int code, int scale) {
    return static_cast<int>(bm.Extended(code, &scale));
}

}  // namespace

TEST(SysBitmap, KeepsItsSectionWhileItIsLargeEnough) {
    const DWORD objects = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS);
    {
        LICE_SysBitmap bm(100, 100);
        ASSERT_NE(bm.getDC(), nullptr);
        EXPECT_EQ(Resized(bm, 100, 100), (Seen{false, 100, 100, 100, true, true}));
        EXPECT_EQ(Resized(bm, 50, 50), (Seen{true, 50, 50, 100, true, true}));
        EXPECT_EQ(Resized(bm, 97, 100), (Seen{true, 97, 100, 100, true, true}));
        bm.resize(101, 50);  // 104 with the rounding, which the 100 there are don't hold
        EXPECT_EQ(bm.getRowSpan(), 104);
        EXPECT_EQ(Resized(bm, 104, 50), (Seen{true, 104, 50, 104, true, true}));
        EXPECT_EQ(Resized(bm, 0, 0), (Seen{false, 0, 0, 0, false, false}));
        EXPECT_EQ(Resized(bm, 3, 2), (Seen{true, 3, 2, 4, false, true}));
        bm.getBits()[4 + 2] = 0x01020304;  // the last pixel is there to be written
        // Refused: nothing is left to draw on, and the next size is tried afresh.
        EXPECT_EQ(Resized(bm, INT_MAX, INT_MAX).hasBits, false);
        EXPECT_EQ(bm.getWidth(), 0);
        EXPECT_EQ(Resized(bm, 5, 5), (Seen{true, 5, 5, 8, false, true}));
        for (const int side : {INT_MIN, -1, 0, INT_MAX}) bm.resize(side, 7), bm.resize(7, side), bm.resize(side, side);
        EXPECT_TRUE(Resized(bm, 8, 8).hasBits);
    }
    EXPECT_EQ(GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS), objects);
}

TEST(SysBitmap, AScaleEnlargesTheBackingStoreOnly) {
    LICE_SysBitmap bm(10, 6);
    EXPECT_EQ(SetScale(bm, LICE_EXT_SET_SCALING, 512), 1);
    EXPECT_EQ(bm.Extended(LICE_EXT_GET_SCALING, nullptr), 512);
    EXPECT_EQ(bm.getWidth(), 10);
    EXPECT_EQ(bm.getHeight(), 6);
    EXPECT_EQ(bm.getRowSpan(), 20);
    bm.getBits()[20 * 11 + 19] = 0;

    EXPECT_EQ(bm.Extended(LICE_EXT_GET_EFFECTIVE_SCALING, nullptr), 512);
    EXPECT_EQ(SetScale(bm, LICE_EXT_SET_ADVISORY_SCALING, 384), 1);
    EXPECT_EQ(bm.Extended(LICE_EXT_GET_EFFECTIVE_SCALING, nullptr), 768);
    for (const int none : {256, -5, 0}) {
        SetScale(bm, LICE_EXT_SET_SCALING, 512);
        SetScale(bm, LICE_EXT_SET_SCALING, none);
        EXPECT_EQ(bm.Extended(LICE_EXT_GET_SCALING, nullptr), 0) << none;
    }
    EXPECT_EQ(bm.Extended(LICE_EXT_GET_EFFECTIVE_SCALING, nullptr), 384);
    bm.Extended(LICE_EXT_SET_ADVISORY_SCALING, nullptr);
    EXPECT_EQ(bm.Extended(LICE_EXT_GET_ADVISORY_SCALING, nullptr), 0);
    for (const int unknown : {0x1FFF, 0x2005, 0, -1}) EXPECT_EQ(bm.Extended(unknown, nullptr), 0);

    SetScale(bm, LICE_EXT_SET_SCALING, INT_MAX);  // no section is that large
    EXPECT_EQ(bm.getBits(), nullptr);
}

TEST(MemBitmap, GrowsAlignedAndNeverShrinks) {
    LICE_MemBitmap bm(10, 10);
    EXPECT_EQ(reinterpret_cast<uintptr_t>(bm.getBits()) % 64, 0u);
    EXPECT_EQ(Resized(bm, 5, 5), (Seen{true, 5, 5, 5, true, true}));
    bm.resize(20, 20);  // 1600 bytes, and a quarter more in store
    EXPECT_EQ(Resized(bm, 20, 25), (Seen{true, 20, 25, 20, true, true}));
    EXPECT_EQ(reinterpret_cast<uintptr_t>(bm.getBits()) % 64, 0u);
    bm.getBits()[20 * 25 - 1] = 1;
    EXPECT_EQ(Resized(bm, 0, 10), (Seen{true, 0, 0, 0, false, false}));
    EXPECT_EQ(Resized(bm, 65536, 65536), (Seen{true, 0, 0, 0, true, false}));  // 2^34 bytes: not 0 of them
    EXPECT_EQ(Resized(bm, INT_MAX, INT_MIN), (Seen{true, 0, 0, 0, true, false}));

    // The span by the alignment asked for; a row is never longer than its span.
    const std::pair<int, int> spans[] = {{0, 13}, {1, 13}, {-4, 13}, {4, 16}, {8, 16}, {12, 16}, {3, 13}, {16, 16}};
    for (const auto& [align, span] : spans) EXPECT_EQ(LICE_MemBitmap(13, 2, align).getRowSpan(), span) << align;
    for (int width = 1; width < 70; ++width) EXPECT_GE(LICE_MemBitmap(width, 1, 64).getRowSpan(), width);
    for (const int side : {0, -1}) EXPECT_EQ(LICE_MemBitmap(side, 5).getHeight(), 0);
}

TEST(Scale, CoordinatesTruncateAndAreHeldSizesAreNot) {
    EXPECT_EQ(LICE_ScaleCoord(-3, 384), -4);
    EXPECT_EQ(LICE_ScaleCoord(INT_MAX, 512), INT_MAX);
    EXPECT_EQ(LICE_ScaleCoord(INT_MIN, 512), INT_MIN);
    EXPECT_EQ(LICE_ScaleSize(3, 384), 4u);
    EXPECT_EQ(LICE_ScaleSize(INT_MAX, 512), 0xFFFFFFFEu);
    EXPECT_EQ(LICE_ScaleSize(-3, 384), 0xFFFFFFFFu);
    EXPECT_EQ(LICE_ScaleFloat(0.1f, 384), double{0.1f} * 1.5);
}
