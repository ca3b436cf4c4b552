// Glyph masks of any shape, whose blocks end with their last byte.
#include "lice/lice.h"
#include "tests/fuzz/byte_eater.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    ByteEater in(data, size);
    TestSurface dest = in.Surface();
    const TestSurface before = dest;
    for (int calls = 0; calls < 8 && !in.Empty(); ++calls) {
        int width = in.Byte() % 20, height = in.Byte() % 20, gap = in.Byte() % 4;
        std::vector<unsigned char> mask(height > 0 ? static_cast<size_t>((height - 1) * (width + gap) + width) : 0);
        for (unsigned char& coverage : mask) coverage = static_cast<unsigned char>(in.Byte());
        mask.shrink_to_fit();
        if (in.Byte() == 0) width = -in.Byte();
        if (in.Byte() == 0) height = in.Of({-1, std::numeric_limits<int>::min()});
        const int x = in.Int(), y = in.Int(), span = in.Bool() ? width + gap : -(width + gap);
        const LICE_pixel color = in.Pixel();
        const float alpha = in.Alpha();
        LICE_DrawGlyph(&dest, x, y, color, mask.data(), width, span, height, alpha, in.Mode());
    }
    RequireKeptOutside(dest, before);
    return 0;
}
