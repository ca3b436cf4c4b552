// The door as the host sees it: what a load imports, registers and logs, and what makes it refuse.
#include "module/entry.h"
#include "slicer/autosplit.h"

#include <cstring>
#include <filesystem>

#include "host/imports.h"
#include "host/log.h"
#include "panel/window.h"
#include "tests/support/pattern.h"
#include "tests/support/scene.h"

namespace fs = std::filesystem;

class Entrada : public Cena {
  protected:
    void SetUp() override {  // each test loads the module for itself
        for (const LinhaImportacao* linha = TabelaImportacao; linha->slot; ++linha) *linha->slot = nullptr;
        AcaoPainelId = 0;
    }
    int Carregar(int versao = 526) {
        reaper_plugin_info_t registro = *host.Record();
        registro.caller_version = versao;
        registro.Register = [](const char* nome, void* valor) {
            const int numero = simhost::Host::Current().Record()->Register(nome, valor);
            return std::string(nome) == "command_id" ? 0x1D00C : numero;  // more than a key's command field holds
        };
        return ReaperPluginEntry(nullptr, &registro);
    }
    std::string CaminhoDoLog() { return host.resourcePath + "/quilmo_extension_log.txt"; }
    // What the log says, line by line, without the time stamps.
    std::string Log() { return Replaced(LerArquivo(CaminhoDoLog()), R"(\[\d{4}-\d\d-\d\d \d\d:\d\d:\d\d\] )"); }
};

// The four texts of a definition, which follow each other directly.
static std::string Definicao(const void* bloco) {
    std::string textos;
    const char* p = static_cast<const char*>(bloco);
    for (int i = 0; i < 4; ++i, p += std::strlen(p) + 1) textos += p + std::string("|");
    return textos;
}

TEST_F(Entrada, RegistraTudoNaOrdemEDizUmaLinha) {
    ASSERT_EQ(Carregar(), 1);
    std::string nomes;
    for (const simhost::Registration& r : host.extension.registrations) nomes += r.name + ' ';
    EXPECT_EQ(nomes,
              "API_Quilmo_Teste APIdef_Quilmo_Teste API_Quilmo_AutoSplit APIdef_Quilmo_AutoSplit "
              "API_Quilmo_AbrirPainel APIdef_Quilmo_AbrirPainel command_id gaccel hookcommand2 toggleaction ");
    const auto valor = [this](int i) { return host.extension.registrations.at(i).info; };
    EXPECT_EQ(reinterpret_cast<double (*)(double, double)>(valor(0))(2.5, -1.0), 1.5);
    EXPECT_EQ(Definicao(valor(1)),
              "double|double,double|a,b|Funcao de teste: soma dois numeros (prova de conceito da extensao Quilmo).|");
    EXPECT_EQ(Definicao(valor(3)),
              "bool|bool,int,double|fecharLacunas,blocoMs,thresholdDb|"
              "Auto Fatiador: corta silencio nos itens de audio selecionados.|");
    EXPECT_EQ(Definicao(valor(5)), "void|||Abre (ou traz pra frente) a janela nativa do painel Quilmo.|");
    const auto* tecla = static_cast<const gaccel_register_t*>(valor(7));
    EXPECT_EQ(tecla->accel.fVirt, 1);
    EXPECT_EQ(tecla->accel.key, 'A');
    EXPECT_EQ(tecla->accel.cmd, 0xD00C);
    EXPECT_EQ(CaminhoRecursos, host.resourcePath);
    EXPECT_EQ(Log(),
              "Extensao carregada. Teste(API=1,def=1) AutoSplit(API=1,def=1) AbrirPainel(API=1,def=1) Action=118796\n");
}

TEST_F(Entrada, RegistroRecusadoNaoImpedeACarga) {
    host.extension.refused = {"API_Quilmo_Teste", "APIdef_Quilmo_AbrirPainel"};
    ASSERT_EQ(Carregar(), 1);
    EXPECT_EQ(host.extension.registrations.size(), 8u);
    EXPECT_NE(Log().find("Teste(API=0,def=1) AutoSplit(API=1,def=1) AbrirPainel(API=1,def=0)"), std::string::npos);
}

TEST_F(Entrada, RecusaSemDeixarRastro) {
    EXPECT_EQ(ReaperPluginEntry(nullptr, nullptr), 0);
    for (const int versao : {525, 527, 0, -526}) EXPECT_EQ(Carregar(versao), 0) << versao;
    EXPECT_EQ(host::CountTracks, nullptr) << "nothing was looked up";
    for (const char* nome : {"AddProjectMarker2", "projectconfig_var_getoffs"}) {
        host.extension.forgotten.push_back(nome);
        EXPECT_EQ(Carregar(), 0) << nome;
        EXPECT_NE(host::CountTracks, nullptr) << "the look-up goes on behind a name that is missing";
        Quilmo_AbrirPainel();  // whoever finds the exports by name does no harm
        EXPECT_FALSE(Quilmo_AutoSplit(true, 55, -37));
        EXPECT_FALSE(JanelaPainelAberta());
    }
    EXPECT_TRUE(host.extension.registrations.empty());
    EXPECT_EQ(Log(), "(no file)");
}

TEST_F(Entrada, SoANossaAcaoAbreEEscreve) {
    ASSERT_EQ(Carregar(), 1);
    fs::remove(DeUtf8(CaminhoDoLog()));
    EXPECT_FALSE(HookCommand2Proc(nullptr, AcaoPainelId + 1, 0, 0, 0, nullptr));
    EXPECT_EQ(ToggleActionProc(AcaoPainelId + 1), -1);
    EXPECT_EQ(ToggleActionProc(AcaoPainelId), 0);
    EXPECT_EQ(Log(), "(no file)");
    EXPECT_TRUE(HookCommand2Proc(nullptr, AcaoPainelId, 0, 0, 0, nullptr));
    EXPECT_EQ(ToggleActionProc(AcaoPainelId), 1);
    EXPECT_EQ(Log(), "HookCommand2Proc: abrindo painel\n");
}

TEST_F(Entrada, LogSegueAPastaDoMomentoECalaSemEla) {
    fs::create_directories(DeUtf8(CaminhoDoLog()));
    EXPECT_EQ(Carregar(), 1) << "a folder in the file's place";
    host.resourcePath += "/outra";
    RegistrarLog("perdida");  // the folder is not there: no word about it
    fs::create_directories(DeUtf8(host.resourcePath));
    RegistrarLog("acentos e 100%s passam: ação");
    EXPECT_EQ(Log(), "acentos e 100%s passam: ação\n");
    RegistrarLog("duas");
    EXPECT_EQ(Log(), "acentos e 100%s passam: ação\nduas\n");
}
