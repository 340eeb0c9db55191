#include "views/OrganViewTab.h"

#include "core/Session.h"
#include "views/HelixbenchForm.h"

#include <QGroupBox>
#include <QVBoxLayout>

OrganViewTab::OrganViewTab(Session &s, HelixbenchForm &w) : session(s), mainWindow(w)
{
    auto *layout = new QVBoxLayout(this);
    auto *frame = new QGroupBox(QStringLiteral("Gene Layout by Organ"), this);
    frame->setObjectName(QStringLiteral("OV_frame"));
    layout->addWidget(frame);
}
