// The reaction, half-life and initial concentration editors: which control shows which place
// of a reaction, the rate's rounding on opening and what Close stores, amounts typed as text,
// the half-life list's click and slider handlers and the numbers they leave, and which
// chemical lists keep up with renamed chemicals.
#include "EditorTestKit.h"
#include "core/genes/Biochemistry.h"
#include "editors/EditorCommon.h"
#include "editors/frmHalfLives.h"
#include "editors/frmInject.h"
#include "editors/frmReaction.h"

#include <QScrollBar>

class TestChemistryEditors : public QObject
{
    Q_OBJECT
    EditorTestKit kit;

    clsReaction *AddReaction() { return static_cast<clsReaction *>(kit.Add(1, 2)); }
    clsHalfLives *AddHalfLives() { return static_cast<clsHalfLives *>(kit.Add(1, 3)); }
    QString Status() const { return kit.session->StatusPanel[2]; }

    static QListWidget *List(QWidget *e) { return Child<QListWidget>(e, QStringLiteral("lstChem")); }
    static QScrollBar *Bar(QWidget *e, const char *name) { return Child<QScrollBar>(e, QLatin1String(name)); }
    static QString Caption(QWidget *e) { return Child<QLabel>(e, QStringLiteral("txtHalfLife"))->text(); }
    static int Kept(QListWidget *list, int row) { return list->item(row)->data(frmHalfLives::KeptNumberRole).toInt(); }
    // A mouse click on a row of the list.
    static void ClickRow(QListWidget *list, int row)
    {
        list->scrollToItem(list->item(row));
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->item(row)).center());
    }

private slots:
    void init() { kit.Init(); }
    void cleanup() { kit.Cleanup(); }

    // Each place has its own box and combo: reactants 0 and 1, products 2 and 3.
    void reactionPlaces()
    {
        clsReaction *g = AddReaction();
        const quint8 conc[4] = {2, 16, 9, 1}, chem[4] = {255, 7, 0, 128};
        for (int i = 0; i < 4; ++i)
            g->Conc[i] = conc[i], g->Chem[i] = chem[i];
        kit.session->Lists.ChemicalNames[128] = QStringLiteral("Glycogen");
        auto *e = kit.Open<frmReaction>(g);
        QVERIFY(e);
        QCOMPARE(Child<QLabel>(e, "OrganIDLabel")->text(), QStringLiteral("[no organ] "));
        QString shown;
        for (int i = 0; i < 4; ++i) {
            auto *box = Child<QLineEdit>(e, QStringLiteral("txtConc_%1").arg(i));
            auto *combo = Child<QComboBox>(e, QStringLiteral("lstChem_%1").arg(i));
            shown += box->text() + '*' + QString::number(combo->currentIndex()) + ' ';
        }
        QCOMPARE(shown, QStringLiteral("2*255 16*7 9*0 1*128 "));
        QCOMPARE(e->lstChem[3]->currentText(), QStringLiteral("Glycogen"));

        e->txtConc[1]->setText(QStringLiteral("3"));
        e->lstChem[2]->setCurrentIndex(40);
        e->btnOk->click();
        QCOMPARE(QList<int>({g->Conc[0], g->Chem[0], g->Conc[1], g->Chem[1], g->Conc[2], g->Chem[2], g->Conc[3], g->Chem[3]}),
                 QList<int>({2, 255, 3, 7, 9, 40, 1, 128}));
    }

    // An amount box takes any text and is not tidied while typed; Close stores its leading
    // number rounded half to even and held within a byte.
    void reactionAmountText_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<int>("stored");
        QTest::newRow("in file range") << "16" << 16;
        QTest::newRow("beyond file range") << "200" << 200;
        QTest::newRow("beyond a byte") << "300" << 255;
        QTest::newRow("negative") << "-2" << 0;
        QTest::newRow("half to even") << "2.5" << 2;
        QTest::newRow("leading number") << "7 moles" << 7;
        QTest::newRow("no number") << "abc" << 0;
        QTest::newRow("empty") << "" << 0;
    }
    void reactionAmountText()
    {
        QFETCH(QString, typed);
        QFETCH(int, stored);
        clsReaction *g = AddReaction();
        g->Conc[3] = 5;
        auto *e = kit.Open<frmReaction>(g);
        e->txtConc[3]->setText(typed);
        QCOMPARE(e->txtConc[3]->text(), typed);
        e->btnOk->click();
        QCOMPARE(int(g->Conc[3]), stored);
    }

    // The rate shows at its eighth rounded half to even and comes back as position * 8; a rate
    // that rounds past the last position stands there and is kept until the slider moves.
    void reactionRate_data()
    {
        QTest::addColumn<int>("rate");
        QTest::addColumn<int>("position");
        QTest::addColumn<int>("stored");
        QTest::newRow("0") << 0 << 0 << 0;
        QTest::newRow("4 rounds down to even") << 4 << 0 << 0;
        QTest::newRow("12 rounds up to even") << 12 << 2 << 16;
        QTest::newRow("20 rounds down to even") << 20 << 2 << 16;
        QTest::newRow("28 rounds up to even") << 28 << 4 << 32;
        QTest::newRow("9") << 9 << 1 << 8;
        QTest::newRow("default 32") << 32 << 4 << 32;
        QTest::newRow("248") << 248 << 31 << 248;
        QTest::newRow("251") << 251 << 31 << 248;
        QTest::newRow("252 kept") << 252 << 31 << 252;
        QTest::newRow("255 kept") << 255 << 31 << 255;
    }
    void reactionRate()
    {
        QFETCH(int, rate);
        QFETCH(int, position);
        QFETCH(int, stored);
        clsReaction *g = AddReaction();
        g->Rate = quint8(rate);
        auto *e = kit.Open<frmReaction>(g);
        QCOMPARE(e->scrRate->value(), position);
        e->btnOk->click();
        QCOMPARE(int(g->Rate), stored);
    }

    void reactionRateMoved()
    {
        clsReaction *g = AddReaction();
        g->Rate = 255;
        auto *e = kit.Open<frmReaction>(g);
        QCOMPARE(Status(), QStringLiteral("Slider: 248 (Max to 0 in apprx. 52 years)"));
        // Moved away and back, the slider's own value goes in.
        e->scrRate->setValue(30);
        e->scrRate->setValue(31);
        e->btnOk->click();
        QCOMPARE(int(g->Rate), 248);

        // At the right end: "Instantly", stored as 0.
        auto *again = kit.Open<frmReaction>(g);
        again->scrRate->setValue(0);
        QCOMPARE(Status(), QStringLiteral("Slider: 0 (Max to 0 in apprx. Instantly)"));
        again->btnOk->click();
        QCOMPARE(int(g->Rate), 0);
    }

    // After opening, chemical 0 is selected but its number is not shown; the first click on
    // any row, the selected one too, shows it.
    void halfLivesAfterOpening()
    {
        clsHalfLives *g = AddHalfLives();
        g->HalfLife[0] = 255;
        auto *e = kit.Open<frmHalfLives>(g);
        QListWidget *list = List(e);
        QCOMPARE(list->count(), 256);
        QCOMPARE(list->currentRow(), 0);
        QCOMPARE(e->scrSet->value(), 0);
        QCOMPARE(Caption(e), QStringLiteral("0"));
        QCOMPARE(Kept(list, 0), 255);

        ClickRow(list, 0);
        QCOMPARE(e->scrSet->value(), 31);
        QCOMPARE(Caption(e), QStringLiteral("248"));
        QCOMPARE(Kept(list, 0), 248);
        e->btnOk->click();
        QCOMPARE(int(g->HalfLife[0]), 248);
    }

    // A click moves the slider to the number / 8, cut off. A moved slider rounds the number
    // down to a multiple of 8; a slider that stays leaves it, while the caption shows the
    // slider's value. Rows never selected keep their numbers.
    void halfLivesClicks()
    {
        clsHalfLives *g = AddHalfLives();
        const int numbers[6] = {255, 20, 23, 7, 5, 131};
        for (int i = 0; i < 6; ++i)
            g->HalfLife[i] = quint8(numbers[i]);
        g->HalfLife[200] = 201;
        auto *e = kit.Open<frmHalfLives>(g);
        QListWidget *list = List(e);

        // row clicked, then slider position, caption and the row's kept number
        const struct { int row, position; const char *caption; int kept; } steps[] = {
            {1, 2, "16", 16},   // 20 moves the slider: rounded down
            {2, 2, "16", 23},   // 23, same band: no move, kept as it is
            {0, 31, "248", 248}, // 255
            {3, 0, "0", 0},      // 7 moves the slider back to 0
            {4, 0, "0", 5},      // 5, same band
        };
        for (const auto &s : steps) {
            ClickRow(list, s.row);
            QCOMPARE(list->currentRow(), s.row);
            QCOMPARE(e->scrSet->value(), s.position);
            QCOMPARE(Caption(e), QLatin1String(s.caption));
            QCOMPARE(Kept(list, s.row), s.kept);
        }
        // The keys select as the mouse does.
        QTest::keyClick(list, Qt::Key_Down);
        QCOMPARE(list->currentRow(), 5);
        QCOMPARE(e->scrSet->value(), 16);
        QCOMPARE(Status(), QStringLiteral("Slider: 128 (Max to 0 in apprx. 5 hrs)"));
        // Ctrl+click does not unmark the row the slider works on.
        QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::ControlModifier, list->visualItemRect(list->item(5)).center());
        QCOMPARE(list->selectedItems(), QList<QListWidgetItem *>({list->item(5)}));

        e->btnOk->click();
        QCOMPARE(QList<int>({g->HalfLife[0], g->HalfLife[1], g->HalfLife[2], g->HalfLife[3], g->HalfLife[4],
                             g->HalfLife[5], g->HalfLife[200], g->HalfLife[6], g->HalfLife[255]}),
                 QList<int>({248, 16, 23, 0, 5, 128, 201, 255, 0}));
    }

    // The slider writes into the selected row: before any click, chemical 0. Cancel drops it.
    void halfLivesSlider()
    {
        clsHalfLives *g = AddHalfLives();
        g->HalfLife[0] = 3, g->HalfLife[9] = 99;
        auto *e = kit.Open<frmHalfLives>(g);
        e->scrSet->setValue(3);
        QCOMPARE(Caption(e), QStringLiteral("24"));
        QCOMPARE(Status(), QStringLiteral("Slider: 24 (Max to 0 in apprx. 3 secs)"));
        ClickRow(List(e), 9);
        e->scrSet->setValue(31);
        e->btnOk->click();
        QCOMPARE(QList<int>({g->HalfLife[0], g->HalfLife[9]}), QList<int>({24, 248}));

        auto *again = kit.Open<frmHalfLives>(g);
        ClickRow(List(again), 9);
        again->scrSet->setValue(0);
        again->btnCancel->click();
        QCOMPARE(int(g->HalfLife[9]), 248);
    }

    // Chemical combos fill themselves anew when dropped down and keep their chemical; the
    // half-life list is filled once and shows the new name only in a new editor.
    void renamedChemicals_data()
    {
        QTest::addColumn<int>("subType");
        QTest::addColumn<QString>("combo");
        QTest::newRow("reactant 0") << 2 << "lstChem_0";
        QTest::newRow("product 1") << 2 << "lstChem_3";
        QTest::newRow("initial concentration") << 4 << "lstChem";
    }
    void renamedChemicals()
    {
        QFETCH(int, subType);
        QFETCH(QString, combo);
        Gene *g = kit.Add(1, subType);
        if (subType == 2)
            static_cast<clsReaction *>(g)->Chem[3] = 17, static_cast<clsReaction *>(g)->Chem[0] = 17;
        else
            static_cast<clsInject *>(g)->Chem = 17;
        auto *c = Child<QComboBox>(kit.Open(g), combo);
        QCOMPARE(c->currentText(), QStringLiteral("17"));
        kit.session->Lists.ChemicalNames[17] = QStringLiteral("Starch");
        c->showPopup();
        QCOMPARE(c->currentText(), QStringLiteral("Starch"));
        QCOMPARE(c->currentIndex(), 17);
        c->hidePopup();
    }
    void halfLivesListDoesNotRefill()
    {
        clsHalfLives *g = AddHalfLives();
        QListWidget *list = List(kit.Open(g));
        kit.session->Lists.ChemicalNames[17] = QStringLiteral("Starch");
        ClickRow(list, 17);
        QCOMPARE(list->item(17)->text(), QStringLiteral("17"));
        g->View->RequestClose();
        FlushDeletes();
        QCOMPARE(List(kit.Open(g))->item(17)->text(), QStringLiteral("Starch"));
    }

    void inject()
    {
        auto *g = static_cast<clsInject *>(kit.Add(1, 4));
        g->Chem = 200, g->Conc = 77;
        auto *e = kit.Open<frmInject>(g);
        QVERIFY(!e->findChild<QLabel *>(QStringLiteral("OrganIDLabel")));
        QCOMPARE(e->lstChem->currentIndex(), 200);
        QCOMPARE(Bar(e, "scrConc")->value(), 77);
        QCOMPARE(Status(), QStringLiteral("Slider: 77"));
        QCOMPARE(Bar(e, "scrConc")->pageStep(), 16);
        e->lstChem->setCurrentIndex(3);
        Bar(e, "scrConc")->setValue(255);
        e->btnOk->click();
        QCOMPARE(QList<int>({g->Chem, g->Conc}), QList<int>({3, 255}));
    }
};

QTEST_MAIN(TestChemistryEditors)
#include "test_chemistry_editors.moc"
