#include "tools/frmChromosomeMap.h"

#include "core/ChromosomeMap.h"
#include "core/Session.h"
#include "tools/MapPicture.h"
#include "widgets/SingleDialog.h"
#include "widgets/FormBuilder.h"
#include "widgets/Placement.h"

#include <QCloseEvent>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

frmChromosomeMap::frmChromosomeMap(Session &s, QWidget *parent) : QDialog(parent), session(s)
{
    setObjectName(QStringLiteral("frmChromosomeMap"));
    setWindowTitle(QStringLiteral("Chromosome Map"));
    setModal(false);

    GeneMapFrame = Form::Frame(this, QStringLiteral("Gene Map"));
    GeneMapFrame->setObjectName(QStringLiteral("GeneMapFrame"));
    ChromosomePicture = new MapPicture(GeneMapFrame);
    auto *frameLayout = new QVBoxLayout(GeneMapFrame);
    frameLayout->addWidget(ChromosomePicture);

    UpdateNowCommand = Form::NamedButton(this, QStringLiteral("UpdateNowCommand"), QStringLiteral("&Update Now"));
    CloseCommand = Form::NamedButton(this, QStringLiteral("CloseCommand"), QStringLiteral("&Close"));
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(GeneMapFrame, 1);
    auto *buttons = new QHBoxLayout;
    Form::Box(buttons, {Form::Stretch(), UpdateNowCommand, CloseCommand});
    layout->addLayout(buttons);

    connect(UpdateNowCommand, &QPushButton::clicked, this, &frmChromosomeMap::UpdateNow);
    connect(CloseCommand, &QPushButton::clicked, this, &QWidget::close);
    // A genome that is abandoned takes its map with it.
    connect(&session, &Session::GenomeWindowsMustClose, this, &QWidget::close);
}

frmChromosomeMap *frmChromosomeMap::PlotChromosomeMap(Session &session, QWidget *parent)
{
    if (session.GeneCount == 0) {
        session.ShowInfo(QStringLiteral("Not enough genes to plot chromosome map"));
        return nullptr;
    }
    bool made = false;
    frmChromosomeMap *dialog = SingleDialog::Show<frmChromosomeMap>(parent, [&] {
        made = true;
        auto *d = new frmChromosomeMap(session, parent);
        d->resize(d->sizeHint()); // the picture at its designed size, whatever the screen
        Placement::CentreForm(d);
        return d;
    });
    if (made)
        dialog->UpdateNow();
    return dialog;
}

int frmChromosomeMap::UpdateNow()
{
    if (plotting)
        return 0;
    plotting = true;
    const int ticks = ChromosomeMap::Plot(session, *ChromosomePicture);
    plotting = false;
    if (closeWhenPlotted) {
        closeWhenPlotted = false;
        close();
    }
    return ticks;
}

void frmChromosomeMap::closeEvent(QCloseEvent *event)
{
    // The plot draws on this dialog's picture while it lets events run: the dialog stays
    // until the plot is done, and closes then.
    if (plotting) {
        closeWhenPlotted = true;
        event->ignore();
        return;
    }
    QDialog::closeEvent(event);
}
