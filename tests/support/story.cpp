#include "tests/support/story.h"

#include "tests/support/pattern.h"

using simhost::Host;

static std::vector<std::string> Partes(const std::string& texto, const std::string& entre) {
    std::vector<std::string> partes;
    size_t inicio = 0;
    for (size_t fim; (fim = texto.find(entre, inicio)) != std::string::npos; inicio = fim + entre.size())
        partes.push_back(texto.substr(inicio, fim - inicio));
    partes.push_back(texto.substr(inicio));
    return partes;
}

static void LerItem(MediaTrack* faixa, const std::string& texto) {
    const auto achado = Matches(texto, R"(^ *(\S+) (-?[\d.]+)-(-?[\d.]+)( mute)?( no take)?( \*)? *$)");
    if (achado.empty()) throw std::runtime_error("no item: " + texto);
    const std::vector<std::string>& m = achado[0];
    MediaItem* item = NovoItem(faixa, {m[1], std::stod(m[2]), std::stod(m[3])});
    Dados(item).mute = !m[4].empty();
    if (!m[5].empty()) Dados(item).takes.clear();
    if (!m[6].empty()) Host::Current().project.tracks.Select(Dados(item), true);
}

static void LerFaixa(const std::string& texto) {
    const auto achada = Matches(texto, R"(^ *([^:(]*[^:( ])( \(([^)]*)\))?:(.*)$)");
    if (achada.empty()) throw std::runtime_error("no track: " + texto);
    const std::vector<std::string>& m = achada[0];
    MediaTrack* faixa = Faixa(m[1]);
    Dados(faixa).armed = m[3].find("armed") != std::string::npos;
    Dados(faixa).selected = m[3].find("selected") != std::string::npos;
    if (m[4].find_first_not_of(' ') == std::string::npos) return;
    for (const std::string& item : Partes(m[4], " | ")) LerItem(faixa, item);
}

void Projeto(const std::string& retrato) {
    constexpr char estado[] = R"(\{(cursor|time|play) (-?[\d.]+)(-([\d.]+))?\})";
    constexpr char marca[] = R"(\[([RM])\d+ (\S* )?([\d.]+)(-([\d.]+))?\])";
    ProjetoVazio();
    simhost::Project& projeto = Host::Current().project;
    for (const std::vector<std::string>& m : Matches(retrato, estado))
        if (m[1] == "cursor")
            projeto.cursor = std::stod(m[2]);
        else if (m[1] == "play")
            Host::Current().transport.state = std::stoi(m[2]);
        else
            projeto.timeSelection = {std::stod(m[2]), std::stod(m[4])};
    for (const std::vector<std::string>& m : Matches(retrato, marca)) {
        const bool regiao = m[1] == "R";
        const double inicio = std::stod(m[3]), fim = regiao ? std::stod(m[5]) : inicio;
        AddMarker(projeto, {regiao, inicio, fim, m[2].substr(0, m[2].find(' '))}, -1);
    }
    const std::string resto = Replaced(Replaced(retrato, estado), marca);
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
