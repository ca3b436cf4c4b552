#include "apps/fatiar/cut.h"

#include <algorithm>
#include <cmath>

int64_t Cut::Written() const {
    if (!closed) return recorded;
    return pieces.empty() ? 0 : std::llround(End(pieces.back()) * rate);
}

int64_t Cut::Kept() const {
    int64_t sum = 0;
    for (const Piece& piece : pieces) sum += piece.length;
    return sum;
}

void Grow(Cut& cut, double beforeMs, double afterMs) {
    const int64_t before = std::llround(beforeMs * cut.rate / 1000), after = std::llround(afterMs * cut.rate / 1000);
    std::vector<Piece> grown;
    for (size_t i = 0; i < cut.pieces.size(); ++i) {
        const int64_t silenceStart = i == 0 ? 0 : cut.pieces[i - 1].SourceEnd();
        const int64_t silenceEnd = i + 1 == cut.pieces.size() ? cut.recorded : cut.pieces[i + 1].source;
        const int64_t start = std::max(cut.pieces[i].source - before, silenceStart);
        const int64_t end = std::min(cut.pieces[i].SourceEnd() + after, silenceEnd);
        if (!grown.empty() && start <= grown.back().SourceEnd())
            grown.back().length = end - grown.back().source;
        else
            grown.push_back({cut.Seconds(start), end - start, start});
    }
    cut.pieces = std::move(grown);
}

void CloseUp(Cut& cut) {
    cut.closed = true;
    double at = 0;
    for (Piece& piece : cut.pieces) {
        piece.position = at;
        at = cut.End(piece) - JoinSeconds;
        if (cut.pieces.size() > 1) piece.fadeIn = piece.fadeOut = JoinSeconds;
    }
}

std::vector<Span> WithoutOverlaps(const Cut& cut) {
    std::vector<Span> spans;
    const auto halfOverlap = [&](size_t i) {  // of piece i with the one before it
        if (i == 0 || i == cut.pieces.size()) return 0.0;
        return std::max(0.0, (cut.End(cut.pieces[i - 1]) - cut.pieces[i].position) / 2);
    };
    for (size_t i = 0; i < cut.pieces.size(); ++i) {
        const Piece& piece = cut.pieces[i];
        const double lost = halfOverlap(i);
        spans.push_back({cut.Seconds(piece.source) + lost, piece.position + lost, cut.End(piece) - halfOverlap(i + 1)});
    }
    return spans;
}
