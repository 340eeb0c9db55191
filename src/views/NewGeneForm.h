#pragma once
#include <QDialog>

class Session;
class QComboBox;
class QPushButton;

// The new-gene dialog: pick a kind and create genes of it, one after another, while the
// main window stays usable.
class NewGeneForm : public QDialog
{
    Q_OBJECT
public:
    explicit NewGeneForm(Session &session, QWidget *parent = nullptr);

    QComboBox *GeneTypeCombo = nullptr;
    QPushButton *btnCreateGene = nullptr;
    QPushButton *btnCreateAndClose = nullptr;
    QPushButton *btnCancel = nullptr;

    // Makes a gene of the kind chosen in the list; closes the dialog afterwards only if
    // asked and only if a gene was made.
    void CreateGeneFromForm(bool closeAfter);

signals:
    // A gene was added at the end of the GeneList; its row is still to be added.
    void GeneAdded(int numericId);

private:
    Session &session;
};
