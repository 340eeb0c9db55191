#include "settings/AboutForm.h"

#include "widgets/FormBuilder.h"
#include "widgets/Placement.h"

#include <QCoreApplication>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

const QString AboutForm::VersionText = QStringLiteral("3.42 mc-c");
const QString AboutForm::VersionDate = QStringLiteral("17.12.98");

AboutForm::AboutForm(QWidget *owner) : QDialog(owner)
{
    setObjectName(QStringLiteral("AboutForm"));
    setWindowTitle(QStringLiteral("About Arkenfold 2 Helixbench"));
    setModal(false);
    setAttribute(Qt::WA_DeleteOnClose);

    auto *frame = new QGroupBox(this);
    frame->setObjectName(QStringLiteral("Frame1"));
    AboutLabel = Form::Label(frame, QStringLiteral("AboutLabel"), QString());
    AboutLabel->setAlignment(Qt::AlignCenter);
    AboutLabel->setMinimumWidth(Placement::TwipsToPixels(4200, this));
    auto *inside = new QVBoxLayout(frame);
    inside->addWidget(AboutLabel);

    CloseCommand = Form::Button(this, QStringLiteral("CloseCommand"), QStringLiteral("&Close"));
    CloseCommand->setDefault(true);
    connect(CloseCommand, &QPushButton::clicked, this, &QWidget::close);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(frame);
    layout->addWidget(CloseCommand, 0, Qt::AlignHCenter);
}

AboutForm *AboutForm::Open(QWidget *owner)
{
    auto *form = owner ? owner->findChild<AboutForm *>(QString(), Qt::FindDirectChildrenOnly) : nullptr;
    if (!form) {
        form = new AboutForm(owner);
        form->AboutLabel->setText(AboutText());
        form->adjustSize();
        Placement::CentreForm(form);
    }
    form->show();
    form->raise();
    form->activateWindow();
    return form;
}

int AboutForm::Revision()
{
    const QString version = QCoreApplication::applicationVersion();
    return version.isEmpty() ? 0 : version.section(QLatin1Char('.'), -1).toInt();
}

QString AboutForm::AboutText()
{
    return QStringLiteral("Helixbench ") + VersionText + QStringLiteral(" (") + VersionDate + QStringLiteral(") build ")
           + QString::number(Revision());
}
