// Tabs that make their widgets when first shown: what start-up makes, that a tab is made only
// once, and that a tab first shown after some work shows what it would have shown had it
// been made at start-up (compared row by row with a window whose tabs were all made first).
#include "core/SummaryTestKit.h"
#include "core/genes/Biochemistry.h"
#include "support/ScriptedPrompt.h"
#include "views/GeneEditorTab.h"
#include "views/HelixbenchForm.h"

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
        for (QTreeWidgetItemIterator it(const_cast<QTreeWidget *>(tree)); *it; ++it) {
            QStringList row{tree->objectName()};
            for (int c = 0; c < (*it)->columnCount(); ++c)
                row << (*it)->text(c);
            out << row.join(QLatin1Char('|'));
        }
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

class TestLazyTabs : public QObject
{
    Q_OBJECT

private slots:
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
        QVERIFY(b.form.findChild<QPushButton *>(QStringLiteral("LoadGeneCommand")));
        QVERIFY(!b.form.findChild<QWidget *>(widget));
        b.form.SSTab1->setCurrentIndex(tab);
        QWidget *made = b.form.findChild<QWidget *>(widget);
        QVERIFY(made);
        b.form.SSTab1->setCurrentIndex(0);
        b.form.SSTab1->setCurrentIndex(tab);
        b.form.BuildAllTabs();
        QCOMPARE(b.form.findChildren<QWidget *>(widget), QList<QWidget *>{made});
        // The frames stand in from the page's edges, as on a tab made at start-up.
        const int margin = b.form.SSTab1->widget(tab)->layout()->contentsMargins().left();
        QVERIFY(margin > 0);
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

QTEST_MAIN(TestLazyTabs)
#include "test_lazy_tabs.moc"
