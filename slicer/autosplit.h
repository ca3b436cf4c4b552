// slicer/autosplit.h
// The slicer's one operation on the project: it cuts the silence out of the selected items and, if asked, moves what is
// left together.
#pragma once
#include "platform/export.h"

// A block of 0 ms or less counts as 55. Leaves one undo point, TituloDoPreview. False, with nothing done, when no item
// is selected, which it says in a message, or while the host is not imported: scripts call this as well. False also
// when memory ran out; what was cut by then stays under the undo point.
MODULE_EXPORT bool Quilmo_AutoSplit(bool fecharLacunas, int blocoMs, double thresholdDb);
