#include "host/entry.h"

#include <gtest/gtest.h>

TEST(Entrada, SomaDeTeste) {
    EXPECT_EQ(Quilmo_Teste(2.5, -1.0), 1.5);
}
