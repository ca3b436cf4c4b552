#include "simhost/undo.h"

#include <unordered_map>
#include <unordered_set>

#include "simhost/calls.h"

namespace simhost {

void Undo::Start() {
    base_ = host_.project;
    points_.clear();
    top_ = 0;
}

void Undo::Begin() {
    if (depth_++ == 0 && !base_) base_ = host_.project;
}

void Undo::End(const std::string& title) {
    if (depth_ == 0) return host_.Violate("no undo block is open to be closed as \"" + title + '"');
    if (--depth_ > 0) return;
    host_.project.tracks.Sort();
    points_.resize(top_);
    points_.push_back({title, host_.project});
    while (points_.size() > static_cast<size_t>(host_.preferences.undoPoints)) {
        base_ = std::move(points_.front().after);
        points_.pop_front();
    }
    top_ = points_.size();
}

bool Undo::Back() {
    if (depth_ > 0) host_.Violate("undo while an undo block is open");
    if (top_ == 0 || depth_ > 0) return false;
    --top_;
    Restore(top_ == 0 ? *base_ : points_[top_ - 1].after);
    return true;
}

bool Undo::Redo() {
    if (top_ == points_.size() || depth_ > 0) return false;
    Restore(points_[top_++].after);
    return true;
}

// Items come back under new handles; a track that was there before keeps its own.
void Undo::Restore(const Project& to) {
    Project& project = host_.project;
    TrackList tracks = to.tracks;
    std::unordered_map<uint64_t, Track*> before;
    for (int i = 0; i < project.tracks.Count(); ++i) before[project.tracks.At(i)->guid] = project.tracks.At(i);
    for (int i = 0; i < tracks.Count(); ++i)
        if (const auto old = before.find(tracks.At(i)->guid); old != before.end())
            tracks.At(i)->identity.Inherit(old->second->identity, tracks.At(i));
    if (!host_.preferences.undoRestoresSelection) {
        std::unordered_set<uint64_t> selected;
        for (const Item* item : project.tracks.Selected()) selected.insert(item->guid);
        for (Item* item : tracks.Items()) tracks.Select(*item, selected.contains(item->guid));
    }
    project.tracks = std::move(tracks);
    project.markers = to.markers;
}

const char* Undo::Title() const { return top_ > 0 ? points_[top_ - 1].title.c_str() : nullptr; }

const char* Undo::RedoTitle() const { return top_ < points_.size() ? points_[top_].title.c_str() : nullptr; }

std::vector<std::string> Undo::Titles() const {
    std::vector<std::string> history;
    for (size_t i = 0; i < top_; ++i) history.push_back(points_[i].title);
    return history;
}

void api::Undo_BeginBlock2(ReaProject* project) {
    if (Host* host = Host::Know(project)) host->undo.Begin();
}

void api::Undo_EndBlock2(ReaProject* project, const char* title, int flags) {
    Host& host = Host::Current();
    if (!title || !*title) host.Violate("an undo block without a title");
    if (flags != -1) host.Violate("an undo block that holds only some of the changes");
    if (host.Know(project)) host.undo.End(title ? title : "");
}

const char* api::Undo_CanUndo2(ReaProject* project) {
    return Of(project, [](Host& host) { return host.undo.Title(); });
}

int api::Undo_DoUndo2(ReaProject* project) {
    return Of(project, [](Host& host) { return host.undo.Back(); });
}

void api::PreventUIRefresh(int delta) {
    Host& host = Host::Current();
    host.screen.heldOff += delta;
    if (host.screen.heldOff < 0) host.Violate("the refresh is released more often than it was held off");
}

void api::UpdateArrange() { Host::Current().project.tracks.Sort(); }

// Nothing here is drawn before someone asks for a picture.
void api::UpdateTimeline() {}
void api::TrackList_AdjustWindows(bool) {}

}  // namespace simhost
