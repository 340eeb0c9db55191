// The genus, appearance, pose and gait editors: the genus gene's disabled header, its
// moniker checks on Close and by Repair (none on Cancel), values the combos have no item for,
// the pose lists as they stand and the gait's "<empty>", a short pose string, and gait combos
// that keep their texts while open.
#include "EditorTestKit.h"
#include "core/genes/BodyGenes.h"

namespace {

QComboBox *Combo(QWidget *e, const QString &name) { return Child<QComboBox>(e, name); }
QLineEdit *Box(QWidget *e, const QString &name) { return Child<QLineEdit>(e, name); }

} // namespace

class TestSpeciesPoseGait : public QObject
{
    Q_OBJECT
    EditorTestKit kit;

    clsSpecies *AddSpecies()
    {
        auto *g = static_cast<clsSpecies *>(kit.Add(2, 1));
        g->Mum = QStringLiteral("MUMS"), g->Dad = QStringLiteral("DADS");
        return g;
    }
    // Every message shown so far: its style, title and text.
    QStringList Messages() const
    {
        QStringList m;
        for (const ScriptedPrompt::Shown &s : kit.prompt.shown)
            m << QString::number(s.style) + QLatin1Char(' ') + s.title + QLatin1Char(' ') + s.text;
        return m;
    }

private slots:
    void init() { kit.Init(); }
    void cleanup() { kit.Cleanup(); }

    // The header shows the gene's header without taking input; Close still writes back what
    // it shows, so the second sex bit goes as everywhere.
    void speciesHeaderShownButDisabled()
    {
        clsSpecies *g = AddSpecies();
        g->SwitchOn = 3, g->Mutability = 1 | 8 | 16 | 32, g->MutabilityWeighting = 77;
        GeneEditor *e = kit.Open(g);
        QStringList enabled;
        for (const char *name : {"lstSwitchOn", "chkDuplicable", "chkMutable", "txtMutability", "chkRemovable",
                                 "optSex_0", "optSex_1", "optSex_2", "chkIgnore", "lstGenus", "txtFamily_0",
                                 "txtFamily_1", "RepairCommand", "btnOk", "btnCancel", "btnNotes"})
            if (Child<QWidget>(e, QLatin1String(name))->isEnabled())
                enabled << QLatin1String(name);
        QCOMPARE(enabled, QStringList({"lstGenus", "txtFamily_0", "txtFamily_1", "RepairCommand", "btnOk",
                                       "btnCancel", "btnNotes"}));
        QCOMPARE(Combo(e, "lstSwitchOn")->currentText(), QStringLiteral("Youth"));
        QVERIFY(Child<QRadioButton>(e, "optSex_1")->isChecked() && Child<QCheckBox>(e, "chkIgnore")->isChecked());
        QCOMPARE(Box(e, "txtMutability")->text(), QStringLiteral("77"));
        e->btnOk->click();
        QCOMPARE(QList<int>({g->SwitchOn, g->Mutability, g->MutabilityWeighting}), QList<int>({3, 1 | 8 | 32, 77}));
        QVERIFY(kit.prompt.shown.isEmpty());
    }

    void monikersCheckedOnClose_data()
    {
        QTest::addColumn<QString>("mother");
        QTest::addColumn<QString>("father");
        QTest::addColumn<QStringList>("messages");
        QTest::addColumn<QString>("storedMother");
        QTest::addColumn<QString>("storedFather");
        QTest::newRow("mother emptied")
            << "" << "DADS"
            << QStringList{"16 Helixbench Mother's moniker is incorrect length. Should be 4\r\nbut is actually 0 "
                           "characters.\r\nIt has been corrected to: EVE_"}
            << "EVE_" << "DADS";
        QTest::newRow("both short: the father first")
            << "AB" << "XYZ"
            << QStringList{"16 Helixbench Father's moniker is incorrect length. Should be 4\r\nbut is actually 3 "
                           "characters.\r\nIt has been corrected to: ADAM",
                           "16 Helixbench Mother's moniker is incorrect length. Should be 4\r\nbut is actually 2 "
                           "characters.\r\nIt has been corrected to: EVE_"}
            << "EVE_" << "ADAM";
        QTest::newRow("control and high characters")
            << "A\tB\x7f" << QString::fromLatin1("D\xe9\xe9X")
            << QStringList{"16 Helixbench Father's moniker has 2 bad character(s).\r\nIt has been corrected to: ADAM",
                           "16 Helixbench Mother's moniker has 2 bad character(s).\r\nIt has been corrected to: EVE_"}
            << "EVE_" << "ADAM";
        QTest::newRow("any four printable pass") << " ~{ " << "a1_?" << QStringList() << " ~{ " << "a1_?";
    }
    void monikersCheckedOnClose()
    {
        QFETCH(QString, mother);
        QFETCH(QString, father);
        QFETCH(QStringList, messages);
        clsSpecies *g = AddSpecies();
        GeneEditor *e = kit.Open(g);
        Box(e, "txtFamily_0")->setText(mother);
        Box(e, "txtFamily_1")->setText(father);
        for (int i = 0; i < messages.size(); ++i)
            kit.prompt.AnswerMessage(Prompt::Ok);
        e->btnOk->click();
        QCOMPARE(Messages(), messages);
        QFETCH(QString, storedMother);
        QFETCH(QString, storedFather);
        QCOMPARE(g->Mum + "|" + g->Dad, storedMother + "|" + storedFather);
    }

    // Cancel reads no controls, so nothing is checked and nothing is said.
    void cancelChecksNothing()
    {
        clsSpecies *g = AddSpecies();
        GeneEditor *e = kit.Open(g);
        Box(e, "txtFamily_0")->clear();
        Box(e, "txtFamily_1")->setText(QStringLiteral("X"));
        Combo(e, "lstGenus")->setCurrentIndex(2);
        e->btnCancel->click();
        QVERIFY(kit.prompt.shown.isEmpty());
        QCOMPARE(g->Mum + g->Dad + QString::number(g->Genus), QStringLiteral("MUMSDADS0"));
    }

    // Repair puts into the boxes what Close would store, with the same messages in the same
    // order, and leaves the gene alone; the Close after it has nothing left to say.
    void repairShowsWhatCloseStores()
    {
        clsSpecies *g = AddSpecies();
        GeneEditor *e = kit.Open(g);
        Box(e, "txtFamily_0")->setText(QStringLiteral("\x01XYZ"));
        Box(e, "txtFamily_1")->setText(QStringLiteral("AB"));
        kit.prompt.AnswerMessage(Prompt::Ok).AnswerMessage(Prompt::Ok);
        Child<QPushButton>(e, "RepairCommand")->click();
        QCOMPARE(Messages(),
                 QStringList({"16 Helixbench Father's moniker is incorrect length. Should be 4\r\nbut is actually 2 "
                              "characters.\r\nIt has been corrected to: ADAM",
                              "16 Helixbench Mother's moniker has 1 bad character(s).\r\nIt has been corrected to: EVE_"}));
        QCOMPARE(Box(e, "txtFamily_0")->text() + Box(e, "txtFamily_1")->text(), QStringLiteral("EVE_ADAM"));
        QCOMPARE(g->Mum + g->Dad, QStringLiteral("MUMSDADS"));

        // A good moniker stays as it is.
        Box(e, "txtFamily_0")->setText(QStringLiteral("ma_1"));
        Child<QPushButton>(e, "RepairCommand")->click();
        QCOMPARE(Box(e, "txtFamily_0")->text(), QStringLiteral("ma_1"));

        Combo(e, "lstGenus")->setCurrentIndex(3);
        e->btnOk->click();
        QCOMPARE(kit.prompt.shown.size(), 2);
        QCOMPARE(g->Mum + g->Dad + QString::number(g->Genus), QStringLiteral("ma_1ADAM3"));
    }

    // Stored values each combo shows, and what Close without a touch leaves: a value the list
    // has no item for (Region 5 comes from a load; the others only from memory) selects
    // nothing, shows its number in grey and stays.
    void appearanceShowsAndKeeps_data()
    {
        QTest::addColumn<QList<int>>("values"); // Region, Variety, Genus
        QTest::addColumn<QStringList>("shown"); // text or, with nothing selected, the grey number
        QTest::newRow("first items") << QList<int>{0, 0, 0} << QStringList{"Head", "A-", "Melk"};
        QTest::newRow("last items") << QList<int>{4, 25, 3} << QStringList{"Tail + create", "Z-", "Quorrel"};
        QTest::newRow("region 5") << QList<int>{5, 12, 1} << QStringList{"(5)", "M-", "Brannoch"};
        QTest::newRow("beyond every list") << QList<int>{255, 26, 4} << QStringList{"(255)", "(26)", "(4)"};
    }
    void appearanceShowsAndKeeps()
    {
        QFETCH(QList<int>, values);
        QFETCH(QStringList, shown);
        auto *g = static_cast<clsAppearance *>(kit.Add(2, 2));
        g->Region = quint8(values[0]), g->Variety = quint8(values[1]), g->Genus = quint8(values[2]);
        GeneEditor *e = kit.Open(g);
        QStringList got;
        for (const char *name : {"lstRegion", "lstVariety", "lstGenus"}) {
            QComboBox *c = Combo(e, QLatin1String(name));
            got << (c->currentIndex() >= 0 ? c->currentText() : "(" + c->placeholderText() + ")");
        }
        QCOMPARE(got, shown);
        QCOMPARE(QList<int>({Combo(e, "lstRegion")->count(), Combo(e, "lstVariety")->count(), Combo(e, "lstGenus")->count()}),
                 QList<int>({5, 26, 4}));
        e->btnOk->click();
        QCOMPARE(QList<int>({g->Region, g->Variety, g->Genus}), values);
    }

    // The pose list as it stands, pose 0's name and empty names included.
    void poseListAsItStands()
    {
        auto &names = kit.session->Lists.PoseNames;
        names[0] = QStringLiteral("Stand"), names[7] = QString(), names[255] = QStringLiteral("Last");
        auto *g = static_cast<clsPose *>(kit.Add(2, 3));
        g->pose = 7;
        GeneEditor *e = kit.Open(g);
        QComboBox *list = Combo(e, "lstPose");
        QCOMPARE(QStringList({QString::number(list->count()), QString::number(list->currentIndex()), list->currentText(),
                              list->itemText(0), list->itemText(255)}),
                 QStringList({"256", "7", "", "Stand", "Last"}));
    }

    // The box takes 15 characters; a shorter string is stored as typed and filled up with
    // "X" only when the genome is encoded.
    void shortPoseStringFilledOnEncode()
    {
        auto *g = static_cast<clsPose *>(kit.Add(2, 3));
        g->PoseString = QStringLiteral("ABCDEFGHIJKLMNO");
        GeneEditor *e = kit.Open(g);
        QLineEdit *box = Box(e, "txtPose");
        QCOMPARE(box->text() + " " + QString::number(box->maxLength()), g->PoseString + " 15");
        box->setText(QStringLiteral("AB DE"));
        e->btnOk->click();
        QCOMPARE(g->PoseString, QStringLiteral("AB DE"));
        kit.session->EncodeGenome();
        QCOMPARE(g->PoseString, QStringLiteral("AB DEXXXXXXXXXX"));
    }

    // A gait's pose 0 is "<empty>" in every one of its combos, never the name of pose 0,
    // which the pose editor does show; the other items are the names as they stand.
    void gaitPosesStartWithEmpty()
    {
        kit.session->Lists.SetPoseDefaults(); // each name its number
        auto &names = kit.session->Lists.PoseNames;
        names[0] = QStringLiteral("Stand"), names[1] = QStringLiteral("Walk"), names[3] = QString();
        auto *g = static_cast<clsGait *>(kit.Add(2, 4));
        g->Drive = 15;
        const quint8 anim[8] = {1, 3, 0, 0, 255, 0, 2, 1};
        std::copy(anim, anim + 8, g->Anim);
        GeneEditor *e = kit.Open(g);
        QStringList shown, zero;
        for (int i = 0; i < 8; ++i) {
            shown << Combo(e, QStringLiteral("lstPose_%1").arg(i))->currentText();
            zero << Combo(e, QStringLiteral("lstPose_%1").arg(i))->itemText(0);
        }
        QCOMPARE(shown, QStringList({"Walk", "", "<empty>", "<empty>", "255", "<empty>", "2", "Walk"}));
        QCOMPARE(zero, QStringList(8, QStringLiteral("<empty>")));
        QComboBox *drive = Combo(e, "lstDrive");
        QCOMPARE(QStringList({QString::number(drive->count()), drive->itemText(0), drive->itemText(1), drive->currentText()}),
                 QStringList({"16", "Normal gait", "Special gait 1", "Special gait 15"}));
        QCOMPARE(Combo(kit.Open(kit.Add(2, 3)), "lstPose")->itemText(0), QStringLiteral("Stand"));

        Combo(e, "lstPose_3")->setCurrentIndex(9);
        drive->setCurrentIndex(0);
        e->btnOk->click();
        QCOMPARE(QList<int>({g->Drive, g->Anim[2], g->Anim[3], g->Anim[4]}), QList<int>({0, 0, 9, 255}));
    }

    // A pose renamed while the gait editor is open keeps its old text there, dropped down or
    // not; the next opening shows the new name.
    void gaitCombosDoNotRefill()
    {
        auto &names = kit.session->Lists.PoseNames;
        names[5] = QStringLiteral("Old");
        auto *g = static_cast<clsGait *>(kit.Add(2, 4));
        g->Anim[2] = 5;
        GeneEditor *e = kit.Open(g);
        names[5] = QStringLiteral("New");
        QComboBox *c = Combo(e, "lstPose_2");
        c->showPopup();
        c->hidePopup();
        QCOMPARE(c->currentText() + c->itemText(5) + Combo(e, "lstPose_0")->itemText(5), QStringLiteral("OldOldOld"));
        e->btnOk->click();
        QCOMPARE(int(g->Anim[2]), 5);
        QCOMPARE(Combo(kit.Open(g), "lstPose_2")->currentText(), QStringLiteral("New"));
    }
};

QTEST_MAIN(TestSpeciesPoseGait)
#include "test_species_pose_gait.moc"
