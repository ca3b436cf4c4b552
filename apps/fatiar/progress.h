// apps/fatiar/progress.h
// One line on the terminal that fills while audio goes by; nothing at all when standard error is no terminal.
#pragma once
#include <chrono>
#include <cstdint>
#include <string>

class Progress {
  public:
    Progress(std::string label, int64_t totalFrames);
    ~Progress();  // leaves the line empty
    void Advance(int64_t frames);

  private:
    std::string label_;
    int64_t total_, done_ = 0;
    bool terminal_, drawn_ = false;
    std::chrono::steady_clock::time_point nextDraw_;
};
