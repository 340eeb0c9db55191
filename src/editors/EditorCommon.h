#pragma once
// Controls and read-outs that the gene editors share: chemical combos that keep up with the
// chemical list, sliders with their status-bar read-out, time sliders and number boxes.
#include <QComboBox>
#include <QScrollBar>
#include <QString>

class Session;
class QLineEdit;

// Clears the list and adds the 256 chemicals, so that the item index is the chemical number.
// An unnamed chemical is given its number (or "<nothing>" for 0) as its name on the way.
// No change event runs while it fills; afterwards nothing is selected, so the caller's
// selection runs the list's change event as a selection by the user would.
void FillChemicalList(Session &session, QComboBox *list);
// Fills a chemical combo as an editor loads: the 256 chemicals, the first selected.
void LoadChemicalCombo(Session &session, QComboBox *combo);

// Read-outs on the second panel of the main window's status bar.
void ShowSlider(Session &session, int value);
// value is a stored byte (a time slider's position times 8); the text names its half-life.
void ShowSliderTime(Session &session, int value);

// A combo of the 256 chemicals. Each time it drops down it fills itself anew from the
// chemical list and selects the chemical it had, so renamed chemicals show at once.
class ChemicalCombo : public QComboBox
{
    Q_OBJECT
public:
    explicit ChemicalCombo(Session &session, QWidget *parent = nullptr);
    void showPopup() override;

private:
    Session &session;
};

// A horizontal slider (a scroll bar, as in all editors) over a range with a large step.
// With withReadout its every change runs ShowSlider with the value.
QScrollBar *MakeSlider(Session &session, const QString &name, int minimum, int maximum, int largeStep,
                       bool withReadout = true, QWidget *parent = nullptr);
// Same, but the highest value stands at the left end (maximum at the left, minimum at the right).
QScrollBar *MakeReversedSlider(Session &session, const QString &name, int minimum, int maximum,
                               int largeStep, bool withReadout = true, QWidget *parent = nullptr);

// A time slider: position 31 at the left end to 0 at the right, step 1. The stored byte is
// position * 8; a stored byte is shown as byte / 8 rounded half to even (252..255 would round
// to 32 and stand at 31). Every change runs ShowSliderTime with position * 8.
class TimeSlider : public QScrollBar
{
    Q_OBJECT
public:
    static constexpr int Positions = 32;

    TimeSlider(Session &session, const QString &name, QWidget *parent = nullptr);
    int Position() const { return value(); }
    // The byte to store: position * 8.
    int StoredValue() const { return value() * 8; }
    // Shows a stored byte.
    void SetStoredValue(int byte);
    // The position a stored byte is shown at.
    static int PositionOf(int byte);

private:
    Session &session;
};

// Makes a text box a number box: on every change its text is tidied to a whole number from
// 0 to 255 (ClampByteText), so a typed 300 shows 255 and an emptied box shows 0.
void MakeByteBox(QLineEdit *box);
// The number a box holds (the leading number of its text, 0 if none), as a byte value.
int ByteBoxValue(const QLineEdit *box);

// --- byte sliders ---------------------------------------------------------------------------

// A slider over a whole byte, 0 to 255 with a large step of 16, that stands at 128 until a
// gene is shown in it. Standing there runs no read-out: only a later change does, so a
// stored 128 leaves the status bar as it was.
QScrollBar *MakeByteSlider(Session &session, const QString &name, bool withReadout = true,
                           QWidget *parent = nullptr);
