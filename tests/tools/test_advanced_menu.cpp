// The Advanced menu's tools over the whole genome and the lists (the reorganiser and the
// chromosome map have tests of their own): the duplicate check, the mutability and list
// resets, the chemical list handed to the game and as text, and the species caption file.
#include "ToolTestKit.h"
#include "core/SummaryTestKit.h"
#include "core/genes/BodyGenes.h"
#include "tools/frmRTFChemicalList.h"

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

class TestAdvancedMenu : public QObject, ToolBench
{
    Q_OBJECT

    const QString Install = ShownText("Helixbench", 35, "This will install the currently loaded chemical list\r\n"
                                                        "into Arkenfold. Arkenfold's existing list will be lost. Are you sure?");
    const QString Backup = ShownText("Helixbench", 35, "I could not create a backup file. Continue anyway?");
    // The game's list before the install, and the list of the names set in init() in the
    // game's format: the count 256 low byte first, then each name as a length byte and
    // single-byte characters; an empty name one byte 00, a name too long cut at 255.
    const QByteArray OldList = QByteArray("\x00\x01\x03old", 6);
    const QByteArray NewList = QByteArray("\x00\x01\x00\x04" "Caf\xe9\xff", 9) + QByteArray(255, 'x') + QByteArray(253, '\0');

    QString Game() const { return File(QStringLiteral("Arkenfold/")); }
    // What the user saw and what the game's folder holds: the prompts, then each file as
    // "name:content", the lists told as old and new.
    QStringList Outcome() const
    {
        QStringList seen;
        for (const ScriptedPrompt::Shown &s : prompt.shown)
            seen << ShownText(s);
        for (const QString &name : QDir(Game()).entryList(QDir::Files, QDir::Name)) {
            const QByteArray bytes = TestFiles::Read(Game() + name);
            seen << name + ':' + (bytes == OldList ? "old" : bytes == NewList ? "new" : bytes);
        }
        return seen;
    }

    // Runs an entry of the Advanced menu.
    void Menu(const QString &entry) { form->gappAdvanced->findChild<QAction *>(entry)->trigger(); }

private slots:
    void init()
    {
        Start(true);
        session->Tables.Build();
        session->Lists.ChemicalNames[1] = QStringLiteral("Caf\u00e9");
        session->Lists.ChemicalNames[2] = QString(300, QLatin1Char('x'));
        session->Lists.ChemicalCaptions[1] = QStringLiteral("not in the game's file");
    }
    void cleanup() { QVERIFY(Finish()); }

    // --- sanity check -----------------------------------------------------------------------

    void duplicatesAreCountedOverOrderedPairs_data()
    {
        QTest::addColumn<QList<QList<int>>>("genes"); // type, subtype, ID, generation
        QTest::addColumn<int>("errors");
        QTest::addColumn<QString>("first"); // the first box, the progress window at the end, the yields
        QTest::newRow("one pair") << QList<QList<int>>{{1, 0, 4, 1}, {1, 1, 4, 1}, {1, 0, 4, 1}} << 2
                                  << "Caution. Duplicate ID for gene #4 (Sugar sensor)\r\nDuplicate is gene #2 (Sugar sensor)"
                                     "|Please Wait|Working on gene 2 of 3|67|6";
        QTest::newRow("equal ID, other generation") << QList<QList<int>>{{1, 0, 4, 1}, {1, 0, 4, 2}} << 0 << QString();
        QTest::newRow("equal ID, other subtype") << QList<QList<int>>{{1, 0, 4, 1}, {1, 4, 4, 1}} << 0 << QString();
        QTest::newRow("equal ID, other type") << QList<QList<int>>{{0, 1, 4, 1}, {1, 1, 4, 1}} << 0 << QString();
    }

    // One error box for each ordered pair, naming both genes by their caption, then the
    // total; two yields for each gene, so the window stays alive through a long genome; the
    // first status panel has its old text back afterwards, and the progress window is gone.
    void duplicatesAreCountedOverOrderedPairs()
    {
        QFETCH(QList<QList<int>>, genes);
        QFETCH(int, errors);
        QFETCH(QString, first);
        for (const QList<int> &g : genes)
            Add(*session, g[0], g[1], g[2], QStringLiteral("Sugar sensor")).Generation = quint8(g[3]);
        session->SetStatusPanel(1, QStringLiteral("Sample.gen"));
        for (int i = 0; i <= errors; ++i)
            prompt.AnswerMessage(Prompt::Ok);
        prompt.yields = 0;
        Menu(QStringLiteral("gappaSanityCheck"));
        QCOMPARE(ShownText(prompt.Last()), ShownText("Helixbench", 64, "Total errors (duplicates) found = " + QString::number(errors)));
        if (errors)
            QCOMPARE(ShownText(prompt.shown[0]) + '|' + prompt.progressTitle + '|' + prompt.progressStatus + '|'
                         + QString::number(prompt.progressValue) + '|' + QString::number(prompt.yields),
                     ShownText("Helixbench", 16, first));
        QVERIFY(session->StatusPanel[1] == QStringLiteral("Sample.gen") && !prompt.progressLoaded);
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

    // --- list resets ------------------------------------------------------------------------

    void resetListToDefaults_data()
    {
        QTest::addColumn<bool>("chemicals"); // or poses
        QTest::addColumn<QString>("missing"); // a file that isn't there
        QTest::newRow("chemicals, no list file") << true << "chemicals.txt";
        QTest::newRow("poses") << false << "";
        QTest::newRow("chemicals, no factory file") << true << "chemicals.def";
    }

    // Only Yes goes on. The list file is deleted and the factory file copied in its place (as
    // spelt on disk); either failing is told once and the other still runs, so without a
    // factory file the list is gone and loads its defaults (the loader warns, in its own words).
    // The list is loaded and shown again.
    void resetListToDefaults()
    {
        QFETCH(bool, chemicals);
        QFETCH(QString, missing);
        const QString file = chemicals ? "chemicals.txt" : "PoseName.txt", factory = chemicals ? "chemicals.def" : "posename.def";
        const bool factoryThere = missing != factory;
        if (missing != file)
            QVERIFY(TestFiles::Write(File(file), ListFile(QStringLiteral("mine")) + "tail of a longer file"));
        if (factoryThere)
            QVERIFY(TestFiles::Write(File(factory), ListFile(QStringLiteral("def"))));
        NameLists &lists = session->Lists;
        (chemicals ? lists.ChemicalNames : lists.PoseNames)[9] = QStringLiteral("edited");

        prompt.AnswerMessage(Prompt::No);
        Menu(chemicals ? "gappaResetChemicals" : "gappaResetPoseNames");
        QCOMPARE(chemicals ? lists.ChemicalNames[9] : lists.PoseNames[9], QStringLiteral("edited"));
        prompt.AnswerMessage(Prompt::Yes);
        for (int box = 0; box < (missing.isEmpty() ? 0 : factoryThere ? 1 : 2); ++box)
            prompt.AnswerMessage(Prompt::Ok);
        Menu(chemicals ? "gappaResetChemicals" : "gappaResetPoseNames");
        QCOMPARE(ShownText(prompt.shown[1]), ShownText("Helixbench", 35, "This will delete any changes you have made.\r\nAre you sure you "
                 "wish to reset the " + QString(chemicals ? "chemical list" : "pose description list") + "?"));
        if (!missing.isEmpty())
            QCOMPARE(ShownText(prompt.shown[2]), ShownText("Helixbench", 16, "Error resetting chemicals to defaults\r\nData may have "
                     "been lost.\n\rDescription: Error ID 53 (File not found: " + File(missing) + ")"));
        QCOMPARE(QDir(sandbox->path()).entryList(QDir::Files), factoryThere ? QStringList({factory, file}) : QStringList());
        if (factoryThere)
            QCOMPARE(TestFiles::Read(File(file)), ListFile(QStringLiteral("def")));
        const QString name = factoryThere ? "def9" : "9";
        QCOMPARE(chemicals ? lists.ChemicalNames[9] : lists.PoseNames[9], name);
        QCOMPARE(form->findChild<QTreeWidget *>(chemicals ? "ChemicalListView" : "PoseListView")->topLevelItem(9)->text(1), name);
    }

    // --- the lists handed out ---------------------------------------------------------------

    // Only Yes goes on. A backup that isn't there to delete asks. Without the game's key or
    // folder nothing is written.
    void install_data()
    {
        QTest::addColumn<QString>("mainDirectory"); // empty: the game has no key
        QTest::addColumn<QVector<int>>("answers");  // to the prompts, in order
        QTest::addColumn<QStringList>("outcome");
        const QString error = "Error reading registry key -- ensure Arkenfold\r\nis installed on this system.";
        const QString fault = "Unable to install new chemicals file\n\rDescription: Error ID 76 "
                              "(Path not found: /nonexistent/Arkenfold/allchemicals.str)";
        QTest::newRow("first install") << "<game>" << QVector<int>{Prompt::Yes, Prompt::Yes}
                                       << QStringList{Install, Backup, "allchemicals.str:new", "chemicals.bak:old"};
        QTest::newRow("No to the install") << "<game>" << QVector<int>{Prompt::No} << QStringList{Install, "allchemicals.str:old"};
        QTest::newRow("Cancel to the backup question")
            << "<game>" << QVector<int>{Prompt::Yes, Prompt::Cancel}
            << QStringList{Install, Backup, "allchemicals.str:old", "chemicals.bak:old"};
        QTest::newRow("no key for the game") << "" << QVector<int>{Prompt::Yes, Prompt::Ok}
                                             << QStringList{Install, ShownText("Helixbench", 16, error), "allchemicals.str:old"};
        QTest::newRow("no game folder")
            << "/nonexistent/Arkenfold" << QVector<int>{Prompt::Yes, Prompt::Yes, Prompt::Ok}
            << QStringList{Install, Backup, ShownText("Helixbench", 16, fault), "allchemicals.str:old"};
    }
    void install()
    {
        QFETCH(QString, mainDirectory);
        QFETCH(QVector<int>, answers);
        QVERIFY(QDir().mkpath(Game()) && TestFiles::Write(Game() + "allchemicals.str", OldList));
        if (!mainDirectory.isEmpty())
            sandbox->SetGameValue("Kelmoth Technology", "Arkenfold 2", "1.0", "Main Directory",
                                  mainDirectory.replace("<game>", Game()));
        for (int answer : answers)
            prompt.AnswerMessage(answer);
        Menu(QStringLiteral("gappaInstallChemicalList"));
        QTEST(Outcome(), "outcome");
    }

    // Chemicals 1 to 255, a row each: number, name, description, and a line feed.
    void chemicalTable()
    {
        Menu(QStringLiteral("gappaRTFChemicalList"));
        auto *dialog = form->findChild<frmRTFChemicalList *>();
        QCOMPARE(dialog->windowTitle(), QStringLiteral("RTF Chemical List"));
        const QString text = dialog->chemRichTextBox->toPlainText();
        QVERIFY(text.startsWith("1\tCaf\u00e9\tnot in the game's file\n2\txxx") && text.endsWith("\n255\t\t\n")
                && text.count('\n') == 255);
    }

    // Asked for the genome's species; written only on Yes. Without genes, this and the
    // mutability reset say so.
    void speciesCaptionFile()
    {
        prompt.AnswerMessage(Prompt::Ok).AnswerMessage(Prompt::Ok).AnswerMessage(Prompt::No).AnswerMessage(Prompt::Yes);
        Menu(QStringLiteral("gappaMakeSpeciesCaptionFile")); // no genome
        Menu(QStringLiteral("gappaResetMutabilityValues"));
        QVERIFY(session->CreateGene(2, 1, false));
        static_cast<clsSpecies *>(session->GeneAt(0))->Genus = 1;
        const QString file = File(QStringLiteral("Brannoch.GNO"));
        Menu(QStringLiteral("gappaMakeSpeciesCaptionFile"));
        QVERIFY(!QFile::exists(file));
        Menu(QStringLiteral("gappaMakeSpeciesCaptionFile"));
        const QString question = ShownText("Helixbench", 35, "This will overwrite the default caption file for species "
                                                             "'Brannoch'.\r\nAre you sure you wish to do this?");
        QCOMPARE(Outcome(), QStringList({ShownText("Helixbench", 64, "No genome/caption file loaded."),
                                         ShownText("Helixbench", 64, "No genes loaded"), question, question}));
        QCOMPARE(TestFiles::Read(file), session->CaptionStore.FileBytes());
    }
};

QTEST_MAIN(TestAdvancedMenu)
#include "test_advanced_menu.moc"
