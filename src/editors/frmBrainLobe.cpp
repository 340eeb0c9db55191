#include "editors/frmBrainLobe.h"

#include "widgets/Placement.h"
#include "core/Session.h"
#include "base/Text.h"
#include "core/genes/BrainLobe.h"
#include "editors/EditorCommon.h"
#include "editors/GeneHeaderPanel.h"
#include "editors/frmSVRule.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QFontDatabase>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QTabWidget>
#include <QVBoxLayout>

#include <tuple>

namespace {

QString Indexed(const char *name, int i) { return QLatin1String(name) + QLatin1Char('_') + QString::number(i); }

QGroupBox *Frame(const QString &caption, QWidget *parent)
{
    auto *box = new QGroupBox(caption, parent);
    return box;
}

QLineEdit *NumberBox(const QString &name, const QString &text, QWidget *parent)
{
    auto *box = new QLineEdit(text, parent);
    box->setObjectName(name);
    box->setMaxLength(4);
    box->setMaximumWidth(box->fontMetrics().horizontalAdvance(QStringLiteral("000000")) + 12);
    return box;
}

QRadioButton *Option(const QString &name, const QString &caption, QWidget *parent, QButtonGroup *group, int id)
{
    auto *o = new QRadioButton(caption, parent);
    o->setObjectName(name);
    group->addButton(o, id);
    return o;
}

// A caption in the first column of a grid, the control beside it.
void AddRow(QGridLayout *grid, int row, const QString &caption, QWidget *control, QWidget *parent)
{
    auto *label = new QLabel(caption, parent);
    label->setBuddy(control);
    grid->addWidget(label, row, 0);
    grid->addWidget(control, row, 1, 1, -1);
}

// Notes on the first eight lobes: how many neurones each role needs.
QString RankNote(int rank, const Session &session)
{
    switch (rank) {
    case 0: return QStringLiteral(" (ENOUGH NEUS FOR ALL PERCEPTIBLE LOBES)");
    case 1: return QStringLiteral(" (16)");
    case 2: return QStringLiteral(" (40)");
    case 3: return QStringLiteral(" (16)");
    case 4: return QStringLiteral(" (40)");
    case 5: return QStringLiteral(" (") + QString::number(session.Tables.SenseNames.size() - 1) + QStringLiteral(")");
    case 6: return QStringLiteral(" (16)");
    case 7: return QStringLiteral(" (40)");
    default: return QString();
    }
}

constexpr int SourceItems = 16;

} // namespace

frmBrainLobe::frmBrainLobe(Session &s, clsBrainLobe &lobe, QWidget *mainWin)
    : GeneEditor(s, lobe, mainWin, QStringLiteral("frmBrainLobe"), HelpBrainLobe)
{
    SSTab1 = new QTabWidget(this);
    SSTab1->setObjectName(QStringLiteral("SSTab1"));
    SSTab1->addTab(BuildGeneralTab(), QStringLiteral("General"));
    SSTab1->addTab(BuildCellBodyTab(), QStringLiteral("Cell Body"));
    SSTab1->addTab(BuildGrowthTab(0), QStringLiteral("D0 growth"));
    SSTab1->addTab(BuildDynamicsTab(0), QStringLiteral("D0 Dynamics"));
    SSTab1->addTab(BuildGrowthTab(1), QStringLiteral("D1 growth"));
    SSTab1->addTab(BuildDynamicsTab(1), QStringLiteral("D1 dynamics"));

    auto *column = new QVBoxLayout(this);
    column->addWidget(SSTab1, 1);
    column->addLayout(ButtonRow());
}

clsBrainLobe *frmBrainLobe::Lobe() const
{
    return static_cast<clsBrainLobe *>(Owner ? Owner : EditedGene());
}

// --- building the tabs -------------------------------------------------------------------------

QWidget *frmBrainLobe::BuildGeneralTab()
{
    auto *page = new QWidget;
    auto *column = new QVBoxLayout(page);
    Header->setParent(page);
    column->addWidget(Header);

    lblInfo = new QLabel(QStringLiteral("Interneurone lobe."), page);
    lblInfo->setObjectName(QStringLiteral("lblInfo"));
    lblInfo->setWordWrap(true);
    QFont bold = lblInfo->font();
    bold.setBold(true);
    lblInfo->setFont(bold);

    auto *idFrame = Frame(QStringLiteral("Lobe ID"), page);
    auto *idRow = new QHBoxLayout(idFrame);
    txtLobeNumber = new QLineEdit(idFrame);
    txtLobeNumber->setObjectName(QStringLiteral("txtLobeNumber"));
    txtLobeNumber->setEnabled(false);
    txtLobeNumber->setMaximumWidth(txtLobeNumber->fontMetrics().horizontalAdvance(QStringLiteral("Lobe #0000")) + 16);
    idRow->addWidget(txtLobeNumber);
    idRow->addWidget(lblInfo, 1);

    auto *posFrame = Frame(QStringLiteral("Lobe Position and Size"), page);
    auto *posGrid = new QGridLayout(posFrame);
    txtX = NumberBox(QStringLiteral("txtX"), QStringLiteral("0"), posFrame);
    txtY = NumberBox(QStringLiteral("txtY"), QStringLiteral("0"), posFrame);
    txtWidth = NumberBox(QStringLiteral("txtWidth"), QStringLiteral("1"), posFrame);
    txtHeight = NumberBox(QStringLiteral("txtHeight"), QStringLiteral("1"), posFrame);
    MakeByteBox(txtX);
    MakeByteBox(txtY);
    lblNum = new QLabel(QStringLiteral("1 neurone(s)"), posFrame);
    lblNum->setObjectName(QStringLiteral("lblNum"));
    posGrid->addWidget(new QLabel(QStringLiteral("X"), posFrame), 0, 0);
    posGrid->addWidget(txtX, 0, 1);
    posGrid->addWidget(new QLabel(QStringLiteral("Y"), posFrame), 0, 2);
    posGrid->addWidget(txtY, 0, 3);
    posGrid->addWidget(new QLabel(QStringLiteral("Width:"), posFrame), 1, 0);
    posGrid->addWidget(txtWidth, 1, 1);
    posGrid->addWidget(new QLabel(QStringLiteral("Height:"), posFrame), 1, 2);
    posGrid->addWidget(txtHeight, 1, 3);
    posGrid->addWidget(lblNum, 2, 0, 1, 5);
    posGrid->setColumnStretch(4, 1);
    connect(txtWidth, &QLineEdit::textChanged, this, &frmBrainLobe::SizeChanged);
    connect(txtHeight, &QLineEdit::textChanged, this, &frmBrainLobe::SizeChanged);

    auto *percFrame = Frame(QStringLiteral("Data copied to Perception Lobe?"), page);
    auto *percRow = new QHBoxLayout(percFrame);
    auto *percGroup = new QButtonGroup(percFrame);
    const char *percCaptions[3] = {"No", "Yes", "Mutually exclusive"};
    for (int i = 0; i < 3; ++i) {
        optPerceptible[i] = Option(Indexed("optPerceptible", i), QLatin1String(percCaptions[i]), percFrame, percGroup, i);
        percRow->addWidget(optPerceptible[i]);
    }
    optPerceptible[0]->setChecked(true);
    percRow->addStretch(1);

    column->addWidget(idFrame);
    auto *middle = new QHBoxLayout;
    middle->addWidget(posFrame, 1);
    middle->addWidget(percFrame, 1);
    column->addLayout(middle);
    column->addStretch(1);
    return page;
}

QWidget *frmBrainLobe::BuildCellBodyTab()
{
    Session &s = session;
    auto *page = new QWidget;
    auto *column = new QVBoxLayout(page);

    auto *dynFrame = Frame(QStringLiteral("Cell Body Dynamics"), page);
    auto *grid = new QGridLayout(dynFrame);
    scrThreshold = MakeSlider(s, QStringLiteral("scrThreshold"), 0, 255, 16, true, dynFrame);
    scrLeakage = new TimeSlider(s, QStringLiteral("scrLeakage"), dynFrame);
    scrRestState = MakeSlider(s, QStringLiteral("scrRestState"), 0, 255, 16, true, dynFrame);
    scrAttenuation = MakeSlider(s, QStringLiteral("scrAttenuation"), 0, 255, 16, true, dynFrame);
    AddRow(grid, 0, QStringLiteral("Nominal Threshold"), scrThreshold, dynFrame);
    AddRow(grid, 1, QStringLiteral("Leakage rate"), scrLeakage, dynFrame);
    AddRow(grid, 2, QStringLiteral("Rest State"), scrRestState, dynFrame);
    AddRow(grid, 3, QStringLiteral("Input gain lo-hi"), scrAttenuation, dynFrame);
    grid->setColumnStretch(1, 1);

    chkFlags[0] = new QCheckBox(QStringLiteral("Winner Takes All (WTA)"), page);
    chkFlags[0]->setObjectName(Indexed("chkFlags", 0));
    auto *flagFrame = Frame(QStringLiteral("Un-used Flags"), page);
    auto *flagRow = new QHBoxLayout(flagFrame);
    for (int i = 1; i < 4; ++i) {
        chkFlags[i] = new QCheckBox(QStringLiteral("Flag %1").arg(i + 1), flagFrame);
        chkFlags[i]->setObjectName(Indexed("chkFlags", i));
        flagRow->addWidget(chkFlags[i]);
    }
    flagRow->addStretch(1);

    auto *ruleFrame = Frame(QStringLiteral("Neurone State Rule"), page);
    auto *ruleRow = new QHBoxLayout(ruleFrame);
    lblStateRule = RuleLabel(QStringLiteral("lblStateRule"));
    btnStateRule = RuleButton(QStringLiteral("btnStateRule"), QStringLiteral("&State Rule..."), lblStateRule,
                              [](clsBrainLobe &g) -> StateRule & { return g.StateRule; });
    ruleRow->addWidget(btnStateRule);
    ruleRow->addWidget(lblStateRule, 1);

    column->addWidget(dynFrame);
    auto *flags = new QHBoxLayout;
    flags->addWidget(chkFlags[0]);
    flags->addWidget(flagFrame, 1);
    column->addLayout(flags);
    column->addWidget(ruleFrame);
    column->addStretch(1);
    return page;
}

QWidget *frmBrainLobe::BuildGrowthTab(int i)
{
    Session &s = session;
    auto *page = new QWidget;
    auto *grid = new QGridLayout(page);

    auto *sourceFrame = Frame(QStringLiteral("Source Lobe"), page);
    auto *sourceRow = new QHBoxLayout(sourceFrame);
    lstSource[i] = new QComboBox(sourceFrame);
    lstSource[i]->setObjectName(Indexed("lstSource", i));
    lstSource[i]->setMaxVisibleItems(SourceItems);
    lstSource[i]->setMinimumContentsLength(20);
    lstSource[i]->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    sourceRow->addWidget(lstSource[i], 1);

    auto *denFrame = Frame(QStringLiteral("Dendrite Properties"), page);
    auto *denGrid = new QGridLayout(denFrame);
    txtMin[i] = NumberBox(Indexed("txtMin", i), QStringLiteral("0"), denFrame);
    txtMax[i] = NumberBox(Indexed("txtMax", i), QStringLiteral("0"), denFrame);
    MakeByteBox(txtMin[i]);
    MakeByteBox(txtMax[i]);
    lstSpread[i] = new QComboBox(denFrame);
    lstSpread[i]->setObjectName(Indexed("lstSpread", i));
    lstSpread[i]->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    lstSpread[i]->addItems({QStringLiteral("--- Flat"), QStringLiteral("/\\ Normal"), QStringLiteral("|\\ Saw"),
                            QStringLiteral("/| waS")});
    denGrid->addWidget(new QLabel(QStringLiteral("Minimum #"), denFrame), 0, 0);
    denGrid->addWidget(txtMin[i], 0, 1);
    denGrid->addWidget(new QLabel(QStringLiteral("Maximum #"), denFrame), 1, 0);
    denGrid->addWidget(txtMax[i], 1, 1);
    denGrid->addWidget(new QLabel(QStringLiteral("Spread"), denFrame), 2, 0);
    denGrid->addWidget(lstSpread[i], 2, 1);
    denGrid->setColumnStretch(2, 1);

    auto *attFrame = Frame(QStringLiteral("Initial Attachment"), page);
    auto *attGrid = new QGridLayout(attFrame);
    scrFanWidth[i] = MakeSlider(s, Indexed("scrFanWidth", i), 0, 8, 2, true, attFrame);
    scrInitialLTWMin[i] = MakeSlider(s, Indexed("scrInitialLTWMin", i), 0, 255, 16, false, attFrame);
    scrInitialLTWMax[i] = MakeSlider(s, Indexed("scrInitialLTWMax", i), 0, 255, 16, false, attFrame);
    scrInitialStrengthMin[i] = MakeSlider(s, Indexed("scrInitialStrengthMin", i), 0, 255, 16, false, attFrame);
    scrInitialStrengthMax[i] = MakeSlider(s, Indexed("scrInitialStrengthMax", i), 0, 255, 16, false, attFrame);
    AddRow(attGrid, 0, QStringLiteral("Fanout"), scrFanWidth[i], attFrame);
    AddRow(attGrid, 1, QStringLiteral("Min LTW"), scrInitialLTWMin[i], attFrame);
    AddRow(attGrid, 2, QStringLiteral("Max LTW"), scrInitialLTWMax[i], attFrame);
    AddRow(attGrid, 3, QStringLiteral("Min. Strength"), scrInitialStrengthMin[i], attFrame);
    AddRow(attGrid, 4, QStringLiteral("Max. Strength"), scrInitialStrengthMax[i], attFrame);
    attGrid->setColumnStretch(1, 1);
    LinkSliders(scrInitialLTWMin[i], scrInitialLTWMax[i]);
    LinkSliders(scrInitialStrengthMin[i], scrInitialStrengthMax[i]);

    auto *migFrame = Frame(QStringLiteral("Migration Rules"), page);
    auto *migColumn = new QVBoxLayout(migFrame);
    auto *migGroup = new QButtonGroup(migFrame);
    optMig0[i] = Option(Indexed("optMig0", i), QStringLiteral("Dendrites do not migrate"), migFrame, migGroup, 0);
    optMig1[i] = Option(Indexed("optMig1", i),
                        QStringLiteral("Migrate if ANY dendrite is loose and this cell is firing"), migFrame, migGroup, 1);
    optMig2[i] = Option(Indexed("optMig2", i), QStringLiteral("Migrate when ALL dens are loose"), migFrame, migGroup, 2);
    optMig0[i]->setChecked(true);
    migColumn->addWidget(optMig0[i]);
    migColumn->addWidget(optMig1[i]);
    migColumn->addWidget(optMig2[i]);

    grid->addWidget(sourceFrame, 0, 0);
    grid->addWidget(denFrame, 1, 0);
    grid->addWidget(attFrame, 0, 1, 2, 1);
    grid->addWidget(migFrame, 2, 0, 1, 2);
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(3, 1);
    return page;
}

QWidget *frmBrainLobe::BuildDynamicsTab(int i)
{
    Session &s = session;
    auto *page = new QWidget;
    auto *column = new QVBoxLayout(page);

    auto *atrFrame = Frame(QStringLiteral("Atrophy and Consolidation"), page);
    auto *atrGrid = new QGridLayout(atrFrame);
    scrRelaxSus[i] = new TimeSlider(s, Indexed("scrRelaxSus", i), atrFrame);
    scrRelaxSTW[i] = new TimeSlider(s, Indexed("scrRelaxSTW", i), atrFrame);
    chkLTWRate[i] = new QCheckBox(QStringLiteral("LTW gain rate"), atrFrame);
    chkLTWRate[i]->setObjectName(Indexed("chkLTWRate", i));
    chkLTWRate[i]->setChecked(true);
    scrLTWRate[i] = MakeReversedSlider(s, Indexed("scrLTWRate", i), 1, 255, 16, true, atrFrame);
    atrGrid->addWidget(new QLabel(QStringLiteral("Relax Susceptibility"), atrFrame), 0, 0);
    atrGrid->addWidget(new QLabel(QStringLiteral("Slow"), atrFrame), 0, 1);
    atrGrid->addWidget(scrRelaxSus[i], 0, 2);
    atrGrid->addWidget(new QLabel(QStringLiteral("Fast"), atrFrame), 0, 3);
    atrGrid->addWidget(new QLabel(QStringLiteral("Relax STW"), atrFrame), 1, 0);
    atrGrid->addWidget(scrRelaxSTW[i], 1, 2);
    atrGrid->addWidget(chkLTWRate[i], 2, 0);
    atrGrid->addWidget(scrLTWRate[i], 2, 2);
    atrGrid->setColumnStretch(2, 1);
    connect(chkLTWRate[i], &QCheckBox::toggled, this, [this, i](bool on) { scrLTWRate[i]->setEnabled(on); });

    auto *strFrame = Frame(QStringLiteral("Strength Adjustment"), page);
    auto *strGrid = new QGridLayout(strFrame);
    chkGainStrength[i] = new QCheckBox(QStringLiteral("Gain every"), strFrame);
    chkGainStrength[i]->setObjectName(Indexed("chkGainStrength", i));
    chkGainStrength[i]->setChecked(true);
    scrGainStrength[i] = MakeSlider(s, Indexed("scrGainStrength", i), 1, 255, 16, true, strFrame);
    lblGainStrengthRule[i] = RuleLabel(Indexed("lblGainStrengthRule", i));
    btnGainStrengthRule[i] = RuleButton(Indexed("btnGainStrengthRule", i), QStringLiteral("If..."),
                                        lblGainStrengthRule[i],
                                        [i](clsBrainLobe &g) -> StateRule & { return g.GainRule(i); });
    chkLoseStrength[i] = new QCheckBox(QStringLiteral("Lose every"), strFrame);
    chkLoseStrength[i]->setObjectName(Indexed("chkLoseStrength", i));
    chkLoseStrength[i]->setChecked(true);
    scrLoseStrength[i] = MakeSlider(s, Indexed("scrLoseStrength", i), 1, 255, 16, true, strFrame);
    lblLoseStrengthRule[i] = RuleLabel(Indexed("lblLoseStrengthRule", i));
    btnLoseStrengthRule[i] = RuleButton(Indexed("btnLoseStrengthRule", i), QStringLiteral("If..."),
                                        lblLoseStrengthRule[i],
                                        [i](clsBrainLobe &g) -> StateRule & { return g.LoseRule(i); });
    strGrid->addWidget(chkGainStrength[i], 0, 0);
    strGrid->addWidget(scrGainStrength[i], 0, 1);
    strGrid->addWidget(btnGainStrengthRule[i], 1, 0, Qt::AlignRight);
    strGrid->addWidget(lblGainStrengthRule[i], 1, 1);
    strGrid->addWidget(new QLabel(QStringLiteral(" >0"), strFrame), 1, 2);
    strGrid->addWidget(chkLoseStrength[i], 2, 0);
    strGrid->addWidget(scrLoseStrength[i], 2, 1);
    strGrid->addWidget(btnLoseStrengthRule[i], 3, 0, Qt::AlignRight);
    strGrid->addWidget(lblLoseStrengthRule[i], 3, 1);
    strGrid->addWidget(new QLabel(QStringLiteral(" >0"), strFrame), 3, 2);
    strGrid->setColumnStretch(1, 1);
    for (auto [box, slider, button, label] :
         {std::tuple{chkGainStrength[i], scrGainStrength[i], btnGainStrengthRule[i], lblGainStrengthRule[i]},
          std::tuple{chkLoseStrength[i], scrLoseStrength[i], btnLoseStrengthRule[i], lblLoseStrengthRule[i]}}) {
        connect(box, &QCheckBox::toggled, this, [slider = slider, button = button, label = label](bool on) {
            slider->setEnabled(on);
            button->setEnabled(on);
            label->setEnabled(on);
        });
    }

    auto *inner = new QTabWidget(page);
    inner->setObjectName(i == 0 ? QStringLiteral("SSTab2") : QStringLiteral("SSTab3"));
    (i == 0 ? SSTab2 : SSTab3) = inner;

    auto *susPage = new QWidget;
    auto *susGrid = new QGridLayout(susPage);
    lblSusRule[i] = RuleLabel(Indexed("lblSusRule", i));
    btnSusRule[i] = RuleButton(Indexed("btnSusRule", i), QStringLiteral("Susceptibility..."), lblSusRule[i],
                               [i](clsBrainLobe &g) -> StateRule & { return g.SusRule(i); });
    lblReinforceRule[i] = RuleLabel(Indexed("lblReinforceRule", i));
    btnReinforceRule[i] = RuleButton(Indexed("btnReinforceRule", i), QStringLiteral("Reinforcement..."),
                                     lblReinforceRule[i],
                                     [i](clsBrainLobe &g) -> StateRule & { return g.ReinforceRule(i); });
    susGrid->addWidget(btnSusRule[i], 0, 0);
    susGrid->addWidget(lblSusRule[i], 0, 1);
    susGrid->addWidget(btnReinforceRule[i], 1, 0);
    susGrid->addWidget(lblReinforceRule[i], 1, 1);
    susGrid->setColumnStretch(1, 1);
    susGrid->setRowStretch(2, 1);

    auto *bpPage = new QWidget;
    auto *bpGrid = new QGridLayout(bpPage);
    lblBPRule[i] = RuleLabel(Indexed("lblBPRule", i));
    btnBPRule[i] = RuleButton(Indexed("btnBPRule", i), QStringLiteral("Back prop..."), lblBPRule[i],
                              [i](clsBrainLobe &g) -> StateRule & { return g.BPRule(i); });
    lblFPRule[i] = RuleLabel(Indexed("lblFPRule", i));
    btnFPFule[i] = RuleButton(Indexed("btnFPFule", i), QStringLiteral("Forward prop..."), lblFPRule[i],
                              [i](clsBrainLobe &g) -> StateRule & { return g.FPRule(i); });
    bpGrid->addWidget(btnBPRule[i], 0, 0);
    bpGrid->addWidget(lblBPRule[i], 0, 1);
    bpGrid->addWidget(btnFPFule[i], 1, 0);
    bpGrid->addWidget(lblFPRule[i], 1, 1);
    bpGrid->setColumnStretch(1, 1);
    bpGrid->setRowStretch(2, 1);

    inner->addTab(susPage, QStringLiteral("Sus/Rein"));
    inner->addTab(bpPage, QStringLiteral("BP/FP"));

    column->addWidget(atrFrame);
    column->addWidget(strFrame);
    column->addWidget(inner, 1);
    return page;
}

QLabel *frmBrainLobe::RuleLabel(const QString &name)
{
    auto *label = new QLabel(QStringLiteral("None"), this);
    label->setObjectName(name);
    label->setFrameShape(QFrame::StyledPanel);
    label->setFrameShadow(QFrame::Sunken);
    label->setWordWrap(true);
    label->setMinimumWidth(Placement::TwipsToPixels(3900, this));
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return label;
}

QPushButton *frmBrainLobe::RuleButton(const QString &name, const QString &caption, QLabel *label,
                                      std::function<StateRule &(clsBrainLobe &)> member)
{
    auto *button = new QPushButton(caption, this);
    button->setObjectName(name);
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, [this, label, member] {
        clsBrainLobe *lobe = Lobe();
        if (!lobe)
            return;
        // The rule goes into the gene the moment its dialog closes; Cancel here does not undo it.
        StateRule &rule = member(*lobe);
        rule = EditStateRule(session, rule, this);
        ShowStateRule(session, rule, label);
    });
    return button;
}

void frmBrainLobe::LinkSliders(QScrollBar *minimum, QScrollBar *maximum)
{
    // The two ends of a range of the same dendrite type: either drags the other along, and
    // the read-out follows the drag.
    connect(minimum, &QScrollBar::valueChanged, this, [this, minimum, maximum](int v) {
        if (v > maximum->value())
            maximum->setValue(v);
        ShowSlider(session, minimum->value());
    });
    connect(maximum, &QScrollBar::valueChanged, this, [this, minimum, maximum](int v) {
        if (v < minimum->value())
            minimum->setValue(v);
        ShowSlider(session, maximum->value());
    });
}

void frmBrainLobe::SizeChanged()
{
    const QString w = ClampByteText(txtWidth->text());
    if (w != txtWidth->text())
        txtWidth->setText(w);
    const QString h = ClampByteText(txtHeight->text());
    if (h != txtHeight->text())
        txtHeight->setText(h);
    // No upper limit here: 255 by 255 shows 65025.
    lblNum->setText(Text::Str(ByteBoxValue(txtWidth) * ByteBoxValue(txtHeight)) + QStringLiteral(" neurone(s)"));
}

// --- load, fill, read ----------------------------------------------------------------------------

void frmBrainLobe::LoadEditor()
{
    SSTab1->setCurrentIndex(0);
    SSTab2->setCurrentIndex(0);
    SSTab3->setCurrentIndex(0);
    lstSpread[0]->setCurrentIndex(0);
    lstSpread[1]->setCurrentIndex(0);

    // Rank among the lobes: the lobes that stand before this dialog's gene.
    rank = 0;
    for (int g = 0; g < session.GeneCount; ++g) {
        const Gene *gene = session.GeneAt(g);
        if (!gene)
            continue;
        if (gene->View == static_cast<const GeneView *>(this))
            break;
        if (gene->GeneType == 0 && gene->GeneSubType == 0)
            ++rank;
    }
    txtLobeNumber->setText(QStringLiteral("Lobe #") + QString::number(rank));
    if (rank >= 0 && rank <= 7 && rank < session.Tables.LobeNames.size())
        lblInfo->setText(session.Tables.LobeNames.at(rank) + RankNote(rank, session));

    for (int i = 0; i < 2; ++i) {
        lstSource[i]->clear();
        for (int n = 0; n < SourceItems; ++n)
            lstSource[i]->addItem(session.Tables.LobeName(n));
        lstSource[i]->setCurrentIndex(0);
    }
}

void frmBrainLobe::SetKindControls()
{
    clsBrainLobe *g = Lobe();
    if (!g)
        return;

    txtX->setText(QString::number(g->x));
    txtY->setText(QString::number(g->y));
    txtWidth->setText(QString::number(g->Width));
    txtHeight->setText(QString::number(g->Height));

    if (g->Perceptible < 3)
        optPerceptible[g->Perceptible]->setChecked(true);

    scrThreshold->setValue(g->Threshold);
    scrRestState->setValue(g->RestState);
    scrAttenuation->setValue(g->Attenuation);
    scrLeakage->SetStoredValue(g->Leakage);

    ShowStateRule(session, g->StateRule, lblStateRule);

    for (int b = 0; b < 4; ++b)
        chkFlags[b]->setChecked(g->Flags & (1 << b));

    for (int i = 0; i < 2; ++i) {
        lstSource[i]->setCurrentIndex(g->Source[i] % lstSource[i]->count());
        txtMin[i]->setText(QString::number(g->min[i]));
        txtMax[i]->setText(QString::number(g->max[i]));
        lstSpread[i]->setCurrentIndex(g->Spread[i] % lstSpread[i]->count());

        scrFanWidth[i]->setValue(g->FanWidth[i]);
        scrInitialLTWMin[i]->setValue(g->InitialLTWMin[i]);
        scrInitialLTWMax[i]->setValue(g->InitialLTWMax[i]);
        scrInitialStrengthMin[i]->setValue(g->InitialStrengthMin[i]);
        scrInitialStrengthMax[i]->setValue(g->InitialStrengthMax[i]);

        if (g->Migration[i] == 1)
            optMig1[i]->setChecked(true);
        else if (g->Migration[i] == 2)
            optMig2[i]->setChecked(true);
        else
            optMig0[i]->setChecked(true);

        scrRelaxSus[i]->SetStoredValue(g->RelaxSus[i]);
        scrRelaxSTW[i]->SetStoredValue(g->RelaxSTW[i]);

        // An optional rate of 0 is "none": the box unchecked and the slider parked at 1.
        // The check boxes' own events enable or disable what belongs to them.
        const quint8 rates[3] = {g->LTWRate[i], g->GainStrength[i], g->LoseStrength[i]};
        QScrollBar *sliders[3] = {scrLTWRate[i], scrGainStrength[i], scrLoseStrength[i]};
        QCheckBox *boxes[3] = {chkLTWRate[i], chkGainStrength[i], chkLoseStrength[i]};
        for (int r = 0; r < 3; ++r) {
            if (rates[r] > 0) {
                sliders[r]->setValue(rates[r]);
                sliders[r]->setEnabled(true);
                boxes[r]->setChecked(true);
            } else {
                sliders[r]->setValue(1);
                sliders[r]->setEnabled(false);
                boxes[r]->setChecked(false);
            }
        }

        ShowStateRule(session, g->GainRule(i), lblGainStrengthRule[i]);
        ShowStateRule(session, g->LoseRule(i), lblLoseStrengthRule[i]);
        ShowStateRule(session, g->SusRule(i), lblSusRule[i]);
        ShowStateRule(session, g->ReinforceRule(i), lblReinforceRule[i]);
    }
}

void frmBrainLobe::GetKindControls()
{
    clsBrainLobe *g = Lobe();
    if (!g)
        return;

    g->x = quint8(ByteBoxValue(txtX));
    g->y = quint8(ByteBoxValue(txtY));
    g->Width = quint8(ByteBoxValue(txtWidth));
    g->Height = quint8(ByteBoxValue(txtHeight));

    g->Perceptible = optPerceptible[1]->isChecked() ? 1 : optPerceptible[2]->isChecked() ? 2 : 0;

    g->Threshold = quint8(scrThreshold->value());
    g->RestState = quint8(scrRestState->value());
    g->Attenuation = quint8(scrAttenuation->value());
    g->Leakage = quint8(scrLeakage->StoredValue());

    quint8 flags = 0;
    for (int b = 0; b < 4; ++b)
        if (chkFlags[b]->isChecked())
            flags |= quint8(1 << b);
    g->Flags = flags;

    for (int i = 0; i < 2; ++i) {
        g->Source[i] = quint8(qMax(0, lstSource[i]->currentIndex()));
        g->Spread[i] = quint8(qMax(0, lstSpread[i]->currentIndex()));
        g->min[i] = quint8(ByteBoxValue(txtMin[i]));
        g->max[i] = quint8(ByteBoxValue(txtMax[i]));
        g->FanWidth[i] = quint8(scrFanWidth[i]->value());
        g->InitialLTWMin[i] = quint8(scrInitialLTWMin[i]->value());
        g->InitialLTWMax[i] = quint8(scrInitialLTWMax[i]->value());
        g->InitialStrengthMin[i] = quint8(scrInitialStrengthMin[i]->value());
        g->InitialStrengthMax[i] = quint8(scrInitialStrengthMax[i]->value());

        g->Migration[i] = optMig1[i]->isChecked() ? 1 : optMig2[i]->isChecked() ? 2 : 0;

        g->RelaxSus[i] = quint8(scrRelaxSus[i]->StoredValue());
        g->RelaxSTW[i] = quint8(scrRelaxSTW[i]->StoredValue());

        g->LTWRate[i] = chkLTWRate[i]->isChecked() ? quint8(scrLTWRate[i]->value()) : 0;
        g->GainStrength[i] = chkGainStrength[i]->isChecked() ? quint8(scrGainStrength[i]->value()) : 0;
        g->LoseStrength[i] = chkLoseStrength[i]->isChecked() ? quint8(scrLoseStrength[i]->value()) : 0;
    }
}

void frmBrainLobe::ShowSVRules()
{
    EnsureLoaded();
    clsBrainLobe *g = Lobe();
    if (!g)
        return;
    ShowStateRule(session, g->GainRule(0), lblGainStrengthRule[0]);
    ShowStateRule(session, g->LoseRule(0), lblLoseStrengthRule[0]);
    ShowStateRule(session, g->GainRule(1), lblGainStrengthRule[1]);
    ShowStateRule(session, g->LoseRule(1), lblLoseStrengthRule[1]);
    ShowStateRule(session, g->SusRule(0), lblSusRule[0]);
    ShowStateRule(session, g->ReinforceRule(0), lblReinforceRule[0]);
    ShowStateRule(session, g->SusRule(1), lblSusRule[1]);
    ShowStateRule(session, g->ReinforceRule(1), lblReinforceRule[1]);
    ShowStateRule(session, g->BPRule(0), lblBPRule[0]);
    ShowStateRule(session, g->FPRule(0), lblFPRule[0]);
    ShowStateRule(session, g->BPRule(1), lblBPRule[1]);
    ShowStateRule(session, g->FPRule(1), lblFPRule[1]);
}
