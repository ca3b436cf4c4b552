// fatiar: slices recordings with the real module, loaded into the stand-in host.
#include <sys/resource.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>

#include "apps/common/plugin.h"
#include "apps/common/recording.h"
#include "apps/common/tool.h"
#include "apps/fatiar/options.h"
#include "apps/fatiar/outputs.h"
#include "apps/fatiar/progress.h"
#include "apps/fatiar/report.h"
#include "simhost/arrangement.h"

constexpr int Refused = 2;

static int Refuse(const std::string& why) {
    std::fprintf(stderr, "fatiar: %s\n", OnOneLine(why).c_str());
    return Refused;
}

static void RemoveUnfinished(int signal) {
    unlink(simhost::AudioWriter::UnfinishedPath());
    _exit(128 + signal);
}

// Every recording stays open while it is on a track; the usual limit is a thousand files.
static void AllowManyFiles() {
    rlimit limit;
    if (getrlimit(RLIMIT_NOFILE, &limit) != 0) return;
    limit.rlim_cur = limit.rlim_max;
    setrlimit(RLIMIT_NOFILE, &limit);
}

// The arrangement before and after, both on the scale of what was there before.
static bool Paint(Outputs& outputs, const simhost::Project& project, const char* name, double end, std::string* error) {
    LICE_MemBitmap bitmap(1280, simhost::ArrangementHeight(project), 0);
    simhost::PaintArrangement(project, &bitmap, {0, end * 1.02});
    return outputs.WritePicture(name, &bitmap, error);
}

static Result ResultOf(const simhost::Track& track, const simhost::Source& source) {
    Result result{track.name, "", source.SampleRate(), source.Channels(), source.Length(), {}};
    for (const auto& item : track.items)
        result.pieces.push_back({item->position, item->length, item->Active()->startOffset});
    return result;
}

// Closed up, the result starts with its first piece; left in place, with the recording, so that both run together.
static simhost::MixRange RangeOf(const Result& result, bool closeGaps) {
    if (result.pieces.empty()) return {result.rate, result.channels, 0, 0};
    const Piece& first = result.pieces.front();
    const Piece& last = result.pieces.back();
    return {result.rate, result.channels, closeGaps ? first.position : 0.0, last.position + last.length};
}

static bool WriteOutputs(const Options& options, const simhost::Project& project, Outputs& outputs,
                         std::vector<Result>& results, std::string* error) {
    int64_t total = 0;
    for (const Result& r : results) total += static_cast<int64_t>(r.Kept() * r.rate);
    Progress progress("gravando", total);
    for (size_t i = 0; i < outputs.Files().size(); ++i) {
        const OutputFile& file = outputs.Files()[i];
        Result& result = results[i];
        const auto advance = [&progress](const double*, int frames) {
            progress.Advance(frames);
            return true;
        };
        if (!outputs.WriteAudio(file, *project.tracks.All()[i], RangeOf(result, options.closeGaps), advance, error))
            return false;
        result.output = file.audio;
        if (options.csv && !outputs.WriteText(file.Beside("csv"), AsCsv({result}), error)) return false;
        if (options.json && !outputs.WriteText(file.Beside("json"), AsJson({result}, options), error)) return false;
    }
    return true;
}

int main(int argc, char** argv) {
    Options options;
    std::string error;
    if (!ParseOptions(argc, argv, &options, &error)) return Refuse(error);
    if (options.help) {
        std::fputs(HelpText, stdout);
        return 0;
    }
    for (int signal : {SIGINT, SIGTERM, SIGHUP}) std::signal(signal, RemoveUnfinished);
    AllowManyFiles();

    simhost::Host host;
    host.resourcePath = "/dev/null";  // no folder, so the module's log is lost: a tool leaves nothing behind
    for (const std::string& input : options.inputs)
        if (!PutOnTrack(input, host, &error)) return Refuse(error);
    Outputs outputs;
    if (!outputs.Plan(options, &error)) return Refuse(error);

    std::vector<simhost::SourceRef> sources;
    int64_t total = 0;
    for (const simhost::Item* item : host.project.tracks.Items()) {
        sources.push_back(item->Active()->source);
        total += sources.back()->Frames();
    }
    const double end = simhost::ProjectEnd(host.project);
    if (outputs.HasFolder() && !Paint(outputs, host.project, "antes.png", end, &error)) return Refuse(error);
    Plugin plugin;
    if (!plugin.Load(host, &error)) return Refuse(error);
    {
        Progress progress("lendo", total);
        host.onRead = [&progress](int64_t frames) { progress.Advance(frames); };
        plugin.autoSplit(options.closeGaps, options.blockMs, options.thresholdDb);
        host.onRead = nullptr;
    }
    if (!host.Check()) return Refuse("o modulo usou mal o host: " + host.FirstViolation());

    std::vector<Result> results;
    for (size_t i = 0; i < sources.size(); ++i) results.push_back(ResultOf(*host.project.tracks.All()[i], *sources[i]));
    if (!WriteOutputs(options, host.project, outputs, results, &error)) return Refuse(error);
    if (outputs.HasFolder() && !Paint(outputs, host.project, "depois.png", end, &error)) return Refuse(error);

    const std::string text = options.csv == options.json ? AsTable(results)
                             : options.csv               ? AsCsv(results)
                                                         : AsJson(results, options);
    if (std::fputs(text.c_str(), stdout) < 0 || std::fflush(stdout) != 0)
        return Refuse("a saida padrao nao aceita o resultado");
    outputs.Keep();
    return 0;
}
