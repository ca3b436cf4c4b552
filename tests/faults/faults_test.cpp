// A host that begins to fail in the middle of a command, one function at a time, or answers with absurd numbers.
#include <random>

#include "commands/commands.h"
#include "host/actions.h"
#include "module/entry.h"
#include "panel/host_options.h"
#include "panel/state.h"
#include "render/render.h"
#include "simhost/calls.h"
#include "slicer/autosplit.h"
#include "slicer/preview.h"
#include "tests/support/story.h"

struct Comando {
    const char* nome;
    void (*rodar)();
};
// clang-format off
#define RODA(chamadas) {#chamadas, [] { chamadas; }}
#define C(nome) RODA(nome()),
const Comando Comandos[] = {
    COMANDOS_DE_EDICAO(C) COMANDOS_DE_RENDER(C)
    C(PrepararHost) C(GravacaoEmCurso) C(BotaoGravarAtivo) C(TocandoSemGravar) C(TodosItensMudos)
    RODA(ExecutarGravacao(); ExecutarGravacao()), RODA(PlayRegiao(2)), RODA(AplicarCorItens(1, 2, 3)),
    RODA(AplicarCorFaixas(1, 2, 3)), RODA(ZoomAllFaixas(true)), RODA(Quilmo_AutoSplit(true, 100, -30)),
    RODA(EntrarModoFatiador(CaminhoPainel); RecalcularPreview(true, 200, -30); RestaurarOriginal()),
    RODA(EntrarModoFatiador(CaminhoPainel); EntrarModoFatiador(CaminhoPainel); AplicarFatias()),
};
#undef C
#undef RODA
// clang-format on

// What the user had selected when he clicked, and what else is in the project.
const char* const Situacoes[] = {
    "1 (selected): a 0.5-3 * | b 2.5-5 | c 6-9 / 2: d 1-3.5 / 3: e 9.1-12 [M1 m 0] [R1 r 0-2] [R2 s 1-4] {cursor 1.5}",
    "1 (selected): a 0.5-3 | b 2.5-5 * | c 6-9 * / 2 (selected): d 1-3.5 / 3: e 9.1-12 {cursor 1.5} {time 1-2}",
    "1: a 0.5-3 * | b 2.5-5 | c 6-9 / 2: d 1-3.5 * / 3 (selected): e 9.1-12 * {cursor 1.5}",
    "1: a 0.5-3 / 2 (selected): d 1-3.5 / 3: e 9.1-12 [M1 m 0] [R1 r 0-2] [R2 s 1-4] {cursor 1.5} {time 1-2}",
};

class Falhas : public Cena {
  protected:
    void SetUp() override {
        Cena::SetUp();
        host.dialogs.onMessage = [](const std::string&, const std::string&, int) { return 6; };
        host.dialogs.onInput = [](const simhost::ShownInput&) { return "nome"; };
        host.actions.toggles[acao::AlternarTakesEmPistas] = host.actions.toggles[acao::Opcao1161] = 1;
    }

    // Runs the test on each command in each situation.
    template <class F>
    void ParaCadaCaso(F testar) {
        const auto fala = Bursts(800, 1, {{800, 0.5}, {400, 0}, {800, 0.5}, {800, 0}});
        for (const char* situacao : Situacoes) {
            Projeto(situacao);
            for (int i = 0; i < host.project.tracks.ItemCount(); ++i)
                host.project.tracks.ItemAt(i)->takes[0]->source = fala;
            const simhost::Project projeto = host.project;
            for (const Comando& comando : Comandos) {
                Recomecar(projeto);
                testar(comando, projeto);
                if (HasFailure()) return;
            }
        }
    }
    // The project, and nothing left of the run before.
    void Recomecar(const simhost::Project& projeto) {
        while (host.undo.Open()) host.undo.End("Resto");
        host.calls.StopFailing();
        host.ForgetViolations();
        host.project = projeto;
        host.undo.Start();
        host.accessors.clear();
        host.scripts.added.clear();
        host.screen.heldOff = host.transport.state = 0;
        RestaurarEstadoFatiador();
    }
    std::vector<int64_t> Chamadas() const {
        std::vector<int64_t> chamadas;
        for (const simhost::Function& f : simhost::Functions) chamadas.push_back(host.calls.Count(f.name));
        return chamadas;
    }
    // What the command opens it closes, also when the host does not hear of the one or the other.
    void Rodar(const Comando& comando, const std::string& falha = "") {
        const std::vector<int64_t> antes = Chamadas();
        comando.rodar();
        const auto vezes = [&](const char* nome) {
            return host.calls.Count(nome) - antes[simhost::FunctionIndex(nome)];
        };
        EXPECT_EQ(vezes("Undo_BeginBlock2"), vezes("Undo_EndBlock2"));
        EXPECT_EQ(vezes("PreventUIRefresh") % 2, 0);
        if (falha != "CreateTakeAudioAccessor") {
            EXPECT_EQ(vezes("CreateTakeAudioAccessor"), vezes("DestroyAudioAccessor"));
        }
        // The host itself is left with something open when these do nothing, so its own word does not count then.
        for (const char* fecha : {"Undo_BeginBlock2", "Undo_EndBlock2", "PreventUIRefresh", "DestroyAudioAccessor"})
            if (falha == fecha) return;
        EXPECT_TRUE(host.Check()) << host.FirstViolation();
    }
};

TEST_F(Falhas, FuncaoQueFalhaDaEnesimaVezEmDiante) {
    ParaCadaCaso([&](const Comando& comando, const simhost::Project& projeto) {
        const std::vector<int64_t> antes = Chamadas();
        comando.rodar();
        const std::vector<int64_t> depois = Chamadas();
        for (int f = 0; f < simhost::FunctionCount; ++f)
            for (const int vez : {1, 2, 3, 7, 20})
                for (const int resultado : {0, -1}) {
                    const std::string nome = simhost::Functions[f].name;
                    if (vez > depois[f] - antes[f]) continue;  // never called so often: nothing would be different
                    if (nome == "AddRemoveReaScript" && resultado) continue;  // that would be an action's number
                    SCOPED_TRACE(comando.nome + (", " + nome) + " from " + std::to_string(vez) + " on");
                    Recomecar(projeto);
                    host.calls.FailFrom(nome, vez, resultado);
                    Rodar(comando, nome);
                }
        Recomecar(projeto);
    });
}

// Now and then also missing handles and wrong counts: whoever asks twice may hear two different things.
TEST_F(Falhas, RespostasAbsurdas) {
    static std::mt19937 sorte;
    static double absurdo;
    static unsigned cada;
#define AS_VEZES(nome, quando, resposta) \
    static const auto nome = host::nome; \
    host::nome = [](auto... argumentos) { return quando ? resposta : nome(argumentos...); };
#define NUMERO(nome) AS_VEZES(nome, sorte() % cada == 0, absurdo)
#define OUTRO(nome, resposta) AS_VEZES(nome, cada > 1 && sorte() % 8 == 0, resposta)
    NUMERO(GetMediaItemInfo_Value)
    NUMERO(GetMediaTrackInfo_Value)
    NUMERO(GetMediaItemTakeInfo_Value)
    NUMERO(GetCursorPosition)
    NUMERO(GetMediaSourceLength)
    NUMERO(GetAudioAccessorStartTime)
    OUTRO(GetSelectedMediaItem, nullptr)
    OUTRO(GetTrackMediaItem, nullptr)
    OUTRO(GetMediaItem_Track, nullptr)
    OUTRO(GetActiveTake, nullptr)
    OUTRO(CountSelectedMediaItems, static_cast<int>(sorte() % 2000) - 1000)
#undef OUTRO
#undef NUMERO
#undef AS_VEZES
    for (const double valor : {std::nan(""), HUGE_VAL, -HUGE_VAL, 1e300, -1e300, 4e9, -1.0, 1e-300, 0.05})
        for (unsigned semente = 0; semente < 5; ++semente) {
            absurdo = valor;
            cada = semente ? 6 : 1;
            sorte.seed(semente);
            ParaCadaCaso([&](const Comando& comando, const simhost::Project&) {
                SCOPED_TRACE(std::string(comando.nome) + ", " + std::to_string(valor) + ", " + std::to_string(semente));
                host.calls.FailFrom("Main_OnCommand", 1);  // which would render as much audio as that
                Rodar(comando);
            });
        }
}
