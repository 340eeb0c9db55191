// The chemical, pose and script list files, and the free-slot rules of the list commands.
#include "core/Session.h"
#include "support/ScriptedPrompt.h"
#include "support/TestEnv.h"

#include <QDir>
#include <QtTest>

namespace {
// One entry of a list file, built by hand: 16-bit little-endian length, then the bytes.
QByteArray Entry(const QByteArray &bytes)
{
    QByteArray e;
    e.append(char(bytes.size() & 0xFF));
    e.append(char(bytes.size() >> 8));
    return e + bytes;
}

const QString LfCr = QStringLiteral("\n\r");
}

class TestNameLists : public QObject
{
    Q_OBJECT

    ScriptedPrompt prompt;
    std::unique_ptr<QTemporaryDir> dir;
    std::unique_ptr<Session> session;

    QString Path(const QString &name) const { return dir->path() + QLatin1Char('/') + name; }
    NameLists &Lists() { return session->Lists; }
    QStringList Files() const { return QDir(dir->path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot); }
    void NewSession()
    {
        session.reset(new Session(prompt));
        session->AppDirectory = dir->path();
    }

private slots:
    void init()
    {
        prompt.Clear();
        dir.reset(new QTemporaryDir);
        NewSession();
    }

    void cleanup() { QVERIFY2(prompt.AllAnswered(), "a prompt that was expected never came"); }

    void missingFilesLeaveTheDefaultsWithAWarningEach()
    {
        prompt.AnswerMessage(Prompt::Ok).AnswerMessage(Prompt::Ok).AnswerMessage(Prompt::Ok);
        Lists().LoadChemicalList();
        Lists().LoadPoseList();
        Lists().LoadScriptList();
        QCOMPARE(prompt.MessageTexts(),
                 QStringList({"Could not find 'chemicals.txt', using numeric substitutes.",
                              "Could not find 'posenames.txt', using numeric substitutes.",
                              "Could not find 'scriptnames.txt'--no autoscripts loaded"}));
        for (const auto &s : prompt.shown)
            QCOMPARE(s.style, 48);
        QCOMPARE(Lists().ChemicalNames[0], QStringLiteral("<none>"));
        QCOMPARE(Lists().ChemicalNames[255], QStringLiteral("255"));
        QCOMPARE(Lists().PoseNames[0], QStringLiteral("0"));
        QCOMPARE(Lists().ScriptNames[19], QStringLiteral("<empty>"));
    }

    void savedFileHasTheDescribedLayoutAndReadsBack()
    {
        Lists().SetChemicalDefaults();
        Lists().ChemicalNames[1] = QStringLiteral("Caf\u00e9");
        Lists().ChemicalCaptions[1] = QStringLiteral("\u20ac1");
        Lists().ChemicalNames[256] = QStringLiteral("kept");
        session->ChemicalsChanged = true;
        QVERIFY(Lists().SaveChemicalList());
        QVERIFY(!session->ChemicalsChanged);
        QCOMPARE(Files(), QStringList{"Chemicals.txt"});

        QByteArray expected = Entry("<none>") + Entry("Caf\xe9");
        for (int i = 2; i < 256; ++i)
            expected += Entry(QByteArray::number(i));
        expected += Entry("kept") + Entry({}) + Entry("\x80" "1"); // captions 0 and 1
        for (int i = 2; i < 257; ++i)
            expected += Entry({});
        QCOMPARE(TestFiles::Read(Path("Chemicals.txt")), expected);

        // The reader takes the other spelling for the same file.
        NewSession();
        Lists().LoadChemicalList();
        QCOMPARE(Lists().ChemicalNames[1], QStringLiteral("Caf\u00e9"));
        QCOMPARE(Lists().ChemicalCaptions[1], QStringLiteral("\u20ac1"));
        QCOMPARE(Lists().ChemicalNames[256], QStringLiteral("kept"));
    }

    void emptyListsGiveTheSmallestFiles()
    {
        Lists().ChemicalNames.fill(QString());
        QVERIFY(Lists().SaveChemicalList());
        QCOMPARE(TestFiles::Read(Path("Chemicals.txt")), QByteArray(1028, '\0'));

        Lists().ScriptNames.fill(QString());
        session->ScriptsChanged = true;
        QVERIFY(Lists().SaveScriptList());
        QVERIFY(!session->ScriptsChanged);
        QCOMPARE(TestFiles::Read(Path("scriptnames.txt")), QByteArray(84, '\0'));

        // Scripts: names, then macros; the results are not stored.
        Lists().ScriptNames[3] = QStringLiteral("feed");
        Lists().ScriptMacros[3] = QStringLiteral("inst");
        Lists().ScriptResults[3] = QStringLiteral("not stored");
        QVERIFY(Lists().SaveScriptList());
        const QByteArray bytes = TestFiles::Read(Path("scriptnames.txt"));
        QCOMPARE(bytes.size(), 84 + 8);
        QCOMPARE(bytes.mid(6, 6), Entry("feed"));
        QCOMPARE(bytes.mid(2 * 21 + 4 + 6, 6), Entry("inst"));
    }

    void writerKeepsTheTailAndSpellingOfAnOlderLongerFile()
    {
        QByteArray old(3000, '\0');
        for (int i = 0; i < old.size(); ++i)
            old[i] = char(i % 251);
        QVERIFY(TestFiles::Write(Path("posename.txt"), old));
        Lists().SetPoseDefaults();
        QVERIFY(Lists().SavePoseList());
        QCOMPARE(Files(), QStringList{"posename.txt"});

        // 514 length fields, "0".."255" (10 + 180 + 468 bytes), empty descriptions.
        const int content = 2 * 2 * 257 + 10 + 180 + 468;
        const QByteArray now = TestFiles::Read(Path("posename.txt"));
        QCOMPARE(now.size(), 3000);
        QCOMPARE(now.left(6), Entry("0") + Entry("1"));
        QCOMPARE(now.mid(content), old.mid(content));
        QCOMPARE(now.mid(content - 4, 4), QByteArray(4, '\0')); // last two empty descriptions

        // The reader stops after the last entry and ignores the old bytes behind it.
        NewSession();
        Lists().LoadPoseList();
        QCOMPARE(Lists().PoseNames[200], QStringLiteral("200"));
        QVERIFY(Lists().PoseCaptions[255].isEmpty());

        // A shorter old file is simply overwritten.
        QVERIFY(TestFiles::Write(Path("posename.txt"), QByteArray(10, 'x')));
        QVERIFY(Lists().SavePoseList());
        QCOMPARE(TestFiles::Read(Path("posename.txt")).size(), content);
    }

    void aTextTooLongForItsLengthFieldIsCutAndTheFileStaysWhole()
    {
        Lists().SetChemicalDefaults();
        Lists().ChemicalCaptions[5] = QString(70000, QLatin1Char('x'));
        Lists().ChemicalCaptions[6] = QStringLiteral("after");
        QVERIFY(Lists().SaveChemicalList());
        NewSession();
        Lists().LoadChemicalList();
        QCOMPARE(Lists().ChemicalCaptions[5].size(), 65535);
        QCOMPARE(Lists().ChemicalCaptions[6], QStringLiteral("after"));
        QCOMPARE(Lists().ChemicalNames[255], QStringLiteral("255"));
    }

    void damagedFilesAreReportedAndWhatWasReadStands()
    {
        // Ten names, then an entry whose length runs past the end.
        QByteArray bytes;
        for (int i = 0; i < 10; ++i)
            bytes += Entry("A" + QByteArray::number(i));
        bytes += QByteArray("\x32\x00xyz", 5);
        QVERIFY(TestFiles::Write(Path("CHEMICALS.TXT"), bytes));
        prompt.AnswerMessage(Prompt::Ok);
        Lists().LoadChemicalList();
        QCOMPARE(prompt.Last().style, 16);
        QVERIFY2(prompt.Last().text.startsWith(QStringLiteral("Error reading chemical list") + LfCr
                                               + QStringLiteral("Description: Error ID 62 (")),
                 qPrintable(prompt.Last().text));
        QCOMPARE(Lists().ChemicalNames[9], QStringLiteral("A9"));
        QCOMPARE(Lists().ChemicalNames[10], QStringLiteral("10"));

        // Garbage from the first byte: the defaults stand.
        QVERIFY(TestFiles::Write(Path("scriptnames.txt"), QByteArray("\xff\xff garbage", 10)));
        prompt.AnswerMessage(Prompt::Ok);
        Lists().LoadScriptList();
        QVERIFY(prompt.Last().text.startsWith(QStringLiteral("Error reading script names") + LfCr));
        QCOMPARE(Lists().ScriptNames[0], QStringLiteral("<empty>"));

        // Poses: all names read, the descriptions cut short; empty names still get numbers.
        bytes.clear();
        for (int i = 0; i < 257; ++i)
            bytes += Entry(i == 4 ? QByteArray("Sit") : QByteArray());
        bytes += Entry("first description") + QByteArray("\x01", 1);
        QVERIFY(TestFiles::Write(Path("posename.txt"), bytes));
        prompt.AnswerMessage(Prompt::Ok);
        Lists().LoadPoseList();
        QVERIFY(prompt.Last().text.startsWith(QStringLiteral("Error reading pose names") + LfCr));
        QCOMPARE(Lists().PoseNames[4], QStringLiteral("Sit"));
        QCOMPARE(Lists().PoseNames[3], QStringLiteral("3"));
        QCOMPARE(Lists().PoseCaptions[0], QStringLiteral("first description"));
    }

    void failedSavesReportAndKeepTheFlag()
    {
        QVERIFY(QDir(dir->path()).mkdir(QStringLiteral("Chemicals.txt")));
        QVERIFY(QDir(dir->path()).mkdir(QStringLiteral("PoseName.txt")));
        session->ChemicalsChanged = session->PosesChanged = true;
        prompt.AnswerMessage(Prompt::Ok).AnswerMessage(Prompt::Ok);
        QVERIFY(!Lists().SaveChemicalList());
        QVERIFY(!Lists().SavePoseList());
        const QStringList texts = prompt.MessageTexts();
        QVERIFY(texts[0].startsWith(QStringLiteral("Error saving chemical names") + LfCr
                                    + QStringLiteral("Description: Error ID")));
        QVERIFY(texts[1].startsWith(QStringLiteral("Error saving pose names") + LfCr));
        QVERIFY(session->ChemicalsChanged);
        QVERIFY(session->PosesChanged);
        QCOMPARE(prompt.shown[0].style, 16);
    }

    void freeSlotsAreReadFromTheNames()
    {
        QCOMPARE(NameLists::NumericValue(QStringLiteral("  17")), 17.0);
        QCOMPARE(NameLists::NumericValue(QStringLiteral("-5HT")), -5.0);
        QCOMPARE(NameLists::NumericValue(QStringLiteral("ATP")), 0.0);
        Lists().SetChemicalDefaults();
        Lists().SetPoseDefaults();
        QCOMPARE(Lists().ChemicalCountText(), QStringLiteral(" 1 chemical(s) in use, 255 slots free"));
        QCOMPARE(Lists().PoseCountText(), QStringLiteral(" 1 pose(s) in use, 255 slots free"));
        // An empty chemical name counts as free, an empty pose name as in use; but Add only
        // takes a name that begins with a number above 0.
        Lists().ChemicalNames[1].clear();
        Lists().PoseNames[7].clear();
        Lists().ChemicalNames[2] = QStringLiteral("ATP");
        QCOMPARE(Lists().FreeChemicalSlots(), 254);
        QCOMPARE(Lists().FreePoseSlots(), 254);
        QCOMPARE(Lists().FirstFreeChemicalSlot(), 3);

        for (int i = 1; i < 256; ++i)
            Lists().ChemicalNames[size_t(i)] = QStringLiteral("named");
        QCOMPARE(Lists().ChemicalCountText(), QStringLiteral(" 256 chemical(s) in use, 0 slots free"));
        prompt.AnswerMessage(Prompt::Ok);
        int slot = 0;
        QVERIFY(!Lists().AddChemical(slot));
        QCOMPARE(prompt.Last().text, QStringLiteral("No chemical slots left, delete un-used chemicals"));

        // An empty name of chemical 0 becomes "<nothing>" and keeps it.
        QString name;
        QCOMPARE(NameLists::ChemicalListText(0, name), QStringLiteral("<nothing>"));
        QCOMPARE(name, QStringLiteral("<nothing>"));
    }

    void aChemicalNamed5HTCountsAsFree()
    {
        Lists().SetChemicalDefaults();
        for (int i = 1; i < 3; ++i)
            Lists().ChemicalNames[size_t(i)] = QStringLiteral("named");
        Lists().ChemicalNames[3] = QStringLiteral("5HT");
        Lists().ChemicalCaptions[3] = QStringLiteral("old");
        prompt.AnswerMessage(Prompt::Ok).AnswerMessage(Prompt::Ok).AnswerMessage(Prompt::Ok);
        QVERIFY(!Lists().DeleteChemical(3));
        QVERIFY(!Lists().RenameChemical(3));
        QVERIFY(!Lists().CaptionChemical(3));
        QCOMPARE(prompt.MessageTexts(),
                 QStringList({"Chemical 3 is already deleted", "Chemical 3 is empty and cannot be renamed",
                              "Chemical 3 is empty and the caption cannot be edited"}));
        QVERIFY(!session->ChemicalsChanged);

        // Add takes its slot without a question.
        prompt.Clear();
        prompt.AnswerInput(QStringLiteral("Serotonin")).AnswerInput(QStringLiteral("mood"));
        int slot = 0;
        QVERIFY(Lists().AddChemical(slot));
        QCOMPARE(slot, 3);
        QCOMPARE(Lists().ChemicalNames[3], QStringLiteral("Serotonin"));
        QCOMPARE(prompt.shown[0].text, QStringLiteral("Enter a name for chemical 3 [<un-named chemical>]"));
        QCOMPARE(prompt.shown[1].title, QStringLiteral("Caption for new Chemical"));
        QVERIFY(session->ChemicalsChanged);

        // A negative leading number: Add Here writes over it without asking, Rename works.
        Lists().ChemicalNames[4] = QStringLiteral("-2 ions");
        prompt.Clear();
        prompt.AnswerInput(QStringLiteral("Ion")).AnswerInput(QStringLiteral("c"))
            .AnswerInput(QStringLiteral("Ion2"));
        QVERIFY(Lists().AddChemicalHere(4));
        QVERIFY(Lists().RenameChemical(4));
        QCOMPARE(Lists().ChemicalNames[4], QStringLiteral("Ion2"));
        QCOMPARE(prompt.shown[2].text, QStringLiteral("Rename Chemical 'Ion' [Ion]"));
    }

    void chemicalZeroIsProtected()
    {
        Lists().SetChemicalDefaults();
        for (int i = 0; i < 4; ++i)
            prompt.AnswerMessage(Prompt::Ok);
        QVERIFY(!Lists().AddChemicalHere(0));
        QVERIFY(!Lists().DeleteChemical(0));
        QVERIFY(!Lists().RenameChemical(0));
        QVERIFY(!Lists().CaptionChemical(0));
        QCOMPARE(prompt.MessageTexts(),
                 QStringList({"You cannot add over chemical 0", "You cannot delete chemical 0",
                              "You cannot rename chemical 0", "You cannot edit the description for chemical 0"}));
        QCOMPARE(prompt.Last().style, 16);
        QCOMPARE(Lists().ChemicalNames[0], QStringLiteral("<none>"));
    }
};

QTEST_GUILESS_MAIN(TestNameLists)
#include "test_namelists.moc"
