#include "widgets/FormBuilder.h"

#include "core/Gene.h"

#include <QBoxLayout>
#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QStyle>
#include <QStyleOptionFrame>
#include <QPushButton>
#include <QRadioButton>

namespace Form {

QString Indexed(const char *name, int i) { return QLatin1String(name) + QLatin1Char('_') + QString::number(i); }

QString Indexed(const QString &name, int i) { return name + QLatin1Char('_') + QString::number(i); }

QPushButton *Button(QWidget *parent, const QString &name, const QString &caption)
{
    auto *b = new QPushButton(caption, parent);
    b->setObjectName(name);
    return b;
}

QPushButton *NamedButton(QWidget *parent, const QString &name, const QString &caption)
{
    QPushButton *b = Button(parent, name, caption);
    b->setAutoDefault(false);
    b->setDefault(false);
    return b;
}

QLineEdit *NumberBox(QWidget *parent, const QString &name, const QString &text)
{
    auto *box = new QLineEdit(text, parent);
    box->setObjectName(name);
    box->setMaxLength(4);
    FitDigits(box, 4, 6);
    return box;
}

void FitDigits(QLineEdit *box, int digits, int widest)
{
    auto width = [box](int n) {
        QStyleOptionFrame opt;
        opt.initFrom(box);
        opt.lineWidth = box->hasFrame() ? box->style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &opt, box) : 0;
        const QMargins m = box->textMargins();
        // The text's own room is the digits plus the line edit's fixed margin of 2 each side.
        const QSize text(box->fontMetrics().horizontalAdvance(QString(n, QLatin1Char('0'))) + 4 + m.left() + m.right(),
                         box->fontMetrics().height());
        return box->style()->sizeFromContents(QStyle::CT_LineEdit, &opt, text, box).width();
    };
    box->setMinimumWidth(width(digits));
    box->setMaximumWidth(width(qMax(digits, widest)));
}

QLineEdit *ByteBox(QWidget *parent, const QString &name, const QString &text)
{
    QLineEdit *box = NumberBox(parent, name, text);
    TidyAsByte(box);
    return box;
}

void TidyAsByte(QLineEdit *box)
{
    box->setMaxLength(4);
    QObject::connect(box, &QLineEdit::textChanged, box, [box](const QString &text) {
        const QString tidy = ClampByteText(text);
        if (tidy != text)
            box->setText(tidy);
    });
}

QCheckBox *Check(QWidget *parent, const QString &name, const QString &caption)
{
    auto *c = new QCheckBox(caption, parent);
    c->setObjectName(name);
    return c;
}

QRadioButton *Option(QWidget *parent, QButtonGroup *group, int id, const QString &name, const QString &caption)
{
    auto *o = new QRadioButton(caption, parent);
    o->setObjectName(name);
    group->addButton(o, id);
    return o;
}

QComboBox *Combo(QWidget *parent, const QString &name)
{
    auto *c = new QComboBox(parent);
    c->setObjectName(name);
    return c;
}

QLabel *Label(QWidget *parent, const QString &name, const QString &caption)
{
    auto *l = new QLabel(caption, parent);
    l->setObjectName(name);
    return l;
}

void Cells(QGridLayout *grid, QWidget *owner, int row, std::initializer_list<Cell> cells)
{
    int column = 0;
    for (const Cell &c : cells) {
        if (c.control)
            grid->addWidget(c.control, row, column, c.alignment);
        else if (!c.caption.isEmpty())
            grid->addWidget(new QLabel(c.caption, owner), row, column);
        ++column;
    }
}

QBoxLayout *Box(QBoxLayout *layout, std::initializer_list<Item> items)
{
    for (const Item &i : items) {
        if (i.control)
            layout->addWidget(i.control, i.stretch);
        else if (i.layout)
            layout->addLayout(i.layout, i.stretch);
        else
            layout->addStretch(i.stretch);
    }
    return layout;
}

QLabel *PanelLabel(QWidget *parent, const QString &name, const QString &caption)
{
    QLabel *l = Label(parent, name, caption);
    l->setFrameShape(QFrame::StyledPanel);
    l->setFrameShadow(QFrame::Sunken);
    l->setWordWrap(true);
    l->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return l;
}

QGroupBox *Frame(QWidget *parent, const QString &caption) { return new QGroupBox(caption, parent); }

FrameGrid::FrameGrid(QWidget *parent, const QString &caption, int stretchColumn)
    : frame(Frame(parent, caption)), grid(new QGridLayout(frame))
{
    grid->setColumnStretch(stretchColumn, 1);
}

QLabel *FrameGrid::row(const QString &caption, QWidget *control, int columns)
{
    auto *label = new QLabel(caption, frame);
    label->setBuddy(control);
    grid->addWidget(label, next, 0);
    grid->addWidget(control, next, 1, 1, columns);
    ++next;
    return label;
}

void FrameGrid::cells(std::initializer_list<Cell> cells) { Cells(grid, frame, next++, cells); }

} // namespace Form
