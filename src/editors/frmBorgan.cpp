#include "editors/frmBorgan.h"

frmBorgan::frmBorgan(Session &s, clsBorgan &organ, QWidget *mainWin)
    : OrganEditor(s, organ, mainWin, GeneKind::BrainOrgan)
{
}
