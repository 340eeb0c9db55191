#include "editors/OrganEditor.h"

#include "editors/EditorCommon.h"
#include "widgets/FormBuilder.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLineEdit>
#include <QScrollBar>

using namespace Form;
using G = OrganGene;

OrganEditor::OrganEditor(Session &s, OrganGene &organ, QWidget *mainWin, GeneKind kind)
    : KindEditor(s, organ, mainWin, kind)
{
    FrameGrid frame(this, QStringLiteral("Header Information"));
    scrClockRate = MakeByteSlider(session, QStringLiteral("scrClockRate"), true, frame.frame);
    scrLTRateChange = MakeByteSlider(session, QStringLiteral("scrLTRateChange"), true, frame.frame);
    scrLifeForce = MakeByteSlider(session, QStringLiteral("scrLifeForce"), false, frame.frame);
    BioTickText = ByteBox(frame.frame, QStringLiteral("BioTickText"), QStringLiteral("0"));
    ATPText = ByteBox(frame.frame, QStringLiteral("ATPText"), QStringLiteral("0"));

    frame.row(QStringLiteral("Clockrate:"), scrClockRate);
    frame.row(QStringLiteral("Organ vulnerability:"), scrLTRateChange);
    frame.row(QStringLiteral("Lifeforce start value:"), scrLifeForce);
    frame.cells({"Biotick start:", Cell(BioTickText, Qt::AlignLeft)});
    frame.cells({"ATP Damage coeff.:", Cell(ATPText, Qt::AlignLeft)});
    UseStandardLayout(frame.frame);

    Bind.Slider(scrClockRate, Of(&G::ClockRate));
    Bind.Slider(scrLTRateChange, Of(&G::LTRateChange));
    Bind.Slider(scrLifeForce, Of(&G::LifeForce));
    Bind.Number(ATPText, Of(&G::ATPDamageCoefficient));
    Bind.Number(BioTickText, Of(&G::BiotickStartValue));
}
