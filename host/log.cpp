#include "host/log.h"

#include <cstdio>
#include <ctime>
#include <string>

#include "host/api.h"
#include "platform/files.h"

static std::string CaminhoDoLog() {
    const char* pasta = host::GetResourcePath ? host::GetResourcePath() : nullptr;
    return std::string(pasta ? pasta : ".") + PathSeparator + "quilmo_extension_log.txt";
}

static void Anexar(const char* mensagem) {
    std::FILE* arquivo = OpenFile(CaminhoDoLog(), "a");
    if (!arquivo) return;
    const std::time_t agora = std::time(nullptr);
    char carimbo[32] = "";
    if (const std::tm* local = std::localtime(&agora))
        std::strftime(carimbo, sizeof carimbo, "%Y-%m-%d %H:%M:%S", local);
    std::fprintf(arquivo, "[%s] %s\n", carimbo, mensagem);
    std::fclose(arquivo);
}

void RegistrarLog(const char* mensagem) noexcept {
    try {
        Anexar(mensagem);
    } catch (...) {  // no memory for the path: as a line that cannot be written
    }
}

void RegistrarFalha(const char* nome, const char* motivo) noexcept {
    char linha[500];
    std::snprintf(linha, sizeof linha, "Falha em %s: %s", nome, motivo);
    RegistrarLog(linha);
}
