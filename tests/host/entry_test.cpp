// The door as the host sees it: what a load imports, registers and logs, and what makes it refuse.
#include "host/entry.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <regex>
#include <vector>

#include "host/imports.h"
#include "host/log.h"
#include "panel/window.h"

namespace fs = std::filesystem;

namespace {

struct Registro {
    std::string nome;
    void* valor;
};

// What the bare host below was asked, and what it answers.
std::vector<std::string> procurados;
std::vector<Registro> registros;
std::string faltando;  // the one name that is not found
const char* recursos;
int respostaDoRegister;

const char* DarRecursos() {
    return recursos;
}
HWND DarJanela() {
    return nullptr;
}
void NaoChamar() {
    ADD_FAILURE() << "a host function was called that the load has no use for";
}

void* Procurar(const char* nome) {
    procurados.push_back(nome);
    if (nome == faltando) return nullptr;
    if (std::string(nome) == "GetResourcePath") return reinterpret_cast<void*>(DarRecursos);
    if (std::string(nome) == "GetMainHwnd") return reinterpret_cast<void*>(DarJanela);
    return reinterpret_cast<void*>(NaoChamar);
}

int Registrar(const char* nome, void* valor) {
    registros.push_back({nome, valor});
    return std::string(nome) == "command_id" ? 0x1D00C : respostaDoRegister;
}

std::vector<std::string> Linhas(const fs::path& arquivo) {
    std::ifstream entrada(arquivo);
    std::vector<std::string> linhas;
    for (std::string linha; std::getline(entrada, linha);) linhas.push_back(linha);
    return linhas;
}

class Entrada : public testing::Test {
  protected:
    void SetUp() override {
        fs::remove_all(pasta);
        fs::create_directories(pasta);
        textoDaPasta = reinterpret_cast<const char*>(pasta.u8string().c_str());
        recursos = textoDaPasta.c_str();
        procurados.clear();
        registros.clear();
        faltando.clear();
        respostaDoRegister = 1;
        for (const LinhaImportacao* linha = TabelaImportacao; linha->slot; ++linha) *linha->slot = nullptr;
        AcaoPainelId = 0;
    }
    void TearDown() override { fs::remove_all(pasta); }

    int Carregar(int versao = 526) {
        reaper_plugin_info_t registro = {versao, nullptr, Registrar, Procurar};
        return ReaperPluginEntry(nullptr, &registro);
    }
    std::vector<std::string> Log() { return Linhas(pasta / "quilmo_extension_log.txt"); }

    // The folder of a user whose name has an accent: what narrow functions cannot open on Windows.
    fs::path pasta = fs::temp_directory_path() / fs::path(u8"quilmo João ação");
    std::string textoDaPasta;
};

// The four texts of a definition, which follow each other directly.
std::vector<std::string> Definicao(const void* bloco) {
    std::vector<std::string> textos;
    for (const char* p = static_cast<const char*>(bloco); textos.size() < 4; p += textos.back().size() + 1)
        textos.push_back(p);
    return textos;
}

TEST_F(Entrada, RegistraTudoNaOrdemEDizUmaLinha) {
    ASSERT_EQ(Carregar(), 1);
    EXPECT_EQ(procurados.size(), 76u);

    std::vector<std::string> nomes;
    for (const Registro& r : registros) nomes.push_back(r.nome);
    EXPECT_EQ(nomes, (std::vector<std::string>{"API_Quilmo_Teste", "APIdef_Quilmo_Teste", "API_Quilmo_AutoSplit",
                                               "APIdef_Quilmo_AutoSplit", "API_Quilmo_AbrirPainel",
                                               "APIdef_Quilmo_AbrirPainel", "command_id", "gaccel", "hookcommand2",
                                               "toggleaction"}));
    EXPECT_EQ(reinterpret_cast<double (*)(double, double)>(registros[0].valor)(2.5, -1.0), 1.5);
    EXPECT_EQ(Definicao(registros[3].valor),
              (std::vector<std::string>{"bool", "bool,int,double", "fecharLacunas,blocoMs,thresholdDb",
                                        "Auto Fatiador: corta silencio nos itens de audio selecionados."}));
    EXPECT_EQ(
        Definicao(registros[5].valor),
        (std::vector<std::string>{"void", "", "", "Abre (ou traz pra frente) a janela nativa do painel Quilmo."}));

    const auto* tecla = static_cast<const gaccel_register_t*>(registros[7].valor);
    EXPECT_EQ(tecla->accel.fVirt, 1);
    EXPECT_EQ(tecla->accel.key, 'A');
    EXPECT_EQ(tecla->accel.cmd, 0xD00C);  // the low half of the command number
    EXPECT_EQ(CaminhoRecursos, textoDaPasta);

    ASSERT_EQ(Log().size(), 1u);
    EXPECT_TRUE(std::regex_match(
        Log()[0], std::regex(R"(\[\d{4}-\d\d-\d\d \d\d:\d\d:\d\d\] Extensao carregada\. Teste\(API=1,def=1\) )"
                             R"(AutoSplit\(API=1,def=1\) AbrirPainel\(API=1,def=1\) Action=118796)")))
        << Log()[0];
}

TEST_F(Entrada, RegistroRecusadoNaoImpedeACarga) {
    respostaDoRegister = 0;
    ASSERT_EQ(Carregar(), 1);
    EXPECT_EQ(registros.size(), 10u);
    EXPECT_NE(Log().at(0).find("Teste(API=0,def=0)"), std::string::npos);
}

TEST_F(Entrada, RecusaSemDeixarRastro) {
    EXPECT_EQ(ReaperPluginEntry(nullptr, nullptr), 0);
    for (int versao : {525, 527, 0, -526}) EXPECT_EQ(Carregar(versao), 0) << versao;
    EXPECT_TRUE(procurados.empty());

    for (const char* nome : {"AddProjectMarker2", "projectconfig_var_getoffs"}) {
        procurados.clear();
        faltando = nome;
        EXPECT_EQ(Carregar(), 0) << nome;
        EXPECT_EQ(procurados.size(), 76u) << "the look-up goes on behind a name that is missing";
        EXPECT_EQ(reinterpret_cast<void*>(host::GetResourcePath), reinterpret_cast<void*>(DarRecursos));
        Quilmo_AbrirPainel();  // whoever finds the exports by name does no harm
        EXPECT_FALSE(Quilmo_AutoSplit(true, 55, -37));
        EXPECT_FALSE(JanelaPainelAberta());
    }
    EXPECT_TRUE(registros.empty());
    EXPECT_TRUE(Log().empty());
}

TEST_F(Entrada, AcaoDeOutroNaoENossa) {
    ASSERT_EQ(Carregar(), 1);
    EXPECT_FALSE(HookCommand2Proc(nullptr, AcaoPainelId + 1, 0, 0, 0, nullptr));
    EXPECT_EQ(ToggleActionProc(AcaoPainelId + 1), -1);
    EXPECT_EQ(ToggleActionProc(AcaoPainelId), 0);
    EXPECT_EQ(Log().size(), 1u);
}

TEST_F(Entrada, LogSegueAoFimDeQualquerArquivoECalaSemEle) {
    const fs::path log = pasta / "quilmo_extension_log.txt";
    fs::create_directories(log);
    EXPECT_EQ(Carregar(), 1) << "a folder in the file's place";
    fs::remove(log);
    std::ofstream(log, std::ios::binary) << std::string(3 << 20, '\0');
    RegistrarLog("uma");
    RegistrarLog("duas");
    ASSERT_EQ(Log().size(), 2u) << "no line end before the first";
    EXPECT_EQ(Log()[0].substr((3 << 20) + 22), "uma");
    EXPECT_EQ(Log()[1].substr(22), "duas");
}

TEST_F(Entrada, LogSegueAPastaDoMomentoECalaSemEla) {
    ASSERT_EQ(Carregar(), 1);
    const std::string outra = textoDaPasta + "/outra";
    recursos = outra.c_str();
    RegistrarLog("perdida");  // the folder is not there: no word about it
    fs::create_directories(pasta / "outra");
    RegistrarLog("acentos e 100%s passam: ação");
    EXPECT_EQ(Log().size(), 1u);
    const auto linhas = Linhas(pasta / "outra" / "quilmo_extension_log.txt");
    ASSERT_EQ(linhas.size(), 1u);
    EXPECT_EQ(linhas[0].substr(22), "acentos e 100%s passam: ação");
}

}  // namespace
