// The session's files: the sixteen gene kinds' byte layouts both ways, their defaults, folding
// on read, the genus gene's monikers, pose strings, CreateGene, the older format and the
// overflow question; the image at its end, the file frame, the recovery from a damaged place and
// the load/save commands; the workbench's preferences, the game's key and the first-run welcome
// with its mark "Installed".
#include "core/Gene.h"
#include "core/BodyIO.h"
#include "core/Session.h"
#include "core/genes/Biochemistry.h"
#include "core/genes/BodyGenes.h"
#include "core/genes/BrainLobe.h"
#include "support/KindBodies.h"
#include "support/ShownText.h"
#include "support/StoredPreferences.h"
#include "support/TestEnv.h"

#include <QtTest>

using namespace GenomeBytes;

namespace {
// An inject gene: a two-byte body, so that files of many genes stay short.
QByteArray Inject(int id = 1) { return Header(1, 4, id) + Hex("0102"); }
} // namespace

class TestSession : public QObject
{
    Q_OBJECT

private slots:
    void init() { FreshSession(sandbox, prompt, session); }

    void cleanup() { QVERIFY2(prompt.AllAnswered(), "a queued answer was not asked for"); }

    // Each kind read and written back byte for byte, and what a fresh object writes.
    void everyKindOnFile_data()
    {
        QTest::addColumn<int>("kind"); // its row of the kind bodies
        for (int i = 0; i < Kinds().size(); ++i)
            QTest::newRow(Kinds().at(i).name) << i;
    }

    void everyKindOnFile()
    {
        QFETCH(int, kind);
        const auto [name, type, subType, body, defaults] = Kinds().at(kind);
        // Two genes of the kind, so that a wrong body length shows in the second header.
        const QByteArray file = File(Header(type, subType, 4) + body + Header(type, subType, 5) + body);
        QVERIFY(Decode(file));
        std::fill(session->GenomeImage.Bytes.begin(), session->GenomeImage.Bytes.end(), 0xEE);
        session->EncodeGenome();
        QCOMPARE(ImageBytes(file.size() + 1), file + char(0xEE)); // nothing written behind "gend"

        std::unique_ptr<Gene> fresh = MakeGene(*session, type, subType);
        QCOMPARE(fresh->BodyLength(), int(defaults.size())); // what a copy reckons it needs
        if (auto *organ = dynamic_cast<OrganGene *>(fresh.get()))
            organ->BiotickStartValue = 0;
        session->GenomeImage.WriteCursor = 0;
        fresh->GetMembers();
        QCOMPARE(ImageBytes(session->GenomeImage.WriteCursor),
                 "gene" + QByteArray(1, char(type)) + char(subType) + QByteArray(5, '\0') + defaults);
    }

    // Out-of-range bytes fold into range (not clamp), are counted, and are written back folded.
    // Each row: gene, offset in its body (negative: in its header), byte on file, value read.
    void foldingOnRead()
    {
        const int lobe = 0, emitter = 3, reaction = 4, appearance = 9, pose = 10, instinct = 12, pigment = 13;
        const struct { int gene, at, in, out; } folds[] = {
            {lobe, 0, 64, 0}, {lobe, 2, 0, 1}, {lobe, 3, 65, 2}, {lobe, 4, 3, 0}, // x, Width, Height, Perceptible
            {lobe, 23, 100, 100}, {lobe, 24, 90, 190},                             // max: (90 mod 156) + min
            {lobe, 25, 4, 0}, {lobe, 26, 9, 0}, {lobe, 31, 3, 0},                  // Spread, FanWidth, Migration
            {lobe, 114, 200, 200}, {lobe, 115, 199, 231},                          // InitialLTWMax: (199 mod 56) + min
            {lobe, 116, 50, 50}, {lobe, 117, 50, 50},                              // InitialStrengthMax = Min is kept
            {emitter, 0, 4, 1}, {emitter, 5, 0, 1},                                // Organ, Rate
            {reaction, 0, 0, 1}, {reaction, 2, 16, 16}, {reaction, 4, 17, 2}, {reaction, 6, 40, 9},
            {appearance, 0, 6, 0}, {appearance, 1, 26, 0}, {appearance, 2, 4, 0},
            {pose, 1, 'z', '$'}, {pose, 14, '[', '@'}, {instinct, 0, 8, 0}, {instinct, 6, 16, 0}, // lobe, Motor
            {pigment, -7, 6, 2}, {pigment, -3, 13, 6}, {pigment, -2, 0xFF, 63}}; // Type, SwitchOn; Mutability uncounted
        QByteArray in, out;
        for (int g = 0; g < GeneKinds::Count; ++g) {
            const Kind k = Kinds().at(g);
            QByteArray gene = Header(k.type, k.subType) + k.body, folded = gene;
            for (const auto &f : folds)
                if (f.gene == g)
                    gene[11 + f.at] = char(f.in), folded[11 + f.at] = char(f.out);
            in += gene;
            out += folded;
        }
        prompt.AnswerMessage(Prompt::Ok);
        QVERIFY(Decode(File(in)));
        QCOMPARE(prompt.Last().text, " 23 genetic error(s) were corrected automatically");
        session->EncodeGenome();
        QCOMPARE(ImageBytes(session->GenomeImage.WriteCursor), File(out));
    }

    // Monikers are checked as they are read, the father's first (a zero byte makes a bad
    // character, not a short string; blank and tilde are not bad; no correction is counted),
    // and the replacements are what is written. (The species editor's test has each message.)
    void monikers()
    {
        prompt.AnswerMessage(Prompt::Ok).AnswerMessage(Prompt::Ok);
        QVERIFY(Decode(File(Header(2, 1) + Hex("02") + QByteArray("EV\x01_ ~\0\x80", 8))));
        QCOMPARE(prompt.MessageTexts(), QStringList({"Father's moniker has 2 bad character(s).\r\nIt has been corrected to: ADAM",
                                                     "Mother's moniker has 1 bad character(s).\r\nIt has been corrected to: EVE_"}));
        QCOMPARE(session->GenomeImage.CorrectedErrors, qint16(0));
        session->EncodeGenome();
        QCOMPARE(ImageBytes(28).mid(15, 9), Hex("02") + "EVE_ADAM");
    }

    // A pose string is padded or cut to 15 characters, and written in the code page.
    void poseStringPaddedOrCut()
    {
        QVERIFY(Decode(File(Header(2, 3) + Hex("01") + "ABCDEFGHIJKLMNO")));
        const std::pair<QString, QByteArray> strings[] = {
            {QStringLiteral("\u20ac\u00e9\u0080\u0100"), "\x80\xe9??XXXXXXXXXXX"},
            {"ABCDEFGHIJKLMNOPQRST", "ABCDEFGHIJKLMNO"}};
        for (const auto &[set, written] : strings) {
            At<clsPose>(0)->PoseString = set;
            session->EncodeGenome();
            QCOMPARE(ImageBytes(35).mid(15), Hex("01") + written + "gend");
        }
    }

    // The new gene's own ID 0 is taken, so the first pose gets 1; Cancel makes nothing.
    void createGene()
    {
        prompt.AnswerInput(QStringLiteral("Wave")).AnswerInput(QString());
        QVERIFY(session->CreateGene(2, 3, true));
        QCOMPARE(ShownText(prompt.Last()),
                 ShownText("Name Gene", 0, "Enter a caption for new Pose gene or press 'Ok' for default name "
                                           "'<no caption> - Pose' [<no caption>]"));
        Gene *g = session->GeneAt(0);
        QCOMPARE(QList<int>({g->ID, g->Generation, g->MutabilityWeighting, g->GeneType, g->GeneSubType}),
                 QList<int>({1, 0, 128, 2, 3}));
        QCOMPARE(session->CaptionStore.GetCaption(2, 3, 1), QStringLiteral("001 Wave - Pose"));
        const int captions = session->CaptionStore.CaptionCount;
        QVERIFY(!session->CreateGene(1, 3, true));
        QCOMPARE(QList<int>({session->GeneCount, session->CaptionStore.CaptionCount}), QList<int>({1, captions}));
    }

    void olderFormatReadThenWrittenCurrent()
    {
        session->CompatibilityMode = QStringLiteral("1");
        // No magic; headers without MutabilityWeighting; a lobe of 112 bytes with 8-byte rules and no
        // propagation rules; an appearance of 2 bytes; then a colour gene to show the walk is right.
        auto lobe = [](int ruleSize) { // the current format pads the rules and has zeros for the propagation rules
            auto rule = [=](int first) { return Rule(first).left(8) + QByteArray(ruleSize - 8, '\0'); };
            const QByteArray block = Hex("0305090308010100FF02 14151617") + rule(0x10) + Hex("18") + rule(0x20)
                                     + rule(0x30) + rule(0x40) + QByteArray(ruleSize == 12 ? 24 : 0, '\0');
            return Hex("010203040105060708") + rule(0xA0) + Hex("0F") + block + block;
        };
        prompt.AnswerMessage(Prompt::Yes);
        QVERIFY(Decode(Header(0, 0, 1, true) + lobe(8) + Header(2, 2, 1, true) + Hex("0319") + Header(2, 6, 1, true)
                       + Hex("0280") + "gend"));
        QCOMPARE(ShownText(prompt.Last()),
                 ShownText("Compatibility Mode Warning", 4, "WARNING. Arkenfold 1 compatibility mode is enabled.\r\nThis will "
                           "allow you to load a Arkenfold 1 genome into\r\nthis application. This WILL CAUSE problems should "
                           "you\r\nwish to inject this genome into Arkenfold 2. Are you\r\nreally sure you want to do this?"));
        QVERIFY(!At<clsBrainLobe>(0)->BPRule1 && !At<clsBrainLobe>(0)->FPRule2);

        // Writing uses the current format, tells once, and ends the mode for the session.
        prompt.AnswerMessage(Prompt::Ok);
        session->EncodeGenome();
        session->EncodeGenome();
        QVERIFY(prompt.Last().text.startsWith("This genome has been converted to Arkenfold 2 format."));
        QCOMPARE(session->CompatibilityMode.Text(), QStringLiteral("0"));
        auto header = [](int type, int sub) { return Header(type, sub, 1, true) + char(0x80); };
        QCOMPARE(ImageBytes(session->GenomeImage.WriteCursor), File(header(0, 0) + lobe(12) + header(2, 2) + Hex("031900") + header(2, 6) + Hex("0280")));
    }

    void overflowAsksAfterEachGene()
    {
        // Half-lives genes take 267 bytes each: after the 131st the image is past 34,976.
        QVERIFY(Decode(File((Header(1, 3) + QByteArray(256, '\0')).repeated(133))));
        prompt.AnswerMessage(Prompt::Yes).AnswerMessage(Prompt::No);
        session->EncodeGenome();
        QCOMPARE(ShownText(prompt.shown[0]),
                 ShownText("Now we're pickled", 4, "A bad situation has occurred. Out of genome RAM\r\nwhilst storing "
                                                   "genome. Continuing with this operation\r\nis likely to cause the "
                                                   "Helixbench to crash. Click\r\n'YES' if you'd like to try anyway."));
        // Yes after gene 131, No after gene 132: gene 133 stays out, "gend" ends the image.
        QCOMPARE(ImageBytes(session->GenomeImage.WriteCursor).mid(4 + 267 * 132), QByteArray("gend"));
    }

    // The end of the block, which a save reaches only after Yes after Yes to the overflow
    // question: writes there, one by one or in one copy, are refused and counted.
    void writesStopAtTheEndOfTheBlock()
    {
        GenomeImage &img = session->GenomeImage;
        const int end = GenomeImage::Size;
        const quint8 two[] = {1, 2}, more[] = {3, 4};
        img.WriteCursor = end - 3;
        BodyWriter(img).Bytes(two, 2);
        BodyWriter(img).Bytes(more, 2);
        img.PutGenomeToken("gend");
        QCOMPARE(QList<int>({img.Bytes[end - 3], img.Bytes[end - 2], img.Bytes[end - 1]}), QList<int>({1, 2, 3}));
        QCOMPARE(QList<int>({img.WriteCursor, img.RefusedWrites}), QList<int>({end, 5}));
    }

    // A new genome saved fills the whole block behind its 28 bytes. Without a game key the file
    // dialog says so and starts in the program's folder; with one, in its folder, cut at its first
    // control character and ending in one separator.
    void saveWritesTheWholeBlock()
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
        QCOMPARE(ShownText(prompt.shown[0]), ShownText("Helixbench", 16, "Error reading registry key -- defaulting\r\n"
                                                                         "to current directory."));
        QCOMPARE(prompt.lastFolder, sandbox->path());

        sandbox->SetGameValue("Kelmoth Technology", "Arkenfold 2", "1.0", "Genetics Directory", "/games/genetics\x1f/old");
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

    void defaultsAndTheFiveValues()
    {
        auto values = [](const Session &s) -> QStringList {
            return {s.UseDefaultCaptions.Text(), s.CompatibilityMode.Text(), s.RegistryCompany, s.RegistryVersion, s.RegistryProduct,
                    s.LastGenomeDirectory};
        };
        // An empty store gives the defaults, whatever the session held.
        session->RegistryVersion = session->LastGenomeDirectory = "x";
        session->UseDefaultCaptions = "x";
        session->CompatibilityMode = "x";
        session->LoadSettings();
        QCOMPARE(values(*session), QStringList({"0", "0", "Kelmoth Technology", "1.0", "Arkenfold 2", ""}));
        // A save writes all five under their names; a new session reads them.
        session->UseDefaultCaptions = QStringLiteral("1");
        session->RegistryVersion = QStringLiteral("2.5");
        QVERIFY(session->SaveSettings());
        QStringList stored;
        for (const char *name : {"Use Default Captions", "Compatibility", "Company", "Version", "Product"})
            stored << StoredPreferences::Get(QString::fromLatin1(name)).toString();
        QCOMPARE(stored, QStringList({"1", "0", "Kelmoth Technology", "2.5", "Arkenfold 2"}));
        Session next(prompt);
        next.LoadSettings();
        QCOMPARE(values(next), stored << "");
    }

    // The game's folder: 99 bytes and the terminator fit the buffer of 100; 100 bytes do not, nor does
    // a missing name.
    void gameFolder()
    {
        const QString fits = QStringLiteral("/") + QString(98, QLatin1Char('g'));
        for (const char *name : {"Genetics Directory", "Main Directory"})
            sandbox->SetGameValue("Kelmoth Technology", "Arkenfold 2", "1.0", name, *name == 'G' ? fits : fits + 'h');
        QCOMPARE(QStringList({session->ReadGameSetting("Genetics Directory"), session->ReadGameSetting("Main Directory"),
                              session->ReadGameSetting("No Such Value")}), QStringList({fits, "<<ERROR>>", "<<ERROR>>"}));
        // A value written by hand with an unquoted comma comes whole, blanks and all.
        QVERIFY(TestFiles::Write(sandbox->SystemFolder() + "/Kelmoth Technology/Arkenfold 2.ini",
                                 "[1.0]\nMain Directory = /opt/Arkenfold, Deluxe /\nGenetics%20Directory=/g, h\n"));
        QCOMPARE(session->ReadGameSetting("Main Directory") + '|' + session->ReadGameSetting("Genetics Directory"),
                 QStringLiteral("/opt/Arkenfold, Deluxe /|/g, h"));
    }

    // The welcome comes when the stored mark is "no" (or missing: the start-up test), and then
    // "yes" is stored; a second run brings nothing (a welcome without a queued answer fails). A
    // mark of "yes" is not written again: a rewrite by the store would lose the comment and the
    // blanks around "=". Other values survive the write of the mark.
    void welcomeOnFirstRunOnly_data()
    {
        QTest::addColumn<QByteArray>("file"); // the settings file before start
        QTest::addColumn<bool>("welcome");
        QTest::addColumn<bool>("untouched"); // the file keeps its bytes
        const QByteArray head = "; kept by hand\n[Preferences]\nCompany = Kelmoth Technology\n";
        QTest::newRow("no") << head + "Installed = no\n" << true << false;
        QTest::newRow("another word") << head + "Installed = maybe\n" << false << false;
        QTest::newRow("yes") << head + "Installed = yes\n" << false << true;
    }
    void welcomeOnFirstRunOnly()
    {
        QFETCH(QByteArray, file);
        QFETCH(bool, welcome);
        QFETCH(bool, untouched);
        const QString path = QSettings(QSettings::IniFormat, QSettings::UserScope, "Helixbench 2").fileName();
        QVERIFY(TestFiles::Write(path, file));
        if (welcome)
            prompt.AnswerMessage(Prompt::Ok);
        session->WelcomeFirstRun();
        Session(prompt).WelcomeFirstRun();
        const QString text = "Welcome to the Helixbench!\r\n\r\nPlease note that you can get help on the Helixbench using\r\n"
                             "the F1 key. There is a substantial amount of information\r\nthere specifically designed to "
                             "help beginners. All you need\r\nis a little patience. (Nature took 3.7 billion years to come"
                             "\r\nup with us, after all!) Enjoy!";
        QCOMPARE(prompt.shown.size(), welcome ? 1 : 0);
        if (welcome)
            QCOMPARE(ShownText(prompt.Last()), ShownText("Helixbench", 64, text));
        QCOMPARE(StoredPreferences::Get(QStringLiteral("Installed")).toString(), QStringLiteral("yes"));
        QCOMPARE(TestFiles::Read(path) == file, untouched);
        QCOMPARE(StoredPreferences::Get(QStringLiteral("Company")).toString(), QStringLiteral("Kelmoth Technology"));
    }

private:
    bool Decode(const QByteArray &bytes) { return DecodeBytes(*session, bytes); }
    QByteArray ImageBytes(int count) const { return GenomeBytes::ImageBytes(*session, count); }
    bool LoadBytes(const QByteArray &bytes)
    {
        const QString file = sandbox->path() + QStringLiteral("/in.gen");
        return TestFiles::Write(file, bytes) && session->LoadGenomeFile(file);
    }

    template <typename T> T *At(int index) { return &dynamic_cast<T &>(*session->GeneAt(index)); }

    ScriptedPrompt prompt;
    std::unique_ptr<SettingsSandbox> sandbox;
    std::unique_ptr<Session> session;
};

QTEST_GUILESS_MAIN(TestSession)
#include "test_session.moc"
