#include "tools/frmReorganise.h"

#include "base/Text.h"
#include "core/Session.h"
#include "widgets/FormBuilder.h"
#include "widgets/SingleDialog.h"
#include "widgets/Placement.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {
constexpr int ChangeToColumn = 2;
}

frmReorganise::frmReorganise(Session &s, std::function<void()> fill, QWidget *parent)
    : QDialog(parent), session(s), moves(s), fillChemicalView(std::move(fill))
{
    setObjectName(QStringLiteral("frmReorganise"));
    setWindowTitle(QStringLiteral("Reorganise Chemical Order"));
    setModal(false);

    // The list of all chemicals but 0, with the number each has and is to take.
    ChemicalListFrame = Form::Frame(this, QStringLiteral("Chemical List"));
    ChemicalListFrame->setObjectName(QStringLiteral("ChemicalListFrame"));
    ReorganiseListView = new QTreeWidget(ChemicalListFrame);
    ReorganiseListView->setObjectName(QStringLiteral("ReorganiseListView"));
    ReorganiseListView->setColumnCount(3);
    ReorganiseListView->setHeaderLabels({QStringLiteral("Chemical Name"), QStringLiteral("Was"), QStringLiteral("Change to")});
    ReorganiseListView->setRootIsDecorated(false);
    ReorganiseListView->setUniformRowHeights(true);
    ReorganiseListView->setSortingEnabled(false);
    ReorganiseListView->setSelectionMode(QAbstractItemView::SingleSelection);
    ReorganiseListView->setSelectionBehavior(QAbstractItemView::SelectRows);
    ReorganiseListView->setAllColumnsShowFocus(true);
    ReorganiseListView->header()->setSectionsMovable(false);
    ReorganiseListView->header()->setStretchLastSection(false);
    ReorganiseListView->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    const QFontMetrics metrics = ReorganiseListView->fontMetrics();
    ReorganiseListView->setColumnWidth(1, metrics.horizontalAdvance(QStringLiteral("Was")) + metrics.averageCharWidth() * 6);
    ReorganiseListView->setColumnWidth(2, metrics.horizontalAdvance(QStringLiteral("Change to")) + metrics.averageCharWidth() * 3);
    ReorganiseListView->setMinimumWidth(metrics.averageCharWidth() * 48);
    auto *listLayout = new QVBoxLayout(ChemicalListFrame);
    listLayout->addWidget(ReorganiseListView);

    // The picked chemical and the number it is to take.
    ChemicalFrame = Form::Frame(this, QStringLiteral("Chemical"));
    ChemicalFrame->setObjectName(QStringLiteral("ChemicalFrame"));
    ChemicalNameLabel = Form::Label(ChemicalFrame, QStringLiteral("ChemicalNameLabel"), QStringLiteral("-"));
    ChemicalNameLabel->setWordWrap(true);
    ChemicalNameLabel->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    QFont bold = ChemicalNameLabel->font();
    bold.setBold(true);
    ChemicalNameLabel->setFont(bold);
    // Room for a long name in three lines, so that picking one moves nothing.
    ChemicalNameLabel->setMinimumHeight(QFontMetrics(bold).lineSpacing() * 3);
    ChemicalNumberLabel = Form::Label(ChemicalFrame, QStringLiteral("ChemicalNumberLabel"), QStringLiteral("0"));
    WasLabel = Form::Label(ChemicalFrame, QStringLiteral("WasLabel"), QStringLiteral("(none)"));
    ChangeTextBox = new QLineEdit(QStringLiteral("(none)"), ChemicalFrame);
    ChangeTextBox->setObjectName(QStringLiteral("ChangeTextBox"));
    ChangeTextBox->setMaximumWidth(metrics.averageCharWidth() * 12);
    ChangeCommand = Form::NamedButton(ChemicalFrame, QStringLiteral("ChangeCommand"), QStringLiteral("Change"));
    ChangeCommand->setEnabled(false);
    auto *grid = new QGridLayout(ChemicalFrame);
    grid->addWidget(ChemicalNameLabel, 0, 0, 1, 2);
    grid->addWidget(ChemicalNumberLabel, 1, 0, 1, 2);
    Form::Cells(grid, ChemicalFrame, 2, {"Current:", Form::Cell(WasLabel, Qt::AlignLeft)});
    Form::Cells(grid, ChemicalFrame, 3, {"Change to::", Form::Cell(ChangeTextBox, Qt::AlignLeft)});
    grid->addWidget(ChangeCommand, 4, 0, 1, 2, Qt::AlignRight);
    grid->setRowStretch(5, 1);
    grid->setColumnStretch(1, 1);
    ChemicalFrame->setFixedWidth(metrics.averageCharWidth() * 32);

    ReorganiseCommand = Form::NamedButton(this, QStringLiteral("ReorganiseCommand"), QStringLiteral("Reorganise Chemicals Now"));
    CloseReorganiseCommand = Form::NamedButton(this, QStringLiteral("CloseReorganiseCommand"), QStringLiteral("&Close"));

    auto *side = new QVBoxLayout;
    side->addWidget(ChemicalFrame, 1);
    side->addWidget(ReorganiseCommand);
    side->addWidget(CloseReorganiseCommand);
    auto *layout = new QHBoxLayout(this);
    layout->addWidget(ChemicalListFrame, 1);
    layout->addLayout(side);

    // A click picks a row, also the one already selected; the arrow keys pick the row they select.
    connect(ReorganiseListView, &QTreeWidget::itemClicked, this,
            [this](QTreeWidgetItem *item) { PickChemical(ReorganiseListView->indexOfTopLevelItem(item) + 1); });
    connect(ReorganiseListView, &QTreeWidget::itemSelectionChanged, this, [this] {
        const QList<QTreeWidgetItem *> selected = ReorganiseListView->selectedItems();
        if (!selected.isEmpty())
            PickChemical(ReorganiseListView->indexOfTopLevelItem(selected.first()) + 1);
    });
    connect(ChangeCommand, &QPushButton::clicked, this, &frmReorganise::Change);
    connect(ChangeTextBox, &QLineEdit::returnPressed, this, [this] {
        if (ChangeCommand->isEnabled())
            Change();
    });
    connect(ReorganiseCommand, &QPushButton::clicked, this, &frmReorganise::Reorganise);
    connect(CloseReorganiseCommand, &QPushButton::clicked, this, &QDialog::close);

    ShowChemicals();
    resize(Placement::TwipsToPixels(8400, this), Placement::TwipsToPixels(6000, this));
}

frmReorganise *frmReorganise::Open(Session &session, std::function<void()> fillChemicalView, QWidget *parent)
{
    return SingleDialog::Show<frmReorganise>(parent, [&] {
        return new frmReorganise(session, std::move(fillChemicalView), parent);
    });
}

void frmReorganise::ShowChemicals()
{
    moves.Clear();
    ReorganiseListView->clear();
    QList<QTreeWidgetItem *> rows;
    rows.reserve(255);
    for (int i = 1; i <= 255; ++i)
        rows.append(new QTreeWidgetItem(
            {session.Lists.ChemicalNames[size_t(i)], QString::number(i), QStringLiteral("-")}));
    ReorganiseListView->addTopLevelItems(rows);
}

void frmReorganise::PickChemical(int i)
{
    if (i < 1 || i > 255)
        return;
    ChemicalNumberLabel->setText(QStringLiteral("(number ") + QString::number(i) + QStringLiteral(")"));
    ChemicalNameLabel->setText(session.Lists.ChemicalNames[size_t(i)]);
    WasLabel->setText(QString::number(i));
    ChangeTextBox->setText(QString::number(i));
    ChangeCommand->setEnabled(true);
}

void frmReorganise::Change()
{
    const long long old = Text::RoundHalfEven(NameLists::NumericValue(WasLabel->text()));
    const int target = moves.RecordMove(WasLabel->text(), ChangeTextBox->text());
    if (target > 0)
        if (QTreeWidgetItem *row = ReorganiseListView->topLevelItem(int(old) - 1))
            row->setText(ChangeToColumn, QString::number(target));
}

void frmReorganise::Reorganise() { moves.CarryOut(fillChemicalView); }
