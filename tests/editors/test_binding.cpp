// The bindings between controls and gene bytes on their own, on plain widgets and bytes:
// bit fields that keep or lose the bits without a box, option groups and combos given
// values they have no item for, optional rates, and the order in which a list is shown.
#include "editors/EditorBinding.h"

#include <QtTest>
#include <QtWidgets>

class TestBinding : public QObject
{
    Q_OBJECT

    // A byte that the bindings find, or not, as a gene that is there or gone.
    quint8 byte = 0;
    bool present = true;
    ByteRef Ref()
    {
        return [this]() -> quint8 * { return present ? &byte : nullptr; };
    }

private slots:
    void init() { byte = 0, present = true; }

    void bitFields()
    {
        QWidget w;
        QCheckBox one(&w), four(&w);
        QRadioButton analogue(&w), digital(&w); // one exclusive pair on bit 2
        Bindings lost, kept;
        lost.Bits(Ref(), {{&one, 1}, {&digital, 2, &analogue}, {&four, 4}});
        kept.Bits(Ref(), {{&one, 1}, {&four, 4}}, Bindings::OtherBits::Kept);

        byte = 0xF3;
        lost.Show();
        QVERIFY(one.isChecked() && digital.isChecked() && !four.isChecked());
        // A clear bit selects the partner option: unchecking the selected one would not.
        byte = 0x08;
        lost.Show();
        QVERIFY(analogue.isChecked() && !digital.isChecked() && !one.isChecked());
        four.setChecked(true);
        lost.Store();
        QCOMPARE(byte, quint8(4)); // bit 8 has no box: lost

        byte = 0xF2;
        kept.Show();
        one.setChecked(true), four.setChecked(false);
        kept.Store();
        QCOMPARE(byte, quint8(0xF3)); // bits without a box stay
    }

    void optionsBeyondTheGroup()
    {
        QWidget w;
        QRadioButton a(&w), b(&w), c(&w);
        Bindings keep, first;
        keep.Options({&a, &b, &c}, Ref());
        first.Options({&a, &b, &c}, Ref(), 0);
        byte = 1;
        keep.Show();
        byte = 7;
        keep.Show();
        QVERIFY(b.isChecked()); // left as it stood
        first.Show();
        QVERIFY(a.isChecked());
        keep.Store();
        QCOMPARE(byte, quint8(0));

        // Buttons outside an exclusive group can all be clear: that stores 0 as well.
        QCheckBox x(&w), y(&w);
        Bindings loose;
        loose.Options({&x, &y}, Ref());
        byte = 1;
        loose.Show();
        y.setChecked(false);
        loose.Store();
        QCOMPARE(byte, quint8(0));
    }

    void comboMaps()
    {
        QComboBox combo, empty;
        combo.addItems({"a", "b", "c", "d"});
        auto showStore = [&](ComboMap map, int value, int pick = -2) {
            Bindings b;
            b.Combo(&combo, Ref(), map);
            byte = quint8(value);
            b.Show();
            const int shown = combo.currentIndex();
            if (pick > -2)
                combo.setCurrentIndex(pick);
            b.Store();
            return QList<int>{shown, byte};
        };
        QCOMPARE(showStore(ComboMap::Index(), 2), QList<int>({2, 2}));
        QCOMPARE(showStore(ComboMap::Index(), 9), QList<int>({-1, 0})); // beyond: nothing, stores 0
        QCOMPARE(showStore(ComboMap::Modulo(), 9), QList<int>({1, 1}));
        QCOMPARE(showStore(ComboMap::NoneFirst(), 255), QList<int>({0, 255}));
        QCOMPARE(showStore(ComboMap::NoneFirst(), 0, 3), QList<int>({1, 2}));
        QCOMPARE(showStore(ComboMap::NoneFirst(), 40), QList<int>({-1, 255})); // no item: none
        // A value with no item is kept until the user picks one.
        QCOMPARE(showStore(ComboMap::IndexKeepingUnshown(), 9), QList<int>({-1, 9}));
        QCOMPARE(showStore(ComboMap::IndexKeepingUnshown(), 9, 1), QList<int>({-1, 1}));

        // Folding writes into the gene as it shows, before anything is stored.
        Bindings fold;
        fold.Combo(&combo, Ref(), ComboMap::FoldToLast());
        byte = 30;
        fold.Show();
        QCOMPARE(QList<int>({combo.currentIndex(), byte}), QList<int>({3, 3}));

        Bindings none; // an empty list neither divides by zero nor folds to -1
        none.Combo(&empty, Ref(), ComboMap::Modulo());
        none.Combo(&empty, Ref(), ComboMap::FoldToLast());
        byte = 5;
        none.Show();
        QCOMPARE(byte, quint8(5));
    }

    void optionalRate()
    {
        QWidget w;
        QCheckBox box(&w);
        QScrollBar slider(Qt::Horizontal, &w);
        QPushButton rule(&w);
        slider.setRange(1, 255);
        Bindings b;
        b.Rate(&box, &slider, Ref(), {&rule});
        auto state = [&] {
            return QString::number(slider.value()) + (box.isChecked() ? "+" : "-") + (slider.isEnabled() ? "e" : "d")
                   + (rule.isEnabled() ? "e" : "d");
        };
        box.setChecked(true);
        b.Show(); // 0: unchecked, parked at 1, the box's event takes the rule button along
        QCOMPARE(state(), QStringLiteral("1-dd"));
        byte = 9;
        b.Show();
        QCOMPARE(state(), QStringLiteral("9+ee"));
        box.setChecked(false);
        b.Store();
        QCOMPARE(QList<int>({byte, slider.value()}), QList<int>({0, 9}));
        box.setChecked(true);
        b.Store();
        QCOMPARE(byte, quint8(9));
    }

    void orderAndAbsentGene()
    {
        QString trace;
        QLineEdit number, text;
        QString word = QStringLiteral("ADAM");
        Bindings b;
        b.Step([&] { trace += "1"; }, [&] { trace += "a"; });
        b.Number(&number, Ref());
        b.Text(&text, [&]() -> QString * { return present ? &word : nullptr; }, 4);
        b.Step([&] { trace += "2"; }); // shown only
        byte = 77;
        b.Show();
        b.Store();
        QCOMPARE(trace + number.text() + text.text(), QStringLiteral("12a77ADAM"));

        text.setText(QStringLiteral("EVE_X")); // the box holds no more than the string's length
        number.setText(QStringLiteral("300"));
        b.Store();
        QCOMPARE(word + QString::number(byte), QStringLiteral("EVE_255"));

        // With no gene, neither showing nor storing touches anything.
        present = false;
        number.setText(QStringLiteral("5"));
        b.Show();
        b.Store();
        QCOMPARE(number.text() + QString::number(byte) + word, QStringLiteral("5255EVE_"));
    }
};

QTEST_MAIN(TestBinding)
#include "test_binding.moc"
