#include "editors/frmOrgan.h"

frmOrgan::frmOrgan(Session &s, clsOrgan &organ, QWidget *mainWin) : OrganEditor(s, organ, mainWin, GeneKind::Organ) {}
