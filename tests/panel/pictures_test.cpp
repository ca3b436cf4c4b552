// Pictures of the pages for people to look at, in the build folder; and what can be said of them without looking.
#include "panel/slicer_page.h"
#include "platform/pictures/png_file.h"
#include "slicer/preview.h"
#include "tests/support/panel_scene.h"

namespace {

class Imagens : public Painel {
  protected:
    driver::Picture Guardar(const std::string& nome) {
        driver::Pump();
        const driver::Picture imagem = driver::PictureOf(JanelaPainel);
        EXPECT_TRUE(WritePng(std::string(BUILD_FOLDER) + "/painel-" + nome + ".png",
                             {imagem.pixels.data(), imagem.width, imagem.height, imagem.width}));
        return imagem;
    }
    // Pixels that differ between the two, in those rows.
    static int Diferentes(const driver::Picture& a, const driver::Picture& b, int topo, int fundo) {
        int n = 0;
        for (int y = topo; y < fundo; ++y)
            for (int x = 0; x < a.width; ++x) n += a.At(x, y) != b.At(x, y);
        return n;
    }
};

TEST_F(Imagens, CadaEstadoMudaSoOSeuLugar) {
    Faixa("Voz", {{"A", 0, 4}});
    Selecionar({"A"});
    Abrir();
    Mover(316, 2);  // the pointer may rest on the panel from before
    const driver::Picture parada = Guardar("parada");
    EXPECT_EQ(parada.At(4, 300), 0x0D0D0Fu) << "the margin is the page's ground";
    EXPECT_EQ(parada.At(60, 633), static_cast<uint32_t>(0xDD << 16 | 0xB4 << 8 | 0xC5)) << "252, 205, 224 dimmed";

    Mover(100, 78);
    const driver::Picture sobre = Guardar("sobre");
    EXPECT_GT(Diferentes(parada, sobre, 62, 95), 8000) << "the whole button lights up";
    EXPECT_GT(Diferentes(parada, sobre, 3, 26), 100) << "its tooltip shows";
    EXPECT_EQ(Diferentes(parada, sobre, 96, 659) + Diferentes(parada, sobre, 26, 62), 0);
    Apertar();
    EXPECT_GT(Diferentes(sobre, Guardar("apertada"), 62, 95), 8000);
    Soltar();

    host.playState = 4;
    Mover(316, 2);
    const bool aceso = PiscaLigado;
    const driver::Picture gravando = Guardar("gravando");
    ASSERT_TRUE(EsperarTique(1));
    ASSERT_NE(PiscaLigado, aceso);
    EXPECT_GT(Diferentes(gravando, Guardar("gravando-pisca"), 26, 59), 5000);
    host.playState = 0;

    AbrirFatiador();
    Mover(316, 3);  // for a pass
    const driver::Picture fatiador = Guardar("fatiador");
    EXPECT_EQ(fatiador.At(100, 400), 0x0D0D0Fu) << "nothing stands below the slicer's rows";
    Clicar(160, 220);
    const driver::Picture pergunta = Guardar("pergunta");
    EXPECT_GT(Diferentes(fatiador, pergunta, 0, 659), 280 * 100) << "the veil and the box cover the page";
}

}  // namespace
