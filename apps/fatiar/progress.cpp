#include "apps/fatiar/progress.h"

#include <unistd.h>

#include <algorithm>
#include <cstdio>

constexpr auto BetweenDraws = std::chrono::milliseconds(80);
constexpr int BarWidth = 40;

Progress::Progress(std::string label, int64_t totalFrames)
    : label_(std::move(label)),
      total_(std::max<int64_t>(totalFrames, 1)),
      terminal_(isatty(STDERR_FILENO)),
      nextDraw_(std::chrono::steady_clock::now() + BetweenDraws) {}

Progress::~Progress() {
    if (drawn_) std::fputs("\r\033[K", stderr);
}

void Progress::Advance(int64_t frames) {
    done_ = std::min(done_ + frames, total_);
    if (!terminal_) return;
    const auto now = std::chrono::steady_clock::now();
    if (now < nextDraw_) return;
    nextDraw_ = now + BetweenDraws;
    drawn_ = true;
    const double share = static_cast<double>(done_) / static_cast<double>(total_);
    const int full = static_cast<int>(share * BarWidth);
    std::fprintf(stderr, "\r%s [%s%s] %3d%%", label_.c_str(), std::string(full, '#').c_str(),
                 std::string(BarWidth - full, '.').c_str(), static_cast<int>(share * 100));
    std::fflush(stderr);
}
