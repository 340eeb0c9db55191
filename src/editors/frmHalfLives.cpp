#include "editors/frmHalfLives.h"

#include "core/Session.h"
#include "editors/ChemistryControls.h"
#include "editors/EditorCommon.h"
#include "widgets/FormBuilder.h"
#include "widgets/Placement.h"

#include <QBoxLayout>
#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QSignalBlocker>

using namespace Form;
using G = clsHalfLives;

namespace {
constexpr int Chemicals = 256;
}

frmHalfLives::frmHalfLives(Session &s, clsHalfLives &halfLives, QWidget *mainWin)
    : KindEditor(s, halfLives, mainWin, GeneKind::HalfLives)
{
    auto *frame = Frame(this, QStringLiteral("Half Lives"));
    lstChem = new QListWidget(frame);
    lstChem->setObjectName(QStringLiteral("lstChem"));
    lstChem->setSelectionMode(QAbstractItemView::SingleSelection);
    lstChem->setMinimumHeight(Placement::TwipsToPixels(2600, lstChem));
    scrSet = new TimeSlider(session, QStringLiteral("scrSet"), frame);
    txtHalfLife = Label(frame, QStringLiteral("txtHalfLife"), QStringLiteral("000"));
    txtHalfLife->setMinimumWidth(txtHalfLife->fontMetrics().horizontalAdvance(QStringLiteral("0000")));
    txtHalfLife->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);

    auto *caption = new QLabel(QStringLiteral("Half life of selected chemical:"), frame);
    Box(new QVBoxLayout(frame),
        {{lstChem, 1}, Box(new QHBoxLayout, {caption, txtHalfLife, Stretch()}),
         CaptionedTimeSlider(scrSet, {"Extremely slow", "Instant"})});
    UseStandardLayout(frame);

    // A new current row (by the mouse, the keys or the code) and a click on the current row
    // both count as a click on the list. Run twice for one click, it does the same.
    connect(lstChem, &QListWidget::currentRowChanged, this, &frmHalfLives::ChemicalClicked);
    connect(lstChem, &QListWidget::itemClicked, this, &frmHalfLives::ChemicalClicked);
    // The slider always works on the current row, so the current row stays selected: a
    // Ctrl+click cannot leave it unmarked.
    connect(lstChem, &QListWidget::itemSelectionChanged, this, [this] {
        if (QListWidgetItem *current = lstChem->currentItem(); current && !current->isSelected())
            current->setSelected(true);
    });
    // Connected after the slider's own read-out, which so comes first.
    connect(scrSet, &QScrollBar::valueChanged, this, &frmHalfLives::SetChanged);

    // The numbers arrive in the list only: the slider and its label stay as they are.
    Bind.Step(
        [this] {
            if (G *g = Kind())
                for (int i = 0; i < Chemicals && i < lstChem->count(); ++i)
                    Keep(i, g->HalfLife[i]);
        },
        [this] {
            if (G *g = Kind())
                for (int i = 0; i < Chemicals && i < lstChem->count(); ++i)
                    g->HalfLife[i] = quint8(KeptNumber(i));
        });
}

int frmHalfLives::KeptNumber(int item) const
{
    const QListWidgetItem *it = lstChem->item(item);
    return it ? it->data(KeptNumberRole).toInt() : 0;
}

void frmHalfLives::Keep(int item, int number)
{
    if (QListWidgetItem *it = lstChem->item(item))
        it->setData(KeptNumberRole, number);
}

// The slider goes to the selected chemical's number / 8, the fraction cut off. If it has to
// move, its change handler writes position * 8 back as the chemical's number, so a number
// that is no multiple of 8 is rounded down; if it stays, the number stays too.
void frmHalfLives::ChemicalClicked()
{
    const int row = lstChem->currentRow();
    if (row < 0)
        return;
    scrSet->setValue(KeptNumber(row) / 8);
    txtHalfLife->setText(QString::number(scrSet->StoredValue()));
}

void frmHalfLives::SetChanged(int position)
{
    const int row = lstChem->currentRow();
    if (row >= 0)
        Keep(row, position * 8);
    txtHalfLife->setText(QString::number(position * 8));
}

// The list is filled once; chemicals renamed while the editor is open keep their old names
// here until it is opened anew.
void frmHalfLives::LoadEditor()
{
    {
        const QSignalBlocker quiet(lstChem);
        lstChem->clear();
        for (int i = 0; i < Chemicals; ++i) {
            auto *item = new QListWidgetItem(NameLists::ChemicalListText(i, session.Lists.ChemicalNames[size_t(i)]));
            item->setData(KeptNumberRole, 0);
            lstChem->addItem(item);
        }
        lstChem->setCurrentRow(-1);
    }
    lstChem->setCurrentRow(0);
}
