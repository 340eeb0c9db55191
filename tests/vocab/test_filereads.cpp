// Whole-file reads and writes where the readers take shortcuts: the caption store reads ahead in
// chunks, skips runs of empty records and clears only the slots it ever filled; small files
// are read in pieces; single-byte text is written without buffers of its own. Each must give
// what a plain field-by-field read and write would.
#include "CaptionFileKit.h"
#include "base/AutoPrompt.h"
#include "base/FileFault.h"
#include "base/Messages.h"
#include "base/SingleByteText.h"

#include <QBuffer>
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
        QTest::newRow("older tail behind the records") << whole + "tail" << 0 << 1798 << writtenWhole << qint64(-1);

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

    void slotsFilledByCallsAreWritten()
    {
        // After an abandon the table stands: lookups no longer see it, records behind the count
        // are still written, and a new caption takes slot 0 over whole.
        QByteArray empty = CaptionFile(0, {});
        QBuffer in(&empty);
        in.open(QIODevice::ReadOnly);
        QVERIFY(!store.Read(in).Failed());
        store.SetCaption(1, 2, 3, QStringLiteral("one"));
        store.SetAnnotation(1, 2, 3, QStringLiteral("gone"));
        store.SetAnnotation(4, 5, 6, QStringLiteral("two"));
        store.CaptionCount = 0;
        store.SetCaption(7, 8, 9, QStringLiteral("three"));
        QCOMPARE(store.GetCaption(1, 2, 3) + store.GetAnnotation(4, 5, 6), QStringLiteral("<no caption><no annotation>"));
        QCOMPARE(store.FileBytes(), CaptionFile(1, {{0, 7, 8, 9, 0, "three", ""}, {1, 4, 5, 6, 0, "", "two"}}));
    }

    void smallFileReadsInPieces_data()
    {
        QTest::addColumn<int>("size");
        QTest::addColumn<qint64>("most");
        QTest::newRow("empty") << 0 << qint64(100);
        QTest::newRow("smaller than the limit") << 1028 << qint64(34000000);
        QTest::newRow("cut at the limit") << 200000 << qint64(150001);
        QTest::newRow("several pieces, all of it") << 300000 << qint64(1000000);
    }

    void smallFileReadsInPieces()
    {
        QFETCH(int, size);
        QFETCH(qint64, most);
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("list.txt"));
        QByteArray content(size, Qt::Uninitialized);
        for (int i = 0; i < size; ++i)
            content[i] = char(i * 7 + i / 251);
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(content) == size);
        file.close();
        QByteArray got = "left over";
        FileFault fault;
        QVERIFY(SmallFiles::ReadFront(path, most, got, fault));
        QCOMPARE(got, content.left(qsizetype(most)));
    }

    void textWrittenInPlaceAsEncoded()
    {
        // Every UTF-16 code unit, where the code page has it and where it doesn't.
        QString all(0x10000, Qt::Uninitialized);
        for (int c = 0; c < 0x10000; ++c)
            all[c] = QChar(ushort(c));
        const QByteArray encoded = SingleByteText::Encode(all);
        QByteArray appended = "head";
        SingleByteText::Append(appended, all);
        QCOMPARE(appended, "head" + encoded);
        QByteArray into(all.size(), '\0');
        SingleByteText::EncodeInto(all, into.data());
        QCOMPARE(into, encoded);
        QCOMPARE(encoded.count('?'), 0x10000 - 255); // 256 characters have a byte; '?' is one of them
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
