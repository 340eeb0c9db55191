#include "widgets/ProcessingForm.h"

#include "widgets/Placement.h"

#include <QLabel>
#include <QProgressBar>
#include <QVBoxLayout>

ProcessingForm::ProcessingForm(QWidget *parent) : QWidget(parent, Qt::Tool | Qt::WindowTitleHint)
{
    setObjectName(QStringLiteral("ProcessingForm"));
    setWindowTitle(QStringLiteral("Please Wait"));
    auto *layout = new QVBoxLayout(this);
    StatusLabel = new QLabel(QStringLiteral("Thinking ..."), this);
    StatusLabel->setObjectName(QStringLiteral("StatusLabel"));
    ProgressBar = new QProgressBar(this);
    ProgressBar->setObjectName(QStringLiteral("ProgressBar"));
    ProgressBar->setRange(0, 100);
    ProgressBar->setValue(0);
    layout->addWidget(StatusLabel);
    layout->addWidget(ProgressBar);
    resize(Placement::TwipsToPixels(4800, this), Placement::TwipsToPixels(1350, this));
    Placement::CentreForm(this);

    pending.setSingleShot(true);
    connect(&pending, &QTimer::timeout, this, [this] {
        ProgressBar->setValue(pendingValue);
        sinceShown.start();
    });
}

void ProcessingForm::SetProgress(int value)
{
    pendingValue = value;
    if (pending.isActive())
        return;
    if (!sinceShown.isValid() || sinceShown.elapsed() >= FrameMs) {
        ProgressBar->setValue(value);
        sinceShown.start();
    } else {
        pending.start(int(FrameMs - sinceShown.elapsed()));
    }
}
