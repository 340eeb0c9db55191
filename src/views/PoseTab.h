#pragma once
#include "views/NameListTab.h"

// The "Poses" tab: the pose list, its count line, its commands and pop-up menu.
class PoseTab : public NameListTab
{
    Q_OBJECT
public:
    explicit PoseTab(Session &session);

    // The commands of the buttons and the pop-up menu.
    void DeletePose();
    void RenamePose();
    void CaptionPose();

protected:
    void BuildCommands() override;
};
