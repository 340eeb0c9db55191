#include "core/GenomeImage.h"

#include <cstring>

void GenomeImage::PutGenomeByte(quint8 value)
{
    // Writing past the block has no meaning in the format: refuse and count instead.
    if (WriteCursor < 0 || WriteCursor >= Size) {
        ++RefusedWrites;
        return;
    }
    Bytes[size_t(WriteCursor)] = value;
    ++WriteCursor;
}

void GenomeImage::PutGenomeToken(const QByteArray &token)
{
    for (char c : token)
        PutGenomeByte(quint8(c));
}

quint8 GenomeImage::GetGenomeByte(int lo, int hi)
{
    if (ReadCursor >= ReadLimit || ReadCursor < 0)
        return 0;
    const int b = Bytes[size_t(ReadCursor)];
    ++ReadCursor;
    if (b >= lo && b <= hi)
        return quint8(b);
    if (CorrectedErrors < 32767)
        ++CorrectedErrors;
    return quint8(b % (hi - lo + 1) + lo);
}

QByteArray GenomeImage::GetGenomeToken()
{
    QByteArray token(4, '\0');
    for (int i = 0; i < 4; ++i)
        token[i] = char(GetGenomeByte(0, 255));
    return token;
}

QByteArray GenomeImage::ResyncGenome(int start)
{
    ReadCursor = qMax(0, start - 4);
    while (ReadCursor < ResyncLimit) {
        const char *p = reinterpret_cast<const char *>(Bytes.data()) + ReadCursor;
        if (std::memcmp(p, "gend", 4) == 0 || std::memcmp(p, "gene", 4) == 0)
            return GetGenomeToken();
        ++ReadCursor;
    }
    ReadCursor = start;
    return QByteArrayLiteral("FAULT");
}
