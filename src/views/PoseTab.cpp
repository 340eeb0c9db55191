#include "views/PoseTab.h"

#include "app/Placement.h"
#include "core/Session.h"
#include "views/ChemicalTab.h"
#include "views/HelixbenchForm.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QMouseEvent>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

PoseTab::PoseTab(Session &s, HelixbenchForm &w) : session(s), mainWindow(w)
{
    setObjectName(QStringLiteral("PoseTab"));
    const int margin = Placement::TwipsToPixels(240, this);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(margin, margin, margin, margin);
    PO_frame = new QGroupBox(QStringLiteral("Pose List"), this);
    PO_frame->setObjectName(QStringLiteral("PO_frame"));
    layout->addWidget(PO_frame);

    auto *inner = new QVBoxLayout(PO_frame);
    PoseListView = MakeNameListView(PO_frame, "PoseListView",
                                    {QStringLiteral("Number"), QStringLiteral("Pose Name"),
                                     QStringLiteral("Pose Description")});
    PoseListView->viewport()->installEventFilter(this);
    inner->addWidget(PoseListView, 1);

    PoseCountLabel = new QLabel(QStringLiteral("No poses loaded"), PO_frame);
    PoseCountLabel->setObjectName(QStringLiteral("PoseCountLabel"));
    auto *bottom = new QHBoxLayout;
    bottom->addWidget(PoseCountLabel, 1);
    auto button = [this, bottom](const char *name, const QString &caption, void (PoseTab::*command)()) {
        auto *b = new QPushButton(caption, PO_frame);
        b->setObjectName(QString::fromLatin1(name));
        connect(b, &QPushButton::clicked, this, command);
        bottom->addWidget(b);
        return b;
    };
    DeletePoseCommand = button("DeletePoseCommand", QStringLiteral("&Delete"), &PoseTab::DeletePose);
    RenamePoseCommand = button("RenamePoseCommand", QStringLiteral("&Rename"), &PoseTab::RenamePose);
    CaptionPoseCommand = button("CaptionPoseCommand", QStringLiteral("&Edit Description"), &PoseTab::CaptionPose);
    inner->addLayout(bottom);

    mnuPosePopUp = new QMenu(QStringLiteral("PopUp3"), this);
    mnuPosePopUp->setObjectName(QStringLiteral("mnuPosePopUp"));
    auto entry = [this](const char *name, const QString &caption, void (PoseTab::*command)()) {
        QAction *a = mnuPosePopUp->addAction(caption);
        a->setObjectName(QString::fromLatin1(name));
        connect(a, &QAction::triggered, this, command);
        return a;
    };
    mnuPoseRename = entry("mnuPoseRename", QStringLiteral("&Rename"), &PoseTab::RenamePose);
    mnuPoseEditDescription =
        entry("mnuPoseEditDescription", QStringLiteral("&Edit Description"), &PoseTab::CaptionPose);
    mnuPoseDelete = entry("mnuPoseDelete", QStringLiteral("&Delete"), &PoseTab::DeletePose);
    mnuPosePopUp->addSeparator();
    mnuPoseSaveChanges = entry("mnuPoseSaveChanges", QStringLiteral("&Save Changes"), &PoseTab::SavePoseListCommand);
    mnuPosePopUp->setDefaultAction(mnuPoseRename);
    mnuPoseSaveChanges->setEnabled(session.PosesChanged);
    connect(mnuPosePopUp, &QMenu::aboutToShow, this, [this] { mnuPoseSaveChanges->setEnabled(session.PosesChanged); });

    connect(&session, &Session::ListViewsMustFill, this, [this] {
        FillPoseView();
        ShowPoseCount();
    });
}

void PoseTab::FillPoseView()
{
    const NameLists &lists = session.Lists;
    PoseListView->setUpdatesEnabled(false);
    PoseListView->setSortingEnabled(false);
    PoseListView->clear();
    QList<QTreeWidgetItem *> rows;
    rows.reserve(NameLists::SlotsInUse);
    for (int i = 0; i < NameLists::SlotsInUse; ++i)
        rows.append(new QTreeWidgetItem(
            {QString::number(i), lists.PoseNames[size_t(i)], lists.PoseCaptions[size_t(i)]}));
    PoseListView->addTopLevelItems(rows);
    PoseListView->setUpdatesEnabled(true);
    mnuPoseSaveChanges->setEnabled(session.PosesChanged);
}

void PoseTab::ShowPoseCount() { PoseCountLabel->setText(session.Lists.PoseCountText()); }

int PoseTab::SelectedSlot()
{
    const int slot = SelectedNameListSlot(PoseListView);
    if (slot < 0)
        session.ShowWarning(QStringLiteral("Nothing selected"));
    return slot;
}

void PoseTab::ShowStored(int slot)
{
    UpdateChemicalPoseInPlace(session, 2, PoseListView, slot);
    ShowPoseCount();
    mnuPoseSaveChanges->setEnabled(session.PosesChanged);
}

void PoseTab::DeletePose()
{
    const int slot = SelectedSlot();
    if (slot >= 0 && session.Lists.DeletePose(slot))
        ShowStored(slot);
}

void PoseTab::RenamePose()
{
    const int slot = SelectedSlot();
    if (slot >= 0 && session.Lists.RenamePose(slot))
        ShowStored(slot);
}

void PoseTab::CaptionPose()
{
    const int slot = SelectedSlot();
    if (slot >= 0 && session.Lists.CaptionPose(slot))
        ShowStored(slot);
}

void PoseTab::SavePoseListCommand()
{
    if (session.PosesChanged)
        session.Lists.SavePoseList();
    else
        session.ShowInfo(QStringLiteral("No changes to save, operation canceled"));
    mnuPoseSaveChanges->setEnabled(session.PosesChanged);
}

void PoseTab::ShowPopUp(const QPoint &globalPos)
{
    mnuPoseSaveChanges->setEnabled(session.PosesChanged);
    mnuPosePopUp->popup(globalPos);
}

bool PoseTab::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == PoseListView->viewport() && event->type() == QEvent::MouseButtonRelease) {
        auto *mouse = static_cast<QMouseEvent *>(event);
        if (mouse->button() == Qt::RightButton)
            ShowPopUp(mouse->globalPosition().toPoint());
    }
    return QWidget::eventFilter(watched, event);
}
