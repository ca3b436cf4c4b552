#include "apps/fatiar/report.h"

#include <algorithm>
#include <charconv>
#include <cstdio>

#include "apps/common/tool.h"
#include "platform/utf8.h"

double Result::Kept() const {
    double sum = 0;
    for (const Piece& piece : pieces) sum += piece.length;
    return sum;
}

// A sum of pieces can exceed the whole in its last bits.
double Result::Removed() const {
    return std::max(0.0, length - Kept());
}

// The shortest text that reads back as the same double.
static std::string Exact(double value) {
    char text[32];
    return {text, std::to_chars(text, text + sizeof text, value).ptr};
}

static std::string Formatted(const char* format, auto... values) {
    char line[160];
    std::snprintf(line, sizeof line, format, values...);
    return line;
}

std::string AsTable(const std::vector<Result>& results) {
    std::string text;
    for (const Result& r : results) {
        text += OnOneLine(r.input);
        text +=
            Formatted(": %.3f s, %d Hz, %d %s\n", r.length, r.rate, r.channels, r.channels == 1 ? "canal" : "canais");
        text += "  pedaco     posicao     duracao   na origem\n";
        int number = 0;
        for (const Piece& p : r.pieces)
            text += Formatted("  %6d %11.3f %11.3f %11.3f\n", ++number, p.position, p.length, p.source);
        text += Formatted("  retirado: %.3f s de silencio (%.1f%%); ", r.Removed(), 100 * r.Removed() / r.length);
        text += Formatted("restam %.3f s em %zu %s\n", r.Kept(), r.pieces.size(),
                          r.pieces.size() == 1 ? "pedaco" : "pedacos");
        if (!r.output.empty()) text += "  gravado em " + OnOneLine(r.output) + "\n";
    }
    return text;
}

static std::string CsvField(const std::string& text) {
    if (text.find_first_of(",\"\r\n") == std::string::npos) return text;
    std::string quoted = "\"";
    for (char c : text) quoted += c == '"' ? std::string("\"\"") : std::string(1, c);
    return quoted + "\"";
}

// For spreadsheets: to the nanosecond, without the last bits of a sum.
static std::string Decimal(double value) {
    char text[64];
    std::string decimal(text, std::to_chars(text, text + sizeof text, value, std::chars_format::fixed, 9).ptr);
    decimal.erase(decimal.find_last_not_of('0') + 1);
    if (decimal.ends_with('.')) decimal.pop_back();
    return decimal;
}

std::string AsCsv(const std::vector<Result>& results) {
    std::string text = "arquivo,pedaco,posicao,duracao,origem\n";
    for (const Result& r : results) {
        const std::string input = CsvField(r.input);
        int number = 0;
        for (const Piece& p : r.pieces)
            text += input + ',' + std::to_string(++number) + ',' + Decimal(p.position) + ',' + Decimal(p.length) + ',' +
                    Decimal(p.source) + '\n';
    }
    return text;
}

// A file's name can hold any byte; JSON cannot, so what is no UTF-8 becomes the replacement character.
static std::string JsonText(std::string_view text) {
    std::string quoted = "\"";
    while (!text.empty()) {
        const unsigned char c = text[0];
        const Utf8Character read = ReadUtf8(text.data(), text.size());
        if (!read.wellFormed)
            quoted += "\\ufffd";
        else if (c < 32)
            quoted += Formatted("\\u%04x", c);
        else
            (c == '"' || c == '\\' ? quoted += '\\' : quoted).append(text.substr(0, read.bytes));
        text.remove_prefix(read.wellFormed ? read.bytes : 1);
    }
    return quoted + "\"";
}

std::string AsJson(const std::vector<Result>& results, const Options& options) {
    std::string text = "{\n  \"piso_db\": " + Exact(options.thresholdDb) +
                       ",\n  \"bloco_ms\": " + std::to_string(options.blockMs) +
                       ",\n  \"fechar\": " + (options.closeGaps ? "true" : "false") + ",\n  \"arquivos\": [";
    for (const Result& r : results) {
        text += std::string(&r == &results[0] ? "" : ",") + "\n    {\n      \"arquivo\": " + JsonText(r.input) +
                ",\n      \"saida\": " + (r.output.empty() ? "null" : JsonText(r.output)) +
                ",\n      \"taxa\": " + std::to_string(r.rate) + ",\n      \"canais\": " + std::to_string(r.channels) +
                ",\n      \"duracao\": " + Exact(r.length) + ",\n      \"retirado\": " + Exact(r.Removed()) +
                ",\n      \"pedacos\": [";
        for (const Piece& p : r.pieces)
            text += std::string(&p == &r.pieces[0] ? "" : ",") + "\n        {\"posicao\": " + Exact(p.position) +
                    ", \"duracao\": " + Exact(p.length) + ", \"origem\": " + Exact(p.source) + "}";
        text += "\n      ]\n    }";
    }
    return text + "\n  ]\n}\n";
}
