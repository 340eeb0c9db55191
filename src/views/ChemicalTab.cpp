#include "views/ChemicalTab.h"

#include "app/Placement.h"
#include "core/Session.h"
#include "views/HelixbenchForm.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QMouseEvent>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

// --- shared by the chemical and pose views ----------------------------------------------------

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

// --- the tab ---------------------------------------------------------------------------------------

ChemicalTab::ChemicalTab(Session &s, HelixbenchForm &w) : session(s), mainWindow(w)
{
    setObjectName(QStringLiteral("ChemicalTab"));
    const int margin = Placement::TwipsToPixels(240, this);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(margin, margin, margin, margin);
    BC_frame = new QGroupBox(QStringLiteral("Chemical List"), this);
    BC_frame->setObjectName(QStringLiteral("BC_frame"));
    layout->addWidget(BC_frame);

    auto *inner = new QVBoxLayout(BC_frame);
    ChemicalListView = MakeNameListView(BC_frame, "ChemicalListView",
                                        {QStringLiteral("Number"), QStringLiteral("Name"),
                                         QStringLiteral("Description")});
    ChemicalListView->viewport()->installEventFilter(this);
    inner->addWidget(ChemicalListView, 1);

    ChemCountLabel = new QLabel(QStringLiteral("No chemicals loaded"), BC_frame);
    ChemCountLabel->setObjectName(QStringLiteral("ChemCountLabel"));
    auto *bottom = new QHBoxLayout;
    bottom->addWidget(ChemCountLabel, 1);
    auto button = [this, bottom](const char *name, const QString &caption, void (ChemicalTab::*command)()) {
        auto *b = new QPushButton(caption, BC_frame);
        b->setObjectName(QString::fromLatin1(name));
        connect(b, &QPushButton::clicked, this, command);
        bottom->addWidget(b);
        return b;
    };
    AddChemicalCommand = button("AddChemicalCommand", QStringLiteral("&Add"), &ChemicalTab::AddChemical);
    AddHereCommand = button("AddHereCommand", QStringLiteral("Add &Here"), &ChemicalTab::AddChemicalHere);
    DeleteChemicalCommand = button("DeleteChemicalCommand", QStringLiteral("&Delete"), &ChemicalTab::DeleteChemical);
    RenameChemicalCommand = button("RenameChemicalCommand", QStringLiteral("&Rename"), &ChemicalTab::RenameChemical);
    CaptionChemicalCommand =
        button("CaptionChemicalCommand", QStringLiteral("&Edit Description"), &ChemicalTab::CaptionChemical);
    inner->addLayout(bottom);

    mnuChemicalPopUp = new QMenu(QStringLiteral("PopUp2"), this);
    mnuChemicalPopUp->setObjectName(QStringLiteral("mnuChemicalPopUp"));
    auto entry = [this](const char *name, const QString &caption, void (ChemicalTab::*command)()) {
        QAction *a = mnuChemicalPopUp->addAction(caption);
        a->setObjectName(QString::fromLatin1(name));
        connect(a, &QAction::triggered, this, command);
        return a;
    };
    mnuChemicalRename = entry("mnuChemicalRename", QStringLiteral("&Rename"), &ChemicalTab::RenameChemical);
    mnuChemicalEditDescription =
        entry("mnuChemicalEditDescription", QStringLiteral("&Edit Description"), &ChemicalTab::CaptionChemical);
    mnuChemicalDelete = entry("mnuChemicalDelete", QStringLiteral("&Delete"), &ChemicalTab::DeleteChemical);
    mnuChemicalPopUp->addSeparator();
    mnuChemicalAddHere =
        entry("mnuChemicalAddHere", QStringLiteral("&New Chemical Here"), &ChemicalTab::AddChemicalHere);
    mnuChemicalAdd = entry("mnuChemicalAdd", QStringLiteral("Ne&w Chemical"), &ChemicalTab::AddChemical);
    mnuChemicalPopUp->addSeparator();
    mnuChemicalSaveChanges =
        entry("mnuChemicalSaveChanges", QStringLiteral("&Save Changes"), &ChemicalTab::SaveChemicalListCommand);
    mnuChemicalPopUp->setDefaultAction(mnuChemicalRename);
    mnuChemicalSaveChanges->setEnabled(session.ChemicalsChanged);
    connect(mnuChemicalPopUp, &QMenu::aboutToShow, this,
            [this] { mnuChemicalSaveChanges->setEnabled(session.ChemicalsChanged); });

    connect(&session, &Session::ListViewsMustFill, this, [this] {
        FillChemicalView();
        ShowChemicalCount();
    });
}

void ChemicalTab::FillChemicalView()
{
    NameLists &lists = session.Lists;
    ChemicalListView->setUpdatesEnabled(false);
    ChemicalListView->setSortingEnabled(false);
    ChemicalListView->clear();
    QList<QTreeWidgetItem *> rows;
    rows.reserve(NameLists::SlotsInUse);
    for (int i = 0; i < NameLists::SlotsInUse; ++i)
        rows.append(new QTreeWidgetItem(
            {QString::number(i), NameLists::ChemicalListText(i, lists.ChemicalNames[size_t(i)]),
             lists.ChemicalCaptions[size_t(i)]}));
    ChemicalListView->addTopLevelItems(rows);
    ChemicalListView->setUpdatesEnabled(true);
    mnuChemicalSaveChanges->setEnabled(session.ChemicalsChanged);
}

void ChemicalTab::ShowChemicalCount() { ChemCountLabel->setText(session.Lists.ChemicalCountText()); }

int ChemicalTab::SelectedSlot()
{
    const int slot = SelectedNameListSlot(ChemicalListView);
    if (slot < 0)
        session.ShowWarning(QStringLiteral("Nothing selected"));
    return slot;
}

void ChemicalTab::ShowStored(int slot)
{
    UpdateChemicalPoseInPlace(session, 1, ChemicalListView, slot);
    ShowChemicalCount();
    mnuChemicalSaveChanges->setEnabled(session.ChemicalsChanged);
}

void ChemicalTab::AddChemical()
{
    int slot = -1;
    if (session.Lists.AddChemical(slot))
        ShowStored(slot);
}

void ChemicalTab::AddChemicalHere()
{
    const int slot = SelectedSlot();
    if (slot >= 0 && session.Lists.AddChemicalHere(slot))
        ShowStored(slot);
}

void ChemicalTab::DeleteChemical()
{
    const int slot = SelectedSlot();
    if (slot >= 0 && session.Lists.DeleteChemical(slot))
        ShowStored(slot);
}

void ChemicalTab::RenameChemical()
{
    const int slot = SelectedSlot();
    if (slot >= 0 && session.Lists.RenameChemical(slot))
        ShowStored(slot);
}

void ChemicalTab::CaptionChemical()
{
    const int slot = SelectedSlot();
    if (slot >= 0 && session.Lists.CaptionChemical(slot))
        ShowStored(slot);
}

void ChemicalTab::SaveChemicalListCommand()
{
    if (session.ChemicalsChanged)
        session.Lists.SaveChemicalList();
    else
        session.ShowInfo(QStringLiteral("No changes to save, operation canceled"));
    mnuChemicalSaveChanges->setEnabled(session.ChemicalsChanged);
}

void ChemicalTab::ShowPopUp(const QPoint &globalPos)
{
    mnuChemicalSaveChanges->setEnabled(session.ChemicalsChanged);
    mnuChemicalPopUp->popup(globalPos);
}

bool ChemicalTab::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == ChemicalListView->viewport() && event->type() == QEvent::MouseButtonRelease) {
        auto *mouse = static_cast<QMouseEvent *>(event);
        if (mouse->button() == Qt::RightButton)
            ShowPopUp(mouse->globalPosition().toPoint());
    }
    return QWidget::eventFilter(watched, event);
}
