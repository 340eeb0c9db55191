#pragma once
#include "editors/OrganEditor.h"

// The editor of a brain organ gene: the controls of the organ editor under its own name.
class frmBorgan : public OrganEditor
{
    Q_OBJECT
public:
    frmBorgan(Session &session, clsBorgan &organ, QWidget *mainWindow);
};
