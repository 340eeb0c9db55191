#pragma once
#include <QtGlobal>

// The sixteen kinds of gene, in the order of the kind table (by type, then subtype).
enum class GeneKind : quint8 {
    BrainLobe,
    BrainOrgan,
    Receptor,
    Emitter,
    Reaction,
    HalfLives,
    Inject,
    Stimulus,
    Species,
    Appearance,
    Pose,
    Gait,
    Instinct,
    Colour,
    ColourBleed,
    Organ,
};

// Everything the program knows of a kind, in one row.
struct GeneKindInfo
{
    GeneKind kind;
    quint8 type;
    quint8 subType;
    const char *className;   // "clsBrainLobe"
    const char *factoryName; // "Brain Lobe": the word CreateGene uses
    int bodyBytes;           // body length in the current format
    const char *dialogName;  // "frmBrainLobe": the object name of the kind's editor
    int helpContext;         // the F1 topic of that editor
    bool showsOrgan;         // the editor shows the organ the gene belongs to
};

namespace GeneKinds {
constexpr int Count = 16;
constexpr int TypeCount = 4;
constexpr int SubTypeCount[TypeCount] = {2, 5, 8, 1};

// F1 topics of the editors.
constexpr int HelpEditors = 2000, HelpBrainLobe = 2001, HelpInstinct = 2002, HelpOrgan = 2003,
              HelpStateRule = 3002;

const GeneKindInfo &Of(GeneKind kind);
// The row of a (type, subtype) pair, or nullptr when no kind has it.
const GeneKindInfo *Find(int type, int subType);
// Row 0..15 in table order.
const GeneKindInfo &At(int index);
inline int IndexOf(GeneKind kind) { return int(kind); }
} // namespace GeneKinds

// A (type, subtype) pair that names one of the sixteen kinds.
bool IsValidGeneKind(quint8 type, quint8 subType);
