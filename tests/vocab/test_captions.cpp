// The caption store: lookups and limits, the caption file byte by byte, the choice between the
// unique and the default file, and what faulty files do.
#include "CaptionFileKit.h"
#include "core/Session.h"
#include "support/ScriptedPrompt.h"
#include "support/TestEnv.h"

#include <QDir>
#include <QtTest>
#include <numeric>

using namespace CaptionFileKit;

namespace {

// A genome of one species gene whose Genus is given.
QByteArray SpeciesGenome(int genus) { return "dna2gene" + QByteArray::fromHex("02010100000000") + char(genus) + "EVE_ADAMgend"; }

QString FaultText(const QString &context, int number, const QString &description)
{
    return context + QStringLiteral("\n\rDescription: Error ID %1 (%2)").arg(number).arg(description);
}

} // namespace

class TestCaptions : public QObject
{
    Q_OBJECT

    ScriptedPrompt prompt;
    std::unique_ptr<SettingsSandbox> sandbox;
    std::unique_ptr<Session> session;
    QStringList panel2;

    QString Path(const QString &name) const { return sandbox->path() + QLatin1Char('/') + name; }
    CaptionStore &Store() { return session->CaptionStore; }
    QString Caption() { return Store().GetCaption(2, 1, 1); }

    // Writes the genome into the sandbox and loads it.
    bool LoadGenome(const QString &name, const QByteArray &bytes) { return TestFiles::Write(Path(name), bytes) && session->LoadGenomeFile(Path(name)); }

private slots:
    void init()
    {
        FreshSession(sandbox, prompt, session);
        session->AppDirectory = Path("app");
        QDir().mkpath(session->AppDirectory);
        session->Tables.Build();
        panel2.clear();
        connect(session.get(), &Session::StatusPanelChanged, this,
                [this](int panel, const QString &text) { if (panel == 2) panel2 << text; });
    }

    void cleanup() { QVERIFY(prompt.AllAnswered()); }

    void lookupsAndLimits()
    {
        CaptionStore &cs = Store();
        QCOMPARE(Caption() + cs.GetAnnotation(2, 1, 1), QStringLiteral("<no caption><no annotation>"));
        cs.SetCaption(2, 1, 1, QStringLiteral("Header"));
        QCOMPARE(cs.GetAnnotation(2, 1, 1), QString()); // a record exists: empty, not "<no annotation>"
        cs.SetAnnotation(2, 1, 1, QStringLiteral("note"));
        cs.SetCaption(2, 1, 2, QStringLiteral("other id"));
        QCOMPARE(Caption() + cs.GetAnnotation(2, 1, 1) + cs.GetCaption(1, 1, 1), QStringLiteral("Headernote<no caption>"));

        // 1798 records in use; then even a change of a key it has is refused.
        for (int i = 2; i < CaptionStore::InUse; ++i)
            cs.SetCaption(i / 256, 0, i % 256, QStringLiteral("c%1").arg(i));
        QVERIFY(cs.CaptionCount == 1798 && prompt.shown.isEmpty());
        prompt.AnswerMessage(Prompt::Ok).AnswerMessage(Prompt::Ok).AnswerMessage(Prompt::Ok);
        const QString full = QStringLiteral("SetCaption(): No more room in the caption system");
        cs.SetCaption(200, 0, 0, QStringLiteral("new"));
        cs.SetCaption(0, 0, 5, QStringLiteral("changed"));
        cs.SetAnnotation(0, 0, 5, QStringLiteral("note"));
        QCOMPARE(prompt.MessageTexts(), QStringList({full, full, "SetAnnotation(): No more room in the caption system"}));
        QCOMPARE(prompt.Last().style, 16);
        QCOMPARE(cs.GetCaption(0, 0, 5) + cs.GetAnnotation(0, 0, 5), QStringLiteral("c5"));

        // After an abandon the table stands, but a new caption takes slot 0 over whole.
        cs.CaptionCount = 0;
        cs.SetCaption(7, 8, 9, QStringLiteral("three"));
        QCOMPARE(Caption() + cs.GetCaption(7, 8, 9) + cs.GetAnnotation(7, 8, 9), QStringLiteral("<no caption>three"));
    }

    // Caption bytes are Windows-1252 text, every byte value kept (the reader's tests check the
    // rest of the format). The file is written over an older, longer one, which keeps its tail,
    // and a text longer than its length field holds is cut there.
    void fileByteForByte()
    {
        CaptionStore &cs = Store();
        QByteArray all(256, '\0');
        std::iota(all.begin(), all.end(), char(0));
        QVERIFY(TestFiles::Write(Path("pet.gno"), CaptionFile(1, {{0, 2, 1, 1, 0, all, {}}})));
        cs.LoadUniqueCaptions(Path("pet.gen"));
        QCOMPARE(Caption().mid(0x80, 1) + Caption().mid(0xE9, 1) + Caption().mid(0x9F, 1), QStringLiteral("\u20ac\u00e9\u0178"));
        cs.SetAnnotation(2, 1, 1, QString(70000, QLatin1Char('a')));
        const QByteArray old(100000, 'z');
        QVERIFY(TestFiles::Write(Path("copy.gno"), old));
        cs.SaveUniqueCaptions(Path("copy.gen"));
        const QByteArray file = CaptionFile(1, {{0, 2, 1, 1, 0, all, QByteArray(65535, 'a')}});
        QCOMPARE(TestFiles::Read(Path("copy.gno")), file + old.mid(file.size()));
    }

    void fileNamesAndTheChoiceOfFile()
    {
        // Each species has its default file; a missing one is reported by name.
        const QStringList expected = {"Melk.GNO", "Brannoch.GNO", "Tolvane.GNO", "Quorrel.GNO"};
        for (int genus = 0; genus < 4; ++genus) {
            prompt.AnswerMessage(Prompt::Ok);
            QVERIFY(LoadGenome("g.gen", SpeciesGenome(genus)));
            QCOMPARE(prompt.Last().text, FaultText("Error reading caption file '" + expected[genus] + "'", 53, "File not found"));
        }

        // Default file in the program's folder, unique file beside the genome, both in another case.
        const QByteArray defaultFile = CaptionFile(1, {{0, 2, 1, 1, 0, "from default", {}}});
        QVERIFY(TestFiles::Write(session->AppDirectory + QStringLiteral("/tolvane.gno"), defaultFile));
        QVERIFY(TestFiles::Write(Path("pet.GNO"), CaptionFile(1, {{0, 2, 1, 1, 0, "from unique", {}}})));
        QVERIFY(LoadGenome("pet.gen", SpeciesGenome(2)));
        QCOMPARE(Caption(), QStringLiteral("from unique"));

        // Without a unique file the default one serves, and the panel says so.
        panel2.clear();
        QVERIFY(LoadGenome("other.gen", SpeciesGenome(2)));
        QCOMPARE(Caption(), QStringLiteral("from default"));
        QCOMPARE(panel2.mid(0, 2), QStringList({"(Normal Captions)", "(No unique: Using default 'Tolvane.GNO')"}));

        // Saving the genome writes its unique file and leaves the default file alone.
        Store().SetCaption(2, 1, 1, QStringLiteral("saved"));
        QVERIFY(session->SaveGenomeFile(Path("saved.gen")));
        QCOMPARE(TestFiles::Read(Path("saved.gno")), Store().FileBytes());
        QCOMPARE(TestFiles::Read(session->AppDirectory + QStringLiteral("/tolvane.gno")), defaultFile);

        // Forcing default captions never looks at the unique file, on loading or saving; the
        // default file is written over in its own spelling.
        session->UseDefaultCaptions = QStringLiteral("1");
        panel2.clear();
        QVERIFY(LoadGenome("pet.gen", SpeciesGenome(2)));
        QCOMPARE(Caption(), QStringLiteral("from default"));
        QCOMPARE(panel2.first(), QStringLiteral("(FORCING DEFAULT CAPTIONS)"));
        QVERIFY(!panel2.join(QString()).contains(QStringLiteral("No unique")));
        Store().SetCaption(2, 1, 1, QStringLiteral("from DEFAULT"));
        QVERIFY(session->SaveGenomeFile(Path("second.gen")));
        QVERIFY(!QFileInfo::exists(Path("second.gno")));
        QCOMPARE(TestFiles::Read(session->AppDirectory + QStringLiteral("/tolvane.gno")), Store().FileBytes());
    }

    void badNamesAndWriteFaults()
    {
        // "PET.GEN" is no genome name for the captions: the genome loads, the store stays empty.
        Store().SetCaption(5, 5, 5, QStringLiteral("left over"));
        prompt.AnswerMessage(Prompt::Ok).AnswerMessage(Prompt::Ok);
        QVERIFY(LoadGenome("PET.GEN", SpeciesGenome(0)));
        QVERIFY(session->GeneCount == 1 && Store().CaptionCount == 0);
        Store().SaveUniqueCaptions(Path("PET.GEN"));
        QCOMPARE(prompt.MessageTexts(), QStringList({"Can't load unique caption file: bad genome filename",
                                                     "Can't save unique caption file: bad genome filename"}));

        // A genome without genes names no default file, and loads quietly even when forced to it.
        session->UseDefaultCaptions = QStringLiteral("1");
        prompt.Clear();
        QVERIFY(LoadGenome("empty.gen", "dna2gend"));
        QVERIFY(prompt.shown.isEmpty());

        // Write faults: a missing folder; no genome, so no default file name.
        prompt.AnswerMessage(Prompt::Ok).AnswerMessage(Prompt::Ok);
        Store().SaveUniqueCaptions(Path("missing/pet.gen"));
        Store().SaveDefaultCaptions();
        QCOMPARE(prompt.shown[0].text, FaultText("Error saving caption file " + Path("missing/pet.gno"), 76, "Path not found"));
        QCOMPARE(prompt.Last().text, FaultText("Error saving caption file ", 52, "Bad file name or number"));
    }

    void faultsWhileReading()
    {
        CaptionStore &cs = Store();
        const QByteArray empty = CaptionFile(0, {});
        const QString context = "Error reading caption file '" + Path("pet.gno") + "'";
        auto load = [&](const QByteArray &bytes) {
            QVERIFY(TestFiles::Write(Path("pet.gno"), bytes));
            prompt.AnswerMessage(Prompt::Ok);
            cs.LoadUniqueCaptions(Path("pet.gen"));
        };

        // Cut inside a record (what stands then is the reader's tests' business).
        load(empty.left(13));
        QCOMPARE(prompt.Last().text, FaultText(context, 62, "Input past end of file"));

        // A file of another tag is refused after the table was emptied.
        cs.SetCaption(9, 9, 9, QStringLiteral("before"));
        load(Le16(3) + empty.mid(2));
        QCOMPARE(prompt.Last().text, FaultText(context, 13, "Type mismatch"));
        QCOMPARE(cs.GetCaption(9, 9, 9) + cs.RecordAt(0).Caption, QStringLiteral("<no caption>"));

        // A file that cannot be opened (a folder of that name) is reported as such.
        QVERIFY(QFile::remove(Path("pet.gno")) && QDir().mkpath(Path("pet.gno")));
        prompt.AnswerMessage(Prompt::Ok);
        cs.LoadUniqueCaptions(Path("pet.gen"));
        QCOMPARE(prompt.Last().text, FaultText(context, 75, "Path/File access error"));
    }
};

QTEST_GUILESS_MAIN(TestCaptions)
#include "test_captions.moc"
