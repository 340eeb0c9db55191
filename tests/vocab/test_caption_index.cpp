// The caption store finds a key through an index rather than a walk through its table. Long
// runs of random changes (sets, a count lowered and raised again, files with repeated keys,
// empty records and cut-off ends) must leave every lookup as the walk over the records in use
// would give it: the first record in use with the key, else "<no caption>".
#include "base/AutoPrompt.h"
#include "base/Messages.h"
#include "vocab/CaptionStore.h"

#include <QBuffer>
#include <QRandomGenerator>
#include <QtTest>

#include <map>

namespace {

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
    keys.append({-1, 256, 0});    // a key no gene has, but a file may
    keys.append({65536 + 1, 0, 2}); // wider than a record's field: it matches nothing
    return keys;
}

// The lookup as the records in use define it.
QString Walk(const CaptionStore &store, const Key &k, bool annotation)
{
    for (int i = 0; i < qBound(0, int(store.CaptionCount), CaptionStore::Records); ++i) {
        const CaptionStore::CaptionRecord &r = store.RecordAt(i);
        if (r.GeneType == k.type && r.GeneSubType == k.subType && r.ID == k.id)
            return annotation ? r.Annotation : r.Caption;
    }
    return annotation ? QStringLiteral("<no annotation>") : QStringLiteral("<no caption>");
}

QByteArray Le16(int v) { return QByteArray(1, char(v & 0xFF)) + char((v >> 8) & 0xFF); }

// A caption file with records at the given slots, empty ones elsewhere.
QByteArray CaptionFile(int count, const std::map<int, std::pair<Key, QByteArray>> &records)
{
    QByteArray out = Le16(CaptionStore::FileTag) + Le16(count);
    for (int i = 0; i < CaptionStore::Records; ++i) {
        const auto at = records.find(i);
        if (at == records.end()) {
            out += QByteArray(12, '\0');
            continue;
        }
        const Key &k = at->second.first;
        const QByteArray &text = at->second.second;
        out += Le16(k.type) + Le16(k.subType) + Le16(k.id) + Le16(0) + Le16(text.size()) + text + Le16(0);
    }
    return out;
}

} // namespace

class TestCaptionIndex : public QObject
{
    Q_OBJECT

private slots:
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
        AutoPrompt prompt;
        UserMessages messages(prompt);
        const QString folder;
        const QStringList species;
        CaptionStore store(messages, folder, species, {}, {});
        QRandomGenerator random(seed);
        const QList<Key> keys = Keys();
        const auto anyKey = [&] { return keys.at(int(random.bounded(keys.size()))); };
        int found = 0;

        for (int step = 0; step < 400; ++step) {
            const int op = int(random.bounded(10));
            QString what;
            if (counts && op == 0) {
                // Lowered (an abandon sets 0), or raised over records left in the table.
                store.CaptionCount = qint16(random.bounded(2) ? 0 : random.bounded(int(store.CaptionCount) + 4));
                what = QStringLiteral("count %1").arg(store.CaptionCount);
            } else if (counts && op == 1) {
                store.CaptionCount = CaptionStore::InUse; // full: sets are refused
                what = QStringLiteral("full");
            } else if (files && op == 2) {
                // Records at random slots near the front, repeated keys among them; the count
                // may stop before some of them, and the file may end early.
                std::map<int, std::pair<Key, QByteArray>> records;
                for (int n = int(random.bounded(8)); n > 0; --n)
                    records[int(random.bounded(12))] = {anyKey(), QByteArray::number(step)};
                QByteArray file = CaptionFile(int(random.bounded(14)), records);
                if (random.bounded(3) == 0)
                    file.truncate(4 + random.bounded(12 * 14));
                QBuffer in(&file);
                in.open(QIODevice::ReadOnly);
                store.Read(in);
                what = QStringLiteral("read %1 bytes").arg(file.size());
            } else {
                const Key k = anyKey();
                const QString text = QStringLiteral("text %1").arg(step);
                if (random.bounded(2))
                    store.SetCaption(k.type, k.subType, k.id, text);
                else
                    store.SetAnnotation(k.type, k.subType, k.id, text);
                what = QStringLiteral("set %1 %2 %3").arg(k.type).arg(k.subType).arg(k.id);
            }
            for (const Key &k : keys) {
                const QString where = QStringLiteral("step %1 (%2), key %3 %4 %5")
                                          .arg(step).arg(what).arg(k.type).arg(k.subType).arg(k.id);
                QVERIFY2(store.GetCaption(k.type, k.subType, k.id) == Walk(store, k, false), qPrintable(where));
                QVERIFY2(store.GetAnnotation(k.type, k.subType, k.id) == Walk(store, k, true), qPrintable(where));
                found += Walk(store, k, false) != QLatin1String("<no caption>");
            }
        }
        // The runs find records as often as they miss them, not just the empty store.
        QVERIFY2(found > 1000, qPrintable(QString::number(found)));
    }
};

QTEST_GUILESS_MAIN(TestCaptionIndex)
#include "test_caption_index.moc"
