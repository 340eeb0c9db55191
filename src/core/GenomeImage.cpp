#include "core/GenomeImage.h"

std::optional<GenomeToken> GenomeImage::ResyncGenome(int start)
{
    ReadCursor = qMax(0, start - 4);
    while (ReadCursor < ResyncLimit) {
        const quint8 *p = Bytes.data() + ReadCursor;
        const GenomeToken here(p[0], p[1], p[2], p[3]);
        if (here == "gend" || here == "gene")
            return GetGenomeToken();
        ++ReadCursor;
    }
    ReadCursor = start;
    return std::nullopt;
}
