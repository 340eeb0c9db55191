#include "editors/frmInstinct.h"

#include "core/Session.h"
#include "editors/EditorCommon.h"
#include "editors/UnlistedCombo.h"
#include "widgets/FormBuilder.h"

#include <QBoxLayout>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QScrollBar>
#include <QSignalBlocker>

using namespace Form;
using G = clsInstinct;

namespace {

constexpr int Rows = 3;

// A stored neurone beyond its lobe's list: a value above the number of entries shows the
// first entry, one equal to it wraps round to the first entry as well. Closing stores the
// entry shown.
ComboMap NeuroneFold()
{
    ComboMap m;
    m.toItem = [](int value, int count) { return count > 0 ? (value > count ? 0 : value) % count : -1; };
    return m;
}

} // namespace

frmInstinct::frmInstinct(Session &s, clsInstinct &instinct, QWidget *mainWin)
    : KindEditor(s, instinct, mainWin, GeneKind::Instinct)
{
    auto *body = new QWidget(this);
    Box(new QVBoxLayout(body), {BuildConditionFrame(body), BuildMotorFrame(body), BuildRewardFrame(body), Stretch()})
        ->setContentsMargins(0, 0, 0, 0);
    UseStandardLayout(body);
    BindFields();
}

// Each row's lobe comes before its neurone: showing a lobe that differs from the one shown
// rebuilds the neurone list, which the neurone is then chosen from.
void frmInstinct::BindFields()
{
    for (int i = 0; i < Rows; ++i) {
        Bind.Combo(lstLobe[i], Of(&G::lobe, i), ComboMap::Modulo());
        Bind.Combo(lstNeu[i], Of(&G::Neu, i), NeuroneFold());
    }
    BindKeepingUnlisted(Bind, lstMotor, Of(&G::Motor));
    Bind.Combo(lstReinforcer, Of(&G::Reinforcer));
    Bind.Slider(scrReinforcement, Of(&G::Reinforcement));
}

QWidget *frmInstinct::BuildConditionFrame(QWidget *parent)
{
    auto *frame = Frame(parent, QStringLiteral("When this is true: (lobe/cell)"));
    auto *grid = new QGridLayout(frame);
    lblNeurones = Label(frame, QStringLiteral("lblNeurones"), QStringLiteral("Lobes and neurones to stimulate"));
    grid->addWidget(lblNeurones, 0, 0, 1, 2);
    for (int i = 0; i < Rows; ++i) {
        lstLobe[i] = Combo(frame, Indexed("lstLobe", i));
        lstNeu[i] = Combo(frame, Indexed("lstNeu", i));
        lstNeu[i]->setMaxVisibleItems(20);
        // Wide enough for the longest neurone name without the dialog jumping as lists change.
        lstNeu[i]->setMinimumContentsLength(28);
        lstNeu[i]->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        Cells(grid, frame, i + 1, {lstLobe[i], lstNeu[i]});
        connect(lstLobe[i], &QComboBox::currentIndexChanged, this, [this, i] { SetNeuList(i); });
    }
    lblWarning = Label(frame, QStringLiteral("lblWarning"),
                       QStringLiteral("WARNING: Only those lobes that are flagged as perceptible should be used"));
    lblWarning->setWordWrap(true);
    QPalette red = lblWarning->palette();
    red.setColor(QPalette::WindowText, Qt::red);
    lblWarning->setPalette(red);
    grid->addWidget(lblWarning, Rows + 1, 0, 1, 2);
    grid->setColumnStretch(1, 1);
    return frame;
}

QWidget *frmInstinct::BuildMotorFrame(QWidget *parent)
{
    auto *frame = Frame(parent, QStringLiteral("... and you do this:"));
    lstMotor = Combo(frame, QStringLiteral("lstMotor"));
    lstMotor->setMaxVisibleItems(16);
    Box(new QHBoxLayout(frame), {{lstMotor, 1}});
    return frame;
}

// The chemical's caption above its combo, the amount under both.
QWidget *frmInstinct::BuildRewardFrame(QWidget *parent)
{
    auto *frame = Frame(parent, QStringLiteral("... reward/punish like this:"));
    auto *grid = new QGridLayout(frame);
    lstReinforcer = new ChemicalCombo(session, frame);
    lstReinforcer->setObjectName(QStringLiteral("lstReinforcer"));
    scrReinforcement = MakeSlider(session, QStringLiteral("scrReinforcement"), 0, 255, 16, true, frame);
    auto *chemical = new QLabel(QStringLiteral("Chemical - usually [Reward] or [Punish]"), frame);
    chemical->setBuddy(lstReinforcer);
    auto *amount = new QLabel(QStringLiteral("Amount"), frame);
    amount->setBuddy(scrReinforcement);
    grid->addWidget(chemical, 0, 0, 1, 2);
    grid->addWidget(lstReinforcer, 1, 0, 1, 2);
    Cells(grid, frame, 2, {amount, scrReinforcement});
    grid->setColumnStretch(1, 1);
    return frame;
}

void frmInstinct::LoadEditor()
{
    LoadChemicalCombo(session, lstReinforcer);
    const QStringList lobes = session.Tables.InstinctLobeNames();
    for (int i = 0; i < Rows; ++i) {
        {
            const QSignalBlocker quiet(lstLobe[i]);
            lstLobe[i]->clear();
            lstLobe[i]->addItems(lobes);
            lstLobe[i]->setCurrentIndex(0);
        }
        SetNeuList(i);
    }
    lstMotor->clear();
    lstMotor->addItems(session.Tables.ActionNames);
    lstMotor->setCurrentIndex(0);
}

void frmInstinct::SetNeuList(int item)
{
    if (item < 0 || item >= Rows)
        return;
    QComboBox *neurones = lstNeu[item];
    neurones->clear();
    neurones->addItems(session.Tables.InstinctNeuroneNames(lstLobe[item]->currentIndex()));
    neurones->setCurrentIndex(0);
}
