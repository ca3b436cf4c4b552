#include "apps/passeio/user.h"

#include <algorithm>
#include <cstdlib>

#include "simhost/native/png_file.h"

constexpr int MomentMs = 60, SettleMs = 300;  // the latter is more than a tick of the panel's clock

void User::PointAt(Place place) {
    POINT at{place.x, place.y};
    ClientToScreen(panel_, &at);
    desktop::MoveMouse(at.x, at.y);
    desktop::AdvanceClock(SettleMs);
}

void User::Click(Place place) {
    PointAt(place);
    desktop::Press(desktop::Button::Left);
    desktop::AdvanceClock(MomentMs);
    desktop::Release(desktop::Button::Left);
    desktop::AdvanceClock(SettleMs);
}

void User::Drag(Place from, Place to) {
    constexpr int steps = 8;
    PointAt(from);
    desktop::Press(desktop::Button::Left);
    for (int i = 1; i <= steps; ++i)
        PointAt({from.x + (to.x - from.x) * i / steps, from.y + (to.y - from.y) * i / steps});
    desktop::Release(desktop::Button::Left);
    desktop::AdvanceClock(SettleMs);
}

void User::CloseWindow() {
    PostMessageA(panel_, WM_CLOSE, 0, 0);
    desktop::Pump();
}

bool User::Photograph(const std::string& pngPath) const {
    const desktop::Picture picture = Look();
    LICE_MemBitmap bitmap(picture.width, picture.height);
    for (int y = 0; y < picture.height; ++y)
        std::copy_n(picture.pixels.data() + static_cast<size_t>(y) * picture.width, picture.width,
                    bitmap.getBits() + static_cast<ptrdiff_t>(y) * bitmap.getRowSpan());
    return simhost::WritePng(pngPath, &bitmap);
}
