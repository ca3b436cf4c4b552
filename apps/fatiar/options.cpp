#include "apps/fatiar/options.h"

#include <algorithm>
#include <charconv>

const char HelpText[] =
    "Uso: fatiar ENTRADA... [opcoes]\n"
    "\n"
    "Encontra o silencio de cada gravacao, corta-o fora e encosta os pedacos que sobram.\n"
    "Sem -o nada e gravado: o programa so mostra o que achou.\n"
    "\n"
    "  -o PASTA         grava o audio fatiado em PASTA, como NOME-fatiado.wav ou .flac,\n"
    "                   e imagens de antes e depois: antes.png, depois.png;\n"
    "                   com uma so entrada, -o pode ser o proprio arquivo: -o saida.flac\n"
    "  --formato F      wav ou flac, ambos de 24 bits; sem esta opcao vale a terminacao de -o,\n"
    "                   e na falta dela a da entrada: .flac da FLAC, o resto da WAV\n"
    "  --piso DB        abaixo deste nivel e silencio, de -200 a 0 dB (padrao: -37)\n"
    "  --bloco MS       so pausas a partir desta duracao cortam, de 1 a 600000 ms (padrao: 55)\n"
    "  --sem-fechar     deixa os pedacos onde estao, sem encostar e sem fades; o audio gravado corre\n"
    "                   junto com a entrada (fechado, ele comeca no primeiro pedaco)\n"
    "  --csv, --json    mostra a tabela nesse formato; com -o, tambem a grava ao lado do audio\n"
    "                   (as duas juntas so com -o)\n"
    "  -h, --ajuda      mostra este texto\n"
    "\n"
    "Le qualquer formato que a libsndfile conheca (WAV, FLAC, AIFF, OGG, MP3...).\n"
    "Saida: 0 se tudo correu bem; 2 se algo impediu, com uma linha que diz o que foi.\n";

std::string AudioEnding(const std::string& path) {
    for (const char* ending : {"wav", "flac"}) {
        const std::string dotted = std::string(".") + ending;
        const auto same = [](char a, char b) { return (a >= 'A' && a <= 'Z' ? a - 'A' + 'a' : a) == b; };
        if (path.size() > dotted.size() && std::equal(dotted.rbegin(), dotted.rend(), path.rbegin(),
                                                      [&](char wanted, char found) { return same(found, wanted); }))
            return ending;
    }
    return "";
}

// The whole text must be one number within the limits: "12abc", "nan" and "1e999" are none.
template <class Number>
static bool ParseNumber(std::string text, Number low, Number high, Number* value) {
    std::replace(text.begin(), text.end(), ',', '.');  // many keyboards write -37,5
    const char* end = text.data() + text.size();
    Number number{};
    const auto result = std::from_chars(text.data(), end, number);
    if (result.ec != std::errc() || result.ptr != end || !(number >= low && number <= high)) return false;
    *value = number;
    return true;
}

bool ParseOptions(int argc, const char* const* argv, Options* options, std::string* error) {
    const auto refuse = [error](const std::string& why) {
        *error = why;
        return false;
    };
    bool onlyInputs = false;
    for (int i = 1; i < argc; ++i) {
        std::string name = argv[i];
        if (onlyInputs || name.size() < 2 || name[0] != '-') {
            if (name.empty()) return refuse("um nome de arquivo vazio nao serve de entrada");
            options->inputs.push_back(name);
            continue;
        }
        std::string value;
        const size_t equals = name.starts_with("--") ? name.find('=') : std::string::npos;
        const bool attached = equals != std::string::npos;
        if (attached) {
            value = name.substr(equals + 1);
            name.resize(equals);
        }
        if (name == "-o" || name == "--formato" || name == "--piso" || name == "--bloco") {
            if (!attached && i + 1 == argc) return refuse("falta o valor de " + name);
            if (!attached) value = argv[++i];
            if (name == "-o") {
                if (value.empty()) return refuse("a pasta de -o esta vazia");
                options->output = value;
            } else if (name == "--formato") {
                if (value != "wav" && value != "flac")
                    return refuse("--formato aceita wav ou flac, nao '" + value + "'");
                options->format = value;
            } else if (name == "--piso") {
                if (!ParseNumber(value, -200.0, 0.0, &options->thresholdDb))
                    return refuse("--piso aceita um numero de -200 a 0 (em dB), nao '" + value + "'");
            } else if (!ParseNumber(value, 1, 600000, &options->blockMs)) {
                return refuse("--bloco aceita um inteiro de 1 a 600000 (em ms), nao '" + value + "'");
            }
            continue;
        }
        if (attached) return refuse("a opcao " + name + " nao existe ou nao leva valor");
        if (name == "--")
            onlyInputs = true;
        else if (name == "--sem-fechar")
            options->closeGaps = false;
        else if (name == "--csv")
            options->csv = true;
        else if (name == "--json")
            options->json = true;
        else if (name == "--ajuda" || name == "--help" || name == "-h")
            options->help = true;
        else
            return refuse("opcao desconhecida: " + name + " (veja fatiar --ajuda)");
    }
    if (options->help) return true;
    if (options->inputs.empty()) return refuse("falta a gravacao de entrada (veja fatiar --ajuda)");
    if (options->csv && options->json && options->output.empty()) return refuse("--csv e --json juntos so com -o");
    if (!options->format.empty() && options->output.empty()) return refuse("--formato so faz sentido com -o");
    return true;
}
