#pragma once
#include "core/compare/GenomeCompare.h"

#include <QDialog>
#include <memory>

class Session;
class OtherGenome;
class QComboBox;
class QLabel;
class QPlainTextEdit;
class QPushButton;
class QTreeWidget;

// The open genome (left) beside another genome file (right), gene by gene: each pair marked
// same, changed, only left or only right, a changed pair with a row for each field that
// differs. Genes of the right side can be copied into the open genome. The window does not
// block the main window; it compares again whenever the open genome's rows change.
class GenomeCompareForm : public QDialog
{
    Q_OBJECT
public:
    // The command: asks for a genome file and opens a window on it. Nothing is opened if
    // the dialog is cancelled.
    static GenomeCompareForm *Open(Session &session, QWidget *parent);

    // A window on a genome already read.
    GenomeCompareForm(Session &session, std::unique_ptr<OtherGenome> other, QWidget *parent = nullptr);
    ~GenomeCompareForm() override;

    QLabel *lblLeft = nullptr, *lblRight = nullptr, *lblSummary = nullptr;
    QComboBox *lstShow = nullptr; // "All genes", "Differences only"
    QComboBox *lstKind = nullptr; // "All kinds", then the sixteen kinds in the order of the kind table
    QTreeWidget *CompareListView = nullptr;
    QPlainTextEdit *txtMessages = nullptr;
    QPushButton *btnCopy = nullptr, *btnRefresh = nullptr, *btnClose = nullptr;

    // Compares the two genomes as they stand and fills the list.
    void Recompare();
    // Fills the list from the last comparison under the filters.
    void FillList();
    // Copies the right-side genes of the selected rows into the open genome.
    void CopySelected();

    const GenomeCompare::Comparison &Result() const { return comparison; }
    OtherGenome &Other() { return *other; }

signals:
    // A gene was added at the end of the open genome; its row in the gene list is still to be added.
    void GeneAdded(int numericId);

private:
    Session &session;
    std::unique_ptr<OtherGenome> other;
    GenomeCompare::Comparison comparison;
    QVector<QByteArray> leftRecords, rightRecords;
    // The pair of each top-level row of the list, in the list's order.
    QVector<int> shownPairs;
};
