// The rounded rectangles beside the plain calls that they stand for, pixel by pixel.
#include "panel/rounded.h"

#include "tests/lice/support.h"

static void PreencherDevagar(LICE_IBitmap* bm, const RECT& r, int raio, LICE_pixel cor, float alfa) {
    const int w = r.right - r.left, h = r.bottom - r.top;
    const auto parte = [&](int x, int y, int largura, int altura, double cobertura) {
        LICE_FillRect(bm, r.left + x, r.top + y, largura, altura, cor, static_cast<float>(alfa * cobertura), 0);
    };
    parte(0, raio, w, h - 2 * raio, 1);
    for (int i = 0; i < raio; ++i) {
        const double n = raio - std::sqrt(raio * raio - (raio - i) * (raio - i) * 1.0), m = std::ceil(n);
        for (const int y : {i, h - 1 - i}) {
            parte(m, y, w - 2 * m, 1, 1);
            if (m - n <= 0.01 || m < 1) continue;
            parte(m - 1, y, 1, 1, m - n);
            parte(w - m, y, 1, 1, m - n);
        }
    }
}

TEST(Arredondado, FacePreenchimentoEContornoComoAsChamadasSimples) {
    Random random;
    for (int i = 0; i < 4000; ++i) {
        TestSurface tela = TestSurface::Any(random, 60, true, 4), esperada = tela;
        const int x = random.In(-6, 20), y = random.In(-6, 20), w = random.In(1, 40), h = random.In(1, 40);
        const int raio = random.Chance(2) ? 5 : random.In(0, 30);
        const LICE_pixel cor = random.Pixel(), contorno = random.Pixel();
        const float alfa = random.Chance(2) ? random.Of({0.03f, 0.04f, 0.12f, 0.15f, 0.4f}) : random.Alpha();
        const bool face = random.Chance(2);
        face ? FaceArredondada(&tela, x, y, w, h, raio, cor, contorno, alfa)
             : PreencheArredondado(&tela, x, y, w, h, raio, cor, alfa);
        PreencherDevagar(&esperada, {x, y, x + w, y + h}, raio, cor, face ? 1.0f : alfa);
        if (face) LICE_RoundRect(&esperada, x, y, w - 1, h - 1, raio, contorno, alfa, 0, true);
        ASSERT_TRUE(tela.memory == esperada.memory)
            << i << ": " << x << ' ' << y << ' ' << w << ' ' << h << ' ' << raio << ' ' << alfa;
    }
}
