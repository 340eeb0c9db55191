#include "core/GeneKind.h"

namespace {

using namespace GeneKinds;

constexpr GeneKindInfo KindTable[Count] = {
    {GeneKind::BrainLobe, 0, 0, "clsBrainLobe", "Brain Lobe", 196, "frmBrainLobe", HelpBrainLobe, false},
    {GeneKind::BrainOrgan, 0, 1, "clsBorgan", "Brain Organ", 5, "frmBorgan", HelpOrgan, false},
    {GeneKind::Receptor, 1, 0, "clsReceptor", "Receptor", 8, "frmReceptor", HelpEditors, true},
    {GeneKind::Emitter, 1, 1, "clsEmitter", "Emitter", 8, "frmEmitter", HelpEditors, true},
    {GeneKind::Reaction, 1, 2, "clsReaction", "Reaction", 9, "frmReaction", HelpEditors, true},
    {GeneKind::HalfLives, 1, 3, "clsHalfLives", "Half-lives", 256, "frmHalfLives", HelpEditors, false},
    {GeneKind::Inject, 1, 4, "clsInject", "Initial Concentration", 2, "frmInject", HelpEditors, false},
    {GeneKind::Stimulus, 2, 0, "clsStimulus", "Stimulus", 13, "frmStimulus", HelpEditors, false},
    {GeneKind::Species, 2, 1, "clsSpecies", "Genus", 9, "frmSpecies", HelpEditors, false},
    {GeneKind::Appearance, 2, 2, "clsAppearance", "Appearance", 3, "frmAppearance", HelpEditors, false},
    {GeneKind::Pose, 2, 3, "clsPose", "Pose", 16, "frmPose", HelpEditors, false},
    {GeneKind::Gait, 2, 4, "clsGait", "Gait", 9, "frmGait", HelpEditors, false},
    {GeneKind::Instinct, 2, 5, "clsInstinct", "Instinct", 9, "frmInstinct", HelpInstinct, false},
    {GeneKind::Colour, 2, 6, "clsColour", "Pigment", 2, "frmColour", HelpEditors, false},
    {GeneKind::ColourBleed, 2, 7, "clsColourBleed", "Pigment Bleed", 2, "frmColourBleed", HelpEditors, false},
    {GeneKind::Organ, 3, 0, "clsOrgan", "Organ", 5, "frmOrgan", HelpOrgan, false},
};

// The table is in enum order, so a kind is its own row.
constexpr bool InEnumOrder()
{
    for (int i = 0; i < Count; ++i)
        if (int(KindTable[i].kind) != i)
            return false;
    return true;
}
static_assert(InEnumOrder(), "the kind table must follow the order of GeneKind");

// Row of the first subtype of each type: the rows of a type follow each other by subtype.
constexpr int FirstOfType[TypeCount] = {0, 2, 7, 15};

constexpr bool InTypeOrder()
{
    for (int type = 0; type < TypeCount; ++type)
        for (int sub = 0; sub < SubTypeCount[type]; ++sub) {
            const GeneKindInfo &k = KindTable[FirstOfType[type] + sub];
            if (k.type != type || k.subType != sub)
                return false;
        }
    return FirstOfType[TypeCount - 1] + SubTypeCount[TypeCount - 1] == Count;
}
static_assert(InTypeOrder(), "the kind table must run by type, then subtype");

} // namespace

namespace GeneKinds {

const GeneKindInfo &Of(GeneKind kind) { return KindTable[int(kind)]; }

const GeneKindInfo *Find(int type, int subType)
{
    if (type < 0 || type >= TypeCount || subType < 0 || subType >= SubTypeCount[type])
        return nullptr;
    return &KindTable[FirstOfType[type] + subType];
}

const GeneKindInfo &At(int index) { return KindTable[qBound(0, index, Count - 1)]; }

} // namespace GeneKinds

bool IsValidGeneKind(quint8 type, quint8 subType)
{
    return type < GeneKinds::TypeCount && subType < GeneKinds::SubTypeCount[type];
}
