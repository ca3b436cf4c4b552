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

    void Build();     // replaces the window's menu
    void NameUndo();  // tells what would be undone and redone
    // Keys that are commands, wherever the program has the focus. True when the message was one.
    bool TakeKey(MSG& message);
    void Run(int number);  // the chosen entry's

  private:
    StudioWindow& studio_;
    HACCEL keys_ = nullptr;
};
