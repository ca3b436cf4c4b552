// Every drawing routine but text and masks, with whatever arguments the input makes, on whatever surfaces.
#include <tuple>

#include "lice/lice.h"
#include "tests/fuzz/byte_eater.h"

namespace {

template <class Edge>  // chooses one of the two overloads
using Trapezoid = void (*)(LICE_IBitmap*, Edge, Edge, int, Edge, Edge, int, LICE_pixel, float, int);

class Drawing {
  public:
    explicit Drawing(ByteEater& bytes) : in(bytes), dest(in.Surface()), src(in.Surface()) {}

    void One() {
        static constexpr void (Drawing::*routines[])() = {
            &Drawing::Call<LICE_Clear>,      &Drawing::Call<LICE_FillRect>,
            &Drawing::Call<LICE_DrawRect>,   &Drawing::Call<LICE_Line>,
            &Drawing::Call<LICE_FLine>,      &Drawing::Call<LICE_Circle>,
            &Drawing::Call<LICE_FillCircle>, &Drawing::Call<LICE_Arc>,
            &Drawing::Call<LICE_RoundRect>,  &Drawing::Call<LICE_FillTriangle>,
            &Drawing::ConvexPolygon,         &Drawing::Call<Trapezoid<double>(LICE_FillTrapezoid)>,
            &Drawing::Call<LICE_Blit>,       &Drawing::Call<Trapezoid<int>(LICE_FillTrapezoid)>,
            &Drawing::Call<LICE_BlitRect>,   &Drawing::Call<LICE_Blur>,
            &Drawing::Call<LICE_ScaledBlit>};
        (this->*in.Of(routines))();
    }

    ByteEater& in;
    TestSurface dest, src;

  private:
    template <auto routine>
    void Call() {
        CallWith(routine);
    }
    // Arguments go by their types. An opacity is the last float, and a mode word the last int.
    template <class... Argument>
    void CallWith(void (*routine)(Argument...)) {
        surfaces = 0;
        std::tuple<Argument...> arguments{Any(static_cast<Argument*>(nullptr))...};  // braces: from left to right
        if constexpr (LastOf<float, Argument...>() >= 0) std::get<LastOf<float, Argument...>()>(arguments) = in.Alpha();
        if constexpr (LastOf<int, Argument...>() >= 0) std::get<LastOf<int, Argument...>()>(arguments) = in.Mode();
        std::apply(routine, arguments);
    }
    template <class Wanted, class... Argument>
    static constexpr int LastOf() {
        int at = 0, last = -1;
        ((last = std::is_same_v<Wanted, Argument> ? at : last, ++at), ...);
        return last;
    }

    int Any(int*) { return in.Int(); }
    float Any(float*) { return in.Real<float>(); }
    double Any(double*) { return in.Real<double>(); }
    bool Any(bool*) { return in.Bool(); }
    LICE_pixel Any(LICE_pixel*) { return in.Pixel(); }
    const RECT* Any(const RECT**) {
        rect = {in.Int(), in.Int(), in.Int(), in.Int()};
        return in.Bool() ? &rect : nullptr;
    }
    LICE_IBitmap* Any(LICE_IBitmap**) {  // first the target, then the source, which may be the target
        return surfaces++ == 0 || in.Byte() % 4 == 0 ? &dest : &src;
    }

    void ConvexPolygon() {
        const bool onHeap = in.Byte() == 0;
        std::vector<int> x(in.Byte() % 9 + (onHeap ? 512 : 0)), y(x.size());
        for (size_t n = 0; n < x.size(); ++n) x[n] = in.Int(), y[n] = in.Int();
        const float alpha = in.Alpha();
        LICE_FillConvexPolygon(&dest, x.data(), y.data(), static_cast<int>(x.size()), in.Pixel(), alpha, in.Mode());
    }

    int surfaces = 0;
    RECT rect = {};
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    ByteEater in(data, size);
    Drawing drawing(in);
    const TestSurface dest = drawing.dest, src = drawing.src;
    for (int calls = 0; calls < 8 && !in.Empty(); ++calls) drawing.One();
    RequireKeptOutside(drawing.dest, dest);
    if (drawing.src.memory != src.memory) std::abort();  // it is only read
    return 0;
}
