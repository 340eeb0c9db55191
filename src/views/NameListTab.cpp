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

NameListTab::NameListTab(Session &s, const NameListTabLayout &l) : session(s), design(l), kind(l.kind)
{
    setObjectName(QString::fromLatin1(design.tabName));
    connect(&session, &Session::ListViewsMustFill, this, [this] {
        listsLoaded = true;
        FillView();
        ShowCount();
    });
}

void NameListTab::BuildPage()
{
    auto *outer = new QVBoxLayout(this);
    frame = new QGroupBox(design.frameTitle, this);
    frame->setObjectName(QString::fromLatin1(design.frameName));
    outer->addWidget(frame);

    auto *inner = new QVBoxLayout(frame);
    listView = MakeNameListView(frame, design.viewName, design.columns);
    listView->viewport()->installEventFilter(this);
    inner->addWidget(listView, 1);

    countLabel = new QLabel(design.emptyCountText, frame);
    countLabel->setObjectName(QString::fromLatin1(design.countName));
    bottom = new FlowLayout;
    bottom->addWidget(countLabel, 1);
    inner->addLayout(bottom);

    popUp = new QMenu(design.popUpTitle, this);
    popUp->setObjectName(QString::fromLatin1(design.popUpName));
    connect(popUp, &QMenu::aboutToShow, this, [this] {
        if (saveEntry)
            saveEntry->setEnabled(ListChanged());
    });

    BuildCommands();
    // The view shows the lists as they stand, as every change to them since they were
    // loaded would have left it.
    if (listsLoaded) {
        FillView();
        ShowCount();
    }
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
    if (!IsBuilt())
        return;
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
    if (!IsBuilt())
        return;
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
    if (saveEntry)
        saveEntry->setEnabled(ListChanged());
}

void NameListTab::OnSelectedSlot(const std::function<bool(int)> &command)
{
    const int slot = IsBuilt() ? SelectedNameListSlot(listView) : -1;
    if (slot < 0)
        session.ShowWarning(QStringLiteral("Nothing selected"));
    else if (command(slot))
        ShowStored(slot);
}

void NameListTab::ShowStored(int slot)
{
    if (!IsBuilt())
        return;
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
