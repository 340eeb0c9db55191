#pragma once
#include <QDialog>

class Session;
class QCheckBox;
class QLabel;
class QLineEdit;

// "Advanced Options": the workbench's preferences and the key of the game's settings.
// Close takes the dialog's state over; Cancel drops it.
class frmOptions : public QDialog
{
    Q_OBJECT
public:
    frmOptions(Session &session, QWidget *parent = nullptr);

    QCheckBox *DefaultCaptionsCheckBox;
    QLabel *GeneticsDrawerLabel;
    QCheckBox *CompatibilityCheckBox;
    QLineEdit *RegistryCompany;
    QLineEdit *RegistryVersion;
    QLineEdit *RegistryProduct;

private:
    void ResetToRegistry();
    void TakeOver();
    Session &session;
};
