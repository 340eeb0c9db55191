#pragma once
#include "core/genes/BodyGenes.h"
#include "editors/KindEditor.h"

class QComboBox;
class QLabel;

// The editor of a gait gene: which gait (the normal one or a special gait that a
// sensori-motor receptor switches on) and the up to eight poses of its walking animation.
// The pose combos are filled once, when the editor loads: a pose renamed while it is open
// keeps its old text here.
class frmGait : public KindEditor<clsGait>
{
    Q_OBJECT
public:
    static constexpr int Poses = 8;

    frmGait(Session &session, clsGait &gene, QWidget *mainWindow);

    QComboBox *lstDrive = nullptr;
    QComboBox *lstPose[Poses] = {};
    QLabel *lblAnimation = nullptr;
    QLabel *lblSwitching = nullptr;

protected:
    void LoadEditor() override;
};
