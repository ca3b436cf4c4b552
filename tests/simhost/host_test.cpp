#include "tests/support/scene.h"

namespace {
class StandIn : public Cena {};
}  // namespace

TEST_F(StandIn, Smoke) {
    Faixa("Voz", {{"C", 20, 24}, {"A", 2, 6}});
    EXPECT_EQ(Retrato(), "Voz: A 2-6 | C 20-24");
}
