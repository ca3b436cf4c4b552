#include "tests/support/story.h"

#include <regex>

using simhost::Host;

// Calls f with each match, and gives the text without them.
template <class F>
static std::string Extrair(const std::string& texto, const char* padrao, F f) {
    const std::regex regra(padrao);
    for (std::sregex_iterator m(texto.begin(), texto.end(), regra), fim; m != fim; ++m) f(*m);
    return std::regex_replace(texto, regra, "");
}

static std::vector<std::string> Partes(const std::string& texto, const std::string& entre) {
    std::vector<std::string> partes;
    size_t inicio = 0;
    for (size_t fim; (fim = texto.find(entre, inicio)) != std::string::npos; inicio = fim + entre.size())
        partes.push_back(texto.substr(inicio, fim - inicio));
    partes.push_back(texto.substr(inicio));
    return partes;
}

static void LerItem(MediaTrack* faixa, const std::string& texto) {
    std::smatch m;
    const std::string aparado = std::regex_replace(texto, std::regex("^ +| +$"), "");
    if (!std::regex_match(aparado, m, std::regex(R"((\S+) (-?[\d.]+)-(-?[\d.]+)( mute)?( no take)?( \*)?)")))
        throw std::runtime_error("no item: " + texto);
    MediaItem* item = NovoItem(faixa, {m[1], std::stod(m[2]), std::stod(m[3])});
    Dados(item).mute = m[4].matched;
    if (m[5].matched) Dados(item).takes.clear();
    if (m[6].matched) Host::Current().project.tracks.Select(Dados(item), true);
}

static void LerFaixa(const std::string& texto) {
    std::smatch m;
    if (!std::regex_match(texto, m, std::regex(R"( *([^:(]*[^:( ])( \(([^)]*)\))?:(.*))")))
        throw std::runtime_error("no track: " + texto);
    MediaTrack* faixa = Faixa(m[1]);
    Dados(faixa).armed = m[3].str().find("armed") != std::string::npos;
    Dados(faixa).selected = m[3].str().find("selected") != std::string::npos;
    if (m[4].str().find_first_not_of(' ') == std::string::npos) return;
    for (const std::string& item : Partes(m[4], " | ")) LerItem(faixa, item);
}

void Projeto(const std::string& retrato) {
    ProjetoVazio();
    std::string resto = Extrair(retrato, R"(\{(cursor|time|play) (-?[\d.]+)(-([\d.]+))?\})", [](const std::smatch& m) {
        if (m[1] == "cursor")
            Cursor(std::stod(m[2]));
        else if (m[1] == "play")
            Host::Current().transport.state = std::stoi(m[2]);
        else
            SelecaoDeTempo(std::stod(m[2]), std::stod(m[4]));
    });
    resto = Extrair(resto, R"(\[([RM])\d+ (\S* )?([\d.]+)(-([\d.]+))?\])", [](const std::smatch& m) {
        std::string nome = m[2];
        if (!nome.empty()) nome.pop_back();
        if (m[1] == "R")
            Regiao(nome, std::stod(m[3]), std::stod(m[5]));
        else
            Marcador(nome, std::stod(m[3]));
    });
    if (resto.find(':') != std::string::npos)
        for (const std::string& faixa : Partes(resto, " / ")) LerFaixa(faixa);
    Host::Current().undo.Start();
}

void Contar(void (*comando)(), const char* historico, const std::vector<Historia>& historias) {
    for (const Historia& h : historias) {
        SCOPED_TRACE(h.antes);
        Projeto(h.antes);
        comando();
        EXPECT_EQ(RetratoCompleto(), h.depois ? h.depois : h.antes);
        EXPECT_EQ(Historico(), historico);
        EXPECT_EQ(Mensagens(), h.mensagens);
    }
}
