// The receptor and emitter editors: the organ, tissue and locus chain with the texts of its
// lists, the folding of a place beyond them on opening, what Close stores of a place picked,
// the flag bits, which slider goes into which byte, and an organ that no item shows.
#include "EditorTestKit.h"
#include "core/genes/Biochemistry.h"
#include "editors/AttachmentCombos.h"
#include "editors/frmReceptor.h"

class TestReceptorEmitter : public QObject
{
    Q_OBJECT
    EditorTestKit kit;

private slots:
    void init() { kit.Init(); }
    void cleanup() { kit.Cleanup(); }

    // What each list offers, by what a place shows when it opens: a tissue or locus beyond its
    // list shows the last item and goes into the gene at once, and Close stores what is shown.
    // The brain receptor list goes on by rule from item 59 to item 255. Only the flag bits with
    // a control survive Close. The chemical and each slider show their own byte and go back into
    // it, with a read-out.
    void controls_data()
    {
        EditorTestKit::ControlColumns();
        // A place as stored and as opening leaves it (unchanged if not given), the organ, tissue
        // and locus shown, the flags Close stores.
        auto place = [](const char *name, int subType, QString body, QString opened, QString shown, const char *flags) {
            const QStringList items = shown.split('|');
            QTest::newRow(name) << 1 << subType << body << QStringList{"lstOrgan", "lstTissue", "lstLocus"}
                                << (opened.isEmpty() ? "" : "opening stores " + opened + " | ")
                                       + QString("lstOrgan:%1 | lstTissue:%2 | lstLocus:%3").arg(items[0], items[1], items[2])
                                << (opened.isEmpty() ? body : opened).left(21) + flags;
        };
        place("receptor gait 30, flags 8", 0, "01 04 1e 00 00 00 00 08", "01 04 17 00 00 00 00 08",
              "Creature|Sensorimotor|Special gait 15", "00");
        place("receptor tissue 9, flags 0xFF", 0, "01 09 14 00 00 00 00 ff", "01 05 10 00 00 00 00 ff",
              "Creature|Drive levels|STRESS", "03");
        place("receptor brain 59, flags 0xF6", 0, "00 07 3b 00 00 00 00 f6", "", "Brain|Attention/Seek o/ps|Cell(40) State", "02");
        place("receptor brain 255", 0, "00 03 ff 00 00 00 00 01", "", "Brain|Verb i/ps|Cell(236) State", "01");
        place("receptor organ 2 tissue 7", 0, "02 07 09 00 00 00 00 00", "02 00 02 00 00 00 00 00",
              "Current Organ|<no tissue>|Injury", "00");
        place("emitter brain 100, flags 0xFF", 1, "00 00 64 00 00 01 00 ff", "00 00 2a 00 00 01 00 ff",
              "Brain|Perceptible i/ps|Cell(39) Output", "07");
        place("emitter lobe 200, flags 0xF9", 1, "00 c8 00 00 00 01 00 f9", "00 1f 00 00 00 01 00 f9",
              "Brain|Lobe 31|Lobe activity", "01");
        place("emitter organ 2 locus 9, flags 6", 1, "02 00 09 00 00 01 00 06", "02 00 02 00 00 01 00 06",
              "Current Organ|<no tissue>|Life force", "06");
        place("emitter immune 1, flags 2", 1, "01 03 01 00 00 01 00 02", "01 03 00 00 00 01 00 02",
              "Creature|Immune|I'm dead (post-mortem chemistry)", "02");
        place("emitter reproductive 5", 1, "01 02 05 00 00 01 00 00", "01 02 01 00 00 01 00 00",
              "Creature|Reproductive|I am pregnant (egg&sperm ready)", "00");
        place("emitter sensorimotor 200", 1, "01 04 c8 00 00 01 00 00", "01 04 0d 00 00 01 00 00",
              "Creature|Sensorimotor|Speed of wind coming from behind", "00");
        QTest::newRow("receptor sliders") << 1 << 0 << "00 00 00 fa 0b 16 21 00"
                                          << QStringList{"lstChem=9", "scrThreshold=111", "scrNominal=122", "scrGain=133"}
                                          << "Slider: 33 | lstChem:250>9 | scrThreshold:11>111 Slider: 111 | "
                                             "scrNominal:22>122 Slider: 122 | scrGain:33>133 Slider: 133"
                                          << "00 00 00 09 6f 7a 85 00";
        QTest::newRow("emitter sliders") << 1 << 1 << "00 00 00 fa 0b 16 21 00"
                                         << QStringList{"lstChem=9", "scrThreshold=111", "scrRate=122", "scrGain=133"}
                                         << "Slider: 11 | lstChem:250>9 | scrThreshold:11>111 Slider: 111 | "
                                            "scrRate:22>122 Slider: 122 | scrGain:33>133 Slider: 133"
                                         << "00 00 00 09 6f 7a 85 00";
    }
    void controls() { kit.CheckControls(); }

    // An organ beyond the three targets (a load folds it) shows nothing and is kept, as are the
    // bytes below it.
    void organBeyondTheTargetsKept()
    {
        auto *g = static_cast<clsEmitter *>(kit.Add(1, 1));
        g->Organ = 5, g->Tissue = 40, g->Locus = 200;
        GeneEditor *e = kit.Open(g);
        QCOMPARE(kit.Enter(e, {"lstOrgan", "lstTissue", "lstLocus"}), "lstOrgan:() | lstTissue:() | lstLocus:()");
        e->btnOk->click();
        QCOMPARE(QList<int>({g->Organ, g->Tissue, g->Locus}), QList<int>({5, 40, 200}));
    }

    // Any change of organ or tissue sets the levels below to their first item; the current
    // organ's one tissue leaves its locus as it stands.
    void chainResetsTheLevelsBelow()
    {
        Gene *g = kit.Add(1, 0);
        kit.SetBody(g, "01 04 0a 00 00 00 00 00");
        auto *e = kit.Open<frmReceptor>(g);
        QCOMPARE(kit.Enter(e, {"lstOrgan=0", "lstTissue", "lstLocus=70", "lstTissue=12", "lstLocus"}),
                 "lstOrgan:Creature>Brain | lstTissue:Perceptible i/ps | lstLocus:Threshold>Cell(51) State | "
                 "lstTissue:Perceptible i/ps>Lobe 12 | lstLocus:Threshold");
        QCOMPARE(kit.Enter(e, {"lstOrgan=2", "lstLocus=2", "lstTissue=0"}),
                 "lstOrgan:Brain>Current Organ | lstLocus:Clock Rate>Injury | lstTissue:<no tissue>><no tissue>");
        e->Place->TissueClick(); // the one tissue picked again runs its handler regardless
        QCOMPARE(kit.Enter(e, {"lstTissue", "lstLocus"}), "lstTissue:<no tissue> | lstLocus:Injury");
    }
};

QTEST_MAIN(TestReceptorEmitter)
#include "test_receptor_emitter.moc"
