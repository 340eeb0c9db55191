#pragma once
#include <QWidget>

class Session;
class HelixbenchForm;

class GenotypeTab : public QWidget
{
    Q_OBJECT
public:
    GenotypeTab(Session &session, HelixbenchForm &mainWindow);

private:
    Session &session;
    HelixbenchForm &mainWindow;
};
