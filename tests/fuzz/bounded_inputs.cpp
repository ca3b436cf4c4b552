// Runs a fuzz target over some pseudo-random inputs; scripts/fuzz.sh lets libFuzzer look for longer.
#include <cstdio>

#include "tests/lice/support.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);

TEST(Fuzz, PseudoRandomInputs) {
    Random random;
    std::printf("QUILMO_SEED=%u\n", random.seed);  // at once, since a fault ends the program
    std::fflush(stdout);
    for (int round = 0; round < FUZZ_INPUTS; ++round) {
        std::vector<uint8_t> input(random.In(0, 400));
        for (uint8_t& byte : input) byte = static_cast<uint8_t>(random.In(0, 255));
        LLVMFuzzerTestOneInput(input.data(), input.size());
    }
}
