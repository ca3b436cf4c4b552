// apps/studio/menus.h
// The menu bar and its keys: the studio's commands, and a menu of the actions that extensions registered.
#pragma once
#include "platform/win32.h"

class StudioWindow;

class Menus {
  public:
    explicit Menus(StudioWindow& studio) : studio_(studio) {}
    ~Menus() { DestroyAcceleratorTable(keys_); }
    Menus(const Menus&) = delete;
    Menus& operator=(const Menus&) = delete;

    void Build();     // in the window, in place of what was there
    void NameUndo();  // what would be undone and redone
    // Keys that are commands, wherever the program has the focus. True when the message was one.
    bool TakeKey(MSG& message);
    void Run(int number);  // of the entry that was chosen

  private:
    StudioWindow& studio_;
    HACCEL keys_ = nullptr;
};
