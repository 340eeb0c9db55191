#include "core/GenomeImage.h"

quint8 GenomeImage::Fold(int b, int lo, int hi)
{
    if (CorrectedErrors < 32767)
        ++CorrectedErrors;
    return quint8(b % (hi - lo + 1) + lo);
}

std::optional<GenomeToken> GenomeImage::ResyncGenome(int start)
{
    ReadCursor = qMax(0, start - 4);
    while (ReadCursor < ResyncLimit) {
        const char *p = reinterpret_cast<const char *>(Bytes.data()) + ReadCursor;
        if (std::memcmp(p, "gend", 4) == 0 || std::memcmp(p, "gene", 4) == 0)
            return GetGenomeToken();
        ++ReadCursor;
    }
    ReadCursor = start;
    return std::nullopt;
}
