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

// What the module makes of the recordings on the tracks, one result for each.
static std::vector<Result> Slice(simhost::Host& host, const Options& options) {
    std::vector<simhost::SourceRef> sources;
    int64_t total = 0;
    for (const simhost::Item* item : host.project.tracks.Items()) {
        sources.push_back(item->Active()->source);
        total += sources.back()->Frames();
    }
    std::string error;
    Plugin plugin;
    Expect(plugin.Load(host, &error), error);
    {
        Progress progress("lendo", total);
        host.calls.onRead = [&progress](int64_t frames) { progress.Advance(frames); };
        plugin.autoSplit(options.closeGaps, options.blockMs, options.thresholdDb);
        host.calls.onRead = nullptr;
    }
    ExpectNoMisuse(host);
    std::vector<Result> results;
    for (size_t i = 0; i < sources.size(); ++i) results.push_back(ResultOf(*host.project.tracks.All()[i], *sources[i]));
    return results;
}

static void WriteResults(const Options& options, const simhost::Project& project, Outputs& outputs,
                         std::vector<Result>& results) {
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
        outputs.WriteAudio(file, *project.tracks.All()[i], RangeOf(result, options.closeGaps), advance);
        result.output = file.audio;
        if (options.csv) outputs.WriteText(file.Beside("csv"), AsCsv({result}));
        if (options.json) outputs.WriteText(file.Beside("json"), AsJson({result}, options));
    }
}

static void Run(const Options& options) {
    simhost::Host host;
    host.resourcePath = "/dev/null";  // no folder, so the module's log is lost: a tool leaves nothing behind
    for (const std::string& input : options.inputs) PutOnTrack(input, host);
    Outputs outputs;
    outputs.Plan(options);

    const double end = simhost::ProjectEnd(host.project);  // the scale of both pictures
    outputs.KeepPicture("antes.png", host.project, end);
    std::vector<Result> results = Slice(host, options);
    WriteResults(options, host.project, outputs, results);
    outputs.KeepPicture("depois.png", host.project, end);

    const std::string text = options.csv == options.json ? AsTable(results)
                             : options.csv               ? AsCsv(results)
                                                         : AsJson(results, options);
    Expect(std::fputs(text.c_str(), stdout) >= 0 && std::fflush(stdout) == 0, "a saida padrao nao aceita o resultado");
    outputs.Keep();
}

int main(int argc, char** argv) {
    for (int signal : {SIGINT, SIGTERM, SIGHUP}) std::signal(signal, RemoveUnfinished);
    AllowManyFiles();
    try {
        const Options options = ParseOptions({argv + 1, argv + argc});
        options.help ? static_cast<void>(std::fputs(HelpText, stdout)) : Run(options);
    } catch (const std::exception& why) {
        std::fprintf(stderr, "fatiar: %s\n", OnOneLine(why.what()).c_str());
        return 2;
    }
    return 0;
}
