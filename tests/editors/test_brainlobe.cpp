// The brain lobe editor: rank and notes, filling and reading back every field, the time
// sliders' rounding, the rate boxes, the linked attachment sliders, number boxes and the
// rule buttons that write into the gene at once.
#include "core/Gene.h"
#include "core/Session.h"
#include "core/genes/BrainLobe.h"
#include "editors/EditorRegistry.h"
#include "editors/frmBrainLobe.h"
#include "editors/frmSVRule.h"
#include "support/ScriptedPrompt.h"
#include "support/TestEnv.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QTabWidget>
#include <QtTest>

namespace {
using Rule = std::array<quint8, 12>;

template <typename T> T *Child(QWidget *w, const QString &name)
{
    T *c = w->findChild<T *>(name);
    if (!c)
        qWarning("no control %s", qPrintable(name));
    return c;
}

// Answers the next rule dialog: picks the given tokens from the start of the rule, then
// presses Ok (or Cancel).
void AnswerRuleDialog(QList<int> tokens, bool ok, bool *seen)
{
    QTimer::singleShot(0, [tokens, ok, seen] {
        auto *d = qobject_cast<frmSVRule *>(QApplication::activeModalWidget());
        if (!d)
            return;
        for (int i = 0; i < tokens.size(); ++i)
            d->lstSR[i]->setCurrentIndex(tokens[i]);
        (ok ? d->SVOKCommand : d->SCCancelCommand)->click();
        *seen = true;
    });
}
} // namespace

class TestBrainLobe : public QObject
{
    Q_OBJECT

    std::unique_ptr<SettingsSandbox> sandbox;
    ScriptedPrompt prompt;
    std::unique_ptr<Session> session;
    std::unique_ptr<QWidget> mainWindow;

    clsBrainLobe *AddLobe()
    {
        if (!session->CreateGene(0, 0, false))
            return nullptr;
        return static_cast<clsBrainLobe *>(session->GeneAt(session->GeneCount - 1));
    }
    static frmBrainLobe *Open(Gene *g)
    {
        g->OpenView();
        return dynamic_cast<frmBrainLobe *>(g->View);
    }

private slots:
    void init()
    {
        sandbox.reset(new SettingsSandbox);
        prompt.Clear();
        session.reset(new Session(prompt));
        session->AppDirectory = sandbox->path();
        session->Tables.Build();
        mainWindow.reset(new QWidget);
        RegisterEditors(*session, mainWindow.get());
    }

    void cleanup()
    {
        session->CloseAllViews();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        session.reset();
        mainWindow.reset();
        QVERIFY(prompt.AllAnswered());
    }

    void rankNamesTheLobe()
    {
        QList<clsBrainLobe *> lobes;
        for (int i = 0; i < 9; ++i) {
            lobes << AddLobe();
            QVERIFY(session->CreateGene(2, 3, false)); // other kinds between do not count
        }
        frmBrainLobe *first = Open(lobes[0]);
        QCOMPARE(first->LobeRank(), 0);
        QCOMPARE(Child<QLineEdit>(first, "txtLobeNumber")->text(), QStringLiteral("Lobe #0"));
        QCOMPARE(Child<QLabel>(first, "lblInfo")->text(),
                 QStringLiteral("Perceptible i/ps (ENOUGH NEUS FOR ALL PERCEPTIBLE LOBES)"));
        QVERIFY(!Child<QLineEdit>(first, "txtLobeNumber")->isEnabled());

        frmBrainLobe *sixth = Open(lobes[5]);
        QCOMPARE(Child<QLineEdit>(sixth, "txtLobeNumber")->text(), QStringLiteral("Lobe #5"));
        QCOMPARE(Child<QLabel>(sixth, "lblInfo")->text(), QStringLiteral("General Sensory i/ps (32)"));

        frmBrainLobe *ninth = Open(lobes[8]);
        QCOMPARE(Child<QLineEdit>(ninth, "txtLobeNumber")->text(), QStringLiteral("Lobe #8"));
        QCOMPARE(Child<QLabel>(ninth, "lblInfo")->text(), QStringLiteral("Interneurone lobe."));

        // Sixteen source lobes: the eight names, then "Lobe 8" to "Lobe 15".
        auto *source = Child<QComboBox>(ninth, "lstSource_1");
        QCOMPARE(source->count(), 16);
        QCOMPARE(source->itemText(7), QStringLiteral("Attention/Seek o/ps"));
        QCOMPARE(source->itemText(8), QStringLiteral("Lobe 8"));
        QCOMPARE(source->itemText(15), QStringLiteral("Lobe 15"));
    }

    void fieldsGoThroughTheEditor()
    {
        // Every field in file order (rules aside).
        auto fields = [](const clsBrainLobe &g) {
            QList<int> f = {g.x, g.y, g.Width, g.Height, g.Perceptible, g.Threshold, g.Leakage, g.RestState,
                            g.Attenuation, g.Flags};
            for (int i = 0; i < 2; ++i)
                f << g.Source[i] << g.min[i] << g.max[i] << g.Spread[i] << g.FanWidth[i] << g.InitialLTWMin[i]
                  << g.InitialLTWMax[i] << g.InitialStrengthMin[i] << g.InitialStrengthMax[i] << g.Migration[i]
                  << g.RelaxSus[i] << g.RelaxSTW[i] << g.LTWRate[i] << g.GainStrength[i] << g.LoseStrength[i];
            return f;
        };
        clsBrainLobe *g = AddLobe();
        g->x = 3, g->y = 4, g->Width = 5, g->Height = 6, g->Perceptible = 2;
        g->Threshold = 10, g->Leakage = 24, g->RestState = 11, g->Attenuation = 12;
        g->Flags = 0xF5; // bits above 8 have no box and are lost
        for (int i = 0; i < 2; ++i) {
            g->Source[i] = quint8(17 - 15 * i), g->Spread[i] = quint8(3 + 2 * i), g->Migration[i] = quint8(1 + i);
            g->min[i] = quint8(20 + i), g->max[i] = quint8(30 + i), g->FanWidth[i] = quint8(7 - i);
            g->InitialLTWMin[i] = quint8(40 + i), g->InitialLTWMax[i] = quint8(50 + i);
            g->InitialStrengthMin[i] = quint8(60 + i), g->InitialStrengthMax[i] = quint8(70 + i);
            g->RelaxSus[i] = quint8(80 + 8 * i), g->RelaxSTW[i] = quint8(96 + 8 * i);
            g->LTWRate[i] = quint8(100 + i), g->GainStrength[i] = quint8(110 + i), g->LoseStrength[i] = quint8(120 + i);
        }
        QList<int> want = fields(*g);
        want[9] = 5;       // Flags
        want[10] = 1;      // Source 17 shows and stores item 1
        want[10 + 15 + 3] = 1; // Spread 5 of dendrite 1: item 1

        frmBrainLobe *e = Open(g);
        QCOMPARE(e->lblNum->text(), QStringLiteral(" 30 neurone(s)"));
        QVERIFY(Child<QRadioButton>(e, "optPerceptible_2")->isChecked());
        QCOMPARE(Child<QScrollBar>(e, "scrLeakage")->value(), 3);
        QVERIFY(Child<QCheckBox>(e, "chkFlags_2")->isChecked() && !Child<QCheckBox>(e, "chkFlags_1")->isChecked());
        QCOMPARE(Child<QComboBox>(e, "lstSource_0")->currentIndex(), 1);
        QVERIFY(Child<QRadioButton>(e, "optMig2_1")->isChecked());
        QCOMPARE(Child<QScrollBar>(e, "scrRelaxSTW_1")->value(), 13);
        e->btnOk->click();
        QCOMPARE(fields(*g), want);
    }

    void timeSlidersRoundToEighths_data()
    {
        QTest::addColumn<int>("stored");
        QTest::addColumn<int>("position");
        QTest::addColumn<int>("back");
        QTest::newRow("20") << 20 << 2 << 16;
        QTest::newRow("28") << 28 << 4 << 32;
        QTest::newRow("4") << 4 << 0 << 0;
        QTest::newRow("248") << 248 << 31 << 248;
        QTest::newRow("253 stays on the slider") << 253 << 31 << 248;
    }

    void timeSlidersRoundToEighths()
    {
        QFETCH(int, stored);
        QFETCH(int, position);
        QFETCH(int, back);
        clsBrainLobe *g = AddLobe();
        g->Leakage = quint8(stored);
        g->RelaxSus[1] = quint8(stored);
        g->RelaxSTW[0] = quint8(stored);
        frmBrainLobe *e = Open(g);
        QCOMPARE(Child<QScrollBar>(e, "scrLeakage")->value(), position);
        QCOMPARE(Child<QScrollBar>(e, "scrRelaxSus_1")->value(), position);
        e->btnOk->click();
        QCOMPARE(int(g->Leakage), back);
        QCOMPARE(int(g->RelaxSus[1]), back);
        QCOMPARE(int(g->RelaxSTW[0]), back);
    }

    void rateBoxes()
    {
        clsBrainLobe *g = AddLobe();
        g->LTWRate[0] = 0;
        g->GainStrength[1] = 0;
        g->LoseStrength[1] = 9;
        g->GainStrengthRule2 = Rule{5, 31, 2};
        frmBrainLobe *e = Open(g);

        // A rate of 0: box unchecked, slider parked at 1 and disabled.
        auto *ltw = Child<QScrollBar>(e, "scrLTWRate_0");
        QVERIFY(!Child<QCheckBox>(e, "chkLTWRate_0")->isChecked());
        QCOMPARE(ltw->value(), 1);
        QVERIFY(!ltw->isEnabled());
        QCOMPARE(ltw->minimum(), 1);
        QVERIFY(ltw->invertedAppearance()); // 255 at the left

        // For gain and lose the button and label follow the box too.
        QVERIFY(!Child<QScrollBar>(e, "scrGainStrength_1")->isEnabled());
        QVERIFY(!Child<QPushButton>(e, "btnGainStrengthRule_1")->isEnabled());
        QVERIFY(!Child<QLabel>(e, "lblGainStrengthRule_1")->isEnabled());
        QVERIFY(Child<QCheckBox>(e, "chkLoseStrength_1")->isChecked());
        QVERIFY(Child<QPushButton>(e, "btnLoseStrengthRule_1")->isEnabled());
        QCOMPARE(Child<QScrollBar>(e, "scrLoseStrength_1")->value(), 9);

        // Checking without moving gives 1; the slider keeps its place when unchecked.
        Child<QCheckBox>(e, "chkLTWRate_0")->setChecked(true);
        QVERIFY(ltw->isEnabled());
        Child<QCheckBox>(e, "chkGainStrength_1")->setChecked(true);
        QVERIFY(Child<QPushButton>(e, "btnGainStrengthRule_1")->isEnabled());
        QVERIFY(Child<QLabel>(e, "lblGainStrengthRule_1")->isEnabled());
        Child<QCheckBox>(e, "chkLoseStrength_1")->setChecked(false);
        QVERIFY(!Child<QLabel>(e, "lblLoseStrengthRule_1")->isEnabled());
        QCOMPARE(Child<QScrollBar>(e, "scrLoseStrength_1")->value(), 9);

        e->btnOk->click();
        QCOMPARE(int(g->LTWRate[0]), 1);
        QCOMPARE(int(g->GainStrength[1]), 1);
        QCOMPARE(int(g->LoseStrength[1]), 0);
        QCOMPARE(g->GainStrengthRule2, StateRule(Rule{5, 31, 2})); // rules are not read back
    }

    void attachmentSlidersDragEachOther()
    {
        clsBrainLobe *g = AddLobe();
        for (int i = 0; i < 2; ++i) {
            g->InitialStrengthMin[i] = 50, g->InitialStrengthMax[i] = 100;
            g->InitialLTWMin[i] = 20, g->InitialLTWMax[i] = 30;
        }
        frmBrainLobe *e = Open(g);
        auto *min1 = Child<QScrollBar>(e, "scrInitialStrengthMin_1");
        auto *max1 = Child<QScrollBar>(e, "scrInitialStrengthMax_1");
        min1->setValue(200);
        QCOMPARE(max1->value(), 200);
        QCOMPARE(session->StatusPanel[2], QStringLiteral("Slider: 200"));
        // The other dendrite type does not move.
        QCOMPARE(Child<QScrollBar>(e, "scrInitialStrengthMax_0")->value(), 100);
        QCOMPARE(Child<QScrollBar>(e, "scrInitialStrengthMin_0")->value(), 50);

        auto *ltwMin0 = Child<QScrollBar>(e, "scrInitialLTWMin_0");
        Child<QScrollBar>(e, "scrInitialLTWMax_0")->setValue(5);
        QCOMPARE(ltwMin0->value(), 5);
        QCOMPARE(session->StatusPanel[2], QStringLiteral("Slider: 5"));
        QCOMPARE(Child<QScrollBar>(e, "scrInitialLTWMin_1")->value(), 20);
        ltwMin0->setValue(3); // within the range: the partner stays

        // The dendrite count boxes are not linked: a minimum above the maximum stays.
        e->txtMin[0]->setText(QStringLiteral("90"));
        e->txtMax[0]->setText(QStringLiteral("10"));
        e->btnOk->click();
        QCOMPARE(int(g->min[0]), 90);
        QCOMPARE(int(g->max[0]), 10);
        QCOMPARE(int(g->InitialStrengthMin[1]), 200);
        QCOMPARE(int(g->InitialStrengthMax[1]), 200);
        QCOMPARE(int(g->InitialLTWMin[0]), 3);
        QCOMPARE(int(g->InitialLTWMax[0]), 5);
    }

    void numberBoxesAreTidiedAsTyped()
    {
        clsBrainLobe *g = AddLobe();
        frmBrainLobe *e = Open(g);
        QLineEdit *x = e->txtX;
        x->selectAll();
        QTest::keyClicks(x, QStringLiteral("300"));
        QCOMPARE(x->text(), QStringLiteral("255"));
        x->selectAll();
        QTest::keyClicks(x, QStringLiteral("-7"));
        QCOMPARE(x->text(), QStringLiteral("7"));
        x->selectAll();
        QTest::keyClick(x, Qt::Key_Backspace);
        QCOMPARE(x->text(), QStringLiteral("0"));

        e->txtWidth->setText(QStringLiteral("4"));
        e->txtHeight->selectAll();
        QTest::keyClicks(e->txtHeight, QStringLiteral("3"));
        QCOMPARE(e->lblNum->text(), QStringLiteral(" 12 neurone(s)"));
        e->txtHeight->setText(QStringLiteral("999"));
        QCOMPARE(e->txtHeight->text(), QStringLiteral("255"));
        QCOMPARE(e->lblNum->text(), QStringLiteral(" 1020 neurone(s)"));
        e->txtWidth->selectAll();
        QTest::keyClick(e->txtWidth, Qt::Key_Delete);
        QCOMPARE(e->txtWidth->text(), QStringLiteral("0"));
        QCOMPARE(e->lblNum->text(), QStringLiteral(" 0 neurone(s)"));

        // Beyond what a load allows is kept and written.
        e->txtWidth->setText(QStringLiteral("200"));
        e->txtY->setText(QStringLiteral("12.5"));
        e->btnOk->click();
        QCOMPARE(int(g->Width), 200);
        QCOMPARE(int(g->Height), 255);
        QCOMPARE(int(g->y), 12);
    }

    void ruleButtonsWriteAtOnce()
    {
        clsBrainLobe *g = AddLobe();
        g->Threshold = 7;
        g->GainStrength[1] = 5; // a rate of 0 would disable the gain rule's button
        frmBrainLobe *e = Open(g);
        QCOMPARE(e->lblGainStrengthRule[1]->text(), QStringLiteral("<undefined>"));
        QCOMPARE(e->lblFPRule[0]->text(), QStringLiteral("<undefined>"));
        QCOMPARE(e->lblStateRule->text(), QStringLiteral("<undefined>"));

        bool seen = false;
        AnswerRuleDialog({5, 31, 2}, true, &seen);
        Child<QPushButton>(e, "btnGainStrengthRule_1")->click();
        QVERIFY(seen);
        QCOMPARE(g->GainStrengthRule2, StateRule(Rule{5, 31, 2}));
        QVERIFY(!g->GainStrengthRule1);
        QCOMPARE(e->lblGainStrengthRule[1]->text(), QStringLiteral("chem 0:PLUS:1:"));

        seen = false;
        AnswerRuleDialog({9, 33}, true, &seen);
        Child<QPushButton>(e, "btnFPFule_0")->click();
        QVERIFY(seen);
        QCOMPARE(g->FPRule1, StateRule(Rule{9, 33}));
        QCOMPARE(e->lblFPRule[0]->text(), QStringLiteral("state:TIMES:"));

        // A cancelled rule dialog on an absent rule leaves twelve zeros.
        seen = false;
        AnswerRuleDialog({4}, false, &seen);
        Child<QPushButton>(e, "btnStateRule")->click();
        QVERIFY(seen);
        QCOMPARE(g->StateRule, StateRule(Rule{}));
        QCOMPARE(e->lblStateRule->text(), QStringLiteral("<undefined>"));

        // Cancelling the editor drops the slider but keeps the rules.
        e->scrThreshold->setValue(99);
        e->btnCancel->click();
        QCOMPARE(int(g->Threshold), 7);
        QCOMPARE(g->GainStrengthRule2, StateRule(Rule{5, 31, 2}));
        QCOMPARE(g->FPRule1, StateRule(Rule{9, 33}));
    }

    void rulesShowWhenOpened()
    {
        clsBrainLobe *g = AddLobe();
        g->StateRule = Rule{10, 0, 7};
        g->BPRule2 = Rule{200, 41};
        frmBrainLobe *e = Open(g);
        QCOMPARE(e->lblStateRule->text(), QStringLiteral("output:"));
        QCOMPARE(e->lblBPRule[1]->text(), QStringLiteral("E!(200): <ERROR>:"));
        // No label keeps its design caption.
        for (QLabel *l : e->findChildren<QLabel *>(QRegularExpression(QStringLiteral("^lbl.*Rule"))))
            QVERIFY2(l->text() != QStringLiteral("None"), qPrintable(l->objectName()));
    }

    void openingOrderAndEncode()
    {
        clsBrainLobe *g = AddLobe();
        g->LoseStrength[1] = 7;
        frmBrainLobe *e = Open(g);
        // The counted editor wrote the genome space figure first, then the filling sliders
        // ran their read-outs; the last one filled wins.
        QCOMPARE(session->StatusPanel[2], QStringLiteral("Slider: 7"));

        // An encode takes what the open editor shows, and a later Cancel cannot undo it.
        e->scrAttenuation->setValue(33);
        e->txtX->setText(QStringLiteral("9"));
        session->EncodeGenome();
        QCOMPARE(int(g->Attenuation), 33);
        QCOMPARE(int(g->x), 9);
        e->btnCancel->click();
        QCOMPARE(int(g->Attenuation), 33);
        QCOMPARE(int(g->x), 9);
    }
};

QTEST_MAIN(TestBrainLobe)
#include "test_brainlobe.moc"
