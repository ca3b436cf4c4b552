// render/desktop_export.cpp: the export to the desktop. The host's scripts can do more than its extensions, so a script
// does the work. It is written to a temporary file, registered, run and taken out again.
#include <cstdio>
#include <string>

#include "desktop_export_lua.h"
#include "host/editing.h"
#include "platform/files.h"
#include "render/render.h"

// One fixed name: one export at a time.
static constexpr char NomeDoScript[] = "~quilmo_desktop_temp.lua";

static std::string CaminhoDoScript() {
    for (const char* variavel : {"TEMP", "TMP"})
        if (const std::string pasta = EnvironmentVariable(variavel); !pasta.empty())
            return pasta + PathSeparator + NomeDoScript;
    return std::string(".") + PathSeparator + NomeDoScript;
}

// The best resampling that the project's render settings know; it stays after the export.
static void EscolherReamostragem() {
    if (!host::projectconfig_var_getoffs || !host::projectconfig_var_addr) return;
    int tamanho = 0;
    const int lugar = host::projectconfig_var_getoffs("projrenderresample", &tamanho);
    if (tamanho != 4) return;
    if (void* modo = host::projectconfig_var_addr(host::EnumProjects(-1, nullptr, 0), lugar))
        *static_cast<int*>(modo) = 9;
}

// The file's name without its folder and its ending .rpp; empty for a project that is not saved, or not under that
// ending.
static std::string NomeDoProjeto() {
    char caminho[2048] = "";
    host::EnumProjects(-1, caminho, sizeof caminho);
    std::string nome = caminho;
    nome.erase(0, nome.find_last_of("/\\") + 1);
    if (nome.size() <= 4) return "";
    std::string fim = nome.substr(nome.size() - 4);
    for (char& c : fim)
        if (c >= 'A' && c <= 'Z') c += 'a' - 'A';
    return fim == ".rpp" ? nome.substr(0, nome.size() - 4) : "";
}

// Safe between double quotes in the script.
static std::string Escapar(const std::string& texto) {
    std::string escapado;
    for (const char c : texto) {
        if (c == '\\' || c == '"') escapado += '\\';
        escapado += c;
    }
    return escapado;
}

// False when not all of it could be written: half a script must not run.
static bool GravarScript(const std::string& caminho) {
    const std::string nome = Escapar(NomeDoProjeto());
    std::FILE* arquivo = OpenFile(caminho, "w");
    if (!arquivo) return false;
    std::fprintf(
        arquivo,
        "local proj_name_cpp = \"%s\"\n"
        "local proj_name = (proj_name_cpp ~= \"\") and proj_name_cpp or os.date(\"Gravacao_%%Y-%%m-%%d_%%Hh%%M\")\n",
        nome.c_str());
    std::fputs(ScriptDeExportacao, arquivo);
    const bool escreveu = !std::ferror(arquivo);
    if (std::fclose(arquivo) == 0 && escreveu) return true;
    RemoveFile(caminho);
    return false;
}

void RenderPreLeigo() {
    const std::string caminho = CaminhoDoScript();
    EscolherReamostragem();
    if (!GravarScript(caminho)) return Mensagem("Nao foi possivel criar o script temporario de render.", "Quilmo");
    if (const int id = host::AddRemoveReaScript(true, 0, caminho.c_str(), true)) {
        ExecutarAcao(id);
        host::AddRemoveReaScript(false, 0, caminho.c_str(), true);
    } else {
        Mensagem("Nao foi possivel registrar o script temporario de render.", "Quilmo");
    }
    RemoveFile(caminho);
}
