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
    return QByteArray(1, char(bytes.size() & 0xFF)) + char(bytes.size() >> 8) + bytes;
}
} // namespace

class TestNameLists : public QObject
{
    Q_OBJECT

    ScriptedPrompt prompt;
    std::unique_ptr<QTemporaryDir> dir;
    std::unique_ptr<Session> session;

    QString Path(const QString &name) const { return dir->path() + QLatin1Char('/') + name; }
    NameLists &Lists() { return session->Lists; }
    void AnswerOk(int times) { for (int i = 0; i < times; ++i) prompt.AnswerMessage(Prompt::Ok); }
    void LoadAll()
    {
        Lists().LoadChemicalList();
        Lists().LoadScriptList();
        Lists().LoadPoseList();
    }
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

    void cleanup() { QVERIFY(prompt.AllAnswered()); }

    void chemicalFileByteForByte()
    {
        Lists().SetChemicalDefaults();
        Lists().ChemicalNames[1] = QStringLiteral("Caf\u00e9");
        Lists().ChemicalNames[256] = QStringLiteral("kept");
        Lists().ChemicalCaptions[1] = QStringLiteral("\u20ac1");
        Lists().ChemicalCaptions[5] = QString(70000, QLatin1Char('x')); // cut to what the length field holds
        session->ChemicalsChanged = true;
        QVERIFY(Lists().SaveChemicalList());
        QVERIFY(!session->ChemicalsChanged);
        QCOMPARE(QDir(dir->path()).entryList(QDir::Files), QStringList{"Chemicals.txt"});

        QByteArray expected = Entry("<none>") + Entry("Caf\xe9");
        for (int i = 2; i < 256; ++i)
            expected += Entry(QByteArray::number(i));
        expected += Entry("kept") + Entry({}) + Entry("\x80" "1");
        for (int i = 2; i < 257; ++i)
            expected += Entry(i == 5 ? QByteArray(65535, 'x') : QByteArray());
        QCOMPARE(TestFiles::Read(Path("Chemicals.txt")), expected);

        // It reads back whole under the other spelling, and writes back the same bytes.
        QVERIFY(QFile::rename(Path("Chemicals.txt"), Path("CHEMICALS.TXT")));
        NewSession();
        Lists().LoadChemicalList();
        QCOMPARE(Lists().ChemicalCaptions[1], QStringLiteral("\u20ac1"));
        QVERIFY(Lists().SaveChemicalList());
        QCOMPARE(TestFiles::Read(Path("CHEMICALS.TXT")), expected);
    }

    void emptyListsGiveTheSmallestFiles()
    {
        Lists().ChemicalNames.fill(QString());
        QVERIFY(Lists().SaveChemicalList());
        QCOMPARE(TestFiles::Read(Path("Chemicals.txt")), QByteArray(1028, '\0'));

        // Scripts: names, then macros; the results are not stored.
        Lists().ScriptNames.fill(QString());
        QVERIFY(Lists().SaveScriptList());
        QCOMPARE(TestFiles::Read(Path("scriptnames.txt")), QByteArray(84, '\0'));
        Lists().ScriptNames[3] = QStringLiteral("feed");
        Lists().ScriptMacros[3] = QStringLiteral("inst");
        Lists().ScriptResults[3] = QStringLiteral("not stored");
        QVERIFY(Lists().SaveScriptList());
        QCOMPARE(TestFiles::Read(Path("scriptnames.txt")),
                 QByteArray(6, '\0') + Entry("feed") + QByteArray((17 + 3) * 2, '\0') + Entry("inst") + QByteArray(34, '\0'));
    }

    void anOlderLongerFileKeepsItsTailAndSpelling()
    {
        QByteArray old(3000, '\0');
        for (int i = 0; i < old.size(); ++i)
            old[i] = char(i % 251);
        QVERIFY(TestFiles::Write(Path("posename.txt"), old));
        Lists().SetPoseDefaults();
        QVERIFY(Lists().SavePoseList());

        // 514 length fields, "0".."255" (10 + 180 + 468 bytes), empty descriptions.
        const int content = 2 * 2 * 257 + 10 + 180 + 468;
        const QByteArray now = TestFiles::Read(Path("posename.txt"));
        QCOMPARE(now.left(6), Entry("0") + Entry("1"));
        QCOMPARE(now.mid(content - 4), QByteArray(4, '\0') + old.mid(content));

        // The reader stops after the last entry and ignores the old bytes behind it.
        NewSession();
        Lists().LoadPoseList();
        QCOMPARE(Lists().PoseNames[200], QStringLiteral("200"));
        QVERIFY(Lists().PoseCaptions[255].isEmpty());
    }

    void missingAndDamagedFilesAreReportedAndWhatWasReadStands()
    {
        AnswerOk(6);
        LoadAll();
        QCOMPARE(prompt.MessageTexts(), QStringList({"Could not find 'chemicals.txt', using numeric substitutes.",
                                                     "Could not find 'scriptnames.txt'--no autoscripts loaded",
                                                     "Could not find 'posenames.txt', using numeric substitutes."}));
        QCOMPARE(prompt.Last().style, 48);
        QCOMPARE(Lists().ChemicalNames[0] + Lists().ChemicalNames[255] + Lists().PoseNames[0] + Lists().ScriptNames[19],
                 QStringLiteral("<none>2550<empty>"));

        QByteArray chemicals, poses;
        for (int i = 0; i < 10; ++i)
            chemicals += Entry("A" + QByteArray::number(i));
        for (int i = 0; i < 257; ++i)
            poses += Entry(i == 4 ? QByteArray("Sit") : QByteArray());
        QVERIFY(TestFiles::Write(Path("chemicals.txt"), chemicals + QByteArray("\x32\x00xyz", 5))); // runs past the end
        QVERIFY(TestFiles::Write(Path("scriptnames.txt"), QByteArray("\xff\xff garbage", 10)));
        QVERIFY(TestFiles::Write(Path("posename.txt"), poses + Entry("first description") + "\x01"));
        prompt.shown.clear();
        LoadAll();
        const QStringList heads = {"Error reading chemical list", "Error reading script names", "Error reading pose names"};
        for (int i = 0; i < 3; ++i)
            QVERIFY2(prompt.shown[i].text.startsWith(heads[i] + "\n\rDescription: Error ID 62 ("), qPrintable(prompt.shown[i].text));
        QCOMPARE(prompt.Last().style, 16);
        QCOMPARE(Lists().ChemicalNames[9] + Lists().ChemicalNames[10], QStringLiteral("A910"));
        QCOMPARE(Lists().ScriptNames[0], QStringLiteral("<empty>"));
        // Poses: all names read, the descriptions cut short; empty names still get numbers.
        QCOMPARE(Lists().PoseNames[4] + Lists().PoseNames[3], QStringLiteral("Sit3"));
        QCOMPARE(Lists().PoseCaptions[0], QStringLiteral("first description"));
    }

    void failedSavesReportAndKeepTheFlag()
    {
        QVERIFY(QDir(dir->path()).mkdir(QStringLiteral("Chemicals.txt")));
        QVERIFY(QDir(dir->path()).mkdir(QStringLiteral("PoseName.txt")));
        session->ChemicalsChanged = session->PosesChanged = true;
        AnswerOk(2);
        QVERIFY(!Lists().SaveChemicalList());
        QVERIFY(!Lists().SavePoseList());
        QVERIFY(prompt.shown[0].text.startsWith(QStringLiteral("Error saving chemical names\n\rDescription: Error ID")));
        QVERIFY(prompt.shown[1].text.startsWith(QStringLiteral("Error saving pose names\n\r")));
        QVERIFY(session->ChemicalsChanged && session->PosesChanged);
    }

    void freeSlotsAreReadFromTheNames()
    {
        Lists().SetChemicalDefaults();
        Lists().SetPoseDefaults();
        // An empty chemical name counts as free, an empty pose name as in use; but Add only
        // takes a name that begins with a number above 0.
        Lists().ChemicalNames[1].clear();
        Lists().PoseNames[7].clear();
        Lists().ChemicalNames[2] = QStringLiteral("ATP");
        QCOMPARE(Lists().ChemicalCountText(), QStringLiteral(" 2 chemical(s) in use, 254 slots free"));
        QCOMPARE(Lists().PoseCountText(), QStringLiteral(" 2 pose(s) in use, 254 slots free"));
        QCOMPARE(Lists().FirstFreeChemicalSlot(), 3);

        for (int i = 1; i < 256; ++i)
            Lists().ChemicalNames[size_t(i)] = QStringLiteral("named");
        QCOMPARE(Lists().ChemicalCountText(), QStringLiteral(" 256 chemical(s) in use, 0 slots free"));
        AnswerOk(1); // a full list
        int slot = 0;
        QVERIFY(!Lists().AddChemical(slot));
        QCOMPARE(prompt.Last().text, QStringLiteral("No chemical slots left, delete un-used chemicals"));

        // A name that begins with a number above 0 is a free slot.
        Lists().ChemicalNames[3] = QStringLiteral("5HT");
        prompt.Clear();
        AnswerOk(3);
        for (auto command : {&NameLists::DeleteChemical, &NameLists::RenameChemical, &NameLists::CaptionChemical})
            QVERIFY(!(Lists().*command)(3));
        QCOMPARE(prompt.MessageTexts(), QStringList({"Chemical 3 is already deleted", "Chemical 3 is empty and cannot be renamed",
                                                     "Chemical 3 is empty and the caption cannot be edited"}));
        QVERIFY(!session->ChemicalsChanged);

        // Add takes the 5HT slot without a question; Add Here writes over a name with a negative
        // leading number without asking, and Rename then works on it.
        Lists().ChemicalNames[4] = QStringLiteral("-2 ions");
        prompt.Clear();
        for (const char *answer : {"Serotonin", "mood", "Ion", "c", "Ion2"})
            prompt.AnswerInput(QString::fromLatin1(answer));
        QVERIFY(Lists().AddChemical(slot));
        QCOMPARE(slot, 3);
        QVERIFY(Lists().AddChemicalHere(4));
        QVERIFY(Lists().RenameChemical(4));
        QCOMPARE(Lists().ChemicalNames[3] + Lists().ChemicalNames[4], QStringLiteral("SerotoninIon2"));
        QVERIFY(session->ChemicalsChanged);
    }

    void chemicalZeroIsProtected()
    {
        Lists().SetChemicalDefaults();
        AnswerOk(4);
        for (auto command : {&NameLists::AddChemicalHere, &NameLists::DeleteChemical, &NameLists::RenameChemical,
                             &NameLists::CaptionChemical})
            QVERIFY(!(Lists().*command)(0));
        QCOMPARE(prompt.MessageTexts(), QStringList({"You cannot add over chemical 0", "You cannot delete chemical 0",
                                                     "You cannot rename chemical 0",
                                                     "You cannot edit the description for chemical 0"}));
        QCOMPARE(prompt.Last().style, 16);
        // An empty name of chemical 0 shows as "<nothing>" and keeps it.
        QString name;
        QCOMPARE(NameLists::ChemicalListText(0, name) + name, QStringLiteral("<nothing><nothing>"));
    }
};

QTEST_GUILESS_MAIN(TestNameLists)
#include "test_namelists.moc"
