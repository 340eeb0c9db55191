// What every gene editor shares: the header panel's binding, the cascade, the caption, the
// count in the main title, opening an open gene again, closing all, the organ label, chemical
// combos and time sliders.
#include "EditorTestKit.h"
#include "widgets/Placement.h"
#include "editors/EditorCommon.h"

#include <QSignalSpy>

struct HeaderRow { int in; QString shown; int pick, out; QString typed; int weight; };
Q_DECLARE_METATYPE(HeaderRow)

class TestFramework : public QObject
{
    Q_OBJECT
    EditorTestKit kit;
    Session *s() { return kit.session.get(); }
    Gene *Add(int type, int subType, const QString &caption = QString()) { return kit.Add(type, subType, caption); }
    static GeneEditor *EditorOf(Gene *g) { return dynamic_cast<GeneEditor *>(g->View); }
    static QComboBox *SwitchOn(Gene *g) { return Child<QComboBox>(EditorOf(g), QStringLiteral("lstSwitchOn")); }

private slots:
    void init() { kit.Init(); }
    void cleanup() { kit.Cleanup(); }

    // in: the Mutability byte; shown: the Mutable, Duplicable, Removable and Ignore boxes and
    // the sex option; pick: the option chosen (-1 none); out: the byte stored after Duplicable
    // is toggled; typed: txtMutability; weight: stored.
    void headerBinding_data()
    {
        QTest::addColumn<HeaderRow>("row");
        QTest::newRow("both sexes: male wins; weight wraps") << HeaderRow{24, "0000M", -1, 8 | 2, "1000", 232};
        QTest::newRow("B stores neither; half to even") << HeaderRow{16 | 1 | 32, "1001F", 0, 1 | 2 | 32, "2.5", 2};
        QTest::newRow("negative folds up") << HeaderRow{2 | 4, "0110B", 2, 4 | 16, "-1", 255};
    }
    void headerBinding()
    {
        QFETCH(HeaderRow, row);
        Gene *g = Add(2, 3);
        g->Mutability = quint8(row.in), g->SwitchOn = 4, g->MutabilityWeighting = 77;
        GeneEditor *e = kit.Open(g);
        QComboBox *lst = SwitchOn(g);
        auto *mutability = Child<QLineEdit>(e, "txtMutability");
        // The switch-on list, its choice and the weighting, then the boxes and the sex.
        QString seen = QString::number(lst->count()) + lst->itemText(0) + lst->itemText(6)
                       + QString::number(lst->currentIndex()) + mutability->text() + ' ';
        for (const char *box : {"chkMutable", "chkDuplicable", "chkRemovable", "chkIgnore"})
            seen += Child<QCheckBox>(e, box)->isChecked() ? '1' : '0';
        for (QRadioButton *o : e->findChildren<QRadioButton *>(QRegularExpression(QStringLiteral("^optSex_[0-2]$"))))
            seen += o->isChecked() ? o->text() : QString();
        QCOMPARE(seen, "7EmbryoSenile477 " + row.shown);

        Child<QCheckBox>(e, "chkDuplicable")->toggle();
        if (row.pick >= 0)
            Child<QRadioButton>(e, QStringLiteral("optSex_%1").arg(row.pick))->setChecked(true);
        lst->setCurrentIndex(6);
        mutability->setText(row.typed);
        QCOMPARE(mutability->text(), row.typed); // not tidied while typing
        e->btnOk->click();
        QCOMPARE(QList<int>({g->Mutability, g->SwitchOn, g->MutabilityWeighting}),
                 QList<int>({row.out, 6, row.weight}));
    }

    // Each editor opened stands one cascade step further from the main window's outer corner
    // (where the cascade wraps and how it keeps to the screen is the placement's own test), and
    // where it fits the screen its contents do not scroll; the caption names the gene's number,
    // caption and kind; the main title counts the open editors. Opening a gene whose editor is
    // open brings that editor forward: not placed again, not refilled. Closing all keeps what
    // each editor shows, and its dialogs leave the screen at once and are then deleted.
    void openAndCloseAll()
    {
        const QPoint step = QPoint(1, 1) * Placement::TwipsToPixels(240, kit.mainWindow.get());
        Gene *a = Add(2, 6), *b = Add(2, 7), *c = Add(2, 5, QStringLiteral("002 Hungry - Instinct"));
        QStringList titles;
        QList<QPoint> steps; // from the main window's corner as it stands when each is placed
        for (Gene *g : {a, b, c}) {
            const QPoint corner = kit.mainWindow->frameGeometry().topLeft();
            g->OpenView();
            titles << s()->MainTitle;
            steps << EditorOf(g)->pos() - corner;
        }
        QCOMPARE(titles, QStringList({"Helixbench (1 window open)", "Helixbench ( 2 windows open)",
                                      "Helixbench ( 3 windows open)"}));
        QCOMPARE(EditorOf(c)->windowTitle(), QStringLiteral("(# 2) 002 Hungry - Instinct (Creature: Instinct)"));
        QCOMPARE(steps.mid(0, 2), QList<QPoint>({step * 2, step * 3}));
        GeneEditor *e = EditorOf(a);
        const QPoint at = e->pos();
        QVERIFY(!e->findChild<QScrollArea *>());

        const qint16 placed = s()->PlacementStep;
        SwitchOn(a)->setCurrentIndex(5);
        a->OpenView();
        QVERIFY(EditorOf(a) == e && s()->EditorCount == 3 && s()->PlacementStep == placed && e->pos() == at);
        QCOMPARE(SwitchOn(a)->currentIndex(), 5);

        EditorOf(b)->btnCancel->click();
        QCOMPARE(s()->MainTitle, QStringLiteral("Helixbench ( 2 windows open)"));
        SwitchOn(c)->setCurrentIndex(1);
        QPointer<GeneEditor> shown = e;
        s()->CloseAllViews();
        QVERIFY(shown && !shown->isVisible());
        FlushDeletes();
        QVERIFY(!shown);
        QCOMPARE(QList<int>({a->SwitchOn, b->SwitchOn, c->SwitchOn}), QList<int>({5, 0, 1}));
        QCOMPARE(s()->MainTitle, QStringLiteral("Helixbench (no windows open)"));
    }

    void organLabel()
    {
        auto label = [](Gene *g) { return Child<QLabel>(EditorTestKit::Open(g), "OrganIDLabel")->text(); };
        QCOMPARE(label(Add(1, 0)), QStringLiteral("[no organ] "));
        Add(3, 0, QStringLiteral("001 Heart - Organ"));
        Add(0, 1, QStringLiteral("002 Brain organ")); // a brain organ counts too
        QCOMPARE(label(Add(1, 1)), QStringLiteral("002 Brain organ "));
        QVERIFY(!kit.Open(Add(1, 3))->findChild<QLabel *>(QStringLiteral("OrganIDLabel"))); // half-life: none
    }

    // An unnamed chemical shows its number; a renamed one shows when the combo next drops
    // down, still selected, and selecting it again runs the change event once. The longest
    // time stands at the left: the arrow keys move the thumb the way they point, on a time
    // slider (towards the longer time) and on a plain one.
    void chemicalComboAndTimeSlider()
    {
        s()->Lists.ChemicalNames[17] = QString();
        ChemicalCombo combo(*s());
        FillChemicalList(*s(), &combo);
        combo.setCurrentIndex(17);
        QSignalSpy changed(&combo, &QComboBox::currentIndexChanged);
        s()->Lists.ChemicalNames[17] = QStringLiteral("Starch");
        combo.showPopup();
        QCOMPARE(combo.currentText(), QStringLiteral("Starch"));
        QCOMPARE(changed, QList<QVariantList>({{17}}));
        combo.hidePopup();

        TimeSlider time(*s(), QStringLiteral("scrTest"));
        std::unique_ptr<QScrollBar> plain(MakeSlider(*s(), QStringLiteral("scrPlain"), 0, 255, 16, false));
        plain->setValue(100);
        time.setValue(10);
        for (QScrollBar *bar : {static_cast<QScrollBar *>(&time), plain.get()})
            QTest::keyClick(bar, Qt::Key_Left);
        QCOMPARE(QList<int>({time.value(), plain->value()}), QList<int>({11, 99}));
    }
};

QTEST_MAIN(TestFramework)
#include "test_framework.moc"
