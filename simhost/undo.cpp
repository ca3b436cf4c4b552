// Undo by snapshots of the whole project. A point holds the project as its block left it; undoing goes back to what the
// point below holds. So an edit made outside any block belongs to the next point, and goes when that goes. A block that
// changed nothing makes a point too. A block within a block belongs to the outer one, whose title counts.
// Then the calls that refresh the screen.
#include <unordered_map>
#include <unordered_set>

#include "simhost/calls.h"

namespace simhost {

void Host::StartHistory() {
    base_ = project;
    points_.clear();
    top_ = 0;
}

void Host::BeginBlock() {
    if (blockDepth_++ == 0 && !base_) base_ = project;
}

void Host::EndBlock(const std::string& title) {
    if (blockDepth_ == 0) return Violate("no undo block is open to be closed as \"" + title + '"');
    if (--blockDepth_ > 0) return;
    project.tracks.Sort();
    points_.resize(top_);
    points_.push_back({title, project});
    while (points_.size() > static_cast<size_t>(preferences.undoPoints)) {
        base_ = std::move(points_.front().after);
        points_.pop_front();
    }
    top_ = points_.size();
}

bool Host::Undo() {
    if (blockDepth_ > 0) Violate("undo while an undo block is open");
    if (top_ == 0 || blockDepth_ > 0) return false;
    --top_;
    Restore(top_ == 0 ? *base_ : points_[top_ - 1].after);
    return true;
}

bool Host::Redo() {
    if (top_ == points_.size() || blockDepth_ > 0) return false;
    Restore(points_[top_++].after);
    return true;
}

// Items come back under new handles; a track that was there before keeps its own.
void Host::Restore(const Project& to) {
    TrackList tracks = to.tracks;
    std::unordered_map<uint64_t, Track*> before;
    for (int i = 0; i < project.tracks.Count(); ++i) before[project.tracks.At(i)->guid] = project.tracks.At(i);
    for (int i = 0; i < tracks.Count(); ++i)
        if (const auto old = before.find(tracks.At(i)->guid); old != before.end())
            tracks.At(i)->identity.Take(old->second->identity, tracks.At(i));
    if (!preferences.undoRestoresSelection) {
        std::unordered_set<uint64_t> selected;
        for (const Item* item : project.tracks.Selected()) selected.insert(item->guid);
        for (Item* item : tracks.Items()) tracks.Select(*item, selected.contains(item->guid));
    }
    project.tracks = std::move(tracks);
    project.markers = to.markers;
}

const char* Host::UndoTitle() const {
    return top_ > 0 ? points_[top_ - 1].title.c_str() : nullptr;
}

const char* Host::RedoTitle() const {
    return top_ < points_.size() ? points_[top_].title.c_str() : nullptr;
}

std::vector<std::string> Host::UndoHistory() const {
    std::vector<std::string> history;
    for (size_t i = 0; i < top_; ++i) history.push_back(points_[i].title);
    return history;
}

void api::Undo_BeginBlock2(ReaProject* project) {
    Host& host = Host::Current();
    if (host.Know(project)) host.BeginBlock();
}

void api::Undo_EndBlock2(ReaProject* project, const char* title, int flags) {
    Host& host = Host::Current();
    if (!title || !*title) host.Violate("an undo block without a title");
    if (flags != -1) host.Violate("an undo block that holds only some of the changes");
    if (host.Know(project)) host.EndBlock(title ? title : "");
}

const char* api::Undo_CanUndo2(ReaProject* project) {
    Host& host = Host::Current();
    return host.Know(project) ? host.UndoTitle() : nullptr;
}

int api::Undo_DoUndo2(ReaProject* project) {
    Host& host = Host::Current();
    return host.Know(project) && host.Undo();
}

void api::PreventUIRefresh(int delta) {
    Host& host = Host::Current();
    host.refreshHeldOff += delta;
    if (host.refreshHeldOff < 0) host.Violate("the refresh is released more often than it was held off");
}

void api::UpdateArrange() {
    Host::Current().project.tracks.Sort();
}

// Nothing here is drawn before someone asks for a picture.
void api::UpdateTimeline() {}
void api::TrackList_AdjustWindows(bool) {}

}  // namespace simhost
