// apps/fatiar/progress.h
// One line on the terminal that fills while audio goes by; nothing at all when standard error is no terminal.
#pragma once
#include <chrono>
#include <cstdint>
#include <string>

class Progress {
  public:
    Progress();
    ~Progress() { Clear(); }
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    void Begin(std::string label, int64_t totalFrames);
    void Advance(int64_t frames);
    void Clear();  // leaves the line empty, for what else is written there

  private:
    void Draw();

    std::string label_;
    int64_t total_ = 1, done_ = 0;
    bool terminal_, drawn_ = false;
    std::chrono::steady_clock::time_point nextDraw_;
};
