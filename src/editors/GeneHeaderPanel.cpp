#include "editors/GeneHeaderPanel.h"

#include "widgets/FormBuilder.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>

GeneHeaderPanel::GeneHeaderPanel(bool withOrganLabel, QWidget *parent)
    : QGroupBox(QStringLiteral("Gene Header"), parent)
{
    setObjectName(QStringLiteral("fraGeneHeader"));

    lstSwitchOn = new QComboBox(this);
    lstSwitchOn->setObjectName(QStringLiteral("lstSwitchOn"));
    // Sized for the longest stage from the start, so the size the cascade places stays.
    lstSwitchOn->setMinimumContentsLength(11);
    lstSwitchOn->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    lstSwitchOn->setToolTip(QStringLiteral("Life stage at which the gene switches on"));

    auto check = [this](const char *name, const QString &caption, const QString &tip) {
        auto *box = new QCheckBox(caption, this);
        box->setObjectName(QLatin1String(name));
        box->setChecked(true);
        box->setToolTip(tip);
        return box;
    };
    // Made in the order they stand, row by row, which is the order Tab reaches them.
    chkMutable = check("chkMutable", QStringLiteral("Mut.      Degree:"), QStringLiteral("The gene may mutate"));
    txtMutability = new QLineEdit(QStringLiteral("-"), this);
    txtMutability->setObjectName(QStringLiteral("txtMutability"));
    txtMutability->setMaxLength(4);
    Form::FitDigits(txtMutability, 4, 5);
    txtMutability->setToolTip(QStringLiteral("Degree of mutability, 0 to 255"));
    chkDuplicable = check("chkDuplicable", QStringLiteral("Dup"), QStringLiteral("The gene may be duplicated"));
    chkRemovable = check("chkRemovable", QStringLiteral("Cut"), QStringLiteral("The gene may be cut out"));

    sexGroup = new QButtonGroup(this);
    const char *sexCaptions[3] = {"B", "M", "F"};
    const char *sexTips[3] = {"Expressed in both sexes", "Expressed in males only", "Expressed in females only"};
    auto *sexRow = new QHBoxLayout;
    sexRow->setSpacing(4);
    for (int i = 0; i < 3; ++i) {
        optSex[i] = new QRadioButton(QLatin1String(sexCaptions[i]), this);
        optSex[i]->setObjectName(QStringLiteral("optSex_%1").arg(i));
        optSex[i]->setToolTip(QLatin1String(sexTips[i]));
        sexGroup->addButton(optSex[i], i);
        sexRow->addWidget(optSex[i]);
    }
    optSex[0]->setChecked(true);
    chkIgnore = check("chkIgnore", QStringLiteral("Do not express (carry)"),
                      QStringLiteral("The gene is carried but not expressed"));

    auto *grid = new QGridLayout(this);
    grid->setHorizontalSpacing(10);
    auto *switchLabel = new QLabel(QStringLiteral("Switch on:"), this);
    switchLabel->setBuddy(lstSwitchOn);
    grid->addWidget(switchLabel, 0, 0);
    grid->addWidget(lstSwitchOn, 0, 1);
    auto *mutRow = new QHBoxLayout;
    mutRow->setSpacing(2);
    mutRow->addWidget(chkMutable);
    mutRow->addWidget(txtMutability);
    grid->addLayout(mutRow, 0, 2);
    grid->addWidget(chkDuplicable, 0, 3);
    grid->addWidget(chkRemovable, 0, 4);

    auto *sexLabel = new QLabel(QStringLiteral("Sex:"), this);
    grid->addWidget(sexLabel, 1, 0);
    grid->addLayout(sexRow, 1, 1);
    grid->addWidget(chkIgnore, 1, 2, 1, 3);

    if (withOrganLabel) {
        grid->addWidget(new QLabel(QStringLiteral("Organ:"), this), 2, 0);
        OrganIDLabel = new QLabel(QStringLiteral("Undefined"), this);
        OrganIDLabel->setObjectName(QStringLiteral("OrganIDLabel"));
        OrganIDLabel->setTextInteractionFlags(Qt::TextSelectableByMouse);
        grid->addWidget(OrganIDLabel, 2, 1, 1, 4);
    }
    grid->setColumnStretch(5, 1);
}

int GeneHeaderPanel::SexIndex() const
{
    const int id = sexGroup->checkedId();
    return id < 0 ? 0 : id;
}

void GeneHeaderPanel::SetInputEnabled(bool enabled)
{
    for (QWidget *w : std::initializer_list<QWidget *>{lstSwitchOn, chkDuplicable, chkMutable, txtMutability,
                                                       chkRemovable, optSex[0], optSex[1], optSex[2], chkIgnore})
        w->setEnabled(enabled);
}
