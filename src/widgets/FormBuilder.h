#pragma once
// Small makers for the controls that every dialog frame is built of: named buttons, number
// boxes, options in a group, and frames whose rows put a caption beside a control. Every
// control they make carries its name as its object name, so that tests and the help find it.
#include <QString>

class QButtonGroup;
class QCheckBox;
class QComboBox;
class QGridLayout;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QWidget;

namespace Form {

// The name of member i of a control array: Indexed("lstSource", 1) is "lstSource_1".
QString Indexed(const char *name, int i);

// A push button that never becomes the default button, so Enter in a text box does not press it.
QPushButton *NamedButton(QWidget *parent, const QString &name, const QString &caption);

// A narrow text box for a number of up to four characters.
QLineEdit *NumberBox(QWidget *parent, const QString &name, const QString &text);
// A number box that tidies its text on every change to a whole number from 0 to 255: a typed
// 300 shows 255, a minus sign falls away, an emptied box shows 0.
QLineEdit *ByteBox(QWidget *parent, const QString &name, const QString &text);
// Gives an existing box that tidying (and the length limit of four).
void TidyAsByte(QLineEdit *box);

QCheckBox *Check(QWidget *parent, const QString &name, const QString &caption);
// An option that is member id of an exclusive group.
QRadioButton *Option(QWidget *parent, QButtonGroup *group, int id, const QString &name, const QString &caption);
QComboBox *Combo(QWidget *parent, const QString &name);
QLabel *Label(QWidget *parent, const QString &name, const QString &caption);

// A frame with a caption (a group box).
QGroupBox *Frame(QWidget *parent, const QString &caption);

// A frame with a grid in it. row() adds a caption in the first column and the control beside
// it, across the remaining columns; the caption is the control's buddy, so its mnemonic
// focuses the control.
class FrameGrid
{
public:
    // stretchColumn is the column that takes the spare width.
    FrameGrid(QWidget *parent, const QString &caption, int stretchColumn = 1);

    // columns is how many columns the control takes; -1 takes the rest of the row.
    QLabel *row(const QString &caption, QWidget *control, int columns = -1);
    // Moves on to a given row (for grids that place some cells by hand).
    void skipTo(int row) { next = row; }
    int nextRow() const { return next; }

    QGroupBox *const frame;
    QGridLayout *const grid;

private:
    int next = 0;
};

} // namespace Form
