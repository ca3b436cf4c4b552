// fatiar: slices recordings with the real module, loaded into the stand-in host.
#include <malloc.h>

#include <cstdio>

#include "apps/common/tool.h"
#include "apps/fatiar/batch.h"
#include "apps/fatiar/interrupt.h"

constexpr int Refused = 2, BySignal = 128;
constexpr int LargeBlock = 400 * 1024;  // bytes

int main(int argc, char** argv) {
    CatchInterrupts();
    mallopt(M_MMAP_THRESHOLD,
            LargeBlock);  // else the heap grows by each recording's aligned buffer, which it cannot reuse
    try {
        const Options options = ParseOptions({argv + 1, argv + argc});
        if (!options.help && !options.version) return Batch(options).Run();
        std::fputs(options.help ? HelpText : "fatiar " FATIAR_VERSION "\n", stdout);
        return 0;
    } catch (const Interrupted&) {
        return BySignal + InterruptedBy();
    } catch (const std::exception& why) {
        SayOnError(why.what());
        return Refused;
    }
}
