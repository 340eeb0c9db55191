// The comparison window driven through its widgets, opened from the main window's menu.
#include "core/compare/OtherGenome.h"
#include "editors/EditorTestKit.h"
#include "support/KindBodies.h"
#include "core/GeneCommands.h"
#include "views/GenomeCompareForm.h"
#include "views/HelixbenchForm.h"
#include "views/ListText.h"

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

    // Opens the genome species, receptor 1 on chemical 5, pose 1; chooses a file of `other`
    // (with the open genome's captions) in the open dialog of the menu entry, and gives the
    // window that opened.
    GenomeCompareForm *Compare(const QByteArray &other)
    {
        DecodeBytes(*s(), File(Species() + Receptor(1, 5) + Pose(1, 42)));
        s()->RefreshViews();
        const QString path = kit.sandbox->path() + QStringLiteral("/other.gen");
        TestFiles::Write(path, other);
        TestFiles::Write(kit.sandbox->path() + QStringLiteral("/other.gno"), s()->CaptionStore.FileBytes());
        kit.prompt.AnswerOpen(other.isNull() ? QString() : path);
        form->findChild<QAction *>(QStringLiteral("gappcCompareGenome"))->trigger();
        return form->findChild<GenomeCompareForm *>();
    }

private slots:
    void init()
    {
        kit.Init();
        s()->Lists.ChemicalNames[5] = QStringLiteral("Glucose");
        s()->LastGenomeDirectory = kit.sandbox->path() + QLatin1Char('/');
        form.reset(new HelixbenchForm(*s()));
        form->BuildAllTabs();
    }
    void cleanup()
    {
        s()->QuitConfirm = false;
        form.reset();
        kit.Cleanup();
    }

    // A cancelled file dialog opens nothing.
    void cancelledFileDialogOpensNothing() { QVERIFY(!Compare(QByteArray())); }

    // A changed pair lists its fields with both values; the filters narrow the rows; the
    // window compares again when the open genome loses a gene.
    void differencesFiltersAndTheOpenGenomeFollowed()
    {
        GenomeCompareForm *w = Compare(File(Species() + Pose(1, 42) + Receptor(1, 6) + Receptor(2, 5)));
        QVERIFY(w && w->txtMessages->parentWidget()->isHidden());
        QCOMPARE(ColumnText(w->CompareListView, 0), QStringLiteral("same,changed,only right,same"));
        QCOMPARE(w->lblSummary->text(), QStringLiteral("3 genes left, 4 right: 2 same, 1 changed, 0 only left, 1 only right"));
        QCOMPARE(ColumnText(w->CompareListView, 5).section(',', 1, 1), QStringLiteral("#002 <no caption>"));
        const QTreeWidgetItem *field = w->CompareListView->topLevelItem(1)->child(0);
        QCOMPARE(QStringList({field->text(1), field->text(4), field->text(5)}), QStringList({"Chemical", "5 (Glucose)", "6"}));

        w->lstShow->setCurrentIndex(1);
        QCOMPARE(ColumnText(w->CompareListView, 0), QStringLiteral("changed,only right"));
        w->lstKind->setCurrentIndex(1 + GeneKinds::IndexOf(GeneKind::Pose));
        QCOMPARE(w->CompareListView->topLevelItemCount(), 0);
        QVERIFY(GeneCommands::DeleteGene(*s(), 2, true)); // the pose
        QCOMPARE(ColumnText(w->CompareListView, 0), QStringLiteral("only right"));
    }

    // Copying the selected right genes: each lands at the end of the open genome with a
    // spare ID where its own is taken, the gene list gets its rows, and the window compares
    // again. Nothing selected is a message.
    void copyAddsRowsAndComparesAgain()
    {
        GenomeCompareForm *w = Compare(File(Species() + Receptor(1, 6) + Receptor(4, 5)));
        QCOMPARE(ColumnText(w->CompareListView, 0), QStringLiteral("same,changed,only right,only left"));
        kit.prompt.AnswerMessage(Prompt::Ok);
        w->btnCopy->click();
        QCOMPARE(kit.prompt.Last().text, QStringLiteral("No gene of the other genome is selected to copy"));
        w->CompareListView->topLevelItem(1)->child(0)->setSelected(true); // a field row picks its gene
        w->CompareListView->topLevelItem(2)->setSelected(true);
        w->btnCopy->click();

        QCOMPARE(ColumnText(form->findChild<QTreeWidget *>(QStringLiteral("GeneListListView")), 2), QStringLiteral("001,001,001,002,004"));
        // The changed receptor's copy took ID 2 and pairs with nothing; the other now matches.
        QCOMPARE(ColumnText(w->CompareListView, 0), QStringLiteral("same,changed,only left,only left,same"));
    }

    // A damaged or foreign file: its messages stand in the window, the open genome shows on
    // the left only, and nothing reaches the user's prompt (which fails the test on any message).
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
        GenomeCompareForm *w = Compare(bytes);
        QVERIFY(w && !w->Other().Loaded() && !w->txtMessages->parentWidget()->isHidden());
        QTEST(w->txtMessages->toPlainText().section(QLatin1Char('\n'), -1), "message"); // the last one
        QCOMPARE(ColumnText(w->CompareListView, 0), QStringLiteral("only left,only left,only left"));
    }
};

QTEST_MAIN(TestCompareWindow)
#include "test_compare_window.moc"
