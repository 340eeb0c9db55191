// The editors of every kind but the lobe through their controls, one table for all: each byte in
// its own control and back, what opening folds and Close stores of a value the controls cannot
// hold, the read-outs the sliders leave, number boxes tidied as typed. Then what a row of the
// table cannot show: the receptor's organ, tissue and locus chain, an instinct's neurone lists,
// the half-life list's click and slider handlers, the genus gene's header and monikers, and the
// pose names the pose and gait editors list.
#include "EditorTestKit.h"
#include "core/genes/BodyGenes.h"
#include "editors/AttachmentCombos.h"
#include "editors/EditorCommon.h"
#include "editors/GeneHeaderPanel.h"
#include "editors/frmGait.h"
#include "editors/frmHalfLives.h"
#include "editors/frmReceptor.h"
#include "editors/frmSpecies.h"

class TestKindEditors : public QObject
{
    Q_OBJECT
    EditorTestKit kit;

    // The selected row, the slider's position, the caption and the number kept for the row.
    static QString State(frmHalfLives *e)
    {
        const int row = e->lstChem->currentRow();
        return QStringLiteral("row %1 at %2 shows %3 keeps %4")
            .arg(row).arg(e->scrSet->value()).arg(e->txtHalfLife->text()).arg(e->KeptNumber(row));
    }

private slots:
    void init() { kit.Init(); }
    void cleanup() { kit.Cleanup(); }

    // A row each: the kind, its body as loaded (hex); the user's entries (see Enter); what they
    // tell after the body opening stores, if it stores any, and the read-out a slider filled on
    // opening leaves; the body Close stores.
    void controls_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<int>("subType");
        QTest::addColumn<QString>("body");
        QTest::addColumn<QStringList>("entries");
        QTest::addColumn<QString>("told");
        QTest::addColumn<QString>("stored");

        // Pigments and organs: a number box takes any text and is tidied into a byte at once.
        QTest::newRow("pigment") << 2 << 6 << "02 07" << QStringList{"lstPigment=1", "scrIntensity=250"}
                                 << "Slider: 7 | lstPigment:Blue>Green | scrIntensity:7>250 Slider: 250" << "01 fa";
        QTest::newRow("pigment bleed") << 2 << 7 << "00 80" << QStringList{"scrRotation=255", "scrSwap=3"}
                                       << "Slider: 0 | scrRotation:0>255 Slider: 255 | scrSwap:128>3 Slider: 3"
                                       << "ff 03";
        const QStringList organ = {"scrClockRate=255", "scrLTRateChange=16", "scrLifeForce=77", "BioTickText=999",
                                   "ATPText=abc"};
        QTest::newRow("organ, 999 and abc typed")
            << 3 << 0 << "01 02 03 04 05" << organ
            << "Slider: 2 | scrClockRate:1>255 Slider: 255 | scrLTRateChange:2>16 Slider: 16 | scrLifeForce:3>77 | "
               "BioTickText:4>255 | ATPText:5>0" << "ff 10 4d ff 00";

        // Receptors and emitters. What each list offers, by what a place shows when it opens: a
        // tissue or locus beyond its list shows the last item and goes into the gene at once, and
        // Close stores what is shown. Only the flag bits with a control survive Close. A place as
        // stored and as opening leaves it (unchanged if not given), the organ, tissue and locus
        // shown, the flags Close stores.
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
        place("receptor organ 2 tissue 7", 0, "02 07 09 00 00 00 00 00", "02 00 02 00 00 00 00 00",
              "Current Organ|<no tissue>|Injury", "00");
        place("emitter brain 100, flags 0xFF", 1, "00 00 64 00 00 01 00 ff", "00 00 2a 00 00 01 00 ff",
              "Brain|Perceptible i/ps|Cell(39) Output", "07");
        place("emitter lobe 200, flags 0xF9", 1, "00 c8 00 00 00 01 00 f9", "00 1f 00 00 00 01 00 f9",
              "Brain|Lobe 31|Lobe activity", "01");
        place("emitter immune 1, flags 2", 1, "01 03 01 00 00 01 00 02", "01 03 00 00 00 01 00 02",
              "Creature|Immune|I'm dead (post-mortem chemistry)", "02");
        // The chemical and each slider show their own byte and go back into it, with a read-out;
        // the third slider is the receptor's nominal and the emitter's rate.
        auto sliders = [](const char *name, int subType, const QString &third, const QString &readOut) {
            QTest::newRow(name) << 1 << subType << "00 00 00 fa 0b 16 21 00"
                                << QStringList{"lstChem=9", "scrThreshold=111", third + "=122", "scrGain=133"}
                                << "Slider: " + readOut + " | lstChem:250>9 | scrThreshold:11>111 Slider: 111 | " + third
                                       + ":22>122 Slider: 122 | scrGain:33>133 Slider: 133"
                                << "00 00 00 09 6f 7a 85 00";
        };
        sliders("receptor sliders", 0, "scrNominal", "33");
        sliders("emitter sliders", 1, "scrRate", "11");

        // Reactions and injections. Each place of a reaction has its own box and combo:
        // reactants 0 and 1, products 2 and 3. The rate shows at its eighth rounded half to even
        // and comes back as position * 8; a rate that rounds past the last position stands there
        // and is kept until the slider moves. An amount box takes any text; Close stores its
        // leading number rounded half to even and held within a byte.
        QTest::newRow("reaction places")
            << 1 << 2 << "02 ff 10 07 09 00 01 80 10"
            << QStringList{"txtConc_0", "lstChem_0", "txtConc_1=3", "lstChem_1", "txtConc_2", "lstChem_2=40", "txtConc_3",
                           "lstChem_3"}
            << "Slider: 16 (Max to 0 in apprx. 1 sec) | txtConc_0:2 | lstChem_0:255 | txtConc_1:16>3 | lstChem_1:7 | "
               "txtConc_2:9 | lstChem_2:<nothing>>40 | txtConc_3:1 | lstChem_3:128"
            << "02 ff 03 07 09 28 01 80 10";
        // A rate, the read-out of the position it shows on opening, the amount typed last, and
        // the amount and rate Close stores.
        auto rate = [](const char *name, const char *rate, const char *readout, QString amount, const char *stored) {
            QTest::newRow(name) << 1 << 2 << QString("01 01 01 01 01 01 01 01 ") + rate << QStringList{"txtConc_3=" + amount}
                                << QString("Slider: %1 | txtConc_3:1>%2").arg(readout, amount)
                                << QString("01 01 01 01 01 01 ") + stored;
        };
        rate("rate 4, amount -2", "04", "0 (Max to 0 in apprx. Instantly)", "-2", "00 01 00");
        rate("rate 12, amount 300", "0c", "16 (Max to 0 in apprx. 1 sec)", "300", "ff 01 10");
        rate("rate 20, amount 2.5", "14", "16 (Max to 0 in apprx. 1 sec)", "2.5", "02 01 10");
        rate("rate 251, amount 7 moles", "fb", "248 (Max to 0 in apprx. 52 years)", "7 moles", "07 01 f8");
        rate("rate 252 kept, amount abc", "fc", "248 (Max to 0 in apprx. 52 years)", "abc", "00 01 fc");
        QTest::newRow("rate 255 moved, amount 200")
            << 1 << 2 << "01 01 01 01 01 01 01 01 ff" << QStringList{"scrRate=30", "scrRate=31", "txtConc_3=200"}
            << "Slider: 248 (Max to 0 in apprx. 52 years) | scrRate:31>30 Slider: 240 (Max to 0 in apprx. 26 years) | "
               "scrRate:30>31 Slider: 248 (Max to 0 in apprx. 52 years) | txtConc_3:1>200"
            << "01 01 01 01 01 01 c8 01 f8";
        QTest::newRow("inject") << 1 << 4 << "c8 4d" << QStringList{"lstChem=3", "scrConc=255"}
                                << "Slider: 77 | lstChem:200>3 | scrConc:77>255 Slider: 255" << "03 ff";

        // Stimuli and instincts. The neurone "<none>" is 255, neurone n is item n + 1; a stimulus
        // or neurone without an item shows its number and is kept until the user picks an item.
        // Each slider, chemical and amount shows and stores its own byte; the three boxes are the
        // feature bits 1, 2, 4, and the other bits are lost on Close. A new lobe in one row of an
        // instinct rebuilds that row's neurones from the first entry; the other rows keep their
        // lobes and neurones. A stimulus gene by its stimulus and neurone, stored and after
        // Close; its last amount leaves its read-out on opening.
        auto stimulus = [](const char *name, QStringList bytes, QStringList entries, const char *told) {
            const QString body = "%1 00 %2 00 00 00 00 00 00 00 00 00 01";
            QTest::newRow(name) << 2 << 0 << body.arg(bytes[0], bytes[1]) << entries << QString("Slider: 1 | ") + told
                                << body.arg(bytes[2], bytes[3]);
        };
        stimulus("stimulus 46 no item, neurone 32 no item", {"2e", "20", "2e", "20"}, {"lstStim", "lstNeu"},
                 "lstStim:(46 (no name)) | lstNeu:(32 (no name))");
        stimulus("stimulus 200 picked, <none> picked", {"c8", "01", "03", "ff"}, {"lstStim=3", "lstNeu=0"},
                 "lstStim:(200 (no name))>Pointer slaps me | lstNeu:I've been slapped><none>");
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

        // An instinct's neurone lists, all three rows on one lobe: the lobe's name, the probe row
        // 0 shows, the first entry that rows 1 and 2 show for the list's size and one more (both
        // beyond the list, they store the first entry too), the last entry picked in row 0. A lobe
        // byte of 8 or more, which no load lets through, is taken modulo 8.
        auto neurones = [](const char *name, int lobe, int count, int probe, QString shown) {
            auto hex = [](int byte) { return QString::number(byte, 16).rightJustified(2, '0'); };
            const QStringList items = shown.split('|'); // lobe, first, probe, last
            QTest::newRow(name) << 2 << 5
                                << QString("%1 %2 %1 %3 %1 %4 00 00 00").arg(hex(lobe), hex(probe), hex(count), hex(count + 1))
                                << QStringList{"lstLobe_0", "lstNeu_0", "lstNeu_1", "lstNeu_2", "lstNeu_0=" + QString::number(count - 1)}
                                << QString("lstLobe_0:%1 | lstNeu_0:%3 | lstNeu_1:%2 | lstNeu_2:%2 | lstNeu_0:%3>%4")
                                       .arg(items[0], items[1], items[2], items[3])
                                << QString("%1 %2 %1 00 %1 00 00 00 00").arg(hex(lobe % 8), hex(count - 1));
        };
        neurones("instinct lobe 0", 0, 1, 0, "<NOT USED>|<NOT USED>|<NOT USED>|<NOT USED>");
        neurones("instinct lobe 5, senses without none", 5, 32, 22,
                 "General Sensory i/ps|I've been patted|<spare4>|Hitting the ground post fall");
        neurones("instinct lobe 7, leading blank", 7, 40, 39, "Attention/Seek o/ps| IT is <ID 0>| IT is <ID 39>| IT is <ID 39>");
        neurones("instinct lobe 9 is lobe 1", 9, 17, 12, "Drive i/ps|PAIN|SEX DRIVE|STRESS");

        // Appearances and poses: a value the list has no item for (Region 5 comes from a load)
        // selects nothing, shows its number in grey and stays; so does a pick beyond a list's
        // last item, which the list has no more of. A pose string takes 15 characters.
        QTest::newRow("appearance last items, and beyond")
            << 2 << 2 << "04 19 03" << QStringList{"lstRegion=5", "lstVariety=26", "lstGenus=4"}
            << "lstRegion:Tail + create>() | lstVariety:Z->() | lstGenus:Quorrel>()" << "04 19 03";
        QTest::newRow("appearance region 5") << 2 << 2 << "05 0c 01" << QStringList{"lstRegion", "lstVariety", "lstGenus"}
                                             << "lstRegion:(5) | lstVariety:M- | lstGenus:Brannoch" << "05 0c 01";
        const QString poseBody = "07 41 42 43 44 45 46 47 48 49 4a 4b 4c 4d 4e 4f"; // pose 7, "ABCDEFGHIJKLMNO"
        QTest::newRow("pose string") << 2 << 3 << poseBody << QStringList{"txtPose=ABCDEFGHIJKLMNOPQ"}
                                     << "txtPose:ABCDEFGHIJKLMNO>ABCDEFGHIJKLMNO" << poseBody;
    }
    void controls()
    {
        QFETCH(int, type);
        QFETCH(int, subType);
        QFETCH(QString, body);
        QFETCH(QStringList, entries);
        Gene *g = kit.Add(type, subType);
        kit.SetBody(g, body);
        const QString loaded = kit.Body(g);
        GeneEditor *e = kit.Open(g);
        QStringList told;
        if (kit.Body(g) != loaded)
            told << "opening stores " + kit.Body(g);
        if (kit.session->StatusPanel[2].startsWith(QLatin1String("Slider")))
            told << kit.session->StatusPanel[2];
        QTEST((told << kit.Enter(e, entries)).join(QStringLiteral(" | ")), "told");
        e->btnOk->click();
        QTEST(kit.Body(g), "stored");
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

    // After opening, chemical 0 is selected but its number is not shown; a click on any row,
    // the selected one too, shows it. A click moves the slider to the number / 8, cut off; a
    // moved slider rounds the number down to a multiple of 8, a slider that stays leaves it
    // while the caption shows the slider's value. Rows never selected keep their numbers.
    // Before any click, the slider writes into chemical 0.
    void halfLives()
    {
        Gene *g = kit.Add(1, 3);
        kit.SetBody(g, "ff 14 17 07 05 83" + QString(" ff").repeated(194) + " c9" + QString(" ff").repeated(54) + " 00");
        auto *e = kit.Open<frmHalfLives>(g);
        QCOMPARE(e->lstChem->count(), 256);
        QCOMPARE(State(e), QStringLiteral("row 0 at 0 shows 0 keeps 255"));
        const std::pair<int, const char *> steps[] = {
            {0, "row 0 at 31 shows 248 keeps 248"}, // the selected row, 255
            {1, "row 1 at 2 shows 16 keeps 16"},    // 20 moves the slider: rounded down
            {2, "row 2 at 2 shows 16 keeps 23"},    // same band: no move, kept as it is
            {3, "row 3 at 0 shows 0 keeps 0"},      // 7 moves the slider back to 0
            {4, "row 4 at 0 shows 0 keeps 5"},      // same band
        };
        for (auto [row, state] : steps) {
            QListWidget *list = e->lstChem;
            QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->item(row)).center());
            QCOMPARE(State(e), QLatin1String(state));
        }
        QTest::keyClick(e->lstChem, Qt::Key_Down); // the keys select as the mouse does
        QCOMPARE(State(e), QStringLiteral("row 5 at 16 shows 128 keeps 128"));
        e->btnOk->click();
        const QStringList b = kit.Body(g).split(' ');
        QCOMPARE(b.mid(0, 7) + b.mid(200, 1) + b.mid(255),
                 QStringList({"f8", "10", "17", "00", "05", "80", "ff", "c9", "00"}));

        e = kit.Open<frmHalfLives>(g);
        e->scrSet->setValue(3);
        e->btnOk->click();
        QCOMPARE(kit.Body(g).left(2), "18");
    }

    // Close checks both monikers, the father's first, and stores the replacement of a bad one;
    // Repair shows in the boxes at once what Close would store, with the same messages, so
    // that Close has nothing left to say. The header shows the gene's header without taking input.
    void monikers_data()
    {
        QTest::addColumn<bool>("repair");
        QTest::addColumn<QString>("typed"); // mother|father
        QTest::addColumn<QStringList>("messages");
        auto fixed = [](const QString &who, const QString &fault) {
            return who + "'s moniker " + fault + ".\r\nIt has been corrected to: " + (who == "Father" ? "ADAM" : "EVE_");
        };
        QTest::newRow("close, father first, bad characters")
            << false << QString::fromLatin1("A\tB\x7f|D\xe9\xe9X")
            << QStringList{fixed("Father", "has 2 bad character(s)"), fixed("Mother", "has 2 bad character(s)")};
        QTest::newRow("repair, father first")
            << true << "\x01XYZ|AB"
            << QStringList{fixed("Father", "is incorrect length. Should be 4\r\nbut is actually 2 characters"),
                           fixed("Mother", "has 1 bad character(s)")};
    }
    void monikers()
    {
        QFETCH(bool, repair);
        QFETCH(QString, typed);
        QFETCH(QStringList, messages);
        Gene *g = kit.Add(2, 1);
        kit.SetBody(g, "00 4d 55 4d 53 44 41 44 53"); // MUMS, DADS
        auto *e = kit.Open<frmSpecies>(g);
        for (QWidget *w : e->Header->findChildren<QWidget *>())
            QVERIFY2(w->focusPolicy() == Qt::NoFocus || !w->isEnabled(), qPrintable(w->objectName()));
        e->txtFamily[0]->setText(typed.section('|', 0, 0));
        e->txtFamily[1]->setText(typed.section('|', 1));
        kit.prompt.AnswerMessage(Prompt::Ok).AnswerMessage(Prompt::Ok);
        if (repair) {
            e->RepairCommand->click();
            QCOMPARE(e->txtFamily[0]->text() + e->txtFamily[1]->text() + ' ' + kit.Body(g),
                     "EVE_ADAM 00 4d 55 4d 53 44 41 44 53");
        }
        e->btnOk->click();
        QCOMPARE(kit.prompt.MessageTexts(), messages);
        QCOMPARE(kit.Body(g), "00 45 56 45 5f 41 44 41 4d");
    }

    // The pose editor lists the poses as they stand, pose 0's name and empty names included. A
    // gait's pose 0 is "<empty>" in every one of its combos, never the name of pose 0; the other
    // items are the names as they stand. A pose renamed while the gait editor is open keeps its
    // old text there, dropped down or not; the next opening shows the new name.
    void poseNames()
    {
        kit.session->Lists.SetPoseDefaults(); // each name its number
        auto &names = kit.session->Lists.PoseNames;
        names[0] = QStringLiteral("Stand"), names[1] = QStringLiteral("Walk"), names[3] = QString();
        names[255] = QStringLiteral("Last");
        Gene *pose = kit.Add(2, 3);
        kit.SetBody(pose, "03");
        auto *list = Child<QComboBox>(kit.Open(pose), "lstPose");
        QCOMPARE(QStringList({list->itemText(0), list->currentText(), list->itemText(255), QString::number(list->count())}),
                 QStringList({"Stand", "", "Last", "256"}));

        Gene *g = kit.Add(2, 4);
        kit.SetBody(g, "0f 01 03 00 00 ff 00 02 01");
        auto *e = kit.Open<frmGait>(g);
        names[2] = QStringLiteral("Renamed");
        e->lstPose[6]->showPopup();
        e->lstPose[6]->hidePopup();
        QStringList got = {QString::number(e->lstDrive->count()), e->lstDrive->itemText(0), e->lstDrive->currentText()};
        for (QComboBox *c : e->lstPose)
            got << c->currentText();
        QCOMPARE(got, QStringList({"16", "Normal gait", "Special gait 15", "Walk", "", "<empty>", "<empty>", "Last",
                                   "<empty>", "2", "Walk"}));
        e->btnOk->click();
        QCOMPARE(kit.Open<frmGait>(g)->lstPose[6]->currentText(), QStringLiteral("Renamed"));
    }
};

QTEST_MAIN(TestKindEditors)
#include "test_kind_editors.moc"
