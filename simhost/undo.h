// simhost/undo.h
// Undo by snapshots of the whole project. A point holds the project as its block left it; undoing goes back to what the
// point below holds. So an edit made outside any block belongs to the next point, and goes when that goes. A block that
// changed nothing makes a point too. A block within a block belongs to the outer one, whose title counts.
#pragma once
#include <deque>
#include <optional>

#include "simhost/project.h"

namespace simhost {

class Host;

class Undo {
  public:
    explicit Undo(Host& host) : host_(host) {}

    // Forgets all points; the project as it stands is what the first undo will give back. Without it, that is the
    // project as it stood when the first block was opened.
    void Start();
    void Begin();
    void End(const std::string& title);
    void Drop() { --depth_; }  // ends the block without a point
    bool Open() const { return depth_ > 0; }

    bool Back();
    bool Redo();
    const char* Title() const;  // of the topmost point, or null
    const char* RedoTitle() const;
    std::vector<std::string> Titles() const;  // oldest first, up to the topmost

  private:
    struct Point {
        std::string title;
        Project after;
    };
    void Restore(const Project& to);

    Host& host_;
    int depth_ = 0;
    std::optional<Project> base_;  // below the first point; none before the first block
    std::deque<Point> points_;
    size_t top_ = 0;  // points_[0..top_) can be undone, the rest redone
};

}  // namespace simhost
