#include "editors/frmColourBleed.h"

#include "editors/EditorCommon.h"
#include "widgets/FormBuilder.h"

#include <QGroupBox>
#include <QScrollBar>

using namespace Form;
using G = clsColourBleed;

frmColourBleed::frmColourBleed(Session &s, clsColourBleed &bleed, QWidget *mainWin)
    : KindEditor(s, bleed, mainWin, GeneKind::ColourBleed)
{
    FrameGrid frame(this, QStringLiteral("Colour Information"));
    frame.row(QStringLiteral("Rotation:"), scrRotation = MakeByteSlider(session, QStringLiteral("scrRotation"), true, frame.frame));
    frame.row(QStringLiteral("Swap:"), scrSwap = MakeByteSlider(session, QStringLiteral("scrSwap"), true, frame.frame));
    UseStandardLayout(frame.frame);

    // Both sliders stand at 128 until shown; a new gene's Rotation of 0 moves the first.
    Bind.Slider(scrRotation, Of(&G::Rotation));
    Bind.Slider(scrSwap, Of(&G::Swap));
}
