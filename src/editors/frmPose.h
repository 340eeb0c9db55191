#pragma once
#include "core/genes/BodyGenes.h"
#include "editors/KindEditor.h"

class QComboBox;
class QLineEdit;

// The editor of a pose gene: which pose of the pose list it defines, and its pose string of
// up to 15 characters (a shorter one is filled up with "X" only when the genome is encoded).
class frmPose : public KindEditor<clsPose>
{
    Q_OBJECT
public:
    frmPose(Session &session, clsPose &gene, QWidget *mainWindow);

    QComboBox *lstPose = nullptr;
    QLineEdit *txtPose = nullptr;

protected:
    void LoadEditor() override;
};
