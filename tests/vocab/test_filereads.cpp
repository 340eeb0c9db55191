// Where the readers take shortcuts: the caption store reads ahead in chunks, skips runs of empty
// records, clears only the slots it ever filled and finds a key through an index rather than a
// walk through its table; small files are read in pieces. Each must give what a plain
// field-by-field read, or the walk over the records in use, would.
#include "CaptionFileKit.h"
#include "base/AutoPrompt.h"
#include "base/FileFault.h"
#include "base/Messages.h"
#include "support/TestEnv.h"

#include <QBuffer>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QtTest>

using namespace CaptionFileKit;

namespace {

// A device that hands out at most `piece` bytes a read, can't seek, and fails from `failAt` on.
class TrickleDevice : public QIODevice
{
public:
    TrickleDevice(const QByteArray &bytes, qint64 piece, qint64 failAt = -1)
        : bytes(bytes), piece(piece), failAt(failAt)
    {
        open(QIODevice::ReadOnly | QIODevice::Unbuffered);
    }
    bool isSequential() const override { return true; }

protected:
    qint64 readData(char *data, qint64 max) override
    {
        if (failAt >= 0 && at >= failAt)
            return -1;
        qint64 n = qMin(qMin(max, piece), qint64(bytes.size()) - at);
        if (failAt >= 0)
            n = qMin(n, failAt - at);
        memcpy(data, bytes.constData() + at, size_t(n));
        at += n;
        return n;
    }
    qint64 writeData(const char *, qint64) override { return -1; }

private:
    QByteArray bytes;
    qint64 piece, failAt, at = 0;
};

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

} // namespace

class TestFileReads : public QObject
{
    Q_OBJECT

    AutoPrompt prompt;
    UserMessages messages{prompt};
    QString folder;
    QStringList species;
    CaptionStore store{messages, folder, species, {}, {}};

private slots:
    void captionFileFromAnyDevice_data()
    {
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<int>("fault");
        QTest::addColumn<int>("count");
        QTest::addColumn<QByteArray>("written");
        QTest::addColumn<qint64>("failAt");

        const QByteArray whole = CaptionFile(1801, Spread());
        const QByteArray writtenWhole = CaptionFile(1798, Spread(), true);
        QTest::newRow("whole, count above the limit") << whole << 0 << 1798 << writtenWhole << qint64(-1);

        // Cut inside the long text of record 6: records 0 to 5 stand.
        const qsizetype inLong = whole.indexOf(LongText) + 20000;
        QList<FileRecord> firstSix = Spread().mid(0, 2);
        QTest::newRow("cut inside a long text") << whole.left(inLong) << 62 << 6 << CaptionFile(6, firstSix, true)
                                                << qint64(-1);
        // Cut inside the run of empty records before record 1799.
        const qsizetype inZeros = whole.indexOf("late") - 10 - 500 * 12 - 5;
        QList<FileRecord> beforeLate = Spread().mid(0, 3);
        QTest::newRow("cut inside empty records") << whole.left(inZeros) << 62 << 1298
                                                  << CaptionFile(1298, beforeLate, true) << qint64(-1);
        QTest::newRow("device fails in the empty records")
            << whole << 57 << 1298 << CaptionFile(1298, beforeLate, true) << qint64(inZeros);
        QTest::newRow("device fails behind the last record") << whole << 0 << 1798 << writtenWhole
                                                            << qint64(whole.size());
        QTest::newRow("negative count") << CaptionFile(-5, Spread()) << 0 << 0 << CaptionFile(0, Spread(), true)
                                        << qint64(-1);
    }

    void captionFileFromAnyDevice()
    {
        QFETCH(QByteArray, file);
        QFETCH(qint64, failAt);

        // The same bytes from a buffer and from a device that trickles them out a few at a time.
        QByteArray copy = file;
        QBuffer buffer(&copy);
        buffer.open(QIODevice::ReadOnly);
        TrickleDevice trickle(file, 7, failAt);
        TrickleDevice chunks(file, 5000, failAt);
        QList<QIODevice *> devices = {&trickle, &chunks};
        if (failAt < 0)
            devices.prepend(&buffer);
        for (QIODevice *device : devices) {
            // Fill many slots first: the read must clear every one it doesn't fill.
            QVERIFY(!store.Read(*QScopedPointer<QBuffer>(Filled()).data()).Failed());
            QTEST(int(store.Read(*device).Number), "fault");
            QTEST(int(store.CaptionCount), "count");
            QTEST(store.FileBytes(), "written");
        }
    }

    // Long runs of random changes (sets, a count lowered and raised again, files with repeated
    // keys, empty records and cut-off ends) must leave every lookup as the walk gives it.
    void lookupsFollowEveryChange_data()
    {
        QTest::addColumn<quint32>("seed");
        QTest::addColumn<bool>("counts"); // the count is lowered and raised by hand
        QTest::addColumn<bool>("files");  // files are read, some cut short
        QTest::newRow("sets only") << 1u << false << false;
        QTest::newRow("sets and counts") << 2u << true << false;
        QTest::newRow("sets and files") << 3u << false << true;
        QTest::newRow("everything") << 4u << true << true;
        QTest::newRow("everything, again") << 5u << true << true;
    }
    void lookupsFollowEveryChange()
    {
        QFETCH(quint32, seed);
        QFETCH(bool, counts);
        QFETCH(bool, files);
        CaptionStore cs(messages, folder, species, {}, {});
        QRandomGenerator random(seed);
        const QList<Key> keys = Keys();
        const auto anyKey = [&] { return keys.at(int(random.bounded(keys.size()))); };
        int found = 0;

        for (int step = 0; step < 400; ++step) {
            const int op = int(random.bounded(10));
            QString what;
            if (counts && op == 0) {
                // Lowered (an abandon sets 0), or raised over records left in the table.
                cs.CaptionCount = qint16(random.bounded(2) ? 0 : random.bounded(int(cs.CaptionCount) + 4));
                what = QStringLiteral("count %1").arg(cs.CaptionCount);
            } else if (counts && op == 1) {
                cs.CaptionCount = CaptionStore::InUse; // full: sets are refused
                what = QStringLiteral("full");
            } else if (files && op == 2) {
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
                what = QStringLiteral("read %1 bytes").arg(file.size());
            } else {
                const Key k = anyKey();
                const QString text = QStringLiteral("text %1").arg(step);
                if (random.bounded(2))
                    cs.SetCaption(k.type, k.subType, k.id, text);
                else
                    cs.SetAnnotation(k.type, k.subType, k.id, text);
                what = QStringLiteral("set %1 %2 %3").arg(k.type).arg(k.subType).arg(k.id);
            }
            for (const Key &k : keys) {
                const QString where = QStringLiteral("step %1 (%2), key %3 %4 %5")
                                          .arg(step).arg(what).arg(k.type).arg(k.subType).arg(k.id);
                QVERIFY2(cs.GetCaption(k.type, k.subType, k.id) == Walk(cs, k, false), qPrintable(where));
                QVERIFY2(cs.GetAnnotation(k.type, k.subType, k.id) == Walk(cs, k, true), qPrintable(where));
                found += Walk(cs, k, false) != QLatin1String("<no caption>");
            }
        }
        // The runs find records as often as they miss them, not just the empty store.
        QVERIFY2(found > 1000, qPrintable(QString::number(found)));
    }

    // Read in pieces, a file gives its first bytes up to the limit, and no more.
    void smallFileReadStopsAtTheLimit()
    {
        QTemporaryDir dir;
        QByteArray content(200000, Qt::Uninitialized);
        for (int i = 0; i < content.size(); ++i)
            content[i] = char(i * 7 + i / 251);
        QVERIFY(TestFiles::Write(dir.filePath(QStringLiteral("list.txt")), content));
        QByteArray got;
        FileFault fault;
        QVERIFY(SmallFiles::ReadFront(dir.filePath(QStringLiteral("list.txt")), 150001, got, fault));
        QCOMPARE(got, content.left(150001));
    }

private:
    // A file with a record in every slot, in a buffer of its own.
    static QBuffer *Filled()
    {
        static QByteArray full = [] {
            QList<FileRecord> all;
            for (int i = 0; i < CaptionStore::Records; ++i)
                all.append({i, qint16(i), 1, 1, 0, "c", "a"});
            return CaptionFile(1798, all);
        }();
        auto *b = new QBuffer(&full);
        b->open(QIODevice::ReadOnly);
        return b;
    }
};

QTEST_GUILESS_MAIN(TestFileReads)
#include "test_filereads.moc"
