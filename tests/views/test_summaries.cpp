// The Organ View and Genotype tabs driven through their widgets in the main window: the
// tree and its status line, the edit command, the stale flags on entering a tab, and the
// genotype lists and labels.
#include "core/SummaryTestKit.h"
#include "core/genes/Biochemistry.h"
#include "core/genes/BrainLobe.h"
#include "support/ScriptedPrompt.h"
#include "support/TestEnv.h"
#include "views/GenotypeTab.h"
#include "views/HelixbenchForm.h"
#include "views/OrganViewTab.h"

#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>
#include <QtTest>

namespace {
QString Row(const QTreeWidget *list, int row)
{
    QStringList texts;
    for (int c = 0; c < list->columnCount(); ++c)
        texts << list->topLevelItem(row)->text(c);
    return texts.join(QLatin1Char('|'));
}
} // namespace

class TestSummaries : public QObject
{
    Q_OBJECT

    ScriptedPrompt prompt;
    std::unique_ptr<SettingsSandbox> sandbox;
    std::unique_ptr<Session> session;
    std::unique_ptr<HelixbenchForm> form;
    QList<int> opened; // the genes an editor was asked for
    OrganViewTab *organTab = nullptr;
    QTreeWidget *tree = nullptr;

    template <typename T = Gene> T &Add(int type, int subType, int id, const QString &caption, quint8 mut = 0)
    {
        return SummaryTestKit::Add<T>(*session, type, subType, id, caption, mut);
    }

    // Genus, a receptor outside organs, an organ with two members, a lobe, a second organ, a pose.
    void MixedGenome()
    {
        Add(2, 1, 1, QStringLiteral("Header"));
        Add<clsReceptor>(1, 0, 1, QStringLiteral("stray")).Chem = 1;
        Add(3, 0, 1, QStringLiteral("Heart"));
        Add<clsEmitter>(1, 1, 1, QStringLiteral("beat"), 8).Chem = 2;
        Add<clsReaction>(1, 2, 1, QStringLiteral("burn"));
        auto &lobe = Add<clsBrainLobe>(0, 0, 1, QStringLiteral("Vision"), 32);
        std::tie(lobe.Width, lobe.Height, lobe.StateRule) = std::tuple(4, 5, std::array<quint8, 12>{9, 31, 16});
        Add(3, 0, 2, QStringLiteral("Lung"));
        Add(2, 3, 1, QStringLiteral("stand"), 16);
        session->RefreshViews();
    }

    QTreeWidgetItem *Node(const QString &key)
    {
        for (QTreeWidgetItemIterator it(tree); *it; ++it)
            if ((*it)->data(0, OrganViewTab::KeyRole).toString() == key)
                return *it;
        return nullptr;
    }
    QString OrganStatus() { return form->findChild<QLabel *>(QStringLiteral("OrganStatusLabel"))->text(); }

private slots:
    void init()
    {
        prompt.Clear();
        prompt.progressLoads = 0;
        form.reset(); // before the session it shows
        sandbox.reset(new SettingsSandbox);
        session.reset(new Session(prompt));
        session->AppDirectory = sandbox->path();
        session->Tables.Build();
        SummaryTestKit::SetTemplate(*session);
        session->Lists.ChemicalNames[2] = QStringLiteral("ATP");
        opened.clear();
        session->EditorFactory = [this](Gene &gene) -> GeneView * {
            opened << gene.Numeric_ID;
            return nullptr;
        };
        form.reset(new HelixbenchForm(*session));
        organTab = form->findChild<OrganViewTab *>();
        tree = form->findChild<QTreeWidget *>(QStringLiteral("OrganTreeView"));
        QVERIFY(organTab && tree);
    }

    void cleanup() { QVERIFY(prompt.AllAnswered()); }

    void enteringTheTabRebuildsOnlyWhenStaleAndThereAreGenes()
    {
        MixedGenome();
        Add<clsReceptor>(1, 0, 2, QStringLiteral("late")).Chem = 2;
        session->OrganViewStale = true;
        QVERIFY(!Node(QStringLiteral("voci2"))); // the tree keeps the old state until the tab is entered
        organTab->EnterTab();
        QCOMPARE(prompt.progressTitle + QString::number(prompt.progressValue), QStringLiteral("Updating organ layout...100"));
        QVERIFY(!prompt.progressLoaded && !session->OrganViewStale);
        QCOMPARE(Node(QStringLiteral("voci2"))->text(0), QStringLiteral("[008] - B [Chem = ATP] late"));
        const QIcon receptor = organTab->GeneralImageList.value(QStringLiteral("receptor"));
        QVERIFY(!receptor.isNull() && Node(QStringLiteral("voci2"))->icon(0).cacheKey() == receptor.cacheKey());
        QCOMPARE(OrganStatus(), QStringLiteral("Total genes in organs: 3 over 2 organs."));
        Add<clsReceptor>(1, 0, 3, QStringLiteral("unseen"));
        organTab->EnterTab(); // the flag is clear: nothing happens
        QCOMPARE(prompt.progressLoads, 1);
        QVERIFY(!Node(QStringLiteral("voci3")));

        // With no genes the window comes up at each entry, but the flag stays and so do the nodes.
        session->ClearGeneList();
        session->OrganViewStale = true;
        organTab->EnterTab();
        organTab->EnterTab();
        QCOMPARE(prompt.progressLoads, 3);
        QVERIFY(session->OrganViewStale && Node(QStringLiteral("voci2")));
        QCOMPARE(OrganStatus(), QStringLiteral("Total genes in organs: 3 over 2 organs."));
    }

    void editCommandOpensOnlyGeneNodes()
    {
        MixedGenome();
        auto *button = form->findChild<QPushButton *>(QStringLiteral("EditFromOrganCommand"));
        prompt.AnswerMessage(Prompt::Ok);
        button->click();
        QCOMPARE(prompt.Last().text + QString::number(prompt.Last().style), QStringLiteral("No gene selected64"));
        for (QTreeWidgetItem *node : {Node(QStringLiteral("or0")), Node(QStringLiteral("or1"))->child(0)}) { // the summary has no key
            tree->setCurrentItem(node);
            prompt.AnswerMessage(Prompt::Ok);
            button->click();
            QCOMPARE(prompt.Last().text + QString::number(prompt.Last().style),
                     QStringLiteral("This is not a gene entry, cannot open edit window16"));
        }
        tree->setCurrentItem(Node(QStringLiteral("voci1")));
        button->click();
        QCOMPARE(opened, QList<int>{4});
    }

    void genotypeRowsAndLabels()
    {
        auto *list = form->findChild<QTreeWidget *>(QStringLiteral("GenotypeListView"));
        auto *genes = form->findChild<QLabel *>(QStringLiteral("GeneticSummaryLabel"));
        auto *neurones = form->findChild<QLabel *>(QStringLiteral("BrainLobeSummaryLabel"));
        auto *tab = form->findChild<GenotypeTab *>();
        QCOMPARE(genes->text() + neurones->text(), QStringLiteral("No Genome LoadedNo Genome Loaded"));
        session->SummaryStale = true;
        MixedGenome();
        QVERIFY(!session->SummaryStale);
        QCOMPARE(list->topLevelItemCount(), 14);
        QCOMPARE(Row(list, 10), QStringLiteral("Organs| 2|2"));
        QCOMPARE(Row(list, 11) + Row(list, 12) + Row(list, 13),
                 QStringLiteral("Total Male Specific Genes| 1|7Total Female Specific Genes| 1|11"
                                "Total carried (not expressed) genes| 1|1"));
        QCOMPARE(genes->text(), QStringLiteral(" 8 gene(s) total."));
        QCOMPARE(Row(form->findChild<QTreeWidget *>(QStringLiteral("BrainLobeListView")), 0),
                 QStringLiteral(" 0|Vision| 4| 5| 20|state:PLUS:input:"));
        QCOMPARE(neurones->text(), QStringLiteral(" 20 neurones in  1 lobes"));

        // Entering the tab without the flag (after a move, say) keeps the old figures.
        Add(2, 3, 2, QStringLiteral("sit"));
        tab->EnterTab();
        QCOMPARE(Row(list, 6), QStringLiteral("Poses| 1|103"));
        session->SummaryStale = true;
        tab->EnterTab();
        QCOMPARE(prompt.progressTitle + QString::number(prompt.progressValue), QStringLiteral("Updating genetic summary...100"));
        QVERIFY(prompt.progressLoads == 1 && !prompt.progressLoaded && !session->SummaryStale);
        QCOMPARE(Row(list, 6) + genes->text(), QStringLiteral("Poses| 2|102 9 gene(s) total."));
    }
};

QTEST_MAIN(TestSummaries)
#include "test_summaries.moc"
