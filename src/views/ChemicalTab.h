#pragma once
#include <QWidget>

class Session;
class HelixbenchForm;
class QAction;
class QGroupBox;
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

// The "Biochemistry" tab: the chemical list, its count line, its commands and pop-up menu.
class ChemicalTab : public QWidget
{
    Q_OBJECT
public:
    ChemicalTab(Session &session, HelixbenchForm &mainWindow);

    QGroupBox *BC_frame = nullptr;
    QTreeWidget *ChemicalListView = nullptr;
    QLabel *ChemCountLabel = nullptr;
    QPushButton *AddChemicalCommand = nullptr;
    QPushButton *AddHereCommand = nullptr;
    QPushButton *DeleteChemicalCommand = nullptr;
    QPushButton *RenameChemicalCommand = nullptr;
    QPushButton *CaptionChemicalCommand = nullptr;

    QMenu *mnuChemicalPopUp = nullptr;
    QAction *mnuChemicalRename = nullptr;
    QAction *mnuChemicalEditDescription = nullptr;
    QAction *mnuChemicalDelete = nullptr;
    QAction *mnuChemicalAddHere = nullptr;
    QAction *mnuChemicalAdd = nullptr;
    QAction *mnuChemicalSaveChanges = nullptr;

    // All 256 rows anew from the list.
    void FillChemicalView();
    // The count line of chemicals in use and slots free.
    void ShowChemicalCount();

    // The commands of the buttons and the pop-up menu.
    void AddChemical();
    void AddChemicalHere();
    void DeleteChemical();
    void RenameChemical();
    void CaptionChemical();
    // "Save Chemical List" and the pop-up's "Save Changes": saves if the list changed.
    void SaveChemicalListCommand();

    // The pop-up menu at a point of the screen, its save entry following the changed flag.
    void ShowPopUp(const QPoint &globalPos);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    // The selected slot, or -1 after saying that nothing is selected.
    int SelectedSlot();
    // After a stored change: the slot's row and the count line.
    void ShowStored(int slot);

    Session &session;
    HelixbenchForm &mainWindow;
};
