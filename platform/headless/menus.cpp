// Popup menus, answered from a queue instead of by a user.
#include <algorithm>

#include "platform/headless/desktop_state.h"

namespace desktop {

void OnNextMenu(std::function<UINT()> user) { Desktop().answers.push_back(std::move(user)); }

const ShownMenu& LastMenu() { return Desktop().shown; }

}  // namespace desktop

using namespace desktop;

HMENU CreatePopupMenu() {
    const HMENU menu = NewHandle<HMENU>();
    Desktop().menus[menu];
    return menu;
}

BOOL AppendMenuA(HMENU handle, UINT flags, UINT_PTR id, const char* text) {
    const auto menu = Desktop().menus.find(handle);
    if (menu == Desktop().menus.end()) return false;
    if (flags & MF_SEPARATOR)
        menu->second.push_back({0, ""});
    else
        menu->second.push_back({static_cast<UINT>(id), text});
    return true;
}

// Gives the id that was chosen; only menus that return it are known here.
// The menu captures the mouse for its owner until it ends. The button that opened it is let go meanwhile.
BOOL TrackPopupMenu(HMENU handle, UINT flags, int x, int y, int, HWND owner, const RECT*) {
    State& state = Desktop();
    const auto menu = state.menus.find(handle);
    if (menu == state.menus.end() || !Find(owner)) return 0;
    if (!(flags & TPM_RETURNCMD)) Fail("a popup menu that does not return what was chosen");
    SetCapture(owner);
    state.shown = {menu->second, {x, y}, owner};
    state.keys[VK_LBUTTON] = state.keys[VK_RBUTTON] = false;
    UINT id = 0;
    if (!state.answers.empty()) {
        const auto user = std::move(state.answers.front());
        state.answers.pop_front();
        id = user();
    }
    ReleaseCapture();
    const bool known = std::any_of(state.shown.entries.begin(), state.shown.entries.end(),
                                   [id](const MenuEntry& each) { return each.id == id && !each.text.empty(); });
    if (id != 0 && !known) Fail("the menu that opened does not have the entry that was to be chosen");
    return static_cast<BOOL>(id);
}

BOOL DestroyMenu(HMENU menu) { return Desktop().menus.erase(menu) != 0; }
