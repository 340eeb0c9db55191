// The stimulus and instinct editors through their controls: the sensory neurone with 255 for
// none, stimuli that have no name, the feature bits, each byte in its own control, the eight
// neurone lists of an instinct, how a stored neurone beyond its list is folded, and the rows'
// independence.
#include "EditorTestKit.h"
#include "core/genes/BodyGenes.h"
#include "editors/frmInstinct.h"

namespace {
struct LobeRow { int lobe, count, probe; QString entries; };
} // namespace
Q_DECLARE_METATYPE(LobeRow)

class TestStimulusInstinct : public QObject
{
    Q_OBJECT
    EditorTestKit kit;

private slots:
    void init() { kit.Init(); }
    void cleanup() { kit.Cleanup(); }

    // The neurone "<none>" is 255, neurone n is item n + 1; a stimulus or neurone without an
    // item shows its number and is kept until the user picks an item. Each slider, chemical and
    // amount shows and stores its own byte; the three boxes are the feature bits 1, 2, 4, and
    // the other bits are lost on Close. A new lobe in one row of an instinct rebuilds that
    // row's neurones from the first entry; the other rows keep their lobes and neurones.
    void controls_data()
    {
        EditorTestKit::ControlColumns();
        // A stimulus gene by its stimulus and neurone, stored and after Close; its last amount
        // leaves its read-out on opening.
        auto stimulus = [](const char *name, QStringList bytes, QStringList entries, const char *told) {
            const QString body = "%1 00 %2 00 00 00 00 00 00 00 00 00 01";
            QTest::newRow(name) << 2 << 0 << body.arg(bytes[0], bytes[1]) << entries << QString("Slider: 1 | ") + told
                                << body.arg(bytes[2], bytes[3]);
        };
        stimulus("stimulus 45 the last, neurone 255 none", {"2d", "ff", "2d", "ff"}, {"lstStim", "lstNeu"},
                 "lstStim:I've mated | lstNeu:<none>");
        stimulus("stimulus 46 no item, neurone 32 no item", {"2e", "20", "2e", "20"}, {"lstStim", "lstNeu"},
                 "lstStim:(46 (no name)) | lstNeu:(32 (no name))");
        stimulus("stimulus 200 picked, <none> picked", {"c8", "01", "03", "ff"}, {"lstStim=3", "lstNeu=0"},
                 "lstStim:(200 (no name))>Pointer slaps me | lstNeu:I've been slapped><none>");
        stimulus("neurone 0 the first", {"00", "00", "00", "00"}, {"lstNeu"}, "lstNeu:I've been patted");
        stimulus("neurone 31 the last", {"00", "1f", "00", "1f"}, {"lstNeu"}, "lstNeu:Hitting the ground post fall");
        stimulus("last neurone picked", {"00", "ff", "00", "1f"}, {"lstNeu=32"}, "lstNeu:<none>>Hitting the ground post fall");
        QTest::newRow("stimulus fields") << 2 << 0 << "2d c9 10 21 fa 0a 64 0b 65 0c 66 0d 67"
            << QStringList{"scrSignificance", "scrIntensity", "lstChem_0", "scrAmount_0", "lstChem_1", "scrAmount_1",
                           "lstChem_2", "scrAmount_2", "lstChem_3", "scrAmount_3=1", "chkFeatures_0=1", "chkFeatures_1",
                           "chkFeatures_2"}
            << "Slider: 103 | scrSignificance:201 | scrIntensity:33 | lstChem_0:10 | scrAmount_0:100 | lstChem_1:11 | "
               "scrAmount_1:101 | lstChem_2:12 | scrAmount_2:102 | lstChem_3:13 | scrAmount_3:103>1 Slider: 1 | "
               "chkFeatures_0:0>1 | chkFeatures_1:1 | chkFeatures_2:0"
            << "2d c9 10 21 03 0a 64 0b 65 0c 66 0d 01";
        QTest::newRow("instinct rows and reward") << 2 << 5 << "02 05 03 06 04 07 0f cc 4d"
            << QStringList{"lstReinforcer", "scrReinforcement", "lstLobe_1=7", "lstNeu_0", "lstNeu_1", "lstNeu_2",
                           "lstMotor", "lstNeu_1=30", "scrReinforcement=255"}
            << "Slider: 77 | lstReinforcer:204 | scrReinforcement:77 | lstLobe_1:Verb i/ps>Attention/Seek o/ps | "
               "lstNeu_0:<ID 5> | lstNeu_1: IT is <ID 0> | lstNeu_2:Noun: <ID 7> | lstMotor:<unallocated2> | "
               "lstNeu_1: IT is <ID 0>> IT is <ID 30> | scrReinforcement:77>255 Slider: 255"
            << "02 05 07 1e 04 07 0f cc ff";
    }
    void controls() { kit.CheckControls(); }

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
};

QTEST_MAIN(TestStimulusInstinct)
#include "test_stimulus_instinct.moc"
