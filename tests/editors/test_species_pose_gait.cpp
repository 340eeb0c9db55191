// The genus, appearance, pose and gait editors: the genus gene's disabled header, its
// moniker checks on Close and by Repair, values the combos have no item for, the pose lists
// as they stand and the gait's "<empty>", the pose string's length, and gait combos that keep
// their texts while open.
#include "EditorTestKit.h"
#include "editors/GeneHeaderPanel.h"
#include "editors/frmGait.h"
#include "editors/frmSpecies.h"

class TestSpeciesPoseGait : public QObject
{
    Q_OBJECT
    EditorTestKit kit;

private slots:
    void init() { kit.Init(); }
    void cleanup() { kit.Cleanup(); }

    // The header shows the gene's header without taking input.
    void speciesHeaderShownButDisabled()
    {
        GeneEditor *e = kit.Open(kit.Add(2, 1));
        for (QWidget *w : e->Header->findChildren<QWidget *>())
            QVERIFY2(w->focusPolicy() == Qt::NoFocus || !w->isEnabled(), qPrintable(w->objectName()));
    }

    // Close checks both monikers, the father's first, and stores the replacement of a bad one;
    // Repair shows in the boxes at once what Close would store, with the same messages, so
    // that Close has nothing left to say.
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

    // What each combo shows for a stored value, and what Close leaves: a value the list has
    // no item for (Region 5 comes from a load) selects nothing, shows its number in grey and
    // stays; so does a pick beyond a list's last item, which the list has no more of. A pose
    // string takes 15 characters.
    void controls_data()
    {
        EditorTestKit::ControlColumns();
        QTest::newRow("last items, and beyond")
            << 2 << 2 << "04 19 03" << QStringList{"lstRegion=5", "lstVariety=26", "lstGenus=4"}
            << "lstRegion:Tail + create>() | lstVariety:Z->() | lstGenus:Quorrel>()" << "04 19 03";
        QTest::newRow("region 5") << 2 << 2 << "05 0c 01" << QStringList{"lstRegion", "lstVariety", "lstGenus"}
                                  << "lstRegion:(5) | lstVariety:M- | lstGenus:Brannoch" << "05 0c 01";
        const QString poseBody = "07 41 42 43 44 45 46 47 48 49 4a 4b 4c 4d 4e 4f"; // pose 7, "ABCDEFGHIJKLMNO"
        QTest::newRow("pose string") << 2 << 3 << poseBody << QStringList{"txtPose=ABCDEFGHIJKLMNOPQ"}
                                     << "txtPose:ABCDEFGHIJKLMNO>ABCDEFGHIJKLMNO" << poseBody;
    }
    void controls() { kit.CheckControls(); }

    // The pose editor lists the poses as they stand, pose 0's name and empty names included; a
    // shorter string is filled up when the gene is encoded.
    void poseList()
    {
        auto &names = kit.session->Lists.PoseNames;
        names[0] = QStringLiteral("Stand"), names[7] = QString(), names[255] = QStringLiteral("Last");
        Gene *g = kit.Add(2, 3);
        kit.SetBody(g, "07");
        GeneEditor *e = kit.Open(g);
        auto *c = Child<QComboBox>(e, "lstPose");
        QCOMPARE(QStringList({c->itemText(0), c->itemText(255), QString::number(c->count())}),
                 QStringList({"Stand", "Last", "256"}));
        QCOMPARE(kit.Enter(e, {"lstPose", "txtPose=AB DE"}), "lstPose: | txtPose:XXXXXXXXXXXXXXX>AB DE");
        e->btnOk->click();
        QCOMPARE(kit.Body(g), "07 41 42 20 44 45 58 58 58 58 58 58 58 58 58 58");
    }

    // A gait's pose 0 is "<empty>" in every one of its combos, never the name of pose 0; the
    // other items are the names as they stand. A pose renamed while the editor is open keeps
    // its old text there, dropped down or not; the next opening shows the new name.
    void gaitPoses()
    {
        kit.session->Lists.SetPoseDefaults(); // each name its number
        auto &names = kit.session->Lists.PoseNames;
        names[0] = QStringLiteral("Stand"), names[1] = QStringLiteral("Walk"), names[3] = QString();
        Gene *g = kit.Add(2, 4);
        kit.SetBody(g, "0f 01 03 00 00 ff 00 02 01");
        auto *e = kit.Open<frmGait>(g);
        names[2] = QStringLiteral("Renamed");
        e->lstPose[6]->showPopup();
        e->lstPose[6]->hidePopup();
        QStringList got = {QString::number(e->lstDrive->count()), e->lstDrive->itemText(0), e->lstDrive->currentText()};
        for (QComboBox *c : e->lstPose)
            got << c->currentText();
        QCOMPARE(got, QStringList({"16", "Normal gait", "Special gait 15", "Walk", "", "<empty>", "<empty>", "255",
                                   "<empty>", "2", "Walk"}));
        e->btnOk->click();
        QCOMPARE(kit.Open<frmGait>(g)->lstPose[6]->currentText(), QStringLiteral("Renamed"));
    }
};

QTEST_MAIN(TestSpeciesPoseGait)
#include "test_species_pose_gait.moc"
