// The chemical list handed to the game and to the clipboard, and the species caption file:
// the bytes of the game's list and its backup, the questions and what each answer leaves.
#include "core/Gene.h"
#include "core/ListPublishing.h"
#include "core/Session.h"
#include "core/genes/BodyGenes.h"
#include "support/ShownText.h"
#include "support/TestEnv.h"
#include "tools/frmChromosomeMap.h"
#include "tools/frmRTFChemicalList.h"
#include "views/HelixbenchForm.h"
#include "vocab/PublishedChemicals.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QMenu>
#include <QPointer>
#include <QPushButton>
#include <QTextEdit>
#include <QtTest>

namespace {
const QString InstallQuestion = QStringLiteral(
    "This will install the currently loaded chemical list\r\ninto Arkenfold. Arkenfold's existing list will be lost. Are you sure?");
const QString BackupQuestion = QStringLiteral("I could not create a backup file. Continue anyway?");
const QByteArray OldList("\x00\x01\x03old", 6);
} // namespace

class TestPublishing : public QObject
{
    Q_OBJECT

    ScriptedPrompt prompt;
    std::unique_ptr<SettingsSandbox> sandbox;
    std::unique_ptr<Session> session;
    QString game; // the game's main folder
    QWidget owner;

    QString GameFile(const QString &name) const { return game + QLatin1Char('/') + name; }
    QByteArray ListFile() const { return PublishedChemicals::AllChemicalsFile(session->Lists); }
    void SetMainDirectory(const QString &folder)
    {
        sandbox->SetGameValue(QStringLiteral("Kelmoth Technology"), QStringLiteral("Arkenfold 2"), QStringLiteral("1.0"),
                              QStringLiteral("Main Directory"), folder);
    }
    QStringList GameFolder() const { return QDir(game).entryList(QDir::Files, QDir::Name); }
    QStringList Texts() const
    {
        QStringList texts;
        for (const ScriptedPrompt::Shown &s : prompt.shown)
            texts << ShownText(s);
        return texts;
    }
    static QString Question(const QString &text) { return ShownText(QStringLiteral("Helixbench"), 35, text); }
    static QString Fault(int number, const QString &description)
    {
        return ShownText(QStringLiteral("Helixbench"), 16,
                         QStringLiteral("Unable to install new chemicals file\n\rDescription: Error ID %1 (%2)")
                             .arg(number)
                             .arg(description));
    }
    // A folder this process can't change; false when permissions don't bind it (root).
    static bool MakeReadOnly(const QString &folder)
    {
        QFile::setPermissions(folder, QFileDevice::ReadOwner | QFileDevice::ExeOwner | QFileDevice::ReadUser
                                          | QFileDevice::ExeUser);
        QFile probe(folder + QStringLiteral("/probe"));
        if (!probe.open(QIODevice::WriteOnly))
            return true;
        probe.remove();
        return false;
    }

private slots:
    void init()
    {
        FreshSession(sandbox, prompt, session);
        session->Tables.Build();
        session->Lists.SetChemicalDefaults();
        game = sandbox->path() + QStringLiteral("/Arkenfold");
        QVERIFY(QDir().mkpath(game));
        SetMainDirectory(game);
    }
    void cleanup()
    {
        QFile::setPermissions(game, QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
        QVERIFY2(prompt.AllAnswered(), "a queued answer was not asked for");
        for (QWidget *w : owner.findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly))
            delete w;
    }

    // --- the game's list file ------------------------------------------------------------

    void listFileLayout()
    {
        NameLists &lists = session->Lists;
        for (QString &name : lists.ChemicalNames)
            name.clear();
        QCOMPARE(PublishedChemicals::AllChemicalsFile(lists), QByteArray("\x00\x01", 2) + QByteArray(256, '\0'));

        lists.ChemicalNames[0] = QStringLiteral("<none>");
        lists.ChemicalNames[2] = QStringLiteral("Glucose");
        lists.ChemicalNames[3] = QStringLiteral("Caf\u00e9");  // one byte in the code page
        lists.ChemicalNames[4] = QString(300, QLatin1Char('x')); // cut to its length byte
        lists.ChemicalNames[255] = QStringLiteral("Last");
        lists.ChemicalNames[256] = QStringLiteral("never written");
        lists.ChemicalCaptions[2] = QStringLiteral("no descriptions in this file");
        QByteArray expected("\x00\x01\x06<none>\x00\x07Glucose\x04" "Caf\xe9\xff", 2 + 7 + 1 + 8 + 5 + 1);
        expected += QByteArray(255, 'x') + QByteArray(250, '\0') + QByteArray("\x04Last");
        QCOMPARE(PublishedChemicals::AllChemicalsFile(lists), expected);
    }

    // --- install ---------------------------------------------------------------------------

    // The first install finds no backup to delete and asks; the second doesn't, and keeps the
    // list that the first wrote as the backup.
    void twoInstalls()
    {
        QVERIFY(TestFiles::Write(GameFile("allchemicals.str"), OldList));
        session->Lists.ChemicalNames[5] = QStringLiteral("Starch");
        prompt.AnswerMessage(Prompt::Yes).AnswerMessage(Prompt::Yes);
        QVERIFY(ListPublishing::InstallChemicalList(*session));
        QCOMPARE(Texts(), QStringList({Question(InstallQuestion), Question(BackupQuestion)}));
        const QByteArray first = ListFile();
        QCOMPARE(TestFiles::Read(GameFile("allchemicals.str")), first);
        QCOMPARE(TestFiles::Read(GameFile("chemicals.bak")), OldList);

        prompt.Clear();
        session->Lists.ChemicalNames[5] = QStringLiteral("Glycogen");
        prompt.AnswerMessage(Prompt::Yes);
        QVERIFY(ListPublishing::InstallChemicalList(*session));
        QCOMPARE(Texts(), QStringList({Question(InstallQuestion)}));
        QVERIFY(ListFile() != first);
        QCOMPARE(TestFiles::Read(GameFile("allchemicals.str")), ListFile());
        QCOMPARE(TestFiles::Read(GameFile("chemicals.bak")), first);
        // The workbench's own files and flag are left alone.
        QCOMPARE(GameFolder(), QStringList({"allchemicals.str", "chemicals.bak"}));
        QVERIFY(!session->Lists.ChemicalsChanged && !QFile::exists(sandbox->path() + "/Chemicals.txt"));
    }

    // Only Yes goes on, at either question; what the backup step did stands.
    void answersThatStop_data()
    {
        QTest::addColumn<int>("install");
        QTest::addColumn<int>("backup"); // 0: not asked
        QTest::addColumn<bool>("backupMade");
        QTest::newRow("No to the install") << int(Prompt::No) << 0 << false;
        QTest::newRow("Cancel to the install") << int(Prompt::Cancel) << 0 << false;
        QTest::newRow("No to the backup question") << int(Prompt::Yes) << int(Prompt::No) << true;
        QTest::newRow("Cancel to the backup question") << int(Prompt::Yes) << int(Prompt::Cancel) << true;
    }
    void answersThatStop()
    {
        QFETCH(int, install);
        QFETCH(int, backup);
        QFETCH(bool, backupMade);
        QVERIFY(TestFiles::Write(GameFile("allchemicals.str"), OldList));
        prompt.AnswerMessage(install);
        if (backup)
            prompt.AnswerMessage(backup);
        QVERIFY(!ListPublishing::InstallChemicalList(*session));
        QCOMPARE(prompt.shown.size(), backup ? 2 : 1);
        QCOMPARE(TestFiles::Read(GameFile("allchemicals.str")), OldList);
        QCOMPARE(QFile::exists(GameFile("chemicals.bak")), backupMade);
    }

    // No game key, no game folder, a folder or list the user may not change: each has its
    // message, and the files are as they were.
    void gameNotThere()
    {
        QFile::remove(sandbox->SystemFolder() + "/Kelmoth Technology/Arkenfold 2.ini");
        QVERIFY(TestFiles::Write(GameFile("allchemicals.str"), OldList));
        prompt.AnswerMessage(Prompt::Yes).AnswerMessage(Prompt::Ok);
        QVERIFY(!ListPublishing::InstallChemicalList(*session));
        QCOMPARE(ShownText(prompt.Last()),
                 ShownText("Helixbench", 16, "Error reading registry key -- ensure Arkenfold\r\nis installed on this system."));
        QCOMPARE(GameFolder(), QStringList({"allchemicals.str"}));
        QCOMPARE(TestFiles::Read(GameFile("allchemicals.str")), OldList);

        // A folder that isn't there: no backup, then nothing to write into.
        prompt.Clear();
        const QString nowhere = sandbox->path() + QStringLiteral("/Uninstalled/");
        SetMainDirectory(nowhere);
        prompt.AnswerMessage(Prompt::Yes).AnswerMessage(Prompt::Yes).AnswerMessage(Prompt::Ok);
        QVERIFY(!ListPublishing::InstallChemicalList(*session));
        QCOMPARE(Texts(), QStringList({Question(InstallQuestion), Question(BackupQuestion),
                                       Fault(76, "Path not found: " + nowhere + "allchemicals.str")}));
        QVERIFY(!QFileInfo::exists(nowhere));
    }

    void unchangeableGameFiles_data()
    {
        QTest::addColumn<bool>("folder"); // the folder, else the list alone, is read-only
        QTest::newRow("read-only folder") << true;
        QTest::newRow("read-only list") << false;
    }
    void unchangeableGameFiles()
    {
        QFETCH(bool, folder);
        QVERIFY(TestFiles::Write(GameFile("allchemicals.str"), OldList));
        QVERIFY(TestFiles::Write(GameFile("chemicals.bak"), "older"));
        if (folder ? !MakeReadOnly(game)
                   : !QFile::setPermissions(GameFile("allchemicals.str"), QFileDevice::ReadOwner)
                         || QFileInfo(GameFile("allchemicals.str")).isWritable())
            QSKIP("permissions bind no one here (running as root)");
        prompt.AnswerMessage(Prompt::Yes);
        if (folder)
            prompt.AnswerMessage(Prompt::Yes);
        prompt.AnswerMessage(Prompt::Ok);
        QVERIFY(!ListPublishing::InstallChemicalList(*session));
        QCOMPARE(ShownText(prompt.Last()), Fault(70, "Permission denied: " + GameFile("allchemicals.str")));
        QCOMPARE(prompt.shown.size(), folder ? 3 : 2);
        QCOMPARE(TestFiles::Read(GameFile("allchemicals.str")), OldList);
        QCOMPARE(TestFiles::Read(GameFile("chemicals.bak")), folder ? QByteArray("older") : OldList);
        QCOMPARE(GameFolder(), QStringList({"allchemicals.str", "chemicals.bak"}));
    }

    // A game folder without a list: no backup can be made, and the list that isn't there to
    // be replaced is reported too, after the new one has been written.
    void noListToReplace()
    {
        prompt.AnswerMessage(Prompt::Yes).AnswerMessage(Prompt::Yes).AnswerMessage(Prompt::Ok);
        QVERIFY(!ListPublishing::InstallChemicalList(*session));
        QCOMPARE(ShownText(prompt.Last()), Fault(53, "File not found: " + GameFile("allchemicals.str")));
        QCOMPARE(TestFiles::Read(GameFile("allchemicals.str")), ListFile());
        QCOMPARE(GameFolder(), QStringList({"allchemicals.str"}));
    }

    // The game's files in another case are the files; the key's folder may lack its slash.
    void gameSpellings()
    {
        SetMainDirectory(game);
        QVERIFY(TestFiles::Write(GameFile("AllChemicals.STR"), OldList));
        QVERIFY(TestFiles::Write(GameFile("Chemicals.BAK"), "older"));
        prompt.AnswerMessage(Prompt::Yes);
        QVERIFY(ListPublishing::InstallChemicalList(*session));
        QCOMPARE(GameFolder(), QStringList({"AllChemicals.STR", "Chemicals.BAK"}));
        QCOMPARE(TestFiles::Read(GameFile("AllChemicals.STR")), ListFile());
        QCOMPARE(TestFiles::Read(GameFile("Chemicals.BAK")), OldList);
    }

    // --- the list as text --------------------------------------------------------------------

    void tableText()
    {
        NameLists &lists = session->Lists;
        lists.ChemicalNames[1] = QStringLiteral("ATP");
        lists.ChemicalCaptions[1] = QStringLiteral("energy");
        lists.ChemicalCaptions[0] = QStringLiteral("not listed");
        lists.ChemicalNames[7].clear();
        const QStringList rows = PublishedChemicals::ChemicalTable(lists).split(QLatin1Char('\n'));
        QCOMPARE(rows.size(), 256); // 255 rows, each ended by a line feed
        QCOMPARE(rows.first(), QStringLiteral("1\tATP\tenergy"));
        QCOMPARE(rows[1], QStringLiteral("2\t2\t")); // no description: ends in a tab
        QCOMPARE(rows[6], QStringLiteral("7\t\t"));
        QCOMPARE(rows[254], QStringLiteral("255\t255\t"));
        QVERIFY(rows.last().isEmpty());
    }

    // The dialog shows the text as it was when it opened; a second open shows the same one.
    void listDialog()
    {
        session->Lists.ChemicalNames[1] = QStringLiteral("ATP");
        const QString text = PublishedChemicals::ChemicalTable(session->Lists);
        QPointer<frmRTFChemicalList> dialog = frmRTFChemicalList::Open(*session, &owner);
        QVERIFY(dialog->isVisible() && !dialog->isModal() && dialog->windowTitle() == "RTF Chemical List");
        auto *box = dialog->findChild<QTextEdit *>(QStringLiteral("chemRichTextBox"));
        QCOMPARE(box->toPlainText(), text);
        session->Lists.ChemicalNames[1] = QStringLiteral("ADP");
        QCOMPARE(frmRTFChemicalList::Open(*session, &owner), dialog.data());
        QCOMPARE(box->toPlainText(), text);
        auto *close = dialog->findChild<QPushButton *>(QStringLiteral("CloseRTFCommand"));
        QCOMPARE(close->text(), QStringLiteral("&Close"));
        QTest::mouseClick(close, Qt::LeftButton);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(dialog.isNull());
        QVERIFY(prompt.shown.isEmpty());
    }

    // --- the species caption file -------------------------------------------------------------

    void speciesCaptionFile()
    {
        prompt.AnswerMessage(Prompt::Ok);
        QVERIFY(!ListPublishing::MakeSpeciesCaptionFile(*session));
        QCOMPARE(ShownText(prompt.Last()), ShownText("Helixbench", 64, "No genome/caption file loaded."));

        QVERIFY(session->CreateGene(2, 1, false));
        static_cast<clsSpecies *>(session->GeneAt(0))->Genus = 1;
        session->CaptionStore.SetCaption(2, 1, 0, QStringLiteral("Head"));
        const QString file = sandbox->path() + QStringLiteral("/Brannoch.GNO");
        const QString question = Question("This will overwrite the default caption file for species 'Brannoch'.\r\n"
                                          "Are you sure you wish to do this?");
        for (int answer : {int(Prompt::No), int(Prompt::Cancel)}) {
            prompt.Clear();
            prompt.AnswerMessage(answer);
            QVERIFY(!ListPublishing::MakeSpeciesCaptionFile(*session));
            QCOMPARE(Texts(), QStringList({question}));
            QVERIFY(!QFile::exists(file));
        }
        // Written whatever the caption setting says.
        prompt.Clear();
        session->UseDefaultCaptions = QStringLiteral("0");
        prompt.AnswerMessage(Prompt::Yes);
        QVERIFY(ListPublishing::MakeSpeciesCaptionFile(*session));
        QCOMPARE(TestFiles::Read(file), session->CaptionStore.FileBytes());

        // A first gene without a genus names no species; the save then reports.
        prompt.Clear();
        session->ClearGeneList();
        QVERIFY(session->CreateGene(1, 2, false));
        prompt.AnswerMessage(Prompt::Yes).AnswerMessage(Prompt::Ok);
        QVERIFY(ListPublishing::MakeSpeciesCaptionFile(*session));
        QCOMPARE(ShownText(prompt.shown[0]), Question("This will overwrite the default caption file for species ''.\r\n"
                                                      "Are you sure you wish to do this?"));
        QVERIFY(prompt.Last().text.startsWith(QStringLiteral("Error saving caption file ")));
    }

    // --- the menu ------------------------------------------------------------------------------

    // The entries stand in the Advanced menu where they belong among those around them, and
    // their dialogs don't block the main window.
    void menuEntries()
    {
        HelixbenchForm form(*session);
        const QStringList known = {"gappaMakeSpeciesCaptionFile", "sepA9", "gappaSavePoseDescriptions", "sep2",
                                   "gappaSaveChemicalList", "gappaInstallChemicalList", "gappaRTFChemicalList", "sep3",
                                   "gappaPlotChromosomeMap", "gappaChangeDefaultTemplate", "sep3b",
                                   "gappaAdvancedOptions"};
        QStringList order, captions;
        for (QAction *a : form.gappAdvanced->actions())
            if (known.contains(a->objectName())) {
                order << a->objectName();
                if (!a->isSeparator())
                    captions << a->text();
            }
        QCOMPARE(order, known);
        QCOMPARE(captions.mid(0, 1) + captions.mid(3, 3),
                 QStringList({"Make species caption file", "Install Chemical List", "RTF-er-ise Chemical List",
                              "Plot Chromosome Map"}));
        auto trigger = [&](const char *name) { form.findChild<QAction *>(QString::fromLatin1(name))->trigger(); };

        prompt.AnswerMessage(Prompt::Ok);
        trigger("gappaPlotChromosomeMap");
        QCOMPARE(prompt.Last().text, QStringLiteral("Not enough genes to plot chromosome map"));
        prompt.AnswerMessage(Prompt::No);
        trigger("gappaInstallChemicalList");
        QCOMPARE(prompt.Last().text, InstallQuestion);
        prompt.AnswerMessage(Prompt::Ok);
        trigger("gappaMakeSpeciesCaptionFile");
        QCOMPARE(prompt.Last().text, QStringLiteral("No genome/caption file loaded."));

        trigger("gappaRTFChemicalList");
        QVERIFY(form.findChild<frmRTFChemicalList *>());
        QVERIFY(session->CreateGene(1, 2, false));
        trigger("gappaPlotChromosomeMap");
        auto *map = form.findChild<frmChromosomeMap *>();
        QVERIFY(map && map->isVisible() && !map->isModal());
        QVERIFY(!QApplication::activeModalWidget());
    }
};

QTEST_MAIN(TestPublishing)
#include "test_publishing.moc"
