// The brain lobe editor and its rule dialog: rank and info text, what its tabs and frames read,
// filling and reading back the fields with the time sliders' rounding, the options, the rate
// boxes, the linked attachment sliders, number boxes, the text of a rule, and the rule buttons
// and dialog that write into the gene at once.
#include "EditorTestKit.h"
#include "core/genes/BrainLobe.h"
#include "editors/frmBrainLobe.h"
#include "editors/frmSVRule.h"

namespace {
using Rule = std::array<quint8, 12>;
}

class TestBrainLobe : public QObject
{
    Q_OBJECT
    EditorTestKit kit;

    clsBrainLobe *AddLobe() { return static_cast<clsBrainLobe *>(kit.Add(0, 0)); }
    // Opens the rule dialog by the button and tells its title, its number of tokens and the token
    // each of its combos shows; picks the tokens from the start, then leaves it by Ok or Cancel.
    static QString EditRule(QAbstractButton *button, QList<int> tokens, bool ok)
    {
        QString shown = QStringLiteral("no rule dialog");
        bool seen;
        WhenModal<frmSVRule>(&seen, [&shown, tokens, ok](frmSVRule *d) {
            shown = d->windowTitle() + ", " + QString::number(d->lstSR[11]->count()) + ':';
            for (QComboBox *c : d->lstSR)
                shown += ' ' + c->currentText();
            for (int i = 0; i < tokens.size(); ++i)
                d->lstSR[i]->setCurrentIndex(tokens[i]);
            (ok ? d->SVOKCommand : d->SCCancelCommand)->click();
        });
        button->click();
        return shown;
    }
    // The rows of the frame of that title on a page, as the user reads them: each cell a
    // caption's text or a control's name, "|" between cells, "/" between rows.
    static QString Rows(QWidget *page, const QString &title)
    {
        QString rows;
        for (auto *frame : page->findChildren<QGroupBox *>()) {
            auto *grid = frame->title() == title ? qobject_cast<QGridLayout *>(frame->layout()) : nullptr;
            const int columns = grid ? grid->columnCount() : 0;
            for (int at = 0; grid && at < columns * grid->rowCount(); ++at) {
                QLayoutItem *item = grid->itemAtPosition(at / columns, at % columns);
                auto *caption = qobject_cast<QLabel *>(item ? item->widget() : nullptr);
                const bool captioned = caption && caption->objectName().isEmpty();
                rows += (at % columns ? "|" : "/") + (captioned ? caption->text() : item ? item->widget()->objectName() : "");
            }
        }
        return rows.mid(1);
    }

private slots:
    void init() { kit.Init(); }
    void cleanup() { kit.Cleanup(); }

    // The rank and info text of a lobe; the source lobes; the tabs in order and the captions
    // beside the controls.
    void whatTheTabsRead()
    {
        QList<clsBrainLobe *> lobes;
        for (int i = 0; i < 9; ++i)
            lobes << AddLobe(), kit.Add(2, 3); // other kinds between do not count
        const std::pair<int, const char *> ranks[] = {
            {0, "Perceptible i/ps (ENOUGH NEUS FOR ALL PERCEPTIBLE LOBES)"},
            {7, "Attention/Seek o/ps (40)"},
            {8, "Interneurone lobe."}};
        for (auto [rank, info] : ranks) {
            auto *e = kit.Open<frmBrainLobe>(lobes[rank]);
            QCOMPARE(e->txtLobeNumber->text() + '|' + e->lblInfo->text(), QStringLiteral("Lobe #%1|").arg(rank) + info);
        }
        // Sixteen source lobes: the eight names, then "Lobe 8" to "Lobe 15".
        auto *source = Child<QComboBox>(kit.Open(lobes[8]), "lstSource_1");
        QCOMPARE(QStringList({QString::number(source->count()), source->itemText(7), source->itemText(8), source->itemText(15)}),
                 QStringList({"16", "Attention/Seek o/ps", "Lobe 8", "Lobe 15"}));

        auto *e = kit.Open<frmBrainLobe>(lobes[0]);
        QStringList tabs;
        for (QTabWidget *set : {e->SSTab1, e->SSTab2, e->SSTab3})
            for (int t = 0; t < set->count(); ++t)
                tabs << set->tabText(t) + (set->currentIndex() == t ? "*" : "");
        QCOMPARE(tabs, QStringList({"General*", "Cell Body", "D0 growth", "D0 Dynamics", "D1 growth", "D1 dynamics",
                                    "Sus/Rein*", "BP/FP", "Sus/Rein*", "BP/FP"}));
        QCOMPARE(Rows(e->SSTab1->widget(1), "Cell Body Dynamics"),
                 QStringLiteral("Nominal Threshold|scrThreshold/Leakage rate|scrLeakage/Rest State|scrRestState/"
                                "Input gain lo-hi|scrAttenuation"));
        QCOMPARE(Rows(e->SSTab1->widget(4), "Dendrite Properties"),
                 QStringLiteral("Minimum #|txtMin_1|/Maximum #|txtMax_1|/Spread|lstSpread_1|"));
        QCOMPARE(Rows(e->SSTab1->widget(5), "Atrophy and Consolidation"),
                 QStringLiteral("Relax Susceptibility|Slow|scrRelaxSus_1|Fast/Relax STW||scrRelaxSTW_1|/"
                                "chkLTWRate_1||scrLTWRate_1|"));
        QCOMPARE(Rows(e->SSTab1->widget(3), "Strength Adjustment"),
                 QStringLiteral("chkGainStrength_0|scrGainStrength_0|/btnGainStrengthRule_0|lblGainStrengthRule_0| >0/"
                                "chkLoseStrength_0|scrLoseStrength_0|/btnLoseStrengthRule_0|lblLoseStrengthRule_0| >0"));
    }

    // What a field the controls cannot hold becomes: time sliders (Leakage, RelaxSus, RelaxSTW)
    // show a byte in eighths, rounded half to even, and store position * 8; only the four flags
    // with boxes stay; a source or spread beyond its list shows and stores item 1. Each
    // attachment slider drags its partner of the same dendrite type; the count and number boxes
    // are tidied as typed but not linked. A rate of 0: box unchecked, slider parked at 1, slider,
    // rule button and label disabled; checking without moving gives 1; a slider keeps its place
    // when unchecked.
    void fieldsGoThroughTheEditor()
    {
        clsBrainLobe *g = AddLobe();
        g->Width = 5, g->Height = 6, g->Leakage = 20, g->Flags = 0xF5, g->Source[0] = 17, g->Spread[1] = 5;
        g->RelaxSus[0] = 28, g->RelaxSTW[0] = 253, g->RelaxSus[1] = 88, g->RelaxSTW[1] = 104;
        g->InitialStrengthMax[1] = 100, g->InitialLTWMin[0] = 20, g->InitialLTWMax[0] = 30;
        g->GainStrength[1] = 0, g->LoseStrength[1] = 9;
        auto *e = kit.Open<frmBrainLobe>(g);
        auto enabled = [e] { // 1 for each control enabled
            QString on;
            for (const char *name : {"scrGainStrength_1", "btnGainStrengthRule_1", "lblGainStrengthRule_1",
                                     "scrLoseStrength_1", "btnLoseStrengthRule_1", "lblLoseStrengthRule_1"})
                on += Child<QWidget>(e, name)->isEnabled() ? '1' : '0';
            return on;
        };
        QCOMPARE(e->lblNum->text() + ' ' + enabled(), QStringLiteral(" 30 neurone(s) 000111"));
        QCOMPARE(kit.Enter(e, {"scrLeakage", "chkFlags_1", "chkFlags_2", "lstSource_0", "scrInitialStrengthMin_1=200",
                               "scrInitialStrengthMax_0", "scrInitialLTWMax_0=5", "scrInitialLTWMin_0",
                               "scrInitialLTWMin_0=3", "txtX=-7", "txtWidth=4", "txtHeight=999"}),
                 "scrLeakage:2 | chkFlags_1:0 | chkFlags_2:1 | lstSource_0:Drive i/ps | "
                 "scrInitialStrengthMin_1:0>200 Slider: 200 | scrInitialStrengthMax_0:0 | scrInitialLTWMax_0:30>5 Slider: 5 | "
                 "scrInitialLTWMin_0:5 | scrInitialLTWMin_0:5>3 Slider: 3 | txtX:0>7 | txtWidth:5>4 | txtHeight:6>255");
        QCOMPARE(kit.Enter(e, {"scrGainStrength_1", "chkGainStrength_1=1", "chkLoseStrength_1=0"}),
                 "scrGainStrength_1:1 | chkGainStrength_1:0>1 | chkLoseStrength_1:1>0");
        QCOMPARE(e->lblNum->text() + ' ' + enabled(), QStringLiteral(" 1020 neurone(s) 111000"));
        kit.Enter(e, {"txtWidth=200", "txtY=12.5", "txtMin_0=90", "txtMax_0=10"});
        e->btnOk->click();
        QCOMPARE(QList<int>({g->Leakage, g->Flags, g->Source[0], g->Spread[1], g->RelaxSus[0], g->RelaxSTW[0],
                             g->RelaxSus[1], g->RelaxSTW[1], g->min[0], g->max[0], g->InitialStrengthMin[1],
                             g->InitialStrengthMax[1], g->InitialStrengthMax[0], g->InitialLTWMin[0], g->InitialLTWMax[0],
                             g->Width, g->Height, g->y, g->x, g->GainStrength[1], g->LoseStrength[1]}),
                 QList<int>({16, 5, 1, 1, 32, 248, 88, 104, 90, 10, 200, 200, 0, 3, 5, 200, 255, 12, 7, 1, 0}));
    }

    // The option of the stored value shows (none for a value beyond the options: the first
    // stays) and each option stores its index: Perceptible and dendrite 1's Migration.
    void options_data()
    {
        QTest::addColumn<QList<int>>("row"); // stored, shown, picked (-1 for none)
        QTest::newRow("0, Mutually exclusive picked") << QList<int>{0, 0, 2};
        QTest::newRow("1, No picked") << QList<int>{1, 1, 0};
        QTest::newRow("2, Yes picked") << QList<int>{2, 2, 1};
        QTest::newRow("7, kept as shown") << QList<int>{7, 0, -1};
    }
    void options()
    {
        QFETCH(QList<int>, row);
        const int stored = row[0], shown = row[1], picked = row[2];
        clsBrainLobe *g = AddLobe();
        g->Perceptible = g->Migration[1] = quint8(stored);
        auto *e = kit.Open<frmBrainLobe>(g);
        const QList<QRadioButton *> groups[2] = {{e->optPerceptible[0], e->optPerceptible[1], e->optPerceptible[2]},
                                                 {e->optMig0[1], e->optMig1[1], e->optMig2[1]}};
        for (const QList<QRadioButton *> &group : groups) {
            QCOMPARE(QList<bool>({group[0]->isChecked(), group[1]->isChecked(), group[2]->isChecked()}),
                     QList<bool>({shown == 0, shown == 1, shown == 2}));
            if (picked >= 0)
                group[picked]->click();
        }
        e->btnOk->click();
        QCOMPARE(QList<int>({g->Perceptible, g->Migration[1]}), QList<int>(2, picked >= 0 ? picked : shown));
    }

    // A rule's label shows its words up to its first 0, "<undefined>" for none, the error word
    // for a token beyond the words. A rule button edits its rule in the rule dialog and writes
    // it into the gene at once: Ok takes the combos (tokens after a leading 0 showed there,
    // unknown ones as the error word); Cancel keeps the rule, and a cancelled
    // dialog on an absent rule leaves twelve zeros. Nothing of it is undone by the editor's
    // Cancel, nor read back by its Close.
    void rules()
    {
        clsBrainLobe *g = AddLobe();
        g->GainStrength[1] = 5; // a rate of 0 would disable the gain rule's button
        g->StateRule = Rule{5, 31, 2, 0, 9}, g->BPRule2 = Rule{200, 41}, g->SusRule1 = Rule{0, 7, 200, 41, 255};
        g->ReinforceRule2 = Rule{1, 2, 3, 4, 22, 23, 24, 25, 26, 27, 28, 29};
        auto *e = kit.Open<frmBrainLobe>(g);
        QCOMPARE(QStringList({e->lblStateRule->text(), e->lblBPRule[1]->text(), e->lblGainStrengthRule[1]->text(),
                              e->lblSusRule[0]->text(), e->lblReinforceRule[1]->text()}),
                 QStringList({"chem 0:PLUS:1:", "E!(200): <ERROR>:", "<undefined>", "<undefined>",
                              "0:1:64:255:32:128:rnd const:chem 4:chem 5:leak in:leak out:curr src leak in:"}));

        const QString title = "State Variable Rule, 42:", none = " <end>";
        QCOMPARE(EditRule(e->btnGainStrengthRule[1], {5, 31, 2}, true), title + none.repeated(12));
        QCOMPARE(e->lblGainStrengthRule[1]->text(), QStringLiteral("chem 0:PLUS:1:"));
        QCOMPARE(EditRule(e->btnBPRule[1], {9}, false), title + " <ERROR> <ERROR>" + none.repeated(10));
        QCOMPARE(EditRule(e->btnFPFule[0], {4}, false), title + none.repeated(12));
        QCOMPARE(EditRule(e->btnSusRule[0], {3}, true),
                 title + " <end> chem 2 <ERROR> <ERROR> <ERROR>" + none.repeated(7));
        e->btnCancel->click();
        kit.Open(g)->btnOk->click();
        QCOMPARE(QList<StateRule>({g->GainStrengthRule1, g->GainStrengthRule2, g->BPRule2, g->FPRule1, g->SusRule1,
                                   g->StateRule}),
                 QList<StateRule>({std::nullopt, Rule{5, 31, 2}, Rule{200, 41}, Rule{}, Rule{3, 7, 41, 41, 41},
                                   Rule{5, 31, 2, 0, 9}}));
    }
};

QTEST_MAIN(TestBrainLobe)
#include "test_brainlobe.moc"
