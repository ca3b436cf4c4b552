// apps/fatiar/batch.h
// A run of the program over all of its recordings.
#pragma once
#include <map>

#include "apps/fatiar/job.h"
#include "apps/fatiar/report.h"
#include "apps/fatiar/slicer.h"

void SayOnError(const std::string& sentence);  // one line on standard error, under the program's name

class Batch {
  public:
    explicit Batch(const Options& options);

    // The exit code. 0: all went well; 1: of several recordings some could not be sliced; 2: the only one could not be.
    // Throws a sentence where nothing can be done, and Interrupted.
    int Run();

  private:
    bool Attempt(const std::vector<Input>& together);  // false: it failed, which was said
    void Work(const std::vector<Input>& together);
    void Doubt(const Job& job, Listener& all) const;
    std::shared_ptr<Listener> Slice(Job& job);  // all recordings, as they were heard together
    void Tell(const Job& job, Outputs& outputs);
    std::string Counted(const char* what) const;

    const Options& options_;
    Inputs inputs_;
    Targets targets_;
    Outputs wholeRun_;                                 // lists that hold every recording
    std::map<size_t, std::vector<ListedCut>> listed_;  // for those, by their place among the options
    Progress progress_;
    Slicer slicer_;
    Report report_;
    size_t begun_ = 0;  // recordings
};
