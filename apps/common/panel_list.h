// apps/common/panel_list.h
// The panel's widgets, as data/painel.txt tells them; the module's tests hold that list to the panel itself.
#pragma once
#include <string>

struct Widget {
    int x, y, w, h;
    double value = 0, lowest = 0, highest = 0;  // of a slider
    int Bottom() const { return y + h; }
};

// The first that has this label, icon or tooltip. Throws when the list has none.
Widget FindWidget(const std::string& name);
