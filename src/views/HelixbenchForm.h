#pragma once
#include <QMainWindow>

class Session;
class QTabWidget;
class QLabel;
class QMenu;
class QAction;
class ChemicalTab;
class PoseTab;
class GenotypeTab;
class OrganViewTab;
class GeneEditorTab;
class ExportTab;
class HelpSystem;

// The main window: the one window that lasts for the whole run.
class HelixbenchForm : public QMainWindow
{
    Q_OBJECT
public:
    explicit HelixbenchForm(Session &session, QWidget *parent = nullptr);

    // Start-up, in its order. appDirectory is the program's folder.
    void Startup(const QString &appDirectory);

    // Makes the widgets of a tab of SSTab1 (by its number), as entering it does; a tab made
    // once is kept. The cover is made with the window.
    void BuildTab(int tab);
    void BuildAllTabs();

    Session &session;
    QTabWidget *SSTab1 = nullptr;
    QLabel *VersionLabel = nullptr;
    QLabel *StatusPanel[4] = {nullptr, nullptr, nullptr, nullptr}; // panels 1..3

    QMenu *gappFile = nullptr;
    QMenu *gappAdvanced = nullptr;
    QMenu *gappWindow = nullptr;
    QMenu *gappHelp = nullptr;

    GenotypeTab *genotypeTab = nullptr;
    GeneEditorTab *geneEditorTab = nullptr;
    OrganViewTab *organViewTab = nullptr;
    ChemicalTab *chemicalTab = nullptr;
    PoseTab *poseTab = nullptr;
    ExportTab *exportTab = nullptr;

    // The help file, the help window and F1 in every window.
    HelpSystem *Help = nullptr;

    // Creates a menu action named and captioned as given, connected to slot.
    template <typename F> QAction *AddAction(QMenu *menu, const char *name, const QString &caption, F slot);

protected:
    void closeEvent(QCloseEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void BuildTabs();
    void BuildMenus();
    // The Help menu, and F1 of the main window leading to the page of the tab shown.
    void BuildHelpMenu();
    void BuildStatusBar();
    QWidget *BuildCoverTab();
    void SetTabMargins(QWidget *page);
    void OpenOptions();
    bool ConfirmQuit();
    // Lays SSTab1 out anew in each direction only while the window is big enough for it;
    // below that the tabs keep their last size and the window clips them.
    void LayOutTabs();

    QWidget *canvas = nullptr;
    bool tabsLaidOut = false; // the first layout takes the whole canvas, whatever its size
};
