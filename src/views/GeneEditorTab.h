#pragma once
#include <QWidget>

class Session;
class HelixbenchForm;

class GeneEditorTab : public QWidget
{
    Q_OBJECT
public:
    GeneEditorTab(Session &session, HelixbenchForm &mainWindow);

private:
    Session &session;
    HelixbenchForm &mainWindow;
};
