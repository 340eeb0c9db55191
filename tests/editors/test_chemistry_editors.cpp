// The reaction, half-life and initial concentration editors: which control shows which place
// of a reaction, the rate's rounding on opening and what Close stores, amounts typed as text,
// the half-life list's click and slider handlers and the numbers they leave, and chemical
// combos that keep up with renamed chemicals.
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

    static QListWidget *List(QWidget *e) { return Child<QListWidget>(e, QStringLiteral("lstChem")); }
    static QScrollBar *Bar(QWidget *e, const char *name) { return Child<QScrollBar>(e, QLatin1String(name)); }
    // The selected row, the slider's position, the caption and the number kept for the row.
    static QString State(QWidget *e)
    {
        QListWidget *list = List(e);
        const int row = list->currentRow();
        return QStringLiteral("row %1 at %2 shows %3 keeps %4")
            .arg(row)
            .arg(Bar(e, "scrSet")->value())
            .arg(Child<QLabel>(e, QStringLiteral("txtHalfLife"))->text())
            .arg(list->item(row)->data(frmHalfLives::KeptNumberRole).toInt());
    }
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
        QCOMPARE(Child<QLabel>(e, "OrganIDLabel")->text(), QStringLiteral("[no organ] "));
        QString shown;
        for (int i = 0; i < 4; ++i)
            shown += Child<QLineEdit>(e, QStringLiteral("txtConc_%1").arg(i))->text() + '*'
                     + Child<QComboBox>(e, QStringLiteral("lstChem_%1").arg(i))->currentText() + ' ';
        QCOMPARE(shown, QStringLiteral("2*255 16*7 9*<nothing> 1*Glycogen "));

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
        QTest::newRow("beyond file range") << "200" << 200;
        QTest::newRow("beyond a byte") << "300" << 255;
        QTest::newRow("negative") << "-2" << 0;
        QTest::newRow("half to even") << "2.5" << 2;
        QTest::newRow("leading number") << "7 moles" << 7;
        QTest::newRow("no number") << "abc" << 0;
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

    // Moved away and back, the slider's own value goes in for a rate it could not show.
    void reactionRateMoved()
    {
        clsReaction *g = AddReaction();
        g->Rate = 255;
        auto *e = kit.Open<frmReaction>(g);
        e->scrRate->setValue(30);
        e->scrRate->setValue(31);
        e->btnOk->click();
        QCOMPARE(int(g->Rate), 248);
    }

    // After opening, chemical 0 is selected but its number is not shown; a click on any row,
    // the selected one too, shows it. The slider writes into the selected row.
    void halfLivesAfterOpening()
    {
        clsHalfLives *g = AddHalfLives();
        g->HalfLife[0] = 255, g->HalfLife[9] = 99;
        auto *e = kit.Open<frmHalfLives>(g);
        QCOMPARE(List(e)->count(), 256);
        QCOMPARE(State(e), QStringLiteral("row 0 at 0 shows 0 keeps 255"));
        ClickRow(List(e), 0);
        QCOMPARE(State(e), QStringLiteral("row 0 at 31 shows 248 keeps 248"));
        e->btnCancel->click();

        // Before any click, the slider writes into chemical 0.
        e = kit.Open<frmHalfLives>(g);
        e->scrSet->setValue(3);
        QCOMPARE(State(e), QStringLiteral("row 0 at 3 shows 24 keeps 24"));
        ClickRow(List(e), 9);
        e->scrSet->setValue(31);
        e->btnOk->click();
        QCOMPARE(QList<int>({g->HalfLife[0], g->HalfLife[9]}), QList<int>({24, 248}));
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
        const std::pair<int, const char *> steps[] = {
            {1, "row 1 at 2 shows 16 keeps 16"},     // 20 moves the slider: rounded down
            {2, "row 2 at 2 shows 16 keeps 23"},     // same band: no move, kept as it is
            {0, "row 0 at 31 shows 248 keeps 248"},  // 255
            {3, "row 3 at 0 shows 0 keeps 0"},       // 7 moves the slider back to 0
            {4, "row 4 at 0 shows 0 keeps 5"},       // same band
        };
        for (auto [row, state] : steps) {
            ClickRow(list, row);
            QCOMPARE(State(e), QLatin1String(state));
        }
        // The keys select as the mouse does; Ctrl+click does not unmark the row the slider
        // works on.
        QTest::keyClick(list, Qt::Key_Down);
        QCOMPARE(State(e), QStringLiteral("row 5 at 16 shows 128 keeps 128"));
        QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::ControlModifier, list->visualItemRect(list->item(5)).center());
        QCOMPARE(list->selectedItems(), QList<QListWidgetItem *>({list->item(5)}));

        e->btnOk->click();
        QCOMPARE(QList<int>({g->HalfLife[0], g->HalfLife[1], g->HalfLife[2], g->HalfLife[3], g->HalfLife[4],
                             g->HalfLife[5], g->HalfLife[200], g->HalfLife[6], g->HalfLife[255]}),
                 QList<int>({248, 16, 23, 0, 5, 128, 201, 255, 0}));
    }

    // Chemical combos fill themselves anew when dropped down and keep their chemical.
    void renamedChemicals_data()
    {
        QTest::addColumn<int>("subType");
        QTest::addColumn<QString>("combo");
        QTest::newRow("product 1") << 2 << "lstChem_3";
        QTest::newRow("initial concentration") << 4 << "lstChem";
    }
    void renamedChemicals()
    {
        QFETCH(int, subType);
        QFETCH(QString, combo);
        Gene *g = kit.Add(1, subType);
        (subType == 2 ? static_cast<clsReaction *>(g)->Chem[3] : static_cast<clsInject *>(g)->Chem) = 17;
        auto *c = Child<QComboBox>(kit.Open(g), combo);
        QCOMPARE(c->currentText(), QStringLiteral("17"));
        kit.session->Lists.ChemicalNames[17] = QStringLiteral("Starch");
        c->showPopup();
        QCOMPARE(c->currentText() + ' ' + QString::number(c->currentIndex()), QStringLiteral("Starch 17"));
        c->hidePopup();
    }
    void inject()
    {
        auto *g = static_cast<clsInject *>(kit.Add(1, 4));
        g->Chem = 200, g->Conc = 77;
        auto *e = kit.Open<frmInject>(g);
        QVERIFY(!e->findChild<QLabel *>(QStringLiteral("OrganIDLabel")));
        QCOMPARE(QList<int>({e->lstChem->currentIndex(), Bar(e, "scrConc")->value()}), QList<int>({200, 77}));
        e->lstChem->setCurrentIndex(3);
        Bar(e, "scrConc")->setValue(255);
        e->btnOk->click();
        QCOMPARE(QList<int>({g->Chem, g->Conc}), QList<int>({3, 255}));
    }
};

QTEST_MAIN(TestChemistryEditors)
#include "test_chemistry_editors.moc"
