// The presets file: what is written, and what is made of every kind of broken one.
#include "slicer/presets.h"

#include <gtest/gtest.h>

#include <clocale>
#include <filesystem>

#include "platform/files.h"
#include "tests/support/scene.h"

namespace {

namespace fs = std::filesystem;

class Presets : public Cena {
  protected:
    void SetUp() override {
        Cena::SetUp();
        pasta = fs::path(std::u8string(host.resourcePath.begin(), host.resourcePath.end()));
        fs::create_directories(pasta / "Scripts");
    }
    void TearDown() override {
        std::setlocale(LC_ALL, "C");
        fs::remove(pasta / "presets_fatiador.ini");
        fs::remove_all(pasta / "Scripts");
        Cena::TearDown();
    }
    void Escrever(const std::string& texto, const char* onde = "") {
        std::FILE* arquivo = OpenFile(host.resourcePath + "/" + onde + "presets_fatiador.ini", "wb");
        ASSERT_NE(arquivo, nullptr);
        std::fwrite(texto.data(), 1, texto.size(), arquivo);
        std::fclose(arquivo);
    }
    std::string Ler() {
        std::string texto;
        return ReadTextFile(host.resourcePath + "/presets_fatiador.ini", texto) ? texto : "(no file)";
    }
    void Carregar() { CarregarPresets(tabela, db, ms, fechar, host.resourcePath); }
    void Gravar() { GravarPresets(tabela, db, ms, fechar, host.resourcePath); }
    std::string Ultimos() {
        return std::to_string(db).substr(0, 6) + ' ' + std::to_string(ms) + (fechar ? " fecha" : "");
    }

    fs::path pasta;
    TabelaDePresets tabela = {};
    double db = -37.0;
    int ms = 55;
    bool fechar = true;
};

constexpr char DeFabrica[] =
    "LAST_USED=-37.00,55,true\nP1=-37.00,50,false\nP2=-40.00,55,true\nP3=-30.00,60,true\nP4=-25.00,40,false\n"
    "P5=-45.00,100,true\nP6=-50.00,150,true\n";

TEST_F(Presets, SemArquivoValemOsDeFabricaEAsLinhasTemFormaFixa) {
    Carregar();
    Gravar();
    EXPECT_EQ(Ler(), DeFabrica);
    db = -37.456;
    SalvarPreset(tabela, 2, -12.5, 9000, false, host.resourcePath);
    EXPECT_NE(Ler().find("LAST_USED=-12.50,9000,false\n"), std::string::npos);
    EXPECT_NE(Ler().find("\nP2=-12.50,9000,false\n"), std::string::npos);
    Gravar();
    EXPECT_EQ(Ler().find("LAST_USED=-37.46,55,true\n"), 0u);
    const std::string antes = Ler();
    for (const int slot : {0, 7, -1}) SalvarPreset(tabela, slot, 1, 1, true, host.resourcePath);
    EXPECT_EQ(Ler(), antes);
    db = 1e300;  // a line is never longer than its buffer
    Gravar();
    EXPECT_EQ(Ler().find("P1="), 63u);
}

TEST_F(Presets, DaPastaAntigaESoParaFrente) {
    Escrever("LAST_USED=-20,10,false\n", "Scripts/");
    Carregar();
    EXPECT_EQ(Ultimos(), "-20.00 10");
    Gravar();
    Escrever("LAST_USED=-11,11,true\n", "Scripts/");
    Carregar();
    EXPECT_EQ(Ultimos(), "-20.00 10");
}

TEST_F(Presets, LinhasQuebradasDeixamOQueHavia) {
    const struct {
        const char *texto, *ultimos;
    } casos[] = {
        {"LAST_USED=-20.5,10,false\n", "-20.50 10"},
        {"LAST_USED=-20.5,10,true", "-20.50 10 fecha"},  // no line end
        {"LAST_USED=-20.5,10,true\r\n", "-20.50 10 fecha"},
        {"LAST_USED= +3, 9000, true\n", "3.0000 9000 fecha"},  // white space before a value, nothing clamped
        {"LAST_USED=-20.5 ,10,true\n", "-37.00 55 fecha"},     // not before a comma
        {"LAST_USED=-20.5,10\n", "-37.00 55 fecha"},
        {"LAST_USED=-20.5,10,\n", "-37.00 55 fecha"},
        {"LAST_USED=-20.5,10,TRUE\n", "-20.50 10"},
        {"LAST_USED=-20.5,10,truest\n", "-20.50 10"},
        {"LAST_USED=-20.5,10,trueeeeeeeeeee\n", "-20.50 10"},
        {"LAST_USED=-20.5,10,true yes\n", "-20.50 10 fecha"},
        {"LAST_USED=-20.5,10.5,true\n", "-37.00 55 fecha"},
        {"LAST_USED=abc,10,true\n", "-37.00 55 fecha"},
        {"LAST_USED=-20.5,99999999999,true\n", "-37.00 55 fecha"},
        {"last_used=-20.5,10,false\n", "-37.00 55 fecha"},
        {" LAST_USED=-20.5,10,false\n", "-37.00 55 fecha"},
        {"LAST_USED=-1,1,true\n\n\nLAST_USED=-2,2,false\n", "-2.000 2"},
        {"P7=-1,1,false\nP0=-1,1,false\nP=-1,1,false\n", "-37.00 55 fecha"},
    };
    for (const auto& caso : casos) {
        db = -37, ms = 55, fechar = true;
        Escrever(caso.texto);
        Carregar();
        EXPECT_EQ(Ultimos(), caso.ultimos) << caso.texto;
        db = -37, ms = 55, fechar = true;
        Gravar();
        EXPECT_EQ(Ler(), DeFabrica) << caso.texto;
    }
    Escrever("P3=-1,2,false\n" + std::string("LAST_USED=-5,5,true\0\nP4=-3,3,true\n", 33) + std::string(3 << 20, 'x'));
    Carregar();
    EXPECT_EQ(tabela[2].thresholdDb, -1);
    EXPECT_EQ(tabela[3].blocoMs, 3);
    tabela[0].definido = false;
    Gravar();
    EXPECT_EQ(Ler().find("P1="), std::string::npos);
}

TEST_F(Presets, PontoEmQualquerLocalidadeEPastaQueNaoAceita) {
    if (!std::setlocale(LC_ALL, "pt_BR.UTF-8")) std::setlocale(LC_ALL, "Portuguese_Brazil.1252");
    Escrever("LAST_USED=-20.25,10,false\n");
    Carregar();
    EXPECT_EQ(db, -20.25);
    Gravar();
    EXPECT_EQ(Ler().find("LAST_USED=-20.25,10,false\n"), 0u);
    GravarPresets(tabela, db, ms, fechar, host.resourcePath + "/nao/existe");
    CarregarPresets(tabela, db, ms, fechar, host.resourcePath + "/nao/existe");
    EXPECT_EQ(db, -20.25);
}

}  // namespace
