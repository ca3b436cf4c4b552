#include "apps/fatiar/job.h"

#include <tuple>

#include "apps/common/recording.h"
#include "apps/common/tool.h"
#include "apps/fatiar/interrupt.h"
#include "simhost/mixdown.h"

namespace fs = std::filesystem;

// Where the cut begins on the recording's time: what is closed up stays where its first piece was.
static double StartOf(const Cut& cut) {
    return cut.closed && !cut.pieces.empty() ? cut.Seconds(cut.pieces.front().source) : 0;
}

static simhost::Project Arrange(const Job& job, const std::vector<Piece>& pieces, double start) {
    simhost::Project project;
    for (const Recording& recording : job.recordings) {
        simhost::Track& track = AddTrack(project, recording.label);
        for (const Piece& piece : pieces) {
            simhost::Item item = simhost::MakeItem("", 0, job.cut.Seconds(piece.length), recording.source);
            item.position = start + piece.position;
            item.takes.front()->startOffset = job.cut.Seconds(piece.source);
            item.fadeIn = piece.fadeIn;
            item.fadeOut = piece.fadeOut;
            project.tracks.Add(track, std::move(item));
        }
    }
    return project;
}

static void WriteOne(const Job& job, size_t i, const simhost::Track& track, const std::string& path,
                     Progress& progress) {
    const auto& [cut, recording, target] = std::tie(job.cut, job.recordings[i], job.targets[i]);
    const double start = StartOf(cut);
    const simhost::MixRange range = {cut.rate, recording.source->Channels(), start, start + cut.Seconds(cut.Written())};
    const std::string name = "'" + target.audio.string() + "' nao pode ser gravado";
    std::string why;
    const auto writer =
        AudioWriter::Create(path, {target.format, range.rate, range.channels, range.Frames()}, recording.facts, &why);
    Expect(writer != nullptr, name + ": " + why);
    std::vector<const simhost::Item*> items;
    for (const auto& item : track.items) items.push_back(&*item);
    const bool written = simhost::MixItems(items, range, [&](const double* mix, int frames) {
        ThrowWhenInterrupted();
        progress.Advance(frames);
        return writer->Write(mix, frames);
    });
    const bool finished = writer->Finish();
    Expect(written && finished, name + " ate o fim");
    Expect(!recording.source->Failed(), "'" + recording.label + "' nao pode ser lido ate o fim");
}

void WriteSound(const Job& job, Outputs& outputs, Progress& progress) {
    const simhost::Project project = Arrange(job, job.cut.pieces, StartOf(job.cut));
    for (size_t i = 0; i < job.recordings.size(); ++i) {
        const simhost::Track& track = *project.tracks.All()[i];
        if (job.targets[i].audio == "-") {
            Spool spool;
            WriteOne(job, i, track, spool.Path(), progress);
            spool.CopyToStandardOutput();
        } else if (!job.targets[i].audio.empty()) {
            WriteOne(job, i, track, outputs.Draft(job.targets[i].audio), progress);
        }
    }
}

void WritePictures(const Job& job, Outputs& outputs) {
    const Target& target = job.targets.front();
    if (target.before.empty()) return;
    const double seconds = job.cut.Seconds(job.cut.recorded);
    PhotographArrangement(Arrange(job, {{0, job.cut.recorded, 0}}, 0), seconds, outputs.Draft(target.before));
    ThrowWhenInterrupted();
    PhotographArrangement(Arrange(job, job.cut.pieces, StartOf(job.cut)), seconds, outputs.Draft(target.after));
    ThrowWhenInterrupted();
}

ListedCut Listed(const Job& job, size_t i, const fs::path& list) {
    const Recording& recording = job.recordings[i];
    return {job.cut, recording.source->Channels(), recording.input.name,
            ReferenceTo(recording.reference, list.string())};
}

void WriteList(const WantedList& list, const std::vector<ListedCut>& cuts, const fs::path& path, const Options& options,
               Outputs& outputs) {
    const std::vector<std::string> texts =
        FindListFormat(list.format)->write(cuts, options.frameRate.value_or(FrameRate{}));
    outputs.WriteText(path, texts.front());
    for (size_t i = 1; i < texts.size(); ++i) {
        const std::string name = path.stem().string() + '-' + std::to_string(i + 1) + path.extension().string();
        outputs.Plan(path.parent_path() / name);
        outputs.WriteText(path.parent_path() / name, texts[i]);
    }
}

void WriteLists(const Job& job, const Options& options, Outputs& outputs) {
    for (size_t k = 0; k < options.lists.size(); ++k) {
        const bool all = FindListFormat(options.lists[k].format)->many;
        for (size_t i = 0; i < job.recordings.size(); ++i) {
            const fs::path& path = job.targets[i].lists[k];
            if (path.empty()) continue;
            std::vector<ListedCut> cuts;
            for (size_t j = all ? 0 : i; j < (all ? job.recordings.size() : i + 1); ++j)
                cuts.push_back(Listed(job, j, path));
            WriteList(options.lists[k], cuts, path, options, outputs);
        }
    }
}
