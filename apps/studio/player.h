// apps/studio/player.h
// Sound through the system's wave output. Without a device there is silence and nothing else changes: time is not the
// player's matter.
#pragma once
#include <array>
#include <memory>

#include "simhost/project.h"

class Player {
  public:
    Player();
    ~Player();
    // From that time of the project on, forgetting what was about to be heard.
    void Start(double time);
    void Stop();
    void Feed(const simhost::Project& project);  // several times a second; mixes what will be heard next

  private:
    struct Output;
    std::unique_ptr<Output> output_;  // null: there is no device, or nothing plays
    double next_ = 0;                 // the time up to which sound was handed over
};
