// The genome image, its reader's folding, the file frame and the load/save commands.
#include "core/Gene.h"
#include "core/Session.h"
#include "core/genes/BodyGenes.h"
#include "support/ScriptedPrompt.h"
#include "support/TestEnv.h"

#include <QtTest>

namespace {
QByteArray Hex(const char *hex) { return QByteArray::fromHex(hex); }

const QString NotDna = QStringLiteral("This is not a Arkenfold 2 Verdant DNA file.");
}

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

    void readerFoldsAndCounts()
    {
        GenomeImage &img = session->GenomeImage;
        const quint8 bytes[] = {6, 0, 40, 7, 13, 0xFF};
        std::copy(std::begin(bytes), std::end(bytes), img.Bytes.begin());
        QCOMPARE(img.GetGenomeByte(0, 3), quint8(2));  // a fold, not a clamp
        QCOMPARE(img.GetGenomeByte(1, 16), quint8(1));
        QCOMPARE(img.GetGenomeByte(1, 16), quint8(9));
        QCOMPARE(img.GetGenomeByte(0, 6), quint8(0));
        QCOMPARE(img.GetGenomeByte(0, 6), quint8(6));
        QCOMPARE(img.GetGenomeByte(0, 255), quint8(255));
        QCOMPARE(img.CorrectedErrors, qint16(5));

        // At the end of the block: zeros, no advance, no count.
        img.ReadCursor = GenomeImage::ReadLimit;
        img.Bytes[GenomeImage::ReadLimit] = 9;
        QCOMPARE(img.GetGenomeByte(1, 3), quint8(0));
        QCOMPARE(img.ReadCursor, GenomeImage::ReadLimit);
        QCOMPARE(img.CorrectedErrors, qint16(5));
    }

    void writerNeverLeavesTheBlock()
    {
        GenomeImage &img = session->GenomeImage;
        img.WriteCursor = GenomeImage::Size - 1;
        img.PutGenomeToken("gend");
        QCOMPARE(img.Bytes[GenomeImage::Size - 1], quint8('g'));
        QCOMPARE(img.WriteCursor, GenomeImage::Size);
        QCOMPARE(img.RefusedWrites, 3);
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
        QVERIFY(prompt.AllAnswered());
        const QByteArray saved = TestFiles::Read(file);
        QCOMPARE(saved.size(), 36001);
        QCOMPARE(session->LastGenomeDirectory, sandbox->path() + QLatin1Char('/'));
        QCOMPARE(session->StatusPanel[2], QStringLiteral("100% genome space remaining"));

        Session other(prompt);
        other.AppDirectory = sandbox->path();
        prompt.AnswerMessage(Prompt::Ok).AnswerOpen(file);
        QVERIFY(other.LoadGenome());
        QCOMPARE(other.GeneCount, qint16(1));
        auto *species = dynamic_cast<clsSpecies *>(other.GeneAt(0));
        QVERIFY(species);
        QCOMPARE(species->Mum, QStringLiteral("EVE_"));
        QCOMPARE(species->Dad, QStringLiteral("ADAM"));
        QCOMPARE(other.StatusPanel[1], QStringLiteral("...") + file.right(20));
        QCOMPARE(other.StatusPanel[2], QStringLiteral("100% genome space remaining"));
        QCOMPARE(prompt.MessageTexts().first(),
                 QStringLiteral("Error reading registry key -- defaulting\r\nto current directory."));
        QCOMPARE(prompt.lastFolder, sandbox->path());
    }

    void fileLengthLimit_data()
    {
        QTest::addColumn<int>("length");
        QTest::addColumn<bool>("loads");
        QTest::newRow("36001") << 36001 << true;
        QTest::newRow("36002") << 36002 << false;
    }

    void fileLengthLimit()
    {
        QFETCH(int, length);
        QFETCH(bool, loads);
        QByteArray bytes = Hex("646E6132" "67656E64");
        bytes.append(QByteArray(length - bytes.size(), '\0'));
        const QString file = sandbox->path() + QStringLiteral("/long.gen");
        QVERIFY(TestFiles::Write(file, bytes));
        if (!loads)
            prompt.AnswerMessage(Prompt::Ok);
        QCOMPARE(session->LoadGenomeFile(file), loads);
        if (!loads)
            QCOMPARE(prompt.Last().text, QStringLiteral("File exceeds maximum length for genome (36000 bytes)\r\n"
                                                        "Operation aborted"));
        QCOMPARE(session->GeneCount, qint16(0));
    }

    void missingMagicIsRefused()
    {
        prompt.AnswerMessage(Prompt::Ok);
        QVERIFY(!LoadBytes("gene"));
        QCOMPARE(prompt.Last().text, NotDna);
        QCOMPARE(prompt.Last().style, 16);
        QCOMPARE(session->StatusPanel[1], QStringLiteral("No genome loaded"));
    }

    void emptyGenomeLoads()
    {
        QVERIFY(LoadBytes(Hex("646E6132" "67656E64")));
        QCOMPARE(session->GeneCount, qint16(0));
        QVERIFY(prompt.shown.isEmpty());
    }

    void headerFolding()
    {
        // Type byte 6 reads as 2 (counted); SwitchOn 13 -> 6 (counted); Mutability 0xFF -> 63 (not counted).
        QByteArray bytes = Hex("646E6132" "67656E65" "0606 05 07 0D FF 40" "0102" "67656E64");
        prompt.AnswerMessage(Prompt::Ok);
        QVERIFY(LoadBytes(bytes));
        QCOMPARE(prompt.Last().text, QStringLiteral(" 2 genetic error(s) were corrected automatically"));
        QCOMPARE(prompt.Last().style, 64);
        Gene *g = session->GeneAt(0);
        QCOMPARE(int(g->GeneType), 2);
        QCOMPARE(int(g->GeneSubType), 6);
        QCOMPARE(int(g->ID), 5);
        QCOMPARE(int(g->Generation), 7);
        QCOMPARE(int(g->SwitchOn), 6);
        QCOMPARE(int(g->Mutability), 63);
        QCOMPARE(int(g->MutabilityWeighting), 0x40);
        QCOMPARE(g->Numeric_ID, qint16(0));
    }

    void invalidSubtypeEndsTheLoad()
    {
        prompt.AnswerMessage(Prompt::Ok);
        QVERIFY(!LoadBytes(Hex("646E6132" "67656E65" "0105 000000000000" "67656E64")));
        QCOMPARE(prompt.Last().text, QStringLiteral("Invalid Genome. Sub-type 5is not a valid\r\nsub type for gene type 1"));
        QCOMPARE(session->GeneCount, qint16(0));
    }

    void recoveryQuestions()
    {
        // "dna2" alone: the next token is four zero bytes; Yes finds nothing to lock onto.
        prompt.AnswerMessage(Prompt::Yes).AnswerMessage(Prompt::Ok);
        QVERIFY(!LoadBytes("dna2"));
        QCOMPARE(prompt.shown[0].title, QStringLiteral("Gene #0 is corrupted"));
        QCOMPARE(prompt.shown[0].style, 4);
        QCOMPARE(prompt.shown[0].text,
                 QStringLiteral("ERROR. Corrupted genome. Expected 'gene', found\r\n'") + QString(4, QChar(0))
                     + QStringLiteral("'. Do you wish me to skip the offending gene and\r\n"
                                      "attempt to continue anyway? This could result in\r\na bad genome."));
        QCOMPARE(prompt.shown[1].text, QStringLiteral("Unable to lock onto valid data. Operation aborted."));
        QCOMPARE(session->GeneCount, qint16(0));

        // No at the question ends the load with nothing further said.
        prompt.Clear();
        prompt.AnswerMessage(Prompt::No);
        QVERIFY(!LoadBytes("dna2"));
        QCOMPARE(prompt.shown.size(), 1);
    }

    void recoverySkipsToNextGene()
    {
        // An inject gene, two stray bytes, then a colour gene that starts two bytes late.
        QByteArray bytes = Hex("646E6132"
                               "67656E65" "0104 01000000 80" "0509"
                               "ABCD"
                               "67656E65" "0206 01000000 80" "0280"
                               "67656E64");
        prompt.AnswerMessage(Prompt::Yes);
        QVERIFY(LoadBytes(bytes));
        QCOMPARE(prompt.shown[0].title, QStringLiteral("Gene #1 is corrupted"));
        QCOMPARE(session->GeneCount, qint16(2));
        QCOMPARE(int(session->GeneAt(1)->GeneSubType), 6);
        QCOMPARE(session->GeneAt(1)->Numeric_ID, qint16(1));
    }

    void resyncStartsFourBytesEarly()
    {
        GenomeImage &img = session->GenomeImage;
        std::fill(img.Bytes.begin(), img.Bytes.end(), 0);
        const QByteArray gene("gene");
        std::copy(gene.begin(), gene.end(), img.Bytes.begin() + 6);
        QCOMPARE(img.ResyncGenome(10), QByteArray("gene"));
        QCOMPARE(img.ReadCursor, 10);
        QCOMPARE(img.ResyncGenome(11), QByteArray("FAULT"));
        QCOMPARE(img.ReadCursor, 11);
    }

    void gene901IsRefused()
    {
        QByteArray bytes = Hex("646E6132");
        for (int i = 0; i < 901; ++i)
            bytes += Hex("67656E65" "0104 01000000 80" "0000");
        bytes += Hex("67656E64");
        prompt.AnswerMessage(Prompt::Ok).AnswerMessage(Prompt::Ok);
        QVERIFY(!LoadBytes(bytes));
        QCOMPARE(prompt.shown[0].text, QStringLiteral("Terminal error processing new gene, out of gene space.\r\n"
                                                      "Maximum # of genes is 900."));
        QCOMPARE(prompt.shown[1].text, QStringLiteral("Can't create gene number #900."));
        QCOMPARE(session->GeneCount, qint16(0));

        // 900 genes load.
        bytes.chop(4 + 13);
        bytes += Hex("67656E64");
        QVERIFY(LoadBytes(bytes));
        QCOMPARE(session->GeneCount, qint16(900));
        QVERIFY(!session->GeneList[900]);
    }

    void shortFileKeepsOldTail()
    {
        QByteArray longGenome = Hex("646E6132");
        for (int i = 0; i < 40; ++i)
            longGenome += Hex("67656E65" "0104 01000000 80" "0102");
        longGenome += Hex("67656E64");
        QVERIFY(LoadBytes(longGenome));
        QVERIFY(LoadBytes(Hex("646E6132" "67656E64")));
        QCOMPARE(session->GeneCount, qint16(0));
        // The space figure counts the old bytes behind the short genome's "gend".
        QCOMPARE(session->GenomeImage.WriteCursor, longGenome.size());
        QCOMPARE(longGenome.size(), 528); // 100 x 528 / 36000 = 1.47
        QCOMPARE(session->StatusPanel[2], QStringLiteral("99% genome space remaining"));
    }

    void spaceFigureRoundsHalfToEven()
    {
        // 100 x 18 / 36000 = 0.05 -> 0; 100 x 540 / 36000 = 1.5 -> 2; 900 -> 2.5 -> 2.
        const int cursors[] = {18, 540, 900};
        const char *expected[] = {"100%", "98%", "98%"};
        for (int i = 0; i < 3; ++i) {
            session->GenomeImage.WriteCursor = cursors[i];
            session->ShowGenomeSpace(false);
            QCOMPARE(session->StatusPanel[2], QString::fromLatin1(expected[i]) + QStringLiteral(" genome space remaining"));
        }
    }

    void abandonAsksOnlyAboveOneGene()
    {
        session->NewGenome();
        QVERIFY(session->AbandonGenome());
        QVERIFY(prompt.shown.isEmpty());

        QVERIFY(LoadBytes(Hex("646E6132" "67656E65" "0104 01000000 80" "0102" "67656E65" "0104 02000000 80" "0102" "67656E64")));
        prompt.AnswerMessage(Prompt::Cancel);
        QVERIFY(!session->AbandonGenome());
        QCOMPARE(prompt.Last().text, QStringLiteral("This operation will abandon the existing genome. Sure?"));
        QCOMPARE(prompt.Last().style, 35);
        QCOMPARE(session->GeneCount, qint16(2));
    }

    void cancelledOpenLeavesEmptySession()
    {
        session->NewGenome();
        prompt.AnswerMessage(Prompt::Ok).AnswerOpen(QString());
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
        // A target that cannot be a file: nothing is written, the message names it.
        const QString blocked = sandbox->path() + QStringLiteral("/blocked.gen");
        QDir().mkpath(blocked);
        prompt.AnswerMessage(Prompt::Ok);
        QVERIFY(!session->SaveGenomeFile(blocked));
        QCOMPARE(prompt.Last().text, QStringLiteral("Error opening file:\r\n") + blocked);
        QCOMPARE(prompt.Last().style, 64);
        QVERIFY(QFileInfo(blocked).isDir());

        const QString folder = sandbox->path() + QStringLiteral("/ro");
        QDir().mkpath(folder);
        const QString file = folder + QStringLiteral("/old.gen");
        QVERIFY(TestFiles::Write(file, "old contents"));
        QFile::setPermissions(folder, QFile::ReadOwner | QFile::ExeOwner);
        if (QFileInfo(folder).isWritable())
            QSKIP("running with rights that ignore folder permissions");
        prompt.AnswerMessage(Prompt::Ok);
        QVERIFY(!session->SaveGenomeFile(file));
        QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        QVERIFY(prompt.Last().text.startsWith(QStringLiteral("Error opening file:\r\n")));
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
        if (!TestFiles::Write(file, bytes))
            return false;
        return session->LoadGenomeFile(file);
    }

    ScriptedPrompt prompt;
    std::unique_ptr<SettingsSandbox> sandbox;
    std::unique_ptr<Session> session;
};

QTEST_GUILESS_MAIN(TestGenome)
#include "test_genome.moc"
