// The chemical, pose and script list files, the free-slot rules of the list commands, and the
// mutation template file mutations.txt (41 little-endian 32-bit numbers).
#include "core/Session.h"
#include "support/ScriptedPrompt.h"
#include "support/TestEnv.h"

#include <QDir>
#include <QtTest>

namespace {
// One entry of a list file, built by hand: 16-bit little-endian length, then the bytes.
QByteArray Entry(const QByteArray &bytes) { return QByteArray(1, char(bytes.size() & 0xFF)) + char(bytes.size() >> 8) + bytes; }

// The template's presets: 27, 43, 59, 8, 26, 4, 104, 19, 8, 12, 0, 8, 12, 0, then 27 zeros: 164 bytes.
const QByteArray Presets = QByteArray::fromHex("1b000000 2b000000 3b000000 08000000 1a000000 04000000 68000000"
                                               "13000000 08000000 0c000000 00000000 08000000 0c000000 00000000")
    + QByteArray(27 * 4, '\0');
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
    void LoadAll() { Lists().LoadChemicalList(); Lists().LoadScriptList(); Lists().LoadPoseList(); }
    void NewSession() { session.reset(new Session(prompt)); session->AppDirectory = dir->path(); }

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
        // Written over an older, longer file, which keeps its tail; the reader ignores that tail.
        const QByteArray old(100000, 'z');
        QVERIFY(TestFiles::Write(Path("Chemicals.txt"), old));
        Lists().SetChemicalDefaults();
        Lists().ChemicalNames[1] = QStringLiteral("Caf\u00e9\u0100"); // the last has no byte of its own
        Lists().ChemicalNames[256] = QStringLiteral("kept");
        Lists().ChemicalCaptions[1] = QStringLiteral("\u20ac1");
        Lists().ChemicalCaptions[5] = QString(70000, QLatin1Char('x')); // cut to what the length field holds
        QVERIFY(Lists().SaveChemicalList());

        QByteArray expected = Entry("<none>") + Entry("Caf\xe9?");
        for (int i = 2; i < 256; ++i)
            expected += Entry(QByteArray::number(i));
        expected += Entry("kept") + Entry({}) + Entry("\x80" "1");
        for (int i = 2; i < 257; ++i)
            expected += Entry(i == 5 ? QByteArray(65535, 'x') : QByteArray());
        expected += old.mid(expected.size());
        QCOMPARE(TestFiles::Read(Path("Chemicals.txt")), expected);

        // It reads back whole under the other spelling, and writes back the same bytes.
        QVERIFY(QFile::rename(Path("Chemicals.txt"), Path("CHEMICALS.TXT")));
        NewSession();
        Lists().LoadChemicalList();
        QVERIFY(Lists().SaveChemicalList());
        QCOMPARE(TestFiles::Read(Path("CHEMICALS.TXT")), expected);
    }

    void scriptFileHoldsNamesThenMacros()
    {
        // 21 names, then 21 macros; the results are not stored.
        Lists().ScriptNames[3] = QStringLiteral("feed");
        Lists().ScriptMacros[3] = QStringLiteral("inst");
        Lists().ScriptResults[3] = QStringLiteral("not stored");
        QVERIFY(Lists().SaveScriptList());
        QCOMPARE(TestFiles::Read(Path("scriptnames.txt")),
                 QByteArray(6, '\0') + Entry("feed") + QByteArray((17 + 3) * 2, '\0') + Entry("inst") + QByteArray(34, '\0'));
    }

    void missingAndDamagedFilesAreReportedAndWhatWasReadStands()
    {
        // The chemical file's third entry runs past the end; the pose file's names are whole.
        QVERIFY(TestFiles::Write(Path("chemicals.txt"), Entry("A0") + Entry("A1") + QByteArray("\x32\x00xyz", 5)));
        QVERIFY(TestFiles::Write(Path("scriptnames.txt"), QByteArray("\xff\xff garbage", 10)));
        QVERIFY(TestFiles::Write(Path("posename.txt"), QByteArray(8, '\0') + Entry("Sit") + QByteArray(252 * 2, '\0')
                                                           + Entry("first description") + "\x01"));
        AnswerOk(3);
        LoadAll();
        const QStringList heads = {"Error reading chemical list", "Error reading script names", "Error reading pose names"};
        for (int i = 0; i < 3; ++i)
            QVERIFY2(prompt.shown[i].text.startsWith(heads[i] + "\n\rDescription: Error ID 62 ("), qPrintable(prompt.shown[i].text));
        QCOMPARE(Lists().ChemicalNames[1] + Lists().ChemicalNames[2], QStringLiteral("A12"));
        // Poses: all names read, the descriptions cut short; empty names still get numbers.
        QCOMPARE(Lists().PoseNames[4] + Lists().PoseNames[3], QStringLiteral("Sit3"));
        QCOMPARE(Lists().PoseCaptions[0], QStringLiteral("first description"));
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
        AnswerOk(1); // a full list
        int slot = 0;
        QVERIFY(!Lists().AddChemical(slot));
        QCOMPARE(prompt.Last().text, QStringLiteral("No chemical slots left, delete un-used chemicals"));

        // A name that begins with a number above 0 is a free slot, which cannot be renamed; blanks
        // inside the number do not end it.
        Lists().ChemicalNames[3] = QStringLiteral("0 5HT");
        AnswerOk(1);
        QVERIFY(!Lists().RenameChemical(3));
        QCOMPARE(prompt.Last().text, QStringLiteral("Chemical 3 is empty and cannot be renamed"));

        // Add Here writes over a name with a negative leading number without asking, and Rename
        // then works on it.
        Lists().ChemicalNames[4] = QStringLiteral("-2 ions");
        prompt.AnswerInput(QStringLiteral("Ion")).AnswerInput(QStringLiteral("c")).AnswerInput(QStringLiteral("Ion2"));
        QVERIFY(Lists().AddChemicalHere(4) && Lists().RenameChemical(4));
        QCOMPARE(Lists().ChemicalNames[4] + Lists().ChemicalCaptions[4], QStringLiteral("Ion2c"));
    }

    // Deleting a named pose asks first; only Yes frees the slot, its name and description.
    void deletingAPoseAsksFirst()
    {
        Lists().SetPoseDefaults();
        Lists().PoseNames[7] = QStringLiteral("Sit");
        Lists().PoseCaptions[7] = QStringLiteral("on the floor");
        prompt.AnswerMessage(Prompt::No).AnswerMessage(Prompt::Yes);
        QVERIFY(!Lists().DeletePose(7) && !Lists().PosesChanged && Lists().PoseNames[7] == QStringLiteral("Sit"));
        QVERIFY(Lists().DeletePose(7));
        QCOMPARE(prompt.Last().text + QString::number(prompt.Last().style), QStringLiteral("Are you sure you wish to delete 'Sit'?35"));
        QVERIFY(Lists().PoseNames[7] == QStringLiteral("7") && Lists().PoseCaptions[7].isEmpty() && Lists().PosesChanged);
    }

    void chemicalZeroIsProtectedAndAFailedSaveIsTold()
    {
        Lists().SetChemicalDefaults();
        AnswerOk(5);
        for (auto command : {&NameLists::AddChemicalHere, &NameLists::DeleteChemical, &NameLists::RenameChemical,
                             &NameLists::CaptionChemical})
            QVERIFY(!(Lists().*command)(0));
        QCOMPARE(prompt.MessageTexts(), QStringList({"You cannot add over chemical 0", "You cannot delete chemical 0",
                                                     "You cannot rename chemical 0",
                                                     "You cannot edit the description for chemical 0"}));
        QCOMPARE(prompt.Last().style, 16);

        QVERIFY(QDir(dir->path()).mkdir(QStringLiteral("Chemicals.txt")));
        QVERIFY(!Lists().SaveChemicalList());
        QVERIFY(prompt.Last().text.startsWith(QStringLiteral("Error saving chemical names\n\rDescription: Error ID")));
    }

    // The presets are written quietly (any message would be an unexpected prompt), values read
    // replace them, and faulty files are reported and mended.
    void templateFile()
    {
        MutationTemplate &t = session->Template;
        const QString file = Path("mutations.txt");
        t.LoadDefaultTemplate();
        QCOMPARE(TestFiles::Read(file), Presets);

        QByteArray bytes = Presets;
        bytes.replace(40 * 4, 4, QByteArray::fromHex("f9ffffff"));
        QVERIFY(TestFiles::Write(file, bytes + "behind the last number"));
        t.LoadDefaultTemplate();
        // Saved over a longer file: the values read (the -7 too) from the first byte, the tail left alone.
        QVERIFY(QFile::remove(file) && TestFiles::Write(file, QByteArray(200, 'z')));
        QVERIFY(t.SaveDefaultTemplate());
        QCOMPARE(TestFiles::Read(file), bytes + QByteArray(36, 'z'));

        // A short file: what was read stands, the values in hand fill the rest, and the file holds all.
        QVERIFY(TestFiles::Write(file, QByteArray::fromHex("05000000 06000000 0700")));
        prompt.AnswerMessage(Prompt::Ok);
        t.LoadDefaultTemplate();
        const QString loadFault = QStringLiteral("An error occurred loading an internal file. I shall now attempt to correct this.");
        QCOMPARE(prompt.Last().text + QString::number(prompt.Last().style), loadFault + "16");
        QCOMPARE(TestFiles::Read(file), QByteArray::fromHex("05000000 06000000") + bytes.mid(8));

        // A folder in the file's place: the load fault, then the save fault.
        QVERIFY(QFile::remove(file) && QDir(dir->path()).mkdir(QStringLiteral("mutations.txt")));
        prompt.AnswerMessage(Prompt::Ok).AnswerMessage(Prompt::Ok);
        t.LoadDefaultTemplate();
        QVERIFY(prompt.Last().text.startsWith(QStringLiteral("An error occured saving the default mutation values.\r\n"
                                                             "It is recommended you quit and restart the Helixbench.\n\r"
                                                             "Description: Error ID")));
    }
};

QTEST_GUILESS_MAIN(TestNameLists)
#include "test_namelists.moc"
