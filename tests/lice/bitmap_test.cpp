#include "lice/bitmap.h"

#include <climits>

#include "lice/lice.h"

// The answer of resize, and what the surface shows afterwards.
static std::string Resized(LICE_IBitmap& bm, int width, int height) {
    const LICE_pixel* before = bm.getBits();
    const std::string answer = bm.resize(width, height) ? "true: " : "false: ";
    const std::string bits = !bm.getBits() ? " without bits" : bm.getBits() == before ? " same bits" : " new bits";
    return answer + std::to_string(bm.getWidth()) + "x" + std::to_string(bm.getHeight()) + " span " +
           std::to_string(bm.getRowSpan()) + bits;
}

static int SetScale(LICE_IBitmap& bm, int code, int scale) { return static_cast<int>(bm.Extended(code, &scale)); }

TEST(SysBitmap, KeepsItsSectionWhileItIsLargeEnough) {
    const DWORD objects = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS);
    {
        LICE_SysBitmap bm(100, 100);
        ASSERT_NE(bm.getDC(), nullptr);
        EXPECT_EQ(Resized(bm, 100, 100), "false: 100x100 span 100 same bits");
        EXPECT_EQ(Resized(bm, 50, 50), "true: 50x50 span 100 same bits");
        EXPECT_EQ(Resized(bm, 97, 100), "true: 97x100 span 100 same bits");
        bm.resize(101, 50);  // 104 with the rounding, more than the 100 that there are
        EXPECT_EQ(bm.getRowSpan(), 104);
        EXPECT_EQ(Resized(bm, 104, 50), "true: 104x50 span 104 same bits");
        EXPECT_EQ(Resized(bm, 0, 0), "false: 0x0 span 0 without bits");
        EXPECT_EQ(Resized(bm, 3, 2), "true: 3x2 span 4 new bits");
        bm.getBits()[4 + 2] = 0x01020304;  // the last pixel can be written
        // A refused size leaves nothing to draw on, and the next one is tried afresh.
        bm.resize(INT_MAX, INT_MAX);
        EXPECT_EQ(bm.getBits(), nullptr);
        EXPECT_EQ(bm.getWidth(), 0);
        EXPECT_EQ(Resized(bm, 5, 5), "true: 5x5 span 8 new bits");
        for (const int side : {INT_MIN, -1, 0, INT_MAX}) bm.resize(side, 7), bm.resize(7, side), bm.resize(side, side);
        bm.resize(8, 8);
        EXPECT_NE(bm.getBits(), nullptr);
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
    EXPECT_EQ(Resized(bm, 5, 5), "true: 5x5 span 5 same bits");
    bm.resize(20, 20);  // 1600 bytes, and a quarter more in store
    EXPECT_EQ(Resized(bm, 20, 25), "true: 20x25 span 20 same bits");
    EXPECT_EQ(reinterpret_cast<uintptr_t>(bm.getBits()) % 64, 0u);
    bm.getBits()[20 * 25 - 1] = 1;
    EXPECT_EQ(Resized(bm, 0, 10), "true: 0x0 span 0 without bits");
    EXPECT_EQ(Resized(bm, 65536, 65536), "true: 0x0 span 0 without bits");  // 2^34 bytes: not 0 of them
    EXPECT_EQ(Resized(bm, INT_MAX, INT_MIN), "true: 0x0 span 0 without bits");

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

// Nor is a null surface.
TEST(Surface, WithoutPixelsIsNotDrawnOn) {
    struct : LICE_MemBitmap {
        LICE_pixel* getBits() override { return nullptr; }
    } none;
    none.resize(30, 30);
    LICE_MemBitmap other(30, 30);
    const int x[] = {1, 9, 4, 2}, y[] = {1, 3, 9, 7};
    const unsigned char mask[] = {255};
    for (LICE_IBitmap* bm : {static_cast<LICE_IBitmap*>(nullptr), static_cast<LICE_IBitmap*>(&none)}) {
        LICE_Clear(bm, 1);
        LICE_FillRect(bm, 1, 1, 9, 9, 1, 1, 0);
        LICE_DrawRect(bm, 1, 1, 9, 9, 1, 1, 0);
        LICE_Line(bm, 1, 1, 9, 3, 1, 1, 0, true);
        LICE_FLine(bm, 1, 1, 9, 3, 1, 1, 0, true);
        LICE_DrawGlyph(bm, 1, 1, 1, mask, 1, 1, 1, 0);
        LICE_Circle(bm, 9, 9, 4.5f, 1, 1, 0, true);
        LICE_FillCircle(bm, 9, 9, 2, 1, 1, 0, true);
        LICE_Arc(bm, 9, 9, 4.5f, 0, 2, 1, 1, 0, true);
        LICE_RoundRect(bm, 1, 1, 20, 20, 5, 1, 1, 0, true);
        LICE_FillConvexPolygon(bm, x, y, 4, 1, 1, 0);
        LICE_FillTrapezoid(bm, 1, 9, 1, 2, 7, 6, 1, 1, 0);
        for (const auto& [dest, src] : {std::pair(bm, static_cast<LICE_IBitmap*>(&other)), {&other, bm}, {bm, bm}}) {
            LICE_Blit(dest, src, 0, 0, nullptr, 1, 0);
            LICE_ScaledBlit(dest, src, 0, 0, 9, 9, 0, 0, 5, 5, 1, 0);
            LICE_Blur(dest, src, 0, 0, 0, 0, 9, 9);
        }
    }
}
