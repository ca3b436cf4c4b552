// The file that keeps the panel's place.
#include "panel/window_state.h"

#include <filesystem>
#include <fstream>

#include "platform/files.h"
#include "tests/support/panel_scene.h"

class PainelLugar : public Painel {
  protected:
    void SetUp() override {
        Painel::SetUp();
        CaminhoPainel = host.resourcePath;
    }
    void Gravar(const std::string& conteudo) {
        std::FILE* arquivo = OpenFile(CaminhoJanelaIni(), "wb");
        ASSERT_TRUE(arquivo);
        std::fwrite(conteudo.data(), 1, conteudo.size(), arquivo);
        std::fclose(arquivo);
    }
    std::string Gravado() {  // "none" without a file
        std::ifstream arquivo(std::filesystem::u8path(CaminhoJanelaIni()), std::ios::binary);
        if (!arquivo) return "none";
        return {std::istreambuf_iterator<char>(arquivo), {}};
    }
    static std::string Texto(const RECT& r) {
        return std::to_string(r.left) + " " + std::to_string(r.top) + " " + std::to_string(r.right - r.left) + " " +
               std::to_string(r.bottom - r.top);
    }
};

TEST_F(PainelLugar, CadaArquivoTemSeuLugar) {
    constexpr int padraoX = 1100 - 340 - 20, padraoY = 40;  // at the host's right edge
    using namespace std::string_literals;
    static const struct {
        std::string conteudo;
        int x, y;
    } casos[] = {
        {"100 200", 100, 200},
        {"100 200 340 699", 100, 200},
        {"  \n100\t150\r\n 340 \v699 and more", 100, 150},
        {"+100 -0 340", 100, 0},
        {"-1000 -1000 340 699", 0, 0},
        {"5000 5000 340 699", 1200 - 340, 900 - 699},
        {"2147483647 2147483647 340 699", 1200 - 340, 900 - 699},
        {"-2147483648 -2147483648 340 699", 0, 0},
        // The width decides how far right it may stand, the height how far down.
        {"5000 100 319 699", 1200 - 340, 100},
        {"5000 100 320 699", 1200 - 320, 100},
        {"5000 100 380 699", 1200 - 380, 100},
        {"5000 100 381 699", 1200 - 340, 100},
        {"5000 100 -5 699", 1200 - 340, 100},
        {"5000 100 330 x", 1200 - 340, 100},
        {"100 5000 340 150", 100, 900 - 200},
        {"100 5000 340 400", 100, 900 - 400},
        {"100 5000 340 900", 100, 900 - 699},
        {"100 5000 340 -2147483648", 100, 900 - 200},
        {"100 5000 340 99999999999", 100, 900 - 699},  // no height: as if only the position were there
        {"-32000 -32000 160 31", 0, 0},                // of a minimised window
        {"", padraoX, padraoY},
        {"abc", padraoX, padraoY},
        {"500", padraoX, padraoY},
        {"500 abc", padraoX, padraoY},
        {"500.5 300", padraoX, padraoY},
        {"99999999999999999999 300", padraoX, padraoY},
        {"3000000000 300", padraoX, padraoY},
        {"100 150\0 340 699"s, 100, 150},
        {"100\0 150 340 699"s, padraoX, padraoY},
        {std::string(3 << 20, '9'), padraoX, padraoY},
        {std::string(3 << 20, ' ') + "100 150", padraoX, padraoY},  // nobody reads that far
        {"100 150 340 699" + std::string(3 << 20, '\0'), 100, 150},
    };
    for (const auto& caso : casos) {
        Gravar(caso.conteudo);
        Abrir();
        ASSERT_TRUE(JanelaPainelAberta()) << caso.conteudo;
        EXPECT_EQ(Lugar().left, caso.x) << caso.conteudo;
        EXPECT_EQ(Lugar().top, caso.y) << caso.conteudo;
        DestroyWindow(JanelaPainel);
        EXPECT_EQ(Gravado(), caso.conteudo) << "only closing writes";
    }
}

TEST_F(PainelLugar, FecharGuardaELembra) {
    EXPECT_EQ(Gravado(), "none");
    Abrir();
    EXPECT_EQ(Lugar().left, 1100 - 340 - 20);
    MoveWindow(JanelaPainel, 123, 45, 1, 1, FALSE);
    const std::string lugar = Texto(Lugar());
    Fechar();
    EXPECT_EQ(Gravado(), lugar);
    EXPECT_EQ(lugar.find("123 45 "), 0u);
    Abrir();
    EXPECT_EQ(Texto(Lugar()), lugar);

    ShowWindow(JanelaPainel, SW_MINIMIZE);
    const std::string minimizada = Texto(Lugar());
    Fechar();
    EXPECT_EQ(Gravado(), minimizada);
    Abrir();
    RECT cliente;
    GetClientRect(JanelaPainel, &cliente);
    EXPECT_EQ(cliente.right, 320);
    EXPECT_EQ(cliente.bottom, 659);
    EXPECT_GE(Lugar().left, 0);
    EXPECT_GE(Lugar().top, 0);
}

TEST_F(PainelLugar, PastaQueNaoServe) {
    for (const std::string& pasta : {host.resourcePath + "/nenhuma", std::string("\xFF\xFE")}) {
        AbrirJanelaPainel(dono, pasta);
        ASSERT_TRUE(JanelaPainelAberta());
        EXPECT_EQ(Lugar().top, 40);
        driver::Pump();
        CaminhoPainel = host.resourcePath + "/nenhuma";
        Fechar();
        EXPECT_FALSE(JanelaPainelAberta());
    }
    CaminhoPainel = host.resourcePath;
    std::filesystem::create_directory(std::filesystem::u8path(CaminhoJanelaIni()));
    Abrir();
    EXPECT_EQ(Lugar().top, 40) << "a folder in the file's place";
    Fechar();
    EXPECT_FALSE(JanelaPainelAberta());
    std::filesystem::remove(std::filesystem::u8path(CaminhoJanelaIni()));
}

TEST_F(PainelLugar, AreaDeTrabalhoMenorQueAJanela) {
    RECT area{100, 50, 300, 400};
    SystemParametersInfoA(SPI_SETWORKAREA, 0, &area, 0);
    Gravar("150 120 340 699");
    Abrir();
    EXPECT_EQ(Lugar().left, 100) << "the left and upper edge are the ones that show";
    EXPECT_EQ(Lugar().top, 50);
}
