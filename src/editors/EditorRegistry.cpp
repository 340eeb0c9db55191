#include "editors/EditorRegistry.h"

#include "core/Gene.h"
#include "core/Session.h"
#include "core/genes/BrainLobe.h"
#include "editors/GeneEditor.h"
#include "editors/frmBrainLobe.h"

GeneEditor *MakeGeneEditor(Session &session, Gene &gene, QWidget *mainWindow)
{
    if (gene.GeneType == 0 && gene.GeneSubType == 0)
        return new frmBrainLobe(session, static_cast<clsBrainLobe &>(gene), mainWindow);
    // Kinds whose own dialogs are not built yet: header panel and standard buttons.
    return new BareGeneEditor(session, gene, mainWindow);
}

void RegisterEditors(Session &session, QWidget *mainWindow)
{
    session.EditorFactory = [&session, mainWindow](Gene &gene) -> GeneView * {
        return MakeGeneEditor(session, gene, mainWindow);
    };
}
