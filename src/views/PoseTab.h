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

// The "Poses" tab: the pose list, its count line, its commands and pop-up menu.
class PoseTab : public QWidget
{
    Q_OBJECT
public:
    PoseTab(Session &session, HelixbenchForm &mainWindow);

    QGroupBox *PO_frame = nullptr;
    QTreeWidget *PoseListView = nullptr;
    QLabel *PoseCountLabel = nullptr;
    QPushButton *DeletePoseCommand = nullptr;
    QPushButton *RenamePoseCommand = nullptr;
    QPushButton *CaptionPoseCommand = nullptr;

    QMenu *mnuPosePopUp = nullptr;
    QAction *mnuPoseRename = nullptr;
    QAction *mnuPoseEditDescription = nullptr;
    QAction *mnuPoseDelete = nullptr;
    QAction *mnuPoseSaveChanges = nullptr;

    // All 256 rows anew from the list.
    void FillPoseView();
    // The count line of poses in use and slots free.
    void ShowPoseCount();

    // The commands of the buttons and the pop-up menu.
    void DeletePose();
    void RenamePose();
    void CaptionPose();
    // "Save Pose Descriptions" and the pop-up's "Save Changes": saves if the list changed.
    void SavePoseListCommand();

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
