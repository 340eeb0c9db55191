#pragma once
#include "core/genes/Biochemistry.h"
#include "editors/KindEditor.h"

class ChemicalCombo;
class QLineEdit;
class TimeSlider;

// The editor of a chemical reaction, written as a sum: two reactants on the upper line, "="
// and two products on the lower one, each an amount and a chemical; below them the rate as a
// time slider.
class frmReaction : public KindEditor<clsReaction>
{
    Q_OBJECT
public:
    frmReaction(Session &session, clsReaction &reaction, QWidget *mainWindow);

    // Places 0 and 1 are the reactants, 2 and 3 the products.
    QLineEdit *txtConc[4] = {};
    ChemicalCombo *lstChem[4] = {};
    TimeSlider *scrRate = nullptr;

protected:
    void LoadEditor() override;

private:
    QWidget *BuildDetails();
    void BindFields();

    // The stored rate rounds past the slider's last position (252 and above): the slider
    // stands at its end and the rate is kept until the slider moves.
    bool rateBeyondSlider = false;
};
