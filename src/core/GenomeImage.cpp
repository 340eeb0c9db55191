#include "core/GenomeImage.h"

#include <cstring>

std::optional<GenomeToken> GenomeImage::ResyncGenome(int start)
{
    // Byte by byte from four bytes before start; only a 'g' can begin a token, so the scan
    // jumps from one 'g' to the next.
    const quint8 *const bytes = Bytes.data();
    int at = qMax(0, start - 4);
    while (at < ResyncLimit) {
        const void *g = std::memchr(bytes + at, 'g', size_t(ResyncLimit - at));
        if (!g)
            break;
        at = int(static_cast<const quint8 *>(g) - bytes);
        const GenomeToken here(bytes[at], bytes[at + 1], bytes[at + 2], bytes[at + 3]);
        if (here == "gend" || here == "gene") {
            ReadCursor = at;
            return GetGenomeToken();
        }
        ++at;
    }
    ReadCursor = start;
    return std::nullopt;
}
