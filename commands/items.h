// commands/items.h
// What the edit commands share: running a numbered action, and small helpers on items. An item's end is always its
// position plus its length, in seconds.
#pragma once
#include <vector>

#include "host/api.h"

// The first so many selected items, in the host's order, so that the selection can change under the caller; quantos is
// what CountSelectedMediaItems gave. What the host does not give is left out, so the list never holds null.
std::vector<MediaItem*> CopiarSelecao(int quantos);

// Sorts by D_POSITION, ascending. Each comparison asks the host, so nothing is held; items with the same position keep
// no defined order.
void OrdenarPorPosicao(std::vector<MediaItem*>& itens);
