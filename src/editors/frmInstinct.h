#pragma once
#include "core/genes/BodyGenes.h"
#include "editors/KindEditor.h"

class ChemicalCombo;
class QComboBox;
class QLabel;
class QScrollBar;

// The editor of an instinct gene: up to three lobe/neurone conditions, the decision taken
// and the chemical that rewards or punishes it, with its amount. Each row's neurone list
// follows the lobe chosen in that row.
class frmInstinct : public KindEditor<clsInstinct>
{
    Q_OBJECT
public:
    frmInstinct(Session &session, clsInstinct &instinct, QWidget *mainWindow);

    // Rebuilds the neurone list of row item (0 to 2) for the lobe that row shows, and selects
    // its first entry.
    void SetNeuList(int item);

    QComboBox *lstLobe[3] = {};
    QComboBox *lstNeu[3] = {};
    QLabel *lblNeurones = nullptr;
    QLabel *lblWarning = nullptr;
    QComboBox *lstMotor = nullptr;
    ChemicalCombo *lstReinforcer = nullptr;
    QScrollBar *scrReinforcement = nullptr;

protected:
    void LoadEditor() override;

private:
    QWidget *BuildConditionFrame(QWidget *parent);
    QWidget *BuildMotorFrame(QWidget *parent);
    QWidget *BuildRewardFrame(QWidget *parent);
    void BindFields();
};
