#include "editors/frmStimulus.h"

#include "core/Session.h"
#include "editors/EditorCommon.h"
#include "editors/UnlistedCombo.h"
#include "widgets/FormBuilder.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QScrollBar>

using namespace Form;
using G = clsStimulus;

namespace {
// The sensory neurone: item 0 "<none>" is the value 255, item n is neurone n - 1.
constexpr int NoNeurone = 255;
} // namespace

frmStimulus::frmStimulus(Session &s, clsStimulus &stimulus, QWidget *mainWin)
    : KindEditor(s, stimulus, mainWin, GeneKind::Stimulus)
{
    auto *body = new QWidget(this);
    Box(new QVBoxLayout(body), {BuildStimulusFrame(body), BuildChemicalsFrame(body), Stretch()})
        ->setContentsMargins(0, 0, 0, 0);
    UseStandardLayout(body);
    BindFields();
}

void frmStimulus::BindFields()
{
    BindKeepingUnlisted(Bind, lstStim, Of(&G::stimulus));
    Bind.Slider(scrSignificance, Of(&G::Significance));
    BindKeepingUnlisted(Bind, lstNeu, Of(&G::Neu), ComboMap::NoneFirst(NoNeurone));
    Bind.Slider(scrIntensity, Of(&G::Intensity));
    // Bits without a box are dropped on storing.
    Bind.Bits(Of(&G::Features), {{chkFeatures[0], 1}, {chkFeatures[1], 2}, {chkFeatures[2], 4}});
    for (int i = 0; i < 4; ++i) {
        Bind.Combo(lstChem[i], Of(&G::Chem, i));
        Bind.Slider(scrAmount[i], Of(&G::amount, i));
    }
}

QWidget *frmStimulus::BuildStimulusFrame(QWidget *parent)
{
    FrameGrid f(parent, QStringLiteral("Stimulus"));
    lstStim = Combo(f.frame, QStringLiteral("lstStim"));
    lstStim->setMaxVisibleItems(24);
    f.row(QStringLiteral("Stimulus:"), lstStim);
    f.row(QStringLiteral("Significance:"),
          scrSignificance = MakeSlider(session, QStringLiteral("scrSignificance"), 0, 255, 16, true, f.frame));
    lstNeu = Combo(f.frame, QStringLiteral("lstNeu"));
    lstNeu->setMaxVisibleItems(24);
    f.row(QStringLiteral("Sensory Neurone:"), lstNeu);
    f.row(QStringLiteral("Intensity:"),
          scrIntensity = MakeSlider(session, QStringLiteral("scrIntensity"), 0, 255, 16, true, f.frame));
    const char *features[3] = {"Modulate using sensory signal", "Add offset to neu (eg. word#)",
                               "Detected even if asleep"};
    for (int i = 0; i < 3; ++i) {
        chkFeatures[i] = Check(f.frame, Indexed("chkFeatures", i), QLatin1String(features[i]));
        f.cells({nullptr, chkFeatures[i]});
    }
    return f.frame;
}

// Two by two: each chemical's combo with its amount under it.
QWidget *frmStimulus::BuildChemicalsFrame(QWidget *parent)
{
    auto *frame = Frame(parent, QStringLiteral("Chemicals Emitted"));
    auto *grid = new QGridLayout(frame);
    for (int i = 0; i < 4; ++i) {
        const int row = (i / 2) * 2, column = (i % 2) * 2;
        lstChem[i] = new ChemicalCombo(session, frame);
        lstChem[i]->setObjectName(Indexed("lstChem", i));
        scrAmount[i] = MakeSlider(session, Indexed("scrAmount", i), 0, 255, 16, true, frame);
        auto *caption = new QLabel(QStringLiteral("Amount:"), frame);
        caption->setBuddy(scrAmount[i]);
        grid->addWidget(lstChem[i], row, column, 1, 2);
        grid->addWidget(caption, row + 1, column);
        grid->addWidget(scrAmount[i], row + 1, column + 1);
        grid->setColumnStretch(column + 1, 1);
    }
    grid->setHorizontalSpacing(12);
    return frame;
}

void frmStimulus::LoadEditor()
{
    for (ChemicalCombo *chem : lstChem)
        LoadChemicalCombo(session, chem);
    lstStim->clear();
    lstStim->addItems(session.Tables.StimulusNames);
    lstStim->setCurrentIndex(0);
    lstNeu->clear();
    lstNeu->addItems(session.Tables.SenseNames);
    lstNeu->setCurrentIndex(0);
}
