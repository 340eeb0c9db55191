// The brain lobe editor: rank and info text, what its tabs and frames read, filling and
// reading back every field with the time sliders' rounding, the options, the rate boxes, the
// linked attachment sliders, number boxes and the rule buttons that write into the gene at once.
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
    // The rows of the frame of that title on a page, as the user reads them: each cell a
    // caption's text or a control's name, "|" between cells, "/" between rows.
    static QString Rows(QWidget *page, const QString &title)
    {
        for (auto *frame : page->findChildren<QGroupBox *>()) {
            auto *grid = qobject_cast<QGridLayout *>(frame->layout());
            if (frame->title() != title || !grid)
                continue;
            QStringList rows;
            for (int r = 0; r < grid->rowCount(); ++r) {
                QStringList cells;
                for (int c = 0; c < grid->columnCount(); ++c) {
                    QWidget *w = grid->itemAtPosition(r, c) ? grid->itemAtPosition(r, c)->widget() : nullptr;
                    auto *caption = qobject_cast<QLabel *>(w);
                    cells << (caption && caption->objectName().isEmpty() ? caption->text() : w ? w->objectName() : QString());
                }
                rows << cells.join('|');
            }
            return rows.join('/');
        }
        return QStringLiteral("no frame ") + title;
    }

private slots:
    void init() { kit.Init(); }
    void cleanup() { kit.Cleanup(); }

    void rankNamesTheLobe()
    {
        QList<clsBrainLobe *> lobes;
        for (int i = 0; i < 9; ++i)
            lobes << AddLobe(), kit.Add(2, 3); // other kinds between do not count
        const std::pair<int, const char *> ranks[] = {
            {0, "Perceptible i/ps (ENOUGH NEUS FOR ALL PERCEPTIBLE LOBES)"}, {8, "Interneurone lobe."}};
        for (auto [rank, info] : ranks) {
            auto *e = kit.Open<frmBrainLobe>(lobes[rank]);
            QCOMPARE(Child<QLineEdit>(e, "txtLobeNumber")->text(), QStringLiteral("Lobe #%1").arg(rank));
            QCOMPARE(Child<QLabel>(e, "lblInfo")->text(), QLatin1String(info));
        }
        // Sixteen source lobes: the eight names, then "Lobe 8" to "Lobe 15".
        auto *source = Child<QComboBox>(kit.Open(lobes[8]), "lstSource_1");
        QCOMPARE(QString::number(source->count()) + source->itemText(7) + "|" + source->itemText(8) + "|" + source->itemText(15),
                 QStringLiteral("16Attention/Seek o/ps|Lobe 8|Lobe 15"));
    }

    // The tabs in order, each rule button on its inner tab, and the captions beside the controls.
    void whatTheTabsRead()
    {
        auto *e = kit.Open<frmBrainLobe>(AddLobe());
        QStringList tabs;
        for (QTabWidget *set : {e->SSTab1, e->SSTab2, e->SSTab3})
            for (int t = 0; t < set->count(); ++t)
                tabs << set->tabText(t) + (set->currentIndex() == t ? "*" : "");
        QCOMPARE(tabs, QStringList({"General*", "Cell Body", "D0 growth", "D0 Dynamics", "D1 growth", "D1 dynamics",
                                    "Sus/Rein*", "BP/FP", "Sus/Rein*", "BP/FP"}));
        QVERIFY(e->SSTab3->widget(1)->isAncestorOf(e->btnBPRule[1]) && e->SSTab3->widget(1)->isAncestorOf(e->btnFPFule[1]));
        QVERIFY(e->SSTab2->widget(0)->isAncestorOf(e->btnSusRule[0]) && e->SSTab2->widget(0)->isAncestorOf(e->lblReinforceRule[0]));
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
    // with boxes stay; a source or spread beyond its list shows and stores item 1. That every
    // other field comes back as it was is the test over every editor.
    void fieldsGoThroughTheEditor()
    {
        clsBrainLobe *g = AddLobe();
        g->Width = 5, g->Height = 6, g->Leakage = 20, g->Flags = 0xF5, g->Source[0] = 17, g->Spread[1] = 5;
        g->RelaxSus[0] = 28, g->RelaxSTW[0] = 253, g->RelaxSus[1] = 88, g->RelaxSTW[1] = 104;
        auto *e = kit.Open<frmBrainLobe>(g);
        QCOMPARE(e->lblNum->text(), QStringLiteral(" 30 neurone(s)"));
        QCOMPARE(Bar(e, "scrLeakage")->value(), 2);
        QVERIFY(Child<QCheckBox>(e, "chkFlags_2")->isChecked() && !Child<QCheckBox>(e, "chkFlags_1")->isChecked());
        QCOMPARE(Child<QComboBox>(e, "lstSource_0")->currentIndex(), 1);
        e->btnOk->click();
        QCOMPARE(QList<int>({g->Leakage, g->Flags, g->Source[0], g->Spread[1], g->RelaxSus[0], g->RelaxSTW[0],
                             g->RelaxSus[1], g->RelaxSTW[1]}),
                 QList<int>({16, 5, 1, 1, 32, 248, 88, 104}));
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

    void rateBoxes()
    {
        clsBrainLobe *g = AddLobe();
        g->GainStrength[1] = 0, g->LoseStrength[1] = 9;
        auto *e = kit.Open<frmBrainLobe>(g);
        QCheckBox *gain = Child<QCheckBox>(e, "chkGainStrength_1"), *lose = Child<QCheckBox>(e, "chkLoseStrength_1");
        auto enabled = [e] { // 1 for each control enabled
            QString on;
            for (const char *name : {"scrGainStrength_1", "btnGainStrengthRule_1", "lblGainStrengthRule_1",
                                     "scrLoseStrength_1", "btnLoseStrengthRule_1", "lblLoseStrengthRule_1"})
                on += Child<QWidget>(e, name)->isEnabled() ? '1' : '0';
            return on;
        };
        // A rate of 0: box unchecked, slider parked at 1, slider, rule button and label disabled.
        QVERIFY(!gain->isChecked() && lose->isChecked());
        QCOMPARE(Bar(e, "scrGainStrength_1")->value(), 1);
        QCOMPARE(enabled(), QStringLiteral("000111"));
        // Checking without moving gives 1; a slider keeps its place when unchecked.
        gain->setChecked(true), lose->setChecked(false);
        QCOMPARE(enabled(), QStringLiteral("111000"));
        e->btnOk->click();
        QCOMPARE(QList<int>({g->GainStrength[1], g->LoseStrength[1]}), QList<int>({1, 0}));
    }

    // Each attachment slider drags its partner of the same dendrite type; the count and
    // number boxes are tidied as typed but not linked.
    void linkedSlidersAndNumberBoxes()
    {
        clsBrainLobe *g = AddLobe();
        g->InitialStrengthMax[1] = 100, g->InitialLTWMin[0] = 20, g->InitialLTWMax[0] = 30;
        auto *e = kit.Open<frmBrainLobe>(g);
        Bar(e, "scrInitialStrengthMin_1")->setValue(200); // the maximum follows: stored below
        QCOMPARE(kit.session->StatusPanel[2], QStringLiteral("Slider: 200"));
        QCOMPARE(Bar(e, "scrInitialStrengthMax_0")->value(), 0); // the other dendrite type stays
        Bar(e, "scrInitialLTWMax_0")->setValue(5);
        QCOMPARE(Bar(e, "scrInitialLTWMin_0")->value(), 5);
        Bar(e, "scrInitialLTWMin_0")->setValue(3); // within the range: the partner stays

        e->txtX->setText(QStringLiteral("-7")); // the sign dropped
        e->txtWidth->setText(QStringLiteral("4"));
        e->txtHeight->setText(QStringLiteral("999"));
        QCOMPARE(e->lblNum->text(), QStringLiteral(" 1020 neurone(s)"));
        e->txtWidth->setText(QStringLiteral("200")); // beyond what a load allows: kept
        e->txtY->setText(QStringLiteral("12.5"));
        e->txtMin[0]->setText(QStringLiteral("90")); // a minimum above the maximum stays
        e->txtMax[0]->setText(QStringLiteral("10"));
        e->btnOk->click();
        QCOMPARE(QList<int>({g->min[0], g->max[0], g->InitialStrengthMin[1], g->InitialStrengthMax[1],
                             g->InitialStrengthMax[0], g->InitialLTWMin[0], g->InitialLTWMax[0], g->Width, g->Height, g->y, g->x}),
                 QList<int>({90, 10, 200, 200, 0, 3, 5, 200, 255, 12, 7}));
    }

    void ruleButtonsWriteAtOnce()
    {
        clsBrainLobe *g = AddLobe();
        g->GainStrength[1] = 5; // a rate of 0 would disable the gain rule's button
        g->StateRule = Rule{5, 31, 2, 0, 9}, g->BPRule2 = Rule{200, 41};
        auto *e = kit.Open<frmBrainLobe>(g);
        QCOMPARE(e->lblStateRule->text() + '|' + e->lblBPRule[1]->text() + '|' + e->lblGainStrengthRule[1]->text(),
                 QStringLiteral("chem 0:PLUS:1:|E!(200): <ERROR>:|<undefined>"));

        EditRule(e, "btnGainStrengthRule_1", {5, 31, 2}, true);
        QCOMPARE(g->GainStrengthRule2, StateRule(Rule{5, 31, 2}));
        QVERIFY(!g->GainStrengthRule1);
        QCOMPARE(e->lblGainStrengthRule[1]->text(), QStringLiteral("chem 0:PLUS:1:"));
        // A cancelled rule dialog on an absent rule leaves twelve zeros.
        EditRule(e, "btnFPFule_0", {4}, false);
        QCOMPARE(g->FPRule1, StateRule(Rule{}));

        // Cancelling the editor keeps the rules; nor does an Ok read them back.
        e->btnCancel->click();
        kit.Open(g)->btnOk->click();
        QCOMPARE(QList<StateRule>({g->GainStrengthRule2, g->StateRule, g->BPRule2}),
                 QList<StateRule>({Rule{5, 31, 2}, Rule{5, 31, 2, 0, 9}, Rule{200, 41}}));
    }
};

QTEST_MAIN(TestBrainLobe)
#include "test_brainlobe.moc"
