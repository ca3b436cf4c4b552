#include "module/entry.h"

#include <cstdio>

#include "host/door.h"
#include "host/imports.h"
#include "host/log.h"
#include "panel/window.h"
#include "slicer/autosplit.h"

int AcaoPainelId = 0;
gaccel_register_t AcaoPainelAccel = {{1, 0x41, 0}, "Quilmo: Abrir Painel"};  // a virtual key: A
std::string CaminhoRecursos;

// A function for scripts: its address and its definition, four texts that follow each other directly: result, argument
// types, argument names, help.
struct FuncaoDeScript {
    const char* nomeApi;
    void* funcao;
    const char* nomeDef;
    const char* definicao;
};

static const FuncaoDeScript FuncoesDeScript[] = {
    {"API_Quilmo_Teste", reinterpret_cast<void*>(Quilmo_Teste), "APIdef_Quilmo_Teste",
     "double\0double,double\0a,b\0"
     "Funcao de teste: soma dois numeros (prova de conceito da extensao Quilmo)."},
    {"API_Quilmo_AutoSplit", reinterpret_cast<void*>(Quilmo_AutoSplit), "APIdef_Quilmo_AutoSplit",
     "bool\0bool,int,double\0fecharLacunas,blocoMs,thresholdDb\0"
     "Auto Fatiador: corta silencio nos itens de audio selecionados."},
    {"API_Quilmo_AbrirPainel", reinterpret_cast<void*>(Quilmo_AbrirPainel), "APIdef_Quilmo_AbrirPainel",
     "void\0\0\0"
     "Abre (ou traz pra frente) a janela nativa do painel Quilmo."},
};

double Quilmo_Teste(double a, double b) { return a + b; }

void Quilmo_AbrirPainel() {
    Porta("Quilmo_AbrirPainel", 0, [] {
        if (HostImportado()) AbrirJanelaPainel(host::GetMainHwnd(), CaminhoRecursos);
        return 0;
    });
}

bool HookCommand2Proc(KbdSectionInfo*, int comando, int, int, int, HWND) {
    if (comando != AcaoPainelId) return false;
    RegistrarLog("HookCommand2Proc: abrindo painel");
    Quilmo_AbrirPainel();
    return true;
}

int ToggleActionProc(int comando) {
    if (comando != AcaoPainelId) return -1;
    return JanelaPainelAberta() ? 1 : 0;
}

static int Carregar(reaper_plugin_info_t* registro) {
    if (!registro) return 0;
    if (registro->caller_version != VersaoDoHost) return 0;
    if (ImportarFuncoes(registro->GetFunc) != 0) return 0;

    const auto registrar = [registro](const char* nome, const void* valor) {
        return registro->Register(nome, const_cast<void*>(valor));
    };
    int resultados[3][2];
    for (int i = 0; i < 3; ++i) {
        resultados[i][0] = registrar(FuncoesDeScript[i].nomeApi, FuncoesDeScript[i].funcao);
        resultados[i][1] = registrar(FuncoesDeScript[i].nomeDef, FuncoesDeScript[i].definicao);
    }
    AcaoPainelId = registrar("command_id", "QUILMO_ABRIR_PAINEL");
    AcaoPainelAccel.accel.cmd = static_cast<WORD>(AcaoPainelId);
    registrar("gaccel", &AcaoPainelAccel);
    registrar("hookcommand2", reinterpret_cast<void*>(HookCommand2Proc));
    registrar("toggleaction", reinterpret_cast<void*>(ToggleActionProc));

    const char* pasta = host::GetResourcePath();
    CaminhoRecursos = pasta ? pasta : "";

    char linha[500];
    std::snprintf(
        linha, sizeof linha,
        "Extensao carregada. Teste(API=%d,def=%d) AutoSplit(API=%d,def=%d) AbrirPainel(API=%d,def=%d) Action=%d",
        resultados[0][0], resultados[0][1], resultados[1][0], resultados[1][1], resultados[2][0], resultados[2][1],
        AcaoPainelId);
    RegistrarLog(linha);
    return 1;
}

int ReaperPluginEntry(HINSTANCE, reaper_plugin_info_t* registro) {
    return Porta("ReaperPluginEntry", 0, [registro] { return Carregar(registro); });
}
