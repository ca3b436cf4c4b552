// apps/fatiar/targets.h
// Where the results of a run go, by name.
#pragma once
#include <filesystem>
#include <set>

#include "apps/common/audio_writer.h"
#include "apps/fatiar/inputs.h"

struct Target {  // of one recording; an empty path: not wanted
    std::filesystem::path audio, csv, json, before, after;
    std::vector<std::filesystem::path> lists;  // one for each of Options::lists; empty where another recording has it
    AudioFormat format = AudioFormat::Wav;
    std::vector<std::filesystem::path> Files() const;  // all that are wanted
};

class Targets {
  public:
    // Throws when the options ask for one file where there are several results, or for a format that is not written.
    // Both arguments must outlive this object.
    Targets(const Options& options, const std::vector<Input>& inputs);

    // No two recordings of a run have the same names. Throws when a result would replace one of the inputs.
    Target For(const Input& input);
    // Recordings that are cut one by one go into one list of that kind, which no target names.
    bool InOneList(const WantedList& list) const;

  private:
    std::filesystem::path ListPath(const WantedList& list, const std::filesystem::path& base) const;
    void RefuseInputs(const Target& target) const;

    enum class Output { None, Standard, File, Folder };
    const Options& options_;
    const std::vector<Input>& inputs_;
    Output output_ = Output::None;
    std::filesystem::path folder_;
    std::set<std::string> taken_;
};
