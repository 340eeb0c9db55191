#include "views/PoseTab.h"

#include "core/Session.h"

#include <QMenu>

namespace {
NameListTabLayout PoseLayout()
{
    return {2,
            "PoseTab",
            "PO_frame",
            QStringLiteral("Pose List"),
            "PoseListView",
            {QStringLiteral("Number"), QStringLiteral("Pose Name"), QStringLiteral("Pose Description")},
            "PoseCountLabel",
            QStringLiteral("No poses loaded"),
            "mnuPosePopUp",
            QStringLiteral("PopUp3")};
}
} // namespace

PoseTab::PoseTab(Session &s) : NameListTab(s, PoseLayout()) {}

void PoseTab::BuildCommands()
{
    AddButton("DeletePoseCommand", QStringLiteral("&Delete"), [this] { DeletePose(); });
    AddButton("RenamePoseCommand", QStringLiteral("&Rename"), [this] { RenamePose(); });
    AddButton("CaptionPoseCommand", QStringLiteral("&Edit Description"), [this] { CaptionPose(); });

    QAction *rename = AddEntry("mnuPoseRename", QStringLiteral("&Rename"), [this] { RenamePose(); });
    AddEntry("mnuPoseEditDescription", QStringLiteral("&Edit Description"), [this] { CaptionPose(); });
    AddEntry("mnuPoseDelete", QStringLiteral("&Delete"), [this] { DeletePose(); });
    AddSaveEntry("mnuPoseSaveChanges");
    popUp->setDefaultAction(rename);
}

void PoseTab::DeletePose()
{
    OnSelectedSlot([this](int slot) { return session.Lists.DeletePose(slot); });
}

void PoseTab::RenamePose()
{
    OnSelectedSlot([this](int slot) { return session.Lists.RenamePose(slot); });
}

void PoseTab::CaptionPose()
{
    OnSelectedSlot([this](int slot) { return session.Lists.CaptionPose(slot); });
}
