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

const QString NoGameKey = QStringLiteral("Error reading registry key -- defaulting\r\nto current directory.");
const QString TooManyGenes = QStringLiteral("Terminal error processing new gene, out of gene space.\r\n"
                                            "Maximum # of genes is 900.");
} // namespace

class TestGenome : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        sandbox.reset(new SettingsSandbox);
        prompt.Clear();
        session.reset(new Session(prompt));
        session->AppDirectory = sandbox->path();
    }

    void cleanup() { QVERIFY2(prompt.AllAnswered(), "a queued answer was not asked for"); }

    void imageReadsFoldedAndWritesInsideTheBlock()
    {
        GenomeImage &img = session->GenomeImage;
        const quint8 bytes[] = {6, 0, 40, 7, 0xFF};
        std::copy(std::begin(bytes), std::end(bytes), img.Bytes.begin());
        // A fold, not a clamp: 6 in 0..3 is 2, 0 in 1..16 is 1, 40 is 9, 7 in 0..6 is 0; 255 in 0..255
        // is no error.
        const int read[] = {img.GetGenomeByte(0, 3), img.GetGenomeByte(1, 16), img.GetGenomeByte(1, 16),
                            img.GetGenomeByte(0, 6), img.GetGenomeByte(0, 255)};
        QCOMPARE(QList<int>(std::begin(read), std::end(read)), QList<int>({2, 1, 9, 0, 255}));
        QCOMPARE(img.CorrectedErrors, qint16(4));
        // At the end of the block: zeros, no advance, no count.
        img.ReadCursor = GenomeImage::ReadLimit;
        img.Bytes[GenomeImage::ReadLimit] = 9;
        QCOMPARE(QList<int>({img.GetGenomeByte(1, 3), img.ReadCursor, img.CorrectedErrors}),
                 QList<int>({0, GenomeImage::ReadLimit, 4}));

        img.WriteCursor = GenomeImage::Size - 1;
        img.PutGenomeToken("gend");
        QCOMPARE(QList<int>({img.Bytes[GenomeImage::Size - 1], img.WriteCursor, img.RefusedWrites}),
                 QList<int>({'g', GenomeImage::Size, 3}));
    }

    void newGenomeEncodesTo28Bytes()
    {
        session->NewGenome();
        QCOMPARE(session->StatusPanel[1], QStringLiteral("Un-named Genome"));
        session->EncodeGenome();
        QCOMPARE(session->GenomeImage.WriteCursor, 28);
        const QByteArray bytes(reinterpret_cast<const char *>(session->GenomeImage.Bytes.data()), 28);
        QCOMPARE(bytes, Hex("646E6132" "67656E65" "02010100000000" "004556455F4144414D" "67656E64"));
        QCOMPARE(session->CaptionStore.GetCaption(2, 1, 1), QStringLiteral("001 Header Gene"));
    }

    void saveWritesWholeBlockAndLoadReadsItBack()
    {
        session->NewGenome();
        const QString file = sandbox->path() + QStringLiteral("/pet.gen");
        // No game key in the sandbox: each dialog says so and starts in the program's folder.
        prompt.AnswerMessage(Prompt::Ok).AnswerSave(file);
        session->SaveGenomeAs();
        QCOMPARE(TestFiles::Read(file).size(), 36001);
        QCOMPARE(session->LastGenomeDirectory, sandbox->path() + QLatin1Char('/'));

        Session other(prompt);
        other.AppDirectory = sandbox->path();
        prompt.AnswerMessage(Prompt::Ok).AnswerOpen(file);
        QVERIFY(other.LoadGenome());
        QCOMPARE(prompt.MessageTexts(), QStringList({NoGameKey, NoGameKey}));
        QCOMPARE(prompt.lastFolder, sandbox->path());
        auto *species = dynamic_cast<clsSpecies *>(other.GeneAt(0));
        QVERIFY(species && other.GeneCount == 1);
        QCOMPARE(species->Mum + species->Dad, QStringLiteral("EVE_ADAM"));
        QCOMPARE(other.StatusPanel[1], QStringLiteral("...") + file.right(20));
        QCOMPARE(other.StatusPanel[2], QStringLiteral("100% genome space remaining"));
    }

    void fileLengthLimit()
    {
        // 36,001 bytes load (here an empty genome and zeros); one byte more is refused.
        for (int length : {36001, 36002}) {
            const QByteArray bytes = File({}) + QByteArray(length - 8, '\0');
            if (length > 36001)
                prompt.AnswerMessage(Prompt::Ok);
            QCOMPARE(LoadBytes(bytes), length == 36001);
            QCOMPARE(session->GeneCount, qint16(0));
        }
        QCOMPARE(prompt.MessageTexts(), QStringList({QStringLiteral("File exceeds maximum length for genome "
                                                                    "(36000 bytes)\r\nOperation aborted")}));
    }

    void refusedFrames()
    {
        prompt.AnswerMessage(Prompt::Ok).AnswerMessage(Prompt::Ok);
        QVERIFY(!LoadBytes("gene"));
        QVERIFY(!LoadBytes(File(Header(1, 5) + Hex("0000"))));
        QCOMPARE(ShownText(prompt.shown[0]),
                 ShownText("Helixbench", 16, "This is not a Arkenfold 2 Verdant DNA file."));
        QCOMPARE(prompt.shown[1].text,
                 QStringLiteral("Invalid Genome. Sub-type 5is not a valid\r\nsub type for gene type 1"));
        QCOMPARE(session->GeneCount, qint16(0));
        QCOMPARE(session->StatusPanel[1], QStringLiteral("No genome loaded"));
    }

    void headerFolding()
    {
        // Type 6 reads as 2 and SwitchOn 13 as 6 (counted); Mutability 0xFF as 63 (not counted).
        prompt.AnswerMessage(Prompt::Ok);
        QVERIFY(LoadBytes(File(Hex("67656E65" "0606 05 07 0D FF 40" "0102"))));
        QCOMPARE(ShownText(prompt.Last()),
                 ShownText("Helixbench", 64, " 2 genetic error(s) were corrected automatically"));
        const Gene *g = session->GeneAt(0);
        QCOMPARE(QList<int>({g->GeneType, g->GeneSubType, g->ID, g->Generation, g->SwitchOn, g->Mutability,
                             g->MutabilityWeighting}), QList<int>({2, 6, 5, 7, 6, 63, 0x40}));
    }

    void recoveryQuestions()
    {
        // "dna2" alone: the next token is four zero bytes; Yes finds nothing to lock onto.
        prompt.AnswerMessage(Prompt::Yes).AnswerMessage(Prompt::Ok).AnswerMessage(Prompt::No);
        QVERIFY(!LoadBytes("dna2"));
        const QString question = QStringLiteral("ERROR. Corrupted genome. Expected 'gene', found\r\n'")
                                 + QString(4, QChar(0))
                                 + QStringLiteral("'. Do you wish me to skip the offending gene and\r\nattempt to "
                                                  "continue anyway? This could result in\r\na bad genome.");
        QCOMPARE(ShownText(prompt.shown[0]), ShownText("Gene #0 is corrupted", 4, question));
        QCOMPARE(prompt.shown[1].text, QStringLiteral("Unable to lock onto valid data. Operation aborted."));
        // No ends the load with nothing further said.
        QVERIFY(!LoadBytes("dna2"));
        QCOMPARE(prompt.shown.size(), 3);
        QCOMPARE(session->GeneCount, qint16(0));

        // Yes skips two stray bytes to a colour gene that starts two bytes late: the scan for the
        // next token starts four bytes back.
        prompt.AnswerMessage(Prompt::Yes);
        QVERIFY(LoadBytes(File(Inject() + Hex("ABCD") + Header(2, 6) + Hex("0280"))));
        QCOMPARE(prompt.Last().title, QStringLiteral("Gene #1 is corrupted"));
        QCOMPARE(QList<int>({session->GeneCount, session->GeneAt(1)->GeneSubType, session->GeneAt(1)->Numeric_ID}),
                 QList<int>({2, 6, 1}));
    }

    void gene900Loads901IsRefused()
    {
        QByteArray genes;
        for (int i = 0; i < 900; ++i)
            genes += Inject();
        QVERIFY(LoadBytes(File(genes)));
        QCOMPARE(session->GeneCount, qint16(900));

        prompt.AnswerMessage(Prompt::Ok).AnswerMessage(Prompt::Ok);
        QVERIFY(!LoadBytes(File(genes + Inject())));
        QCOMPARE(prompt.MessageTexts(), QStringList({TooManyGenes, QStringLiteral("Can't create gene number #900.")}));
        QCOMPARE(session->GeneCount, qint16(0));
        // CreateGene refuses the 901st as well and leaves its slot empty.
        for (int i = 0; i < 900; ++i)
            session->CreateGene(1, 4, false);
        prompt.AnswerMessage(Prompt::Ok);
        QVERIFY(!session->CreateGene(1, 4, true));
        QCOMPARE(prompt.Last().text, TooManyGenes);
        QVERIFY(session->GeneCount == 900 && !session->GeneList[900]);
    }

    void spaceFigure()
    {
        // A short genome read over a long one: the figure counts the old bytes behind its "gend".
        QByteArray genes;
        for (int i = 0; i < 40; ++i)
            genes += Inject();
        QVERIFY(LoadBytes(File(genes))); // 528 bytes
        QVERIFY(LoadBytes(File({})));
        QCOMPARE(session->GenomeImage.WriteCursor, 528);
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
        QCOMPARE(session->StatusPanel[1], QStringLiteral("No genome loaded"));
    }

    void dialogStartsInGameFolder()
    {
        sandbox->SetGameValue(QStringLiteral("Kelmoth Technology"), QStringLiteral("Arkenfold 2"), QStringLiteral("1.0"),
                              QStringLiteral("Genetics Directory"), QStringLiteral("/games/genetics"));
        prompt.AnswerOpen(QStringLiteral("*.gen"));
        QVERIFY(!session->LoadGenome());
        QCOMPARE(prompt.lastFolder, QStringLiteral("/games/genetics/"));
        QVERIFY(session->LastGenomeDirectory.isEmpty());
    }

    void failedSaveKeepsOldFile()
    {
        session->NewGenome();
        // A folder cannot be opened as a file.
        prompt.AnswerMessage(Prompt::Ok).AnswerMessage(Prompt::Ok);
        QVERIFY(!session->SaveGenomeFile(sandbox->path()));
        QCOMPARE(ShownText(prompt.Last()), ShownText("Helixbench", 64, "Error opening file:\r\n" + sandbox->path()));
        // A name so long that the temporary file cannot be put in its place: the old file stays whole.
        const QString file = sandbox->path() + QLatin1Char('/') + QString(250, QLatin1Char('a')) + ".gen";
        QVERIFY(TestFiles::Write(file, "old contents"));
        QVERIFY(!session->SaveGenomeFile(file));
        QVERIFY(prompt.Last().text.startsWith("Error writing file:\r\n" + file + "\r\n"));
        QCOMPARE(TestFiles::Read(file), QByteArray("old contents"));
    }

    void unreadableFileEndsTheLoad()
    {
        const QString folder = sandbox->path() + QStringLiteral("/dir.gen");
        QDir().mkpath(folder);
        prompt.AnswerMessage(Prompt::Ok);
        QVERIFY(!session->LoadGenomeFile(folder));
        QVERIFY(prompt.Last().text.startsWith(QStringLiteral("Can't read file '")));
        QCOMPARE(session->GeneCount, qint16(0));
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
