#pragma once
#include "core/BodyIO.h"
#include "core/GeneKind.h"
#include "vocab/ReferenceTables.h"

#include <QString>
#include <memory>

class Session;
class GeneView;

// A gene of the open genome. Every kind carries the same header and answers to the same
// six operations; a kind only describes its body (a template Body over the walkers of
// BodyIO.h, turned into the walks below by GeneBody) and its defaults (constructor).
class Gene
{
public:
    Gene(Session &session, quint8 type, quint8 subType);
    virtual ~Gene();
    Gene(const Gene &) = delete;
    Gene &operator=(const Gene &) = delete;

    Session &session;

    // Not in the file.
    qint16 Numeric_ID = 0;
    bool WriteChanges = false;
    GeneView *View = nullptr;
    bool IsOpen = false;

    // The header, in file order after the "gene" token.
    quint8 GeneType = 0;
    quint8 GeneSubType = 0;
    quint8 ID = 0;
    quint8 Generation = 0;
    quint8 SwitchOn = 0;
    quint8 Mutability = 0;
    quint8 MutabilityWeighting = 0;

    // Image -> members (header already read).
    virtual void SetMembers();
    // Members -> image: open editor first, then header and body.
    virtual void GetMembers();
    void OpenView();
    void CloseView();
    void SetControls();
    virtual void GetControls();

    // Body length in the current format.
    int BodyLength() const;
    // Whether the header names the kind (its type and subtype).
    bool Is(GeneKind kind) const
    {
        const GeneKindInfo &k = GeneKinds::Of(kind);
        return GeneType == k.type && GeneSubType == k.subType;
    }

    // The header behind the "gene" token, in file order: the kind, ID, Generation, SwitchOn,
    // Mutability, MutabilityWeighting. A reader has taken the kind already (it chose the
    // class); it reads ID and Generation as the gene is created (Identity) and the rest
    // just before the body (Rest). A writer writes it all, token included.
    enum class HeaderFields { Identity, Rest, All };
    template <class IO> void Header(IO &io, HeaderFields fields = HeaderFields::All);

    // The gene's whole record, token, header and body in the current format, written at the
    // image's WriteCursor as the gene stands (an open editor is not asked); and read back
    // from just behind the token and kind at its ReadCursor, folded as a load folds. Genes
    // travel between genomes this way without touching either session's own image.
    virtual void WriteRecord(GenomeImage &image) = 0;
    void ReadRecord(GenomeImage &image);

protected:
    // The body alone, read from the image at its ReadCursor in the layout given.
    virtual void ReadBody(GenomeImage &image, BodyFormat format) = 0;
};

// The base of every kind: gives the two walks from the kind's Body template, so each kind
// lists its fields once. Its members are defined in GeneBody.h, which a kind's .cpp
// includes and instantiates (template class GeneBody<kind>;) once Body is defined there.
template <class Kind> class GeneBody : public Gene
{
public:
    using Gene::Gene;
    void WriteRecord(GenomeImage &image) override;

protected:
    void ReadBody(GenomeImage &image, BodyFormat format) override;
};

// Always inlined into the walk that calls it, so that the walker stays out of memory.
template <class IO> Q_ALWAYS_INLINE void Gene::Header(IO &io, HeaderFields fields)
{
    if constexpr (!IO::reading) {
        io.Token("gene");
        io.Byte(GeneType);
        io.Byte(GeneSubType);
    }
    if (fields != HeaderFields::Rest) {
        io.Byte(ID);
        io.Byte(Generation);
    }
    if (fields == HeaderFields::Identity)
        return;
    io.Byte(SwitchOn, 0, ReferenceTables::LifeStageCount - 1);
    io.Byte(Mutability);
    // Genes of the older format carry no weighting: they get the middle of the range.
    if (io.reading && io.olderFormat)
        MutabilityWeighting = 128;
    else
        io.Byte(MutabilityWeighting);
    // Bits 6 and 7 of the flags mean nothing and are dropped on load.
    if (io.reading)
        Mutability &= 63;
}

// A fresh object of the kind with its defaults.
std::unique_ptr<Gene> MakeGene(Session &session, GeneKind kind);
// The same by (type, subtype); nullptr for a pair that names no kind.
std::unique_ptr<Gene> MakeGene(Session &session, int type, int subType);

// A typed text tidied to a whole number from 0 to 255, in decimal.
QString ClampByteText(const QString &text);
