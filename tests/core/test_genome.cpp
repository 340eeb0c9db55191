// The genome image at its edges, the file frame, the recovery from a damaged place and the
// load/save commands.
#include "core/Gene.h"
#include "core/BodyIO.h"
#include "core/Session.h"
#include "core/genes/BodyGenes.h"
#include "support/GenomeBytes.h"
#include "support/ShownText.h"
#include "support/TestEnv.h"

#include <QtTest>

using namespace GenomeBytes;

namespace {
// An inject gene: a two-byte body, so that files of many genes stay short.
QByteArray Inject(int id = 1) { return Header(1, 4, id) + Hex("0102"); }
} // namespace

class TestGenome : public QObject
{
    Q_OBJECT

private slots:
    void init() { FreshSession(sandbox, prompt, session); }

    void cleanup() { QVERIFY2(prompt.AllAnswered(), "a queued answer was not asked for"); }

    // The image's edges, which no genome of a file reaches: at the read limit a read gives zero
    // and stays, and a run of bytes read in one copy reads zeros from it on; the count of
    // corrections stops at its ceiling. At the end of the block writes, one by one or in one
    // copy, are refused and counted.
    void imageEdges()
    {
        GenomeImage &img = session->GenomeImage;
        const int limit = GenomeImage::ReadLimit, end = GenomeImage::Size;
        std::tie(img.Bytes[limit - 2], img.Bytes[limit - 1], img.Bytes[limit]) = std::tuple(7, 8, 9);
        std::tie(img.ReadCursor, img.CorrectedErrors) = std::tuple(limit - 2, 32766);
        QList<int> read{img.GetGenomeByte(1, 3), img.GetGenomeByte(1, 3), img.GetGenomeByte(1, 3)};
        QCOMPARE(read << img.ReadCursor << img.CorrectedErrors, QList<int>({2, 3, 0, limit, 32767}));
        std::array<quint8, 4> run;
        run.fill(0xAA);
        img.ReadCursor = limit - 2;
        BodyReader(img, BodyFormat{}).Bytes(run.data(), 4);
        QCOMPARE(QList<int>(run.cbegin(), run.cend()) << img.ReadCursor, QList<int>({7, 8, 0, 0, limit}));

        const quint8 two[] = {1, 2}, more[] = {3, 4};
        img.WriteCursor = end - 3;
        BodyWriter(img).Bytes(two, 2);
        BodyWriter(img).Bytes(more, 2);
        img.PutGenomeToken("gend");
        QCOMPARE(QList<int>({img.Bytes[end - 3], img.Bytes[end - 2], img.Bytes[end - 1]}), QList<int>({1, 2, 3}));
        QCOMPARE(QList<int>({img.WriteCursor, img.RefusedWrites}), QList<int>({end, 5}));
    }

    // A new genome saved fills the whole block behind its 28 bytes. Without a game key each dialog
    // says so and starts in the program's folder; with one, in its folder.
    void saveWritesWholeBlockAndLoadReadsItBack()
    {
        session->NewGenome();
        QCOMPARE(session->StatusPanel[1], QStringLiteral("Un-named Genome"));
        QCOMPARE(session->CaptionStore.GetCaption(2, 1, 1), QStringLiteral("001 Header Gene"));
        const QString file = sandbox->path() + QStringLiteral("/pet.gen");
        prompt.AnswerMessage(Prompt::Ok).AnswerSave(file);
        session->SaveGenomeAs();
        QCOMPARE(TestFiles::Read(file), Hex("646E6132" "67656E65" "02010100000000" "004556455F4144414D" "67656E64")
                                            + QByteArray(36001 - 28, '\0'));
        QCOMPARE(session->LastGenomeDirectory, sandbox->path() + QLatin1Char('/'));
        Session other(prompt);
        other.AppDirectory = sandbox->path();
        prompt.AnswerMessage(Prompt::Ok).AnswerOpen(file);
        QVERIFY(other.LoadGenome());
        QCOMPARE(prompt.MessageTexts(), QStringList(2, "Error reading registry key -- defaulting\r\n"
                                                       "to current directory."));
        QCOMPARE(prompt.lastFolder, sandbox->path());

        sandbox->SetGameValue("Kelmoth Technology", "Arkenfold 2", "1.0", "Genetics Directory", "/games/genetics");
        session->LastGenomeDirectory.clear();
        prompt.AnswerOpen(QString());
        QVERIFY(!session->LoadGenome());
        QCOMPARE(prompt.lastFolder, QStringLiteral("/games/genetics/"));
    }

    void refusedLoads()
    {
        // 36,001 bytes load (here an empty genome and zeros); one byte more is refused.
        QVERIFY(LoadBytes(File({}) + QByteArray(36001 - 8, '\0')));
        prompt.AnswerMessage(Prompt::Ok).AnswerMessage(Prompt::Ok).AnswerMessage(Prompt::Ok);
        QVERIFY(!LoadBytes(File({}) + QByteArray(36002 - 8, '\0')));
        QVERIFY(!LoadBytes(File(Header(1, 5) + Hex("0000"))));
        QVERIFY(!session->LoadGenomeFile(sandbox->path())); // a folder cannot be read
        QCOMPARE(prompt.shown[0].text, "File exceeds maximum length for genome (36000 bytes)\r\nOperation aborted");
        QVERIFY(prompt.shown[1].text.startsWith("Invalid Genome. Sub-type 5is not a valid"));
        QVERIFY(prompt.shown[2].text.startsWith("Can't read file '"));
    }

    // A damaged place asks whether to go on; Yes scans for the next "gene" or "gend" from four
    // bytes before the failed token (a gene ending in "gene" gives it) up to the scan's limit.
    void recovery_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("found");       // the failed token, as the question quotes it
        QTest::addColumn<QList<int>>("answers");
        QTest::addColumn<QStringList>("shown");   // each question's title, each error's text
        QTest::addColumn<int>("genes");           // -1: the load failed
        const QString zeros(4, QChar(0)), unable = "Unable to lock onto valid data. Operation aborted.";
        const QByteArray halfLives = Header(1, 3) + QByteArray(251, '\0');
        const QByteArray colour = Header(2, 6) + Hex("0280");
        QTest::newRow("nothing to lock onto") << QByteArray("dna2") << zeros << QList<int>{Prompt::Yes, Prompt::Ok}
                                              << QStringList{"Gene #0 is corrupted", unable} << -1;
        QTest::newRow("four bytes back") << File(halfLives + '\0' + "gene" + colour.mid(4)) << "\x02\x06\x01\x09"
                                         << QList<int>{Prompt::Yes} << QStringList{"Gene #1 is corrupted"} << 2;
        // Not five bytes back (a bad kind there), but two bytes on.
        QTest::newRow("two bytes on") << File(halfLives + "gene\x02" + Hex("ABCD") + colour) << "\u00ab\u00cdge"
                                      << QList<int>{Prompt::Yes} << QStringList{"Gene #1 is corrupted"} << 2;
        QTest::newRow("past false starts") << File("ggengenx") << "ggen" << QList<int>{Prompt::Yes}
                                           << QStringList{"Gene #0 is corrupted"} << 0;
        // A gene at the last place scanned is read (its kind from its last byte, the rest zeros
        // past the read limit); one a byte later is not found.
        const QByteArray zerosBefore("dna2" + QByteArray(GenomeImage::ResyncLimit - 5, '\0'));
        QTest::newRow("last place scanned") << zerosBefore + "gene\x02" << zeros << QList<int>{Prompt::Yes, Prompt::No}
                                            << QStringList{"Gene #0 is corrupted", "Gene #1 is corrupted"} << -1;
        QTest::newRow("beyond the scan") << zerosBefore + '\0' + "gene" << zeros << QList<int>{Prompt::Yes, Prompt::Ok}
                                         << QStringList{"Gene #0 is corrupted", unable} << -1;
    }
    void recovery()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, found);
        QFETCH(QList<int>, answers);
        QFETCH(QStringList, shown);
        for (int answer : answers)
            prompt.AnswerMessage(answer);
        const bool loaded = LoadBytes(bytes);
        QTEST(loaded ? int(session->GeneCount) : -1, "genes");
        QStringList got;
        for (const ScriptedPrompt::Shown &s : prompt.shown)
            got << (s.style == 4 ? s.title : s.text);
        QCOMPARE(got, shown);
        QCOMPARE(ShownText(prompt.shown[0]),
                 ShownText(shown[0], 4, "ERROR. Corrupted genome. Expected 'gene', found\r\n'" + found
                                            + "'. Do you wish me to skip the offending gene and\r\nattempt to continue "
                                              "anyway? This could result in\r\na bad genome."));
    }

    void gene900Loads901IsRefused()
    {
        QVERIFY(LoadBytes(File(Inject().repeated(900))));
        QCOMPARE(session->GeneCount, qint16(900));
        prompt.AnswerMessage(Prompt::Ok).AnswerMessage(Prompt::Ok);
        QVERIFY(!LoadBytes(File(Inject().repeated(901))));
        QCOMPARE(prompt.MessageTexts(), QStringList({"Terminal error processing new gene, out of gene space.\r\n"
                                                     "Maximum # of genes is 900.", "Can't create gene number #900."}));
        QCOMPARE(session->GeneCount, qint16(0));
    }

    void spaceFigure()
    {
        // A short genome read over a long one: the figure counts the old bytes behind its "gend".
        QVERIFY(LoadBytes(File(Inject().repeated(40)))); // 528 bytes
        QVERIFY(LoadBytes(File({})));
        QCOMPARE(session->StatusPanel[2], QStringLiteral("99% genome space remaining")); // 1.47 -> 1
        // Rounded half to even: 100 x 540 / 36000 = 1.5 -> 2; 900 -> 2.5 -> 2.
        for (int cursor : {540, 900}) {
            session->GenomeImage.WriteCursor = cursor;
            session->ShowGenomeSpace(false);
            QCOMPARE(session->StatusPanel[2], QStringLiteral("98% genome space remaining"));
        }
    }

    void abandonAsksOnlyOverTwoGenes()
    {
        // One gene goes without a question; two ask, and Cancel keeps them.
        session->NewGenome();
        QVERIFY(session->AbandonGenome());
        QVERIFY(LoadBytes(File(Inject(1) + Inject(2))));
        prompt.AnswerMessage(Prompt::Cancel);
        QVERIFY(!session->AbandonGenome());
        QCOMPARE(ShownText(prompt.Last()),
                 ShownText("Helixbench", 35, "This operation will abandon the existing genome. Sure?"));
        QCOMPARE(session->GeneCount, qint16(2));
    }

    // A name so long that the temporary file cannot be put in its place fails, and the old file
    // stays whole.
    void saveOverAnOldFile()
    {
        session->NewGenome();
        const QString file = sandbox->path() + QLatin1Char('/') + QString(250, QLatin1Char('a')) + ".gen";
        QVERIFY(TestFiles::Write(file, "old contents"));
        prompt.AnswerMessage(Prompt::Ok);
        QVERIFY(!session->SaveGenomeFile(file));
        QVERIFY(prompt.Last().text.startsWith("Error writing file:\r\n" + file + "\r\n"));
        QCOMPARE(TestFiles::Read(file), QByteArray("old contents"));
    }

private:
    bool LoadBytes(const QByteArray &bytes)
    {
        const QString file = sandbox->path() + QStringLiteral("/in.gen");
        return TestFiles::Write(file, bytes) && session->LoadGenomeFile(file);
    }

    ScriptedPrompt prompt;
    std::unique_ptr<SettingsSandbox> sandbox;
    std::unique_ptr<Session> session;
};

QTEST_GUILESS_MAIN(TestGenome)
#include "test_genome.moc"
