#include "settings/frmOptions.h"

#include "base/Text.h"
#include "core/Session.h"
#include "widgets/FormBuilder.h"
#include "widgets/Placement.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

frmOptions::frmOptions(Session &s, QWidget *parent) : QDialog(parent), session(s)
{
    setObjectName(QStringLiteral("frmOptions"));
    setWindowTitle(QStringLiteral("Advanced Options"));
    setModal(false);

    auto *general = new QGroupBox(QStringLiteral("General Options"), this);
    DefaultCaptionsCheckBox = new QCheckBox(QStringLiteral("Use default caption files only"), general);
    DefaultCaptionsCheckBox->setObjectName(QStringLiteral("DefaultCaptionsCheckBox"));
    GeneticsDrawerLabel = new QLabel(QStringLiteral("(unset)"), general);
    GeneticsDrawerLabel->setObjectName(QStringLiteral("GeneticsDrawerLabel"));
    GeneticsDrawerLabel->setFrameShape(QFrame::StyledPanel);
    GeneticsDrawerLabel->setTextInteractionFlags(Qt::TextSelectableByMouse);
    QPushButton *reset = Form::Button(general, QStringLiteral("ResetToRegistryButton"), QStringLiteral("&Reset to Arkenfold Setting"));
    auto *gl = new QVBoxLayout(general);
    gl->addWidget(DefaultCaptionsCheckBox);
    gl->addWidget(new QLabel(QStringLiteral("Current Genetics Drawer:"), general));
    gl->addWidget(GeneticsDrawerLabel);
    gl->addWidget(reset, 0, Qt::AlignLeft);

    auto *compat = new QGroupBox(QStringLiteral("Compatibility"), this);
    CompatibilityCheckBox = new QCheckBox(QStringLiteral("Load using Arkenfold 1 DNA-1 format"), compat);
    CompatibilityCheckBox->setObjectName(QStringLiteral("CompatibilityCheckBox"));
    (new QVBoxLayout(compat))->addWidget(CompatibilityCheckBox);

    auto *keys = new QGroupBox(QStringLiteral("Registry keys for locating Arkenfold"), this);
    RegistryCompany = new QLineEdit(keys);
    RegistryCompany->setObjectName(QStringLiteral("RegistryCompany"));
    RegistryVersion = new QLineEdit(keys);
    RegistryVersion->setObjectName(QStringLiteral("RegistryVersion"));
    RegistryProduct = new QLineEdit(keys);
    RegistryProduct->setObjectName(QStringLiteral("RegistryProduct"));
    auto *warning = new QLabel(QStringLiteral("Press F1 now for an explanation of the above. DO NOT CHANGE THESE "
                                              "UNTIL YOU ARE AWARE OF THEIR FUNCTION"),
                               keys);
    warning->setWordWrap(true);
    warning->setStyleSheet(QStringLiteral("color: red"));
    auto *kl = new QFormLayout(keys);
    kl->addRow(QStringLiteral("Company:"), RegistryCompany);
    kl->addRow(QStringLiteral("Version:"), RegistryVersion);
    kl->addRow(QStringLiteral("Product ID:"), RegistryProduct);
    kl->addRow(warning);

    QPushButton *closeButton = Form::Button(this, QStringLiteral("CloseCommand"), QStringLiteral("&Close"));
    QPushButton *cancelButton = Form::Button(this, QStringLiteral("CancelCommand"), QStringLiteral("Cancel"));
    closeButton->setDefault(true);
    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(closeButton);
    buttons->addWidget(cancelButton);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(general);
    layout->addWidget(compat);
    layout->addWidget(keys);
    layout->addLayout(buttons);

    connect(reset, &QPushButton::clicked, this, &frmOptions::ResetToRegistry);
    connect(closeButton, &QPushButton::clicked, this, [this] {
        TakeOver();
        accept();
    });
    connect(cancelButton, &QPushButton::clicked, this, &QDialog::reject);

    DefaultCaptionsCheckBox->setChecked(session.UseDefaultCaptions.Checked());
    CompatibilityCheckBox->setChecked(session.CompatibilityMode.Checked());
    RegistryCompany->setText(session.RegistryCompany);
    RegistryVersion->setText(session.RegistryVersion);
    RegistryProduct->setText(session.RegistryProduct);
    GeneticsDrawerLabel->setText(session.LastGenomeDirectory);
    adjustSize();
    Placement::CentreForm(this);
}

void frmOptions::ResetToRegistry()
{
    const QString folder = session.ReadGameSetting(QStringLiteral("Genetics Directory"));
    if (folder != Session::ErrorMark) {
        GeneticsDrawerLabel->setText(folder);
        return;
    }
    session.ShowError(QStringLiteral("Error reading registry key -- defaulting") + Text::CRLF
                      + QStringLiteral("to current directory."));
    GeneticsDrawerLabel->setText(session.AppDirectory);
}

void frmOptions::TakeOver()
{
    session.UseDefaultCaptions = StoredSwitch::FromCheckBox(DefaultCaptionsCheckBox->isChecked());
    session.CompatibilityMode = StoredSwitch::FromCheckBox(CompatibilityCheckBox->isChecked());
    session.RegistryCompany = RegistryCompany->text();
    session.RegistryVersion = RegistryVersion->text();
    session.RegistryProduct = RegistryProduct->text();
    session.LastGenomeDirectory = GeneticsDrawerLabel->text();
}
