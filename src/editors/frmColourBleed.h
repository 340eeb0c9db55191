#pragma once
#include "core/genes/BodyGenes.h"
#include "editors/KindEditor.h"

class QScrollBar;

// The editor of a pigment bleed gene: rotation and swap of the skin's colour.
class frmColourBleed : public KindEditor<clsColourBleed>
{
    Q_OBJECT
public:
    frmColourBleed(Session &session, clsColourBleed &bleed, QWidget *mainWindow);

    QScrollBar *scrRotation = nullptr;
    QScrollBar *scrSwap = nullptr;
};
