#include "views/NameListTab.h"

#include "core/Session.h"

#include <QGroupBox>
#include "widgets/ColumnFit.h"
#include "widgets/FlowLayout.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QMouseEvent>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

QTreeWidget *MakeNameListView(QWidget *parent, const char *name, const QStringList &columns)
{
    auto *view = new QTreeWidget(parent);
    view->setObjectName(QString::fromLatin1(name));
    view->setColumnCount(columns.size());
    view->setHeaderLabels(columns);
    view->setRootIsDecorated(false);
    view->setUniformRowHeights(true);
    view->setSortingEnabled(false);
    view->setSelectionMode(QAbstractItemView::SingleSelection);
    view->setSelectionBehavior(QAbstractItemView::SelectRows);
    view->setAllColumnsShowFocus(true);
    view->setContextMenuPolicy(Qt::NoContextMenu);
    view->header()->setStretchLastSection(true);
    view->header()->setSectionsMovable(false);
    view->setColumnWidth(0, view->fontMetrics().horizontalAdvance(QStringLiteral("Number")) + 24);
    view->setColumnWidth(1, view->fontMetrics().averageCharWidth() * 28);
    ColumnFit::Install(view, 2);
    return view;
}

int SelectedNameListSlot(const QTreeWidget *view)
{
    const QList<QTreeWidgetItem *> selected = view->selectedItems();
    return selected.isEmpty() ? -1 : view->indexOfTopLevelItem(selected.first());
}

void UpdateChemicalPoseInPlace(Session &session, int kind, QTreeWidget *view, int number)
{
    const QString key = QString::number(number);
    QTreeWidgetItem *row = nullptr;
    for (int i = 0; i < view->topLevelItemCount() && !row; ++i)
        if (view->topLevelItem(i)->text(0) == key)
            row = view->topLevelItem(i);
    if (!row || number < 0 || number >= NameLists::SlotsInUse) {
        session.ShowError(QStringLiteral("Error finding list key in UpdateChemicalPoseInPlace()"));
        return;
    }
    const NameLists &lists = session.Lists;
    const bool chemical = kind == 1;
    row->setText(0, key);
    row->setText(1, chemical ? lists.ChemicalNames[size_t(number)] : lists.PoseNames[size_t(number)]);
    row->setText(2, chemical ? lists.ChemicalCaptions[size_t(number)] : lists.PoseCaptions[size_t(number)]);
}

NameListTab::NameListTab(Session &s, const NameListTabLayout &layout) : session(s), kind(layout.kind)
{
    setObjectName(QString::fromLatin1(layout.tabName));
    auto *outer = new QVBoxLayout(this);
    frame = new QGroupBox(layout.frameTitle, this);
    frame->setObjectName(QString::fromLatin1(layout.frameName));
    outer->addWidget(frame);

    auto *inner = new QVBoxLayout(frame);
    listView = MakeNameListView(frame, layout.viewName, layout.columns);
    listView->viewport()->installEventFilter(this);
    inner->addWidget(listView, 1);

    countLabel = new QLabel(layout.emptyCountText, frame);
    countLabel->setObjectName(QString::fromLatin1(layout.countName));
    bottom = new FlowLayout;
    bottom->addWidget(countLabel, 1);
    inner->addLayout(bottom);

    popUp = new QMenu(layout.popUpTitle, this);
    popUp->setObjectName(QString::fromLatin1(layout.popUpName));
    connect(popUp, &QMenu::aboutToShow, this, [this] {
        if (saveEntry)
            saveEntry->setEnabled(ListChanged());
    });

    connect(&session, &Session::ListViewsMustFill, this, [this] {
        FillView();
        ShowCount();
    });
}

QString NameListTab::NameText(int slot) const
{
    NameLists &lists = session.Lists;
    return kind == 1 ? NameLists::ChemicalListText(slot, lists.ChemicalNames[size_t(slot)])
                     : lists.PoseNames[size_t(slot)];
}

QString NameListTab::CaptionText(int slot) const
{
    const NameLists &lists = session.Lists;
    return kind == 1 ? lists.ChemicalCaptions[size_t(slot)] : lists.PoseCaptions[size_t(slot)];
}

bool NameListTab::ListChanged() const { return kind == 1 ? session.Lists.ChemicalsChanged : session.Lists.PosesChanged; }

QPushButton *NameListTab::AddButton(const char *name, const QString &caption, const std::function<void()> &command)
{
    auto *b = new QPushButton(caption, frame);
    b->setObjectName(QString::fromLatin1(name));
    connect(b, &QPushButton::clicked, this, command);
    bottom->addWidget(b);
    return b;
}

QAction *NameListTab::AddEntry(const char *name, const QString &caption, const std::function<void()> &command)
{
    QAction *a = popUp->addAction(caption);
    a->setObjectName(QString::fromLatin1(name));
    connect(a, &QAction::triggered, this, command);
    return a;
}

void NameListTab::AddSaveEntry(const char *name)
{
    popUp->addSeparator();
    saveEntry = AddEntry(name, QStringLiteral("&Save Changes"), [this] { SaveListCommand(); });
    saveEntry->setEnabled(ListChanged());
}

void NameListTab::FillView()
{
    listView->setUpdatesEnabled(false);
    listView->setSortingEnabled(false);
    listView->clear();
    QList<QTreeWidgetItem *> rows;
    rows.reserve(NameLists::SlotsInUse);
    for (int i = 0; i < NameLists::SlotsInUse; ++i)
        rows.append(new QTreeWidgetItem({QString::number(i), NameText(i), CaptionText(i)}));
    listView->addTopLevelItems(rows);
    listView->setUpdatesEnabled(true);
    saveEntry->setEnabled(ListChanged());
}

void NameListTab::ShowCount()
{
    countLabel->setText(kind == 1 ? session.Lists.ChemicalCountText() : session.Lists.PoseCountText());
}

void NameListTab::SaveListCommand()
{
    if (!ListChanged())
        session.ShowInfo(QStringLiteral("No changes to save, operation canceled"));
    else if (kind == 1)
        session.Lists.SaveChemicalList();
    else
        session.Lists.SavePoseList();
    saveEntry->setEnabled(ListChanged());
}

void NameListTab::OnSelectedSlot(const std::function<bool(int)> &command)
{
    const int slot = SelectedNameListSlot(listView);
    if (slot < 0)
        session.ShowWarning(QStringLiteral("Nothing selected"));
    else if (command(slot))
        ShowStored(slot);
}

void NameListTab::ShowStored(int slot)
{
    UpdateChemicalPoseInPlace(session, kind, listView, slot);
    ShowCount();
    saveEntry->setEnabled(ListChanged());
}

void NameListTab::ShowPopUp(const QPoint &globalPos)
{
    saveEntry->setEnabled(ListChanged());
    popUp->popup(globalPos);
}

bool NameListTab::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == listView->viewport() && event->type() == QEvent::MouseButtonRelease) {
        auto *mouse = static_cast<QMouseEvent *>(event);
        if (mouse->button() == Qt::RightButton)
            ShowPopUp(mouse->globalPosition().toPoint());
    }
    return QWidget::eventFilter(watched, event);
}
