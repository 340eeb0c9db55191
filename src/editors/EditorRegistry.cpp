#include "editors/EditorRegistry.h"

#include "core/Gene.h"
#include "core/Session.h"
#include "core/genes/BrainLobe.h"
#include "editors/GeneEditor.h"
#include "editors/frmBrainLobe.h"
#include "editors/frmHalfLives.h"
#include "editors/frmInject.h"
#include "editors/frmReaction.h"

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
    /* BrainOrgan  */ nullptr,
    /* Receptor    */ nullptr,
    /* Emitter     */ nullptr,
    /* Reaction    */ Make<frmReaction, clsReaction>,
    /* HalfLives   */ Make<frmHalfLives, clsHalfLives>,
    /* Inject      */ Make<frmInject, clsInject>,
    /* Stimulus    */ nullptr,
    /* Species     */ nullptr,
    /* Appearance  */ nullptr,
    /* Pose        */ nullptr,
    /* Gait        */ nullptr,
    /* Instinct    */ nullptr,
    /* Colour      */ nullptr,
    /* ColourBleed */ nullptr,
    /* Organ       */ nullptr,
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
