// The Organ View and Genotype tabs driven through their widgets in the main window: the
// tree and its status line, the edit command, the stale flags on entering a tab, and the
// genotype lists and labels.
#include "core/SummaryTestKit.h"
#include "core/genes/BrainLobe.h"
#include "support/ShownText.h"
#include "views/GenotypeTab.h"
#include "views/HelixbenchForm.h"
#include "views/OrganViewTab.h"

#include <QtTest>
#include <QtWidgets>

using SummaryTestKit::Add;

class TestSummaries : public QObject
{
    Q_OBJECT

    ScriptedPrompt prompt;
    std::unique_ptr<Session> session;
    std::unique_ptr<HelixbenchForm> form;

    // An organ with two members, a lobe, a second organ, a pose.
    void MixedGenome()
    {
        Add(*session, 3, 0, 1, QStringLiteral("Heart"));
        Add(*session, 1, 1, 1, QStringLiteral("beat"));
        Add(*session, 1, 2, 1, QStringLiteral("burn"));
        auto &lobe = Add<clsBrainLobe>(*session, 0, 0, 1, QStringLiteral("Vision"));
        std::tie(lobe.Width, lobe.Height, lobe.StateRule) = std::tuple(4, 5, std::array<quint8, 12>{9, 31, 16});
        Add(*session, 3, 0, 2, QStringLiteral("Lung"));
        Add(*session, 2, 3, 1, QStringLiteral("stand"));
        session->RefreshViews();
    }

    QTreeWidget *Tree() { return form->findChild<QTreeWidget *>(QStringLiteral("OrganTreeView")); }
    OrganViewTab *OrganTab() { return form->findChild<OrganViewTab *>(); }
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
        const QTreeWidget *tree = form->findChild<QTreeWidget *>(QLatin1String(list));
        const QTreeWidgetItem *item = row < 0 ? tree->headerItem() : tree->topLevelItem(row);
        QStringList texts;
        for (int c = 0; c < item->columnCount(); ++c)
            texts << item->text(c);
        return texts.join(QLatin1Char('|'));
    }
    QString Label(const char *name) { return form->findChild<QLabel *>(QLatin1String(name))->text(); }

private slots:
    void init()
    {
        prompt.Clear();
        prompt.progressLoads = 0;
        form.reset(); // before the session it shows
        session.reset(new Session(prompt));
        session->Tables.Build();
        SummaryTestKit::SetTemplate(*session);
        form.reset(new HelixbenchForm(*session));
        form->BuildAllTabs();
    }

    void cleanup() { QVERIFY(prompt.AllAnswered()); }

    void enteringTheTabRebuildsOnlyWhenStaleAndThereAreGenes()
    {
        MixedGenome();
        Add(*session, 1, 0, 2, QStringLiteral("late"));
        session->OrganViewStale = true;
        QVERIFY(!Node(QStringLiteral("voci2"))); // the tree keeps the old state until the tab is entered
        OrganTab()->EnterTab();
        QCOMPARE(prompt.progressTitle + QString::number(prompt.progressValue), QStringLiteral("Updating organ layout...100"));
        QVERIFY(!prompt.progressLoaded && !session->OrganViewStale);
        const QIcon receptor = OrganTab()->GeneralImageList.value(QStringLiteral("receptor"));
        QVERIFY(!receptor.isNull() && Node(QStringLiteral("voci2"))->icon(0).cacheKey() == receptor.cacheKey());
        Add(*session, 1, 0, 3, QStringLiteral("unseen"));
        OrganTab()->EnterTab(); // the flag is clear: nothing happens
        QCOMPARE(prompt.progressLoads, 1);

        // With no genes the window comes up at each entry, but the flag stays and so do the nodes.
        session->ClearGeneList();
        session->OrganViewStale = true;
        OrganTab()->EnterTab();
        OrganTab()->EnterTab();
        QCOMPARE(prompt.progressLoads, 3);
        QVERIFY(session->OrganViewStale && Node(QStringLiteral("voci2")));
        QCOMPARE(Label("OrganStatusLabel"), QStringLiteral("Total genes in organs: 3 over 2 organs."));
    }

    void editCommandOpensOnlyGeneNodes()
    {
        QList<int> opened; // the genes an editor was asked for
        session->EditorFactory = [&opened](Gene &gene) -> GeneView * { return opened << gene.Numeric_ID, nullptr; };
        MixedGenome();
        prompt.AnswerMessage(Prompt::Ok).AnswerMessage(Prompt::Ok);
        form->findChild<QPushButton *>(QStringLiteral("EditFromOrganCommand"))->click();
        Tree()->setCurrentItem(Node(QStringLiteral("or1"))->child(0)); // the organ's summary line has no key
        form->findChild<QPushButton *>(QStringLiteral("EditFromOrganCommand"))->click();
        QCOMPARE(ShownText(prompt.shown[0]) + '/' + ShownText(prompt.shown[1]),
                 QStringLiteral("Helixbench|64|No gene selected/Helixbench|16|This is not a gene entry, cannot open edit window"));
        Tree()->setCurrentItem(Node(QStringLiteral("voci1")));
        form->findChild<QPushButton *>(QStringLiteral("EditFromOrganCommand"))->click();
        QCOMPARE(opened, QList<int>{2});
    }

    void genotypeRowsAndLabels()
    {
        QCOMPARE(Label("GeneticSummaryLabel") + Label("BrainLobeSummaryLabel"), QStringLiteral("No Genome LoadedNo Genome Loaded"));
        QCOMPARE(Row("GenotypeListView", -1) + '/' + Row("BrainLobeListView", -1),
                 QStringLiteral("Type|Total Present|Mutations from template/Lobe #|Name|Width|Height|Neurones|State Rule"));
        session->SummaryStale = true;
        MixedGenome();
        QVERIFY(!session->SummaryStale);
        QCOMPARE(Row("GenotypeListView", 10) + Label("GeneticSummaryLabel"), QStringLiteral("Organs| 2|2 6 gene(s) total."));
        QCOMPARE(Row("BrainLobeListView", 0), QStringLiteral(" 0|Vision| 4| 5| 20|state:PLUS:input:"));
        // Entering the tab recounts only while the flag is set.
        Add(*session, 2, 3, 2, QStringLiteral("sit"));
        session->SummaryStale = true;
        form->findChild<GenotypeTab *>()->EnterTab();
        QCOMPARE(prompt.progressTitle + QString::number(prompt.progressValue), QStringLiteral("Updating genetic summary...100"));
        QVERIFY(prompt.progressLoads == 1 && !prompt.progressLoaded && !session->SummaryStale);
        QCOMPARE(Row("GenotypeListView", 6) + Label("GeneticSummaryLabel"), QStringLiteral("Poses| 2|102 7 gene(s) total."));
    }
};

QTEST_MAIN(TestSummaries)
#include "test_summaries.moc"
