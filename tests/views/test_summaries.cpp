// The Organ View and Genotype tabs driven through their widgets in the main window: the
// tree and its status line, the edit command, the stale flags on entering a tab, and the
// genotype lists and labels.
#include "core/Gene.h"
#include "core/GeneView.h"
#include "core/Session.h"
#include "core/genes/Biochemistry.h"
#include "core/genes/BrainLobe.h"
#include "support/ScriptedPrompt.h"
#include "support/TestEnv.h"
#include "views/GenotypeTab.h"
#include "views/HelixbenchForm.h"
#include "views/OrganViewTab.h"

#include <QLabel>
#include <QPushButton>
#include <QTabWidget>
#include <QTreeWidget>
#include <QtTest>

namespace {

// An editor that does nothing; the factory records which gene it was opened for.
class NullView : public GeneView
{
public:
    void SetControls() override {}
    void GetControls() override {}
    void SetEditorCaption() override {}
    void ShowEditor() override {}
    void BringToFront() override {}
    void RequestClose() override {}
    void Dispose() override {}
};

QString Key(const QTreeWidgetItem *item) { return item->data(0, OrganViewTab::KeyRole).toString(); }

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
    NullView view;
    QList<int> opened;
    OrganViewTab *organTab = nullptr;
    QTreeWidget *tree = nullptr;

    template <typename T = Gene> T &Add(int type, int subType, int id, const QString &caption, quint8 mut = 0)
    {
        Gene *g = GeneKinds::Make(*session, type, subType);
        g->ID = quint8(id);
        g->Mutability = mut;
        g->Numeric_ID = session->GeneCount;
        session->GeneList[size_t(session->GeneCount++)].reset(g);
        session->CaptionStore.SetCaption(type, subType, id, caption);
        return static_cast<T &>(*g);
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
        lobe.Width = 4;
        lobe.Height = 5;
        lobe.StateRule = std::array<quint8, 12>{9, 31, 16};
        Add(3, 0, 2, QStringLiteral("Lung"));
        Add(2, 3, 1, QStringLiteral("stand"), 16);
    }

    QTreeWidgetItem *Node(const QString &key)
    {
        for (QTreeWidgetItemIterator it(tree); *it; ++it)
            if (Key(*it) == key)
                return *it;
        return nullptr;
    }
    QString Keys()
    {
        QStringList keys;
        for (QTreeWidgetItemIterator it(tree); *it; ++it)
            keys << Key(*it);
        return keys.join(QLatin1Char(' '));
    }
    QString OrganStatus() { return form->findChild<QLabel *>(QStringLiteral("OrganStatusLabel"))->text(); }

private slots:
    void init()
    {
        prompt.Clear();
        prompt.progressLoads = 0;
        sandbox.reset(new SettingsSandbox);
        session.reset(new Session(prompt));
        session->AppDirectory = sandbox->path();
        session->Tables.Build();
        const qint32 presets[14] = {27, 43, 59, 8, 26, 4, 104, 19, 8, 12, 0, 8, 12, 0};
        std::copy(std::begin(presets), std::end(presets), session->Template.DefaultGeneCounts.begin());
        session->Lists.ChemicalNames[2] = QStringLiteral("ATP");
        opened.clear();
        session->EditorFactory = [this](Gene &gene) -> GeneView * {
            opened << gene.Numeric_ID;
            return &view;
        };
        form.reset(new HelixbenchForm(*session));
        organTab = form->findChild<OrganViewTab *>();
        tree = form->findChild<QTreeWidget *>(QStringLiteral("OrganTreeView"));
        QVERIFY(organTab && tree);
    }

    void cleanup()
    {
        QVERIFY(prompt.AllAnswered());
        form.reset();
        session.reset();
    }

    void refreshBuildsTheTreeWithImages()
    {
        MixedGenome();
        session->OrganViewStale = true;
        session->RefreshViews();
        QVERIFY(!session->OrganViewStale);
        QCOMPARE(Keys(), QStringLiteral("or0 em0 voci0 reac0 voci1  or1  stat01 stat01_A stat01_B stat01_C stat01_D stat01_E"));
        QCOMPARE(Node(QStringLiteral("voci0"))->text(0), QStringLiteral("[003] - M [Chem = ATP] beat"));
        QCOMPARE(Node(QStringLiteral("stat01_E"))->text(0), QStringLiteral("Genes outside organs: 6"));
        QCOMPARE(OrganStatus(), QStringLiteral("Total genes in organs: 2 over 2 organs."));
        for (QTreeWidgetItemIterator it(tree); *it; ++it) {
            const QString image = (*it)->data(0, OrganViewTab::ImageRole).toString();
            QVERIFY2(organTab->GeneralImageList.contains(image), qPrintable(image));
            QCOMPARE((*it)->icon(0).cacheKey(), organTab->GeneralImageList.value(image).cacheKey());
        }
    }

    void enteringTheTabRebuildsOnlyWhenStale()
    {
        MixedGenome();
        session->RefreshViews();
        const QString before = Keys();
        Add<clsReceptor>(1, 0, 2, QStringLiteral("late")).Chem = 2;
        session->OrganViewStale = true;
        QCOMPARE(Keys(), before); // the tree keeps the old state until the tab is entered

        organTab->EnterTab();
        QCOMPARE(prompt.progressLoads, 1);
        QCOMPARE(prompt.progressTitle, QStringLiteral("Updating organ layout..."));
        QCOMPARE(prompt.progressValue, 100);
        QVERIFY(!prompt.progressLoaded);
        QVERIFY(!session->OrganViewStale);
        QCOMPARE(Node(QStringLiteral("voci2"))->text(0), QStringLiteral("[008] - B [Chem = ATP] late"));
        QCOMPARE(OrganStatus(), QStringLiteral("Total genes in organs: 3 over 2 organs."));

        Add<clsReceptor>(1, 0, 3, QStringLiteral("unseen"));
        organTab->EnterTab(); // the flag is clear: nothing happens
        QCOMPARE(prompt.progressLoads, 1);
        QVERIFY(!Node(QStringLiteral("voci3")));
    }

    void withNoGenesTheFlagStaysAndOldNodesRemain()
    {
        MixedGenome();
        session->RefreshViews();
        const QString before = Keys();
        session->ClearGeneList();
        session->OrganViewStale = true;
        organTab->EnterTab();
        organTab->EnterTab();
        QCOMPARE(prompt.progressLoads, 2); // the progress window comes up at each entry
        QVERIFY(session->OrganViewStale);
        QCOMPARE(Keys(), before);
        QCOMPARE(OrganStatus(), QStringLiteral("Total genes in organs: 2 over 2 organs."));
    }

    void editCommandAndDoubleClick()
    {
        MixedGenome();
        session->RefreshViews();
        auto *button = form->findChild<QPushButton *>(QStringLiteral("EditFromOrganCommand"));
        QCOMPARE(button->text(), QStringLiteral("&Edit Gene"));
        prompt.AnswerMessage(Prompt::Ok);
        button->click();
        QCOMPARE(prompt.Last().text, QStringLiteral("No gene selected"));
        QCOMPARE(prompt.Last().style, 64);
        for (QTreeWidgetItem *node : {Node(QStringLiteral("or0")), Node(QStringLiteral("stat01_B")),
                                      Node(QStringLiteral("or1"))->child(0)}) { // the summary has no key
            tree->setCurrentItem(node);
            prompt.AnswerMessage(Prompt::Ok);
            button->click();
            QCOMPARE(prompt.Last().text, QStringLiteral("This is not a gene entry, cannot open edit window"));
            QCOMPARE(prompt.Last().style, 16);
        }
        tree->setCurrentItem(Node(QStringLiteral("voci1")));
        button->click();
        QCOMPARE(opened, QList<int>{4});

        // Double clicks: a gene node opens its gene, other nodes do nothing and say nothing.
        form->show();
        form->SSTab1->setCurrentWidget(organTab);
        QVERIFY(QTest::qWaitForWindowExposed(form.get()));
        tree->expandAll();
        QSignalSpy spy(tree, &QTreeWidget::itemDoubleClicked);
        for (const char *key : {"reac0", "stat01_E", "voci0"}) {
            const QPoint at = tree->visualItemRect(Node(QString::fromLatin1(key))).center();
            QTest::mouseClick(tree->viewport(), Qt::LeftButton, Qt::NoModifier, at);
            QTest::mouseDClick(tree->viewport(), Qt::LeftButton, Qt::NoModifier, at);
        }
        QCOMPARE(spy.count(), 3);
        QCOMPARE(opened, (QList<int>{4, 3}));
    }

    void genotypeListsAndLabels()
    {
        auto *list = form->findChild<QTreeWidget *>(QStringLiteral("GenotypeListView"));
        auto *lobes = form->findChild<QTreeWidget *>(QStringLiteral("BrainLobeListView"));
        auto *genes = form->findChild<QLabel *>(QStringLiteral("GeneticSummaryLabel"));
        auto *neurones = form->findChild<QLabel *>(QStringLiteral("BrainLobeSummaryLabel"));
        auto *tab = form->findChild<GenotypeTab *>();
        QCOMPARE(genes->text(), QStringLiteral("No Genome Loaded"));
        QCOMPARE(neurones->text(), QStringLiteral("No Genome Loaded"));
        QCOMPARE(lobes->headerItem()->text(5), QStringLiteral("State Rule"));

        MixedGenome();
        session->SummaryStale = true;
        session->RefreshViews();
        QVERIFY(!session->SummaryStale);
        QCOMPARE(list->topLevelItemCount(), 14);
        QCOMPARE(Row(list, 0), QStringLiteral("Chemical Emitters| 1|26"));
        QCOMPARE(Row(list, 3), QStringLiteral("Initial Chemical Concentrations| 0|-"));
        QCOMPARE(Row(list, 10), QStringLiteral("Organs| 2|2"));
        QCOMPARE(Row(list, 11) + Row(list, 12) + Row(list, 13),
                 QStringLiteral("Total Male Specific Genes| 1|7Total Female Specific Genes| 1|11"
                                "Total carried (not expressed) genes| 1|1"));
        QCOMPARE(genes->text(), QStringLiteral(" 8 gene(s) total."));
        QCOMPARE(Row(lobes, 0), QStringLiteral(" 0|Vision| 4| 5| 20|state:PLUS:input:"));
        QCOMPARE(neurones->text(), QStringLiteral(" 20 neurones in  1 lobes"));

        // Entering the tab without the flag (after a move, say) keeps the old figures.
        Add(2, 3, 2, QStringLiteral("sit"));
        session->Template.DefaultGeneCounts[6] = 1;
        tab->EnterTab();
        QCOMPARE(prompt.progressLoads, 0);
        QCOMPARE(Row(list, 6), QStringLiteral("Poses| 1|103"));

        session->SummaryStale = true;
        tab->EnterTab();
        QCOMPARE(prompt.progressLoads, 1);
        QCOMPARE(prompt.progressTitle, QStringLiteral("Updating genetic summary..."));
        QCOMPARE(prompt.progressValue, 100);
        QVERIFY(!prompt.progressLoaded);
        QVERIFY(!session->SummaryStale);
        QCOMPARE(Row(list, 6), QStringLiteral("Poses| 2|1"));
        QCOMPARE(genes->text(), QStringLiteral(" 9 gene(s) total."));

        emit session->GenotypeCountersReset(); // a new genome starts the counters from 0
        QCOMPARE(tab->GenotypeCounts.rows, (std::array<qint16, 14>{}));
        QCOMPARE(tab->GenotypeCounts.lobes, qint16(0));
    }
};

QTEST_MAIN(TestSummaries)
#include "test_summaries.moc"
