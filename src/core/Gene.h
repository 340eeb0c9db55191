#pragma once
#include "core/BodyIO.h"

#include <QString>

class Session;
class GeneView;

// A gene of the open genome. Every kind carries the same header and answers to the same
// six operations; a kind only describes its body (Body) and its defaults (constructor).
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

protected:
    // The body in file order, read or written.
    virtual void Body(BodyIO &io) = 0;
    void PutGeneHeader();
};

// The sixteen kinds of gene.
struct GeneKindInfo
{
    quint8 type;
    quint8 subType;
    const char *className;   // clsBrainLobe
    const char *factoryName; // "Brain Lobe": the word CreateGene uses
    int bodyBytes;
};

namespace GeneKinds {
constexpr int TypeCount = 4;
constexpr int SubTypeCount[TypeCount] = {2, 5, 8, 1};
const GeneKindInfo *Find(int type, int subType);
const GeneKindInfo &At(int index); // 0..15 in table order
constexpr int Count = 16;
// A fresh object of the kind with its defaults, or nullptr for an unknown pair.
Gene *Make(Session &session, int type, int subType);
}

bool IsValidGeneKind(quint8 type, quint8 subType);
// A typed text tidied to a whole number from 0 to 255, in decimal.
QString ClampByteText(const QString &text);
