// The caption store: lookups and limits, the caption file byte by byte, the choice between the
// unique and the default file, and what faulty files do.
#include "core/Session.h"
#include "support/ScriptedPrompt.h"
#include "support/TestEnv.h"
#include "vocab/CaptionStore.h"
#include "vocab/FileNames.h"
#include "vocab/SingleByteText.h"

#include <QBuffer>
#include <QDir>
#include <QtTest>

namespace {

const QString Full = QStringLiteral("SetCaption(): No more room in the caption system");
const QString FullNotes = QStringLiteral("SetAnnotation(): No more room in the caption system");

// A record as the file holds it, built here independently of the store's writer.
struct FileRecord
{
    qint16 type = 0, subType = 0, id = 0, reserved = 0;
    QByteArray caption, annotation;
};

void Put16(QByteArray &out, int v)
{
    out.append(char(v & 0xFF));
    out.append(char((v >> 8) & 0xFF));
}

QByteArray RecordBytes(const FileRecord &r)
{
    QByteArray out;
    Put16(out, r.type);
    Put16(out, r.subType);
    Put16(out, r.id);
    Put16(out, r.reserved);
    Put16(out, r.caption.size());
    out += r.caption;
    Put16(out, r.annotation.size());
    out += r.annotation;
    return out;
}

// Tag 2, the count, the given records, then empty records up to 1801.
QByteArray CaptionFile(int count, const QList<FileRecord> &records)
{
    QByteArray out;
    Put16(out, 2);
    Put16(out, count);
    for (const FileRecord &r : records)
        out += RecordBytes(r);
    for (int i = int(records.size()); i < 1801; ++i)
        out += RecordBytes(FileRecord());
    return out;
}

QByteArray AllBytes()
{
    QByteArray b;
    for (int i = 0; i < 256; ++i)
        b.append(char(i));
    return b;
}

// A genome of one species gene whose Genus is given.
QByteArray SpeciesGenome(int genus)
{
    return QByteArrayLiteral("dna2gene") + QByteArray::fromHex("02010100000000") + QByteArray(1, char(genus))
        + QByteArrayLiteral("EVE_ADAMgend");
}

QString FaultText(const QString &context, int number, const QString &description)
{
    return context + QStringLiteral("\n\rDescription: Error ID ") + QString::number(number) + QStringLiteral(" (")
        + description + QStringLiteral(")");
}

} // namespace

class TestCaptions : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        sandbox.reset(new SettingsSandbox);
        prompt.Clear();
        session.reset(new Session(prompt));
        session->AppDirectory = sandbox->path() + QStringLiteral("/app");
        QDir().mkpath(session->AppDirectory);
        session->Tables.Build();
        panel2.clear();
        connect(session.get(), &Session::StatusPanelChanged, this, [this](int panel, const QString &text) {
            if (panel == 2)
                panel2 << text;
        });
    }

    void cleanup() { QVERIFY(prompt.AllAnswered()); }

    void lookupsAndUpdates()
    {
        CaptionStore &cs = session->CaptionStore;
        QCOMPARE(cs.GetCaption(2, 1, 1), QStringLiteral("<no caption>"));
        QCOMPARE(cs.GetAnnotation(2, 1, 1), QStringLiteral("<no annotation>"));

        cs.SetCaption(2, 1, 1, QStringLiteral("Header"));
        QCOMPARE(cs.GetAnnotation(2, 1, 1), QString()); // a record exists: empty, not "<no annotation>"
        cs.SetAnnotation(2, 1, 1, QStringLiteral("note"));
        cs.SetCaption(2, 1, 1, QStringLiteral("Header 2"));
        QCOMPARE(cs.GetCaption(2, 1, 1), QStringLiteral("Header 2"));
        QCOMPARE(cs.GetAnnotation(2, 1, 1), QStringLiteral("note"));
        QCOMPARE(cs.CaptionCount, qint16(1));

        // Each field of the key counts.
        cs.SetAnnotation(2, 1, 2, QStringLiteral("only a note"));
        cs.SetCaption(2, 2, 1, QString());
        cs.SetCaption(1, 1, 1, QStringLiteral("other type"));
        QCOMPARE(cs.CaptionCount, qint16(4));
        QCOMPARE(cs.GetCaption(2, 1, 2), QString());
        QCOMPARE(cs.GetCaption(1, 1, 1), QStringLiteral("other type"));
        QCOMPARE(cs.GetCaption(1, 2, 1), QStringLiteral("<no caption>"));

        // Emptying the store leaves the table as it stands, but lookups no longer see it.
        cs.CaptionCount = 0;
        QCOMPARE(cs.GetCaption(2, 1, 1), QStringLiteral("<no caption>"));
        QCOMPARE(cs.RecordAt(0).Caption, QStringLiteral("Header 2"));
        cs.SetCaption(9, 9, 9, QStringLiteral("new"));
        QCOMPARE(cs.RecordAt(0).GeneType, qint16(9));
        QCOMPARE(cs.RecordAt(0).Annotation, QString());
        QCOMPARE(cs.RecordAt(1).Annotation, QStringLiteral("only a note"));
    }

    void fullStoreRefusesEvenChanges()
    {
        CaptionStore &cs = session->CaptionStore;
        for (int i = 0; i < CaptionStore::InUse; ++i)
            cs.SetCaption(i / 256, 0, i % 256, QStringLiteral("c%1").arg(i));
        QCOMPARE(cs.CaptionCount, qint16(1798));
        QVERIFY(prompt.shown.isEmpty());

        prompt.AnswerMessage(Prompt::Ok).AnswerMessage(Prompt::Ok).AnswerMessage(Prompt::Ok);
        cs.SetCaption(200, 0, 0, QStringLiteral("new"));      // a new key
        cs.SetCaption(0, 0, 5, QStringLiteral("changed"));    // a key it has
        cs.SetAnnotation(0, 0, 5, QStringLiteral("note"));
        QCOMPARE(prompt.MessageTexts(), QStringList({Full, Full, FullNotes}));
        QCOMPARE(prompt.Last().style, 16);
        QCOMPARE(cs.CaptionCount, qint16(1798));
        QCOMPARE(cs.GetCaption(0, 0, 5), QStringLiteral("c5"));
        QCOMPARE(cs.GetAnnotation(0, 0, 5), QString());
        QCOMPARE(cs.GetCaption(200, 0, 0), QStringLiteral("<no caption>"));
        QCOMPARE(cs.RecordAt(1798).Caption, QString());
    }

    void fileLayout()
    {
        CaptionStore &cs = session->CaptionStore;
        QByteArray empty = cs.FileBytes();
        QCOMPARE(empty.size(), 21616);
        QCOMPARE(empty, CaptionFile(0, {}));

        cs.SetCaption(2, 1, 7, QStringLiteral("Ab"));
        cs.SetAnnotation(2, 1, 7, QStringLiteral("x\u00e9\u20ac"));
        cs.SetAnnotation(0, 1, 300, QString()); // keys wider than a byte still take 16 bits
        const QByteArray bytes = cs.FileBytes();
        QCOMPARE(bytes.left(4), QByteArray::fromHex("02000200"));
        QCOMPARE(bytes.mid(4, 17), QByteArray::fromHex("0200" "0100" "0700" "0000" "0200" "4162" "0300" "78e980"));
        QCOMPARE(bytes.mid(21, 12), QByteArray::fromHex("0000" "0100" "2c01" "0000" "0000" "0000"));
        QCOMPARE(bytes.size(), 21616 + 2 + 3);
    }

    void readWriteByteForByte()
    {
        // A file with every byte value in a caption, a record behind the count and a
        // negative key survives a read and a write unchanged.
        const QList<FileRecord> records = {
            {2, 1, 1, 0, AllBytes(), QByteArrayLiteral("{\\rtf1 note}")},
            {0, 0, 3, 0, QByteArrayLiteral("Lobe"), QByteArray()},
            {-1, 256, 9, 0, QByteArrayLiteral("odd key"), QByteArrayLiteral("kept")},
            {1, 4, 2, 0, QByteArrayLiteral("behind the count"), QByteArrayLiteral("stale")},
        };
        const QByteArray file = CaptionFile(3, records);
        const QString genome = sandbox->path() + QStringLiteral("/pet.gen");
        QVERIFY(TestFiles::Write(sandbox->path() + QStringLiteral("/pet.gno"), file));

        CaptionStore &cs = session->CaptionStore;
        cs.LoadUniqueCaptions(genome);
        QCOMPARE(cs.CaptionCount, qint16(3));
        QCOMPARE(SingleByteText::Encode(cs.GetCaption(2, 1, 1)), AllBytes());
        QCOMPARE(cs.GetCaption(0, 0, 3), QStringLiteral("Lobe"));
        QCOMPARE(cs.GetCaption(1, 4, 2), QStringLiteral("<no caption>")); // behind the count
        QCOMPARE(cs.RecordAt(3).Annotation, QStringLiteral("stale"));

        const QString copy = sandbox->path() + QStringLiteral("/copy.gen");
        cs.SaveUniqueCaptions(copy);
        QCOMPARE(TestFiles::Read(sandbox->path() + QStringLiteral("/copy.gno")), file);
    }

    void olderLongerFileKeepsItsTail()
    {
        const QString gno = sandbox->path() + QStringLiteral("/pet.gno");
        QByteArray old(30000, '\0');
        for (int i = 0; i < old.size(); ++i)
            old[i] = char(i * 7 + 1);
        QVERIFY(TestFiles::Write(gno, old));

        CaptionStore &cs = session->CaptionStore;
        cs.SetCaption(2, 1, 1, QStringLiteral("Header"));
        cs.SaveUniqueCaptions(sandbox->path() + QStringLiteral("/pet.gen"));
        const QByteArray saved = TestFiles::Read(gno);
        const QByteArray fresh = cs.FileBytes();
        QCOMPARE(saved.size(), 30000);
        QCOMPARE(saved.left(fresh.size()), fresh);
        QCOMPARE(saved.mid(fresh.size()), old.mid(fresh.size()));

        // The reader ignores the tail.
        session->CaptionStore.CaptionCount = 0;
        cs.LoadUniqueCaptions(sandbox->path() + QStringLiteral("/pet.gen"));
        QCOMPARE(cs.GetCaption(2, 1, 1), QStringLiteral("Header"));

        // A shorter older file is simply overwritten; an empty store still writes 1801 records.
        QVERIFY(TestFiles::Write(gno, QByteArray(100, 'x')));
        cs.CaptionCount = 0;
        cs.SaveUniqueCaptions(sandbox->path() + QStringLiteral("/pet.gen"));
        QCOMPARE(TestFiles::Read(gno).size(), 21616 + 6);
    }

    void longTextsKeepTheFileWhole()
    {
        CaptionStore &cs = session->CaptionStore;
        cs.SetAnnotation(2, 1, 1, QString(70000, QLatin1Char('a')));
        cs.SetCaption(2, 1, 2, QStringLiteral("next"));
        cs.SaveUniqueCaptions(sandbox->path() + QStringLiteral("/pet.gen"));
        cs.CaptionCount = 0;
        cs.LoadUniqueCaptions(sandbox->path() + QStringLiteral("/pet.gen"));
        QCOMPARE(cs.GetAnnotation(2, 1, 1).size(), 65535);
        QCOMPARE(cs.GetCaption(2, 1, 2), QStringLiteral("next"));
    }

    void fileNamesOfBothKinds()
    {
        QCOMPARE(CaptionStore::UniqueCaptionFileName(QStringLiteral("/g/pet.gen")), QStringLiteral("/g/pet.gno"));
        QCOMPARE(CaptionStore::UniqueCaptionFileName(QStringLiteral("/g/pet.GEN")), QString());
        QCOMPARE(CaptionStore::UniqueCaptionFileName(QStringLiteral("/g/pet.gene")), QString());

        QCOMPARE(session->CaptionStore.DefaultCaptionFileName(), QString()); // no genes
        const QStringList expected = {QStringLiteral("Melk.GNO"), QStringLiteral("Brannoch.GNO"),
                                      QStringLiteral("Tolvane.GNO"), QStringLiteral("Quorrel.GNO")};
        for (int genus = 0; genus < 4; ++genus) {
            QVERIFY(LoadGenome(QStringLiteral("g%1.gen").arg(genus), SpeciesGenome(genus), MissingDefault(expected[genus])));
            QCOMPARE(session->CaptionStore.DefaultCaptionFileName(), expected[genus]);
        }
    }

    void loadChoosesTheFile()
    {
        // Default file Tolvane.GNO in the program's folder, unique file beside the genome.
        QVERIFY(TestFiles::Write(session->AppDirectory + QStringLiteral("/Tolvane.GNO"),
                                 CaptionFile(1, {{2, 1, 1, 0, "from default", {}}})));
        QVERIFY(TestFiles::Write(sandbox->path() + QStringLiteral("/pet.gno"),
                                 CaptionFile(1, {{2, 1, 1, 0, "from unique", {}}})));

        QVERIFY(LoadGenome(QStringLiteral("pet.gen"), SpeciesGenome(2)));
        QCOMPARE(session->CaptionStore.GetCaption(2, 1, 1), QStringLiteral("from unique"));
        QVERIFY(panel2.contains(QStringLiteral("(Normal Captions)")));

        // Without a unique file the default one serves, and the panel says so.
        panel2.clear();
        QVERIFY(LoadGenome(QStringLiteral("other.gen"), SpeciesGenome(2)));
        QCOMPARE(session->CaptionStore.GetCaption(2, 1, 1), QStringLiteral("from default"));
        QCOMPARE(panel2.mid(0, 2), QStringList({QStringLiteral("(Normal Captions)"),
                                                 QStringLiteral("(No unique: Using default 'Tolvane.GNO')")}));

        // Forcing default captions never looks at the unique file.
        session->UseDefaultCaptions = QStringLiteral("1");
        panel2.clear();
        QVERIFY(LoadGenome(QStringLiteral("pet.gen"), SpeciesGenome(2)));
        QCOMPARE(session->CaptionStore.GetCaption(2, 1, 1), QStringLiteral("from default"));
        QCOMPARE(panel2.first(), QStringLiteral("(FORCING DEFAULT CAPTIONS)"));
        QVERIFY(!panel2.join(QString()).contains(QStringLiteral("No unique")));
    }

    void namesInAnotherCaseAreTheSameFile()
    {
        QVERIFY(TestFiles::Write(session->AppDirectory + QStringLiteral("/tolvane.gno"),
                                 CaptionFile(1, {{2, 1, 1, 0, "lower case default", {}}})));
        QVERIFY(LoadGenome(QStringLiteral("pet.gen"), SpeciesGenome(2)));
        QCOMPARE(session->CaptionStore.GetCaption(2, 1, 1), QStringLiteral("lower case default"));

        QVERIFY(TestFiles::Write(sandbox->path() + QStringLiteral("/pet.GNO"),
                                 CaptionFile(1, {{2, 1, 1, 0, "upper case unique", {}}})));
        QVERIFY(LoadGenome(QStringLiteral("pet.gen"), SpeciesGenome(2)));
        QCOMPARE(session->CaptionStore.GetCaption(2, 1, 1), QStringLiteral("upper case unique"));

        // Saving writes over the file that is there, in its own spelling.
        session->CaptionStore.SetCaption(2, 1, 1, QStringLiteral("saved"));
        session->CaptionStore.SaveUniqueCaptions(sandbox->path() + QStringLiteral("/pet.gen"));
        session->CaptionStore.SaveDefaultCaptions();
        QVERIFY(!QFileInfo::exists(sandbox->path() + QStringLiteral("/pet.gno")));
        QVERIFY(!QFileInfo::exists(session->AppDirectory + QStringLiteral("/Tolvane.GNO")));
        // (The older files were longer by their texts; their last bytes stay.)
        QVERIFY(TestFiles::Read(sandbox->path() + QStringLiteral("/pet.GNO")).startsWith(session->CaptionStore.FileBytes()));
        QVERIFY(TestFiles::Read(session->AppDirectory + QStringLiteral("/tolvane.gno"))
                    .startsWith(session->CaptionStore.FileBytes()));
    }

    void resolverRules()
    {
        const QString dir = sandbox->path() + QStringLiteral("/names");
        QVERIFY(QDir().mkpath(dir + QStringLiteral("/Sub.txt")));
        QCOMPARE(ResolveFileName(dir, QStringLiteral("New.TXT")), dir + QStringLiteral("/New.TXT"));
        QCOMPARE(ResolveFileName(dir, QStringLiteral("sub.txt")), dir + QStringLiteral("/sub.txt")); // folders are no files
        QVERIFY(TestFiles::Write(dir + QStringLiteral("/Chemicals.TXT"), "x"));
        QCOMPARE(ResolveFileName(dir + QStringLiteral("/"), QStringLiteral("chemicals.txt")),
                 dir + QStringLiteral("/Chemicals.TXT"));
        QVERIFY(TestFiles::Write(dir + QStringLiteral("/chemicals.txt"), "y"));
        QCOMPARE(ResolveFileName(dir, QStringLiteral("chemicals.txt")), dir + QStringLiteral("/chemicals.txt"));
        QCOMPARE(FileNames::ResolveFilePath(dir + QStringLiteral("/CHEMICALS.TXT")),
                 dir + QStringLiteral("/Chemicals.TXT")); // the first in name order
    }

    void saveChoosesTheFile()
    {
        QVERIFY(LoadGenome(QStringLiteral("pet.gen"), SpeciesGenome(1), MissingDefault(QStringLiteral("Brannoch.GNO"))));
        session->CaptionStore.SetCaption(2, 1, 1, QStringLiteral("saved"));
        const QString target = sandbox->path() + QStringLiteral("/saved.gen");
        panel2.clear();
        QVERIFY(session->SaveGenomeFile(target));
        QCOMPARE(panel2.first(), QStringLiteral("(Normal Captions)"));
        QCOMPARE(TestFiles::Read(sandbox->path() + QStringLiteral("/saved.gno")), session->CaptionStore.FileBytes());
        QVERIFY(!QFileInfo::exists(session->AppDirectory + QStringLiteral("/Brannoch.GNO")));

        session->UseDefaultCaptions = QStringLiteral("1");
        panel2.clear();
        QVERIFY(session->SaveGenomeFile(sandbox->path() + QStringLiteral("/second.gen")));
        QCOMPARE(panel2.first(), QStringLiteral("(FORCING DEFAULT CAPTIONS)"));
        QVERIFY(!QFileInfo::exists(sandbox->path() + QStringLiteral("/second.gno")));
        QCOMPARE(TestFiles::Read(session->AppDirectory + QStringLiteral("/Brannoch.GNO")),
                 session->CaptionStore.FileBytes());
    }

    void badGenomeNames()
    {
        // "PET.GEN" is no genome name for the captions: the genome loads, the store stays empty.
        session->CaptionStore.SetCaption(5, 5, 5, QStringLiteral("left over"));
        prompt.AnswerMessage(Prompt::Ok);
        QVERIFY(LoadGenome(QStringLiteral("PET.GEN"), SpeciesGenome(0)));
        QCOMPARE(prompt.MessageTexts(), QStringList{QStringLiteral("Can't load unique caption file: bad genome filename")});
        QCOMPARE(session->GeneCount, qint16(1));
        QCOMPARE(session->CaptionStore.CaptionCount, qint16(0));

        prompt.Clear();
        prompt.AnswerMessage(Prompt::Ok);
        session->CaptionStore.SaveUniqueCaptions(sandbox->path() + QStringLiteral("/PET.GEN"));
        QCOMPARE(prompt.MessageTexts(), QStringList{QStringLiteral("Can't save unique caption file: bad genome filename")});
        QVERIFY(!QFileInfo::exists(sandbox->path() + QStringLiteral("/PET.gno")));
    }

    void faultsWhileReading()
    {
        CaptionStore &cs = session->CaptionStore;
        QList<FileRecord> records;
        for (int i = 0; i < 10; ++i)
            records.append({2, 1, qint16(i), 0, QByteArray("cap") + QByteArray::number(i), QByteArray("ann")});
        const QByteArray whole = CaptionFile(10, records);
        const QString genome = sandbox->path() + QStringLiteral("/pet.gen");
        const QString gno = sandbox->path() + QStringLiteral("/pet.gno");
        const QString context = QStringLiteral("Error reading caption file '") + gno + QStringLiteral("'");

        // Cut inside record 5: records 0 to 4 stand, nothing behind them counts.
        const int cut = 4 + 5 * 19 + 9; // records of 19 bytes
        QVERIFY(TestFiles::Write(gno, whole.left(cut)));
        prompt.AnswerMessage(Prompt::Ok);
        cs.LoadUniqueCaptions(genome);
        QCOMPARE(prompt.Last().text, FaultText(context, 62, QStringLiteral("Input past end of file")));
        QCOMPARE(prompt.Last().style, 16);
        QCOMPARE(cs.CaptionCount, qint16(5));
        QCOMPARE(cs.GetCaption(2, 1, 4), QStringLiteral("cap4"));
        QCOMPARE(cs.GetCaption(2, 1, 5), QStringLiteral("<no caption>"));

        // A length that runs past the end.
        QByteArray longLength = whole;
        longLength[4 + 8] = char(0xFF);
        longLength[4 + 9] = char(0xFF);
        QVERIFY(TestFiles::Write(gno, longLength.left(5000)));
        prompt.AnswerMessage(Prompt::Ok);
        cs.LoadUniqueCaptions(genome);
        QCOMPARE(prompt.Last().text, FaultText(context, 62, QStringLiteral("Input past end of file")));
        QCOMPARE(cs.CaptionCount, qint16(0));

        // A file too short for its count, or of another tag, leaves the store as it was.
        cs.SetCaption(9, 9, 9, QStringLiteral("before"));
        QVERIFY(TestFiles::Write(gno, QByteArray::fromHex("0200")));
        QByteArray otherTag = whole;
        otherTag[0] = 3;
        prompt.AnswerMessage(Prompt::Ok).AnswerMessage(Prompt::Ok);
        cs.LoadUniqueCaptions(genome);
        QVERIFY(TestFiles::Write(gno, otherTag));
        cs.LoadUniqueCaptions(genome);
        QCOMPARE(prompt.shown.at(prompt.shown.size() - 2).text,
                 FaultText(context, 62, QStringLiteral("Input past end of file")));
        QCOMPARE(prompt.Last().text, FaultText(context, 13, QStringLiteral("Type mismatch")));
        QCOMPARE(cs.GetCaption(9, 9, 9), QStringLiteral("before"));

        // A count outside 0 to 1798 is corrected, not refused.
        QByteArray negative = whole;
        negative[2] = char(0xFF);
        negative[3] = char(0xFF);
        QVERIFY(TestFiles::Write(gno, negative));
        cs.LoadUniqueCaptions(genome);
        QCOMPARE(cs.CaptionCount, qint16(0));
        QByteArray tooMany = whole;
        tooMany[2] = char(0x10);
        tooMany[3] = char(0x27); // 10000
        QVERIFY(TestFiles::Write(gno, tooMany));
        cs.LoadUniqueCaptions(genome);
        QCOMPARE(cs.CaptionCount, qint16(1798));

        // A folder where the file should be is a fault, not a crash.
        QVERIFY(QFile::remove(gno));
        QVERIFY(QDir().mkpath(gno));
        prompt.AnswerMessage(Prompt::Ok);
        cs.LoadUniqueCaptions(genome);
        QVERIFY(prompt.Last().text.startsWith(context + QStringLiteral("\n\rDescription: Error ID")));
    }

    void missingDefaultFileLetsTheLoadGoOn()
    {
        QVERIFY(LoadGenome(QStringLiteral("pet.gen"), SpeciesGenome(3), MissingDefault(QStringLiteral("Quorrel.GNO"))));
        QCOMPARE(session->GeneCount, qint16(1));
        QCOMPARE(session->CaptionStore.GetCaption(2, 1, 1), QStringLiteral("<no caption>"));

        // A genome without genes names no default file: it loads with an empty store, quietly.
        session->UseDefaultCaptions = QStringLiteral("1");
        session->CaptionStore.SetCaption(2, 1, 1, QStringLiteral("left over"));
        const int shownBefore = prompt.shown.size();
        QVERIFY(LoadGenome(QStringLiteral("empty.gen"), QByteArrayLiteral("dna2gend")));
        QCOMPARE(prompt.shown.size(), shownBefore);
        QCOMPARE(session->CaptionStore.CaptionCount, qint16(0));
    }

    void writeFaults()
    {
        const QString genome = sandbox->path() + QStringLiteral("/missing/pet.gen");
        prompt.AnswerMessage(Prompt::Ok);
        session->CaptionStore.SaveUniqueCaptions(genome);
        QVERIFY(prompt.Last().text.startsWith(QStringLiteral("Error saving caption file ") + sandbox->path()
                                              + QStringLiteral("/missing/pet.gno\n\rDescription: Error ID")));

        // No genome: the default file can't be named.
        prompt.AnswerMessage(Prompt::Ok);
        session->CaptionStore.SaveDefaultCaptions();
        QCOMPARE(prompt.Last().text,
                 FaultText(QStringLiteral("Error saving caption file "), 52, QStringLiteral("Bad file name or number")));
    }

private:
    ScriptedPrompt prompt;
    std::unique_ptr<SettingsSandbox> sandbox;
    std::unique_ptr<Session> session;
    QStringList panel2;

    // The fault shown when the species' default file is not there.
    static QString MissingDefault(const QString &name)
    {
        return FaultText(QStringLiteral("Error reading caption file '") + name + QStringLiteral("'"), 53,
                         QStringLiteral("File not found"));
    }

    // Writes the genome into the sandbox and loads it; expectedFault, if given, is the one
    // message the load may show.
    bool LoadGenome(const QString &name, const QByteArray &bytes, const QString &expectedFault = QString())
    {
        const QString file = sandbox->path() + QLatin1Char('/') + name;
        if (!TestFiles::Write(file, bytes))
            return false;
        if (!expectedFault.isEmpty())
            prompt.AnswerMessage(Prompt::Ok);
        const int before = int(prompt.shown.size());
        const bool ok = session->LoadGenomeFile(file);
        if (!expectedFault.isEmpty() && (prompt.shown.size() != before + 1 || prompt.Last().text != expectedFault)) {
            qWarning() << "expected" << expectedFault << "got" << prompt.MessageTexts();
            return false;
        }
        return ok;
    }
};

QTEST_GUILESS_MAIN(TestCaptions)
#include "test_captions.moc"
