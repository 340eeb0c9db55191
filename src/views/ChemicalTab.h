#pragma once
#include <QWidget>

class Session;
class HelixbenchForm;

class ChemicalTab : public QWidget
{
    Q_OBJECT
public:
    ChemicalTab(Session &session, HelixbenchForm &mainWindow);

private:
    Session &session;
    HelixbenchForm &mainWindow;
};
