#pragma once
#include <QWidget>

class Session;
class HelixbenchForm;

class OrganViewTab : public QWidget
{
    Q_OBJECT
public:
    OrganViewTab(Session &session, HelixbenchForm &mainWindow);

private:
    Session &session;
    HelixbenchForm &mainWindow;
};
