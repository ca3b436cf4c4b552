#include "commands/items.h"

#include <algorithm>

std::vector<MediaItem*> CopiarSelecao(int quantos) {
    std::vector<MediaItem*> itens;
    for (int i = 0; i < quantos; ++i)
        if (MediaItem* item = host::GetSelectedMediaItem(nullptr, i)) itens.push_back(item);
    return itens;
}

void OrdenarPorPosicao(std::vector<MediaItem*>& itens) {
    const auto antes = [](MediaItem* a, MediaItem* b) {
        return host::GetMediaItemInfo_Value(a, "D_POSITION") < host::GetMediaItemInfo_Value(b, "D_POSITION");
    };
    // A heap sort, because its steps stay inside the list whatever the comparison says: positions that are not numbers,
    // or a host that answers differently the second time, give a bad order here and out-of-bounds walks elsewhere.
    std::make_heap(itens.begin(), itens.end(), antes);
    std::sort_heap(itens.begin(), itens.end(), antes);
}
