#pragma once
#include "widgets/LazyPage.h"

#include <memory>

class Session;
class MacroLink;
class QAction;
class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QMenu;
class QPushButton;
class QTreeWidget;

// The "Export" tab: laying the bench's genome as an egg in the running game, removing the
// game's selected pet, and the Scriptorium of named macros and one-shot macros. Its widgets
// are made when the tab is first shown; the script list and the egg controls are filled then
// from the lists as they stand, which change only through this tab.
class ExportTab : public LazyPage
{
    Q_OBJECT
public:
    static constexpr int ScriptSlots = 20;
    static constexpr int FewestGenes = 20; // the smallest genome that may be laid
    static const QString EmptySlot;        // "<empty>"

    explicit ExportTab(Session &session);
    ~ExportTab() override;

    // "Interface Control"
    QGroupBox *IC_frame = nullptr;
    QComboBox *EggColourCombo = nullptr;
    QComboBox *SexCombo = nullptr;
    QCheckBox *VirginBirthCheck = nullptr;
    QLineEdit *ParentMoniker = nullptr;
    QPushButton *ExportMeCommand = nullptr;
    QPushButton *RemoveSelectedMelkCommand = nullptr;
    QLabel *InjectStatusLabel = nullptr;
    // The link's hidden data buffer.
    QLineEdit *DDE = nullptr;

    // "Scriptorium -- Advanced use only"
    QGroupBox *Frame7 = nullptr;
    QTreeWidget *ScriptListView = nullptr;
    QLabel *ScriptStatusLabel = nullptr;
    QPushButton *AddAutoScriptCommand = nullptr;
    QPushButton *RemoveAutoScriptCommand = nullptr;
    QPushButton *UpdateScriptCommand = nullptr;
    QLineEdit *TestScriptText = nullptr;
    QPushButton *TestScriptCommand = nullptr;
    QMenu *mnuAutoScriptPopUp = nullptr;
    QAction *mnuAutoScriptRun = nullptr;
    QAction *mnuAutoScriptDelete = nullptr;

    // Slots of the script list in use, as of the last refresh.
    qint16 ScriptCount = 0;

    MacroLink &Link() { return *link; }

    // Start-up: the script view and its count line, and the egg controls.
    void FillExportViews();

    // Commands.
    void LayEgg();
    void RemoveSelectedMelk();
    void AddAutoScript();
    void RemoveAutoScript();
    void RunSelectedAutoScript();
    void InjectOneShot();

    // Runs a macro the ask-and-answer way; gives the game's reply or a text that begins
    // with "Fault:".
    QString RunAutoScript(const QString &macro);
    void RefreshScriptList();
    void ShowScriptCount();

protected:
    void BuildPage() override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QGroupBox *BuildInterfaceControl();
    QGroupBox *BuildScriptorium();
    // The slot of the selected row, found by its name; -1 after telling the user why not.
    int SelectedScriptSlot(const QString &purpose);

    Session &session;
    std::unique_ptr<MacroLink> link;
    // The lists have been loaded and the views asked to fill.
    bool viewsLoaded = false;
};
