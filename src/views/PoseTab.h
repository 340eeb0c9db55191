#pragma once
#include <QWidget>

class Session;
class HelixbenchForm;

class PoseTab : public QWidget
{
    Q_OBJECT
public:
    PoseTab(Session &session, HelixbenchForm &mainWindow);

private:
    Session &session;
    HelixbenchForm &mainWindow;
};
