#pragma once
#include <QMainWindow>

class Session;
class QTabWidget;
class QLabel;
class QMenu;
class QAction;

// The main window: the one window that lasts for the whole run.
class HelixbenchForm : public QMainWindow
{
    Q_OBJECT
public:
    explicit HelixbenchForm(Session &session, QWidget *parent = nullptr);

    // Start-up, in its order. appDirectory is the program's folder.
    void Startup(const QString &appDirectory);

    Session &session;
    QTabWidget *SSTab1 = nullptr;
    QLabel *VersionLabel = nullptr;
    QLabel *StatusPanel[4] = {nullptr, nullptr, nullptr, nullptr}; // panels 1..3

    QMenu *gappFile = nullptr;
    QMenu *gappAdvanced = nullptr;
    QMenu *gappWindow = nullptr;
    QMenu *gappHelp = nullptr;

    // Creates a menu action named and captioned as given, connected to slot.
    template <typename F> QAction *AddAction(QMenu *menu, const char *name, const QString &caption, F slot);

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void BuildTabs();
    void BuildMenus();
    void BuildStatusBar();
    QWidget *BuildCoverTab();
    void OpenOptions();
    bool ConfirmQuit();
};
