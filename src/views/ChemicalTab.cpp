#include "views/ChemicalTab.h"

#include "core/Session.h"
#include "views/HelixbenchForm.h"

#include <QGroupBox>
#include <QVBoxLayout>

ChemicalTab::ChemicalTab(Session &s, HelixbenchForm &w) : session(s), mainWindow(w)
{
    auto *layout = new QVBoxLayout(this);
    auto *frame = new QGroupBox(QStringLiteral("Chemical List"), this);
    frame->setObjectName(QStringLiteral("BC_frame"));
    layout->addWidget(frame);
}
