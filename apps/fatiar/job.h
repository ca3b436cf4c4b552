// apps/fatiar/job.h
// Recordings that are cut together, one as a rule, and what is written of them.
#pragma once
#include "apps/fatiar/cut.h"
#include "apps/fatiar/lists.h"
#include "apps/fatiar/outputs.h"
#include "apps/fatiar/progress.h"
#include "apps/fatiar/targets.h"

struct Job {
    std::vector<Recording> recordings;
    std::vector<Target> targets;  // one for each
    Cut cut;
};

// All of these throw a sentence for the user, or Interrupted. What Job::targets name has been planned.
void WriteSound(const Job& job, Outputs& outputs, Progress& progress);
void WritePictures(const Job& job, Outputs& outputs);
void WriteLists(const Job& job, const Options& options, Outputs& outputs);
ListedCut Listed(const Job& job, size_t recording, const std::filesystem::path& list);
void WriteList(const WantedList& list, const std::vector<ListedCut>& cuts, const std::filesystem::path& path,
               const Options& options, Outputs& outputs);
