#include "views/HelixbenchForm.h"

#include "widgets/LazyPage.h"
#include "widgets/Placement.h"
#include "widgets/SingleDialog.h"
#include "widgets/WideGroupBox.h"
#include "core/Gene.h"
#include "core/BulkResets.h"
#include "core/ListPublishing.h"
#include "core/SanityCheck.h"
#include "core/Session.h"
#include "link/ExportTab.h"
#include "settings/AboutForm.h"
#include "settings/HelpSystem.h"
#include "settings/HelpTopics.h"
#include "settings/HelpWindow.h"
#include "settings/frmOptions.h"
#include "tools/frmChromosomeMap.h"
#include "tools/frmRTFChemicalList.h"
#include "tools/frmReorganise.h"
#include "views/ChemicalTab.h"
#include "views/CoverPicture.h"
#include "views/frmChangeDefaultTemplate.h"
#include "views/GeneEditorTab.h"
#include "views/GenomeCompareForm.h"
#include "views/GenotypeTab.h"
#include "views/OrganViewTab.h"
#include "views/PoseTab.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QDir>
#include <QLabel>
#include <QMenuBar>
#include <QPushButton>
#include <QStatusBar>
#include <QTabWidget>
#include <QVBoxLayout>

HelixbenchForm::HelixbenchForm(Session &s, QWidget *parent) : QMainWindow(parent), session(s)
{
    setObjectName(QStringLiteral("HelixbenchForm"));
    setWindowTitle(Session::Title);
    BuildTabs();
    BuildMenus();
    BuildStatusBar();
    // Commands beyond the standard menus have a menu of their own, after all of them.
    QMenu *gappCompare = menuBar()->addMenu(QStringLiteral("&Compare"));
    gappCompare->setObjectName(QStringLiteral("gappCompare"));
    AddAction(gappCompare, "gappcCompareGenome", QStringLiteral("Compare With Genome File..."), [this] {
        if (auto *form = GenomeCompareForm::Open(session, this))
            connect(form, &GenomeCompareForm::GeneAdded, geneEditorTab, &GeneEditorTab::AddGeneRow);
    });
    resize(Placement::TwipsToPixels(13500, this), Placement::TwipsToPixels(9600, this)); // 900 x 640 at 96 dpi

    connect(&session, &Session::StatusPanelChanged, this, [this](int panel, const QString &text) {
        if (panel >= 1 && panel <= 3)
            StatusPanel[panel]->setText(text);
    });
    connect(&session, &Session::MainTitleChanged, this, &QWidget::setWindowTitle);
}

template <typename F>
QAction *HelixbenchForm::AddAction(QMenu *menu, const char *name, const QString &caption, F slot)
{
    QAction *a = menu->addAction(caption);
    a->setObjectName(QString::fromLatin1(name));
    connect(a, &QAction::triggered, this, slot);
    return a;
}

void HelixbenchForm::BuildTabs()
{
    canvas = new QWidget(this);
    canvas->setObjectName(QStringLiteral("HelixbenchCanvas"));
    canvas->installEventFilter(this);
    SSTab1 = new QTabWidget(canvas);
    SSTab1->setObjectName(QStringLiteral("SSTab1"));
    SSTab1->addTab(BuildCoverTab(), QStringLiteral("Cover"));
    // A full refresh rebuilds the gene list, then the summary, then the organ tree: each tab
    // follows the session's refresh signal, so they are made in that order. The tabs other
    // than the cover make their widgets when first shown.
    geneEditorTab = new GeneEditorTab(session, *this);
    genotypeTab = new GenotypeTab(session, *this);
    organViewTab = new OrganViewTab(session, *this);
    SSTab1->addTab(genotypeTab, QStringLiteral("Genotype"));
    SSTab1->addTab(geneEditorTab, QStringLiteral("Gene Editor"));
    SSTab1->addTab(organViewTab, QStringLiteral("Organ View"));
    SSTab1->addTab(chemicalTab = new ChemicalTab(session), QStringLiteral("Biochemistry"));
    SSTab1->addTab(poseTab = new PoseTab(session), QStringLiteral("Poses"));
    SSTab1->addTab(exportTab = new ExportTab(session), QStringLiteral("Export"));
    SetTabMargins(SSTab1->widget(0));
    for (int i = 1; i < SSTab1->count(); ++i) {
        auto *page = static_cast<LazyPage *>(SSTab1->widget(i));
        connect(page, &LazyPage::Built, this, [this, page] { SetTabMargins(page); });
    }
    setCentralWidget(canvas);
    // A tab's widgets are made as it is entered; stale summaries are then rebuilt.
    connect(SSTab1, &QTabWidget::currentChanged, this, [this](int tab) {
        BuildTab(tab);
        if (tab == 3)
            organViewTab->EnterTab();
        if (tab == 1)
            genotypeTab->EnterTab();
    });
}

void HelixbenchForm::SetTabMargins(QWidget *page)
{
    // Each tab's frames stand 240 twips in from its edges.
    const int margin = Placement::TwipsToPixels(240, this);
    page->layout()->setContentsMargins(margin, margin, margin, margin);
}

void HelixbenchForm::BuildTab(int tab)
{
    if (tab > 0 && tab < SSTab1->count())
        static_cast<LazyPage *>(SSTab1->widget(tab))->EnsureBuilt();
}

void HelixbenchForm::BuildAllTabs()
{
    for (int i = 1; i < SSTab1->count(); ++i)
        BuildTab(i);
}

QWidget *HelixbenchForm::BuildCoverTab()
{
    auto *page = new QWidget;
    auto *outer = new QVBoxLayout(page);
    auto *frame = new WideGroupBox(page);
    frame->setObjectName(QStringLiteral("TP_frame"));
    auto *layout = new QVBoxLayout(frame);

    auto *title = new QLabel(QStringLiteral("Helixbench"), frame);
    title->setObjectName(QStringLiteral("Label1"));
    QFont big = title->font();
    big.setPointSize(big.pointSize() * 3);
    big.setBold(true);
    title->setFont(big);
    title->setAlignment(Qt::AlignCenter);

    auto *subtitle = new QLabel(QStringLiteral("For Arkenfold 2"), frame);
    subtitle->setObjectName(QStringLiteral("Label9"));
    subtitle->setAlignment(Qt::AlignCenter);

    auto *image = new QLabel(frame);
    image->setObjectName(QStringLiteral("Image1"));
    image->setAlignment(Qt::AlignCenter);
    image->setPixmap(DrawCoverPicture(this));

    VersionLabel = new QLabel(QStringLiteral("VERSION"), frame);
    VersionLabel->setObjectName(QStringLiteral("VersionLabel"));
    VersionLabel->setAlignment(Qt::AlignCenter);

    auto *load = new QPushButton(QStringLiteral("&Load Genome"), frame);
    load->setObjectName(QStringLiteral("LoadGeneCommand"));
    connect(load, &QPushButton::clicked, this, [this] { session.LoadGenome(); });

    layout->addStretch();
    layout->addWidget(title);
    layout->addWidget(subtitle);
    layout->addWidget(image);
    layout->addWidget(VersionLabel);
    layout->addStretch();
    layout->addWidget(load, 0, Qt::AlignHCenter);
    outer->addWidget(frame);
    return page;
}

void HelixbenchForm::BuildMenus()
{
    gappFile = menuBar()->addMenu(QStringLiteral("&File"));
    gappFile->setObjectName(QStringLiteral("gappFile"));
    AddAction(gappFile, "gappfNewGenome", QStringLiteral("New Genome"), [this] {
        if (session.AbandonGenome())
            session.NewGenome();
    });
    AddAction(gappFile, "gappfLoadGenome", QStringLiteral("Load Genome"), [this] { session.LoadGenome(); });
    AddAction(gappFile, "gappfSaveGenomeAs", QStringLiteral("Save Genome As"), [this] { session.SaveGenomeAs(); });
    gappFile->addSeparator()->setObjectName(QStringLiteral("sep1"));
    AddAction(gappFile, "gappfQuit", QStringLiteral("Quit"), [this] { close(); });

    gappAdvanced = menuBar()->addMenu(QStringLiteral("Advanced"));
    gappAdvanced->setObjectName(QStringLiteral("gappAdvanced"));
    AddAction(gappAdvanced, "gappaMakeSpeciesCaptionFile", QStringLiteral("Make species caption file"),
              [this] { ListPublishing::MakeSpeciesCaptionFile(session); });
    gappAdvanced->addSeparator()->setObjectName(QStringLiteral("sepA9"));
    AddAction(gappAdvanced, "gappaSavePoseDescriptions", QStringLiteral("Save Pose Descriptions"),
              [this] { poseTab->SaveListCommand(); });
    // A reset list is shown anew with its count line.
    const auto resetList = [this](ResettableList list, NameListTab *tab) {
        if (ResetListToDefaults(session, list)) {
            tab->FillView();
            tab->ShowCount();
        }
    };
    AddAction(gappAdvanced, "gappaResetPoseNames", QStringLiteral("Reset Pose Names"),
              [this, resetList] { resetList(ResettableList::Poses, poseTab); });
    gappAdvanced->addSeparator()->setObjectName(QStringLiteral("sep2"));
    AddAction(gappAdvanced, "gappaSaveChemicalList", QStringLiteral("Save Chemical List"),
              [this] { chemicalTab->SaveListCommand(); });
    AddAction(gappAdvanced, "gappaResetChemicals", QStringLiteral("Reset Chemicals"),
              [this, resetList] { resetList(ResettableList::Chemicals, chemicalTab); });
    AddAction(gappAdvanced, "gappaInstallChemicalList", QStringLiteral("Install Chemical List"),
              [this] { ListPublishing::InstallChemicalList(session); });
    AddAction(gappAdvanced, "gappaRTFChemicalList", QStringLiteral("RTF-er-ise Chemical List"),
              [this] { frmRTFChemicalList::Open(session, this); });
    AddAction(gappAdvanced, "gappaReorganise", QStringLiteral("Reorganise Chemical Order"),
              [this] { frmReorganise::Open(session, [this] { chemicalTab->FillView(); }, this); });
    gappAdvanced->addSeparator()->setObjectName(QStringLiteral("sep3"));
    AddAction(gappAdvanced, "gappaPlotChromosomeMap", QStringLiteral("Plot Chromosome Map"),
              [this] { frmChromosomeMap::PlotChromosomeMap(session, this); });
    AddAction(gappAdvanced, "gappaResetMutabilityValues", QStringLiteral("Reset Mutability Values"),
              [this] { ResetMutabilityValues(session); });
    AddAction(gappAdvanced, "gappaSanityCheck", QStringLiteral("Sanity Check Genome"), [this] { SanityCheck(session); });
    AddAction(gappAdvanced, "gappaChangeDefaultTemplate", QStringLiteral("Change Default Template"),
              [this] { frmChangeDefaultTemplate::Open(session, this); });
    gappAdvanced->addSeparator()->setObjectName(QStringLiteral("sep3b"));
    AddAction(gappAdvanced, "gappaAdvancedOptions", QStringLiteral("Advanced Options"), [this] { OpenOptions(); });

    gappWindow = menuBar()->addMenu(QStringLiteral("Window"));
    gappWindow->setObjectName(QStringLiteral("gappWindow"));
    AddAction(gappWindow, "gappwCloseAll", QStringLiteral("Close all Gene Windows"), [this] { session.CloseAllViews(); });

    BuildHelpMenu();
}

void HelixbenchForm::BuildHelpMenu()
{
    Help = new HelpSystem(this);
    gappHelp = menuBar()->addMenu(QStringLiteral("Help"));
    gappHelp->setObjectName(QStringLiteral("gappHelp"));
    AddAction(gappHelp, "gapphContents", QStringLiteral("Contents"), [this] { Help->ShowHelpContents(); });
    gappHelp->addSeparator()->setObjectName(QStringLiteral("sep4"));
    AddAction(gappHelp, "gapphAbout", QStringLiteral("About Helixbench"), [this] { AboutForm::Open(this); });

    setProperty("HelpTopic", HelpTopics::TabAnchor(SSTab1->currentIndex()));
    connect(SSTab1, &QTabWidget::currentChanged, this,
            [this](int tab) { setProperty("HelpTopic", HelpTopics::TabAnchor(tab)); });
}

void HelixbenchForm::BuildStatusBar()
{
    QStatusBar *bar = statusBar();
    bar->setObjectName(QStringLiteral("StatusBar"));
    // The window frame resizes; a grip would take room the three panels need in a narrow window.
    bar->setSizeGripEnabled(false);
    for (int i = 1; i <= 3; ++i) {
        StatusPanel[i] = new QLabel(bar);
        StatusPanel[i]->setObjectName(QStringLiteral("StatusBar_%1").arg(i));
        StatusPanel[i]->setFrameStyle(QFrame::Panel | QFrame::Sunken);
        bar->addPermanentWidget(StatusPanel[i], i == 3 ? 0 : 1);
    }
    for (int i = 1; i <= 3; ++i)
        StatusPanel[i]->setText(session.StatusPanel[i]);
}

void HelixbenchForm::Startup(const QString &appDirectory)
{
    SSTab1->setCurrentIndex(0);
    session.AppDirectory = appDirectory;
    QDir::setCurrent(appDirectory);
    session.BuildReferenceTables();
    // The welcome stands over the window it welcomes to: that one is on the screen first.
    // Its platform window is made before it is placed, so that where the platform tells the
    // frame early the window is sized to the screen once, not laid out again after showing.
    winId();
    Placement::CentreForm(this);
    show();
    session.WelcomeFirstRun();
    session.PlacementStep = 999;
    session.Lists.ChemicalsChanged = session.Lists.PosesChanged = session.Lists.ScriptsChanged = false;
    session.HelpFile = HelpDocument::PathIn(session.AppDirectory);
    Help->Register(session.HelpFile);
    session.LoadSettings();
    Placement::CentreForm(this);
    VersionLabel->setText(AboutForm::VersionText);
    session.QuitConfirm = true;
}

void HelixbenchForm::OpenOptions()
{
    // One dialog at a time: a second call brings the open one to the front.
    SingleDialog::Show<frmOptions>(this, [this] { return new frmOptions(session, this); });
}

bool HelixbenchForm::ConfirmQuit()
{
    if (!session.QuitConfirm)
        return true;
    if (session.ShowMessage(QStringLiteral("Are you sure you wish to quit?"), 35) != Prompt::Yes)
        return false;
    const struct { bool changed; const char *question; bool (NameLists::*save)(); } lists[] = {
        {session.Lists.ChemicalsChanged, "The Chemical list has changed. Save changes?", &NameLists::SaveChemicalList},
        {session.Lists.PosesChanged, "The Pose list has changed. Save changes?", &NameLists::SavePoseList},
        {session.Lists.ScriptsChanged, "The macro script list has changed. Save changes?", &NameLists::SaveScriptList},
    };
    for (const auto &l : lists) {
        if (!l.changed)
            continue;
        const int answer = session.ShowMessage(QString::fromLatin1(l.question), 35);
        if (answer == Prompt::Cancel)
            return false;
        if (answer == Prompt::Yes)
            (session.Lists.*l.save)();
    }
    session.CloseAllViews();
    for (QWidget *w : QApplication::topLevelWidgets())
        if (w != this && w->isVisible())
            w->close();
    session.SaveSettings();
    return true;
}

bool HelixbenchForm::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == canvas && event->type() == QEvent::Resize)
        LayOutTabs();
    return QMainWindow::eventFilter(watched, event);
}

void HelixbenchForm::LayOutTabs()
{
    const QSize outer = frameGeometry().size();
    QSize size = SSTab1->size();
    if (!tabsLaidOut || outer.width() > Placement::TwipsToPixels(7200, this))
        size.setWidth(canvas->width());
    if (!tabsLaidOut || outer.height() > Placement::TwipsToPixels(7500, this))
        size.setHeight(canvas->height());
    tabsLaidOut = true;
    SSTab1->setGeometry(QRect(QPoint(0, 0), size));
}

void HelixbenchForm::closeEvent(QCloseEvent *event)
{
    if (ConfirmQuit())
        event->accept();
    else
        event->ignore();
}
