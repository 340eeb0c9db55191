#pragma once
#include <QWidget>

class Session;
class HelixbenchForm;

class ExportTab : public QWidget
{
    Q_OBJECT
public:
    ExportTab(Session &session, HelixbenchForm &mainWindow);

private:
    Session &session;
    HelixbenchForm &mainWindow;
};
