#pragma once
#include "core/genes/BodyGenes.h"
#include "editors/KindEditor.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

// The editor of the genus gene: the species and the monikers of both parents. Its header
// panel shows the gene's header but takes no input. The monikers are checked when the
// editor is closed with its changes kept (father first), or at once by "&Repair".
class frmSpecies : public KindEditor<clsSpecies>
{
    Q_OBJECT
public:
    frmSpecies(Session &session, clsSpecies &gene, QWidget *mainWindow);

    QComboBox *lstGenus = nullptr;
    // 0 the mother's moniker, 1 the father's.
    QLineEdit *txtFamily[2] = {};
    QPushButton *RepairCommand = nullptr;
    QLabel *lblAutomatic = nullptr;

protected:
    void LoadEditor() override;

private:
    void Repair();
};
