// The manual's script, as it is printed there, in a real interpreter on a real recording.
#include <fstream>
#include <regex>

#include "platform/files.h"
#include "simhost/native/audio_file.h"
#include "simhost/native/lua_script.h"
#include "tests/support/scene.h"

TEST_F(Cena, OExemploDoManualFazOQueEleDiz) {
    std::string texto;
    ReadTextFile(SOURCE_FOLDER "/docs/manual.md", texto);
    const std::string arquivo = host.resourcePath + "/exemplo.lua";
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
