#include "panel/window_state.h"

#include <algorithm>
#include <cinttypes>
#include <cstdlib>

#include "panel/state.h"
#include "platform/files.h"

std::string CaminhoJanelaIni() { return CaminhoPainel + PathSeparator + "quilmo_janela.ini"; }

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
    const long long lido = std::strtoll(texto, &fim, 10);  // held at the ends of its type
    if (fim == texto || lido < INT32_MIN || lido > INT32_MAX) return false;
    texto = fim;
    valor = static_cast<int32_t>(lido);
    return true;
}

bool LerJanelaIni(LugarDaJanela& lugar) {
    const std::string conteudo = LerComeco(CaminhoJanelaIni());
    const char* texto = conteudo.c_str();
    LugarDaJanela lido;
    if (!LerInteiro(texto, lido.x) || !LerInteiro(texto, lido.y)) return false;
    const bool temTamanho = LerInteiro(texto, lido.largura) && LerInteiro(texto, lido.altura);
    lugar = temTamanho ? lido : LugarDaJanela{lido.x, lido.y, lugar.largura, lugar.altura};
    return true;
}

void GravarJanelaIni(const LugarDaJanela& lugar) {
    std::FILE* arquivo = OpenFile(CaminhoJanelaIni(), "w");
    if (!arquivo) return;
    std::fprintf(arquivo, "%" PRId32 " %" PRId32 " %" PRId32 " %" PRId32, lugar.x, lugar.y, lugar.largura,
                 lugar.altura);
    std::fclose(arquivo);
}

// The left edge wins when the window is wider than the area. Wide sums, since a saved place may be anything.
static int32_t DentroDe(int32_t inicio, int32_t tamanho, int32_t menor, int32_t maior) {
    const int64_t naoDepois = std::min<int64_t>(inicio, int64_t{maior} - tamanho);
    return static_cast<int32_t>(std::max<int64_t>(naoDepois, menor));
}

LugarDaJanela LugarInicial(HWND dono) {
    constexpr int larguraPadrao = 340, alturaPadrao = 699;
    constexpr int larguraMinima = 320, larguraMaxima = 380, alturaMinima = 200;
    RECT area{};
    SystemParametersInfoA(SPI_GETWORKAREA, 0, &area, 0);
    RECT doDono;
    const RECT canto = dono && GetWindowRect(dono, &doDono) ? doDono : area;
    LugarDaJanela lugar = {canto.right - larguraPadrao - 20, canto.top + 40, larguraPadrao, alturaPadrao};
    LerJanelaIni(lugar);
    if (lugar.largura < larguraMinima || lugar.largura > larguraMaxima) lugar.largura = larguraPadrao;
    lugar.altura = std::clamp(lugar.altura, alturaMinima, alturaPadrao);
    lugar.x = DentroDe(lugar.x, lugar.largura, area.left, area.right);
    lugar.y = DentroDe(lugar.y, lugar.altura, area.top, area.bottom);
    return lugar;
}
