// The manual's script, as it is printed there, in a real interpreter on a real recording; its table of tooltips, and
// what it says of floors.
#include <fstream>
#include <iomanip>
#include <map>
#include <regex>

#include "platform/files.h"
#include "simhost/native/audio_file.h"
#include "simhost/native/lua_script.h"
#include "slicer/autosplit.h"
#include "tests/support/scene.h"

static std::string Manual() {
    std::string texto;
    ReadTextFile(SOURCE_FOLDER "/docs/manual.md", texto);
    return texto;
}

TEST_F(Cena, OExemploDoManualFazOQueEleDiz) {
    const std::string texto = Manual(), arquivo = host.resourcePath + "/exemplo.lua";
    std::smatch bloco;
    ASSERT_TRUE(std::regex_search(texto, bloco, std::regex("```lua\n([^`]*)```")));
    std::ofstream(arquivo) << "assert(not reaper.Quilmo_Teste or reaper.Quilmo_Teste(2, 3) == 5)\n" << bloco[1];
    simhost::RunScriptsWithLua(host);
    const int acao = host::AddRemoveReaScript(true, 0, arquivo.c_str(), true);

    std::string erro;
    Faixa("Voz", {{"fala", 0, 13.7, simhost::OpenAudioFile(SOURCE_FOLDER "/data/fala.flac", &erro)}});
    host.RunAction(acao);
    Selecionar({"fala"});
    host.RunAction(acao);
    host.extension.registrations.clear();
    host.RunAction(acao);
    EXPECT_EQ(
        Mensagens(),
        "A.SPLIT: Selecione itens de audio. | Fatiar: 7 pedacos. | Fatiar: A extensao Quilmo nao esta instalada.");
    EXPECT_EQ(Historico(), "Fatiador Preview");
}

// Each tooltip of the kept list has one row, under its button's label, and none that is there no more.
TEST(Manual, TodasAsDicasEstaoNaTabela) {
    struct Linha {
        std::string botao, direito, shift;
    };
    std::map<std::string, Linha> tabela;
    const std::string texto = std::regex_replace(Manual(), std::regex("&lt;"), "<");
    const std::regex linha(R"(\| (.+) \| `(.+)` \| [^|]+ \|(?: ?([^|\n]*) \| ?([^|\n]*) \|)?\n)");
    for (std::sregex_iterator i(texto.begin(), texto.end(), linha), fim; i != fim; ++i) {
        const std::string dica = std::regex_replace((*i)[2].str(), std::regex(R"(\\\|)"), "|");
        EXPECT_TRUE(tabela.insert({dica, {(*i)[1], (*i)[3], (*i)[4]}}).second) << dica;
    }
    std::map<std::string, Linha> semBotao = tabela;
    std::ifstream lista(SOURCE_FOLDER "/data/painel.txt");
    for (std::string widget; std::getline(lista, widget);) {
        std::istringstream campos(widget.substr(std::min(widget.find('"'), widget.size())));
        std::string rotulo, icone, dica;
        campos >> std::quoted(rotulo) >> std::quoted(icone) >> std::quoted(dica);
        if (dica.empty()) continue;
        ASSERT_TRUE(tabela.contains(dica)) << dica;
        const Linha& l = tabela[dica];
        const bool barra = rotulo.find(": ") != rotulo.npos, umDeVarios = l.botao.find("** a **") != l.botao.npos;
        EXPECT_TRUE(barra || umDeVarios || l.botao.find(rotulo) != rotulo.npos) << widget;
        EXPECT_EQ(dica.find(" | ") != dica.npos, !l.direito.empty()) << dica;
        EXPECT_EQ(dica.find("SHIFT") != dica.npos, !l.shift.empty()) << dica;
        semBotao.erase(dica);
    }
    for (const auto& [dica, l] : semBotao) ADD_FAILURE() << "nao ha mais: " << dica;
}

// How many pieces each floor leaves of the recording that the manual's pictures show.
TEST_F(Cena, OsPisosDoManualFazOQueEleDiz) {
    std::string erro;
    Faixa("Voz", {{"fala", 0, 13.7, simhost::OpenAudioFile(SOURCE_FOLDER "/data/fala.flac", &erro)}});
    host.undo.Start();
    for (const auto& [piso, bloco, pedacos] : {std::tuple{-30.0, 60, 18}, {-40, 55, 7}, {-45, 55, 12}, {-50, 150, 1}}) {
        Selecionar({"fala"});
        ASSERT_TRUE(Quilmo_AutoSplit(true, bloco, piso));
        EXPECT_EQ(host::CountSelectedMediaItems(0), pedacos) << piso;
        host.undo.Back();
    }
}
