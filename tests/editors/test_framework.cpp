// What every gene editor shares: the header panel's binding, the ways out, the count and the
// main title, the cascade, the organ label, chemical combos, slider read-outs, notes, F1.
#include "EditorTestKit.h"
#include "app/Placement.h"
#include "editors/EditorCommon.h"
#include "views/GeneNotesForm.h"

#include <QPointer>
#include <QScreen>
#include <QSignalSpy>
#include <QTextEdit>

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

    void headerBinding()
    {
        // in: the Mutability byte; shown: the Mutable, Duplicable, Removable and Ignore boxes
        // and the sex option; pick: the option chosen (-1 none); out: the byte stored after
        // Duplicable is toggled; typed: txtMutability; weight: stored.
        struct { int in; const char *shown; int pick, out; const char *typed; int weight; } cases[] = {
            {24, "0000M", -1, 8 | 2, "1000", 232},           // both sexes: male wins; wraps
            {16 | 1 | 32, "1001F", 0, 1 | 2 | 32, "2.5", 2}, // B stores neither; half to even
            {2 | 4, "0110B", 2, 4 | 16, "-1", 255},          // negative folds up
            {0, "0000B", -1, 2, "-", 0},                     // the design dash
            {0, "0000B", 1, 2 | 8, "12ab", 12}};             // the leading number
        for (const auto &c : cases) {
            Gene *g = Add(2, 3);
            g->Mutability = quint8(c.in), g->SwitchOn = 4, g->MutabilityWeighting = 77;
            GeneEditor *e = kit.Open(g);
            QComboBox *lst = SwitchOn(g);
            QCOMPARE(QString::number(lst->count()) + lst->itemText(0) + lst->itemText(6), QStringLiteral("7EmbryoSenile"));
            QCOMPARE(lst->currentIndex(), 4);
            QString shown;
            for (const char *box : {"chkMutable", "chkDuplicable", "chkRemovable", "chkIgnore"})
                shown += Child<QCheckBox>(e, box)->isChecked() ? '1' : '0';
            for (QRadioButton *o : e->findChildren<QRadioButton *>(QRegularExpression(QStringLiteral("^optSex_[0-2]$"))))
                shown += o->isChecked() ? o->text() : QString();
            QCOMPARE(shown, QLatin1String(c.shown));
            auto *mutability = Child<QLineEdit>(e, "txtMutability");
            QCOMPARE(mutability->text(), QStringLiteral("77"));

            Child<QCheckBox>(e, "chkDuplicable")->toggle();
            if (c.pick >= 0)
                Child<QRadioButton>(e, QStringLiteral("optSex_%1").arg(c.pick))->setChecked(true);
            lst->setCurrentIndex(6);
            mutability->setText(c.typed);
            QCOMPARE(mutability->text(), QLatin1String(c.typed)); // not tidied while typing
            e->btnOk->click();
            QCOMPARE(QList<int>({g->Mutability, g->SwitchOn, g->MutabilityWeighting}), QList<int>({c.out, 6, c.weight}));
        }
    }

    // Close, Cancel and the close box each reach the gene once; only Cancel drops the change.
    void waysOut()
    {
        QSignalSpy rows(s(), &Session::GeneRowChanged);
        for (int way = 0; way < 3; ++way) {
            Gene *g = Add(2, 6);
            g->SwitchOn = 1;
            QPointer<GeneEditor> e = kit.Open(g);
            SwitchOn(g)->setCurrentIndex(3);
            if (way == 2)
                QVERIFY(e->close());
            else
                (way == 0 ? e->btnOk : e->btnCancel)->click();
            QCOMPARE(int(g->SwitchOn), way == 1 ? 1 : 3);
            QVERIFY(g->WriteChanges && !g->IsOpen && !g->View);
            QCOMPARE(s()->EditorCount, qint16(0));
            QCOMPARE(rows.count(), way + 1);
            QCOMPARE(rows.last().at(0).toInt(), int(g->Numeric_ID));
            e->close(); // a dialog on its way out reaches the gene no more
            QCOMPARE(rows.count(), way + 1);
            FlushDeletes();
            QVERIFY(e.isNull());
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
        g->WriteChanges = false; // as if a Cancel were half done
        g->OpenView();
        QCOMPARE(EditorOf(g), e);
        QVERIFY(g->WriteChanges);
        QCOMPARE(s()->EditorCount, qint16(1));
        QCOMPARE(s()->PlacementStep, step);
        QCOMPARE(e->pos(), placed);
        QCOMPARE(Child<QLineEdit>(e, "txtMutability")->text(), QStringLiteral("42")); // not refilled

        QSignalSpy help(e, &GeneEditor::HelpRequested);
        QTest::keyClick(e, Qt::Key_F1);
        QCOMPARE(help.count(), 1);
        QCOMPARE(help.first().at(0).toInt(), 2002);
        QTest::keyClick(e, Qt::Key_Escape); // no way out
        QVERIFY(g->IsOpen);
    }

    void countMainTitleAndCloseAll()
    {
        Gene *a = Add(2, 3), *b = Add(2, 4), *c = Add(2, 5);
        s()->CountEditorWindow(nullptr);
        QCOMPARE(s()->MainTitle, QStringLiteral("Helixbench (no windows open)"));
        a->OpenView();
        QCOMPARE(s()->MainTitle, QStringLiteral("Helixbench (1 window open)"));
        QVERIFY(s()->StatusPanel[2].endsWith(QStringLiteral("% genome space remaining")));
        b->OpenView();
        c->OpenView();
        QCOMPARE(s()->MainTitle, QStringLiteral("Helixbench ( 3 windows open)"));
        EditorOf(b)->close();
        QCOMPARE(s()->MainTitle, QStringLiteral("Helixbench ( 2 windows open)"));
        // Closing all keeps what each editor shows.
        QSignalSpy rows(s(), &Session::GeneRowChanged);
        SwitchOn(a)->setCurrentIndex(5);
        SwitchOn(c)->setCurrentIndex(2);
        s()->CloseAllViews();
        QCOMPARE(int(a->SwitchOn) * 10 + c->SwitchOn, 52);
        QCOMPARE(rows.count(), 2);
        QCOMPARE(s()->MainTitle, QStringLiteral("Helixbench (no windows open)"));
        QCOMPARE(s()->EditorCount, qint16(0));
    }

    void cascadeWrapsAndStaysOnScreen()
    {
        const int step = Placement::TwipsToPixels(240, kit.mainWindow.get());
        for (int i = 0; i < 12; ++i) {
            Gene *g = Add(2, 6);
            // The main window's outer corner, frame included, when the editor is placed.
            const QPoint corner = kit.mainWindow->frameGeometry().topLeft();
            g->OpenView();
            const int k = i % 11; // steps 0 to 10, then 0 again
            QCOMPARE(EditorOf(g)->pos(), corner + QPoint(step * (k + 2), step * (k + 2)));
        }
        QCOMPARE(s()->PlacementStep, qint16(0));
        s()->CloseAllViews();

        // Near the bottom right corner of the screen the editor is pulled back onto it.
        const QRect screen = QGuiApplication::primaryScreen()->geometry();
        kit.mainWindow->move(screen.right() - 20, screen.bottom() - 20);
        GeneEditor *e = kit.Open(Add(2, 7));
        const QSize size = e->geometry().size(); // placed before first shown: the client area
        QCOMPARE(e->pos(), QPoint(screen.right() + 1 - size.width(), screen.bottom() + 1 - size.height()));
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
        s()->Lists.ChemicalNames[17] = QString();
        s()->Lists.ChemicalNames[18] = QStringLiteral("Glucose");
        ChemicalCombo combo(*s());
        FillChemicalList(*s(), &combo);
        QCOMPARE(combo.count(), 256);
        QCOMPARE(combo.itemText(0) + combo.itemText(17) + combo.itemText(18), QStringLiteral("<nothing>17Glucose"));
        combo.setCurrentIndex(17);
        // A renamed chemical shows when the combo next drops down, still selected, unsignalled.
        QSignalSpy changed(&combo, &QComboBox::currentIndexChanged);
        s()->Lists.ChemicalNames[17] = QStringLiteral("Starch");
        combo.showPopup();
        QCOMPARE(combo.currentText(), QStringLiteral("Starch"));
        QCOMPARE(changed.count(), 0);
        combo.hidePopup();

        TimeSlider time(*s(), QStringLiteral("scrTest"));
        QVERIFY(time.invertedAppearance()); // the longest time stands at the left
        const std::pair<int, const char *> readouts[] = {{31, "248 (Max to 0 in apprx. 52 years)"},
                                                          {0, "0 (Max to 0 in apprx. Instantly)"},
                                                          {2, "16 (Max to 0 in apprx. 1 sec)"}};
        for (auto [position, text] : readouts) {
            time.setValue(position);
            QCOMPARE(s()->StatusPanel[2], "Slider: " + QLatin1String(text));
        }
    }

    // Notes written and an encode made while the editor is open outlive its Cancel.
    void whatCancelCannotUndo()
    {
        Gene *g = Add(2, 4);
        GeneEditor *e = kit.Open(g);
        bool driven;
        WhenModal<GeneNotesForm>(&driven, [](GeneNotesForm *form) {
            form->NotesRichTextBox->setPlainText(QStringLiteral("Walks faster"));
            form->GeneNotesClose->click();
        });
        e->btnNotes->click();
        QVERIFY(driven);
        const QString stored = s()->CaptionStore.GetAnnotation(2, 4, g->ID);
        QVERIFY(stored.contains(QStringLiteral("Walks faster")));
        SwitchOn(g)->setCurrentIndex(2);
        s()->EncodeGenome();
        QCOMPARE(int(g->SwitchOn), 2);
        e->btnCancel->click();
        QCOMPARE(int(g->SwitchOn), 2);
        QCOMPARE(s()->CaptionStore.GetAnnotation(2, 4, g->ID), stored);
    }
};

QTEST_MAIN(TestFramework)
#include "test_framework.moc"
