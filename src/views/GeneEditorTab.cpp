#include "views/GeneEditorTab.h"

#include "core/Session.h"
#include "views/HelixbenchForm.h"

#include <QGroupBox>
#include <QVBoxLayout>

GeneEditorTab::GeneEditorTab(Session &s, HelixbenchForm &w) : session(s), mainWindow(w)
{
    auto *layout = new QVBoxLayout(this);
    auto *frame = new QGroupBox(QStringLiteral("Gene Layout by Number"), this);
    frame->setObjectName(QStringLiteral("GE_frame"));
    layout->addWidget(frame);
}
