#pragma once
#include "core/genes/Biochemistry.h"
#include "editors/KindEditor.h"

class ChemicalCombo;
class QScrollBar;

// The editor of an initial concentration: one chemical and its level at birth.
class frmInject : public KindEditor<clsInject>
{
    Q_OBJECT
public:
    frmInject(Session &session, clsInject &inject, QWidget *mainWindow);

    ChemicalCombo *lstChem = nullptr;
    QScrollBar *scrConc = nullptr;

protected:
    void LoadEditor() override;
};
