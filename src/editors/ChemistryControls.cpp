#include "editors/ChemistryControls.h"

#include "editors/EditorCommon.h"

#include <QBoxLayout>
#include <QLabel>
#include <QListView>

ChemicalCombo *MakeChemicalCombo(Session &session, QWidget *parent, const QString &name)
{
    auto *combo = new ChemicalCombo(session, parent);
    combo->setObjectName(name);
    // Sized for a usual name rather than for the longest of 256; the open list shows all.
    combo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    combo->setMinimumContentsLength(14);
    combo->view()->setTextElideMode(Qt::ElideNone);
    return combo;
}

void LoadChemicalCombo(Session &session, QComboBox *combo)
{
    FillChemicalList(session, combo);
    combo->setCurrentIndex(0);
}

QWidget *CaptionedTimeSlider(TimeSlider *slider, std::initializer_list<const char *> captions)
{
    auto *box = new QWidget(slider->parentWidget());
    slider->setParent(box);
    auto *column = new QVBoxLayout(box);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(2);
    column->addWidget(slider);

    auto *row = new QHBoxLayout;
    const int n = int(captions.size());
    int k = 0;
    for (const char *caption : captions) {
        auto *label = new QLabel(QLatin1String(caption), box);
        label->setAlignment(k == 0 ? Qt::AlignLeft : k == n - 1 ? Qt::AlignRight : Qt::AlignHCenter);
        if (k > 0)
            row->addStretch(1);
        row->addWidget(label);
        ++k;
    }
    column->addLayout(row);
    return box;
}
