#include "views/NewGeneForm.h"

#include "widgets/FormBuilder.h"
#include "widgets/Placement.h"
#include "core/GeneCommands.h"
#include "core/Session.h"

#include <QComboBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

namespace {
// The rows of the kind list, in the order GeneCommands::KindOfNewGeneRow reads them.
const char *const KindRows[] = {
    "Brain Lobe",  "Chemical Receptor", "Chemical Emitter", "Chemical Reaction",
    "Chemical Half-Lives", "Chemical Initial Concentrations", "Stimulus", "Genus",
    "Appearance",  "Pose", "Gait", "Instinct", "Pigment", "Pigment Bleed", "Organ", "Brain Organ",
};

} // namespace

NewGeneForm::NewGeneForm(Session &s, QWidget *parent) : QDialog(parent), session(s)
{
    setObjectName(QStringLiteral("NewGeneForm"));
    setWindowTitle(QStringLiteral("New Gene"));
    setModal(false);
    setAttribute(Qt::WA_DeleteOnClose);

    auto *frame = new QGroupBox(QStringLiteral("Gene Type"), this);
    frame->setObjectName(QStringLiteral("GeneTypeFrame"));
    GeneTypeCombo = new QComboBox(frame);
    GeneTypeCombo->setObjectName(QStringLiteral("GeneTypeCombo"));
    GeneTypeCombo->setEditable(false);
    for (const char *row : KindRows)
        GeneTypeCombo->addItem(QString::fromLatin1(row));
    GeneTypeCombo->setMaxVisibleItems(int(std::size(KindRows)));
    GeneTypeCombo->setCurrentIndex(0);
    (new QVBoxLayout(frame))->addWidget(GeneTypeCombo);

    btnCreateGene = Form::NamedButton(this, QStringLiteral("btnCreateGene"), QStringLiteral("&Create"));
    btnCreateAndClose = Form::NamedButton(this, QStringLiteral("btnCreateAndClose"), QStringLiteral("C&reate and Close"));
    btnCancel = Form::NamedButton(this, QStringLiteral("btnCancel"), QStringLiteral("C&ancel"));
    btnCreateGene->setDefault(true);

    auto *buttons = new QHBoxLayout;
    buttons->addWidget(btnCreateGene);
    buttons->addWidget(btnCreateAndClose);
    buttons->addWidget(btnCancel);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(frame);
    layout->addLayout(buttons);

    connect(btnCreateGene, &QPushButton::clicked, this, [this] { CreateGeneFromForm(false); });
    connect(btnCreateAndClose, &QPushButton::clicked, this, [this] { CreateGeneFromForm(true); });
    connect(btnCancel, &QPushButton::clicked, this, &QWidget::close);
    // A genome that goes takes the dialog with it.
    connect(&session, &Session::GenomeWindowsMustClose, this, &QWidget::close);

    adjustSize();
    Placement::CentreForm(this);
}

void NewGeneForm::CreateGeneFromForm(bool closeAfter)
{
    if (!GeneCommands::CreateGeneOfRow(session, GeneTypeCombo->currentIndex()))
        return;
    emit GeneAdded(session.GeneCount - 1);
    session.SummaryStale = true;
    session.OrganViewStale = true;
    if (closeAfter) {
        close();
        return;
    }
    // Made for creating several genes in a row: the dialog stays in front of the new editor.
    raise();
    activateWindow();
}
