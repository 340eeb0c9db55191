#pragma once
#include <QByteArray>
#include <QtGlobal>
#include <array>
#include <optional>

// Four characters of the image read as one token ("dna2", "gene", "gend" or whatever stood
// there), held by value as one number, first character lowest, so that walking a genome
// neither allocates for its tokens nor stores them a byte at a time.
class GenomeToken
{
public:
    constexpr GenomeToken() = default;
    constexpr GenomeToken(quint8 c0, quint8 c1, quint8 c2, quint8 c3)
        : code(quint32(c0) | quint32(c1) << 8 | quint32(c2) << 16 | quint32(c3) << 24)
    {
    }
    constexpr GenomeToken(const char (&text)[5])
        : GenomeToken(quint8(text[0]), quint8(text[1]), quint8(text[2]), quint8(text[3]))
    {
    }

    constexpr bool operator==(GenomeToken other) const { return code == other.code; }
    constexpr bool operator!=(GenomeToken other) const { return code != other.code; }
    // Character i, 0 to 3.
    constexpr char At(int i) const { return char(code >> (8 * i)); }
    QByteArray Text() const
    {
        const char chars[4] = {At(0), At(1), At(2), At(3)};
        return QByteArray(chars, 4);
    }

private:
    quint32 code = 0;
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

    void PutGenomeByte(quint8 value) { PutByte(Bytes.data(), WriteCursor, RefusedWrites, value); }
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
    quint8 GetGenomeByte(int lo, int hi) { return GetByte(Bytes.data(), ReadCursor, CorrectedErrors, lo, hi); }
    // Four bytes, the first read the first character.
    GenomeToken GetGenomeToken()
    {
        const quint8 c0 = GetGenomeByte(0, 255);
        const quint8 c1 = GetGenomeByte(0, 255);
        const quint8 c2 = GetGenomeByte(0, 255);
        const quint8 c3 = GetGenomeByte(0, 255);
        return GenomeToken(c0, c1, c2, c3);
    }
    // Scans for the next "gene" or "gend" from four bytes before start and reads it;
    // nothing (the fault) if the scan reaches its limit, with the cursor back at start.
    std::optional<GenomeToken> ResyncGenome(int start);

    // The two steps themselves, on the image's cursors and counts or on a walker's copies
    // of them (see BodyIO.h): a walker keeps its copies where a gene's own byte fields
    // cannot overwrite them, so a body is read or written without going back to memory
    // for the cursor after every field.
    static void PutByte(quint8 *bytes, qint32 &cursor, qint32 &refused, quint8 value)
    {
        // Writing past the block has no meaning in the format: refuse and count instead.
        if (Q_UNLIKELY(quint32(cursor) >= quint32(Size))) {
            ++refused;
            return;
        }
        bytes[cursor] = value;
        ++cursor;
    }
    static quint8 GetByte(const quint8 *bytes, qint32 &cursor, qint16 &corrected, int lo, int hi)
    {
        if (Q_UNLIKELY(quint32(cursor) >= quint32(ReadLimit)))
            return 0;
        const int b = bytes[cursor];
        ++cursor;
        if (Q_LIKELY(b >= lo && b <= hi))
            return quint8(b);
        if (corrected < 32767)
            ++corrected;
        return quint8(b % (hi - lo + 1) + lo);
    }
};
