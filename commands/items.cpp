#include "commands/items.h"

#include <algorithm>

void OrdenarPorPosicao(std::vector<MediaItem*>& itens) {
    const auto antes = [](MediaItem* a, MediaItem* b) {
        return host::GetMediaItemInfo_Value(a, "D_POSITION") < host::GetMediaItemInfo_Value(b, "D_POSITION");
    };
    // A heap sort, because its steps stay inside the list whatever the comparison says: positions that are not numbers,
    // or a host that answers differently the second time, give a bad order here and out-of-bounds walks elsewhere.
    std::make_heap(itens.begin(), itens.end(), antes);
    std::sort_heap(itens.begin(), itens.end(), antes);
}
