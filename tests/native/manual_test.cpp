// What the manual says, tried: its script, as it is printed there, its table of tooltips, its floors.
#include <fstream>
#include <iomanip>

#include "apps/common/audio_file.h"
#include "commands/commands.h"
#include "slicer/autosplit.h"
#include "slicer/preview.h"
#include "tests/support/pattern.h"
#include "tests/support/story.h"

static const std::string Manual = LerArquivo(SourceFolder() + "/docs/manual.md");

static MediaTrack* FaixaComFala() {
    std::string erro;
    return Faixa("Voz", {{"fala", 0, 13.7, OpenAudioFile(SourceFolder() + "/data/fala.flac", &erro)}});
}

TEST_F(Cena, OExemploDoManualFazOQueEleDiz) {
    const std::string arquivo = host.resourcePath + "/exemplo.lua";
    const auto blocos = Matches(Manual, "```lua\n([^`]*)```");
    ASSERT_FALSE(blocos.empty());
    GravarArquivo(arquivo, "assert(not reaper.Quilmo_Teste or reaper.Quilmo_Teste(2, 3) == 5)\n" + blocos[0][1]);
    simhost::RunScriptsWithLua(host);
    const int acao = host::AddRemoveReaScript(true, 0, arquivo.c_str(), true);

    FaixaComFala();
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
    const std::string texto = Replaced(Manual, "&lt;", "<");
    for (const auto& linha : Matches(texto, R"(\| (.+) \| `(.+)` \| [^|]+ \|(?: ?([^|\n]*) \| ?([^|\n]*) \|)?\n)")) {
        const std::string dica = Replaced(linha[2], R"(\\\|)", "|");
        EXPECT_TRUE(tabela.insert({dica, {linha[1], linha[3], linha[4]}}).second) << dica;
    }
    std::map<std::string, Linha> semBotao = tabela;
    std::ifstream lista(SourceFolder() + "/data/painel.txt");
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

// What VOLTAR takes with it, and that two clicks on MUTE keep it.
TEST_F(Cena, VoltarLevaOQueNaoDeixouPontoDeDesfazer) {
    for (const bool mute : {false, true}) {
        Projeto("Voz: a 2-4 *");
        host.project.cursor = 3;
        SplitNoCursor();
        for (int i = 0; mute && i < 2; ++i) MuteClip();
        ASSERT_TRUE(EntrarModoFatiador(host.resourcePath));
        RestaurarOriginal();
        EXPECT_EQ(host.project.tracks.ItemCount(), mute ? 2 : 1);
        RestaurarEstadoFatiador();
    }
    Projeto("Voz: a 2-4 * | b 6-8 *");
    host.dialogs.messageAnswers = {6};
    ASSERT_TRUE(EntrarModoFatiador(host.resourcePath));
    EXPECT_EQ(host.project.tracks.At(0)->fxEnabled, 0);
    RestaurarOriginal();
    EXPECT_EQ(host.project.tracks.ItemCount(), 1) << "joined still";
    EXPECT_EQ(host.project.tracks.At(0)->fxEnabled, 1) << "but the effects are on again";
    RestaurarEstadoFatiador();
}

// How many pieces each floor leaves of the recording that the manual's pictures show.
TEST_F(Cena, OsPisosDoManualFazOQueEleDiz) {
    FaixaComFala();
    host.undo.Start();
    for (const auto& [piso, bloco, pedacos] : {std::tuple{-30.0, 60, 18}, {-40, 55, 7}, {-45, 55, 12}, {-50, 150, 1}}) {
        Selecionar({"fala"});
        ASSERT_TRUE(Quilmo_AutoSplit(true, bloco, piso));
        EXPECT_EQ(host::CountSelectedMediaItems(0), pedacos) << piso;
        host.undo.Back();
    }
}
