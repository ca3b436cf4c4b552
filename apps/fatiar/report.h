// apps/fatiar/report.h
// What came of each recording, and the three forms it is told in.
#pragma once
#include <stdexcept>
#include <string>
#include <vector>

#include "apps/fatiar/cut.h"
#include "apps/fatiar/options.h"

struct Result {
    std::string input;   // as the user knows it
    std::string output;  // the sliced audio; empty when none was written
    std::vector<std::string> lists;
    int channels = 0;
    Cut cut;
};

std::string CsvHeading();
std::string AsCsv(const Result& result);                                         // one line a piece
std::string AsJson(const std::vector<Result>& results, const Options& options);  // one object

struct NobodyListens : std::runtime_error {
    using std::runtime_error::runtime_error;
};

// What the run tells on standard output, or on standard error where that one takes the audio.
class Report {
  public:
    explicit Report(const Options& options) : options_(options) {}
    void Add(const Result& result);  // throws NobodyListens
    void Finish();

  private:
    void Say(const std::string& text);

    const Options& options_;
    bool first_ = true;
    std::vector<Result> kept_;  // of JSON, which is told as one at the end
};
