#pragma once
#include "widgets/LazyPage.h"

#include <QList>
#include <QPointer>
#include <memory>
#include <vector>

class Session;
class HelixbenchForm;
class Gene;
class NewGeneForm;
class QCheckBox;
class QMenu;
class QTreeWidget;
class QTreeWidgetItem;

// The Gene Editor tab: the list of the genome's genes, one row each, and the commands that
// create, open, delete, rename, renumber and move them. Commands act on the selected row.
// Its widgets are made when the tab is first shown; rows written before that are kept as
// texts, in the order of the view, and go into the list then.
class GeneEditorTab : public LazyPage
{
    Q_OBJECT
public:
    GeneEditorTab(Session &session, HelixbenchForm &mainWindow);
    ~GeneEditorTab() override;

    QTreeWidget *GeneListListView = nullptr;
    QCheckBox *DeleteQuietlyCheck = nullptr;
    QMenu *mnuGenePopUp = nullptr;

    // Set by a single move that was refused; the fast moves read it.
    bool MoveRefused = false;

    // Rebuilds every row from the GeneList, then sorts once by the sort column.
    void RefreshViews();
    // Writes the eight columns of a row from the gene at that index.
    void FillGeneRow(QTreeWidgetItem *row, int geneIndex);
    // Rewrites the row of gene n, or says that the view no longer matches the genes.
    void RefreshGeneRow(int numericId);
    // The gene number of the selected row, or -1; right whatever the sort column.
    int SelectedGeneIndex() const;
    // The row whose key is that of gene n, or nothing.
    QTreeWidgetItem *FindGeneRow(int numericId) const;
    // Selects the row at a position of the view, counted from 1 as it is sorted now.
    void SelectRowAt(int position);
    // Adds a row at the bottom for gene n (a gene just made).
    void AddGeneRow(int numericId);

    // The commands of the tab's buttons and of the pop-up menu.
    void NewGeneCommand();
    void EditGeneCommand();
    void DeleteGeneCommand();
    void RenameGeneCommand();
    void ChangeIDCommand();
    void UpCommand();
    void DownCommand();
    void UpFastCommand();
    void DownFastCommand();

protected:
    void BuildPage() override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void BuildList(QWidget *frame);
    void BuildPopUp();
    void SortBy(int column);
    void ShowPopUp(const QPoint &globalPos);
    // Exchanges gene n with gene other and rewrites the two rows where they stand.
    void SwapRows(int n, int other);
    // Deleted genes whose editor was still open; see DeleteGeneCommand.
    void ReleaseClosedOrphans();
    void CloseOrphanEditors();

    Session &session;
    HelixbenchForm &mainWindow;
    int sortColumn = 0;
    // Row of each gene number: the key lookup without a walk through the view.
    std::vector<QTreeWidgetItem *> rowOfGene;
    // The rows while the list does not exist yet, in the order of the view: only their
    // texts, which become items when the list is made.
    QList<QStringList> pendingRows;
    // The place in pendingRows of the row whose key is that of gene n, or -1.
    int PendingRowOf(int numericId) const;
    std::vector<std::unique_ptr<Gene>> orphans;
    QPointer<NewGeneForm> newGeneForm;
};
