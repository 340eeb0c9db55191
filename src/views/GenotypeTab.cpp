#include "views/GenotypeTab.h"

#include "core/Session.h"
#include "views/HelixbenchForm.h"

#include <QGroupBox>
#include <QVBoxLayout>

GenotypeTab::GenotypeTab(Session &s, HelixbenchForm &w) : session(s), mainWindow(w)
{
    auto *layout = new QVBoxLayout(this);
    auto *frame = new QGroupBox(QStringLiteral("Genetic Breakdown"), this);
    frame->setObjectName(QStringLiteral("GT_frame1"));
    layout->addWidget(frame);
}
