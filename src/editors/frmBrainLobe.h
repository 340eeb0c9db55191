#pragma once
#include "core/genes/BrainLobe.h"
#include "editors/KindEditor.h"

#include <QHash>
#include <functional>

class TimeSlider;
class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QScrollBar;
class QTabWidget;

// The editor of a brain lobe gene: place and size of the lobe, its cell bodies, and twice
// over (index 0 and 1) the growth and dynamics of its two dendrite types, with the thirteen
// state variable rules. The rule buttons write into the gene as soon as a rule dialog is
// left with Ok; everything else reaches the gene when the editor closes.
class frmBrainLobe : public KindEditor<clsBrainLobe>
{
    Q_OBJECT
public:
    frmBrainLobe(Session &session, clsBrainLobe &lobe, QWidget *mainWindow);

    // Writes the text of the twelve dendrite rules into their labels.
    void ShowSVRules() override;

    // The lobe's rank among the lobes of the genome, taken when the editor loads.
    int LobeRank() const { return rank; }

    QTabWidget *SSTab1 = nullptr, *SSTab2 = nullptr, *SSTab3 = nullptr;

    // General
    QLabel *lblInfo = nullptr;
    QLineEdit *txtLobeNumber = nullptr;
    QLineEdit *txtX = nullptr, *txtY = nullptr, *txtWidth = nullptr, *txtHeight = nullptr;
    QLabel *lblNum = nullptr;
    QRadioButton *optPerceptible[3] = {};

    // Cell Body
    QScrollBar *scrThreshold = nullptr;
    TimeSlider *scrLeakage = nullptr;
    QScrollBar *scrRestState = nullptr, *scrAttenuation = nullptr;
    QCheckBox *chkFlags[4] = {};
    QPushButton *btnStateRule = nullptr;
    QLabel *lblStateRule = nullptr;

    // Growth of dendrite type i
    QComboBox *lstSource[2] = {};
    QLineEdit *txtMin[2] = {}, *txtMax[2] = {};
    QComboBox *lstSpread[2] = {};
    QScrollBar *scrFanWidth[2] = {};
    QScrollBar *scrInitialLTWMin[2] = {}, *scrInitialLTWMax[2] = {};
    QScrollBar *scrInitialStrengthMin[2] = {}, *scrInitialStrengthMax[2] = {};
    QRadioButton *optMig0[2] = {}, *optMig1[2] = {}, *optMig2[2] = {};

    // Dynamics of dendrite type i
    TimeSlider *scrRelaxSus[2] = {}, *scrRelaxSTW[2] = {};
    QCheckBox *chkLTWRate[2] = {};
    QScrollBar *scrLTWRate[2] = {};
    QCheckBox *chkGainStrength[2] = {}, *chkLoseStrength[2] = {};
    QScrollBar *scrGainStrength[2] = {}, *scrLoseStrength[2] = {};
    QPushButton *btnGainStrengthRule[2] = {}, *btnLoseStrengthRule[2] = {};
    QLabel *lblGainStrengthRule[2] = {}, *lblLoseStrengthRule[2] = {};
    QPushButton *btnSusRule[2] = {}, *btnReinforceRule[2] = {}, *btnBPRule[2] = {}, *btnFPFule[2] = {};
    QLabel *lblSusRule[2] = {}, *lblReinforceRule[2] = {}, *lblBPRule[2] = {}, *lblFPRule[2] = {};

protected:
    void LoadEditor() override;

private:
    using RuleOf = std::function<::StateRule &(clsBrainLobe &)>;

    QWidget *BuildGeneralTab();
    QWidget *BuildCellBodyTab();
    QWidget *BuildGrowthTab(int i);
    QWidget *BuildDynamicsTab(int i);
    void BindFields();
    // A rule button and the label that shows its rule; the button edits the rule in the gene.
    QPushButton *RuleButton(const QString &name, const QString &caption, QLabel *&label, const QString &labelName,
                            RuleOf rule);
    void ShowRule(QLabel *label);
    void SizeChanged();
    void LinkSliders(QScrollBar *minimum, QScrollBar *maximum);

    QHash<QLabel *, RuleOf> rules;
    int rank = 0;
};
