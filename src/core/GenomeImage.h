#pragma once
#include <QByteArray>
#include <QtGlobal>
#include <array>
#include <cstring>
#include <optional>

// Four characters of the image read as one token ("dna2", "gene", "gend" or whatever stood
// there), held by value so that walking a genome allocates nothing for its tokens.
class GenomeToken
{
public:
    std::array<char, 4> chars{};

    bool operator==(const char (&text)[5]) const { return std::memcmp(chars.data(), text, 4) == 0; }
    bool operator!=(const char (&text)[5]) const { return !(*this == text); }
    QByteArray Text() const { return QByteArray(chars.data(), 4); }
};

// The byte form of a genome: one fixed block, never reallocated, never cleared between
// genomes. Every gene field is read through GetGenomeByte, which folds an out-of-range
// byte into range and counts it, and written through PutGenomeByte. Both run once for
// every byte of every genome, so they live here, inline.
class GenomeImage
{
public:
    static constexpr int Size = 36001;        // bytes in the block and in every file written
    static constexpr int ReadLimit = 36000;   // first index the reader refuses
    static constexpr int ResyncLimit = 35996; // the resync scan stops before this index
    static constexpr int PickleLimit = 34976; // an encode above this asks "Now we're pickled"

    std::array<quint8, Size> Bytes{};
    qint32 WriteCursor = 0;
    qint32 ReadCursor = 0;
    qint16 CorrectedErrors = 0;
    // Bytes that PutGenomeByte refused because the block was full.
    qint32 RefusedWrites = 0;

    void PutGenomeByte(quint8 value)
    {
        // Writing past the block has no meaning in the format: refuse and count instead.
        if (Q_UNLIKELY(quint32(WriteCursor) >= quint32(Size))) {
            ++RefusedWrites;
            return;
        }
        Bytes[size_t(WriteCursor)] = value;
        ++WriteCursor;
    }
    void PutGenomeToken(const char (&token)[5])
    {
        for (int i = 0; i < 4; ++i)
            PutGenomeByte(quint8(token[i]));
    }
    void PutGenomeToken(const QByteArray &token)
    {
        for (char c : token)
            PutGenomeByte(quint8(c));
    }

    // A byte in lo..hi (lo not above hi). One outside is folded by modulo, not clamped, and
    // counted. At or past ReadLimit the reader gives 0 and stays where it is.
    quint8 GetGenomeByte(int lo, int hi)
    {
        if (Q_UNLIKELY(quint32(ReadCursor) >= quint32(ReadLimit)))
            return 0;
        const int b = Bytes[size_t(ReadCursor)];
        ++ReadCursor;
        if (Q_LIKELY(b >= lo && b <= hi))
            return quint8(b);
        return Fold(b, lo, hi);
    }
    GenomeToken GetGenomeToken()
    {
        GenomeToken token;
        for (char &c : token.chars)
            c = char(GetGenomeByte(0, 255));
        return token;
    }
    // Scans for the next "gene" or "gend" from four bytes before start and reads it;
    // nothing (the fault) if the scan reaches its limit, with the cursor back at start.
    std::optional<GenomeToken> ResyncGenome(int start);

private:
    quint8 Fold(int b, int lo, int hi);
};
