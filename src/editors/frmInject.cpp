#include "editors/frmInject.h"

#include "editors/ChemistryControls.h"
#include "editors/EditorCommon.h"
#include "widgets/FormBuilder.h"

#include <QGridLayout>
#include <QGroupBox>

using namespace Form;
using G = clsInject;

frmInject::frmInject(Session &s, clsInject &inject, QWidget *mainWin)
    : KindEditor(s, inject, mainWin, GeneKind::Inject)
{
    FrameGrid info(this, QStringLiteral("Chemical Information"));
    lstChem = MakeChemicalCombo(session, info.frame, QStringLiteral("lstChem"));
    scrConc = MakeSlider(session, QStringLiteral("scrConc"), 0, 255, 16, true, info.frame);
    info.row(QStringLiteral("Chemical:"), lstChem);
    info.row(QStringLiteral("Concentration:"), scrConc);
    UseStandardLayout(info.frame);

    Bind.Combo(lstChem, Of(&G::Chem), ComboMap::IndexKeepingUnshown());
    Bind.Slider(scrConc, Of(&G::Conc));
}

void frmInject::LoadEditor() { LoadChemicalCombo(session, lstChem); }
