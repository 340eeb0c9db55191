#pragma once
#include <QByteArray>
#include <QtGlobal>
#include <array>

// The byte form of a genome: one fixed block, never reallocated, never cleared between
// genomes. Every gene field is read through GetGenomeByte, which folds an out-of-range
// byte into range and counts it, and written through PutGenomeByte.
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

    void PutGenomeByte(quint8 value);
    void PutGenomeToken(const QByteArray &token);
    quint8 GetGenomeByte(int lo, int hi);
    QByteArray GetGenomeToken();
    // Scans for the next "gene" or "gend" from four bytes before start; "FAULT" if none.
    QByteArray ResyncGenome(int start);
};
