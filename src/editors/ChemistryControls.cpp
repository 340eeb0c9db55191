#include "editors/ChemistryControls.h"

#include "core/Session.h"
#include "editors/EditorCommon.h"

#include <QBoxLayout>
#include <QLabel>
#include <QListView>

namespace {
// A combo is at least this many characters wide, and widens for longer names up to the cap.
constexpr int UsualNameLength = 14, LongestNameShown = 30;
} // namespace

ChemicalCombo *MakeChemicalCombo(Session &session, QWidget *parent, const QString &name)
{
    auto *combo = new ChemicalCombo(session, parent);
    combo->setObjectName(name);
    // Wide enough for the longest name of the list as it stands (an unnamed chemical shows its
    // short number), within limits; the open list shows every name whole. Sized here, before
    // the dialog takes its size and place.
    int longest = 0;
    for (int i = 0; i < 256; ++i)
        longest = qMax(longest, int(session.Lists.ChemicalNames[size_t(i)].size()));
    combo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    combo->setMinimumContentsLength(qBound(UsualNameLength, longest, LongestNameShown));
    combo->view()->setTextElideMode(Qt::ElideNone);
    return combo;
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
