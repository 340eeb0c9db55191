// Feeds arbitrary bytes to the genome reader as a file of the older format: no magic, no
// mutability weighting, 8-byte rules, four rules a dendrite type, a 2-byte appearance body.
#include "GenomeFuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static GenomeFuzz::Run run("1");
    run.Input(data, size);
    return 0;
}
