#include "panel/window_state.h"

#include <cerrno>
#include <cinttypes>
#include <cstdlib>
#include <limits>

#include "panel/state.h"
#include "platform/files.h"

std::string CaminhoJanelaIni() {
    return CaminhoPainel + PathSeparator + "quilmo_janela.ini";
}

// Four numbers are short; what a damaged file holds beyond this length is not looked at.
static std::string LerComeco(const std::string& caminho) {
    std::FILE* arquivo = OpenFile(caminho, "r");
    if (!arquivo) return "";
    char texto[4096];
    const size_t lidos = std::fread(texto, 1, sizeof texto, arquivo);
    std::fclose(arquivo);
    return {texto, lidos};
}

// The next integer after white space; false when there is none or it has more than 32 bits.
static bool LerInteiro(const char*& texto, int32_t& valor) {
    char* fim = nullptr;
    errno = 0;
    const long long lido = std::strtoll(texto, &fim, 10);
    using Limites = std::numeric_limits<int32_t>;
    if (fim == texto || errno == ERANGE || lido < Limites::min() || lido > Limites::max()) return false;
    texto = fim;
    valor = static_cast<int32_t>(lido);
    return true;
}

bool LerJanelaIni(int32_t& x, int32_t& y, int32_t& largura, int32_t& altura) {
    const std::string conteudo = LerComeco(CaminhoJanelaIni());
    const char* texto = conteudo.c_str();
    if (!LerInteiro(texto, x) || !LerInteiro(texto, y)) return false;
    int32_t l = 0, a = 0;
    if (LerInteiro(texto, l) && LerInteiro(texto, a)) {
        largura = l;
        altura = a;
    }
    return true;
}

void GravarJanelaIni(int32_t x, int32_t y, int32_t largura, int32_t altura) {
    std::FILE* arquivo = OpenFile(CaminhoJanelaIni(), "w");
    if (!arquivo) return;
    std::fprintf(arquivo, "%" PRId32 " %" PRId32 " %" PRId32 " %" PRId32, x, y, largura, altura);
    std::fclose(arquivo);
}
