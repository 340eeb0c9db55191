// The reaction, half-life and initial concentration editors: which control shows which byte of a
// reaction, the rate's rounding on opening and what Close stores, amounts typed as text, the
// half-life list's click and slider handlers and the numbers they leave.
#include "EditorTestKit.h"
#include "editors/EditorCommon.h"
#include "editors/frmHalfLives.h"

class TestChemistryEditors : public QObject
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

    // Each place of a reaction has its own box and combo: reactants 0 and 1, products 2 and 3.
    // The rate shows at its eighth rounded half to even and comes back as position * 8; a rate
    // that rounds past the last position stands there and is kept until the slider moves. An
    // amount box takes any text; Close stores its leading number rounded half to even and held
    // within a byte.
    void controls_data()
    {
        EditorTestKit::ControlColumns();
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
    }
    void controls() { kit.CheckControls(); }

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
};

QTEST_MAIN(TestChemistryEditors)
#include "test_chemistry_editors.moc"
