// Every drawing routine but text and masks, with whatever arguments the input makes, on whatever surfaces.
#include "lice/lice.h"
#include "tests/fuzz/byte_eater.h"

namespace {

void DrawOne(ByteEater& in, LICE_IBitmap* dest, LICE_IBitmap* src) {
    const auto i = [&] { return in.Int(); };
    const auto f = [&] { return in.Real<float>(); };
    const auto d = [&] { return in.Real<double>(); };
    const LICE_pixel color = in.Pixel();
    const float alpha = in.Alpha();
    const int mode = in.Mode();
    const bool aa = in.Bool();
    // Braces keep the bytes in the order of the arguments, on every compiler.
    switch (in.Byte() % 18) {
        case 0:
            return LICE_Clear(dest, color);
        case 1: {
            const int a[] = {i(), i(), i(), i()};
            return LICE_FillRect(dest, a[0], a[1], a[2], a[3], color, alpha, mode);
        }
        case 2: {
            const int a[] = {i(), i(), i(), i()};
            return LICE_DrawRect(dest, a[0], a[1], a[2], a[3], color, alpha, mode);
        }
        case 3:
        case 4: {
            const int a[] = {i(), i(), i(), i()};
            return LICE_Line(dest, a[0], a[1], a[2], a[3], color, alpha, mode, aa);
        }
        case 5: {
            const float a[] = {f(), f(), f(), f()};
            return LICE_FLine(dest, a[0], a[1], a[2], a[3], color, alpha, mode, aa);
        }
        case 6: {
            const float a[] = {f(), f(), f()};
            return LICE_Circle(dest, a[0], a[1], a[2], color, alpha, mode, aa);
        }
        case 7: {
            const float a[] = {f(), f(), f()};
            return LICE_FillCircle(dest, a[0], a[1], a[2], color, alpha, mode, aa);
        }
        case 8: {
            const float a[] = {f(), f(), f(), f(), f()};
            return LICE_Arc(dest, a[0], a[1], a[2], a[3], a[4], color, alpha, mode, aa);
        }
        case 9: {
            const float a[] = {f(), f(), f(), f()};
            return LICE_RoundRect(dest, a[0], a[1], a[2], a[3], i(), color, alpha, mode, aa);
        }
        case 10: {
            const int a[] = {i(), i(), i(), i(), i(), i()};
            return LICE_FillTriangle(dest, a[0], a[1], a[2], a[3], a[4], a[5], color, alpha, mode);
        }
        case 11: {
            const bool many = in.Byte() == 0;
            std::vector<int> x(in.Byte() % 9 + (many ? 512 : 0)), y(x.size());
            for (size_t n = 0; n < x.size(); ++n) x[n] = i(), y[n] = i();
            return LICE_FillConvexPolygon(dest, x.data(), y.data(), static_cast<int>(x.size()), color, alpha, mode);
        }
        case 12: {
            const double a[] = {d(), d(), d(), d()};
            const int y[] = {i(), i()};
            return LICE_FillTrapezoid(dest, a[0], a[1], y[0], a[2], a[3], y[1], color, alpha, mode);
        }
        case 13: {
            const int a[] = {i(), i(), i(), i(), i(), i()};
            return LICE_FillTrapezoid(dest, a[0], a[1], a[2], a[3], a[4], a[5], color, alpha, mode);
        }
        case 14: {
            const int a[] = {i(), i()};
            const RECT r = {i(), i(), i(), i()};
            return LICE_Blit(dest, src, a[0], a[1], in.Bool() ? &r : nullptr, alpha, mode);
        }
        case 15: {
            const int a[] = {i(), i(), i(), i(), i(), i()};
            return LICE_BlitRect(dest, src, a[0], a[1], a[2], a[3], a[4], a[5], alpha, mode);
        }
        case 16: {
            const int a[] = {i(), i(), i(), i(), i(), i()};
            return LICE_Blur(dest, src, a[0], a[1], a[2], a[3], a[4], a[5]);
        }
        case 17: {
            const int a[] = {i(), i(), i(), i()};
            const float s[] = {f(), f(), f(), f()};
            return LICE_ScaledBlit(dest, src, a[0], a[1], a[2], a[3], s[0], s[1], s[2], s[3], alpha, mode);
        }
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    ByteEater in(data, size);
    TestSurface dest = in.Surface(), other = in.Surface();
    const TestSurface destBefore = dest, otherBefore = other;
    for (int calls = 0; calls < 8 && !in.Empty(); ++calls) DrawOne(in, &dest, in.Byte() % 4 ? &other : &dest);
    RequireKeptOutside(dest, destBefore);
    if (other.memory != otherBefore.memory) std::abort();  // it is only read
    return 0;
}
