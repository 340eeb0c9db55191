// What every gene editor shares: the header panel's binding, the ways out, the count and the
// main title, the cascade, the organ label, chemical combos, slider read-outs, what an encode takes.
#include "EditorTestKit.h"
#include "widgets/Placement.h"
#include "editors/EditorCommon.h"

#include <QScreen>
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
    // is toggled; typed: txtMutability; weight: stored. Every row checks the header's tab order.
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
        // Tab crosses the header row by row, as its controls stand.
        QStringList order;
        for (QWidget *w = lst; order.size() < 9; w = w->nextInFocusChain())
            if (w->focusPolicy() & Qt::TabFocus)
                order << w->objectName();
        QCOMPARE(order.join(' '), QStringLiteral("lstSwitchOn chkMutable txtMutability chkDuplicable chkRemovable "
                                                 "optSex_0 optSex_1 optSex_2 chkIgnore"));

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

    // The close box and Escape each reach the gene once, as Close and Cancel do (the test over
    // every editor); the close box keeps the change, Escape drops it.
    void closeBoxAndEscape()
    {
        QSignalSpy rows(s(), &Session::GeneRowChanged);
        for (int way = 0; way < 2; ++way) {
            Gene *g = Add(2, 6);
            g->SwitchOn = 1;
            GeneEditor *e = kit.Open(g);
            SwitchOn(g)->setCurrentIndex(3);
            if (way == 0)
                QVERIFY(e->close());
            else
                QTest::keyClick(e, Qt::Key_Escape);
            QCOMPARE(int(g->SwitchOn), way ? 1 : 3);
            QVERIFY(g->WriteChanges && !g->IsOpen && !g->View);
            QCOMPARE(rows.count(), way + 1);
            QCOMPARE(rows.last().at(0).toInt(), int(g->Numeric_ID));
            e->close(); // a dialog on its way out reaches the gene no more
            QCOMPARE(rows.count(), way + 1);
        }
    }

    void openingAnOpenGeneOnlyFocusesIt()
    {
        Add(2, 6);
        Gene *g = Add(2, 5, QStringLiteral("002 Hungry - Instinct"));
        GeneEditor *e = kit.Open(g);
        QCOMPARE(e->windowTitle(), QStringLiteral("(# 1) 002 Hungry - Instinct (Creature: Instinct)"));
        const QPoint placed = e->pos();
        const qint16 step = s()->PlacementStep;
        Child<QLineEdit>(e, "txtMutability")->setText(QStringLiteral("42"));
        g->OpenView(); // the same editor, not placed again, not refilled
        QVERIFY(EditorOf(g) == e && s()->EditorCount == 1 && s()->PlacementStep == step && e->pos() == placed);
        QCOMPARE(Child<QLineEdit>(e, "txtMutability")->text(), QStringLiteral("42"));
    }

    void countEncodeAndCloseAll()
    {
        Gene *a = Add(2, 3), *b = Add(2, 4), *c = Add(2, 5);
        a->OpenView();
        QCOMPARE(s()->MainTitle, QStringLiteral("Helixbench (1 window open)"));
        b->OpenView(), c->OpenView();
        QCOMPARE(s()->MainTitle, QStringLiteral("Helixbench ( 3 windows open)"));
        // An encode takes what the open editors show; a Cancel afterwards cannot undo that.
        SwitchOn(b)->setCurrentIndex(2);
        s()->EncodeGenome();
        EditorOf(b)->btnCancel->click();
        QCOMPARE(s()->MainTitle, QStringLiteral("Helixbench ( 2 windows open)"));
        // Closing all keeps what each editor shows.
        QSignalSpy rows(s(), &Session::GeneRowChanged);
        SwitchOn(a)->setCurrentIndex(5);
        SwitchOn(c)->setCurrentIndex(1);
        QPointer<GeneEditor> shown = EditorOf(a);
        s()->CloseAllViews();
        QVERIFY(shown && !shown->isVisible()); // off the screen at once, not when it is deleted
        FlushDeletes();
        QVERIFY(!shown); // and then gone, not kept hidden
        QCOMPARE(QList<int>({a->SwitchOn, b->SwitchOn, c->SwitchOn}), QList<int>({5, 2, 1}));
        QCOMPARE(rows.count(), 2);
        QCOMPARE(s()->MainTitle, QStringLiteral("Helixbench (no windows open)"));
    }

    // Each editor opened stands one cascade step further from the main window's outer corner
    // (where the cascade wraps and how it keeps to the screen is the placement's own test).
    void cascade()
    {
        const int step = Placement::TwipsToPixels(240, kit.mainWindow.get());
        for (int n = 2; n < 4; ++n) { // the corner as it stands when the editor is placed
            const QPoint corner = kit.mainWindow->frameGeometry().topLeft();
            GeneEditor *e = kit.Open(Add(2, 6));
            QCOMPARE(e->pos(), corner + QPoint(step, step) * n);
            QVERIFY(!e->findChild<QScrollArea *>()); // it fits the screen: no scrolling
        }
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

    void chemicalComboAndTimeSlider()
    {
        s()->Lists.ChemicalNames[17] = QString(); // an unnamed chemical shows its number
        ChemicalCombo combo(*s());
        FillChemicalList(*s(), &combo);
        QCOMPARE(QString::number(combo.count()) + combo.itemText(0) + combo.itemText(17), QStringLiteral("256<nothing>17"));
        combo.setCurrentIndex(17);
        // A renamed chemical shows when the combo next drops down, still selected; selecting it
        // again runs the change event once.
        QSignalSpy changed(&combo, &QComboBox::currentIndexChanged);
        s()->Lists.ChemicalNames[17] = QStringLiteral("Starch");
        combo.showPopup();
        QCOMPARE(combo.currentText(), QStringLiteral("Starch"));
        QCOMPARE(changed, QList<QVariantList>({{17}}));
        combo.hidePopup();

        // The longest time stands at the left: the arrow keys move the thumb the way they
        // point, on a time slider (towards the longer time) and on a plain one.
        TimeSlider time(*s(), QStringLiteral("scrTest"));
        std::unique_ptr<QScrollBar> owned(MakeSlider(*s(), QStringLiteral("scrPlain"), 0, 255, 16, false));
        QScrollBar *plain = owned.get();
        plain->setValue(100);
        time.setValue(10);
        for (QScrollBar *bar : {static_cast<QScrollBar *>(&time), plain})
            QTest::keyClick(bar, Qt::Key_Left);
        QCOMPARE(QList<int>({time.value(), plain->value()}), QList<int>({11, 99}));
        time.setValue(31);
        QCOMPARE(s()->StatusPanel[2], QStringLiteral("Slider: 248 (Max to 0 in apprx. 52 years)"));
        time.setValue(0);
        QCOMPARE(s()->StatusPanel[2], QStringLiteral("Slider: 0 (Max to 0 in apprx. Instantly)"));
    }
};

QTEST_MAIN(TestFramework)
#include "test_framework.moc"
