#pragma once
#include "editors/OrganEditor.h"

// The editor of an organ gene.
class frmOrgan : public OrganEditor
{
    Q_OBJECT
public:
    frmOrgan(Session &session, clsOrgan &organ, QWidget *mainWindow);
};
