// The small steps the genome codec is built from: the walkers that read and write a gene
// record on copies of the image's cursors, the lookup of a kind by its pair, and text
// turned into bytes one character at a time.
#include "base/AutoPrompt.h"
#include "base/SingleByteText.h"
#include "core/BodyIO.h"
#include "core/Gene.h"
#include "core/Session.h"
#include "core/genes/Biochemistry.h"

#include <QtTest>

#include <memory>

class TestCodecSteps : public QObject
{
    Q_OBJECT

private slots:
    // A reader gives what GetGenomeByte gives and leaves the image's cursor and count where
    // GetGenomeByte leaves them, at the end of the block and at the count's ceiling too.
    void readerKeepsCursorAndCount_data()
    {
        QTest::addColumn<int>("start");
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<int>("lo");
        QTest::addColumn<int>("hi");
        QTest::addColumn<int>("corrected");
        QTest::addColumn<int>("endCursor");
        QTest::addColumn<int>("endCorrected");

        // Each row reads two bytes past those placed: zeros, folded into 1..16 as well.
        const QByteArray mixed = QByteArray::fromHex("0610280100");
        QTest::newRow("in range") << 4 << QByteArray::fromHex("0102030410") << 0 << 16 << 0 << 4 + 7 << 0;
        QTest::newRow("folded") << 4 << mixed << 1 << 16 << 0 << 4 + 7 << 4;
        QTest::newRow("count going on") << 100 << mixed << 1 << 16 << 7 << 100 + 7 << 11;
        QTest::newRow("count at its ceiling") << 100 << mixed << 1 << 16 << 32766 << 100 + 7 << 32767;
        // Two bytes before the limit: the rest reads as zeros and the cursor stops.
        QTest::newRow("end of block") << GenomeImage::ReadLimit - 2 << QByteArray::fromHex("0909") << 0 << 3 << 0
                                      << GenomeImage::ReadLimit << 2;
    }
    void readerKeepsCursorAndCount()
    {
        QFETCH(int, start);
        QFETCH(QByteArray, bytes);
        QFETCH(int, lo);
        QFETCH(int, hi);
        QFETCH(int, corrected);

        auto direct = std::make_unique<GenomeImage>(), walked = std::make_unique<GenomeImage>();
        for (GenomeImage *img : {direct.get(), walked.get()}) {
            std::copy(bytes.cbegin(), bytes.cend(), img->Bytes.begin() + start);
            img->ReadCursor = start;
            img->CorrectedErrors = qint16(corrected);
        }
        const int reads = int(bytes.size()) + 2; // past the bytes placed, into zeros or the limit
        QList<int> expected, got;
        for (int i = 0; i < reads; ++i)
            expected << direct->GetGenomeByte(lo, hi);
        {
            BodyReader io(*walked, BodyFormat{});
            for (int i = 0; i < reads; ++i) {
                quint8 v = 0;
                io.Byte(v, lo, hi);
                got << v;
            }
        }
        QCOMPARE(got, expected);
        QCOMPARE(QList<int>({walked->ReadCursor, walked->CorrectedErrors}),
                 QList<int>({direct->ReadCursor, direct->CorrectedErrors}));
        QTEST(int(walked->ReadCursor), "endCursor");
        QTEST(int(walked->CorrectedErrors), "endCorrected");
    }

    // A run of bytes read or written in one copy reads and writes as the same bytes one by
    // one: anywhere in the block, and up to and past its end.
    void bytesInOneCopy_data()
    {
        QTest::addColumn<int>("start");
        QTest::newRow("start of block") << 0;
        QTest::newRow("across the read limit") << GenomeImage::ReadLimit - 5;
        QTest::newRow("across the block end") << GenomeImage::Size - 5;
        QTest::newRow("past the block end") << GenomeImage::Size;
    }
    void bytesInOneCopy()
    {
        QFETCH(int, start);
        constexpr int n = 12;
        auto one = std::make_unique<GenomeImage>(), run = std::make_unique<GenomeImage>();
        for (GenomeImage *img : {one.get(), run.get()}) {
            for (int i = 0; i < GenomeImage::Size; ++i)
                img->Bytes[size_t(i)] = quint8(i * 7 + 3);
            img->ReadCursor = img->WriteCursor = start;
        }
        std::array<quint8, n> byOne{}, byRun{};
        byRun.fill(0xAA); // what the copy leaves must be read, not left over
        for (quint8 &v : byOne)
            BodyReader(*one, BodyFormat{}).Byte(v);
        BodyReader(*run, BodyFormat{}).Bytes(byRun.data(), n);
        QVERIFY(byRun == byOne);
        QCOMPARE(run->ReadCursor, one->ReadCursor);

        const std::array<quint8, n> values{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12};
        for (quint8 v : values)
            BodyWriter(*one).Byte(v);
        BodyWriter(*run).Bytes(values.data(), n);
        QVERIFY(one->Bytes == run->Bytes);
        QCOMPARE(QList<int>({run->WriteCursor, run->RefusedWrites}), QList<int>({one->WriteCursor, one->RefusedWrites}));
        QCOMPARE(run->WriteCursor, qMin(start + n, int(GenomeImage::Size)));
    }

    // A record written at the end of the block stops at its last byte: what does not fit is
    // refused and counted, and nothing before the record changes.
    void writerStopsAtBlockEnd_data()
    {
        QTest::addColumn<int>("start");
        QTest::addColumn<int>("written");
        // An inject record: "gene", seven header bytes, a two-byte body.
        QTest::newRow("fits exactly") << GenomeImage::Size - 13 << 13;
        QTest::newRow("cut after five") << GenomeImage::Size - 5 << 5;
        QTest::newRow("block full") << GenomeImage::Size << 0;
    }
    void writerStopsAtBlockEnd()
    {
        QFETCH(int, start);
        QFETCH(int, written);

        AutoPrompt prompt;
        Session session(prompt);
        clsInject gene(session);
        std::tie(gene.GeneType, gene.GeneSubType, gene.ID, gene.Chem, gene.Conc) = std::tuple(1, 4, 7, 0x21, 0x42);
        GenomeImage &img = session.GenomeImage;
        img.Bytes.fill(0xEE);
        img.WriteCursor = start;
        gene.WriteRecord(img);

        const QByteArray record = QByteArray("gene") + QByteArray::fromHex("0104070000000021") + char(0x42);
        const QByteArray image(reinterpret_cast<const char *>(img.Bytes.data()), GenomeImage::Size);
        QCOMPARE(image.mid(start), record.left(written));
        QCOMPARE(image.left(start), QByteArray(start, char(0xEE)));
        QCOMPARE(QList<int>({img.WriteCursor, img.RefusedWrites}), QList<int>({start + written, 13 - written}));
    }

    // The resync scan looks from four bytes before the failed token up to its limit, for the
    // first "gene" or "gend", and reads it; with none it puts the cursor back and fails.
    void resyncScan_data()
    {
        QTest::addColumn<int>("start");
        QTest::addColumn<int>("at");
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QByteArray>("found"); // empty: the fault
        QTest::addColumn<int>("cursor");

        QTest::newRow("four bytes early") << 100 << 96 << QByteArray("gene") << QByteArray("gene") << 100;
        QTest::newRow("five bytes early") << 100 << 95 << QByteArray("gene") << QByteArray() << 100;
        QTest::newRow("past false starts") << 100 << 200 << QByteArray("ggengenxgend") << QByteArray("gend") << 212;
        QTest::newRow("last place scanned") << 100 << GenomeImage::ResyncLimit - 1 << QByteArray("gene")
                                            << QByteArray("gene") << GenomeImage::ResyncLimit + 3;
        QTest::newRow("beyond the scan") << 100 << GenomeImage::ResyncLimit << QByteArray("gene") << QByteArray()
                                         << 100;
    }
    void resyncScan()
    {
        QFETCH(int, start);
        QFETCH(int, at);
        QFETCH(QByteArray, bytes);

        auto img = std::make_unique<GenomeImage>();
        std::copy(bytes.cbegin(), bytes.cend(), img->Bytes.begin() + at);
        img->ReadCursor = start + 4;
        const std::optional<GenomeToken> token = img->ResyncGenome(start);
        QTEST(token ? token->Text() : QByteArray(), "found");
        QTEST(int(img->ReadCursor), "cursor");
    }

    // Every pair finds its own row, and only the sixteen pairs of the table find one.
    void kindsFoundByPair()
    {
        int found = 0;
        for (int type = -1; type <= 5; ++type)
            for (int sub = -1; sub <= 9; ++sub) {
                const GeneKindInfo *k = GeneKinds::Find(type, sub);
                const bool valid = type >= 0 && sub >= 0 && IsValidGeneKind(quint8(type), quint8(sub));
                QCOMPARE(k != nullptr, valid);
                if (k) {
                    QCOMPARE(QList<int>({k->type, k->subType}), QList<int>({type, sub}));
                    ++found;
                }
            }
        QCOMPARE(found, GeneKinds::Count);
    }

    // One character at a time gives what the whole text gives, for every byte and for
    // characters inside, beside and outside the code page.
    void charactersAsWholeText()
    {
        for (int b = 0; b < 256; ++b) {
            const QString whole = SingleByteText::Decode(QByteArray(1, char(b)));
            QCOMPARE(SingleByteText::DecodeChar(quint8(b)), whole.at(0));
            QCOMPARE(quint8(SingleByteText::EncodeChar(whole.at(0))), quint8(b));
        }
        for (char16_t c : {u'A', u'\u007f', u'\u00a0', u'\u00e9', u'\u20ac', u'\u0100', u'\u4e2d'}) {
            const QChar ch(c);
            QCOMPARE(SingleByteText::EncodeChar(ch), SingleByteText::Encode(QString(ch)).at(0));
        }
        QCOMPARE(SingleByteText::EncodeChar(QChar(u'\u0100')), '?');
    }
};

QTEST_GUILESS_MAIN(TestCodecSteps)
#include "test_codecsteps.moc"
