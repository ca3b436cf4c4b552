// apps/fatiar/interrupt.h
// Ctrl+C and its kin end a run between two blocks of sound: all that was begun is taken away on the way out.
#pragma once

struct Interrupted {};  // thrown; holds nothing, as the signal is asked of InterruptedBy

void CatchInterrupts();  // once, at the start
int InterruptedBy();     // the signal's number; 0: none came
void ThrowWhenInterrupted();
