#pragma once
#include "core/genes/BodyGenes.h"
#include "editors/KindEditor.h"

class QComboBox;

// The editor of an appearance gene: which body area, which set of parts, and the species
// that gives them. Region 5, which a load lets through but the list has no name for, shows
// its number in the empty combo and stays until another area is picked.
class frmAppearance : public KindEditor<clsAppearance>
{
    Q_OBJECT
public:
    frmAppearance(Session &session, clsAppearance &gene, QWidget *mainWindow);

    QComboBox *lstRegion = nullptr;
    QComboBox *lstVariety = nullptr;
    QComboBox *lstGenus = nullptr;

protected:
    void LoadEditor() override;
};
