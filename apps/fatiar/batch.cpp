#include "apps/fatiar/batch.h"

#include <cstdio>
#include <new>

#include "apps/common/tool.h"
#include "apps/fatiar/doubts.h"
#include "apps/fatiar/interrupt.h"

constexpr int SomeFailed = 1, Impossible = 2;  // exit codes

void SayOnError(const std::string& sentence) { std::fprintf(stderr, "fatiar: %s\n", OnOneLine(sentence).c_str()); }

Batch::Batch(const Options& options)
    : options_(options),
      inputs_(FindInputs(options)),
      targets_(options, inputs_.found),
      wholeRun_(options.overwrite),
      report_(options) {
    for (const WantedList& list : options.lists)
        if (targets_.InOneList(list)) wholeRun_.Plan(list.path);
}

int Batch::Run() {
    size_t failed = inputs_.failures.size();
    for (const std::string& why : inputs_.failures) SayOnError(why);
    const bool several = failed + inputs_.found.size() > 1;
    if (options_.together && failed > 0) return Impossible;  // somebody of the conversation is missing
    if (options_.together)
        failed += !Attempt(inputs_.found);
    else
        for (const Input& input : inputs_.found) failed += !Attempt({input});

    for (const auto& [k, cuts] : listed_)
        WriteList(options_.lists[k], cuts, options_.lists[k].path, options_, wholeRun_);
    report_.Finish();
    if (!listed_.empty()) wholeRun_.Commit();
    if (failed == 0) return 0;
    return several && !options_.together ? SomeFailed : Impossible;
}

bool Batch::Attempt(const std::vector<Input>& together) {
    std::string error;
    try {
        Work(together);
    } catch (const NobodyListens&) {
        throw;
    } catch (const std::bad_alloc&) {
        error = "'" + together.front().path + "' nao cabe na memoria";
    } catch (const std::exception& why) {
        error = why.what();
    }
    ThrowWhenInterrupted();  // which may be why it failed
    progress_.Clear();
    if (!error.empty()) SayOnError(error);
    return error.empty();
}

// "lendo", and which one where there are several.
std::string Batch::Counted(const char* what) const {
    if (inputs_.found.size() == 1) return what;
    return std::string(what) + ' ' + std::to_string(begun_) + '/' + std::to_string(inputs_.found.size());
}

void Batch::Work(const std::vector<Input>& together) {
    begun_ += together.size();
    Job job;
    Outputs outputs(options_.overwrite);
    for (const Input& input : together) {
        job.targets.push_back(targets_.For(input));
        for (const std::filesystem::path& path : job.targets.back().Files()) outputs.Plan(path);
    }
    for (const Input& input : together)
        job.recordings.push_back(OpenRecording(input, options_, together.size() == 1 ? &progress_ : nullptr));
    const std::shared_ptr<Listener> all = Slice(job);

    progress_.Begin(Counted("gravando"), job.cut.Written() * static_cast<int64_t>(together.size()));
    WriteSound(job, outputs, progress_);
    WritePictures(job, outputs);
    WriteLists(job, options_, outputs);
    progress_.Clear();
    Tell(job, outputs);
    outputs.Commit();

    for (size_t k = 0; k < options_.lists.size(); ++k)
        if (targets_.InOneList(options_.lists[k])) listed_[k].push_back(Listed(job, 0, options_.lists[k].path));
    Doubt(job, *all);
}

void Batch::Doubt(const Job& job, Listener& all) const {
    const auto say = [](const std::string& who, const std::string& doubt) {
        SayOnError("aviso: " + who + ": " + doubt);
    };
    const std::string first = "'" + job.recordings.front().label + "'";
    for (const Recording& recording : job.recordings) {
        const std::string quoted = "'" + recording.label + "'";
        const double seconds = recording.source->Length(), share = recording.facts.promisedShare;
        if (share > 1) say(quoted, DoubtHeader(share * seconds, seconds));
        if (Silent(*recording.source, options_)) say(quoted, DoubtSilence(*recording.source, options_));
    }
    if (Silent(all, options_)) return;
    const std::string who = job.recordings.size() == 1 ? first : first + " e as outras";
    for (const std::string& doubt : DoubtCut(job.cut, all, options_)) say(who, doubt);
}

std::shared_ptr<Listener> Batch::Slice(Job& job) {
    std::vector<simhost::SourceRef> sources;
    for (const Recording& recording : job.recordings) {
        sources.push_back(recording.source);
        Expect(recording.source->SampleRate() == sources.front()->SampleRate(),
               "'" + recording.label + "' tem " + std::to_string(recording.source->SampleRate()) + " Hz, e '" +
                   job.recordings.front().label + "' tem " + std::to_string(sources.front()->SampleRate()) +
                   ": com --juntas as taxas devem ser iguais");
    }
    auto all = sources.size() == 1 ? job.recordings.front().source
                                   : std::make_shared<Listener>(SideBySide(std::move(sources)), &progress_);
    progress_.Begin(Counted("lendo"), all->Frames());
    job.cut = slicer_.Slice(all, options_);
    ThrowWhenInterrupted();
    for (const Recording& recording : job.recordings)
        Expect(!recording.source->Failed(), "'" + recording.label + "' nao pode ser lido ate o fim");
    return all;
}

void Batch::Tell(const Job& job, Outputs& outputs) {
    for (size_t i = 0; i < job.recordings.size(); ++i) {
        const Recording& recording = job.recordings[i];
        const Target& target = job.targets[i];
        Result result{recording.label, target.audio.string(), {}, recording.source->Channels(), job.cut};
        for (const std::filesystem::path& list : target.lists)
            if (!list.empty()) result.lists.push_back(list.string());
        if (!target.csv.empty()) outputs.WriteText(target.csv, CsvHeading() + AsCsv(result));
        if (!target.json.empty()) outputs.WriteText(target.json, AsJson({result}, options_));
        report_.Add(result);
    }
}
