#include "apps/common/panel_list.h"

#include <fstream>
#include <iomanip>
#include <sstream>

#include "apps/common/tool.h"

Widget FindWidget(const std::string& name) {
    std::ifstream list(PANEL_LIST);
    for (std::string line; std::getline(list, line);) {
        std::istringstream fields(line);
        Widget found;
        int red, green, blue;
        std::string state, label, icon, hint;
        fields >> found.x >> found.y >> found.w >> found.h >> red >> green >> blue >> state;
        fields >> std::quoted(label) >> std::quoted(icon) >> std::quoted(hint);
        if (!fields || (name != label && name != icon && name != hint)) continue;
        fields >> found.value >> found.lowest >> found.highest;
        return found;
    }
    Expect(false, "data/painel.txt nao tem " + name);
    return {};
}
