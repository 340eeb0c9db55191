// The caption store: lookups and limits, the caption file byte by byte, the choice between the
// unique and the default file, and what faulty files do. Where the store takes shortcuts (it
// reads ahead in chunks, skips runs of empty records, clears only the slots it ever filled and
// finds a key through an index), it must give what a plain read or a walk through the records
// in use would.
#include "base/AutoPrompt.h"
#include "core/Session.h"
#include "support/ScriptedPrompt.h"
#include "support/TestEnv.h"

#include <QBuffer>
#include <QDir>
#include <QRandomGenerator>
#include <QtTest>
#include <numeric>

namespace {

// Caption files are built here byte by byte, independently of the store's writer.
QByteArray Le16(int v) { return QByteArray(1, char(v & 0xFF)) + char((v >> 8) & 0xFF); }

// A record and the slot it stands in.
struct FileRecord
{
    int index = 0;
    qint16 type = 0, subType = 0, id = 0, reserved = 0;
    QByteArray caption, annotation;
};

// Tag 2, the count, then 1801 records: the given ones at their places, empty ones elsewhere.
// With writtenForm the reserved fields are 0, as the store writes them.
QByteArray CaptionFile(int count, const QList<FileRecord> &records, bool writtenForm = false)
{
    QByteArray out = Le16(2) + Le16(count);
    for (int i = 0; i < CaptionStore::Records; ++i) {
        FileRecord r;
        for (const FileRecord &f : records)
            if (f.index == i)
                r = f;
        out += Le16(r.type) + Le16(r.subType) + Le16(r.id) + Le16(writtenForm ? 0 : r.reserved)
               + Le16(r.caption.size()) + r.caption + Le16(r.annotation.size()) + r.annotation;
    }
    return out;
}

const QByteArray LongText = QByteArray(40000, 'x') + "\x80\xff";

QList<FileRecord> Spread()
{
    return {{0, 2, 1, 1, 0, "Header", ""},
            {5, 1, 0, 7, 9, "Caf\xe9", "{\\rtf1 note}"},
            {6, 1, 1, 300, 0, "", LongText},
            {1799, -1, 255, 4, 0, "late", ""},
            {1800, 3, 3, 3, 0, "", "last slot"}};
}

// A small set of keys, so that repeats are common; (0, 0, 0) is the key of an empty record.
struct Key
{
    int type, subType, id;
};
QList<Key> Keys()
{
    QList<Key> keys;
    for (int t = 0; t < 2; ++t)
        for (int s = 0; s < 2; ++s)
            for (int id = 0; id < 3; ++id)
                keys.append({t, s, id});
    keys.append({-1, 256, 0});      // a key no gene has, but a file may
    keys.append({65536 + 1, 0, 2}); // wider than a record's field: it matches nothing
    return keys;
}

// The lookup as the records in use define it: the first record in use with the key.
QString Walk(const CaptionStore &store, const Key &k, bool annotation)
{
    for (int i = 0; i < qBound(0, int(store.CaptionCount), CaptionStore::Records); ++i) {
        const CaptionStore::CaptionRecord &r = store.RecordAt(i);
        if (r.GeneType == k.type && r.GeneSubType == k.subType && r.ID == k.id)
            return annotation ? r.Annotation : r.Caption;
    }
    return annotation ? QStringLiteral("<no annotation>") : QStringLiteral("<no caption>");
}


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
    // A store of its own that answers its messages quietly.
    AutoPrompt quiet;
    UserMessages quietMessages{quiet};
    QString folder;
    QStringList species;

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

        // 1798 records in use (no message yet); then even a change of a key it has is refused.
        for (int i = 1; i < CaptionStore::InUse; ++i)
            cs.SetCaption(i / 256, 0, i % 256, QStringLiteral("c%1").arg(i));
        prompt.AnswerMessage(Prompt::Ok).AnswerMessage(Prompt::Ok).AnswerMessage(Prompt::Ok);
        const QString full = QStringLiteral("SetCaption(): No more room in the caption system");
        cs.SetCaption(200, 0, 0, QStringLiteral("new"));
        cs.SetCaption(0, 0, 5, QStringLiteral("changed"));
        cs.SetAnnotation(0, 0, 5, QStringLiteral("note"));
        QCOMPARE(prompt.MessageTexts(), QStringList({full, full, "SetAnnotation(): No more room in the caption system"}));
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
        Store().SetCaption(2, 1, 1, QStringLiteral("from DEFAULT"));
        QVERIFY(session->SaveGenomeFile(Path("second.gen")));
        QVERIFY(!QFileInfo::exists(Path("second.gno")));
        QCOMPARE(TestFiles::Read(session->AppDirectory + QStringLiteral("/tolvane.gno")), Store().FileBytes());
    }

    void badNamesAndNoDefaultFile()
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

        // No genome, so no default file name to save to.
        prompt.AnswerMessage(Prompt::Ok);
        Store().SaveDefaultCaptions();
        QCOMPARE(prompt.Last().text, FaultText("Error saving caption file ", 52, "Bad file name or number"));
    }

    void faultsWhileReading()
    {
        CaptionStore &cs = Store();
        const QString context = "Error reading caption file '" + Path("pet.gno") + "'";
        // A file of another tag is refused after the table was emptied.
        cs.SetCaption(9, 9, 9, QStringLiteral("before"));
        QVERIFY(TestFiles::Write(Path("pet.gno"), Le16(3) + CaptionFile(0, {}).mid(2)));
        prompt.AnswerMessage(Prompt::Ok).AnswerMessage(Prompt::Ok);
        cs.LoadUniqueCaptions(Path("pet.gen"));
        QCOMPARE(prompt.Last().text, FaultText(context, 13, "Type mismatch"));
        QCOMPARE(cs.GetCaption(9, 9, 9) + cs.RecordAt(0).Caption, QStringLiteral("<no caption>"));

        // A file that cannot be opened (a folder of that name) is reported as such.
        QVERIFY(QFile::remove(Path("pet.gno")) && QDir().mkpath(Path("pet.gno")));
        cs.LoadUniqueCaptions(Path("pet.gen"));
        QCOMPARE(prompt.Last().text, FaultText(context, 75, "Path/File access error"));
    }

    void oddCaptionFiles_data()
    {
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<int>("fault");
        QTest::addColumn<int>("count");
        QTest::addColumn<QByteArray>("written");

        const QByteArray whole = CaptionFile(1801, Spread());
        QTest::newRow("whole, count above the limit") << whole << 0 << 1798 << CaptionFile(1798, Spread(), true);
        // Cut inside the long text of record 6, which is longer than a chunk: records 0 to 5 stand.
        const qsizetype inLong = whole.indexOf(LongText) + 20000;
        QTest::newRow("cut inside a long text") << whole.left(inLong) << 62 << 6 << CaptionFile(6, Spread().mid(0, 2), true);
        // Cut inside the run of empty records before record 1799.
        const qsizetype inZeros = whole.indexOf("late") - 10 - 500 * 12 - 5;
        QTest::newRow("cut inside empty records") << whole.left(inZeros) << 62 << 1298
                                                  << CaptionFile(1298, Spread().mid(0, 3), true);
    }

    void oddCaptionFiles()
    {
        QFETCH(QByteArray, file);
        // Fill every slot first: the read must clear each one it doesn't fill.
        QList<FileRecord> all;
        for (int i = 0; i < CaptionStore::Records; ++i)
            all.append({i, qint16(i), 1, 1, 0, "c", "a"});
        QByteArray full = CaptionFile(CaptionStore::InUse, all);
        QBuffer before(&full), in(&file);
        QVERIFY(before.open(QIODevice::ReadOnly) && in.open(QIODevice::ReadOnly));
        QVERIFY(!Store().Read(before).Failed());
        QTEST(int(Store().Read(in).Number), "fault");
        QTEST(int(Store().CaptionCount), "count");
        QTEST(Store().FileBytes(), "written");
    }

    // Long runs of random changes (sets, a count lowered and raised again, files with repeated
    // keys, empty records and cut-off ends) must leave every lookup as the walk gives it.
    void lookupsFollowEveryChange()
    {
        CaptionStore cs(quietMessages, folder, species, {}, {});
        QRandomGenerator random(4);
        const QList<Key> keys = Keys();
        const auto anyKey = [&] { return keys.at(int(random.bounded(keys.size()))); };

        for (int step = 0; step < 1000; ++step) {
            const int op = int(random.bounded(10));
            if (op == 0) {
                // Lowered (an abandon sets 0), or raised over records left in the table.
                cs.CaptionCount = qint16(random.bounded(2) ? 0 : random.bounded(int(cs.CaptionCount) + 4));
            } else if (op == 1) {
                cs.CaptionCount = CaptionStore::InUse; // full: sets are refused, and every record left counts
            } else if (op == 2) {
                // Records at random slots near the front, repeated keys among them; the count
                // may stop before some of them, and the file may end early.
                QList<FileRecord> records;
                for (int n = int(random.bounded(8)); n > 0; --n) {
                    const Key k = anyKey();
                    records.append({int(random.bounded(12)), qint16(k.type), qint16(k.subType), qint16(k.id), 0,
                                    QByteArray::number(step), {}});
                }
                QByteArray file = CaptionFile(int(random.bounded(14)), records, true);
                if (random.bounded(3) == 0)
                    file.truncate(4 + random.bounded(12 * 14));
                QBuffer in(&file);
                in.open(QIODevice::ReadOnly);
                cs.Read(in);
            } else {
                const Key k = anyKey();
                const QString text = QStringLiteral("text %1").arg(step);
                if (random.bounded(2))
                    cs.SetCaption(k.type, k.subType, k.id, text);
                else
                    cs.SetAnnotation(k.type, k.subType, k.id, text);
            }
            for (const Key &k : keys) {
                const QString where = QStringLiteral("step %1, key %2 %3 %4").arg(step).arg(k.type).arg(k.subType).arg(k.id);
                QVERIFY2(cs.GetCaption(k.type, k.subType, k.id) == Walk(cs, k, false), qPrintable(where));
                QVERIFY2(cs.GetAnnotation(k.type, k.subType, k.id) == Walk(cs, k, true), qPrintable(where));
            }
        }
    }
};

QTEST_GUILESS_MAIN(TestCaptions)
#include "test_captions.moc"
