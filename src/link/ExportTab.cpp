// The Export tab's layout and its two egg commands: Lay Egg and Remove Selected Melk.
#include "link/ExportTab.h"

#include "widgets/FlowLayout.h"
#include "widgets/Placement.h"
#include "core/Session.h"
#include "base/Text.h"
#include "link/MacroLink.h"
#include "base/FileNames.h"
#include "base/FileFault.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <limits>

using Text::CRLF;

const QString ExportTab::EmptySlot = QStringLiteral("<empty>");

namespace {
template <typename W> W *Named(W *widget, const char *name)
{
    widget->setObjectName(QString::fromLatin1(name));
    return widget;
}
} // namespace

ExportTab::ExportTab(Session &s) : session(s)
{
    connect(&session, &Session::ExportViewsMustFill, this, [this] {
        viewsLoaded = true;
        if (IsBuilt())
            FillExportViews();
    });
}

void ExportTab::BuildPage()
{
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(BuildInterfaceControl());
    layout->addWidget(BuildScriptorium(), 1);

    DDE = Named(new QLineEdit(QStringLiteral("DDE"), this), "DDE");
    DDE->hide();
    DDE->setMaxLength(std::numeric_limits<int>::max()); // a macro or a reply of any length passes whole
    link = std::make_unique<MacroLink>(session, *DDE, *InjectStatusLabel);

    if (viewsLoaded)
        FillExportViews();
}

ExportTab::~ExportTab() = default;

QGroupBox *ExportTab::BuildInterfaceControl()
{
    IC_frame = Named(new QGroupBox(QStringLiteral("Interface Control"), this), "IC_frame");

    auto *eggLabel = new QLabel(QStringLiteral("Egg Graphic:"), IC_frame);
    EggColourCombo = Named(new QComboBox(IC_frame), "EggColourCombo");
    EggColourCombo->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    eggLabel->setBuddy(EggColourCombo);

    auto *sexLabel = new QLabel(QStringLiteral("Sex:"), IC_frame);
    SexCombo = Named(new QComboBox(IC_frame), "SexCombo");
    SexCombo->addItems({QStringLiteral("Either"), QStringLiteral("Male"), QStringLiteral("Female")});
    SexCombo->setCurrentIndex(0);
    sexLabel->setBuddy(SexCombo);

    VirginBirthCheck = Named(new QCheckBox(QStringLiteral("&Virgin birth (No other parent)"), IC_frame), "VirginBirthCheck");
    VirginBirthCheck->setChecked(true);

    ParentMoniker = Named(new QLineEdit(QStringLiteral("EVE_"), IC_frame), "ParentMoniker");
    ParentMoniker->setEnabled(false);
    auto *monikerNote = new QLabel(QStringLiteral("(Gene Moniker for non-virgin births)"), IC_frame);
    connect(VirginBirthCheck, &QCheckBox::toggled, this, [this](bool checked) { ParentMoniker->setEnabled(!checked); });

    ExportMeCommand = Named(new QPushButton(QStringLiteral("&Lay Egg"), IC_frame), "ExportMeCommand");
    RemoveSelectedMelkCommand = Named(new QPushButton(QStringLiteral("Remove Selected Melk"), IC_frame),
                                      "RemoveSelectedMelkCommand");
    InjectStatusLabel = Named(new QLabel(QStringLiteral("Idle"), IC_frame), "InjectStatusLabel");
    InjectStatusLabel->setFrameShape(QFrame::StyledPanel);
    InjectStatusLabel->setMargin(2);
    InjectStatusLabel->setFrameShadow(QFrame::Sunken);
    InjectStatusLabel->setAlignment(Qt::AlignCenter);
    connect(ExportMeCommand, &QPushButton::clicked, this, &ExportTab::LayEgg);
    connect(RemoveSelectedMelkCommand, &QPushButton::clicked, this, &ExportTab::RemoveSelectedMelk);

    auto *eggPanel = new QWidget(IC_frame);
    auto *egg = new QGridLayout(eggPanel);
    egg->setContentsMargins(0, 0, 0, 0);
    egg->addWidget(eggLabel, 0, 0);
    egg->addWidget(EggColourCombo, 0, 1, 1, 2);
    egg->addWidget(sexLabel, 1, 0);
    egg->addWidget(SexCombo, 1, 1);
    egg->addWidget(VirginBirthCheck, 2, 0, 1, 3);
    egg->addWidget(ParentMoniker, 3, 1);
    egg->addWidget(monikerNote, 3, 2);
    egg->setColumnStretch(2, 1);

    auto *commandPanel = new QWidget(IC_frame);
    auto *commands = new FlowLayout(commandPanel);
    commands->setContentsMargins(0, 0, 0, 0);
    commands->addWidget(ExportMeCommand);
    commands->addWidget(RemoveSelectedMelkCommand);
    commands->addWidget(InjectStatusLabel, 1);

    // Side by side where there is room, the commands under the egg's controls where not.
    auto *frameLayout = new FlowLayout(IC_frame);
    frameLayout->addWidget(eggPanel, 1);
    frameLayout->addWidget(commandPanel, 1);
    return IC_frame;
}

QGroupBox *ExportTab::BuildScriptorium()
{
    Frame7 = Named(new QGroupBox(QStringLiteral("Scriptorium -- Advanced use only"), this), "Frame7");

    auto *listLabel = new QLabel(QStringLiteral("AutoScripts:"), Frame7);
    ScriptListView = Named(new QTreeWidget(Frame7), "ScriptListView");
    ScriptListView->setHeaderLabels({QStringLiteral("Item"), QStringLiteral("Macro Script"), QStringLiteral("Result")});
    ScriptListView->setRootIsDecorated(false);
    ScriptListView->setUniformRowHeights(true);
    ScriptListView->setSortingEnabled(false);
    ScriptListView->setSelectionMode(QAbstractItemView::SingleSelection);
    ScriptListView->setAllColumnsShowFocus(true);
    ScriptListView->header()->resizeSection(0, Placement::TwipsToPixels(2700, this));
    ScriptListView->header()->resizeSection(1, Placement::TwipsToPixels(3900, this));
    // The pop-up opens when the right button is released, not on the context-menu event.
    ScriptListView->setContextMenuPolicy(Qt::PreventContextMenu);
    ScriptListView->viewport()->installEventFilter(this);
    listLabel->setBuddy(ScriptListView);

    ScriptStatusLabel = Named(new QLabel(QStringLiteral("<un-defined>"), Frame7), "ScriptStatusLabel");
    ScriptStatusLabel->setTextFormat(Qt::PlainText);
    AddAutoScriptCommand = Named(new QPushButton(QStringLiteral("&Add Command"), Frame7), "AddAutoScriptCommand");
    RemoveAutoScriptCommand = Named(new QPushButton(QStringLiteral("&Remove Command"), Frame7), "RemoveAutoScriptCommand");
    UpdateScriptCommand = Named(new QPushButton(QStringLiteral("&Run Selected Macro"), Frame7), "UpdateScriptCommand");
    connect(AddAutoScriptCommand, &QPushButton::clicked, this, &ExportTab::AddAutoScript);
    connect(RemoveAutoScriptCommand, &QPushButton::clicked, this, &ExportTab::RemoveAutoScript);
    connect(UpdateScriptCommand, &QPushButton::clicked, this, &ExportTab::RunSelectedAutoScript);

    auto *oneShotLabel = new QLabel(QStringLiteral("One Shot:"), Frame7);
    TestScriptText = Named(new QLineEdit(Frame7), "TestScriptText");
    TestScriptText->setMaxLength(std::numeric_limits<int>::max());
    oneShotLabel->setBuddy(TestScriptText);
    TestScriptCommand = Named(new QPushButton(QStringLiteral("&Inject"), Frame7), "TestScriptCommand");
    connect(TestScriptCommand, &QPushButton::clicked, this, &ExportTab::InjectOneShot);

    mnuAutoScriptPopUp = Named(new QMenu(QStringLiteral("PopUp4"), this), "mnuAutoScriptPopUp");
    mnuAutoScriptRun = Named(mnuAutoScriptPopUp->addAction(QStringLiteral("&Run this macro")), "mnuAutoScriptRun");
    mnuAutoScriptDelete = Named(mnuAutoScriptPopUp->addAction(QStringLiteral("&Delete this macro")), "mnuAutoScriptDelete");
    mnuAutoScriptPopUp->setDefaultAction(mnuAutoScriptRun);
    connect(mnuAutoScriptRun, &QAction::triggered, this, &ExportTab::RunSelectedAutoScript);
    connect(mnuAutoScriptDelete, &QAction::triggered, this, &ExportTab::RemoveAutoScript);

    auto *commands = new FlowLayout;
    commands->addWidget(ScriptStatusLabel, 1);
    commands->addWidget(AddAutoScriptCommand);
    commands->addWidget(RemoveAutoScriptCommand);
    commands->addWidget(UpdateScriptCommand);

    auto *oneShot = new QHBoxLayout;
    oneShot->addWidget(oneShotLabel);
    oneShot->addWidget(TestScriptText, 1);
    oneShot->addWidget(TestScriptCommand);

    auto *frameLayout = new QVBoxLayout(Frame7);
    frameLayout->addWidget(listLabel);
    frameLayout->addWidget(ScriptListView, 1);
    frameLayout->addLayout(commands);
    frameLayout->addLayout(oneShot);
    return Frame7;
}

void ExportTab::FillExportViews()
{
    RefreshScriptList();
    ShowScriptCount();
    SexCombo->setCurrentIndex(0);
    EggColourCombo->clear();
    for (const QString &name : session.Tables.EggVarietyNames) {
        if (name.isEmpty())
            break;
        EggColourCombo->addItem(name);
    }
    EggColourCombo->setCurrentIndex(0);
}

void ExportTab::LayEgg()
{
    if (session.GeneCount < FewestGenes) {
        session.ShowError(QStringLiteral("Not enough genes for viable life form, ") + CRLF + QString::number(FewestGenes)
                          + QStringLiteral(" genes required"));
        return;
    }
    const QString setting = session.ReadGameSetting(QStringLiteral("Genetics Directory"));
    if (setting == Session::ErrorMark) {
        session.ShowError(QStringLiteral("Error reading registry key -- ensure Arkenfold") + CRLF
                          + QStringLiteral("is installed on this system."));
        return;
    }
    const QString GeneticsDirectory = Session::NormalisePath(setting);

    const bool virgin = VirginBirthCheck->isChecked();
    const QString moniker = ParentMoniker->text();
    // The game's folder may hold a parent's file in any case ("EVE_1234.GEN").
    if (!virgin && !QFileInfo::exists(ResolveFileName(GeneticsDirectory, moniker + QStringLiteral(".gen")))) {
        session.ShowError(QStringLiteral("V-DNA for parent with moniker [") + moniker + QStringLiteral("] ") + CRLF
                          + QStringLiteral("does not exist. Cannot continue."));
        return;
    }

    // A leftover from an earlier laying goes first; one that will not go stops the command.
    // A leftover in another case is the same file, and it goes too.
    const QString wisp = GeneticsDirectory + QStringLiteral("wisp.gen");
    const QString leftover = ResolveFileName(GeneticsDirectory, QStringLiteral("wisp.gen"));
    if (QFileInfo::exists(leftover) && !QFile::remove(leftover)) {
        const FileFault fault = FileFault::AtPath(FileFault::AccessError, leftover);
        session.ShowFault(fault.Number, fault.Description, QStringLiteral("Error identifying location of Arkenfold on this computer"));
        return;
    }

    // The genome goes from the gene list, not from the user's file, which stays untouched.
    session.EncodeGenome();
    {
        const QString context = QStringLiteral("Error saving temporary genome 'wisp.gen'");
        if (!QFileInfo(GeneticsDirectory).isDir()) {
            const FileFault fault = FileFault::AtPath(FileFault::PathNotFound, GeneticsDirectory);
            session.ShowFault(fault.Number, fault.Description, context);
            return;
        }
        // Written aside and renamed into place: the game never finds half a genome.
        if (session.WriteImageFile(wisp) != Session::ImageWrite::Written) {
            const FileFault fault = FileFault::AtPath(FileFault::AccessError, wisp);
            session.ShowFault(fault.Number, fault.Description, context);
            return;
        }
    }

    if (!link->OpenMacroLink())
        return; // reported; the temporary file stays
    link->SetStatus(QStringLiteral("Connection confirmed"));

    const int sex = SexCombo->currentIndex();
    const int variety = EggColourCombo->currentIndex();
    session.LayEggOffset += 64;
    if (session.LayEggOffset >= 384)
        session.LayEggOffset = 0;

    QString macro = QStringLiteral("inst,sys: wtop,new: simp eggs 8 ");
    macro += QString::number(variety * 8);
    macro += QStringLiteral(" 90 0,sys: camt,setv clas 33882624,setv attr 195,anim [0123],");
    if (virgin)
        macro += QStringLiteral("new: gene tokn wisp 0 obv0,");
    else
        macro += QStringLiteral("new: gene tokn wisp tokn ") + moniker + QStringLiteral(" obv0,");
    macro += QStringLiteral("setv obv1 ");
    macro += QString::number(sex);
    macro += QStringLiteral(",tick 2400,mvto ");
    macro += QString::number(4900 + session.LayEggOffset);
    macro += QStringLiteral(" 735,slim,setv grav 1,endm");

    if (link->ExecuteMacro(macro))
        link->SetStatus(QStringLiteral("Operation Complete (") + QString::number(session.GeneCount)
                        + QStringLiteral(" genes injected)"));
    else
        link->SetStatus(QStringLiteral("Error during macro operation"));
    link->CloseMacroLink();
}

void ExportTab::RemoveSelectedMelk()
{
    if (!link->OpenMacroLink())
        return;
    link->SetStatus(QStringLiteral("Connection confirmed"));
    if (link->ExecuteMacro(QStringLiteral("inst,targ melk,kill targ,endm")))
        link->SetStatus(QStringLiteral("Operation Complete"));
    else
        link->SetStatus(QStringLiteral("Error during macro operation"));
    link->CloseMacroLink();
}
