#include "editors/frmReaction.h"

#include "base/Text.h"
#include "editors/ChemistryControls.h"
#include "editors/EditorCommon.h"
#include "widgets/FormBuilder.h"
#include "widgets/Placement.h"

#include <QBoxLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QSignalBlocker>

using namespace Form;
using G = clsReaction;

frmReaction::frmReaction(Session &s, clsReaction &reaction, QWidget *mainWin)
    : KindEditor(s, reaction, mainWin, GeneKind::Reaction)
{
    QWidget *details = BuildDetails();

    auto *rateFrame = Frame(this, QStringLiteral("Reaction Rate"));
    scrRate = new TimeSlider(session, QStringLiteral("scrRate"), rateFrame);
    {
        const QSignalBlocker quiet(scrRate); // the design position is no change
        scrRate->setValue(1);
    }
    Box(new QVBoxLayout(rateFrame), {CaptionedTimeSlider(scrRate, {"Extremely slow", "Fast", "Instant"})});
    // Any move of the slider, by the user or by the filling, makes its position the rate.
    connect(scrRate, &QScrollBar::valueChanged, this, [this] { rateBeyondSlider = false; });

    auto *body = new QWidget(this);
    Box(new QVBoxLayout(body), {details, rateFrame, Stretch()})->setContentsMargins(0, 0, 0, 0);
    UseStandardLayout(body);
    BindFields();
}

// The four places as a sum: place 0 + place 1 on the upper line, = place 2 + place 3 on the
// lower one. Each place is an amount box and a chemical combo.
QWidget *frmReaction::BuildDetails()
{
    auto *frame = Frame(this, QStringLiteral("Reaction Details"));
    auto *grid = new QGridLayout(frame);
    const int boxWidth = Placement::TwipsToPixels(495, frame);
    for (int i = 0; i < 4; ++i) {
        // No limit and no tidying: the text is read as a number when the editor closes.
        txtConc[i] = new QLineEdit(QStringLiteral("1"), frame);
        txtConc[i]->setObjectName(Indexed("txtConc", i));
        txtConc[i]->setAlignment(Qt::AlignHCenter);
        txtConc[i]->setFixedWidth(qMax(boxWidth, txtConc[i]->fontMetrics().horizontalAdvance(QStringLiteral("0000")) + 14));
        lstChem[i] = MakeChemicalCombo(session, frame, Indexed("lstChem", i));
    }
    auto sign = [frame](const char *text) {
        auto *l = new QLabel(QLatin1String(text), frame);
        l->setAlignment(Qt::AlignCenter);
        QFont f = l->font();
        f.setBold(true);
        l->setFont(f);
        return l;
    };
    grid->addWidget(new QLabel(QStringLiteral("Reactants:"), frame), 0, 0, 1, 6);
    Cells(grid, frame, 1, {nullptr, txtConc[0], lstChem[0], sign("+"), txtConc[1], lstChem[1]});
    grid->addWidget(new QLabel(QStringLiteral("Product(s)"), frame), 2, 0, 1, 6);
    Cells(grid, frame, 3, {sign("="), txtConc[2], lstChem[2], sign("+"), txtConc[3], lstChem[3]});
    grid->setColumnStretch(2, 1);
    grid->setColumnStretch(5, 1);
    return frame;
}

void frmReaction::BindFields()
{
    for (int i = 0; i < 4; ++i) {
        Bind.Number(txtConc[i], Of(&G::Conc, i));
        Bind.Combo(lstChem[i], Of(&G::Chem, i), ComboMap::IndexKeepingUnshown());
    }
    // Rate / 8 rounded half to even: 4 shows 0, 12 shows 2, and they come back as 0 and 16.
    Bind.Step(
        [this] {
            if (G *g = Kind()) {
                scrRate->SetStoredValue(g->Rate);
                rateBeyondSlider = Text::RoundHalfEven(g->Rate / 8.0) >= TimeSlider::Positions;
            }
        },
        [this] {
            if (G *g = Kind(); g && !rateBeyondSlider)
                g->Rate = quint8(scrRate->StoredValue());
        });
}

void frmReaction::LoadEditor()
{
    for (ChemicalCombo *combo : lstChem)
        LoadChemicalCombo(session, combo);
}
