// The reaction, half-life and initial concentration editors: which control shows which place
// of a reaction, the rate's rounding on opening and what Close stores, amounts typed as text,
// the half-life list's click and slider handlers and the numbers they leave.
#include "EditorTestKit.h"
#include "editors/EditorCommon.h"
#include "editors/frmHalfLives.h"
#include "editors/frmInject.h"
#include "editors/frmReaction.h"

struct RateRow { int rate, position; bool moved; int storedRate; QString typed; int storedAmount; };
Q_DECLARE_METATYPE(RateRow)

class TestChemistryEditors : public QObject
{
    Q_OBJECT
    EditorTestKit kit;

    clsReaction *AddReaction() { return static_cast<clsReaction *>(kit.Add(1, 2)); }

    // The selected row, the slider's position, the caption and the number kept for the row.
    static QString State(frmHalfLives *e)
    {
        const int row = e->lstChem->currentRow();
        return QStringLiteral("row %1 at %2 shows %3 keeps %4")
            .arg(row).arg(e->scrSet->value()).arg(e->txtHalfLife->text()).arg(e->KeptNumber(row));
    }
    // A mouse click on a row of the list (one of the first few, which show without scrolling).
    static void ClickRow(QListWidget *list, int row)
    {
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
        std::copy(conc, conc + 4, g->Conc), std::copy(chem, chem + 4, g->Chem);
        kit.session->Lists.ChemicalNames[128] = QStringLiteral("Glycogen");
        auto *e = kit.Open<frmReaction>(g);
        QString shown;
        for (int i = 0; i < 4; ++i)
            shown += e->txtConc[i]->text() + '*' + e->lstChem[i]->currentText() + ' ';
        QCOMPARE(shown, QStringLiteral("2*255 16*7 9*<nothing> 1*Glycogen "));
        e->txtConc[1]->setText(QStringLiteral("3"));
        e->lstChem[2]->setCurrentIndex(40);
        e->btnOk->click();
        QCOMPARE(QList<int>({g->Conc[0], g->Chem[0], g->Conc[1], g->Chem[1], g->Conc[2], g->Chem[2], g->Conc[3], g->Chem[3]}),
                 QList<int>({2, 255, 3, 7, 9, 40, 1, 128}));
    }

    // The rate shows at its eighth rounded half to even and comes back as position * 8; a rate
    // that rounds past the last position stands there and is kept until the slider moves.
    // An amount box takes any text; Close stores its leading number rounded half to even and
    // held within a byte.
    void reactionRateAndAmount_data()
    {
        QTest::addColumn<RateRow>("row");
        QTest::newRow("rate 4, amount -2") << RateRow{4, 0, false, 0, "-2", 0};
        QTest::newRow("rate 12, amount 300") << RateRow{12, 2, false, 16, "300", 255};
        QTest::newRow("rate 20, amount 2.5") << RateRow{20, 2, false, 16, "2.5", 2};
        QTest::newRow("rate 251, amount 7 moles") << RateRow{251, 31, false, 248, "7 moles", 7};
        QTest::newRow("rate 252 kept, amount abc") << RateRow{252, 31, false, 252, "abc", 0};
        QTest::newRow("rate 255 moved, amount 200") << RateRow{255, 31, true, 248, "200", 200};
    }
    void reactionRateAndAmount()
    {
        QFETCH(RateRow, row);
        clsReaction *g = AddReaction();
        g->Rate = quint8(row.rate);
        auto *e = kit.Open<frmReaction>(g);
        QCOMPARE(e->scrRate->value(), row.position);
        if (row.moved) // the slider moved away and back
            e->scrRate->setValue(30), e->scrRate->setValue(31);
        e->txtConc[3]->setText(row.typed);
        e->btnOk->click();
        QCOMPARE(QList<int>({g->Rate, g->Conc[3]}), QList<int>({row.storedRate, row.storedAmount}));
    }

    // After opening, chemical 0 is selected but its number is not shown; a click on any row,
    // the selected one too, shows it. A click moves the slider to the number / 8, cut off; a
    // moved slider rounds the number down to a multiple of 8, a slider that stays leaves it
    // while the caption shows the slider's value. Rows never selected keep their numbers.
    // Before any click, the slider writes into chemical 0.
    void halfLives()
    {
        auto *g = static_cast<clsHalfLives *>(kit.Add(1, 3));
        const quint8 numbers[6] = {255, 20, 23, 7, 5, 131};
        std::copy(numbers, numbers + 6, g->HalfLife), g->HalfLife[200] = 201;
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
            ClickRow(e->lstChem, row);
            QCOMPARE(State(e), QLatin1String(state));
        }
        QTest::keyClick(e->lstChem, Qt::Key_Down); // the keys select as the mouse does
        QCOMPARE(State(e), QStringLiteral("row 5 at 16 shows 128 keeps 128"));
        e->btnOk->click();
        QCOMPARE(QList<int>({g->HalfLife[0], g->HalfLife[1], g->HalfLife[2], g->HalfLife[3], g->HalfLife[4],
                             g->HalfLife[5], g->HalfLife[200], g->HalfLife[6], g->HalfLife[255]}),
                 QList<int>({248, 16, 23, 0, 5, 128, 201, 255, 0}));

        e = kit.Open<frmHalfLives>(g);
        e->scrSet->setValue(3);
        e->btnOk->click();
        QCOMPARE(int(g->HalfLife[0]), 24);
    }

    // No organ label; the chemical and concentration each into their field, with a read-out.
    void inject()
    {
        auto *g = static_cast<clsInject *>(kit.Add(1, 4));
        g->Chem = 200, g->Conc = 77;
        auto *e = kit.Open<frmInject>(g);
        QVERIFY(!e->findChild<QLabel *>(QStringLiteral("OrganIDLabel")));
        QCOMPARE(QList<int>({e->lstChem->currentIndex(), e->scrConc->value()}), QList<int>({200, 77}));
        e->lstChem->setCurrentIndex(3);
        e->scrConc->setValue(255);
        QCOMPARE(kit.session->StatusPanel[2], QStringLiteral("Slider: 255"));
        e->btnOk->click();
        QCOMPARE(QList<int>({g->Chem, g->Conc}), QList<int>({3, 255}));
    }
};

QTEST_MAIN(TestChemistryEditors)
#include "test_chemistry_editors.moc"
