#include "host/entry.h"

bool Quilmo_AutoSplit(bool, int, double) {
    return false;
}
