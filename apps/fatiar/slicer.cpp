#include "apps/fatiar/slicer.h"

#include <algorithm>
#include <cmath>

#include "apps/common/recording.h"

Slicer::Slicer() {
    host_.resourcePath = "/dev/null";  // no folder, so the module's log is lost: a tool leaves nothing behind
    plugin_.Load(host_);
}

// The module splits between frames of the source. Closed up, its first piece is where the file begins.
static Cut CutOf(const simhost::Track& track, const simhost::Source& source, bool closed) {
    Cut cut{source.SampleRate(), source.Frames(), closed, {}};
    const auto frame = [&cut](double seconds) { return std::llround(seconds * cut.rate); };
    for (const auto& item : track.items) {
        const double offset = item->Active()->startOffset;
        const double base = closed ? track.items[0]->position : 0;
        cut.pieces.push_back({item->position - base, frame(offset + item->length) - frame(offset), frame(offset),
                              std::max(0.0, item->fadeIn), std::max(0.0, item->fadeOut)});
    }
    return cut;
}

Cut Slicer::ByModule(const simhost::SourceRef& source, const Options& options, bool close) {
    simhost::Track& track = PutOnTrack(source, "", host_);
    plugin_.autoSplit(close, options.blockMs, options.thresholdDb);
    Cut cut = CutOf(track, *source, close);
    host_.project = {};
    host_.undo.Start();  // whose points hold the recording, too
    ExpectNoMisuse(host_);
    return cut;
}

Cut Slicer::Slice(const simhost::SourceRef& source, const Options& options) {
    if (options.beforeMs == 0 && options.afterMs == 0) return ByModule(source, options, options.closeGaps);
    Cut cut = ByModule(source, options, false);
    Grow(cut, options.beforeMs, options.afterMs);
    if (options.closeGaps) CloseUp(cut);
    return cut;
}
