#pragma once
// Small makers for the controls that every dialog frame is built of: named buttons, number
// boxes, options in a group, and frames whose rows put a caption beside a control. Every
// control they make carries its name as its object name, so that tests and the help find it.
#include <QString>
#include <Qt>

#include <cstddef>
#include <initializer_list>

class QBoxLayout;
class QButtonGroup;
class QCheckBox;
class QComboBox;
class QGridLayout;
class QGroupBox;
class QLabel;
class QLayout;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QWidget;

namespace Form {

// The name of member i of a control array: Indexed("lstSource", 1) is "lstSource_1".
QString Indexed(const char *name, int i);
QString Indexed(const QString &name, int i);

// A push button that never becomes the default button, so Enter in a text box does not press it.
QPushButton *NamedButton(QWidget *parent, const QString &name, const QString &caption);
// A push button as the toolkit makes it: in a dialog, Enter presses it while it has the focus.
QPushButton *Button(QWidget *parent, const QString &name, const QString &caption);

// A narrow text box for a number of up to four characters.
QLineEdit *NumberBox(QWidget *parent, const QString &name, const QString &text);
// A number box that tidies its text on every change to a whole number from 0 to 255: a typed
// 300 shows 255, a minus sign falls away, an emptied box shows 0.
QLineEdit *ByteBox(QWidget *parent, const QString &name, const QString &text);
// Gives an existing box that tidying (and the length limit of four).
void TidyAsByte(QLineEdit *box);
// Sizes a number box to show `digits` digits whole, and to grow no wider than `widest` digits.
void FitDigits(QLineEdit *box, int digits, int widest);

QCheckBox *Check(QWidget *parent, const QString &name, const QString &caption);
// An option that is member id of an exclusive group.
QRadioButton *Option(QWidget *parent, QButtonGroup *group, int id, const QString &name, const QString &caption);
QComboBox *Combo(QWidget *parent, const QString &name);
QLabel *Label(QWidget *parent, const QString &name, const QString &caption);

// One cell of a grid row: a control, a caption (a plain label is made for it), or nothing.
struct Cell
{
    Cell(QWidget *control, Qt::Alignment alignment = {}) : control(control), alignment(alignment) {}
    Cell(const char *caption) : caption(QString::fromLatin1(caption)) {}
    Cell(std::nullptr_t) {}
    QWidget *control = nullptr;
    QString caption;
    Qt::Alignment alignment;
};
// Puts the cells into the columns 0, 1, 2, ... of one row of the grid; captions become labels
// of owner. Nothing leaves its column empty.
void Cells(QGridLayout *grid, QWidget *owner, int row, std::initializer_list<Cell> cells);

// One entry of a box layout: a control or a nested layout with its stretch factor, or stretch.
struct Item
{
    Item(QWidget *control, int stretch = 0) : control(control), stretch(stretch) {}
    Item(QLayout *layout, int stretch = 0) : layout(layout), stretch(stretch) {}
    QWidget *control = nullptr;
    QLayout *layout = nullptr;
    int stretch = 0;
};
inline Item Stretch(int stretch = 1) { return Item(static_cast<QWidget *>(nullptr), stretch); }
// Adds the items to the layout in order and gives the layout back.
QBoxLayout *Box(QBoxLayout *layout, std::initializer_list<Item> items);

// A caption that shows a value: a sunken panel whose text wraps and can be selected.
QLabel *PanelLabel(QWidget *parent, const QString &name, const QString &caption);

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
    // A row of cells (see Cells) at the next row.
    void cells(std::initializer_list<Cell> cells);

    QGroupBox *const frame;
    QGridLayout *const grid;

private:
    int next = 0;
};

} // namespace Form
