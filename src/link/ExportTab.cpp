#include "link/ExportTab.h"

#include "core/Session.h"
#include "views/HelixbenchForm.h"

#include <QGroupBox>
#include <QVBoxLayout>

ExportTab::ExportTab(Session &s, HelixbenchForm &w) : session(s), mainWindow(w)
{
    auto *layout = new QVBoxLayout(this);
    auto *frame = new QGroupBox(QStringLiteral("Interface Control"), this);
    frame->setObjectName(QStringLiteral("IC_frame"));
    layout->addWidget(frame);
}
