// The sixteen gene kinds on file: byte layouts both ways, defaults, folding on read, the
// genus gene's monikers, pose strings, CreateGene, the older format and the overflow question.
#include "core/Gene.h"
#include "core/GeneView.h"
#include "core/Session.h"
#include "core/genes/Biochemistry.h"
#include "core/genes/BodyGenes.h"
#include "core/genes/BrainLobe.h"
#include "support/GenomeBytes.h"
#include "support/ShownText.h"
#include "support/TestEnv.h"

#include <QtTest>
#include <set>

using namespace GenomeBytes;

namespace {

// Twelve bytes counting up from `first`.
QByteArray Rule(int first)
{
    QByteArray r(12, char(first));
    for (int j = 0; j < 12; ++j)
        r[j] = char(first + j);
    return r;
}

// A rule as its bytes; nothing for a rule the gene does not have.
QByteArray Of(const StateRule &rule)
{
    return rule ? QByteArray(reinterpret_cast<const char *>(rule->data()), 12) : QByteArray();
}

// A lobe body with every field in range and every rule distinct; the blocks start at 22 and 109.
QByteArray LobeBody()
{
    QByteArray b = Hex("3F014002 02 0A0B0C0D") + Rule(0xA0) + Hex("0F");
    for (int i = 0; i < 2; ++i) {
        // Source, min, max, Spread, FanWidth, InitialLTWMin/Max, InitialStrengthMin/Max, Migration,
        // RelaxSus, RelaxSTW, LTWRate, GainStrength, gain rule, LoseStrength, then the lose,
        // susceptibility, reinforcement, back and forward propagation rules.
        b += QByteArray(1, char(3 + i)) + Hex("05") + char(9 + i) + Hex("0308 0101 00FF 02 14151617")
             + Rule(0x10 + 0x60 * i) + Hex("18");
        for (int r = 2; r <= 6; ++r)
            b += Rule(0x10 * r + 0x60 * i);
    }
    return b;
}

struct Kind
{
    const char *name;
    int type, subType;
    QByteArray body;     // distinct values, all in range
    QByteArray defaults; // the body of a fresh object (an organ's biotick, random, as 0)
};

QList<Kind> Kinds()
{
    QByteArray halfLives;
    for (int i = 0; i < 256; ++i)
        halfLives += char(i * 7);
    return {
        {"clsBrainLobe", 0, 0, LobeBody(), Hex("00000101") + QByteArray(192, '\0')},
        {"clsBorgan", 0, 1, Hex("0504030201"), Hex("800A800002")},
        {"clsReceptor", 1, 0, Hex("0211223344006603"), Hex("000000000000FF00")},
        {"clsEmitter", 1, 1, Hex("01112233440F6607"), Hex("000000000001FF00")},
        {"clsReaction", 1, 2, Hex("010510060207030800"), Hex("010001000100010020")},
        {"clsHalfLives", 1, 3, halfLives, QByteArray(255, char(0xFF)) + '\0'},
        {"clsInject", 1, 4, Hex("2142"), Hex("0000")},
        {"clsStimulus", 2, 0, Hex("2D10FE20070102030405060708"), Hex("0000FF00000000000000000000")},
        {"clsSpecies", 2, 1, Hex("03") + "MUM1DAD2", Hex("00") + "EVE_ADAM"},
        {"clsAppearance", 2, 2, Hex("051903"), Hex("000000")},
        {"clsPose", 2, 3, Hex("2A") + "AB Z@# 09XYZ?=!", Hex("00") + "XXXXXXXXXXXXXXX"},
        {"clsGait", 2, 4, Hex("0F0102030405060708"), QByteArray(9, '\0')},
        {"clsInstinct", 2, 5, Hex("0710062005300F4050"), QByteArray(9, '\0')},
        {"clsColour", 2, 6, Hex("02FF"), Hex("0080")},
        {"clsColourBleed", 2, 7, Hex("1020"), Hex("0080")},
        {"clsOrgan", 3, 0, Hex("0102030405"), Hex("8014800080")},
    };
}

// A stand-in for a gene's editor that counts its fillings.
class FakeView : public GeneView
{
public:
    explicit FakeView(Gene &gene) : gene(gene) {}
    Gene &gene;
    int setControls = 0;
    void SetControls() override { ++setControls; }
    void GetControls() override {}
    void SetEditorCaption() override {}
    void ShowEditor() override {}
    void BringToFront() override {}
    void RequestClose() override { gene.CloseView(); }
    void Dispose() override { delete this; }
};

QString BadMoniker(const QString &who, int count, const QString &replacement)
{
    return who + QStringLiteral("'s moniker has %1 bad character(s).\r\nIt has been corrected to: ").arg(count)
           + replacement;
}

const QString CompatibilityWarning = QStringLiteral(
    "WARNING. Arkenfold 1 compatibility mode is enabled.\r\nThis will allow you to load a Arkenfold 1 genome into\r\n"
    "this application. This WILL CAUSE problems should you\r\nwish to inject this genome into Arkenfold 2. Are you\r\n"
    "really sure you want to do this?");
const QString Converted = QStringLiteral("This genome has been converted to Arkenfold 2 format.\r\n"
                                         "I have to switch compatibility mode off. Use\r\n"
                                         "'Advanced Options' to switch it back on.");
const QString Pickled = QStringLiteral("A bad situation has occurred. Out of genome RAM\r\nwhilst storing genome. "
                                       "Continuing with this operation\r\nis likely to cause the Helixbench to crash. "
                                       "Click\r\n'YES' if you'd like to try anyway.");
} // namespace

class TestGenes : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        sandbox.reset(new SettingsSandbox);
        prompt.Clear();
        session.reset(new Session(prompt));
        session->AppDirectory = sandbox->path();
        session->EditorFactory = [this](Gene &g) { return new FakeView(g); };
    }

    void cleanup()
    {
        session->CloseAllViews();
        session.reset();
        QVERIFY2(prompt.AllAnswered(), "a queued answer was not asked for");
    }

    // Each kind read and written back byte for byte, and what a fresh object writes.
    void everyKindOnFile_data()
    {
        QTest::addColumn<int>("index");
        for (int i = 0; i < GeneKinds::Count; ++i)
            QTest::newRow(Kinds().at(i).name) << i;
    }

    void everyKindOnFile()
    {
        QFETCH(int, index);
        const auto [name, type, subType, body, defaults] = Kinds().at(index);
        // Two genes of the kind, so that a wrong body length shows in the second header.
        const QByteArray file = File(Header(type, subType, 4) + body + Header(type, subType, 5) + body);
        QVERIFY(Decode(file));
        QCOMPARE(QList<int>({session->GeneCount, session->GenomeImage.CorrectedErrors}), QList<int>({2, 0}));
        const Gene *g = session->GeneAt(1);
        QCOMPARE(QList<int>({g->Numeric_ID, g->ID, g->Generation, g->SwitchOn, g->Mutability, g->MutabilityWeighting}),
                 QList<int>({1, 5, 9, 3, 0x15, 0x77}));
        std::fill(session->GenomeImage.Bytes.begin(), session->GenomeImage.Bytes.end(), 0xEE);
        session->EncodeGenome();
        QCOMPARE(session->GenomeImage.WriteCursor, int(file.size()));
        QCOMPARE(ImageBytes(file.size() + 1), file + char(0xEE)); // nothing written behind "gend"

        std::unique_ptr<Gene> fresh(GeneKinds::Make(*session, type, subType));
        if (auto *organ = dynamic_cast<OrganGene *>(fresh.get()))
            organ->BiotickStartValue = 0;
        session->GenomeImage.WriteCursor = 0;
        fresh->GetMembers();
        QCOMPARE(ImageBytes(session->GenomeImage.WriteCursor),
                 "gene" + QByteArray(1, char(type)) + char(subType) + QByteArray(5, '\0') + defaults);
    }

    void biotickStartsAtRandom()
    {
        std::set<int> bioticks;
        for (int i = 0; i < 40; ++i) {
            std::unique_ptr<Gene> organ(GeneKinds::Make(*session, i % 2 ? 3 : 0, i % 2 ? 0 : 1));
            bioticks.insert(static_cast<OrganGene *>(organ.get())->BiotickStartValue);
        }
        QVERIFY2(bioticks.size() > 1, "forty new organs all started at the same biotick");
    }

    // Where the bytes of the bodies land, for members that the other cases do not pin.
    void membersSitAtTheirOffsets()
    {
        QByteArray genes;
        for (const Kind &k : Kinds())
            genes += Header(k.type, k.subType) + k.body;
        QVERIFY(Decode(File(genes)));
        auto *l = At<clsBrainLobe>(0);
        QCOMPARE(QList<int>({l->x, l->y, l->Width, l->Height, l->Perceptible, l->Threshold, l->Leakage, l->RestState,
                             l->Attenuation, l->Flags, l->NumNeus(), l->MinDens(), l->MaxDens()}),
                 QList<int>({63, 1, 64, 2, 2, 10, 11, 12, 13, 15, 128, 10 * 128, 19 * 128}));
        QCOMPARE(QList<int>({l->Source[1], l->min[1], l->max[1], l->Spread[1], l->FanWidth[1], l->InitialLTWMin[1],
                             l->InitialLTWMax[1], l->InitialStrengthMin[1], l->InitialStrengthMax[1], l->Migration[1],
                             l->RelaxSus[1], l->RelaxSTW[1], l->LTWRate[1], l->GainStrength[1], l->LoseStrength[1]}),
                 QList<int>({4, 5, 10, 3, 8, 1, 1, 0, 255, 2, 0x14, 0x15, 0x16, 0x17, 0x18}));
        QCOMPARE(Of(l->StateRule), Rule(0xA0));
        for (int i = 0; i < 2; ++i) {
            const StateRule *rules[] = {&l->GainRule(i), &l->LoseRule(i), &l->SusRule(i), &l->ReinforceRule(i),
                                        &l->BPRule(i), &l->FPRule(i)};
            for (int r = 0; r < 6; ++r)
                QCOMPARE(Of(*rules[r]), Rule(0x10 * (r + 1) + 0x60 * i));
        }
        auto *rc = At<clsReceptor>(2);
        auto *em = At<clsEmitter>(3);
        QCOMPARE(QList<int>({rc->Organ, rc->Tissue, rc->Locus, rc->Chem, rc->Threshold, rc->Nominal, rc->Gain,
                             rc->Flags, em->Organ, em->Tissue, em->Locus, em->Chem, em->Threshold, em->Rate, em->Gain,
                             em->Flags}),
                 QList<int>({2, 0x11, 0x22, 0x33, 0x44, 0, 0x66, 3, 1, 0x11, 0x22, 0x33, 0x44, 0x0F, 0x66, 7}));
        auto *re = At<clsReaction>(4);
        auto *st = At<clsStimulus>(7);
        auto *in = At<clsInstinct>(12);
        QCOMPARE(QList<int>({re->Conc[0], re->Chem[0], re->Conc[3], re->Chem[3], re->Rate, At<clsInject>(6)->Chem,
                             st->stimulus, st->Significance, st->Neu, st->Intensity, st->Features, st->Chem[0],
                             st->amount[0], st->Chem[3], st->amount[3], in->lobe[0], in->Neu[0], in->lobe[2],
                             in->Neu[2], in->Motor, in->Reinforcer, in->Reinforcement}),
                 QList<int>({1, 5, 3, 8, 0, 0x21, 0x2D, 0x10, 0xFE, 0x20, 7, 1, 2, 7, 8, 7, 0x10, 5, 0x30, 15, 0x40,
                             0x50}));
    }

    // Out-of-range bytes fold into range (not clamp) and are counted; rules take any byte uncounted.
    void foldingOnRead()
    {
        QByteArray lobe = LobeBody();
        const std::pair<int, int> changes[] = {
            {0, 64}, {2, 0}, {3, 65}, {4, 3}, // x 64 -> 0, Width 0 -> 1, Height 65 -> 2, Perceptible 3 -> 0
            {23, 100}, {24, 90},              // min 100, max 90 -> (90 mod 156) + 100 = 190
            {25, 4}, {26, 9}, {31, 3},        // Spread 4, FanWidth 9, Migration 3 -> 0
            {114, 200}, {115, 199},           // InitialLTWMin 200, Max 199 -> (199 mod 56) + 200 = 231
            {116, 50}, {117, 50}};            // InitialStrengthMin 50, Max 50: kept
        for (auto [at, value] : changes)
            lobe[at] = char(value);
        const QByteArray genes = Header(0, 0) + lobe
                                 + Header(1, 1) + Hex("04FEFD0000000000")       // Organ 4 -> 1, Rate 0 -> 1
                                 + Header(1, 1) + Hex("0000000000FF0000")       // Rate 255 stays
                                 + Header(1, 2) + Hex("000010001100280000")     // Conc 0 -> 1, 16, 17 -> 2, 40 -> 9
                                 + Header(2, 2) + Hex("061A04")                 // all three -> 0
                                 + Header(2, 3) + Hex("FF") + "zAAAAAAAAAAAA[[" // z -> $, [ -> @
                                 + Header(2, 5) + Hex("08FF0100070010FFFF");    // lobe 8 -> 0, Motor 16 -> 0
        prompt.AnswerMessage(Prompt::Ok);
        QVERIFY(Decode(File(genes)));
        QCOMPARE(session->GenomeImage.CorrectedErrors, qint16(22));
        QCOMPARE(ShownText(prompt.Last()),
                 ShownText("Helixbench", 64, " 22 genetic error(s) were corrected automatically"));
        auto *l = At<clsBrainLobe>(0);
        QCOMPARE(QList<int>({l->x, l->Width, l->Height, l->Perceptible, l->min[0], l->max[0], l->Spread[0],
                             l->FanWidth[0], l->Migration[0], l->InitialLTWMin[1], l->InitialLTWMax[1],
                             l->InitialStrengthMin[1], l->InitialStrengthMax[1]}),
                 QList<int>({0, 1, 2, 0, 100, 190, 0, 0, 0, 200, 231, 50, 50}));
        QCOMPARE(Of(l->FPRule2), Rule(0xC0)); // bytes up to 0xCB
        auto *re = At<clsReaction>(3);
        auto *ap = At<clsAppearance>(4);
        auto *in = At<clsInstinct>(6);
        QCOMPARE(QList<int>({At<clsEmitter>(1)->Organ, At<clsEmitter>(1)->Tissue, At<clsEmitter>(1)->Rate,
                             At<clsEmitter>(2)->Rate, re->Conc[0], re->Conc[1], re->Conc[2], re->Conc[3], re->Rate,
                             ap->Region, ap->Variety, ap->Genus, At<clsPose>(5)->pose, in->lobe[0], in->Neu[0],
                             in->lobe[1], in->Motor}),
                 QList<int>({1, 0xFE, 1, 255, 1, 16, 2, 9, 0, 0, 0, 0, 255, 0, 255, 1, 0}));
        QCOMPARE(At<clsPose>(5)->PoseString, QStringLiteral("$AAAAAAAAAAAA@@"));
    }

    // Father's message comes before Mother's; the monikers count no correction.
    void monikers()
    {
        // On load: a zero byte makes a bad character, not a short string.
        prompt.AnswerMessage(Prompt::Ok).AnswerMessage(Prompt::Ok);
        QVERIFY(Decode(File(Header(2, 1) + Hex("02") + QByteArray("EV\x01_A\0\x80M", 8))));
        QCOMPARE(prompt.MessageTexts(),
                 QStringList({BadMoniker("Father", 2, "ADAM"), BadMoniker("Mother", 1, "EVE_")}));
        QCOMPARE(prompt.Last().style, 16);
        QCOMPARE(session->GenomeImage.CorrectedErrors, qint16(0));
        auto *spe = At<clsSpecies>(0);
        QCOMPARE(spe->Mum + spe->Dad, QStringLiteral("EVE_ADAM"));

        // On write: the member keeps the replacement, Mum is written before Dad, a second write is silent.
        spe->Mum = QStringLiteral("Mu\tm");
        spe->Dad = QStringLiteral("DA");
        prompt.Clear();
        prompt.AnswerMessage(Prompt::Ok).AnswerMessage(Prompt::Ok);
        session->EncodeGenome();
        session->EncodeGenome();
        QCOMPARE(prompt.MessageTexts(),
                 QStringList({QStringLiteral("Father's moniker is incorrect length. Should be 4\r\n"
                                             "but is actually 2 characters.\r\nIt has been corrected to: ADAM"),
                              BadMoniker("Mother", 1, "EVE_")}));
        QCOMPARE(ImageBytes(28).mid(15, 9), Hex("02") + "EVE_ADAM");

        // Printable characters from blank to tilde pass.
        prompt.Clear();
        QVERIFY(Decode(File(Header(2, 1) + Hex("01") + "~ !}____")));
        QVERIFY(prompt.shown.isEmpty());

    }

    void poseStringPaddedOrCut()
    {
        auto poses = [](const char *a, const char *b, const char *c) {
            return File(Header(2, 3) + Hex("01") + a + Header(2, 3) + Hex("02") + b + Header(2, 3) + Hex("03") + c);
        };
        QVERIFY(Decode(poses("ABCDEFGHIJKLMNO", "ABCDEFGHIJKLMNO", "ABCDEFGHIJKLMNO")));
        At<clsPose>(0)->PoseString = QStringLiteral("ABC");
        At<clsPose>(1)->PoseString = QStringLiteral("ABCDEFGHIJKLMNOPQRST");
        At<clsPose>(2)->PoseString = QStringLiteral("   ZZZZZZZZZZZZ");
        session->EncodeGenome();
        QCOMPARE(ImageBytes(session->GenomeImage.WriteCursor),
                 poses("ABCXXXXXXXXXXXX", "ABCDEFGHIJKLMNO", "   ZZZZZZZZZZZZ"));
        QCOMPARE(At<clsPose>(0)->PoseString, QStringLiteral("ABCXXXXXXXXXXXX"));
    }

    void createGene()
    {
        // Poses with IDs 0, 1 and 3 and a gait with ID 2 are loaded.
        const QByteArray pose = Hex("00") + QByteArray(15, 'X');
        QVERIFY(Decode(File(Header(2, 3, 0) + pose + Header(2, 3, 1) + pose + Header(2, 3, 3) + pose + Header(2, 4, 2)
                            + QByteArray(9, '\0'))));
        prompt.AnswerInput(QStringLiteral("Wave"));
        QVERIFY(session->CreateGene(2, 3, true));
        QCOMPARE(ShownText(prompt.Last()),
                 ShownText("Name Gene", 0, "Enter a caption for new Pose gene or press 'Ok' for default name "
                                           "'<no caption> - Pose' [<no caption>]"));
        // The lowest free ID of the kind; the editor opens at once and is filled.
        Gene *g = session->GeneAt(4);
        QCOMPARE(QList<int>({g->Numeric_ID, g->ID, g->Generation, g->MutabilityWeighting, g->GeneType, g->GeneSubType,
                             static_cast<FakeView *>(g->View)->setControls, session->EditorCount}),
                 QList<int>({4, 2, 0, 128, 2, 3, 1, 1}));
        QCOMPARE(session->CaptionStore.GetCaption(2, 3, 2), QStringLiteral("002 Wave - Pose"));
        // IDs count within a kind (the new gene's own 0 is taken); the factory name ends the caption.
        prompt.AnswerInput(QStringLiteral("<no caption>")).AnswerInput(QStringLiteral("x")).AnswerInput(QString());
        QVERIFY(session->CreateGene(2, 4, true));
        QVERIFY(session->CreateGene(1, 4, true));
        QCOMPARE(session->CaptionStore.GetCaption(2, 4, 1), QStringLiteral("001 <no caption> - Gait"));
        QCOMPARE(session->CaptionStore.GetCaption(1, 4, 1), QStringLiteral("001 x - Initial Concentration"));
        // Cancel makes nothing.
        const int captions = session->CaptionStore.CaptionCount;
        QVERIFY(!session->CreateGene(1, 3, true));
        QCOMPARE(QList<int>({session->GeneCount, session->CaptionStore.CaptionCount, session->EditorCount}),
                 QList<int>({7, captions, 3}));
        QVERIFY(!session->GeneList[7]);

    }

    void olderFormatReadThenWrittenCurrent()
    {
        session->CompatibilityMode = QStringLiteral("1");
        prompt.AnswerMessage(Prompt::No);
        QVERIFY(!Decode(Header(2, 6, 1, true) + Hex("0280") + "gend"));
        QCOMPARE(session->GeneCount, qint16(0));

        // No magic; headers without MutabilityWeighting; a lobe of 112 bytes with 8-byte rules and no
        // propagation rules; an appearance of 2 bytes; then a colour gene to show the walk is right.
        auto rule8 = [](int first) { return Rule(first).left(8); };
        auto rule12 = [](int first) { return Rule(first).left(8) + QByteArray(4, '\0'); };
        QByteArray older = Hex("010203040105060708") + rule8(0xA0) + Hex("0F");
        QByteArray current = Hex("010203040105060708") + rule12(0xA0) + Hex("0F");
        for (int i = 0; i < 2; ++i) {
            const QByteArray fields = Hex("0305090308010100FF02 14151617");
            older += fields + rule8(0x10) + Hex("18") + rule8(0x20) + rule8(0x30) + rule8(0x40);
            current += fields + rule12(0x10) + Hex("18") + rule12(0x20) + rule12(0x30) + rule12(0x40)
                       + QByteArray(24, '\0'); // no propagation rules
        }
        prompt.AnswerMessage(Prompt::Yes);
        QVERIFY(Decode(Header(0, 0, 1, true) + older + Header(2, 2, 1, true) + Hex("0319") + Header(2, 6, 1, true)
                       + Hex("0280") + "gend"));
        QCOMPARE(ShownText(prompt.shown[0]), ShownText("Compatibility Mode Warning", 4, CompatibilityWarning));
        QCOMPARE(ShownText(prompt.shown[1]), ShownText(prompt.shown[0]));
        QCOMPARE(QList<int>({session->GeneCount, session->GenomeImage.CorrectedErrors}), QList<int>({3, 0}));
        auto *l = At<clsBrainLobe>(0);
        auto *ap = At<clsAppearance>(1);
        QCOMPARE(QList<int>({l->MutabilityWeighting, l->Flags, l->LoseStrength[1], ap->Region, ap->Variety, ap->Genus,
                             At<clsColour>(2)->Intensity}), QList<int>({128, 0x0F, 0x18, 3, 25, 0, 128}));
        QCOMPARE(Of(l->ReinforceRule2), rule12(0x40));
        QVERIFY(!l->BPRule1 && !l->FPRule2);

        // A save writes the current format, tells once, and ends the mode for the session.
        const QString path = sandbox->path() + QStringLiteral("/old.gen");
        prompt.AnswerMessage(Prompt::Ok);
        QVERIFY(session->SaveGenomeFile(path));
        session->EncodeGenome();
        QCOMPARE(prompt.shown.size(), 3);
        QCOMPARE(ShownText(prompt.Last()), ShownText("Helixbench", 64, Converted));
        QCOMPARE(session->CompatibilityMode, QStringLiteral("0"));
        auto header = [](int type, int sub) { return Header(type, sub, 1, true) + char(0x80); };
        const QByteArray saved = TestFiles::Read(path);
        QCOMPARE(saved.size(), 36001);
        QCOMPARE(saved.left(4 + 3 * 11 + 196 + 3 + 2 + 4),
                 File(header(0, 0) + current + header(2, 2) + Hex("031900") + header(2, 6) + Hex("0280")));
    }

    void overflowAsksAfterEachGene()
    {
        // Half-lives genes take 267 bytes each: after the 131st the image is past 34,976.
        MakeHalfLives(133);
        prompt.AnswerMessage(Prompt::Yes).AnswerMessage(Prompt::No);
        session->EncodeGenome();
        QCOMPARE(prompt.shown.size(), 2);
        QCOMPARE(ShownText(prompt.shown[0]), ShownText("Now we're pickled", 4, Pickled));
        // Yes after gene 131, No after gene 132: gene 133 stays out, "gend" ends the image.
        const int end = 4 + 267 * 132;
        QCOMPARE(session->GenomeImage.WriteCursor, end + 4);
        QCOMPARE(ImageBytes(end + 4).mid(end), QByteArray("gend"));

        // Yes to everything runs to the end of the block without writing outside it.
        session->ClearGeneList();
        MakeHalfLives(140);
        for (int i = 131; i <= 140; ++i)
            prompt.AnswerMessage(Prompt::Yes);
        session->EncodeGenome();
        QCOMPARE(session->GenomeImage.WriteCursor, GenomeImage::Size);
        QVERIFY(session->GenomeImage.RefusedWrites > 0);
    }

private:
    // Puts the bytes of a genome file into a zeroed image and decodes them.
    bool Decode(const QByteArray &bytes)
    {
        GenomeImage &img = session->GenomeImage;
        std::fill(img.Bytes.begin(), img.Bytes.end(), 0);
        std::copy(bytes.begin(), bytes.end(), reinterpret_cast<char *>(img.Bytes.data()));
        img.WriteCursor = int(bytes.size());
        return session->DecodeGenome();
    }

    QByteArray ImageBytes(int count) const
    {
        return QByteArray(reinterpret_cast<const char *>(session->GenomeImage.Bytes.data()), count);
    }

    template <typename T> T *At(int index)
    {
        T *g = dynamic_cast<T *>(session->GeneAt(index));
        if (!g)
            qFatal("gene %d is not of the expected kind", index);
        return g;
    }

    void MakeHalfLives(int count)
    {
        for (int i = 0; i < count; ++i) {
            session->GenomeImage.ReadCursor = GenomeImage::ReadLimit; // ID and Generation read as 0
            QVERIFY(session->CreateGene(1, 3, false));
        }
    }

    ScriptedPrompt prompt;
    std::unique_ptr<SettingsSandbox> sandbox;
    std::unique_ptr<Session> session;
};

QTEST_GUILESS_MAIN(TestGenes)
#include "test_genes.moc"
