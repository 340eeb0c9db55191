#include "views/GeneEditorTab.h"

#include "core/Gene.h"
#include "core/GeneCommands.h"
#include "core/GeneView.h"
#include "core/Session.h"
#include "views/HelixbenchForm.h"
#include "views/NewGeneForm.h"

#include "widgets/FormBuilder.h"

#include <QCheckBox>
#include <QContextMenuEvent>
#include "widgets/ColumnFit.h"
#include "widgets/FlowLayout.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QMouseEvent>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <algorithm>

GeneEditorTab::GeneEditorTab(Session &s, HelixbenchForm &w)
    : session(s), mainWindow(w), rowOfGene(size_t(Session::GeneSlots), nullptr)
{
    setObjectName(QStringLiteral("GeneEditorTab"));
    connect(&session, &Session::ViewsRefreshRequested, this, &GeneEditorTab::RefreshViews);
    connect(&session, &Session::GeneRowChanged, this, &GeneEditorTab::RefreshGeneRow);
    connect(&session, &Session::GenomeWindowsMustClose, this, &GeneEditorTab::CloseOrphanEditors);
}

void GeneEditorTab::BuildPage()
{
    auto *layout = new QVBoxLayout(this);
    auto *frame = new QGroupBox(QStringLiteral("Gene Layout by Number"), this);
    frame->setObjectName(QStringLiteral("GE_frame"));
    layout->addWidget(frame);

    BuildList(frame);

    // The move buttons stand in their own frame on the right edge, beside the list.
    auto *sorter = new QGroupBox(QStringLiteral("Move"), frame);
    sorter->setObjectName(QStringLiteral("GE_sorterframe"));
    auto *sorterLayout = new QGridLayout(sorter);
    auto *slow = new QLabel(QStringLiteral("Slow"), sorter);
    auto *fast = new QLabel(QStringLiteral("Fast"), sorter);
    slow->setAlignment(Qt::AlignCenter);
    fast->setAlignment(Qt::AlignCenter);
    QPushButton *up = Form::NamedButton(sorter, QStringLiteral("UpCommand"), QStringLiteral("Up"));
    QPushButton *down = Form::NamedButton(sorter, QStringLiteral("DownCommand"), QStringLiteral("Down"));
    QPushButton *upFast = Form::NamedButton(sorter, QStringLiteral("UpFastCommand"), QStringLiteral("Up"));
    QPushButton *downFast = Form::NamedButton(sorter, QStringLiteral("DownFastCommand"), QStringLiteral("Down"));
    sorterLayout->addWidget(slow, 0, 0);
    sorterLayout->addWidget(fast, 0, 1);
    sorterLayout->addWidget(up, 1, 0);
    sorterLayout->addWidget(upFast, 1, 1);
    sorterLayout->addWidget(down, 2, 0);
    sorterLayout->addWidget(downFast, 2, 1);

    // The row of commands on the bottom edge.
    QPushButton *edit = Form::NamedButton(frame, QStringLiteral("EditGeneCommand"), QStringLiteral("&Edit Gene"));
    QPushButton *add = Form::NamedButton(frame, QStringLiteral("NewGeneCommand"), QStringLiteral("&New Gene"));
    QPushButton *del = Form::NamedButton(frame, QStringLiteral("DeleteGeneCommand"), QStringLiteral("&Delete Gene"));
    QPushButton *rename = Form::NamedButton(frame, QStringLiteral("RenameGeneCommand"), QStringLiteral("&Rename Gene"));
    QPushButton *changeId = Form::NamedButton(frame, QStringLiteral("ChangeIDCommand"), QStringLiteral("&Change ID"));
    DeleteQuietlyCheck = new QCheckBox(QStringLiteral("Delete Quietly"), frame);
    DeleteQuietlyCheck->setObjectName(QStringLiteral("DeleteQuietlyCheck"));
    // In a narrow window the row wraps rather than cut its buttons.
    auto *commands = new FlowLayout;
    for (QWidget *b : {static_cast<QWidget *>(edit), static_cast<QWidget *>(add), static_cast<QWidget *>(del),
                       static_cast<QWidget *>(rename), static_cast<QWidget *>(changeId),
                       static_cast<QWidget *>(DeleteQuietlyCheck)})
        commands->addWidget(b);

    auto *grid = new QGridLayout(frame);
    grid->addWidget(GeneListListView, 0, 0);
    grid->addWidget(sorter, 0, 1, Qt::AlignTop);
    grid->addLayout(commands, 1, 0, 1, 2);
    grid->setColumnStretch(0, 1);
    grid->setRowStretch(0, 1);

    BuildPopUp();

    connect(edit, &QPushButton::clicked, this, &GeneEditorTab::EditGeneCommand);
    connect(add, &QPushButton::clicked, this, &GeneEditorTab::NewGeneCommand);
    connect(del, &QPushButton::clicked, this, &GeneEditorTab::DeleteGeneCommand);
    connect(rename, &QPushButton::clicked, this, &GeneEditorTab::RenameGeneCommand);
    connect(changeId, &QPushButton::clicked, this, &GeneEditorTab::ChangeIDCommand);
    connect(up, &QPushButton::clicked, this, &GeneEditorTab::UpCommand);
    connect(down, &QPushButton::clicked, this, &GeneEditorTab::DownCommand);
    connect(upFast, &QPushButton::clicked, this, &GeneEditorTab::UpFastCommand);
    connect(downFast, &QPushButton::clicked, this, &GeneEditorTab::DownFastCommand);

    // Rows kept aside are in the view's order already: no sort has been asked for yet.
    QList<QTreeWidgetItem *> rows;
    rows.reserve(pendingRows.size());
    for (const QStringList &texts : std::as_const(pendingRows)) {
        auto *row = new QTreeWidgetItem(texts);
        rows.append(row);
        bool ok = false;
        const int key = texts.value(0).toInt(&ok);
        if (ok && key >= 0 && key < int(rowOfGene.size()))
            rowOfGene[size_t(key)] = row;
    }
    pendingRows.clear();
    GeneListListView->addTopLevelItems(rows);
}

GeneEditorTab::~GeneEditorTab()
{
    // As the session does for its own genes: the editors may already be gone, so no gene
    // that outlives this tab's list keeps a view.
    for (auto &g : orphans)
        if (g->View) {
            g->View = nullptr;
            g->IsOpen = false;
        }
}

void GeneEditorTab::BuildList(QWidget *frame)
{
    GeneListListView = new QTreeWidget(frame);
    QTreeWidget *v = GeneListListView;
    v->setObjectName(QStringLiteral("GeneListListView"));
    v->setColumnCount(GeneCommands::ColumnCount);
    v->setHeaderLabels({QStringLiteral("#"), QStringLiteral("Gen #"), QStringLiteral("G-ID"),
                        QStringLiteral("Switch On"), QStringLiteral("Sex"), QStringLiteral("Mut."),
                        QStringLiteral("Description"), QStringLiteral("Type")});
    v->setRootIsDecorated(false);
    v->setItemsExpandable(false);
    v->setUniformRowHeights(true);
    v->setAllColumnsShowFocus(true);
    v->setSelectionMode(QAbstractItemView::SingleSelection);
    v->setSelectionBehavior(QAbstractItemView::SelectRows);
    v->setEditTriggers(QAbstractItemView::NoEditTriggers);
    v->setAlternatingRowColors(true);

    // Sorting is by a column's text, ascending only, and happens when asked (a header
    // click, the end of a rebuild): a rewritten row stays where it stands, as the commands
    // that rewrite rows expect.
    v->setSortingEnabled(false);
    QHeaderView *h = v->header();
    h->setSectionsClickable(true);
    h->setSortIndicatorShown(true);
    h->setSortIndicator(0, Qt::AscendingOrder);
    h->setStretchLastSection(true);
    connect(h, &QHeaderView::sectionClicked, this, &GeneEditorTab::SortBy);

    const QFontMetrics fm(v->font());
    const int pad = 18;
    const int widths[] = {fm.horizontalAdvance(QStringLiteral("0000")), fm.horizontalAdvance(QStringLiteral("Gen #")),
                          fm.horizontalAdvance(QStringLiteral("G-ID0")), fm.horizontalAdvance(QStringLiteral("Adolescent")),
                          fm.horizontalAdvance(QStringLiteral("Sex")), fm.horizontalAdvance(QStringLiteral("(255)")),
                          fm.horizontalAdvance(QLatin1Char('x')) * 30,
                          fm.horizontalAdvance(QStringLiteral("Biochemistry: Chemical Initial Concentration (Glucose)"))};
    for (int c = 0; c < int(std::size(widths)); ++c)
        h->resizeSection(c, widths[c] + pad);
    // Once filled, the columns fit their rows and Description takes what is left.
    ColumnFit::Install(v, 6);

    v->viewport()->installEventFilter(this);
    v->installEventFilter(this);
}

void GeneEditorTab::BuildPopUp()
{
    mnuGenePopUp = new QMenu(QStringLiteral("PopUp1"), this);
    mnuGenePopUp->setObjectName(QStringLiteral("mnuGenePopUp"));
    auto add = [this](const char *name, const QString &caption, void (GeneEditorTab::*command)()) {
        QAction *a = mnuGenePopUp->addAction(caption);
        a->setObjectName(QString::fromLatin1(name));
        connect(a, &QAction::triggered, this, command);
        return a;
    };
    QAction *edit = add("mnuGeneEdit", QStringLiteral("&Edit"), &GeneEditorTab::EditGeneCommand);
    add("mnuGeneRename", QStringLiteral("&Rename"), &GeneEditorTab::RenameGeneCommand);
    add("mnuGeneDelete", QStringLiteral("&Delete"), &GeneEditorTab::DeleteGeneCommand);
    mnuGenePopUp->addSeparator();
    add("mnuGeneNew", QStringLiteral("&New Gene"), &GeneEditorTab::NewGeneCommand);
    mnuGenePopUp->setDefaultAction(edit);
}

bool GeneEditorTab::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == GeneListListView->viewport()) {
        if (event->type() == QEvent::MouseButtonRelease
            && static_cast<QMouseEvent *>(event)->button() == Qt::RightButton) {
            ShowPopUp(static_cast<QMouseEvent *>(event)->globalPosition().toPoint());
            return true;
        }
        if (event->type() == QEvent::MouseButtonDblClick
            && static_cast<QMouseEvent *>(event)->button() == Qt::LeftButton) {
            // The press before it has selected the row already.
            EditGeneCommand();
            return true;
        }
        if (event->type() == QEvent::ContextMenu) // the menu comes with the release instead
            return static_cast<QContextMenuEvent *>(event)->reason() == QContextMenuEvent::Mouse;
    }
    if (watched == GeneListListView && event->type() == QEvent::ContextMenu
        && static_cast<QContextMenuEvent *>(event)->reason() == QContextMenuEvent::Keyboard) {
        QTreeWidgetItem *current = GeneListListView->currentItem();
        const QRect r = current ? GeneListListView->visualItemRect(current) : QRect();
        ShowPopUp(GeneListListView->viewport()->mapToGlobal(r.isValid() ? r.bottomLeft() : QPoint(0, 0)));
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

void GeneEditorTab::ShowPopUp(const QPoint &globalPos) { mnuGenePopUp->popup(globalPos, mnuGenePopUp->defaultAction()); }

// --- rows ----------------------------------------------------------------------------------

void GeneEditorTab::SortBy(int column)
{
    // A click on the column that is already the sort column leaves the order ascending.
    sortColumn = column;
    GeneListListView->header()->setSortIndicator(column, Qt::AscendingOrder);
    GeneListListView->sortItems(column, Qt::AscendingOrder);
}

void GeneEditorTab::RefreshViews()
{
    if (!IsBuilt()) {
        // Without a view there is no sort column but the first, and rows made in gene order
        // stand in it already.
        pendingRows.clear();
        pendingRows.reserve(session.GeneCount);
        for (int i = 0; i < session.GeneCount; ++i) {
            const Gene *g = session.GeneAt(i);
            pendingRows.append(g ? GeneCommands::RowTexts(session, *g) : QStringList());
        }
        return;
    }
    QTreeWidget *v = GeneListListView;
    const bool hadFocus = v->hasFocus();
    v->setUpdatesEnabled(false);
    v->clear();
    std::fill(rowOfGene.begin(), rowOfGene.end(), nullptr);
    v->hide();

    QList<QTreeWidgetItem *> rows;
    rows.reserve(session.GeneCount);
    for (int i = 0; i < session.GeneCount; ++i) {
        auto *row = new QTreeWidgetItem;
        FillGeneRow(row, i);
        rows.append(row);
    }
    v->addTopLevelItems(rows);
    // Rows made in gene order are in the order of the first column already: a sort, stable,
    // would leave them as they stand, so it runs only when some row comes before the one
    // above it (by the comparison the sort itself uses).
    v->header()->setSortIndicator(sortColumn, Qt::AscendingOrder);
    bool inOrder = true;
    for (int i = 1; i < rows.size() && inOrder; ++i)
        inOrder = !(*rows.at(i) < *rows.at(i - 1));
    if (!inOrder)
        v->sortItems(sortColumn, Qt::AscendingOrder);

    v->show();
    v->setUpdatesEnabled(true);
    if (hadFocus)
        v->setFocus();
}

void GeneEditorTab::FillGeneRow(QTreeWidgetItem *row, int geneIndex)
{
    const Gene *g = session.GeneAt(geneIndex);
    if (!row || !g)
        return;
    const QStringList texts = GeneCommands::RowTexts(session, *g);

    // The row's key may change: keep the index from gene number to row in step with it.
    bool ok = false;
    const int oldKey = row->text(0).toInt(&ok);
    if (ok && oldKey >= 0 && oldKey < int(rowOfGene.size()) && rowOfGene[size_t(oldKey)] == row)
        rowOfGene[size_t(oldKey)] = nullptr;
    for (int c = 0; c < texts.size(); ++c)
        row->setText(c, texts.at(c));
    if (g->Numeric_ID >= 0 && g->Numeric_ID < int(rowOfGene.size()))
        rowOfGene[size_t(g->Numeric_ID)] = row;
}

QTreeWidgetItem *GeneEditorTab::FindGeneRow(int numericId) const
{
    return numericId >= 0 && numericId < int(rowOfGene.size()) ? rowOfGene[size_t(numericId)] : nullptr;
}

int GeneEditorTab::PendingRowOf(int numericId) const
{
    // Rows kept aside stand in gene order, so row n is gene n's but after an odd change.
    const QString key = GeneCommands::RowKey(numericId);
    if (numericId >= 0 && numericId < pendingRows.size() && pendingRows.at(numericId).value(0) == key)
        return numericId;
    for (int i = 0; i < pendingRows.size(); ++i)
        if (pendingRows.at(i).value(0) == key)
            return i;
    return -1;
}

void GeneEditorTab::RefreshGeneRow(int numericId)
{
    const QString key = GeneCommands::RowKey(numericId);
    session.SummaryStale = true;
    session.OrganViewStale = true;
    QTreeWidgetItem *row = IsBuilt() ? FindGeneRow(numericId) : nullptr;
    const int pending = IsBuilt() ? -1 : PendingRowOf(numericId);
    if (!row && pending < 0)
        session.ShowError(QStringLiteral("Error finding gene key ") + key + QStringLiteral(". Possible fatal error."));
    else if (row)
        FillGeneRow(row, numericId);
    else if (const Gene *g = session.GeneAt(numericId))
        pendingRows[pending] = GeneCommands::RowTexts(session, *g);
}

void GeneEditorTab::AddGeneRow(int numericId)
{
    // The view is sorted: the new row goes after the last row whose text in the sort column
    // does not come after its own.
    if (!IsBuilt()) {
        const Gene *g = session.GeneAt(numericId);
        const QStringList texts = g ? GeneCommands::RowTexts(session, *g) : QStringList();
        const QString text = texts.value(sortColumn);
        int at = int(pendingRows.size());
        while (at > 0 && text < pendingRows.at(at - 1).value(sortColumn))
            --at;
        pendingRows.insert(at, texts);
        return;
    }
    auto *row = new QTreeWidgetItem;
    FillGeneRow(row, numericId);
    QTreeWidget *v = GeneListListView;
    const QString text = row->text(sortColumn);
    int at = v->topLevelItemCount();
    while (at > 0 && text < v->topLevelItem(at - 1)->text(sortColumn))
        --at;
    v->insertTopLevelItem(at, row);
}

int GeneEditorTab::SelectedGeneIndex() const
{
    if (!IsBuilt()) // a list not made yet has no selected row
        return -1;
    const QList<QTreeWidgetItem *> selected = GeneListListView->selectedItems();
    if (selected.isEmpty())
        return -1;
    bool ok = false;
    const int n = selected.first()->text(0).toInt(&ok);
    return ok ? n : -1;
}

void GeneEditorTab::SelectRowAt(int position)
{
    if (!IsBuilt())
        return;
    QTreeWidgetItem *row = GeneListListView->topLevelItem(position - 1);
    if (!row)
        return;
    GeneListListView->setCurrentItem(row);
    GeneListListView->scrollToItem(row);
}

// --- commands ------------------------------------------------------------------------------

void GeneEditorTab::NewGeneCommand()
{
    if (!GeneCommands::MayOpenNewGeneForm(session))
        return;
    if (!newGeneForm) {
        newGeneForm = new NewGeneForm(session, &mainWindow);
        connect(newGeneForm, &NewGeneForm::GeneAdded, this, &GeneEditorTab::AddGeneRow);
    }
    newGeneForm->show();
    newGeneForm->raise();
    newGeneForm->activateWindow();
}

void GeneEditorTab::EditGeneCommand() { GeneCommands::EditGene(session, SelectedGeneIndex()); }

void GeneEditorTab::DeleteGeneCommand()
{
    int n = SelectedGeneIndex();
    if (n == -1) {
        session.ShowWarning(QStringLiteral("No gene selected"));
        return;
    }
    std::unique_ptr<Gene> removed = GeneCommands::DeleteGene(session, n, DeleteQuietlyCheck->isChecked());
    // A deleted gene's open editor stays open; the gene lives on beside the list until it
    // closes, and its close then rewrites the row of its old number.
    ReleaseClosedOrphans();
    if (removed && removed->IsOpen)
        orphans.push_back(std::move(removed));
    n = GeneCommands::SelectionAfterDelete(session, n);
    SelectRowAt(n + 1);
}

void GeneEditorTab::RenameGeneCommand() { GeneCommands::RenameGene(session, SelectedGeneIndex()); }

void GeneEditorTab::ChangeIDCommand() { GeneCommands::ChangeID(session, SelectedGeneIndex()); }

void GeneEditorTab::SwapRows(int n, int other)
{
    QTreeWidgetItem *rowN = FindGeneRow(n);
    QTreeWidgetItem *rowOther = FindGeneRow(other);
    GeneCommands::SwapGenes(session, n, other);
    FillGeneRow(rowN, n);
    FillGeneRow(rowOther, other);
}

void GeneEditorTab::DownCommand()
{
    const int n = SelectedGeneIndex();
    if (!GeneCommands::MayMoveDown(session, n)) {
        MoveRefused = true;
        return;
    }
    SwapRows(n, n + 1);
    SelectRowAt(n + 2);
    // Only the organ tree depends on gene order.
    session.OrganViewStale = true;
}

void GeneEditorTab::UpCommand()
{
    const int n = SelectedGeneIndex();
    if (!GeneCommands::MayMoveUp(session, n)) {
        MoveRefused = true;
        return;
    }
    SwapRows(n, n - 1);
    SelectRowAt(n);
    session.OrganViewStale = true;
}

void GeneEditorTab::DownFastCommand()
{
    MoveRefused = false;
    for (int i = 0; i < 6 && !MoveRefused; ++i)
        DownCommand();
}

void GeneEditorTab::UpFastCommand()
{
    MoveRefused = false;
    for (int i = 0; i < 6 && !MoveRefused; ++i)
        UpCommand();
}

// --- deleted genes with an open editor -------------------------------------------------------

void GeneEditorTab::ReleaseClosedOrphans()
{
    orphans.erase(std::remove_if(orphans.begin(), orphans.end(), [](const std::unique_ptr<Gene> &g) { return !g->IsOpen; }),
                  orphans.end());
}

void GeneEditorTab::CloseOrphanEditors()
{
    // The genome is gone: the editors of its deleted genes go with it, without writing
    // back and without touching the rows, which belong to no gene any more.
    for (auto &g : orphans) {
        if (!g->IsOpen)
            continue;
        GeneView *v = g->View;
        g->View = nullptr;
        g->IsOpen = false;
        if (v)
            v->Dispose();
        session.CountEditorWindow(nullptr);
    }
    orphans.clear();
}
