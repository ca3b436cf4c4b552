// platform/headless/activation.h
// Which window is in front, and who is told when that changes.
#pragma once
#include "platform/headless/desktop_state.h"

namespace desktop {

// Tells both sides, the one that loses first. Null: none of ours. `how` is WA_ACTIVE or WA_CLICKACTIVE.
void Activate(HWND window, WORD how);
void ActivateAnother(const Window& than);  // which has just left the screen
void ActivateOtherProgram();               // its window is none of ours

}  // namespace desktop
