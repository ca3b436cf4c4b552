#include "apps/fatiar/progress.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>

constexpr auto BetweenDraws = std::chrono::milliseconds(80);
constexpr int WidestBar = 40, NarrowestBar = 5;
constexpr int AroundBar = 8, WithoutBar = 3;  // beside the label: a blank, "[] ", "100%"; and what goes with the bar
constexpr int UsualColumns = 80;

static int Columns() {
    winsize size{};
    return ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0 ? size.ws_col : UsualColumns;
}

Progress::Progress() : terminal_(isatty(STDERR_FILENO)), nextDraw_(std::chrono::steady_clock::now() + BetweenDraws) {}

void Progress::Begin(std::string label, int64_t totalFrames) {
    label_ = std::move(label);
    total_ = std::max<int64_t>(totalFrames, 1);
    done_ = 0;
}

void Progress::Advance(int64_t frames) {
    done_ = std::min(done_ + frames, total_);
    const auto now = std::chrono::steady_clock::now();
    if (!terminal_ || now < nextDraw_) return;
    nextDraw_ = now + BetweenDraws;
    Draw();
}

// One column stays free, because some terminals wrap behind the last.
void Progress::Draw() {
    const int columns = Columns() - 1, around = static_cast<int>(label_.size()) + AroundBar;
    const int bar = std::min(WidestBar, columns - around);
    const double share = static_cast<double>(done_) / static_cast<double>(total_);
    std::string line = around - WithoutBar <= columns ? label_ + ' ' : "";  // the share counts more than what it is of
    if (bar >= NarrowestBar) {
        const auto full = static_cast<size_t>(share * bar);
        line += '[' + std::string(full, '#') + std::string(bar - full, '.') + "] ";
    }
    line += std::to_string(static_cast<int>(share * 100)) + '%';
    std::fprintf(stderr, "\r%.*s\033[K", columns, line.c_str());
    std::fflush(stderr);
    drawn_ = true;
}

void Progress::Clear() {
    if (drawn_) std::fputs("\r\033[K", stderr);
    drawn_ = false;
}
