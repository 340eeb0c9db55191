// The sanity check for duplicate genes and the three bulk resets (mutability, chemicals,
// poses), through the Advanced menu of the main window.
#include "core/BulkResets.h"
#include "core/SanityCheck.h"
#include "core/SummaryTestKit.h"
#include "core/genes/Biochemistry.h"
#include "support/ScriptedPrompt.h"
#include "support/ShownText.h"
#include "support/TestEnv.h"
#include "views/HelixbenchForm.h"

#include <QAction>
#include <QDir>
#include <QElapsedTimer>
#include <QLabel>
#include <QMenu>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTreeWidget>
#include <QtTest>

using SummaryTestKit::Add;

namespace {
// A list file of 257 names and 257 captions, every name and caption i built from the prefix.
QByteArray ListFile(const QString &prefix)
{
    QString names[NameLists::ListEntries], captions[NameLists::ListEntries];
    for (int i = 0; i < NameLists::ListEntries; ++i) {
        names[i] = prefix + QString::number(i);
        captions[i] = prefix + QStringLiteral(" caption ") + QString::number(i);
    }
    return NameLists::EncodeListFile(names, captions, NameLists::ListEntries);
}
} // namespace

class TestSanityResets : public QObject
{
    Q_OBJECT

    ScriptedPrompt prompt;
    std::unique_ptr<SettingsSandbox> sandbox;
    std::unique_ptr<Session> session;
    std::unique_ptr<HelixbenchForm> form;

    void Menu(const char *entry) { form->findChild<QAction *>(QString::fromLatin1(entry))->trigger(); }
    QString File(const char *name) const { return sandbox->path() + QLatin1Char('/') + QLatin1String(name); }
    Gene &AddGene(int type, int subType, int id, int generation, const QString &caption = {})
    {
        Gene &g = Add(*session, type, subType, id, caption);
        g.Generation = quint8(generation);
        return g;
    }

private slots:
    void init()
    {
        FreshSession(sandbox, prompt, session);
        form.reset(new HelixbenchForm(*session));
    }

    void cleanup()
    {
        form.reset();
        session.reset();
        QVERIFY(prompt.AllAnswered());
    }

    void theCommandsStandInTheAdvancedMenuAmongItsOtherEntries()
    {
        // The entries of this menu that come from elsewhere may stand between these; the
        // order of these, and where they stand among the others, is fixed.
        const QStringList known{"gappaSavePoseDescriptions", "gappaResetPoseNames", "sep2", "gappaSaveChemicalList",
                                "gappaResetChemicals", "gappaReorganise", "sep3", "gappaResetMutabilityValues",
                                "gappaSanityCheck", "gappaChangeDefaultTemplate"};
        QStringList entries;
        for (QAction *a : form->gappAdvanced->actions())
            if (known.contains(a->objectName()))
                entries << a->objectName() + (a->isSeparator() ? QString() : '=' + a->text());
        QCOMPARE(entries.join(','),
                 QStringLiteral("gappaSavePoseDescriptions=Save Pose Descriptions,gappaResetPoseNames=Reset Pose Names,sep2,"
                                "gappaSaveChemicalList=Save Chemical List,gappaResetChemicals=Reset Chemicals,"
                                "gappaReorganise=Reorganise Chemical Order,sep3,gappaResetMutabilityValues=Reset Mutability Values,"
                                "gappaSanityCheck=Sanity Check Genome,gappaChangeDefaultTemplate=Change Default Template"));
    }

    // --- sanity check -----------------------------------------------------------------------

    void duplicatesAreCountedOverOrderedPairs_data()
    {
        QTest::addColumn<QList<QList<int>>>("genes"); // type, subtype, ID, generation
        QTest::addColumn<int>("errors");
        QTest::newRow("no genes") << QList<QList<int>>{} << 0;
        QTest::newRow("one pair") << QList<QList<int>>{{1, 0, 4, 1}, {1, 1, 4, 1}, {1, 0, 4, 1}} << 2;
        QTest::newRow("three alike") << QList<QList<int>>{{2, 3, 9, 0}, {2, 3, 9, 0}, {2, 3, 9, 0}} << 6;
        QTest::newRow("equal ID, other generation") << QList<QList<int>>{{1, 0, 4, 1}, {1, 0, 4, 2}} << 0;
        QTest::newRow("equal ID, other subtype") << QList<QList<int>>{{1, 0, 4, 1}, {1, 4, 4, 1}} << 0;
        QTest::newRow("equal ID, other type") << QList<QList<int>>{{0, 1, 4, 1}, {1, 1, 4, 1}} << 0;
        QTest::newRow("two pairs") << QList<QList<int>>{{1, 0, 1, 0}, {1, 0, 2, 0}, {1, 0, 1, 0}, {1, 0, 2, 0}} << 4;
    }

    void duplicatesAreCountedOverOrderedPairs()
    {
        QFETCH(QList<QList<int>>, genes);
        QFETCH(int, errors);
        for (const QList<int> &g : genes)
            AddGene(g[0], g[1], g[2], g[3]);
        for (int i = 0; i <= errors; ++i)
            prompt.AnswerMessage(Prompt::Ok);
        const int yieldsBefore = prompt.yields;
        QCOMPARE(SanityCheck(*session), errors);
        QCOMPARE(prompt.shown.size(), errors + 1);
        QCOMPARE(ShownText(prompt.Last()), ShownText("Helixbench", 64, "Total errors (duplicates) found = " + QString::number(errors)));
        QCOMPARE(prompt.yields - yieldsBefore, 2 * int(genes.size()));
    }

    void eachDuplicateBoxNamesBothGenesByTheirCaption()
    {
        AddGene(1, 0, 7, 2, QStringLiteral("Sugar sensor"));
        AddGene(1, 1, 7, 2);
        AddGene(1, 0, 7, 2);
        prompt.AnswerMessage(Prompt::Ok).AnswerMessage(Prompt::Ok).AnswerMessage(Prompt::Ok);
        SanityCheck(*session);
        QCOMPARE(ShownText(prompt.shown[0]),
                 ShownText("Helixbench", 16, "Caution. Duplicate ID for gene #7 (Sugar sensor)\r\nDuplicate is gene #2 (Sugar sensor)"));
        QCOMPARE(prompt.shown[1].text, QStringLiteral("Caution. Duplicate ID for gene #7 (Sugar sensor)\r\nDuplicate is gene #0 (Sugar sensor)"));
        // The progress window said where it was and is gone again.
        QCOMPARE(prompt.progressTitle + '|' + prompt.progressStatus, QStringLiteral("Please Wait|Working on gene 2 of 3"));
        QCOMPARE(prompt.progressValue, 67);
        QVERIFY(!prompt.progressLoaded);
    }

    void theFirstStatusPanelGetsItsTextBack()
    {
        session->SetStatusPanel(1, QStringLiteral("Sample.gen"));
        AddGene(1, 0, 7, 2);
        AddGene(1, 0, 7, 2);
        QStringList panel;
        connect(session.get(), &Session::StatusPanelChanged, this, [&panel](int p, const QString &t) {
            if (p == 1)
                panel << t;
        });
        prompt.AnswerMessage(Prompt::Ok).AnswerMessage(Prompt::Ok).AnswerMessage(Prompt::Ok);
        Menu("gappaSanityCheck");
        QCOMPARE(panel.join('|'), QStringLiteral("Processing...|Sample.gen"));
        QCOMPARE(form->findChild<QLabel *>(QStringLiteral("StatusBar_1"))->text(), QStringLiteral("Sample.gen"));
        QCOMPARE(prompt.shown.size(), 3);
    }

    void aFullGenomeIsCheckedWithoutDuplicates()
    {
        for (int i = 0; i < 900; ++i)
            AddGene(1, i % 5, i / 5, 0);
        prompt.AnswerMessage(Prompt::Ok);
        QElapsedTimer timer;
        timer.start();
        QCOMPARE(SanityCheck(*session), 0);
        qInfo("sanity check of 900 genes took %lld ms", timer.elapsed());
        QCOMPARE(prompt.progressStatus, QStringLiteral("Working on gene 899 of 900"));
    }

    // --- mutability -------------------------------------------------------------------------

    void answersFoldByLengthAndValue_data()
    {
        QTest::addColumn<QString>("answer");
        QTest::addColumn<int>("value"); // -1: refused for its length
        QTest::newRow("300") << "300" << 44;
        QTest::newRow("255") << "255" << 255;
        QTest::newRow("256") << "256" << 0;
        QTest::newRow("999") << "999" << 231;
        QTest::newRow("1000") << "1000" << -1;
        QTest::newRow("0255, four characters") << "0255" << -1;
        QTest::newRow("text") << "abc" << 0;
        QTest::newRow("rounded half to even") << "2.5" << 2;
        QTest::newRow("an exponent") << "1e3" << 232;
        QTest::newRow("negative") << "-5" << 251;
        QTest::newRow("a leading blank") << " 7" << 7;
    }

    void answersFoldByLengthAndValue()
    {
        QFETCH(QString, answer);
        QFETCH(int, value);
        QCOMPARE(FoldMutabilityAnswer(answer), value);
    }

    void resetMutabilitySetsEveryGeneAfterTheQuestion()
    {
        Gene &a = AddGene(1, 0, 1, 0);
        Gene &b = AddGene(2, 3, 1, 0);
        a.MutabilityWeighting = 128;
        b.MutabilityWeighting = 7;
        QSignalSpy refreshed(session.get(), &Session::ViewsRefreshRequested);
        prompt.AnswerInput(QStringLiteral("300")).AnswerMessage(Prompt::Yes);
        Menu("gappaResetMutabilityValues");
        QCOMPARE(prompt.shown[0].title + '|' + prompt.shown[0].text,
                 QStringLiteral("Reset Mutability Weightings|Enter a value (0 to 255) to reset all mutability weightings to [0]"));
        QCOMPARE(ShownText(prompt.shown[1]), ShownText("Helixbench", 35,
                 "This will reset all gene mutability percentages to 44.\r\nAre you sure you wish to perform this action?"));
        QCOMPARE(a.MutabilityWeighting * 1000 + b.MutabilityWeighting, 44044);
        QCOMPARE(refreshed.count(), 1);
    }

    void resetMutabilityStopsWithoutChange_data()
    {
        QTest::addColumn<QString>("answer");
        QTest::addColumn<int>("button"); // 0: no question comes
        QTest::addColumn<QString>("last");
        QTest::newRow("cancelled input") << "" << 0 << "";
        QTest::newRow("too long") << "1000" << 0 << ShownText("Helixbench", 16, "Invalid number entered. Range is 0 to 255.");
        QTest::newRow("No") << "0" << int(Prompt::No) << "";
        QTest::newRow("Cancel") << "0" << int(Prompt::Cancel) << "";
    }

    void resetMutabilityStopsWithoutChange()
    {
        QFETCH(QString, answer);
        QFETCH(int, button);
        QFETCH(QString, last);
        Gene &a = AddGene(1, 0, 1, 0);
        a.MutabilityWeighting = 128;
        QSignalSpy refreshed(session.get(), &Session::ViewsRefreshRequested);
        prompt.AnswerInput(answer);
        if (button)
            prompt.AnswerMessage(button);
        else if (!last.isEmpty())
            prompt.AnswerMessage(Prompt::Ok);
        QVERIFY(!ResetMutabilityValues(*session));
        if (!last.isEmpty())
            QCOMPARE(ShownText(prompt.Last()), last);
        QCOMPARE(int(a.MutabilityWeighting), 128);
        QCOMPARE(refreshed.count(), 0);
    }

    void resetMutabilityWithNoGenesSaysSo()
    {
        prompt.AnswerMessage(Prompt::Ok);
        QVERIFY(!ResetMutabilityValues(*session));
        QCOMPARE(ShownText(prompt.Last()), ShownText("Helixbench", 64, "No genes loaded"));
    }

    // --- list resets ------------------------------------------------------------------------

    void resetChemicalsCopiesTheFactoryListAndLoadsIt()
    {
        QVERIFY(TestFiles::Write(File("chemicals.def"), ListFile(QStringLiteral("def"))));
        QVERIFY(TestFiles::Write(File("chemicals.txt"), ListFile(QStringLiteral("mine")) + "tail of a longer file"));
        // A folder elsewhere as the working directory: the reset must not look there.
        QTemporaryDir elsewhere;
        QVERIFY(TestFiles::Write(elsewhere.path() + QStringLiteral("/chemicals.def"), ListFile(QStringLiteral("wrong"))));
        QDir::setCurrent(elsewhere.path());
        session->Lists.ChemicalsChanged = true;
        auto &receptor = Add<clsReceptor>(*session, 1, 0);
        receptor.Chem = 33;

        prompt.AnswerMessage(Prompt::Yes);
        Menu("gappaResetChemicals");
        QCOMPARE(ShownText(prompt.shown[0]), ShownText("Helixbench", 35,
                 "This will delete any changes you have made.\r\nAre you sure you wish to reset the chemical list?"));
        QCOMPARE(prompt.shown.size(), 1);
        QCOMPARE(TestFiles::Read(File("chemicals.txt")), ListFile(QStringLiteral("def")));
        QCOMPARE(session->Lists.ChemicalNames[33] + '|' + session->Lists.ChemicalCaptions[33], QStringLiteral("def33|def caption 33"));
        QVERIFY(session->Lists.ChemicalsChanged);
        QCOMPARE(int(receptor.Chem), 33);
        auto *view = form->findChild<QTreeWidget *>(QStringLiteral("ChemicalListView"));
        QCOMPARE(view->topLevelItemCount(), 256);
        QCOMPARE(view->topLevelItem(33)->text(1), QStringLiteral("def33"));
        QCOMPARE(form->findChild<QLabel *>(QStringLiteral("ChemCountLabel"))->text(), session->Lists.ChemicalCountText());
    }

    void resetPoseNamesDoesTheSameWithThePoseFiles()
    {
        QVERIFY(TestFiles::Write(File("posename.def"), ListFile(QStringLiteral("pose"))));
        QVERIFY(TestFiles::Write(File("PoseName.txt"), ListFile(QStringLiteral("mine"))));
        prompt.AnswerMessage(Prompt::Yes);
        Menu("gappaResetPoseNames");
        QCOMPARE(ShownText(prompt.shown[0]), ShownText("Helixbench", 35,
                 "This will delete any changes you have made.\r\nAre you sure you wish to reset the pose description list?"));
        // The file under its other spelling is the one replaced: no second file beside it.
        QCOMPARE(TestFiles::Read(File("PoseName.txt")), ListFile(QStringLiteral("pose")));
        QVERIFY(!QFile::exists(File("posename.txt")));
        QCOMPARE(session->Lists.PoseNames[5], QStringLiteral("pose5"));
        QCOMPARE(form->findChild<QTreeWidget *>(QStringLiteral("PoseListView"))->topLevelItem(5)->text(2),
                 QStringLiteral("pose caption 5"));
        QCOMPARE(form->findChild<QLabel *>(QStringLiteral("PoseCountLabel"))->text(), session->Lists.PoseCountText());
    }

    void aMissingFactoryFileIsReportedAndChangesNoFile_data()
    {
        QTest::addColumn<int>("list");
        QTest::addColumn<QString>("file");
        QTest::addColumn<QString>("factory");
        QTest::addColumn<QString>("context");
        QTest::newRow("chemicals") << int(ResettableList::Chemicals) << "chemicals.txt" << "chemicals.def"
                                   << "Error resetting chemicals to defaults";
        QTest::newRow("poses") << int(ResettableList::Poses) << "posename.txt" << "posename.def"
                               << "Error resetting pose descriptions to defaults";
    }

    void aMissingFactoryFileIsReportedAndChangesNoFile()
    {
        QFETCH(int, list);
        QFETCH(QString, file);
        QFETCH(QString, factory);
        QFETCH(QString, context);
        const QString path = sandbox->path() + '/' + file;
        QVERIFY(TestFiles::Write(path, ListFile(QStringLiteral("mine"))));
        prompt.AnswerMessage(Prompt::Yes).AnswerMessage(Prompt::Ok);
        QVERIFY(ResetListToDefaults(*session, ResettableList(list)));
        QCOMPARE(ShownText(prompt.shown[1]),
                 ShownText("Helixbench", 16, context + "\r\nData may have been lost.\n\rDescription: Error ID 53 (File not found: "
                                                 + sandbox->path() + '/' + factory + ")"));
        QCOMPARE(TestFiles::Read(path), ListFile(QStringLiteral("mine")));
        QCOMPARE(QDir(sandbox->path()).entryList(QDir::Files), QStringList{file});
        // The list is loaded again all the same, from the file as it was.
        QCOMPARE(list == int(ResettableList::Chemicals) ? session->Lists.ChemicalNames[9] : session->Lists.PoseNames[9],
                 QStringLiteral("mine9"));
    }

    void anyAnswerButYesLeavesTheListAndItsFile_data()
    {
        QTest::addColumn<int>("button");
        QTest::newRow("No") << int(Prompt::No);
        QTest::newRow("Cancel") << int(Prompt::Cancel);
    }

    void anyAnswerButYesLeavesTheListAndItsFile()
    {
        QFETCH(int, button);
        QVERIFY(TestFiles::Write(File("chemicals.def"), ListFile(QStringLiteral("def"))));
        QVERIFY(TestFiles::Write(File("chemicals.txt"), ListFile(QStringLiteral("mine"))));
        session->Lists.ChemicalNames[9] = QStringLiteral("edited");
        prompt.AnswerMessage(button);
        QVERIFY(!ResetListToDefaults(*session, ResettableList::Chemicals));
        QCOMPARE(TestFiles::Read(File("chemicals.txt")), ListFile(QStringLiteral("mine")));
        QCOMPARE(session->Lists.ChemicalNames[9], QStringLiteral("edited"));
    }

    void aMissingListFileIsMadeFromTheFactoryFile()
    {
        QVERIFY(TestFiles::Write(File("chemicals.def"), ListFile(QStringLiteral("def"))));
        prompt.AnswerMessage(Prompt::Yes);
        QVERIFY(ResetListToDefaults(*session, ResettableList::Chemicals));
        QCOMPARE(prompt.shown.size(), 1);
        QCOMPARE(TestFiles::Read(File("chemicals.txt")), ListFile(QStringLiteral("def")));
    }
};

QTEST_MAIN(TestSanityResets)
#include "test_sanity_resets.moc"
