// The arithmetic alone: every function against its formula, one pixel at a time and four.
#include "lice/paint.h"

#include "tests/lice/reference.h"
#include "tests/lice/support.h"

template <class Combine>
static void Compare(Random& random, int count, const char* name, int lowest, int highest,
                    LICE_pixel (*expected)(LICE_pixel, LICE_pixel, int)) {
    const Combine combine;
    for (int i = 0; i < count; ++i) {
        const int ia = random.In(lowest, highest);
        LICE_pixel old[5], source[5], drawn[5];
        for (int k = 0; k < 5; ++k) {
            drawn[k] = old[k] = random.Pixel();
            source[k] = random.Pixel();
        }
        CombineRun(combine, drawn, 5, PixelRow{source}, ia);
        for (int k = 0; k < 5; ++k)
            ASSERT_EQ(drawn[k], expected(old[k], source[k], ia))
                << name << " of " << std::hex << old[k] << " and " << source[k] << " at " << std::dec << ia;
    }
}

template <int modeByte>
static LICE_pixel General(LICE_pixel old, LICE_pixel source, int ia) {
    return reference::Combine(old, source, ia, modeByte);
}

template <int modeByte>
static LICE_pixel Alpha(LICE_pixel old, LICE_pixel source, int ia) {
    return reference::CombineAlpha(old, source, ia, modeByte);
}

TEST(Combine, EveryFunctionAgreesWithItsFormula) {
    Random random;
    for (const int far : {256, 4000, 2000000000}) {
        Compare<CombineCopyBeyond>(random, 50000, "copy", -far, far, General<0>);
        Compare<CombineAdd>(random, 50000, "add", -far, far, General<1>);
        Compare<CombineDodge>(random, 50000, "dodge", -far, far, General<2>);
        Compare<CombineMultiply>(random, 50000, "multiply", -far, far, General<3>);
        Compare<CombineOverlay>(random, 50000, "overlay", -far, far, General<4>);
        Compare<CombineHsvAdjust>(random, 50000, "HSV adjust", -far, far, General<5>);
        Compare<CombineWithAlpha<CombineAdd>>(random, 20000, "alpha add", -far, far, Alpha<1>);
        Compare<CombineWithAlpha<CombineDodge>>(random, 20000, "alpha dodge", -far, far, Alpha<2>);
        Compare<CombineWithAlpha<CombineHsvAdjust>>(random, 20000, "alpha HSV adjust", -far, far, Alpha<5>);
    }
    Compare<CombineAlpha>(random, 200000, "alpha copy", 1, 255, Alpha<0>);
    Compare<CombineAlphaOpaque>(random, 200000, "opaque alpha copy", 256, 256, Alpha<0>);
    Compare<CombineAlphaBeyond>(random, 50000, "alpha copy beyond", 257, 2000000000, Alpha<0>);
    Compare<CombineHalf>(random, 50000, "mean", 128, 128,
                         [](LICE_pixel d, LICE_pixel s, int) { return reference::Mean(d, s); });
}

// The high word must be the quotient for every old byte, source byte and opacity.
TEST(Combine, CopyIsExactForEveryPairOfBytesAtEveryOpacity) {
    for (int ia = 1; ia <= 256; ++ia)
        for (int s = 0; s < 256; ++s)
            for (int d = 0; d < 256; d += 16) {
                SixteenBytes old;
                for (int i = 0; i < 16; ++i) old[i] = static_cast<uint8_t>(d + i);
                const LICE_pixel source = static_cast<LICE_pixel>(s) * 0x01010101u;
                const auto uniform = (SixteenBytes)CombineCopy{}((FourPixels)old, OneColor{source}.Four(0), ia);
                for (int i = 0; i < 16; ++i)
                    ASSERT_EQ(uniform[i], s + (d + i - s) * (256 - ia) / 256) << d + i << ' ' << s << ' ' << ia;
            }
}

TEST(Combine, OpacityTruncatesAndIsHeldInInt) {
    const std::pair<float, int> cases[] = {{1.0f, 256},         {0.999f, 255},         {-0.999f, -255},
                                           {0.0039f, 0},        {8388608.0f, INT_MAX}, {-8388608.0f, INT_MIN},
                                           {INFINITY, INT_MAX}, {-INFINITY, INT_MIN},  {NAN, 0}};
    for (const auto& [alpha, ia] : cases) EXPECT_EQ(Opacity(alpha), ia) << alpha;
}
