#include "lice/pixel.h"
