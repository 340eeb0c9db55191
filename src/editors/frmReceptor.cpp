#include "editors/frmReceptor.h"

#include "editors/AttachmentCombos.h"
#include "editors/EditorCommon.h"
#include "widgets/FormBuilder.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QGroupBox>
#include <QScrollBar>

using namespace Form;
using G = clsReceptor;

frmReceptor::frmReceptor(Session &s, clsReceptor &receptor, QWidget *mainWin)
    : KindEditor(s, receptor, mainWin, GeneKind::Receptor)
{
    auto *body = new QWidget(this);
    Place = new AttachmentCombos(session, AttachmentCombos::Side::Receptor, body, QStringLiteral("Receptor Attachment"));
    lstOrgan = Place->lstOrgan, lstTissue = Place->lstTissue, lstLocus = Place->lstLocus;

    FrameGrid chem(body, QStringLiteral("Chemical Information"));
    lstChem = ChemicalRow(session, chem);
    chem.row(QStringLiteral("Threshold:"), scrThreshold = MakeSlider(session, QStringLiteral("scrThreshold"), 0, 255, 16, true, chem.frame));
    chem.row(QStringLiteral("Nominal:"), scrNominal = MakeSlider(session, QStringLiteral("scrNominal"), 0, 255, 16, true, chem.frame));
    chem.row(QStringLiteral("Gain:"), scrGain = MakeSlider(session, QStringLiteral("scrGain"), 0, 255, 16, true, chem.frame));
    chkFlags[0] = Check(chem.frame, Indexed("chkFlags", 0), QStringLiteral("Output REDUCES with increased stimulation"));
    chkFlags[1] = Check(chem.frame, Indexed("chkFlags", 1), QStringLiteral("Digital (o/p=nominal+/-gain if sig > threshold"));
    chem.cells({nullptr, chkFlags[0]});
    chem.cells({nullptr, chkFlags[1]});

    Box(new QVBoxLayout(body), {Place->frame, chem.frame, Stretch()})->setContentsMargins(0, 0, 0, 0);
    UseStandardLayout(body);

    Place->BindPlace(Bind, Of(&G::Organ), Of(&G::Tissue), Of(&G::Locus));
    Bind.Combo(lstChem, Of(&G::Chem));
    Bind.Slider(scrThreshold, Of(&G::Threshold));
    Bind.Slider(scrNominal, Of(&G::Nominal));
    Bind.Slider(scrGain, Of(&G::Gain));
    // Bits without a box are lost on storing.
    Bind.Bits(Of(&G::Flags), {{chkFlags[0], 1}, {chkFlags[1], 2}});
}

void frmReceptor::lstOrgan_Click() { Place->OrganClick(); }

void frmReceptor::LoadEditor()
{
    Place->Load();
    LoadChemicalCombo(session, lstChem);
}
