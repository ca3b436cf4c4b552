// The file that keeps the panel's place.
#include "panel/window_state.h"

#include <filesystem>

#include "tests/support/panel_scene.h"

constexpr char DoHost[] = "740 40";  // at the host's right edge: 1100 - 340 - 20

class PainelLugar : public Painel {
  protected:
    void SetUp() override {
        Painel::SetUp();
        CaminhoPainel = host.resourcePath;
    }
    static void Gravar(const std::string& conteudo) { GravarArquivo(CaminhoJanelaIni(), conteudo); }
    static std::string Gravado() { return LerArquivo(CaminhoJanelaIni()); }
    std::string Tamanho() {
        return std::to_string(Lugar().right - Lugar().left) + " " + std::to_string(Lugar().bottom - Lugar().top);
    }
};

using namespace std::string_literals;

const std::pair<std::string, const char*> Casos[] = {
    {"100 200", "100 200"},
    {"100 200 340 699", "100 200"},
    {"  \n100\t150\r\n 340 \v699 and more", "100 150"},
    {"+100 -0 340", "100 0"},
    {"-1000 -1000 340 699", "0 0"},
    {"5000 5000 340 699", "860 201"},  // 1200 - 340, 900 - 699
    {"2147483647 2147483647 340 699", "860 201"},
    {"-2147483648 -2147483648 340 699", "0 0"},
    // The width decides how far right it may stand, the height how far down.
    {"5000 100 319 699", "860 100"},
    {"5000 100 320 699", "880 100"},
    {"5000 100 380 699", "820 100"},
    {"5000 100 381 699", "860 100"},
    {"5000 100 -5 699", "860 100"},
    {"5000 100 330 x", "860 100"},
    {"100 5000 340 150", "100 700"},
    {"100 5000 340 400", "100 500"},
    {"100 5000 340 900", "100 201"},
    {"100 5000 340 -2147483648", "100 700"},
    {"100 5000 340 99999999999", "100 201"},  // no height: as if only the position were there
    {"-32000 -32000 160 31", "0 0"},          // of a minimised window
    {"", DoHost},
    {"abc", DoHost},
    {"500", DoHost},
    {"500 abc", DoHost},
    {"500.5 300", DoHost},
    {"99999999999999999999 300", DoHost},
    {"3000000000 300", DoHost},
    {"100 150\0 340 699"s, "100 150"},
    {"100\0 150 340 699"s, DoHost},
    {std::string(3 << 20, '9'), DoHost},
    {std::string(3 << 20, ' ') + "100 150", DoHost},  // nobody reads that far
    {"100 150 340 699" + std::string(3 << 20, '\0'), "100 150"},
};

TEST_F(PainelLugar, CadaArquivoTemSeuLugar) {
    for (const auto& [conteudo, canto] : Casos) {
        Gravar(conteudo);
        Abrir();
        ASSERT_TRUE(JanelaPainelAberta()) << conteudo;
        EXPECT_EQ(Canto(), canto) << conteudo;
        DestroyWindow(JanelaPainel);
    }
    EXPECT_EQ(Gravado(), std::end(Casos)[-1].first) << "only closing writes";
}

TEST_F(PainelLugar, FecharGuardaELembra) {
    EXPECT_EQ(Gravado(), "(no file)");
    Abrir();
    EXPECT_EQ(Canto(), DoHost);
    MoveWindow(JanelaPainel, 123, 45, 1, 1, FALSE);
    const std::string tamanho = Tamanho();
    Fechar();
    EXPECT_EQ(Gravado(), "123 45 " + tamanho);
    Abrir();
    EXPECT_EQ(Canto(), "123 45");
    EXPECT_EQ(Tamanho(), tamanho);

    ShowWindow(JanelaPainel, SW_MINIMIZE);
    const std::string longe = Canto() + " " + Tamanho();
    EXPECT_NE(longe, "123 45 " + tamanho) << "far off the screen, or an icon at its lower edge";
    Fechar();
    EXPECT_EQ(Gravado(), longe);
    Abrir();
    EXPECT_EQ(Tamanho(), tamanho);
    EXPECT_GE(Lugar().left, 0);
    EXPECT_GE(Lugar().top, 0);
}

TEST_F(PainelLugar, PastaQueNaoServe) {
    const std::string semPasta = host.resourcePath + "/nenhuma";
    for (const std::string& pasta : {semPasta, std::string("\xFF\xFE")}) {
        AbrirJanelaPainel(dono, pasta);
        ASSERT_TRUE(JanelaPainelAberta());
        EXPECT_EQ(Canto(), DoHost);
        driver::Pump();
        CaminhoPainel = semPasta;
        Fechar();
        EXPECT_FALSE(JanelaPainelAberta());
    }
    CaminhoPainel = host.resourcePath;
    std::filesystem::create_directory(DeUtf8(CaminhoJanelaIni()));
    Abrir();
    EXPECT_EQ(Canto(), DoHost) << "a folder in the file's place";
    Fechar();
    EXPECT_FALSE(JanelaPainelAberta());
    std::filesystem::remove(DeUtf8(CaminhoJanelaIni()));
}

TEST_F(PainelLugar, AreaDeTrabalhoMenorQueAJanela) {
    RECT area{100, 50, 300, 400};
    SystemParametersInfoA(SPI_SETWORKAREA, 0, &area, 0);
    Gravar("150 120 340 699");
    Abrir();
    EXPECT_EQ(Canto(), "100 50") << "the left and upper edge are the ones that show";
}
