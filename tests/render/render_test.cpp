// Glue and render commands: which actions run on what.
#include "render/render.h"

#include "tests/support/story.h"

class Render : public Cena {
  protected:
    std::string Rodar(void (*comando)(), const char* cena) {
        Projeto(cena);
        comando();
        return Acoes();
    }
};

TEST_F(Render, ColaSoQuandoHaVarios) {
    EXPECT_EQ(Rodar(StereoRender, "1: a 0-1 * | b 1-2 *"), "ColarItens RenderTakeStereo");
    EXPECT_EQ(Rodar(MonoRender, "1: a 0-1 * | b 1-2 *"), "ColarItens RenderTakeMono");
    EXPECT_EQ(Rodar(BounceInteligente, "1: a 0-1 * | b 1-2 *"), "ColarItens RenderTakeStereo")
        << "the scene's sources are stereo";
    EXPECT_EQ(Rodar(BounceInteligente, "1: a 0-1"), "");
    Projeto("1:");
    NovoItem(FaixaChamada("1"), {"mono", 0, 1, Silence(8000, 1, 8000)});
    Selecionar({"mono"});
    BounceInteligente();
    EXPECT_EQ(Acoes(), "RenderTakeMono");
}

TEST_F(Render, LimitesPelaOrdemDePrioridade) {
    const auto limites = [this](const char* cena) {
        Projeto(cena);
        host.project.numbers["RENDER_BOUNDSFLAG"] = -1;
        host.project.texts["RENDER_PATTERN"] = "antes";
        RenderProjeto();
        return std::to_string(static_cast<int>(host.project.numbers["RENDER_BOUNDSFLAG"])) + ' ' +
               host.project.texts["RENDER_PATTERN"] + ' ' + Acoes() + Mensagens();
    };
    EXPECT_EQ(limites("1: a 0-1 [R1 x 0-1] {time 3-4}"), "3 $region RenderizarProjeto");
    EXPECT_EQ(limites("1: a 0-1 [M1 x 0] {time 3-4}"), "1 antes RenderizarProjeto");
    EXPECT_EQ(limites("1: a 2-3 / 2: b 5-9"), "1 antes RenderizarProjeto");
    EXPECT_EQ(RetratoCompleto(), "1: a 2-3 / 2: b 5-9 {time 2-9}");
    EXPECT_EQ(limites("1: [M1 x 0]"), "-1 antes Quilmo: Projeto vazio.");
    EXPECT_EQ(Historico(), "");
}
