#pragma once
#include "core/genes/BodyGenes.h"
#include "editors/KindEditor.h"

class ChemicalCombo;
class QCheckBox;
class QComboBox;
class QScrollBar;

// The editor of a stimulus gene: which of the game's stimuli it answers, the sensory neurone
// that fires (or none), three feature flags, and up to four chemicals released with their
// amounts.
class frmStimulus : public KindEditor<clsStimulus>
{
    Q_OBJECT
public:
    frmStimulus(Session &session, clsStimulus &stimulus, QWidget *mainWindow);

    QComboBox *lstStim = nullptr;
    QScrollBar *scrSignificance = nullptr;
    QComboBox *lstNeu = nullptr;
    QScrollBar *scrIntensity = nullptr;
    QCheckBox *chkFeatures[3] = {};
    ChemicalCombo *lstChem[4] = {};
    QScrollBar *scrAmount[4] = {};

protected:
    void LoadEditor() override;

private:
    QWidget *BuildStimulusFrame(QWidget *parent);
    QWidget *BuildChemicalsFrame(QWidget *parent);
    void BindFields();
};
