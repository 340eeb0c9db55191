#pragma once
#include "core/genes/Biochemistry.h"
#include "editors/KindEditor.h"

class AttachmentCombos;
class ChemicalCombo;
class QCheckBox;
class QComboBox;
class QRadioButton;
class QScrollBar;

// The editor of a chemical emitter: the place it reads (organ, tissue, locus), analogue or
// digital output, the chemical it emits, its sampling rate, gain and threshold, and whether
// the source is cleared after reading and the signal inverted.
class frmEmitter : public KindEditor<clsEmitter>
{
    Q_OBJECT
public:
    frmEmitter(Session &session, clsEmitter &emitter, QWidget *mainWindow);

    // Refills the tissues (and for the current organ the loci) for the organ selected.
    void lstOrgan_Click();

    AttachmentCombos *Place = nullptr;
    QComboBox *lstOrgan = nullptr, *lstTissue = nullptr, *lstLocus = nullptr;
    QRadioButton *optAnalogue = nullptr, *optDigital = nullptr;
    ChemicalCombo *lstChem = nullptr;
    QScrollBar *scrRate = nullptr, *scrGain = nullptr, *scrThreshold = nullptr;
    QCheckBox *chkFlags = nullptr, *chkInvert = nullptr;

protected:
    void LoadEditor() override;
};
