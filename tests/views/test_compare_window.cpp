// The comparison window driven through its widgets, opened from the main window's menu.
#include "core/compare/OtherGenome.h"
#include "editors/EditorTestKit.h"
#include "support/KindBodies.h"
#include "views/GeneEditorTab.h"
#include "core/GeneCommands.h"
#include "views/GenomeCompareForm.h"
#include "views/HelixbenchForm.h"

using namespace GenomeBytes;

namespace {
QByteArray Species() { return Header(2, 1, 1) + Hex("00") + "EVE_ADAM"; }
QByteArray Receptor(int id, int chem) { return Header(1, 0, id) + Hex("020000") + char(chem) + Hex("00000000"); }
QByteArray Pose(int id, int pose) { return Header(2, 3, id) + char(pose) + "XXXXXXXXXXXXXXX"; }
} // namespace

class TestCompareWindow : public QObject
{
    Q_OBJECT
    EditorTestKit kit;
    std::unique_ptr<HelixbenchForm> form;
    Session *s() { return kit.session.get(); }

    QString Write(const QString &name, const QByteArray &bytes)
    {
        const QString path = kit.sandbox->path() + QLatin1Char('/') + name;
        TestFiles::Write(path, bytes);
        return path;
    }
    // The open genome: species, receptor 1 on chemical 5, pose 1.
    void OpenGenome()
    {
        QVERIFY(DecodeBytes(*s(), File(Species() + Receptor(1, 5) + Pose(1, 42))));
        s()->RefreshViews();
    }
    // Chooses the file in the open dialog and runs the menu entry; gives the window that opened.
    GenomeCompareForm *Compare(const QByteArray &file)
    {
        const QString path = Write(QStringLiteral("other.gen"), file);
        Write(QStringLiteral("other.gno"), s()->CaptionStore.FileBytes());
        kit.prompt.AnswerOpen(path);
        form->findChild<QAction *>(QStringLiteral("gappcCompareGenome"))->trigger();
        return form->findChild<GenomeCompareForm *>();
    }
    static QString Column(const GenomeCompareForm *w, int column)
    {
        QStringList texts;
        for (int i = 0; i < w->CompareListView->topLevelItemCount(); ++i)
            texts << w->CompareListView->topLevelItem(i)->text(column);
        return texts.join(',');
    }
    static QStringList Children(const GenomeCompareForm *w, int row)
    {
        QStringList texts;
        const QTreeWidgetItem *item = w->CompareListView->topLevelItem(row);
        for (int c = 0; c < item->childCount(); ++c)
            texts << item->child(c)->text(1) + ": " + item->child(c)->text(4) + " / " + item->child(c)->text(5);
        return texts;
    }

private slots:
    void init()
    {
        kit.Init();
        s()->Lists.ChemicalNames[5] = QStringLiteral("Glucose");
        s()->Lists.ChemicalNames[6] = QStringLiteral("Fructose");
        s()->Lists.PoseNames[42] = QStringLiteral("Wave");
        s()->LastGenomeDirectory = kit.sandbox->path() + QLatin1Char('/');
        form.reset(new HelixbenchForm(*s()));
    }
    void cleanup()
    {
        s()->QuitConfirm = false;
        form.reset();
        kit.Cleanup();
    }

    // The entry stands in a menu of its own after the standard menus; a cancelled file
    // dialog opens nothing.
    void menuEntryAfterTheStandardMenus()
    {
        const QList<QAction *> menus = form->menuBar()->actions();
        QCOMPARE(menus.last()->menu()->objectName(), QStringLiteral("gappCompare"));
        kit.prompt.AnswerOpen(QString());
        form->findChild<QAction *>(QStringLiteral("gappcCompareGenome"))->trigger();
        QVERIFY(!form->findChild<GenomeCompareForm *>());
    }

    // A genome against its own file: every row the same, nothing to expand, no messages.
    void sameGenomeShowsAllSame()
    {
        OpenGenome();
        GenomeCompareForm *w = Compare(File(Species() + Receptor(1, 5) + Pose(1, 42)));
        QVERIFY(w);
        QCOMPARE(Column(w, 0), QStringLiteral("same,same,same"));
        QCOMPARE(w->lblSummary->text(), QStringLiteral("3 genes left, 3 right: 3 same, 0 changed, 0 only left, 0 only right"));
        QVERIFY(w->txtMessages->parentWidget()->isHidden());
        w->lstShow->setCurrentIndex(1);
        QCOMPARE(w->CompareListView->topLevelItemCount(), 0);
    }

    // A changed pair lists its fields with both values; the filters narrow the rows.
    void differencesAndFilters()
    {
        OpenGenome();
        GenomeCompareForm *w = Compare(File(Species() + Pose(1, 42) + Receptor(1, 6) + Receptor(2, 5)));
        QCOMPARE(Column(w, 0), QStringLiteral("same,changed,only right,same"));
        QCOMPARE(Column(w, 4).section(',', 1, 1), QStringLiteral("#001 <no caption>"));
        QCOMPARE(Column(w, 5).section(',', 1, 1), QStringLiteral("#002 <no caption>"));
        QCOMPARE(Children(w, 1), QStringList{QStringLiteral("Chemical: 5 (Glucose) / 6 (Fructose)")});
        QVERIFY(w->CompareListView->topLevelItem(1)->isExpanded());

        w->lstShow->setCurrentIndex(1);
        QCOMPARE(Column(w, 0), QStringLiteral("changed,only right"));
        w->lstKind->setCurrentIndex(1 + GeneKinds::IndexOf(GeneKind::Pose));
        QCOMPARE(w->CompareListView->topLevelItemCount(), 0);
        w->lstShow->setCurrentIndex(0);
        QCOMPARE(Column(w, 1), QStringLiteral("Creature: Pose (Wave)"));
    }

    // Copying the selected right genes: each lands at the end of the open genome with a
    // spare ID where its own is taken, the gene list gets its rows, the summaries go stale,
    // and the window compares again.
    void copyAddsRowsAndComparesAgain()
    {
        OpenGenome();
        GenomeCompareForm *w = Compare(File(Species() + Receptor(1, 6) + Receptor(4, 5)));
        QCOMPARE(Column(w, 0), QStringLiteral("same,changed,only right,only left"));
        w->CompareListView->topLevelItem(1)->child(0)->setSelected(true); // a field row picks its gene
        w->CompareListView->topLevelItem(2)->setSelected(true);
        w->btnCopy->click();

        QCOMPARE(s()->GeneCount, 5);
        QCOMPARE(QList<int>({s()->GeneAt(3)->ID, s()->GeneAt(4)->ID}), QList<int>({2, 4}));
        QVERIFY(s()->SummaryStale && s()->OrganViewStale);
        auto *list = form->findChild<QTreeWidget *>(QStringLiteral("GeneListListView"));
        QCOMPARE(list->topLevelItemCount(), 5);
        QCOMPARE(list->topLevelItem(4)->text(2), QStringLiteral("004"));
        // The changed receptor's copy took ID 2 and pairs with nothing; the other now matches.
        QCOMPARE(Column(w, 0), QStringLiteral("same,changed,only left,only left,same"));
        QCOMPARE(kit.prompt.MessageTexts(), QStringList());
    }

    // Nothing selected, and a copy refused for the gene limit: a message, and nothing changes.
    void refusedCopiesChangeNothing()
    {
        QByteArray genes = Species();
        for (int i = 1; i < 899; ++i)
            genes += Header(1, 4, i % 256) + Hex("0102");
        QVERIFY(DecodeBytes(*s(), File(genes)));
        GenomeCompareForm *w = Compare(File(Species() + Receptor(1, 5)));
        kit.prompt.AnswerMessage(Prompt::Ok).AnswerMessage(Prompt::Ok);
        w->btnCopy->click();
        QCOMPARE(kit.prompt.Last().text, QStringLiteral("No gene of the other genome is selected to copy"));
        w->lstShow->setCurrentIndex(1);
        w->CompareListView->selectAll();
        w->btnCopy->click();
        QVERIFY(kit.prompt.Last().text.startsWith(QStringLiteral("Reached the limit of 900 genes.")));
        QCOMPARE(s()->GeneCount, 899);
    }

    // A damaged or foreign file: its messages stand in the window, the open genome shows on
    // the left only, and nothing reaches the user's prompt.
    void damagedFileShowsItsMessages_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("message");
        QTest::newRow("foreign") << QByteArray("GIF89a....") << "This is not a Arkenfold 2 Verdant DNA file.";
        QTest::newRow("truncated") << ("dna2" + Receptor(1, 5).left(9)) << "Unable to lock onto valid data. Operation aborted.";
    }
    void damagedFileShowsItsMessages()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, message);
        OpenGenome();
        GenomeCompareForm *w = Compare(bytes);
        QVERIFY(w);
        QVERIFY(!w->Other().Loaded());
        QVERIFY(!w->txtMessages->parentWidget()->isHidden());
        QVERIFY2(w->txtMessages->toPlainText().contains(message), qPrintable(w->txtMessages->toPlainText()));
        QCOMPARE(Column(w, 0), QStringLiteral("only left,only left,only left"));
        QCOMPARE(kit.prompt.MessageTexts(), QStringList());
    }

    // The window follows the open genome: a deleted gene leaves the comparison at once.
    void followsTheOpenGenome()
    {
        OpenGenome();
        GenomeCompareForm *w = Compare(File(Species() + Receptor(1, 5) + Pose(1, 42)));
        QCOMPARE(Column(w, 0), QStringLiteral("same,same,same"));
        QVERIFY(GeneCommands::DeleteGene(*s(), 2, true));
        QCOMPARE(Column(w, 0), QStringLiteral("same,same,only right"));
    }
};

QTEST_MAIN(TestCompareWindow)
#include "test_compare_window.moc"
