#pragma once
#include "core/genes/Biochemistry.h"
#include "editors/KindEditor.h"

class AttachmentCombos;
class ChemicalCombo;
class QCheckBox;
class QComboBox;
class QScrollBar;

// The editor of a chemical receptor: the place it writes to (organ, tissue, locus), the
// chemical it senses, its threshold, nominal output and gain, and two flags.
class frmReceptor : public KindEditor<clsReceptor>
{
    Q_OBJECT
public:
    frmReceptor(Session &session, clsReceptor &receptor, QWidget *mainWindow);

    // Refills the tissues (and for the current organ the loci) for the organ selected.
    void lstOrgan_Click();

    AttachmentCombos *Place = nullptr;
    QComboBox *lstOrgan = nullptr, *lstTissue = nullptr, *lstLocus = nullptr;
    ChemicalCombo *lstChem = nullptr;
    QScrollBar *scrThreshold = nullptr, *scrNominal = nullptr, *scrGain = nullptr;
    QCheckBox *chkFlags[2] = {};

protected:
    void LoadEditor() override;
};
