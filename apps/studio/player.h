// apps/studio/player.h
// Sound through the system's wave output. Without a device all is silent. The player keeps no time of its own.
#pragma once
#include <array>
#include <memory>

#include "simhost/project.h"

class Player {
  public:
    Player();
    ~Player();
    // Plays from that time of the project on, and drops what was mixed before.
    void Start(double time);
    void Stop();
    void Feed(const simhost::Project& project);  // several times a second; mixes what will be heard next

  private:
    struct Output;
    std::unique_ptr<Output> output_;  // null: there is no device, or nothing plays
    double next_ = 0;                 // the time up to which sound was handed over
};
