// The sanity check for duplicate genes and the three bulk resets (mutability, chemicals,
// poses), through the Advanced menu of the main window.
#include "ToolTestKit.h"
#include "core/SummaryTestKit.h"

#include <QtTest>
#include <QtWidgets>

using SummaryTestKit::Add;

// A list file of 257 names, name i being the prefix and i, and no descriptions.
static QByteArray ListFile(const QString &prefix)
{
    QString names[NameLists::ListEntries], captions[NameLists::ListEntries];
    for (int i = 0; i < NameLists::ListEntries; ++i)
        names[i] = prefix + QString::number(i);
    return NameLists::EncodeListFile(names, captions, NameLists::ListEntries);
}

class TestSanityResets : public QObject, ToolBench
{
    Q_OBJECT

    // Runs an entry of the Advanced menu.
    void Menu(const QString &entry) { form->gappAdvanced->findChild<QAction *>(entry)->trigger(); }

private slots:
    void init() { Start(true); }
    void cleanup() { QVERIFY(Finish()); }

    // --- sanity check -----------------------------------------------------------------------

    void duplicatesAreCountedOverOrderedPairs_data()
    {
        QTest::addColumn<QList<QList<int>>>("genes"); // type, subtype, ID, generation
        QTest::addColumn<int>("errors");
        QTest::addColumn<QString>("first"); // the first box, and the progress window at the end
        QTest::newRow("no genes") << QList<QList<int>>{} << 0 << QString();
        QTest::newRow("one pair") << QList<QList<int>>{{1, 0, 4, 1}, {1, 1, 4, 1}, {1, 0, 4, 1}} << 2
                                  << "Caution. Duplicate ID for gene #4 (Sugar sensor)\r\nDuplicate is gene #2 (Sugar sensor)"
                                     "|Please Wait|Working on gene 2 of 3|67";
        QTest::newRow("three alike") << QList<QList<int>>{{2, 3, 9, 0}, {2, 3, 9, 0}, {2, 3, 9, 0}} << 6
                                     << "Caution. Duplicate ID for gene #9 (Sugar sensor)\r\nDuplicate is gene #1 (Sugar sensor)"
                                        "|Please Wait|Working on gene 2 of 3|67";
        QTest::newRow("equal ID, other generation") << QList<QList<int>>{{1, 0, 4, 1}, {1, 0, 4, 2}} << 0 << QString();
        QTest::newRow("equal ID, other subtype") << QList<QList<int>>{{1, 0, 4, 1}, {1, 4, 4, 1}} << 0 << QString();
        QTest::newRow("equal ID, other type") << QList<QList<int>>{{0, 1, 4, 1}, {1, 1, 4, 1}} << 0 << QString();
    }

    // One error box for each ordered pair, naming both genes by their caption, then the
    // total; two yields for each gene; the first status panel reads "Processing..."
    // meanwhile and has its old text back afterwards, and the progress window is gone.
    void duplicatesAreCountedOverOrderedPairs()
    {
        QFETCH(QList<QList<int>>, genes);
        QFETCH(int, errors);
        QFETCH(QString, first);
        for (const QList<int> &g : genes)
            Add(*session, g[0], g[1], g[2], QStringLiteral("Sugar sensor")).Generation = quint8(g[3]);
        session->SetStatusPanel(1, QStringLiteral("Sample.gen"));
        QStringList panel;
        connect(session.get(), &Session::StatusPanelChanged, this, [&panel](int p, const QString &t) {
            if (p == 1)
                panel << t;
        });
        for (int i = 0; i <= errors; ++i)
            prompt.AnswerMessage(Prompt::Ok);
        const int yieldsBefore = prompt.yields;
        Menu(QStringLiteral("gappaSanityCheck"));
        QCOMPARE(ShownText(prompt.Last()), ShownText("Helixbench", 64, "Total errors (duplicates) found = " + QString::number(errors)));
        if (errors)
            QCOMPARE(ShownText(prompt.shown[0]) + '|' + prompt.progressTitle + '|' + prompt.progressStatus + '|'
                         + QString::number(prompt.progressValue), ShownText("Helixbench", 16, first));
        QCOMPARE(prompt.yields - yieldsBefore, 2 * int(genes.size()));
        QCOMPARE(panel.join('|'), QStringLiteral("Processing...|Sample.gen"));
        QVERIFY(!prompt.progressLoaded);
    }

    // --- mutability -------------------------------------------------------------------------

    void resetMutability_data()
    {
        QTest::addColumn<QString>("answer");
        QTest::addColumn<int>("button"); // to the question; 0: none comes
        QTest::addColumn<int>("value"); // of every gene afterwards; 128 is unchanged
        QTest::newRow("300") << "300" << int(Prompt::Yes) << 44;
        QTest::newRow("the preset 0") << "0" << int(Prompt::Yes) << 0;
        QTest::newRow("1000, too long") << "1000" << 0 << 128;
        QTest::newRow("cancelled input") << "" << 0 << 128;
        QTest::newRow("No") << "255" << int(Prompt::No) << 128;
    }

    void resetMutability()
    {
        QFETCH(QString, answer);
        QFETCH(int, button);
        QFETCH(int, value);
        Add(*session, 1, 0).MutabilityWeighting = 128;
        Add(*session, 2, 3).MutabilityWeighting = 128;
        QSignalSpy refreshed(session.get(), &Session::ViewsRefreshRequested);
        prompt.AnswerInput(answer);
        if (button || !answer.isEmpty())
            prompt.AnswerMessage(button ? button : int(Prompt::Ok));
        Menu(QStringLiteral("gappaResetMutabilityValues"));
        QCOMPARE(prompt.shown[0].title + '|' + prompt.shown[0].text,
                 QStringLiteral("Reset Mutability Weightings|Enter a value (0 to 255) to reset all mutability weightings to [0]"));
        if (button)
            QCOMPARE(ShownText(prompt.Last()), ShownText("Helixbench", 35, "This will reset all gene mutability percentages to "
                     + QString::number(value == 128 ? 255 : value) + ".\r\nAre you sure you wish to perform this action?"));
        else if (!answer.isEmpty())
            QCOMPARE(ShownText(prompt.Last()), ShownText("Helixbench", 16, "Invalid number entered. Range is 0 to 255."));
        QCOMPARE(session->GeneAt(0)->MutabilityWeighting * 1000 + session->GeneAt(1)->MutabilityWeighting, value * 1001);
        QCOMPARE(refreshed.count(), button == Prompt::Yes ? 1 : 0);
    }

    void resetMutabilityWithNoGenesSaysSo()
    {
        prompt.AnswerMessage(Prompt::Ok);
        Menu(QStringLiteral("gappaResetMutabilityValues"));
        QCOMPARE(ShownText(prompt.Last()), ShownText("Helixbench", 64, "No genes loaded"));
    }

    // --- list resets ------------------------------------------------------------------------

    void resetListToDefaults_data()
    {
        QTest::addColumn<bool>("chemicals"); // or poses
        QTest::addColumn<bool>("listThere");
        QTest::addColumn<bool>("factoryThere");
        QTest::newRow("chemicals") << true << true << true;
        QTest::newRow("poses") << false << true << true;
        QTest::newRow("chemicals, no factory file") << true << true << false;
        QTest::newRow("chemicals, no list file") << true << false << true;
    }

    // Only Yes goes on. The list file is deleted and the factory file copied in its place (as
    // spelt on disk); either failing is told once and the other still runs, so without a
    // factory file the list is gone and loads its defaults (the loader warns, in its own words).
    // The list is loaded and shown again, its changed flag left alone.
    void resetListToDefaults()
    {
        QFETCH(bool, chemicals);
        QFETCH(bool, listThere);
        QFETCH(bool, factoryThere);
        const QString file = chemicals ? "chemicals.txt" : "PoseName.txt", factory = chemicals ? "chemicals.def" : "posename.def";
        if (listThere)
            QVERIFY(TestFiles::Write(File(file), ListFile(QStringLiteral("mine")) + "tail of a longer file"));
        if (factoryThere)
            QVERIFY(TestFiles::Write(File(factory), ListFile(QStringLiteral("def"))));
        NameLists &lists = session->Lists;
        lists.ChemicalsChanged = lists.PosesChanged = true;
        (chemicals ? lists.ChemicalNames : lists.PoseNames)[9] = QStringLiteral("edited");

        prompt.AnswerMessage(Prompt::No);
        Menu(chemicals ? "gappaResetChemicals" : "gappaResetPoseNames");
        QCOMPARE(chemicals ? lists.ChemicalNames[9] : lists.PoseNames[9], QStringLiteral("edited"));
        prompt.AnswerMessage(Prompt::Yes);
        for (int box = 0; box < (factoryThere ? !listThere : 2); ++box)
            prompt.AnswerMessage(Prompt::Ok);
        Menu(chemicals ? "gappaResetChemicals" : "gappaResetPoseNames");
        QCOMPARE(ShownText(prompt.shown[1]), ShownText("Helixbench", 35, "This will delete any changes you have made.\r\nAre you sure you "
                 "wish to reset the " + QString(chemicals ? "chemical list" : "pose description list") + "?"));
        if (!factoryThere || !listThere)
            QCOMPARE(ShownText(prompt.shown[2]), ShownText("Helixbench", 16, QString(chemicals ? "Error resetting chemicals to defaults"
                     : "Error resetting pose descriptions to defaults") + "\r\nData may have been lost.\n\rDescription: Error ID 53 "
                     "(File not found: " + File(listThere ? factory : file) + ")"));
        QCOMPARE(QDir(sandbox->path()).entryList(QDir::Files), factoryThere ? QStringList({factory, file}) : QStringList());
        if (factoryThere)
            QCOMPARE(TestFiles::Read(File(file)), ListFile(QStringLiteral("def")));
        QVERIFY(lists.ChemicalsChanged && lists.PosesChanged);
        const QString name = factoryThere ? "def9" : "9";
        QCOMPARE(chemicals ? lists.ChemicalNames[9] : lists.PoseNames[9], name);
        QCOMPARE(form->findChild<QTreeWidget *>(chemicals ? "ChemicalListView" : "PoseListView")->topLevelItem(9)->text(1), name);
    }
};

QTEST_MAIN(TestSanityResets)
#include "test_sanity_resets.moc"
