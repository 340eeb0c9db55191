#include "editors/frmEmitter.h"

#include "editors/AttachmentCombos.h"
#include "editors/EditorCommon.h"
#include "widgets/FormBuilder.h"

#include <QBoxLayout>
#include <QButtonGroup>
#include <QCheckBox>
#include <QGroupBox>
#include <QRadioButton>
#include <QScrollBar>

using namespace Form;
using G = clsEmitter;

frmEmitter::frmEmitter(Session &s, clsEmitter &emitter, QWidget *mainWin)
    : KindEditor(s, emitter, mainWin, GeneKind::Emitter)
{
    auto *body = new QWidget(this);
    Place = new AttachmentCombos(session, AttachmentCombos::Side::Emitter, body, QStringLiteral("Emitter Attachment"));
    lstOrgan = Place->lstOrgan, lstTissue = Place->lstTissue, lstLocus = Place->lstLocus;

    auto *typeFrame = Frame(body, QStringLiteral("Emitter Type"));
    auto *typeGroup = new QButtonGroup(typeFrame);
    optAnalogue = Option(typeFrame, typeGroup, 0, QStringLiteral("optAnalogue"),
                         QStringLiteral("Analogue (o/p = (signal - threshold) * Gain)"));
    optDigital = Option(typeFrame, typeGroup, 1, QStringLiteral("optDigital"),
                        QStringLiteral("Digital (o/p = Gain if signal > threshold)"));
    optAnalogue->setChecked(true);
    Box(new QVBoxLayout(typeFrame), {optAnalogue, optDigital});

    FrameGrid chem(body, QStringLiteral("Chemical Information"));
    lstChem = ChemicalRow(session, chem);
    chem.row(QStringLiteral("Smpl Rate:"), scrRate = MakeSlider(session, QStringLiteral("scrRate"), 1, 255, 16, true, chem.frame));
    chem.row(QStringLiteral("Gain:"), scrGain = MakeSlider(session, QStringLiteral("scrGain"), 0, 255, 16, true, chem.frame));
    chem.row(QStringLiteral("Threshold:"), scrThreshold = MakeSlider(session, QStringLiteral("scrThreshold"), 0, 255, 16, true, chem.frame));
    chkFlags = Check(chem.frame, QStringLiteral("chkFlags"), QStringLiteral("Clear source byte after reading"));
    chkInvert = Check(chem.frame, QStringLiteral("chkInvert"), QStringLiteral("Invert input signal (s=255-s)"));
    chem.cells({nullptr, chkFlags});
    chem.cells({nullptr, chkInvert});

    Box(new QVBoxLayout(body), {Place->frame, typeFrame, chem.frame, Stretch()})->setContentsMargins(0, 0, 0, 0);
    UseStandardLayout(body);

    Place->BindPlace(Bind, Of(&G::Organ), Of(&G::Tissue), Of(&G::Locus));
    Bind.Combo(lstChem, Of(&G::Chem));
    // A rate of 0 (which no load lets through) shows at 1 and is kept until the slider is used.
    SliderKeepingUnshown(Bind, scrRate, Of(&G::Rate));
    Bind.Slider(scrGain, Of(&G::Gain));
    Bind.Slider(scrThreshold, Of(&G::Threshold));
    // Bits without a control are lost on storing.
    Bind.Bits(Of(&G::Flags), {{chkFlags, 1}, {optDigital, 2, optAnalogue}, {chkInvert, 4}});
}

void frmEmitter::lstOrgan_Click() { Place->OrganClick(); }

void frmEmitter::LoadEditor()
{
    Place->Load();
    LoadChemicalCombo(session, lstChem);
}
