// apps/fatiar/outputs.h
// The files that a run leaves behind. Every function throws a sentence for the user when it cannot do its work. Until
// Keep is called, the end of this object takes away every file and folder that it made: all stay, or none.
#pragma once
#include <filesystem>
#include <string>
#include <vector>

#include "apps/fatiar/options.h"
#include "simhost/mixdown.h"
#include "simhost/native/audio_file.h"

struct OutputFile {
    std::string audio;  // path of the sliced audio
    simhost::AudioFormat format;
    std::string Beside(const char* ending) const;  // the same path with another ending, for a table
};

class Outputs {
  public:
    Outputs() = default;
    Outputs(const Outputs&) = delete;
    Outputs& operator=(const Outputs&) = delete;
    ~Outputs();

    // Decides where each input's result goes, never over an input, and makes the folder.
    void Plan(const Options& options);
    const std::vector<OutputFile>& Files() const { return files_; }  // one an input; none without -o

    void WriteAudio(const OutputFile& file, const simhost::Track& track, const simhost::MixRange& range,
                    const simhost::MixSink& onWritten);
    // A picture of the arrangement's first seconds, into the folder of the results; nothing when -o names a file.
    void KeepPicture(const char* name, const simhost::Project& project, double seconds);
    void WriteText(const std::string& path, const std::string& text);
    void Keep() { made_.clear(); }

  private:
    bool MakeFolder(const std::filesystem::path& folder);

    std::vector<OutputFile> files_;
    std::filesystem::path folder_;             // empty when the result is one named file
    std::vector<std::filesystem::path> made_;  // in the order of making
};
