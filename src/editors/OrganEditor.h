#pragma once
#include "core/genes/BodyGenes.h"
#include "editors/KindEditor.h"

class QLineEdit;
class QScrollBar;

// What the organ and brain organ editors share: the five fields of an organ gene in one
// frame. The two dialogs differ only in their kind, which gives each its own name.
class OrganEditor : public KindEditor<OrganGene>
{
    Q_OBJECT
public:
    QScrollBar *scrClockRate = nullptr;
    QScrollBar *scrLTRateChange = nullptr;
    // No read-out: moving it leaves the status bar as it was.
    QScrollBar *scrLifeForce = nullptr;
    // Number boxes, tidied to a whole number from 0 to 255 on every change.
    QLineEdit *BioTickText = nullptr;
    QLineEdit *ATPText = nullptr;

protected:
    OrganEditor(Session &session, OrganGene &organ, QWidget *mainWindow, GeneKind kind);
};
