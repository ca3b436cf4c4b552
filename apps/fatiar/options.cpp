#include "apps/fatiar/options.h"

#include <algorithm>
#include <charconv>
#include <map>

#include "apps/common/tool.h"
#include "apps/fatiar/lists.h"

namespace {

constexpr double LongestMs = 600000;

// The whole text must be one number within the limits: "12abc", "nan" and "1e999" are none.
template <class Number>
bool ParseNumber(const std::string& text, Number low, Number high, Number* value) {
    const char* end = text.data() + text.size();
    Number number{};
    const auto result = std::from_chars(text.data(), end, number);
    if (result.ec != std::errc() || result.ptr != end || !(number >= low && number <= high)) return false;
    *value = number;
    return true;
}

bool SetThreshold(Options& o, std::string value) {
    std::replace(value.begin(), value.end(), ',', '.');  // many keyboards write -37,5
    return ParseNumber(value, -200.0, 0.0, &o.thresholdDb);
}

bool SetMargin(Options& o, const std::string& value) {
    const size_t comma = value.find(',');
    o.margin = true;
    return ParseNumber(value.substr(0, comma), 0.0, LongestMs, &o.beforeMs) &&
           ParseNumber(comma == std::string::npos ? value : value.substr(comma + 1), 0.0, LongestMs, &o.afterMs);
}

bool SetPause(Options& o, const std::string& value) {
    if (!ParseNumber(value, 0.0, LongestMs, &o.pauseMs.emplace())) return false;
    o.beforeMs = o.afterMs = *o.pauseMs / 2;
    return true;
}

bool AddList(Options& o, const std::string& value) {
    const size_t equals = value.find('=');
    o.lists.push_back({value.substr(0, equals), equals == std::string::npos ? "" : value.substr(equals + 1)});
    return FindListFormat(o.lists.back().format) && !value.ends_with('=');
}

bool SetFrameRate(Options& o, const std::string& value) {
    static const std::map<std::string, FrameRate> rates = {
        {"24", {24, 1}}, {"25", {25, 1}}, {"29.97", {30000, 1001}}, {"29,97", {30000, 1001}}, {"30", {30, 1}}};
    if (!rates.contains(value)) return false;
    o.frameRate = rates.at(value);
    return true;
}

struct Option {
    const char* name;
    const char* value;                                // what it may be, for the refusal; null: the option takes none
    bool (*set)(Options&, const std::string& value);  // false: not this value
};

constexpr Option Table[] = {
    {"--piso", "um numero de -200 a 0 (em dB)", [](Options& o, const std::string& v) { return SetThreshold(o, v); }},
    {"--bloco", "um inteiro de 1 a 600000 (em ms)",
     [](Options& o, const std::string& v) { return ParseNumber(v, 1, 600000, &o.blockMs); }},
    {"--margem", "um ou dois numeros de 0 a 600000 (em ms), com virgula entre eles", SetMargin},
    {"--pausa", "um numero de 0 a 600000 (em ms)", SetPause},
    {"--sem-fechar", nullptr, [](Options& o, const std::string&) { return o.closeGaps = false, true; }},
    {"--juntas", nullptr, [](Options& o, const std::string&) { return o.together = true; }},
    {"-o", "uma pasta, um arquivo ou -", [](Options& o, const std::string& v) { return o.output = v, !v.empty(); }},
    {"--formato", "wav ou flac",
     [](Options& o, const std::string& v) { return o.format = v, v == "wav" || v == "flac"; }},
    {"--sem-imagens", nullptr, [](Options& o, const std::string&) { return o.pictures = false, true; }},
    {"--sobrescrever", nullptr, [](Options& o, const std::string&) { return o.overwrite = true; }},
    {"--csv", nullptr, [](Options& o, const std::string&) { return o.csv = true; }},
    {"--json", nullptr, [](Options& o, const std::string&) { return o.json = true; }},
    {"--lista", "rotulos, ffconcat, mlt, edl ou rpp, com =ARQUIVO ou sem", AddList},
    {"--quadros", "24, 25, 29.97 ou 30", SetFrameRate},
    {"--origem", "o nome de um arquivo", [](Options& o, const std::string& v) { return o.origin = v, !v.empty(); }},
    {"--ajuda", nullptr, [](Options& o, const std::string&) { return o.help = true; }},
    {"--help", nullptr, [](Options& o, const std::string&) { return o.help = true; }},
    {"-h", nullptr, [](Options& o, const std::string&) { return o.help = true; }},
    {"--versao", nullptr, [](Options& o, const std::string&) { return o.version = true; }},
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

// Whether a list of one of these formats is asked for.
bool Lists(const Options& o, std::initializer_list<const char*> formats) {
    return std::any_of(o.lists.begin(), o.lists.end(), [&](const WantedList& list) {
        return std::find(formats.begin(), formats.end(), list.format) != formats.end();
    });
}

void CheckTogether(const Options& o) {
    const bool files = !o.output.empty() && !o.ToStandardOutput();
    const bool standardInput = std::count(o.inputs.begin(), o.inputs.end(), "-") > 0;
    const std::pair<bool, const char*> refusals[] = {
        {o.inputs.empty(), "falta a gravacao de entrada (veja fatiar --ajuda)"},
        {!files && o.csv && o.json, "--csv e --json juntos so com -o"},
        {o.output.empty() && !o.format.empty(), "--formato so faz sentido com -o"},
        {o.margin && o.pauseMs, "--margem e --pausa nao se juntam: escolha uma"},
        {o.pauseMs && !o.closeGaps, "--pausa nao combina com --sem-fechar, que deixa as pausas inteiras"},
        {!o.closeGaps && Lists(o, {"ffconcat"}), "--lista ffconcat nao guarda buracos: nao combina com --sem-fechar"},
        {o.frameRate && !Lists(o, {"mlt", "edl"}), "--quadros so faz sentido com --lista mlt ou --lista edl"},
        {!o.origin.empty() && o.lists.empty() && !standardInput,
         "--origem so faz sentido com --lista ou com a entrada -"},
        {standardInput && o.origin.empty() && Lists(o, {"ffconcat", "mlt", "edl", "rpp"}),
         "uma lista da entrada padrao precisa de --origem, o arquivo que ela cita"},
        {o.inputs.size() > 1 && standardInput, "a entrada padrao (-) nao se junta a outras entradas"},
        {o.inputs.size() > 1 && o.ToStandardOutput(), "na saida padrao (-o -) cabe uma so entrada"},
    };
    for (const auto& [refused, why] : refusals) Expect(!refused, why);
}

}  // namespace

Options ParseOptions(std::span<const char* const> arguments) {
    Options options;
    bool onlyInputs = false;
    while (!arguments.empty()) {
        const std::string word = arguments.front();
        arguments = arguments.subspan(1);
        Expect(!word.empty(), "um nome de arquivo vazio nao serve de entrada");
        if (onlyInputs || word.size() < 2 || word[0] != '-')
            options.inputs.push_back(word);
        else if (word == "--")
            onlyInputs = true;
        else
            TakeOption(word, &arguments, &options);
    }
    if (!options.help && !options.version) CheckTogether(options);
    return options;
}
