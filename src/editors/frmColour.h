#pragma once
#include "core/genes/BodyGenes.h"
#include "editors/KindEditor.h"

class QComboBox;
class QScrollBar;

// The editor of a pigment gene: which of the three pigments, and how strongly.
class frmColour : public KindEditor<clsColour>
{
    Q_OBJECT
public:
    frmColour(Session &session, clsColour &colour, QWidget *mainWindow);

    QComboBox *lstPigment = nullptr;
    QScrollBar *scrIntensity = nullptr;
};
