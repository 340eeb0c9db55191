// The stimulus and instinct editors through their controls: the sensory neurone with 255 for
// none, stimuli that have no name, the feature bits, each field in its own control, the eight
// neurone lists of an instinct, how a stored neurone beyond its list is folded, and the rows'
// independence.
#include "EditorTestKit.h"
#include "editors/EditorCommon.h"
#include "editors/frmInstinct.h"
#include "editors/frmStimulus.h"

namespace {
struct ComboRow { QString combo; int value; QString shown; int pick, stored; };
struct LobeRow { int lobe, count, probe; QString entries; };
} // namespace
Q_DECLARE_METATYPE(ComboRow)
Q_DECLARE_METATYPE(LobeRow)

class TestStimulusInstinct : public QObject
{
    Q_OBJECT
    EditorTestKit kit;


private slots:
    void init() { kit.Init(); }
    void cleanup() { kit.Cleanup(); }

    // A stimulus or its neurone as stored, what its combo shows, the item the user picks (-1
    // for none) and what Close stores. The neurone "<none>" is 255, neurone n is item n + 1; a
    // value without an item shows its number and is kept until the user picks an item.
    void combosOverBytes_data()
    {
        QTest::addColumn<ComboRow>("row");
        QTest::newRow("neurone 255 is none") << ComboRow{"lstNeu", 255, "<none>", -1, 255};
        QTest::newRow("neurone 0 the first") << ComboRow{"lstNeu", 0, "I've been patted", -1, 0};
        QTest::newRow("neurone 31 the last") << ComboRow{"lstNeu", 31, "Hitting the ground post fall", -1, 31};
        QTest::newRow("neurone 32 no item") << ComboRow{"lstNeu", 32, "(32 (no name))", -1, 32};
        QTest::newRow("<none> picked") << ComboRow{"lstNeu", 1, "I've been slapped", 0, 255};
        QTest::newRow("last neurone picked") << ComboRow{"lstNeu", 255, "<none>", 32, 31};
        QTest::newRow("stimulus 45 the last") << ComboRow{"lstStim", 45, "I've mated", -1, 45};
        QTest::newRow("stimulus 46 no item") << ComboRow{"lstStim", 46, "(46 (no name))", -1, 46};
        QTest::newRow("stimulus picked over 200") << ComboRow{"lstStim", 200, "(200 (no name))", 3, 3};
    }
    void combosOverBytes()
    {
        QFETCH(ComboRow, row);
        auto *g = static_cast<clsStimulus *>(kit.Add(2, 0));
        quint8 &field = row.combo == "lstStim" ? g->stimulus : g->Neu;
        field = quint8(row.value);
        GeneEditor *e = kit.Open(g);
        QComboBox *c = Child<QComboBox>(e, row.combo);
        QCOMPARE(ComboShown(c), row.shown);
        if (row.pick >= 0)
            c->setCurrentIndex(row.pick);
        e->btnOk->click();
        QCOMPARE(int(field), row.stored);
    }

    // Each slider, chemical and amount shows and stores its own field; a moved slider shows its
    // value. The three boxes are the feature bits 1, 2, 4; the other bits are lost on Close.
    void stimulusFields()
    {
        auto *g = static_cast<clsStimulus *>(kit.Add(2, 0));
        g->Significance = 201, g->Intensity = 33, g->Features = 0xFA;
        for (int i = 0; i < 4; ++i)
            g->Chem[i] = quint8(10 + i), g->amount[i] = quint8(100 + i);
        auto *e = kit.Open<frmStimulus>(g);
        QList<int> shown = {e->scrSignificance->value(), e->scrIntensity->value()};
        for (int i = 0; i < 4; ++i)
            shown << e->lstChem[i]->currentIndex() << e->scrAmount[i]->value();
        shown << e->chkFeatures[0]->isChecked() << e->chkFeatures[1]->isChecked() << e->chkFeatures[2]->isChecked();
        QCOMPARE(shown, QList<int>({201, 33, 10, 100, 11, 101, 12, 102, 13, 103, 0, 1, 0}));
        e->scrAmount[3]->setValue(1);
        QCOMPARE(kit.session->StatusPanel[2], QStringLiteral("Slider: 1"));
        e->chkFeatures[0]->click();
        e->btnOk->click();
        QCOMPARE(QList<int>({g->Features, g->amount[3]}), QList<int>({3, 1}));
    }

    // Each lobe's neurone list: its size and the lobe's name with the first, probed and last
    // entries. Row 0 stores the probe, row 1 the list's size and row 2 one more: both beyond
    // the list, they show and store the first entry. A lobe byte of 8 or more, which no load
    // lets through, is taken modulo 8.
    void instinctNeurones_data()
    {
        QTest::addColumn<LobeRow>("row");
        QTest::newRow("0") << LobeRow{0, 1, 0, "<NOT USED>|<NOT USED>|<NOT USED>|<NOT USED>"};
        QTest::newRow("1 drives, the last") << LobeRow{1, 17, 16, "Drive i/ps|PAIN|STRESS|STRESS"};
        QTest::newRow("2 stimulus sources") << LobeRow{2, 40, 10, "Stim source i/ps|<ID 0>|<ID 10>|<ID 39>"};
        QTest::newRow("3 verbs")
            << LobeRow{3, 16, 1, "Verb i/ps|verb: Default (quiescent)|verb: Activate 1 it|verb: <unallocated2>"};
        QTest::newRow("4 nouns") << LobeRow{4, 40, 7, "Noun i/ps|Noun: <ID 0>|Noun: <ID 7>|Noun: <ID 39>"};
        QTest::newRow("5 senses without none")
            << LobeRow{5, 32, 22, "General Sensory i/ps|I've been patted|<spare4>|Hitting the ground post fall"};
        QTest::newRow("6 decisions") << LobeRow{6, 16, 13, "Decision o/ps|Default (quiescent)|Hit it|<unallocated2>"};
        QTest::newRow("7 attention, leading blank")
            << LobeRow{7, 40, 39, "Attention/Seek o/ps| IT is <ID 0>| IT is <ID 39>| IT is <ID 39>"};
        QTest::newRow("9 is lobe 1") << LobeRow{9, 17, 12, "Drive i/ps|PAIN|SEX DRIVE|STRESS"};
    }
    void instinctNeurones()
    {
        QFETCH(LobeRow, row);
        auto *g = static_cast<clsInstinct *>(kit.Add(2, 5));
        g->lobe[0] = g->lobe[1] = g->lobe[2] = quint8(row.lobe);
        g->Neu[0] = quint8(row.probe), g->Neu[1] = quint8(row.count), g->Neu[2] = quint8(row.count + 1);
        auto *e = kit.Open<frmInstinct>(g);
        QComboBox *neu = e->lstNeu[0];
        QCOMPARE(neu->count(), row.count);
        const QStringList entries = {e->lstLobe[2]->currentText(), neu->itemText(0), neu->currentText(),
                                     neu->itemText(row.count - 1)};
        QCOMPARE(entries.join('|'), row.entries);
        e->btnOk->click();
        QCOMPARE(QList<int>({g->lobe[0], g->lobe[1], g->lobe[2]}), QList<int>(3, row.lobe % 8));
        QCOMPARE(QList<int>({g->Neu[0], g->Neu[1], g->Neu[2]}), QList<int>({row.probe, 0, 0}));
    }

    // A new lobe in one row rebuilds that row's neurones from the first entry; the other rows
    // keep their lobes and neurones. The decision, the reward chemical and its amount show their
    // own fields.
    void instinctRowsAndReward()
    {
        auto *g = static_cast<clsInstinct *>(kit.Add(2, 5));
        g->lobe[0] = 2, g->Neu[0] = 5, g->lobe[1] = 3, g->Neu[1] = 6, g->lobe[2] = 4, g->Neu[2] = 7;
        g->Motor = 15, g->Reinforcer = 204, g->Reinforcement = 77;
        auto *e = kit.Open<frmInstinct>(g);
        QCOMPARE(QList<int>({e->lstReinforcer->currentIndex(), e->scrReinforcement->value()}), QList<int>({204, 77}));
        e->lstLobe[1]->setCurrentIndex(7);
        QCOMPARE(QStringList({ComboShown(e->lstNeu[0]), ComboShown(e->lstNeu[1]), ComboShown(e->lstNeu[2]),
                              ComboShown(e->lstMotor)}),
                 QStringList({"<ID 5>", " IT is <ID 0>", "Noun: <ID 7>", "<unallocated2>"}));
        e->lstNeu[1]->setCurrentIndex(30);
        e->scrReinforcement->setValue(255);
        QCOMPARE(kit.session->StatusPanel[2], QStringLiteral("Slider: 255"));
        e->btnOk->click();
        QCOMPARE(QList<int>({g->lobe[0], g->Neu[0], g->lobe[1], g->Neu[1], g->lobe[2], g->Neu[2], g->Reinforcement}),
                 QList<int>({2, 5, 7, 30, 4, 7, 255}));
    }
};

QTEST_MAIN(TestStimulusInstinct)
#include "test_stimulus_instinct.moc"
