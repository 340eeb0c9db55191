#include "editors/EditorRegistry.h"

#include "core/Gene.h"
#include "core/Session.h"
#include "core/genes/BrainLobe.h"
#include "editors/GeneEditor.h"
#include "editors/frmBorgan.h"
#include "editors/frmBrainLobe.h"
#include "editors/frmAppearance.h"
#include "editors/frmColour.h"
#include "editors/frmColourBleed.h"
#include "editors/frmEmitter.h"
#include "editors/frmGait.h"
#include "editors/frmHalfLives.h"
#include "editors/frmInject.h"
#include "editors/frmInstinct.h"
#include "editors/frmOrgan.h"
#include "editors/frmPose.h"
#include "editors/frmReaction.h"
#include "editors/frmReceptor.h"
#include "editors/frmSpecies.h"
#include "editors/frmStimulus.h"

namespace {

using Maker = GeneEditor *(*)(Session &, Gene &, QWidget *);

template <class Editor, class G> GeneEditor *Make(Session &session, Gene &gene, QWidget *mainWindow)
{
    return new Editor(session, static_cast<G &>(gene), mainWindow);
}

// The editor of each kind, in the order of the kind table. A kind without one of its own
// gets the header panel and the standard buttons under its own dialog name.
const Maker Makers[GeneKinds::Count] = {
    /* BrainLobe   */ Make<frmBrainLobe, clsBrainLobe>,
    /* BrainOrgan  */ Make<frmBorgan, clsBorgan>,
    /* Receptor    */ Make<frmReceptor, clsReceptor>,
    /* Emitter     */ Make<frmEmitter, clsEmitter>,
    /* Reaction    */ Make<frmReaction, clsReaction>,
    /* HalfLives   */ Make<frmHalfLives, clsHalfLives>,
    /* Inject      */ Make<frmInject, clsInject>,
    /* Stimulus    */ Make<frmStimulus, clsStimulus>,
    /* Species     */ Make<frmSpecies, clsSpecies>,
    /* Appearance  */ Make<frmAppearance, clsAppearance>,
    /* Pose        */ Make<frmPose, clsPose>,
    /* Gait        */ Make<frmGait, clsGait>,
    /* Instinct    */ Make<frmInstinct, clsInstinct>,
    /* Colour      */ Make<frmColour, clsColour>,
    /* ColourBleed */ Make<frmColourBleed, clsColourBleed>,
    /* Organ       */ Make<frmOrgan, clsOrgan>,
};

} // namespace

GeneEditor *MakeGeneEditor(Session &session, Gene &gene, QWidget *mainWindow)
{
    const GeneKindInfo *kind = GeneKinds::Find(gene.GeneType, gene.GeneSubType);
    if (!kind)
        return nullptr;
    if (const Maker make = Makers[GeneKinds::IndexOf(kind->kind)])
        return make(session, gene, mainWindow);
    return new BareGeneEditor(session, gene, mainWindow, kind->kind);
}

void RegisterEditors(Session &session, QWidget *mainWindow)
{
    session.EditorFactory = [&session, mainWindow](Gene &gene) -> GeneView * {
        return MakeGeneEditor(session, gene, mainWindow);
    };
}
