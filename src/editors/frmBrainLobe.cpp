#include "editors/frmBrainLobe.h"

#include "widgets/Placement.h"
#include "core/Session.h"
#include "base/Text.h"
#include "core/genes/BrainLobe.h"
#include "editors/EditorCommon.h"
#include "editors/GeneHeaderPanel.h"
#include "editors/frmSVRule.h"
#include "widgets/FormBuilder.h"

#include <QBoxLayout>
#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QFontDatabase>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QTabWidget>

using namespace Form;
using G = clsBrainLobe;

namespace {

// Notes on the first eight lobes: how many neurones each role needs (the sensory lobe's
// count follows the sense names).
QString RankNote(int rank, const Session &session)
{
    static const char *const notes[8] = {" (ENOUGH NEUS FOR ALL PERCEPTIBLE LOBES)", " (16)", " (40)", " (16)",
                                         " (40)", nullptr, " (16)", " (40)"};
    if (rank == 5)
        return QStringLiteral(" (") + QString::number(session.Tables.SenseNames.size() - 1) + QStringLiteral(")");
    return rank >= 0 && rank < 8 ? QLatin1String(notes[rank]) : QString();
}

constexpr int SourceItems = 16;

} // namespace

frmBrainLobe::frmBrainLobe(Session &s, clsBrainLobe &lobe, QWidget *mainWin)
    : KindEditor(s, lobe, mainWin, GeneKind::BrainLobe)
{
    SSTab1 = new QTabWidget(this);
    SSTab1->setObjectName(QStringLiteral("SSTab1"));
    SSTab1->addTab(BuildGeneralTab(), QStringLiteral("General"));
    SSTab1->addTab(BuildCellBodyTab(), QStringLiteral("Cell Body"));
    SSTab1->addTab(BuildGrowthTab(0), QStringLiteral("D0 growth"));
    SSTab1->addTab(BuildDynamicsTab(0), QStringLiteral("D0 Dynamics"));
    SSTab1->addTab(BuildGrowthTab(1), QStringLiteral("D1 growth"));
    SSTab1->addTab(BuildDynamicsTab(1), QStringLiteral("D1 dynamics"));

    Box(new QVBoxLayout(this), {{SSTab1, 1}, ButtonRow()});
    BindFields();
}

// Every field, in the order the controls are filled. The order matters where controls move
// one another: the attachment sliders drag their partners, and a rate box's own event
// enables its rule button.
void frmBrainLobe::BindFields()
{
    Bind.Number(txtX, Of(&G::x));
    Bind.Number(txtY, Of(&G::y));
    Bind.Number(txtWidth, Of(&G::Width));
    Bind.Number(txtHeight, Of(&G::Height));
    Bind.Options({optPerceptible[0], optPerceptible[1], optPerceptible[2]}, Of(&G::Perceptible));
    Bind.Slider(scrThreshold, Of(&G::Threshold));
    Bind.Slider(scrRestState, Of(&G::RestState));
    Bind.Slider(scrAttenuation, Of(&G::Attenuation));
    Bind.Time(scrLeakage, Of(&G::Leakage));
    Bind.Step([this] { ShowRule(lblStateRule); });
    Bind.Bits(Of(&G::Flags), {{chkFlags[0], 1}, {chkFlags[1], 2}, {chkFlags[2], 4}, {chkFlags[3], 8}});
    for (int i = 0; i < 2; ++i) {
        Bind.Combo(lstSource[i], Of(&G::Source, i), ComboMap::Modulo());
        Bind.Number(txtMin[i], Of(&G::min, i));
        Bind.Number(txtMax[i], Of(&G::max, i));
        Bind.Combo(lstSpread[i], Of(&G::Spread, i), ComboMap::Modulo());
        Bind.Slider(scrFanWidth[i], Of(&G::FanWidth, i));
        Bind.Slider(scrInitialLTWMin[i], Of(&G::InitialLTWMin, i));
        Bind.Slider(scrInitialLTWMax[i], Of(&G::InitialLTWMax, i));
        Bind.Slider(scrInitialStrengthMin[i], Of(&G::InitialStrengthMin, i));
        Bind.Slider(scrInitialStrengthMax[i], Of(&G::InitialStrengthMax, i));
        Bind.Options({optMig0[i], optMig1[i], optMig2[i]}, Of(&G::Migration, i), 0);
        Bind.Time(scrRelaxSus[i], Of(&G::RelaxSus, i));
        Bind.Time(scrRelaxSTW[i], Of(&G::RelaxSTW, i));
        Bind.Rate(chkLTWRate[i], scrLTWRate[i], Of(&G::LTWRate, i));
        Bind.Rate(chkGainStrength[i], scrGainStrength[i], Of(&G::GainStrength, i),
                  {btnGainStrengthRule[i], lblGainStrengthRule[i]});
        Bind.Rate(chkLoseStrength[i], scrLoseStrength[i], Of(&G::LoseStrength, i),
                  {btnLoseStrengthRule[i], lblLoseStrengthRule[i]});
        Bind.Step([this, i] {
            for (QLabel *l : {lblGainStrengthRule[i], lblLoseStrengthRule[i], lblSusRule[i], lblReinforceRule[i]})
                ShowRule(l);
        });
    }
}

// --- building the tabs -------------------------------------------------------------------------

QWidget *frmBrainLobe::BuildGeneralTab()
{
    auto *page = new QWidget;
    auto *column = new QVBoxLayout(page);
    Header->setParent(page);
    column->addWidget(Header);

    lblInfo = Label(page, QStringLiteral("lblInfo"), QStringLiteral("Interneurone lobe."));
    lblInfo->setWordWrap(true);
    QFont bold = lblInfo->font();
    bold.setBold(true);
    lblInfo->setFont(bold);

    auto *idFrame = Frame(page, QStringLiteral("Lobe ID"));
    txtLobeNumber = new QLineEdit(idFrame);
    txtLobeNumber->setObjectName(QStringLiteral("txtLobeNumber"));
    txtLobeNumber->setEnabled(false);
    txtLobeNumber->setMaximumWidth(txtLobeNumber->fontMetrics().horizontalAdvance(QStringLiteral("Lobe #0000")) + 16);
    Box(new QHBoxLayout(idFrame), {txtLobeNumber, {lblInfo, 1}});

    // Width and height are tidied by their shared handler, which also counts the neurones.
    FrameGrid pos(page, QStringLiteral("Lobe Position and Size"), 4);
    txtX = ByteBox(pos.frame, QStringLiteral("txtX"), QStringLiteral("0"));
    txtY = ByteBox(pos.frame, QStringLiteral("txtY"), QStringLiteral("0"));
    txtWidth = NumberBox(pos.frame, QStringLiteral("txtWidth"), QStringLiteral("1"));
    txtHeight = NumberBox(pos.frame, QStringLiteral("txtHeight"), QStringLiteral("1"));
    lblNum = Label(pos.frame, QStringLiteral("lblNum"), QStringLiteral("1 neurone(s)"));
    pos.cells({"X", txtX, "Y", txtY});
    pos.cells({"Width:", txtWidth, "Height:", txtHeight});
    pos.grid->addWidget(lblNum, 2, 0, 1, 5);
    connect(txtWidth, &QLineEdit::textChanged, this, &frmBrainLobe::SizeChanged);
    connect(txtHeight, &QLineEdit::textChanged, this, &frmBrainLobe::SizeChanged);

    auto *percFrame = Frame(page, QStringLiteral("Data copied to Perception Lobe?"));
    auto *percGroup = new QButtonGroup(percFrame);
    const char *percCaptions[3] = {"No", "Yes", "Mutually exclusive"};
    for (int i = 0; i < 3; ++i)
        optPerceptible[i] = Option(percFrame, percGroup, i, Indexed("optPerceptible", i), QLatin1String(percCaptions[i]));
    optPerceptible[0]->setChecked(true);
    Box(new QHBoxLayout(percFrame), {optPerceptible[0], optPerceptible[1], optPerceptible[2], Stretch()});

    Box(column, {idFrame, Box(new QHBoxLayout, {{pos.frame, 1}, {percFrame, 1}}), Stretch()});
    return page;
}

QWidget *frmBrainLobe::BuildCellBodyTab()
{
    auto *page = new QWidget;
    FrameGrid dyn(page, QStringLiteral("Cell Body Dynamics"));
    dyn.row(QStringLiteral("Nominal Threshold"),
            scrThreshold = MakeSlider(session, QStringLiteral("scrThreshold"), 0, 255, 16, true, dyn.frame));
    dyn.row(QStringLiteral("Leakage rate"), scrLeakage = new TimeSlider(session, QStringLiteral("scrLeakage"), dyn.frame));
    dyn.row(QStringLiteral("Rest State"),
            scrRestState = MakeSlider(session, QStringLiteral("scrRestState"), 0, 255, 16, true, dyn.frame));
    dyn.row(QStringLiteral("Input gain lo-hi"),
            scrAttenuation = MakeSlider(session, QStringLiteral("scrAttenuation"), 0, 255, 16, true, dyn.frame));

    chkFlags[0] = Check(page, Indexed("chkFlags", 0), QStringLiteral("Winner Takes All (WTA)"));
    auto *flagFrame = Frame(page, QStringLiteral("Un-used Flags"));
    for (int i = 1; i < 4; ++i)
        chkFlags[i] = Check(flagFrame, Indexed("chkFlags", i), QStringLiteral("Flag %1").arg(i + 1));
    Box(new QHBoxLayout(flagFrame), {chkFlags[1], chkFlags[2], chkFlags[3], Stretch()});

    auto *ruleFrame = Frame(page, QStringLiteral("Neurone State Rule"));
    btnStateRule = RuleButton(QStringLiteral("btnStateRule"), QStringLiteral("&State Rule..."), lblStateRule,
                              QStringLiteral("lblStateRule"), [](G &g) -> ::StateRule & { return g.StateRule; });
    Box(new QHBoxLayout(ruleFrame), {btnStateRule, {lblStateRule, 1}});

    Box(new QVBoxLayout(page),
        {dyn.frame, Box(new QHBoxLayout, {chkFlags[0], {flagFrame, 1}}), ruleFrame, Stretch()});
    return page;
}

QWidget *frmBrainLobe::BuildGrowthTab(int i)
{
    auto *page = new QWidget;
    auto *sourceFrame = Frame(page, QStringLiteral("Source Lobe"));
    lstSource[i] = Combo(sourceFrame, Indexed("lstSource", i));
    lstSource[i]->setMaxVisibleItems(SourceItems);
    lstSource[i]->setMinimumContentsLength(20);
    lstSource[i]->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    Box(new QHBoxLayout(sourceFrame), {{lstSource[i], 1}});

    FrameGrid den(page, QStringLiteral("Dendrite Properties"), 2);
    txtMin[i] = ByteBox(den.frame, Indexed("txtMin", i), QStringLiteral("0"));
    txtMax[i] = ByteBox(den.frame, Indexed("txtMax", i), QStringLiteral("0"));
    lstSpread[i] = Combo(den.frame, Indexed("lstSpread", i));
    lstSpread[i]->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    lstSpread[i]->addItems({QStringLiteral("--- Flat"), QStringLiteral("/\\ Normal"), QStringLiteral("|\\ Saw"),
                            QStringLiteral("/| waS")});
    den.row(QStringLiteral("Minimum #"), txtMin[i], 1);
    den.row(QStringLiteral("Maximum #"), txtMax[i], 1);
    den.row(QStringLiteral("Spread"), lstSpread[i], 1);

    // The four range ends have no read-out of their own: LinkSliders shows it after the drag.
    FrameGrid att(page, QStringLiteral("Initial Attachment"));
    att.row(QStringLiteral("Fanout"), scrFanWidth[i] = MakeSlider(session, Indexed("scrFanWidth", i), 0, 8, 2, true, att.frame));
    const char *ends[4][2] = {{"scrInitialLTWMin", "Min LTW"}, {"scrInitialLTWMax", "Max LTW"},
                              {"scrInitialStrengthMin", "Min. Strength"}, {"scrInitialStrengthMax", "Max. Strength"}};
    QScrollBar **bars[4] = {scrInitialLTWMin, scrInitialLTWMax, scrInitialStrengthMin, scrInitialStrengthMax};
    for (int k = 0; k < 4; ++k)
        att.row(QLatin1String(ends[k][1]), bars[k][i] = MakeSlider(session, Indexed(ends[k][0], i), 0, 255, 16, false, att.frame));
    LinkSliders(scrInitialLTWMin[i], scrInitialLTWMax[i]);
    LinkSliders(scrInitialStrengthMin[i], scrInitialStrengthMax[i]);

    auto *migFrame = Frame(page, QStringLiteral("Migration Rules"));
    auto *migGroup = new QButtonGroup(migFrame);
    optMig0[i] = Option(migFrame, migGroup, 0, Indexed("optMig0", i), QStringLiteral("Dendrites do not migrate"));
    optMig1[i] = Option(migFrame, migGroup, 1, Indexed("optMig1", i),
                        QStringLiteral("Migrate if ANY dendrite is loose and this cell is firing"));
    optMig2[i] = Option(migFrame, migGroup, 2, Indexed("optMig2", i), QStringLiteral("Migrate when ALL dens are loose"));
    optMig0[i]->setChecked(true);
    Box(new QVBoxLayout(migFrame), {optMig0[i], optMig1[i], optMig2[i]});

    auto *grid = new QGridLayout(page);
    grid->addWidget(sourceFrame, 0, 0);
    grid->addWidget(den.frame, 1, 0);
    grid->addWidget(att.frame, 0, 1, 2, 1);
    grid->addWidget(migFrame, 2, 0, 1, 2);
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(3, 1);
    return page;
}

QWidget *frmBrainLobe::BuildDynamicsTab(int i)
{
    auto *page = new QWidget;
    FrameGrid atr(page, QStringLiteral("Atrophy and Consolidation"), 2);
    scrRelaxSus[i] = new TimeSlider(session, Indexed("scrRelaxSus", i), atr.frame);
    scrRelaxSTW[i] = new TimeSlider(session, Indexed("scrRelaxSTW", i), atr.frame);
    chkLTWRate[i] = Check(atr.frame, Indexed("chkLTWRate", i), QStringLiteral("LTW gain rate"));
    chkLTWRate[i]->setChecked(true);
    scrLTWRate[i] = MakeReversedSlider(session, Indexed("scrLTWRate", i), 1, 255, 16, true, atr.frame);
    atr.cells({"Relax Susceptibility", "Slow", scrRelaxSus[i], "Fast"});
    atr.cells({"Relax STW", nullptr, scrRelaxSTW[i]});
    atr.cells({chkLTWRate[i], nullptr, scrLTWRate[i]});

    // Gain and lose: a rate box and slider, then the rule button and its label with " >0".
    FrameGrid str(page, QStringLiteral("Strength Adjustment"));
    for (int r = 0; r < 2; ++r) {
        const QString stem = QLatin1String(r ? "LoseStrength" : "GainStrength");
        QCheckBox *&box = (r ? chkLoseStrength : chkGainStrength)[i];
        QScrollBar *&slider = (r ? scrLoseStrength : scrGainStrength)[i];
        QLabel *&label = (r ? lblLoseStrengthRule : lblGainStrengthRule)[i];
        box = Check(str.frame, Indexed("chk" + stem, i), QLatin1String(r ? "Lose every" : "Gain every"));
        box->setChecked(true);
        slider = MakeSlider(session, Indexed("scr" + stem, i), 1, 255, 16, true, str.frame);
        (r ? btnLoseStrengthRule : btnGainStrengthRule)[i] =
            RuleButton(Indexed("btn" + stem + "Rule", i), QStringLiteral("If..."), label, Indexed("lbl" + stem + "Rule", i),
                       [i, r](G &g) -> ::StateRule & { return r ? g.LoseRule(i) : g.GainRule(i); });
    }
    // Laid out once both rows exist, so that Tab visits the rule buttons after both rates.
    for (int r = 0; r < 2; ++r) {
        str.cells({(r ? chkLoseStrength : chkGainStrength)[i], (r ? scrLoseStrength : scrGainStrength)[i]});
        str.cells({Cell((r ? btnLoseStrengthRule : btnGainStrengthRule)[i], Qt::AlignRight),
                   (r ? lblLoseStrengthRule : lblGainStrengthRule)[i], " >0"});
    }

    // The inner tabs: two pages of two rule buttons, each with its label beside it.
    auto *inner = new QTabWidget(page);
    inner->setObjectName(i == 0 ? QStringLiteral("SSTab2") : QStringLiteral("SSTab3"));
    (i == 0 ? SSTab2 : SSTab3) = inner;
    auto rulePage = [](QPushButton *top, QLabel *topLabel, QPushButton *bottom, QLabel *bottomLabel) {
        auto *p = new QWidget;
        auto *g = new QGridLayout(p);
        Cells(g, p, 0, {top, topLabel});
        Cells(g, p, 1, {bottom, bottomLabel});
        g->setColumnStretch(1, 1);
        g->setRowStretch(2, 1);
        return p;
    };
    btnSusRule[i] = RuleButton(Indexed("btnSusRule", i), QStringLiteral("Susceptibility..."), lblSusRule[i],
                               Indexed("lblSusRule", i), [i](G &g) -> ::StateRule & { return g.SusRule(i); });
    btnReinforceRule[i] = RuleButton(Indexed("btnReinforceRule", i), QStringLiteral("Reinforcement..."),
                                     lblReinforceRule[i], Indexed("lblReinforceRule", i),
                                     [i](G &g) -> ::StateRule & { return g.ReinforceRule(i); });
    inner->addTab(rulePage(btnSusRule[i], lblSusRule[i], btnReinforceRule[i], lblReinforceRule[i]),
                  QStringLiteral("Sus/Rein"));
    btnBPRule[i] = RuleButton(Indexed("btnBPRule", i), QStringLiteral("Back prop..."), lblBPRule[i],
                              Indexed("lblBPRule", i), [i](G &g) -> ::StateRule & { return g.BPRule(i); });
    btnFPFule[i] = RuleButton(Indexed("btnFPFule", i), QStringLiteral("Forward prop..."), lblFPRule[i],
                              Indexed("lblFPRule", i), [i](G &g) -> ::StateRule & { return g.FPRule(i); });
    inner->addTab(rulePage(btnBPRule[i], lblBPRule[i], btnFPFule[i], lblFPRule[i]), QStringLiteral("BP/FP"));

    Box(new QVBoxLayout(page), {atr.frame, str.frame, {inner, 1}});
    return page;
}

QPushButton *frmBrainLobe::RuleButton(const QString &name, const QString &caption, QLabel *&label,
                                      const QString &labelName, RuleOf rule)
{
    label = PanelLabel(this, labelName, QStringLiteral("None"));
    label->setMinimumWidth(Placement::TwipsToPixels(3900, this));
    rules.insert(label, rule);
    auto *button = NamedButton(this, name, caption);
    connect(button, &QPushButton::clicked, this, [this, label, rule] {
        G *lobe = Kind();
        if (!lobe)
            return;
        // The rule goes into the gene the moment its dialog closes; Cancel here does not undo it.
        ::StateRule &r = rule(*lobe);
        r = EditStateRule(session, r, this);
        ShowStateRule(session, r, label);
    });
    return button;
}

void frmBrainLobe::ShowRule(QLabel *label)
{
    if (G *lobe = Kind())
        ShowStateRule(session, rules.value(label)(*lobe), label);
}

void frmBrainLobe::LinkSliders(QScrollBar *minimum, QScrollBar *maximum)
{
    // The two ends of a range of the same dendrite type: either drags the other along past
    // it, and the read-out follows the drag.
    for (bool up : {true, false}) {
        QScrollBar *moved = up ? minimum : maximum, *other = up ? maximum : minimum;
        connect(moved, &QScrollBar::valueChanged, this, [this, moved, other, up](int v) {
            if (up ? v > other->value() : v < other->value())
                other->setValue(v);
            ShowSlider(session, moved->value());
        });
    }
}

void frmBrainLobe::SizeChanged()
{
    for (QLineEdit *box : {txtWidth, txtHeight}) {
        const QString tidy = ClampByteText(box->text());
        if (tidy != box->text())
            box->setText(tidy);
    }
    // No upper limit here: 255 by 255 shows 65025.
    lblNum->setText(Text::Str(ByteBoxValue(txtWidth) * ByteBoxValue(txtHeight)) + QStringLiteral(" neurone(s)"));
}

// --- load and the rules ---------------------------------------------------------------------------

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
        if (gene->Is(GeneKind::BrainLobe))
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

void frmBrainLobe::ShowSVRules()
{
    EnsureLoaded();
    for (QLabel *l : {lblGainStrengthRule[0], lblLoseStrengthRule[0], lblGainStrengthRule[1], lblLoseStrengthRule[1],
                      lblSusRule[0], lblReinforceRule[0], lblSusRule[1], lblReinforceRule[1], lblBPRule[0],
                      lblFPRule[0], lblBPRule[1], lblFPRule[1]})
        ShowRule(l);
}
