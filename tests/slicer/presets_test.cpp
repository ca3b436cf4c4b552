// The presets file: what is written, and what is made of every kind of broken one.
#include "slicer/presets.h"

#include <clocale>
#include <filesystem>

#include "tests/support/scene.h"

class Presets : public Cena {
  protected:
    void SetUp() override {
        Cena::SetUp();
        std::filesystem::create_directories(DeUtf8(host.resourcePath + "/Scripts"));
    }
    void Carregar(const std::string& texto) {
        GravarArquivo(arquivo, texto);
        db = -37, ms = 55, fechar = true;
        Carregar();
    }
    void Carregar() { CarregarPresets(tabela, db, ms, fechar, host.resourcePath); }
    // What a write makes of the file.
    std::string Gravado() {
        GravarPresets(tabela, db, ms, fechar, host.resourcePath);
        return LerArquivo(arquivo);
    }

    const std::string arquivo = host.resourcePath + "/presets_fatiador.ini",
                      antigo = host.resourcePath + "/Scripts/presets_fatiador.ini";
    TabelaDePresets tabela = {};
    double db = -37.0;
    int ms = 55;
    bool fechar = true;
};

constexpr char DeFabrica[] =
    "P1=-37.00,50,false\nP2=-40.00,55,true\nP3=-30.00,60,true\nP4=-25.00,40,false\nP5=-45.00,100,true\n"
    "P6=-50.00,150,true\n";

TEST_F(Presets, SemArquivoValemOsDeFabricaEAsLinhasTemFormaFixa) {
    Carregar();
    EXPECT_EQ(Gravado(), std::string("LAST_USED=-37.00,55,true\n") + DeFabrica);
    for (const int slot : {0, 7, -1}) SalvarPreset(tabela, slot, 1, 1, true, host.resourcePath);
    SalvarPreset(tabela, 2, -12.5, 9000, false, host.resourcePath);
    EXPECT_EQ(LerArquivo(arquivo),
              "LAST_USED=-12.50,9000,false\nP1=-37.00,50,false\nP2=-12.50,9000,false\nP3=-30.00,60,true\n"
              "P4=-25.00,40,false\nP5=-45.00,100,true\nP6=-50.00,150,true\n");
    db = 1e300;  // a line is never longer than its buffer
    EXPECT_EQ(Gravado().find("P1="), 63u);
    tabela[0].definido = false;
    EXPECT_EQ(Gravado().find("P1="), std::string::npos);
}

TEST_F(Presets, DaPastaAntigaESoParaFrente) {
    GravarArquivo(antigo, "LAST_USED=-20,10,false\n");
    Carregar();
    EXPECT_EQ(Gravado(), std::string("LAST_USED=-20.00,10,false\n") + DeFabrica);
    GravarArquivo(antigo, "LAST_USED=-11,11,true\n");
    Carregar();
    EXPECT_EQ(db, -20);
}

// Each text and the settings that a write then keeps; the six rows stay as they were made.
TEST_F(Presets, LinhasQuebradasDeixamOQueHavia) {
    constexpr char nada[] = "-37.00,55,true";
    const std::pair<const char*, const char*> casos[] = {
        {"LAST_USED=-20.5,10,false\n", "-20.50,10,false"},
        {"LAST_USED=-20.456,10,true", "-20.46,10,true"},  // two decimals are written; no line end
        {"LAST_USED=-20.5,10,true\r\n", "-20.50,10,true"},
        {"LAST_USED= +3, 9000, true\n", "3.00,9000,true"},  // white space before a value, nothing clamped
        {"LAST_USED=-20.5 ,10,true\n", nada},               // not before a comma
        {"LAST_USED=-20.5,10\n", nada},
        {"LAST_USED=-20.5,10,\n", nada},
        {"LAST_USED=-20.5,10,TRUE\n", "-20.50,10,false"},
        {"LAST_USED=-20.5,10,truest\n", "-20.50,10,false"},
        {"LAST_USED=-20.5,10,true yes\n", "-20.50,10,true"},
        {"LAST_USED=-20.5,10.5,true\n", nada},
        {"LAST_USED=abc,10,true\n", nada},
        {"LAST_USED=+-3,10,true\n", nada},
        {"LAST_USED=-20.5,99999999999,true\n", nada},
        {"last_used=-20.5,10,false\n", nada},
        {" LAST_USED=-20.5,10,false\n", nada},
        {"LAST_USED=-1,1,true\n\n\nLAST_USED=-2,2,false\n", "-2.00,2,false"},
        {"P7=-1,1,false\nP0=-1,1,false\nP=-1,1,false\nP1=-1,1\n", nada},
    };
    for (const auto& [texto, ultimos] : casos) {
        Carregar(texto);
        EXPECT_EQ(Gravado(), std::string("LAST_USED=") + ultimos + '\n' + DeFabrica) << texto;
    }
    // A zero in a line, and a last word of megabytes.
    Carregar("P3=-1,2,false\n" + std::string("LAST_USED=-5,5,true\0\nP4=-3,3,true\n", 33) + std::string(3 << 20, 'x'));
    EXPECT_NE(Gravado().find("P3=-1.00,2,false\nP4=-3.00,3,false\n"), std::string::npos);
}

TEST_F(Presets, PontoEmQualquerLocalidadeEPastaQueNaoAceita) {
    if (!std::setlocale(LC_ALL, "pt_BR.UTF-8")) std::setlocale(LC_ALL, "Portuguese_Brazil.1252");
    Carregar("LAST_USED=-20.25,10,false\n");
    EXPECT_EQ(Gravado(), std::string("LAST_USED=-20.25,10,false\n") + DeFabrica);
    std::setlocale(LC_ALL, "C");
    GravarPresets(tabela, db, ms, fechar, host.resourcePath + "/nao/existe");
    CarregarPresets(tabela, db, ms, fechar, host.resourcePath + "/nao/existe");
    EXPECT_EQ(db, -20.25);
}
