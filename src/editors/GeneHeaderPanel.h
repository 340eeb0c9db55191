#pragma once
#include <QGroupBox>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QRadioButton;
class QButtonGroup;

// The "Gene Header" frame that every gene editor carries: life stage, mutation flags,
// sex and the degree of mutability. It holds the controls only; GeneEditor binds them.
class GeneHeaderPanel : public QGroupBox
{
    Q_OBJECT
public:
    // withOrganLabel adds "Organ:" and OrganIDLabel (receptor, emitter and reaction editors).
    explicit GeneHeaderPanel(bool withOrganLabel, QWidget *parent = nullptr);

    QComboBox *lstSwitchOn = nullptr;
    QCheckBox *chkDuplicable = nullptr;
    QCheckBox *chkMutable = nullptr;
    QLineEdit *txtMutability = nullptr;
    QCheckBox *chkRemovable = nullptr;
    QRadioButton *optSex[3] = {nullptr, nullptr, nullptr};
    QCheckBox *chkIgnore = nullptr;
    QLabel *OrganIDLabel = nullptr; // only with the organ label

    // Index of the selected optSex option, 0 if none.
    int SexIndex() const;
    // Enables or disables every input of the panel (a genus gene's header is shown only).
    void SetInputEnabled(bool enabled);

private:
    QButtonGroup *sexGroup = nullptr;
};
