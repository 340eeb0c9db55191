// The genus, appearance, pose and gait editors: the genus gene's disabled header, its
// moniker checks on Close and by Repair (none on Cancel), values the combos have no item for,
// the pose lists as they stand and the gait's "<empty>", a short pose string, and gait combos
// that keep their texts while open.
#include "EditorTestKit.h"
#include "editors/frmAppearance.h"
#include "editors/frmGait.h"
#include "editors/frmPose.h"
#include "editors/frmSpecies.h"

// The button that ends the editing, the monikers typed (mother|father), the messages and what is stored.
struct MonikerRow { QString button, typed; QStringList messages; QString stored; };
Q_DECLARE_METATYPE(MonikerRow)

class TestSpeciesPoseGait : public QObject
{
    Q_OBJECT
    EditorTestKit kit;

    // The message of a bad moniker: the parent, what is wrong with it, and its replacement.
    static QString Fixed(const QString &who, const QString &fault)
    {
        return who + "'s moniker " + fault + ".\r\nIt has been corrected to: " + (who == "Father" ? "ADAM" : "EVE_");
    }

private slots:
    void init() { kit.Init(); }
    void cleanup() { kit.Cleanup(); }

    // The header shows the gene's header without taking input; Close still writes back what
    // it shows, so the second sex bit goes as everywhere.
    void speciesHeaderShownButDisabled()
    {
        auto *g = static_cast<clsSpecies *>(kit.Add(2, 1));
        g->SwitchOn = 3, g->Mutability = 1 | 8 | 16 | 32, g->MutabilityWeighting = 77;
        auto *e = kit.Open<frmSpecies>(g);
        for (const char *name : {"lstSwitchOn", "chkDuplicable", "chkMutable", "txtMutability", "chkRemovable",
                                 "optSex_0", "optSex_1", "optSex_2", "chkIgnore"})
            QVERIFY2(!Child<QWidget>(e, QLatin1String(name))->isEnabled(), name);
        e->btnOk->click();
        QCOMPARE(QList<int>({g->SwitchOn, g->Mutability, g->MutabilityWeighting}), QList<int>({3, 1 | 8 | 32, 77}));
    }

    // Close checks both monikers, the father first, and stores the replacement of a bad one;
    // Repair shows in the boxes at once what Close would store, with the same messages, so
    // that Close has nothing left to say; Cancel checks nothing and stores nothing.
    void monikers_data()
    {
        QTest::addColumn<MonikerRow>("row");
        const QString length = "is incorrect length. Should be 4\r\nbut is actually %1 characters";
        QTest::newRow("emptied") << MonikerRow{"Close", "|DADS", {Fixed("Mother", length.arg(0))}, "EVE_|DADS"};
        QTest::newRow("father first, bad characters") << MonikerRow{"Close", QString::fromLatin1("A\tB\x7f|D\xe9\xe9X"),
            {Fixed("Father", "has 2 bad character(s)"), Fixed("Mother", "has 2 bad character(s)")}, "EVE_|ADAM"};
        QTest::newRow("any four printable pass") << MonikerRow{"Close", " ~{ |a1_?", {}, " ~{ |a1_?"};
        QTest::newRow("repair, father first") << MonikerRow{"Repair", "\x01XYZ|AB",
            {Fixed("Father", length.arg(2)), Fixed("Mother", "has 1 bad character(s)")}, "EVE_|ADAM"};
        QTest::newRow("cancel") << MonikerRow{"Cancel", "|X", {}, "MUMS|DADS"};
    }
    void monikers()
    {
        QFETCH(MonikerRow, row);
        auto *g = static_cast<clsSpecies *>(kit.Add(2, 1));
        g->Mum = QStringLiteral("MUMS"), g->Dad = QStringLiteral("DADS");
        auto *e = kit.Open<frmSpecies>(g);
        e->txtFamily[0]->setText(row.typed.section('|', 0, 0));
        e->txtFamily[1]->setText(row.typed.section('|', 1));
        for (int i = 0; i < row.messages.size(); ++i)
            kit.prompt.AnswerMessage(Prompt::Ok);
        if (row.button == "Repair") {
            e->RepairCommand->click();
            QCOMPARE(e->txtFamily[0]->text() + "|" + e->txtFamily[1]->text(), row.stored);
            QCOMPARE(g->Mum + g->Dad, QStringLiteral("MUMSDADS"));
        }
        (row.button == "Cancel" ? e->btnCancel : e->btnOk)->click();
        QCOMPARE(kit.prompt.MessageTexts(), row.messages);
        QCOMPARE(g->Mum + "|" + g->Dad, row.stored);
    }

    // What each combo shows for a stored value, and what Close without a touch leaves: a value
    // the list has no item for (Region 5 comes from a load; the others only from memory)
    // selects nothing, shows its number in grey and stays.
    void appearanceShowsAndKeeps_data()
    {
        QTest::addColumn<QList<int>>("values"); // Region, Variety, Genus
        QTest::addColumn<QStringList>("shown");
        QTest::newRow("last items") << QList<int>{4, 25, 3} << QStringList{"Tail + create", "Z-", "Quorrel"};
        QTest::newRow("region 5") << QList<int>{5, 12, 1} << QStringList{"(5)", "M-", "Brannoch"};
        QTest::newRow("beyond every list") << QList<int>{255, 26, 4} << QStringList{"(255)", "(26)", "(4)"};
    }
    void appearanceShowsAndKeeps()
    {
        QFETCH(QList<int>, values);
        auto *g = static_cast<clsAppearance *>(kit.Add(2, 2));
        g->Region = quint8(values[0]), g->Variety = quint8(values[1]), g->Genus = quint8(values[2]);
        auto *e = kit.Open<frmAppearance>(g);
        QTEST(QStringList({ComboShown(e->lstRegion), ComboShown(e->lstVariety), ComboShown(e->lstGenus)}), "shown");
        e->btnOk->click();
        QCOMPARE(QList<int>({g->Region, g->Variety, g->Genus}), values);
    }

    // The pose editor lists the poses as they stand, pose 0's name and empty names included;
    // its string box takes 15 characters, and a shorter string is stored as typed (the gene
    // fills it up only when it is encoded).
    void poseListAndShortString()
    {
        auto &names = kit.session->Lists.PoseNames;
        names[0] = QStringLiteral("Stand"), names[7] = QString(), names[255] = QStringLiteral("Last");
        auto *g = static_cast<clsPose *>(kit.Add(2, 3));
        g->pose = 7;
        auto *e = kit.Open<frmPose>(g);
        QComboBox *c = e->lstPose;
        QCOMPARE(c->currentText() + "|" + c->itemText(0) + "|" + c->itemText(255), QStringLiteral("|Stand|Last"));
        QCOMPARE(QList<int>({c->count(), c->currentIndex(), e->txtPose->maxLength()}), QList<int>({256, 7, 15}));
        e->txtPose->setText(QStringLiteral("AB DE"));
        e->btnOk->click();
        QCOMPARE(g->PoseString, QStringLiteral("AB DE"));
    }

    // A gait's pose 0 is "<empty>" in every one of its combos, never the name of pose 0; the
    // other items are the names as they stand. A pose renamed while the editor is open keeps
    // its old text there, dropped down or not; the next opening shows the new name.
    void gaitPoses()
    {
        kit.session->Lists.SetPoseDefaults(); // each name its number
        auto &names = kit.session->Lists.PoseNames;
        names[0] = QStringLiteral("Stand"), names[1] = QStringLiteral("Walk"), names[3] = QString();
        auto *g = static_cast<clsGait *>(kit.Add(2, 4));
        const quint8 anim[8] = {1, 3, 0, 0, 255, 0, 2, 1};
        g->Drive = 15, std::copy(anim, anim + 8, g->Anim);
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
