// The genome image, its reader's folding, the file frame and the load/save commands.
#include "core/Gene.h"
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

    // The image's edges (the folding of bytes into range is checked gene by gene with the genes):
    // at the end of the block a read gives zero without advancing, and writes are refused.
    void imageEdges()
    {
        GenomeImage &img = session->GenomeImage;
        img.ReadCursor = GenomeImage::ReadLimit;
        img.Bytes[GenomeImage::ReadLimit] = 9;
        QCOMPARE(QList<int>({img.GetGenomeByte(1, 3), img.ReadCursor, img.CorrectedErrors}),
                 QList<int>({0, GenomeImage::ReadLimit, 0}));
        img.WriteCursor = GenomeImage::Size - 1;
        img.PutGenomeToken("gend");
        QCOMPARE(QList<int>({img.Bytes[GenomeImage::Size - 1], img.WriteCursor, img.RefusedWrites}),
                 QList<int>({'g', GenomeImage::Size, 3}));
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
        QCOMPARE(QList<int>({other.GeneCount, other.GeneAt(0)->GeneType, other.GeneAt(0)->GeneSubType}),
                 QList<int>({1, 2, 1}));
        QCOMPARE(other.StatusPanel[1], QStringLiteral("...") + file.right(20));

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
        prompt.AnswerMessage(Prompt::Ok).AnswerMessage(Prompt::Ok).AnswerMessage(Prompt::Ok).AnswerMessage(Prompt::Ok);
        QVERIFY(!LoadBytes(File({}) + QByteArray(36002 - 8, '\0')));
        QVERIFY(!LoadBytes("gene"));
        QVERIFY(!LoadBytes(File(Header(1, 5) + Hex("0000"))));
        QVERIFY(!session->LoadGenomeFile(sandbox->path())); // a folder cannot be read
        QCOMPARE(prompt.MessageTexts().mid(0, 2), QStringList({"File exceeds maximum length for genome (36000 bytes)\r\n"
                                                               "Operation aborted", "This is not a Arkenfold 2 Verdant DNA file."}));
        QVERIFY(prompt.shown[2].text.startsWith("Invalid Genome. Sub-type 5is not a valid"));
        QVERIFY(prompt.shown[3].text.startsWith("Can't read file '"));
    }

    void headerFolding()
    {
        // Type 6 reads as 2 and SwitchOn 13 as 6 (counted); Mutability 0xFF as 63 (not counted).
        prompt.AnswerMessage(Prompt::Ok);
        QVERIFY(LoadBytes(File(Hex("67656E65" "0606 05 07 0D FF 40" "0102"))));
        QCOMPARE(prompt.Last().text, " 2 genetic error(s) were corrected automatically");
        const Gene *g = session->GeneAt(0);
        QCOMPARE(QList<int>({g->GeneType, g->GeneSubType, g->ID, g->Generation, g->SwitchOn, g->Mutability,
                             g->MutabilityWeighting}), QList<int>({2, 6, 5, 7, 6, 63, 0x40}));
    }

    void recoveryQuestions()
    {
        // "dna2" alone: the next token is four zero bytes; Yes finds nothing to lock onto; No says nothing
        // more (a further prompt would be unexpected).
        prompt.AnswerMessage(Prompt::Yes).AnswerMessage(Prompt::Ok).AnswerMessage(Prompt::No);
        QVERIFY(!LoadBytes("dna2"));
        QVERIFY(!LoadBytes("dna2"));
        QCOMPARE(ShownText(prompt.shown[0]),
                 ShownText("Gene #0 is corrupted", 4, "ERROR. Corrupted genome. Expected 'gene', found\r\n'"
                           + QString(4, QChar(0)) + "'. Do you wish me to skip the offending gene and\r\nattempt "
                           "to continue anyway? This could result in\r\na bad genome."));
        QVERIFY(prompt.shown[1].text.startsWith("Unable to lock onto valid data."));
        // Yes skips two stray bytes to a colour gene that starts two bytes late: the scan for the
        // next token starts four bytes back.
        prompt.AnswerMessage(Prompt::Yes);
        QVERIFY(LoadBytes(File(Inject() + Hex("ABCD") + Header(2, 6) + Hex("0280"))));
        QCOMPARE(prompt.Last().title, QStringLiteral("Gene #1 is corrupted"));
        QCOMPARE(QList<int>({session->GeneCount, session->GeneAt(1)->GeneSubType}), QList<int>({2, 6}));
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

    void abandonAndCancelledOpen()
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
        // Yes, then a cancelled file dialog: the session is left empty.
        prompt.AnswerMessage(Prompt::Yes).AnswerMessage(Prompt::Ok).AnswerOpen(QString());
        QVERIFY(!session->LoadGenome());
        QCOMPARE(session->GeneCount, qint16(0));
    }

    // A save over a longer file is cut to the image, so that it loads again. A name so long that the
    // temporary file cannot be put in its place fails, and the old file stays whole.
    void saveOverAnOldFile()
    {
        session->NewGenome();
        const QString longer = sandbox->path() + QStringLiteral("/longer.gen");
        QVERIFY(TestFiles::Write(longer, QByteArray(GenomeImage::Size + 99, 'z')));
        QVERIFY(session->SaveGenomeFile(longer));
        QCOMPARE(TestFiles::Read(longer), QByteArray(reinterpret_cast<const char *>(session->GenomeImage.Bytes.data()), GenomeImage::Size));
        const qint16 genes = session->GeneCount;
        QVERIFY(session->LoadGenomeFile(longer));
        QCOMPARE(session->GeneCount, genes);

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
