#pragma once
#include "widgets/LazyPage.h"

#include <QStringList>

#include <functional>

class Session;
class QAction;
class QGroupBox;
class FlowLayout;
class QLabel;
class QMenu;
class QPushButton;
class QTreeWidget;

// Rewrites the one row of a chemical (kind 1) or pose (kind 2) list view from its list: the
// first row whose number column reads the number in plain decimal.
void UpdateChemicalPoseInPlace(Session &session, int kind, QTreeWidget *view, int number);

// Shared by the chemical and pose views: a report list of three columns, one row selected
// at a time, selected as a whole row, never sorted.
QTreeWidget *MakeNameListView(QWidget *parent, const char *name, const QStringList &columns);
// The slot of the selected row of such a view (row i is slot i), or -1 with none selected.
int SelectedNameListSlot(const QTreeWidget *view);

// What tells the chemical tab from the pose tab: its kind, its widgets' names and texts.
struct NameListTabLayout
{
    int kind;                 // 1 chemicals, 2 poses
    const char *tabName;      // "ChemicalTab"
    const char *frameName;    // "BC_frame"
    QString frameTitle;       // "Chemical List"
    const char *viewName;     // "ChemicalListView"
    QStringList columns;      // the three column titles
    const char *countName;    // "ChemCountLabel"
    QString emptyCountText;   // the count line before the list is filled
    const char *popUpName;    // "mnuChemicalPopUp"
    QString popUpTitle;       // "PopUp2"
};

// A tab holding one of the two name lists of 256 slots: its view in a frame, the count line
// with the command buttons beside it, and the pop-up menu of the view. The subclasses add
// their buttons and menu entries and say which list they show. The widgets are made when the
// tab is first shown or a command needs them, and show the list as it stands then.
class NameListTab : public LazyPage
{
    Q_OBJECT
public:
    // All 256 rows anew from the list (once the view exists).
    void FillView();
    // The count line of the slots in use and free.
    void ShowCount();
    // "Save … List" and the pop-up's "Save Changes": saves if the list changed.
    void SaveListCommand();
    // The pop-up menu at a point of the screen, its save entry following the changed flag.
    void ShowPopUp(const QPoint &globalPos);

    QGroupBox *frame = nullptr;
    QTreeWidget *listView = nullptr;
    QLabel *countLabel = nullptr;
    QMenu *popUp = nullptr;
    QAction *saveEntry = nullptr;

protected:
    NameListTab(Session &session, const NameListTabLayout &layout);

    void BuildPage() override;
    // The subclass's buttons and pop-up entries, made with the rest of the widgets.
    virtual void BuildCommands() = 0;

    // What the list gives to a row and the count line, and whether it has unsaved changes.
    QString NameText(int slot) const;
    QString CaptionText(int slot) const;
    bool ListChanged() const;

    // A command button at the end of the count line.
    QPushButton *AddButton(const char *name, const QString &caption, const std::function<void()> &command);
    // An entry at the end of the pop-up menu.
    QAction *AddEntry(const char *name, const QString &caption, const std::function<void()> &command);
    // The last entry, "&Save Changes", after a separator.
    void AddSaveEntry(const char *name);

    // Runs a list command on the selected slot, after saying that nothing is selected when
    // no row is; shows the slot again if the command stored a change.
    void OnSelectedSlot(const std::function<bool(int)> &command);
    // After a stored change: the slot's row, the count line and the save entry.
    void ShowStored(int slot);

    bool eventFilter(QObject *watched, QEvent *event) override;

    Session &session;

private:
    const NameListTabLayout design;
    const int kind;
    // The lists have been loaded and their views asked to fill.
    bool listsLoaded = false;
    FlowLayout *bottom = nullptr;
};
