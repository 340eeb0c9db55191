// The chemical list handed to the game and as text, and the species caption file: the bytes
// of the game's list and its backup, the questions and what each answer leaves behind.
#include "ToolTestKit.h"
#include "core/ListPublishing.h"
#include "core/genes/BodyGenes.h"
#include "tools/frmRTFChemicalList.h"

#include <QTextEdit>
#include <QtTest>

class TestPublishing : public QObject, ToolBench
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

private slots:
    void init()
    {
        Start(false);
        session->Tables.Build();
        session->Lists.ChemicalNames[1] = QStringLiteral("Caf\u00e9");
        session->Lists.ChemicalNames[2] = QString(300, QLatin1Char('x'));
        session->Lists.ChemicalCaptions[1] = QStringLiteral("not in the game's file");
    }
    void cleanup() { QVERIFY(Finish()); }

    // Only Yes goes on. A backup that isn't there to delete asks; a second install keeps
    // the list that the first wrote. Without the game's key or folder nothing is written.
    void install_data()
    {
        QTest::addColumn<QString>("mainDirectory"); // empty: the game has no key
        QTest::addColumn<QVector<int>>("answers");  // to the prompts of one install, or two
        QTest::addColumn<QStringList>("outcome");
        const QString error = "Error reading registry key -- ensure Arkenfold\r\nis installed on this system.";
        const QString fault = "Unable to install new chemicals file\n\rDescription: Error ID 76 "
                              "(Path not found: /nonexistent/Arkenfold/allchemicals.str)";
        QTest::newRow("first install") << "<game>" << QVector<int>{Prompt::Yes, Prompt::Yes}
                                       << QStringList{Install, Backup, "allchemicals.str:new", "chemicals.bak:old"};
        QTest::newRow("second install: the first's list the backup")
            << "<game>" << QVector<int>{Prompt::Yes, Prompt::Yes, Prompt::Yes}
            << QStringList{Install, Backup, Install, "allchemicals.str:new", "chemicals.bak:new"};
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
        for (int installs = 0; installs < 2 && !prompt.AllAnswered(); ++installs)
            ListPublishing::InstallChemicalList(*session);
        QTEST(Outcome(), "outcome");
    }

    // Chemicals 1 to 255, a row each: number, name, description, and a line feed.
    void chemicalTable()
    {
        QWidget owner;
        frmRTFChemicalList *dialog = frmRTFChemicalList::Open(*session, &owner);
        QVERIFY(dialog->isVisible() && !dialog->isModal() && frmRTFChemicalList::Open(*session, &owner) == dialog);
        QCOMPARE(dialog->windowTitle(), QStringLiteral("RTF Chemical List"));
        const QString text = dialog->chemRichTextBox->toPlainText();
        QVERIFY(text.startsWith("1\tCaf\u00e9\tnot in the game's file\n2\txxx") && text.endsWith("\n255\t\t\n")
                && text.count('\n') == 255);
    }

    // Asked for the genome's species; written only on Yes.
    void speciesCaptionFile()
    {
        prompt.AnswerMessage(Prompt::Ok).AnswerMessage(Prompt::No).AnswerMessage(Prompt::Yes);
        QVERIFY(!ListPublishing::MakeSpeciesCaptionFile(*session)); // no genome
        QVERIFY(session->CreateGene(2, 1, false));
        static_cast<clsSpecies *>(session->GeneAt(0))->Genus = 1;
        const QString file = File(QStringLiteral("Brannoch.GNO"));
        QVERIFY(!ListPublishing::MakeSpeciesCaptionFile(*session) && !QFile::exists(file));
        QVERIFY(ListPublishing::MakeSpeciesCaptionFile(*session));
        const QString question = ShownText("Helixbench", 35, "This will overwrite the default caption file for species "
                                                             "'Brannoch'.\r\nAre you sure you wish to do this?");
        QCOMPARE(Outcome(), QStringList({ShownText("Helixbench", 64, "No genome/caption file loaded."), question, question}));
        QCOMPARE(TestFiles::Read(file), session->CaptionStore.FileBytes());
    }
};

QTEST_MAIN(TestPublishing)
#include "test_publishing.moc"
