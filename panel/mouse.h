// panel/mouse.h
// The mouse as the panel sees it: written by the window's messages, read by every widget of every pass.
#pragma once
#include <cstdint>

struct EstadoMouse {
    int32_t x = -1, y = -1;  // where it last moved, in client pixels; also outside the client area while captured
    bool esquerdoSeguro = false, direitoSeguro = false;            // the button is down
    bool esquerdoSeguroAntes = false, direitoSeguroAntes = false;  // it was, at the pass before
    bool esquerdoApertou = false, direitoApertou = false;          // it went down since then: a click; for one pass
};
