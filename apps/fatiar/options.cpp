#include "apps/fatiar/options.h"

#include <algorithm>
#include <charconv>

#include "apps/common/tool.h"

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

namespace {

struct Option {
    const char* name;
    const char* value;                                // what it may be, for the refusal; null: the option takes none
    bool (*set)(Options&, const std::string& value);  // false: not this value
};

constexpr Option Table[] = {
    {"-o", "uma pasta ou um arquivo", [](Options& o, const std::string& v) { return o.output = v, !v.empty(); }},
    {"--formato", "wav ou flac",
     [](Options& o, const std::string& v) { return o.format = v, v == "wav" || v == "flac"; }},
    {"--piso", "um numero de -200 a 0 (em dB)",
     [](Options& o, const std::string& v) { return ParseNumber(v, -200.0, 0.0, &o.thresholdDb); }},
    {"--bloco", "um inteiro de 1 a 600000 (em ms)",
     [](Options& o, const std::string& v) { return ParseNumber(v, 1, 600000, &o.blockMs); }},
    {"--sem-fechar", nullptr, [](Options& o, const std::string&) { return o.closeGaps = false, true; }},
    {"--csv", nullptr, [](Options& o, const std::string&) { return o.csv = true; }},
    {"--json", nullptr, [](Options& o, const std::string&) { return o.json = true; }},
    {"--ajuda", nullptr, [](Options& o, const std::string&) { return o.help = true; }},
    {"--help", nullptr, [](Options& o, const std::string&) { return o.help = true; }},
    {"-h", nullptr, [](Options& o, const std::string&) { return o.help = true; }},
};

// Takes one option, and the argument behind it where that is its value.
void TakeOption(const std::string& word, std::span<const char* const>* rest, Options* options) {
    const size_t equals = word.starts_with("--") ? word.find('=') : std::string::npos;
    const bool attached = equals != std::string::npos;
    const std::string name = word.substr(0, equals);
    const auto option =
        std::find_if(std::begin(Table), std::end(Table), [&](const Option& o) { return o.name == name; });
    const bool known = option != std::end(Table);
    Expect(!attached || (known && option->value), "a opcao " + name + " nao existe ou nao leva valor");
    Expect(known, "opcao desconhecida: " + name + " (veja fatiar --ajuda)");

    std::string value;
    if (attached) {
        value = word.substr(equals + 1);
    } else if (option->value) {
        Expect(!rest->empty(), "falta o valor de " + name);
        value = rest->front();
        *rest = rest->subspan(1);
    }
    const bool taken = option->set(*options, value);
    Expect(taken, name + " aceita " + (taken ? "" : option->value) + ", nao '" + value + "'");
}

void TakeInput(const std::string& word, Options* options) {
    Expect(!word.empty(), "um nome de arquivo vazio nao serve de entrada");
    options->inputs.push_back(word);
}

void CheckTogether(const Options& options) {
    const bool writes = !options.output.empty();
    Expect(!options.inputs.empty(), "falta a gravacao de entrada (veja fatiar --ajuda)");
    Expect(writes || !options.csv || !options.json, "--csv e --json juntos so com -o");
    Expect(writes || options.format.empty(), "--formato so faz sentido com -o");
}

}  // namespace

Options ParseOptions(std::span<const char* const> arguments) {
    Options options;
    bool onlyInputs = false;
    while (!arguments.empty()) {
        const std::string word = arguments.front();
        arguments = arguments.subspan(1);
        if (onlyInputs || word.size() < 2 || word[0] != '-')
            TakeInput(word, &options);
        else if (word == "--")
            onlyInputs = true;
        else
            TakeOption(word, &arguments, &options);
    }
    if (!options.help) CheckTogether(options);
    return options;
}
