// apps/fatiar/outputs.h
// The files that a run leaves behind. All of them stay, or none: until Keep is called, the end of this object takes
// away every file and folder that it made.
#pragma once
#include <filesystem>
#include <string>
#include <vector>

#include "apps/fatiar/options.h"
#include "lice/bitmap.h"
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

    // Decides where each input's result goes, and makes the folder. False, with a sentence in *error, when that cannot
    // be or would write over an input.
    bool Plan(const Options& options, std::string* error);
    const std::vector<OutputFile>& Files() const { return files_; }  // one an input; none without -o

    bool WriteAudio(const OutputFile& file, const simhost::Track& track, const simhost::MixRange& range,
                    const simhost::MixSink& onWritten, std::string* error);
    // Pictures go into the folder of the results, when -o names one.
    bool HasFolder() const { return !folder_.empty(); }
    bool WritePicture(const char* name, LICE_IBitmap* bitmap, std::string* error);
    bool WriteText(const std::string& path, const std::string& text, std::string* error);
    void Keep() { made_.clear(); }

  private:
    bool MakeFolder(const std::filesystem::path& folder);

    std::vector<OutputFile> files_;
    std::filesystem::path folder_;             // empty when the result is one named file
    std::vector<std::filesystem::path> made_;  // in the order of making
};
