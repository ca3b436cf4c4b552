#include <ctime>

#include "apps/common/host_project.h"
#include "apps/common/tool.h"
#include "apps/fatiar/lists.h"
#include "apps/fatiar/paths.h"

std::vector<std::string> AsHostProject(const std::vector<ListedCut>& cuts, FrameRate) {
    std::vector<ProjectTrack> tracks;
    for (const auto& [cut, channels, name, reference] : cuts) {
        ProjectTrack& track = tracks.emplace_back(ProjectTrack{OnOneLine(name), {}});
        const std::string file = OnOneLine(reference);
        for (const Piece& piece : cut.pieces)
            track.items.push_back({piece.position, cut.Seconds(piece.length), cut.Seconds(piece.source), 1,
                                   piece.fadeIn, piece.fadeOut, FileName(file), file});
    }
    return {HostProjectText(cuts.front().cut.rate, std::time(nullptr), tracks)};
}
