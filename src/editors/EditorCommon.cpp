#include "editors/EditorCommon.h"

#include "widgets/Placement.h"
#include "core/Gene.h"
#include "core/Session.h"
#include "base/Text.h"
#include "widgets/FormBuilder.h"

#include <QLineEdit>
#include <QSignalBlocker>

void FillChemicalList(Session &session, QComboBox *list)
{
    const QSignalBlocker quiet(list);
    list->clear();
    for (int i = 0; i < 256; ++i)
        list->addItem(NameLists::ChemicalListText(i, session.Lists.ChemicalNames[size_t(i)]));
    list->setCurrentIndex(-1);
}

void LoadChemicalCombo(Session &session, QComboBox *combo)
{
    FillChemicalList(session, combo);
    combo->setCurrentIndex(0);
}

void ShowSlider(Session &session, int value)
{
    session.SetStatusPanel(2, QStringLiteral("Slider: ") + QString::number(value));
}

void ShowSliderTime(Session &session, int value)
{
    session.SetStatusPanel(2, QStringLiteral("Slider: ") + QString::number(value)
                                  + QStringLiteral(" (Max to 0 in apprx. ")
                                  + session.Tables.HalfLifeName(value) + QStringLiteral(")"));
}

// --- chemical combo -------------------------------------------------------------------------

ChemicalCombo::ChemicalCombo(Session &s, QWidget *parent) : QComboBox(parent), session(s)
{
    setMaxVisibleItems(20);
}

void ChemicalCombo::showPopup()
{
    // The refill itself is quiet; setting the noted chemical again runs the change event,
    // as any selection does.
    const int noted = currentIndex();
    FillChemicalList(session, this);
    setCurrentIndex(noted);
    QComboBox::showPopup();
}

// --- sliders ------------------------------------------------------------------------------

namespace {
QScrollBar *BuildSlider(Session &session, const QString &name, int minimum, int maximum, int largeStep,
                        bool reversed, bool withReadout, QWidget *parent)
{
    auto *bar = new QScrollBar(Qt::Horizontal, parent);
    bar->setObjectName(name);
    bar->setRange(minimum, maximum);
    bar->setSingleStep(1);
    bar->setPageStep(largeStep);
    // A right-to-left bar has its maximum at the left, and its arrows, trough and keys all
    // move the thumb the way they point.
    if (reversed)
        bar->setLayoutDirection(Qt::RightToLeft);
    // A scroll bar's keys run against its arrows by default: Left would raise the value.
    bar->setInvertedControls(false);
    bar->setMinimumWidth(Placement::TwipsToPixels(2250, bar));
    bar->setFocusPolicy(Qt::StrongFocus);
    if (withReadout)
        QObject::connect(bar, &QScrollBar::valueChanged, bar, [&session](int v) { ShowSlider(session, v); });
    return bar;
}
} // namespace

QScrollBar *MakeSlider(Session &session, const QString &name, int minimum, int maximum, int largeStep,
                       bool withReadout, QWidget *parent)
{
    return BuildSlider(session, name, minimum, maximum, largeStep, false, withReadout, parent);
}

QScrollBar *MakeReversedSlider(Session &session, const QString &name, int minimum, int maximum, int largeStep,
                               bool withReadout, QWidget *parent)
{
    return BuildSlider(session, name, minimum, maximum, largeStep, true, withReadout, parent);
}

TimeSlider::TimeSlider(Session &s, const QString &name, QWidget *parent)
    : QScrollBar(Qt::Horizontal, parent), session(s)
{
    setObjectName(name);
    setRange(0, Positions - 1);
    setSingleStep(1);
    setPageStep(1);
    setLayoutDirection(Qt::RightToLeft); // the longest time at the left
    setInvertedControls(false);          // so the arrow keys move the thumb the way they point
    setMinimumWidth(Placement::TwipsToPixels(2250, this));
    setFocusPolicy(Qt::StrongFocus);
    connect(this, &QScrollBar::valueChanged, this, [this](int position) { ShowSliderTime(session, position * 8); });
}

int TimeSlider::PositionOf(int byte)
{
    const long long p = Text::RoundHalfEven(byte / 8.0);
    return int(qBound(0LL, p, (long long)(Positions - 1)));
}

void TimeSlider::SetStoredValue(int byte) { setValue(PositionOf(byte)); }

// --- number boxes -------------------------------------------------------------------------

void MakeByteBox(QLineEdit *box) { Form::TidyAsByte(box); }

int ByteBoxValue(const QLineEdit *box)
{
    return int(qBound(0LL, Text::RoundHalfEven(Text::Val(box->text())), 255LL));
}

// --- byte sliders ---------------------------------------------------------------------------

QScrollBar *MakeByteSlider(Session &session, const QString &name, bool withReadout, QWidget *parent)
{
    QScrollBar *bar = MakeSlider(session, name, 0, 255, 16, withReadout, parent);
    const QSignalBlocker quiet(bar);
    bar->setValue(128);
    return bar;
}
