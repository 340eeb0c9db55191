// Feeds arbitrary bytes to the genome reader as a file of the current format ("dna2").
#include "GenomeFuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static GenomeFuzz::Run run("0");
    run.Input(data, size);
    return 0;
}
