#include "apps/fatiar/report.h"

#include <cmath>
#include <nlohmann/json.hpp>

#include "apps/common/host_project.h"
#include "apps/common/tool.h"
#include "apps/fatiar/text.h"

static std::string AsTable(const Result& r) {
    const Cut& cut = r.cut;
    const size_t count = cut.pieces.size();
    const int64_t removed = cut.recorded - cut.Kept();
    std::string text = OnOneLine(r.input) + Formatted(": %.3f s, %d Hz, %d %s\n", cut.Seconds(cut.recorded), cut.rate,
                                                      r.channels, r.channels == 1 ? "canal" : "canais");
    text += "  pedaco     posicao     duracao   na origem\n";
    int number = 0;
    for (const Piece& p : cut.pieces)
        text += Formatted("  %6d %11.3f %11.3f %11.3f\n", ++number, p.position, cut.Seconds(p.length),
                          cut.Seconds(p.source));
    text += Formatted("  retirado: %.3f s de silencio (%.1f%%); restam %.3f s em %zu %s\n", cut.Seconds(removed),
                      100.0 * static_cast<double>(removed) / static_cast<double>(cut.recorded),
                      cut.Seconds(cut.Written()), count, count == 1 ? "pedaco" : "pedacos");
    if (!r.output.empty()) text += "  gravado em " + OnOneLine(r.output) + ", com 24 bits\n";
    for (const std::string& list : r.lists) text += "  lista em " + OnOneLine(list) + "\n";
    return text;
}

static std::string CsvField(const std::string& text) {
    if (text.find_first_of(",\"\r\n") == std::string::npos) return text;
    std::string quoted = "\"";
    for (char c : text) quoted += c == '"' ? std::string("\"\"") : std::string(1, c);
    return quoted + "\"";
}

std::string CsvHeading() { return "arquivo,pedaco,posicao,duracao,origem\n"; }

std::string AsCsv(const Result& r) {
    std::string text;
    const std::string input = CsvField(r.input);
    int number = 0;
    for (const Piece& p : r.cut.pieces)
        text += input + ',' + std::to_string(++number) + ',' + Decimal(p.position) + ',' +
                Decimal(r.cut.Seconds(p.length)) + ',' + Decimal(r.cut.Seconds(p.source)) + '\n';
    return text;
}

std::string AsJson(const std::vector<Result>& results, const Options& options) {
    using Json = nlohmann::ordered_json;
    Json files = Json::array();
    for (const Result& r : results) {
        const auto rounded = [](double seconds) { return std::round(seconds * 1e9) / 1e9; };  // to the nanosecond
        const auto seconds = [&](int64_t frames) { return rounded(r.cut.Seconds(frames)); };
        Json pieces = Json::array();
        for (const Piece& p : r.cut.pieces)
            pieces.push_back(
                {{"posicao", rounded(p.position)}, {"duracao", seconds(p.length)}, {"origem", seconds(p.source)}});
        files.push_back({{"arquivo", r.input},
                         {"saida", r.output.empty() ? Json() : Json(r.output)},
                         {"taxa", r.cut.rate},
                         {"canais", r.channels},
                         {"duracao", seconds(r.cut.recorded)},
                         {"retirado", seconds(r.cut.recorded - r.cut.Kept())},
                         {"restam", seconds(r.cut.Written())},
                         {"pedacos", std::move(pieces)}});
    }
    const Json all = {{"piso_db", options.thresholdDb},
                      {"bloco_ms", options.blockMs},
                      {"fechar", options.closeGaps},
                      {"arquivos", std::move(files)}};
    // A file's name can hold any byte; JSON cannot.
    return all.dump(2, ' ', false, Json::error_handler_t::replace) + '\n';
}

void Report::Say(const std::string& text) {
    std::FILE* const stream = options_.ToStandardOutput() ? stderr : stdout;
    if (std::fputs(text.c_str(), stream) < 0 || std::fflush(stream) != 0)
        throw NobodyListens("a saida padrao nao aceita o resultado");
}

void Report::Add(const Result& result) {
    if (options_.csv == options_.json)  // both are only for files
        Say(AsTable(result));
    else if (options_.csv)
        Say((first_ ? CsvHeading() : "") + AsCsv(result));
    else
        kept_.push_back(result);
    first_ = false;
}

void Report::Finish() {
    if (!kept_.empty()) Say(AsJson(kept_, options_));
}
