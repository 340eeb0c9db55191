#include "editors/frmColour.h"

#include "editors/EditorCommon.h"
#include "widgets/FormBuilder.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QScrollBar>

using namespace Form;
using G = clsColour;

frmColour::frmColour(Session &s, clsColour &colour, QWidget *mainWin) : KindEditor(s, colour, mainWin, GeneKind::Colour)
{
    FrameGrid frame(this, QStringLiteral("Colour Information"));
    lstPigment = Combo(frame.frame, QStringLiteral("lstPigment"));
    lstPigment->addItems({QStringLiteral("Red"), QStringLiteral("Green"), QStringLiteral("Blue")});
    scrIntensity = MakeByteSlider(session, QStringLiteral("scrIntensity"), true, frame.frame);

    // The intensity slider has no caption of its own: its ends and middle say what it does.
    frame.cells({"Pigment:", Cell(lstPigment, Qt::AlignLeft)});
    frame.cells({"Muted", scrIntensity, "Bright"});
    frame.cells({nullptr, Cell(new QLabel(QStringLiteral("Normal"), frame.frame), Qt::AlignHCenter)});
    UseStandardLayout(frame.frame);

    // A pigment byte beyond the three (a load folds it, other code need not) selects nothing
    // and stays in the gene until the user picks a pigment.
    Bind.Combo(lstPigment, Of(&G::Pigment), ComboMap::IndexKeepingUnshown());
    Bind.Slider(scrIntensity, Of(&G::Intensity));
}
