// The brain lobe editor: rank and info text, filling and reading back every field, the time
// sliders' rounding, the rate boxes, the linked attachment sliders, number boxes and the
// rule buttons that write into the gene at once.
#include "EditorTestKit.h"
#include "core/genes/BrainLobe.h"
#include "editors/frmBrainLobe.h"
#include "editors/frmSVRule.h"

#include <QScrollBar>

namespace {
using Rule = std::array<quint8, 12>;
}

class TestBrainLobe : public QObject
{
    Q_OBJECT
    EditorTestKit kit;

    clsBrainLobe *AddLobe() { return static_cast<clsBrainLobe *>(kit.Add(0, 0)); }
    static QScrollBar *Bar(QWidget *e, const char *name) { return Child<QScrollBar>(e, QLatin1String(name)); }
    // Picks the tokens from the start of the rule in the rule dialog the button opens, then
    // leaves it with Ok or Cancel.
    static void EditRule(QWidget *e, const char *button, QList<int> tokens, bool ok)
    {
        bool seen;
        WhenModal<frmSVRule>(&seen, [tokens, ok](frmSVRule *d) {
            for (int i = 0; i < tokens.size(); ++i)
                d->lstSR[i]->setCurrentIndex(tokens[i]);
            (ok ? d->SVOKCommand : d->SCCancelCommand)->click();
        });
        Child<QPushButton>(e, QLatin1String(button))->click();
        QVERIFY(seen);
    }

private slots:
    void init() { kit.Init(); }
    void cleanup() { kit.Cleanup(); }

    void rankNamesTheLobe()
    {
        QList<clsBrainLobe *> lobes;
        for (int i = 0; i < 9; ++i) {
            lobes << AddLobe();
            kit.Add(2, 3); // other kinds between do not count
        }
        const std::pair<int, const char *> ranks[] = {
            {0, "Perceptible i/ps (ENOUGH NEUS FOR ALL PERCEPTIBLE LOBES)"},
            {5, "General Sensory i/ps (32)"},
            {8, "Interneurone lobe."}};
        for (auto [rank, info] : ranks) {
            auto *e = kit.Open<frmBrainLobe>(lobes[rank]);
            QCOMPARE(Child<QLineEdit>(e, "txtLobeNumber")->text(), QStringLiteral("Lobe #%1").arg(rank));
            QVERIFY(!e->txtLobeNumber->isEnabled());
            QCOMPARE(Child<QLabel>(e, "lblInfo")->text(), QLatin1String(info));
        }
        // Sixteen source lobes: the eight names, then "Lobe 8" to "Lobe 15".
        auto *source = Child<QComboBox>(kit.Open(lobes[8]), "lstSource_1");
        QCOMPARE(source->count(), 16);
        QCOMPARE(source->itemText(7) + "|" + source->itemText(8) + "|" + source->itemText(15),
                 QStringLiteral("Attention/Seek o/ps|Lobe 8|Lobe 15"));
    }

    void fieldsGoThroughTheEditor()
    {
        // Every field in file order (rules aside), and a value for each.
        auto fields = [](clsBrainLobe &g) {
            QList<quint8 *> f = {&g.x, &g.y, &g.Width, &g.Height, &g.Perceptible, &g.Threshold, &g.Leakage,
                                 &g.RestState, &g.Attenuation, &g.Flags};
            for (int i = 0; i < 2; ++i)
                f << &g.Source[i] << &g.min[i] << &g.max[i] << &g.Spread[i] << &g.FanWidth[i] << &g.InitialLTWMin[i]
                  << &g.InitialLTWMax[i] << &g.InitialStrengthMin[i] << &g.InitialStrengthMax[i] << &g.Migration[i]
                  << &g.RelaxSus[i] << &g.RelaxSTW[i] << &g.LTWRate[i] << &g.GainStrength[i] << &g.LoseStrength[i];
            return f;
        };
        QList<int> values = {3, 4, 5, 6, 2, 10, 24, 11, 12, 0xF5, // Flags: bits above 8 have no box
                             17, 20, 30, 3, 7, 40, 50, 60, 70, 1, 80, 96, 100, 110, 120,
                             2, 21, 31, 5, 6, 41, 51, 61, 71, 2, 88, 104, 101, 111, 121};
        clsBrainLobe *g = AddLobe();
        for (int k = 0; k < values.size(); ++k)
            *fields(*g)[k] = quint8(values[k]);
        auto *e = kit.Open<frmBrainLobe>(g);
        QCOMPARE(e->lblNum->text(), QStringLiteral(" 30 neurone(s)"));
        QVERIFY(Child<QRadioButton>(e, "optPerceptible_2")->isChecked());
        QVERIFY(Child<QCheckBox>(e, "chkFlags_2")->isChecked() && !Child<QCheckBox>(e, "chkFlags_1")->isChecked());
        QCOMPARE(Child<QComboBox>(e, "lstSource_0")->currentIndex(), 1);
        QVERIFY(Child<QRadioButton>(e, "optMig2_1")->isChecked());
        QCOMPARE(Bar(e, "scrRelaxSTW_1")->value(), 13);
        e->btnOk->click();
        values[9] = 5;  // the four flags with boxes
        values[10] = 1; // Source 17 shows and stores item 1
        values[28] = 1; // Spread 5 of dendrite 1: item 1
        QList<int> got;
        for (quint8 *f : fields(*g))
            got << *f;
        QCOMPARE(got, values);
    }

    // Time sliders show a byte in eighths, rounded half to even, and store position * 8.
    void timeSlidersRoundToEighths()
    {
        const std::array<int, 3> cases[] = {{20, 2, 16}, {28, 4, 32}, {253, 31, 248}}; // stored, shown, back
        for (auto [stored, position, back] : cases) {
            clsBrainLobe *g = AddLobe();
            g->Leakage = g->RelaxSus[1] = g->RelaxSTW[0] = quint8(stored);
            auto *e = kit.Open<frmBrainLobe>(g);
            QCOMPARE(Bar(e, "scrLeakage")->value(), position);
            QCOMPARE(Bar(e, "scrRelaxSus_1")->value(), position);
            e->btnOk->click();
            QCOMPARE(QList<int>({g->Leakage, g->RelaxSus[1], g->RelaxSTW[0]}), QList<int>(3, back));
        }
    }

    void rateBoxes()
    {
        clsBrainLobe *g = AddLobe();
        g->LTWRate[0] = 0, g->GainStrength[1] = 0, g->LoseStrength[1] = 9;
        auto *e = kit.Open<frmBrainLobe>(g);
        QCheckBox *boxes[] = {Child<QCheckBox>(e, "chkLTWRate_0"), Child<QCheckBox>(e, "chkGainStrength_1"),
                              Child<QCheckBox>(e, "chkLoseStrength_1")};
        auto enabled = [e] { // 1 for each control enabled
            QString on;
            for (const char *name : {"scrLTWRate_0", "scrGainStrength_1", "btnGainStrengthRule_1", "lblGainStrengthRule_1",
                                     "scrLoseStrength_1", "btnLoseStrengthRule_1", "lblLoseStrengthRule_1"})
                on += Child<QWidget>(e, name)->isEnabled() ? '1' : '0';
            return on;
        };
        // A rate of 0: box unchecked, slider parked at 1, slider (and rule button and label) disabled.
        QVERIFY(!boxes[0]->isChecked() && !boxes[1]->isChecked() && boxes[2]->isChecked());
        QCOMPARE(Bar(e, "scrLTWRate_0")->value(), 1);
        QCOMPARE(enabled(), QStringLiteral("0000111"));
        // Checking without moving gives 1; a slider keeps its place when unchecked.
        boxes[0]->setChecked(true), boxes[1]->setChecked(true), boxes[2]->setChecked(false);
        QCOMPARE(enabled(), QStringLiteral("1111000"));
        QCOMPARE(Bar(e, "scrLoseStrength_1")->value(), 9);
        e->btnOk->click();
        QCOMPARE(QList<int>({g->LTWRate[0], g->GainStrength[1], g->LoseStrength[1]}), QList<int>({1, 1, 0}));
    }

    // Each attachment slider drags its partner of the same dendrite type; the count and
    // number boxes are tidied as typed but not linked.
    void linkedSlidersAndNumberBoxes()
    {
        clsBrainLobe *g = AddLobe();
        for (int i = 0; i < 2; ++i) {
            g->InitialStrengthMin[i] = 50, g->InitialStrengthMax[i] = 100;
            g->InitialLTWMin[i] = 20, g->InitialLTWMax[i] = 30;
        }
        auto *e = kit.Open<frmBrainLobe>(g);
        Bar(e, "scrInitialStrengthMin_1")->setValue(200);
        QCOMPARE(Bar(e, "scrInitialStrengthMax_1")->value(), 200);
        QCOMPARE(kit.session->StatusPanel[2], QStringLiteral("Slider: 200"));
        QCOMPARE(Bar(e, "scrInitialStrengthMax_0")->value(), 100); // the other dendrite type stays
        Bar(e, "scrInitialLTWMax_0")->setValue(5);
        QCOMPARE(Bar(e, "scrInitialLTWMin_0")->value(), 5);
        Bar(e, "scrInitialLTWMin_0")->setValue(3); // within the range: the partner stays

        const std::pair<const char *, const char *> tidied[] = {{"300", "255"}, {"-7", "7"}, {"", "0"}};
        for (auto [typed, shown] : tidied) {
            e->txtX->setText(QLatin1String(typed));
            QCOMPARE(e->txtX->text(), QLatin1String(shown));
        }
        e->txtWidth->setText(QStringLiteral("4"));
        e->txtHeight->setText(QStringLiteral("3"));
        QCOMPARE(e->lblNum->text(), QStringLiteral(" 12 neurone(s)"));
        e->txtHeight->setText(QStringLiteral("999"));
        QCOMPARE(e->lblNum->text(), QStringLiteral(" 1020 neurone(s)"));
        e->txtWidth->setText(QStringLiteral("200")); // beyond what a load allows: kept
        e->txtY->setText(QStringLiteral("12.5"));
        e->txtMin[0]->setText(QStringLiteral("90")); // a minimum above the maximum stays
        e->txtMax[0]->setText(QStringLiteral("10"));
        e->btnOk->click();
        QCOMPARE(QList<int>({g->min[0], g->max[0], g->InitialStrengthMin[1], g->InitialStrengthMax[1],
                             g->InitialStrengthMax[0], g->InitialLTWMin[0], g->InitialLTWMax[0], g->Width, g->Height, g->y}),
                 QList<int>({90, 10, 200, 200, 100, 3, 5, 200, 255, 12}));
    }

    void ruleButtonsWriteAtOnce()
    {
        clsBrainLobe *g = AddLobe();
        g->Threshold = 7;
        g->GainStrength[1] = 5; // a rate of 0 would disable the gain rule's button
        g->StateRule = Rule{10, 0, 7};
        g->BPRule2 = Rule{200, 41};
        auto *e = kit.Open<frmBrainLobe>(g);
        QCOMPARE(e->lblStateRule->text(), QStringLiteral("output:"));
        QCOMPARE(e->lblBPRule[1]->text(), QStringLiteral("E!(200): <ERROR>:"));
        QCOMPARE(e->lblGainStrengthRule[1]->text(), QStringLiteral("<undefined>"));

        EditRule(e, "btnGainStrengthRule_1", {5, 31, 2}, true);
        QCOMPARE(g->GainStrengthRule2, StateRule(Rule{5, 31, 2}));
        QVERIFY(!g->GainStrengthRule1);
        QCOMPARE(e->lblGainStrengthRule[1]->text(), QStringLiteral("chem 0:PLUS:1:"));
        // A cancelled rule dialog on an absent rule leaves twelve zeros.
        EditRule(e, "btnFPFule_0", {4}, false);
        QCOMPARE(g->FPRule1, StateRule(Rule{}));
        QCOMPARE(e->lblFPRule[0]->text(), QStringLiteral("<undefined>"));

        // Cancelling the editor drops the slider but keeps the rules; nor are they read back.
        e->scrThreshold->setValue(99);
        e->btnCancel->click();
        QCOMPARE(int(g->Threshold), 7);
        QCOMPARE(g->GainStrengthRule2, StateRule(Rule{5, 31, 2}));
        kit.Open(g)->btnOk->click();
        QCOMPARE(g->StateRule, StateRule(Rule{10, 0, 7}));
        QCOMPARE(g->BPRule2, StateRule(Rule{200, 41}));
    }
};

QTEST_MAIN(TestBrainLobe)
#include "test_brainlobe.moc"
