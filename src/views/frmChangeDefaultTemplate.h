#pragma once
#include <QDialog>

class Session;
class QGroupBox;
class QPushButton;
class QTreeWidget;

// "Change Default Template": the gene counts of a standard genome, one row for each
// category of the genotype summary. Not modal; a change that isn't saved lasts until the
// program ends but doesn't reach the file.
class frmChangeDefaultTemplate : public QDialog
{
    Q_OBJECT
public:
    explicit frmChangeDefaultTemplate(Session &session, QWidget *parent = nullptr);

    // Shows the one dialog of parent, making it first if there is none (it deletes itself
    // when closed).
    static frmChangeDefaultTemplate *Open(Session &session, QWidget *parent);

    QGroupBox *DefaultGenesFrame = nullptr;
    QTreeWidget *DefaultListView = nullptr;
    QPushButton *DChangeCommand = nullptr;
    QPushButton *DSaveCommand = nullptr;
    QPushButton *DCloseCommand = nullptr;

    // All rows anew: each category up to "END" with its count in the template.
    void ShowDefaultTemplate();

    void ChangeDefault();
    void SaveDefaults();

private:
    Session &session;
};
