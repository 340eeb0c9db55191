// The summary tabs in the main window, driven through their widgets: the Organ View tree and
// its status line, the edit command, the stale flags on entering a tab, the genotype lists and
// labels. And the tabs that make their widgets when first shown: what start-up makes, that a
// tab is made only once, and that a tab first shown after some work shows what it would have
// shown had it been made at start-up (compared row by row with a window whose tabs were all
// made first).
#include "core/SummaryTestKit.h"
#include "core/genes/Biochemistry.h"
#include "core/genes/BrainLobe.h"
#include "support/ShownText.h"
#include "views/GeneEditorTab.h"
#include "views/GenotypeTab.h"
#include "views/HelixbenchForm.h"
#include "views/ListText.h"
#include "views/OrganViewTab.h"

#include <QtTest>
#include <QtWidgets>

#include <functional>

using SummaryTestKit::Add;

namespace {

struct Bench
{
    ScriptedPrompt prompt;
    Session session{prompt};
    HelixbenchForm form{session};
    Bench()
    {
        session.Tables.Build();
        SummaryTestKit::SetTemplate(session);
        for (int c = 1; c < 20; ++c)
            session.Lists.ChemicalNames[size_t(c)] = QStringLiteral("chem %1").arg(c);
    }
};

// Every row of every list of a tab, and its labels, as text.
QStringList Shown(QWidget *tab)
{
    QStringList out;
    for (const QTreeWidget *tree : tab->findChildren<QTreeWidget *>())
        for (QTreeWidgetItemIterator it(const_cast<QTreeWidget *>(tree)); *it; ++it)
            out << tree->objectName() + QLatin1Char('|') + RowText(*it);
    for (const QLabel *label : tab->findChildren<QLabel *>())
        out << label->objectName() + QLatin1Char('=') + label->text();
    return out;
}

// Each step is done to the window made whole at start and to the one left to make its tabs.
using Steps = std::function<void(Bench &)>;

void Genome(Bench &b)
{
    Add(b.session, 3, 0, 1, QStringLiteral("Heart"));
    Add<clsReceptor>(b.session, 1, 0, 1, QStringLiteral("feel")).Chem = 3;
    Add(b.session, 1, 2, 1, QStringLiteral("burn"));
    Add(b.session, 0, 0, 1, QStringLiteral("Vision"));
    b.session.RefreshViews();
}

} // namespace
Q_DECLARE_METATYPE(Steps)

class TestSummaries : public QObject
{
    Q_OBJECT

    std::unique_ptr<Bench> bench;

    // An organ with two members, a lobe, a second organ, a pose.
    void MixedGenome()
    {
        Add(bench->session, 3, 0, 1, QStringLiteral("Heart"));
        Add(bench->session, 1, 1, 1, QStringLiteral("beat"));
        Add(bench->session, 1, 2, 1, QStringLiteral("burn"));
        auto &lobe = Add<clsBrainLobe>(bench->session, 0, 0, 1, QStringLiteral("Vision"));
        std::tie(lobe.Width, lobe.Height, lobe.StateRule) = std::tuple(4, 5, std::array<quint8, 12>{9, 31, 16});
        Add(bench->session, 3, 0, 2, QStringLiteral("Lung"));
        Add(bench->session, 2, 3, 1, QStringLiteral("stand"));
        bench->session.RefreshViews();
    }

    QTreeWidget *Tree() { return bench->form.findChild<QTreeWidget *>(QStringLiteral("OrganTreeView")); }
    OrganViewTab *OrganTab() { return bench->form.findChild<OrganViewTab *>(); }
    QTreeWidgetItem *Node(const QString &key)
    {
        for (QTreeWidgetItemIterator it(Tree()); *it; ++it)
            if ((*it)->data(0, OrganViewTab::KeyRole).toString() == key)
                return *it;
        return nullptr;
    }
    // A row of a list (-1: its header), its columns joined with '|'.
    QString Row(const char *list, int row)
    {
        const QTreeWidget *tree = bench->form.findChild<QTreeWidget *>(QLatin1String(list));
        return RowText(row < 0 ? tree->headerItem() : tree->topLevelItem(row));
    }
    QString Label(const char *name) { return bench->form.findChild<QLabel *>(QLatin1String(name))->text(); }

private slots:
    void init()
    {
        bench.reset(); // the window before the session it shows
        bench.reset(new Bench);
        bench->form.BuildAllTabs();
    }

    void cleanup() { QVERIFY(bench->prompt.AllAnswered()); }

    void enteringTheTabRebuildsOnlyWhenStaleAndThereAreGenes()
    {
        MixedGenome();
        Add(bench->session, 1, 0, 2, QStringLiteral("late"));
        bench->session.OrganViewStale = true;
        QVERIFY(!Node(QStringLiteral("voci2"))); // the tree keeps the old state until the tab is entered
        OrganTab()->EnterTab();
        QCOMPARE(bench->prompt.progressTitle + QString::number(bench->prompt.progressValue), QStringLiteral("Updating organ layout...100"));
        QVERIFY(!bench->prompt.progressLoaded && !bench->session.OrganViewStale);
        const QIcon receptor = OrganTab()->GeneralImageList.value(QStringLiteral("receptor"));
        QVERIFY(!receptor.isNull() && Node(QStringLiteral("voci2"))->icon(0).cacheKey() == receptor.cacheKey());
        Add(bench->session, 1, 0, 3, QStringLiteral("unseen"));
        OrganTab()->EnterTab(); // the flag is clear: nothing happens
        QCOMPARE(bench->prompt.progressLoads, 1);

        // With no genes the window comes up at each entry, but the flag stays and so do the nodes.
        bench->session.ClearGeneList();
        bench->session.OrganViewStale = true;
        OrganTab()->EnterTab();
        OrganTab()->EnterTab();
        QCOMPARE(bench->prompt.progressLoads, 3);
        QVERIFY(bench->session.OrganViewStale && Node(QStringLiteral("voci2")));
        QCOMPARE(Label("OrganStatusLabel"), QStringLiteral("Total genes in organs: 3 over 2 organs."));
    }

    void editCommandOpensOnlyGeneNodes()
    {
        QList<int> opened; // the genes an editor was asked for
        bench->session.EditorFactory = [&opened](Gene &gene) -> GeneView * { return opened << gene.Numeric_ID, nullptr; };
        MixedGenome();
        bench->prompt.AnswerMessage(Prompt::Ok).AnswerMessage(Prompt::Ok);
        bench->form.findChild<QPushButton *>(QStringLiteral("EditFromOrganCommand"))->click();
        Tree()->setCurrentItem(Node(QStringLiteral("or1"))->child(0)); // the organ's summary line has no key
        bench->form.findChild<QPushButton *>(QStringLiteral("EditFromOrganCommand"))->click();
        QCOMPARE(ShownText(bench->prompt.shown[0]) + '/' + ShownText(bench->prompt.shown[1]),
                 QStringLiteral("Helixbench|64|No gene selected/Helixbench|16|This is not a gene entry, cannot open edit window"));
        Tree()->setCurrentItem(Node(QStringLiteral("voci1")));
        bench->form.findChild<QPushButton *>(QStringLiteral("EditFromOrganCommand"))->click();
        QCOMPARE(opened, QList<int>{2});
    }

    void genotypeRowsAndLabels()
    {
        QCOMPARE(Label("GeneticSummaryLabel") + Label("BrainLobeSummaryLabel"), QStringLiteral("No Genome LoadedNo Genome Loaded"));
        QCOMPARE(Row("GenotypeListView", -1) + '/' + Row("BrainLobeListView", -1),
                 QStringLiteral("Type|Total Present|Mutations from template/Lobe #|Name|Width|Height|Neurones|State Rule"));
        bench->session.SummaryStale = true;
        MixedGenome();
        QVERIFY(!bench->session.SummaryStale);
        QCOMPARE(Row("GenotypeListView", 10) + Label("GeneticSummaryLabel"), QStringLiteral("Organs| 2|2 6 gene(s) total."));
        QCOMPARE(Row("BrainLobeListView", 0), QStringLiteral(" 0|Vision| 4| 5| 20|state:PLUS:input:"));
        // Entering the tab recounts only while the flag is set.
        Add(bench->session, 2, 3, 2, QStringLiteral("sit"));
        bench->session.SummaryStale = true;
        bench->form.findChild<GenotypeTab *>()->EnterTab();
        QCOMPARE(bench->prompt.progressTitle + QString::number(bench->prompt.progressValue), QStringLiteral("Updating genetic summary...100"));
        QVERIFY(bench->prompt.progressLoads == 1 && !bench->prompt.progressLoaded && !bench->session.SummaryStale);
        QCOMPARE(Row("GenotypeListView", 6) + Label("GeneticSummaryLabel"), QStringLiteral("Poses| 2|102 7 gene(s) total."));
    }
    void startUpMakesOnlyTheCoverAndEachTabOnce_data()
    {
        QTest::addColumn<int>("tab");
        QTest::addColumn<QString>("widget");
        QTest::newRow("genotype") << 1 << "GenotypeListView";
        QTest::newRow("gene editor") << 2 << "GeneListListView";
        QTest::newRow("organ view") << 3 << "OrganTreeView";
        QTest::newRow("biochemistry") << 4 << "ChemicalListView";
        QTest::newRow("poses") << 5 << "PoseListView";
        QTest::newRow("export") << 6 << "ScriptListView";
    }
    void startUpMakesOnlyTheCoverAndEachTabOnce()
    {
        QFETCH(int, tab);
        QFETCH(QString, widget);
        Bench b;
        QVERIFY(b.form.findChild<QPushButton *>(QStringLiteral("LoadGeneCommand")) && !b.form.findChild<QWidget *>(widget));
        b.form.SSTab1->setCurrentIndex(tab);
        const QList<QWidget *> made = b.form.findChildren<QWidget *>(widget);
        b.form.SSTab1->setCurrentIndex(0);
        b.form.SSTab1->setCurrentIndex(tab);
        b.form.BuildAllTabs();
        QVERIFY(made.size() == 1 && b.form.findChildren<QWidget *>(widget) == made);
        // The frames stand in from the page's edges as far as on the cover, made at start-up.
        const QLayout *cover = b.form.SSTab1->widget(0)->layout();
        QCOMPARE(b.form.SSTab1->widget(tab)->layout()->contentsMargins(), cover->contentsMargins());
    }

    void aTabFirstShownLaterShowsWhatItWouldHaveShown_data()
    {
        QTest::addColumn<Steps>("steps");
        QTest::newRow("a load") << Steps(Genome);
        QTest::newRow("a load, then no genes: the tree keeps its nodes") << Steps([](Bench &b) {
            Genome(b);
            b.session.ClearGeneList();
            b.session.RefreshViews();
        });
        QTest::newRow("a renamed chemical reaches no row until rewritten") << Steps([](Bench &b) {
            Genome(b);
            b.session.Lists.ChemicalNames[3] = QStringLiteral("renamed");
        });
        QTest::newRow("a rewritten row and a changed template") << Steps([](Bench &b) {
            Genome(b);
            b.session.Template.DefaultGeneCounts[0] = 99;
            b.session.CaptionStore.SetCaption(1, 0, 1, QStringLiteral("sense"));
            b.session.RefreshGeneRow(1);
        });
        QTest::newRow("the first gene's row rewritten after its tab is made") << Steps([](Bench &b) {
            Genome(b);
            b.form.SSTab1->setCurrentIndex(2);
            b.session.CaptionStore.SetCaption(3, 0, 1, QStringLiteral("Lung"));
            b.session.RefreshGeneRow(0);
        });
        QTest::newRow("a gene added to the list") << Steps([](Bench &b) {
            Genome(b);
            Add<clsEmitter>(b.session, 1, 1, 1, QStringLiteral("emit")).Chem = 4;
            b.form.geneEditorTab->AddGeneRow(b.session.GeneCount - 1);
        });
        QTest::newRow("a load, then an unknown row") << Steps([](Bench &b) {
            b.prompt.AnswerMessage(Prompt::Ok);
            Genome(b);
            b.session.RefreshGeneRow(7);
        });
    }
    void aTabFirstShownLaterShowsWhatItWouldHaveShown()
    {
        QFETCH(Steps, steps);
        Bench whole, lazy;
        whole.form.BuildAllTabs();
        steps(whole);
        steps(lazy);
        for (int tab = 1; tab <= 3; ++tab) {
            lazy.form.SSTab1->setCurrentIndex(tab);
            whole.form.SSTab1->setCurrentIndex(tab);
            QCOMPARE(Shown(lazy.form.SSTab1->widget(tab)), Shown(whole.form.SSTab1->widget(tab)));
        }
        QCOMPARE(lazy.prompt.progressLoads, whole.prompt.progressLoads); // the same rebuilds on entry
        QCOMPARE(lazy.prompt.MessageTexts(), whole.prompt.MessageTexts());
        QVERIFY(whole.prompt.AllAnswered() && lazy.prompt.AllAnswered());
    }
};

QTEST_MAIN(TestSummaries)
#include "test_summaries.moc"
