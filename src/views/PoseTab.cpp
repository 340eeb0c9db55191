#include "views/PoseTab.h"

#include "core/Session.h"
#include "views/HelixbenchForm.h"

#include <QGroupBox>
#include <QVBoxLayout>

PoseTab::PoseTab(Session &s, HelixbenchForm &w) : session(s), mainWindow(w)
{
    auto *layout = new QVBoxLayout(this);
    auto *frame = new QGroupBox(QStringLiteral("Pose List"), this);
    frame->setObjectName(QStringLiteral("PO_frame"));
    layout->addWidget(frame);
}
