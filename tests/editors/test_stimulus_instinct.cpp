// The stimulus and instinct editors through their controls: the sensory neurone with 255 for
// none, stimuli and decisions that have no name, the feature bits, the eight neurone lists of
// an instinct, how a stored neurone beyond its list is folded, and the rows' independence.
#include "EditorTestKit.h"
#include "core/genes/BodyGenes.h"
#include "editors/EditorCommon.h"
#include "editors/frmInstinct.h"
#include "editors/frmStimulus.h"

#include <QScrollBar>

class TestStimulusInstinct : public QObject
{
    Q_OBJECT
    EditorTestKit kit;

    clsStimulus *AddStimulus() { return static_cast<clsStimulus *>(kit.Add(2, 0)); }
    clsInstinct *AddInstinct() { return static_cast<clsInstinct *>(kit.Add(2, 5)); }
    static QComboBox *List(QWidget *e, const QString &name) { return Child<QComboBox>(e, name); }
    // What a combo shows: the selected item's text, or the grey text standing in for none.
    static QString Shown(QComboBox *c) { return c->currentIndex() >= 0 ? c->currentText() : "~" + c->placeholderText(); }

private slots:
    void init() { kit.Init(); }
    void cleanup() { kit.Cleanup(); }

    // --- stimulus ---------------------------------------------------------------------------

    // The neurone as stored, what lstNeu shows for it, the item the user picks (-1 for none)
    // and what Close stores: "<none>" is 255, not 0, and a neurone with no item is kept.
    void stimulusNeurone_data()
    {
        QTest::addColumn<int>("neu");
        QTest::addColumn<QString>("shown");
        QTest::addColumn<int>("pick");
        QTest::addColumn<int>("stored");
        QTest::newRow("255 is none") << 255 << "<none>" << -1 << 255;
        QTest::newRow("0 is the first neurone") << 0 << "I've been patted" << -1 << 0;
        QTest::newRow("31 is the last") << 31 << "Hitting the ground post fall" << -1 << 31;
        QTest::newRow("32 has no item") << 32 << "~32 (no name)" << -1 << 32;
        QTest::newRow("254 has no item") << 254 << "~254 (no name)" << -1 << 254;
        QTest::newRow("<none> picked") << 1 << "I've been slapped" << 0 << 255;
        QTest::newRow("first picked") << 255 << "<none>" << 1 << 0;
        QTest::newRow("last picked") << 255 << "<none>" << 32 << 31;
        QTest::newRow("<none> over 100") << 100 << "~100 (no name)" << 0 << 255;
        QTest::newRow("neurone 3 over 100") << 100 << "~100 (no name)" << 4 << 3;
    }
    void stimulusNeurone()
    {
        QFETCH(int, neu);
        QFETCH(QString, shown);
        QFETCH(int, pick);
        QFETCH(int, stored);
        clsStimulus *g = AddStimulus();
        g->Neu = quint8(neu);
        auto *e = kit.Open(g);
        QCOMPARE(Shown(List(e, "lstNeu")), shown);
        if (pick >= 0)
            List(e, "lstNeu")->setCurrentIndex(pick);
        e->btnOk->click();
        QCOMPARE(int(g->Neu), stored);
    }

    // 46 named stimuli; a stimulus byte past them shows its number, is kept by Close and by
    // every encode, and goes only when the user picks a stimulus.
    void stimulusWithoutName()
    {
        clsStimulus *named = AddStimulus(), *unnamed = AddStimulus(), *picked = AddStimulus();
        named->stimulus = 45, unnamed->stimulus = 46, picked->stimulus = 200;
        auto *e = kit.Open(named);
        QCOMPARE(List(e, "lstStim")->count(), 46);
        QCOMPARE(Shown(List(e, "lstStim")), QStringLiteral("I've mated"));
        auto *u = kit.Open(unnamed);
        QCOMPARE(Shown(List(u, "lstStim")), QStringLiteral("~46 (no name)"));
        unnamed->GetControls(); // as an encode does with an open editor
        QCOMPARE(int(unnamed->stimulus), 46);
        auto *p = kit.Open(picked);
        List(p, "lstStim")->setCurrentIndex(3);
        for (GeneEditor *editor : {e, u, p})
            editor->btnOk->click();
        QCOMPARE(QList<int>({named->stimulus, unnamed->stimulus, picked->stimulus}), QList<int>({45, 46, 3}));
    }

    // Three boxes for the bits 1, 2, 4; the other bits are lost on Close.
    void stimulusFeatures_data()
    {
        QTest::addColumn<int>("before");
        QTest::addColumn<QString>("boxes");
        QTest::addColumn<int>("toggle"); // box the user clicks, -1 for none
        QTest::addColumn<int>("stored");
        QTest::newRow("all bits") << 0xFF << "111" << -1 << 7;
        QTest::newRow("only bits without a box") << 0xF8 << "000" << -1 << 0;
        QTest::newRow("2 and a high bit") << 0x42 << "010" << -1 << 2;
        QTest::newRow("5, the middle box checked") << 5 << "101" << 1 << 7;
        QTest::newRow("7, the first box unchecked") << 7 << "111" << 0 << 6;
    }
    void stimulusFeatures()
    {
        QFETCH(int, before);
        QFETCH(QString, boxes);
        QFETCH(int, toggle);
        QFETCH(int, stored);
        clsStimulus *g = AddStimulus();
        g->Features = quint8(before);
        auto *e = kit.Open(g);
        QString checked;
        for (int i = 0; i < 3; ++i)
            checked += Child<QCheckBox>(e, QStringLiteral("chkFeatures_%1").arg(i))->isChecked() ? '1' : '0';
        QCOMPARE(checked, boxes);
        if (toggle >= 0)
            Child<QCheckBox>(e, QStringLiteral("chkFeatures_%1").arg(toggle))->click();
        e->btnOk->click();
        QCOMPARE(int(g->Features), stored);
    }

    // Every field to its own control and back, the chemicals and amounts in their pairs.
    void stimulusFieldsRoundTrip()
    {
        clsStimulus *g = AddStimulus();
        g->stimulus = 7, g->Significance = 201, g->Neu = 12, g->Intensity = 33;
        for (int i = 0; i < 4; ++i)
            g->Chem[i] = quint8(10 + i), g->amount[i] = quint8(100 + 10 * i);
        auto *e = kit.Open<frmStimulus>(g);
        QCOMPARE(QList<int>({e->scrSignificance->value(), e->scrIntensity->value(), e->lstChem[2]->currentIndex(),
                             e->scrAmount[2]->value()}),
                 QList<int>({201, 33, 12, 120}));
        // The last slider filled wrote the read-out.
        QCOMPARE(kit.session->StatusPanel[2], QStringLiteral("Slider: 130"));

        List(e, "lstChem_1")->setCurrentIndex(255);
        Child<QScrollBar>(e, "scrAmount_3")->setValue(1);
        Child<QScrollBar>(e, "scrSignificance")->setValue(0);
        e->btnOk->click();
        QList<int> got = {g->stimulus, g->Significance, g->Neu, g->Intensity};
        for (int i = 0; i < 4; ++i)
            got << g->Chem[i] << g->amount[i];
        QCOMPARE(got, QList<int>({7, 0, 12, 33, 10, 100, 255, 110, 12, 120, 13, 1}));
    }

    // --- instinct ---------------------------------------------------------------------------

    // The neurone list of each lobe: its size, first and last entry, and one entry inside.
    void instinctNeuroneLists_data()
    {
        QTest::addColumn<int>("lobe");
        QTest::addColumn<QString>("lobeText");
        QTest::addColumn<int>("count");
        QTest::addColumn<int>("probe");
        QTest::addColumn<QString>("entries"); // first | probe | last
        QTest::newRow("0") << 0 << "<NOT USED>" << 1 << 0 << "<NOT USED>|<NOT USED>|<NOT USED>";
        QTest::newRow("1 drives") << 1 << "Drive i/ps" << 17 << 12 << "PAIN|SEX DRIVE|STRESS";
        QTest::newRow("2 stimulus sources") << 2 << "Stim source i/ps" << 40 << 10 << "<ID 0>|<ID 10>|<ID 39>";
        QTest::newRow("3 verbs") << 3 << "Verb i/ps" << 16 << 1
                                 << "verb: Default (quiescent)|verb: Activate 1 it|verb: <unallocated2>";
        QTest::newRow("4 nouns") << 4 << "Noun i/ps" << 40 << 7 << "Noun: <ID 0>|Noun: <ID 7>|Noun: <ID 39>";
        QTest::newRow("5 senses without none")
            << 5 << "General Sensory i/ps" << 32 << 22 << "I've been patted|<spare4>|Hitting the ground post fall";
        QTest::newRow("6 decisions") << 6 << "Decision o/ps" << 16 << 13 << "Default (quiescent)|Hit it|<unallocated2>";
        QTest::newRow("7 attention, leading blank")
            << 7 << "Attention/Seek o/ps" << 40 << 7 << " IT is <ID 0>| IT is <ID 7>| IT is <ID 39>";
    }
    void instinctNeuroneLists()
    {
        QFETCH(int, lobe);
        QFETCH(QString, lobeText);
        QFETCH(int, count);
        QFETCH(int, probe);
        QFETCH(QString, entries);
        clsInstinct *g = AddInstinct();
        g->lobe[2] = quint8(lobe), g->Neu[2] = quint8(probe);
        auto *e = kit.Open(g);
        QComboBox *neu = List(e, "lstNeu_2");
        QCOMPARE(List(e, "lstLobe_2")->currentText(), lobeText);
        QCOMPARE(neu->count(), count);
        QCOMPARE(QStringList({neu->itemText(0), neu->currentText(), neu->itemText(count - 1)}).join('|'), entries);
        e->btnOk->click();
        QCOMPARE(QList<int>({g->lobe[2], g->Neu[2]}), QList<int>({lobe, probe}));
    }

    // A stored neurone beyond its list: above the count gives the first entry, equal to the
    // count wraps round to it. Close stores the folded value; Cancel leaves the byte.
    void instinctNeuroneFolding_data()
    {
        QTest::addColumn<int>("lobe");
        QTest::addColumn<int>("neu");
        QTest::addColumn<int>("item");
        QTest::newRow("drive 16, the last") << 1 << 16 << 16;
        QTest::newRow("drive 17, the count") << 1 << 17 << 0;
        QTest::newRow("drive 18, above") << 1 << 18 << 0;
        QTest::newRow("drive 255") << 1 << 255 << 0;
        QTest::newRow("not used, 0") << 0 << 0 << 0;
        QTest::newRow("not used, 1") << 0 << 1 << 0;
        QTest::newRow("not used, 9") << 0 << 9 << 0;
        QTest::newRow("sense 31, the last") << 5 << 31 << 31;
        QTest::newRow("sense 32") << 5 << 32 << 0;
        QTest::newRow("attention 39") << 7 << 39 << 39;
        QTest::newRow("attention 40") << 7 << 40 << 0;
        QTest::newRow("attention 41") << 7 << 41 << 0;
    }
    void instinctNeuroneFolding()
    {
        QFETCH(int, lobe);
        QFETCH(int, neu);
        QFETCH(int, item);
        for (bool close : {false, true}) {
            clsInstinct *g = AddInstinct();
            g->lobe[1] = quint8(lobe), g->Neu[1] = quint8(neu);
            auto *e = kit.Open(g);
            QCOMPARE(List(e, "lstNeu_1")->currentIndex(), item);
            (close ? e->btnOk : e->btnCancel)->click();
            QCOMPARE(int(g->Neu[1]), close ? item : neu);
            QCOMPARE(int(g->lobe[1]), lobe);
        }
    }

    // A lobe byte of 8 or more, which no load lets through, is taken modulo the eight items.
    void instinctLobeModulo()
    {
        clsInstinct *g = AddInstinct();
        g->lobe[0] = 9, g->Neu[0] = 2, g->lobe[1] = 8, g->Neu[1] = 3;
        auto *e = kit.Open(g);
        QCOMPARE(Shown(List(e, "lstLobe_0")) + "|" + Shown(List(e, "lstNeu_0")), QStringLiteral("Drive i/ps|HUNGER"));
        QCOMPARE(Shown(List(e, "lstNeu_1")), QStringLiteral("<NOT USED>"));
        e->btnOk->click();
        QCOMPARE(QList<int>({g->lobe[0], g->Neu[0], g->lobe[1], g->Neu[1]}), QList<int>({1, 2, 0, 0}));
    }

    // A new lobe in one row rebuilds that row's neurones from the first entry; the other rows
    // keep their lobes, lists and neurones.
    void instinctRowsAreIndependent()
    {
        clsInstinct *g = AddInstinct();
        g->lobe[0] = 2, g->Neu[0] = 5, g->lobe[1] = 3, g->Neu[1] = 6, g->lobe[2] = 4, g->Neu[2] = 7;
        auto *e = kit.Open<frmInstinct>(g);
        List(e, "lstLobe_1")->setCurrentIndex(7);
        QCOMPARE(Shown(e->lstNeu[1]), QStringLiteral(" IT is <ID 0>"));
        QCOMPARE(Shown(e->lstNeu[0]) + "|" + Shown(e->lstNeu[2]), QStringLiteral("<ID 5>|Noun: <ID 7>"));
        e->lstNeu[1]->setCurrentIndex(30);
        // Back to "<NOT USED>": a one-entry list, and the neurone with it.
        e->lstLobe[2]->setCurrentIndex(0);
        QCOMPARE(e->lstNeu[2]->count(), 1);
        QCOMPARE(e->lstNeu[2]->currentText(), QStringLiteral("<NOT USED>"));
        // The public rebuild of a row resets its neurone, and only its own.
        e->lstNeu[0]->setCurrentIndex(9);
        e->SetNeuList(0);
        QCOMPARE(QList<int>({e->lstNeu[0]->currentIndex(), e->lstNeu[0]->count(), e->lstNeu[1]->currentIndex()}),
                 QList<int>({0, 40, 30}));
        e->btnOk->click();
        QCOMPARE(QList<int>({g->lobe[0], g->Neu[0], g->lobe[1], g->Neu[1], g->lobe[2], g->Neu[2]}),
                 QList<int>({2, 0, 7, 30, 0, 0}));
    }

    // Decision, reward chemical and amount; a decision byte past the sixteen names (no load
    // lets one through) shows its number and is kept.
    void instinctDecisionAndReward()
    {
        clsInstinct *g = AddInstinct(), *odd = AddInstinct();
        g->Motor = 15, g->Reinforcer = 204, g->Reinforcement = 77;
        odd->Motor = 16;
        auto *e = kit.Open<frmInstinct>(g);
        QCOMPARE(Shown(e->lstMotor), QStringLiteral("<unallocated2>"));
        QCOMPARE(QList<int>({e->lstReinforcer->currentIndex(), e->scrReinforcement->value()}), QList<int>({204, 77}));
        QCOMPARE(kit.session->StatusPanel[2], QStringLiteral("Slider: 77"));
        auto *o = kit.Open<frmInstinct>(odd);
        QCOMPARE(Shown(o->lstMotor), QStringLiteral("~16 (no name)"));
        o->btnOk->click();
        QCOMPARE(int(odd->Motor), 16);

        List(e, "lstMotor")->setCurrentIndex(13);
        List(e, "lstReinforcer")->setCurrentIndex(0);
        Child<QScrollBar>(e, "scrReinforcement")->setValue(255);
        e->btnOk->click();
        QCOMPARE(QList<int>({g->Motor, g->Reinforcer, g->Reinforcement}), QList<int>({13, 0, 255}));
    }

    void instinctWarningIsRed()
    {
        auto *e = kit.Open(AddInstinct());
        auto *warning = Child<QLabel>(e, "lblWarning");
        QCOMPARE(warning->text(), QStringLiteral("WARNING: Only those lobes that are flagged as perceptible should be used"));
        QCOMPARE(warning->palette().color(QPalette::WindowText), QColor(Qt::red));
    }
};

QTEST_MAIN(TestStimulusInstinct)
#include "test_stimulus_instinct.moc"
