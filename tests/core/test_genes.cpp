// The sixteen gene kinds on file: byte layouts both ways, defaults, folding on read, the
// genus gene's monikers, pose strings, CreateGene, the older format and the overflow question.
#include "core/Gene.h"
#include "core/GeneView.h"
#include "core/Session.h"
#include "core/genes/Biochemistry.h"
#include "core/genes/BodyGenes.h"
#include "core/genes/BrainLobe.h"
#include "support/ScriptedPrompt.h"
#include "support/TestEnv.h"

#include <QtTest>
#include <functional>
#include <set>

namespace {

QByteArray Hex(const char *hex) { return QByteArray::fromHex(hex); }

// "gene" and the header; the older format has no MutabilityWeighting.
QByteArray Header(int type, int subType, int id = 1, bool older = false)
{
    QByteArray h("gene");
    h += char(type);
    h += char(subType);
    h += char(id);
    h += char(9);    // Generation
    h += char(3);    // SwitchOn
    h += char(0x15); // Mutability
    if (!older)
        h += char(0x77); // MutabilityWeighting
    return h;
}

QByteArray Rule(int first)
{
    QByteArray r;
    for (int j = 0; j < 12; ++j)
        r += char(first + j);
    return r;
}

// A lobe body with every field in range and every rule distinct.
QByteArray LobeBody()
{
    QByteArray b = Hex("3F014002" "02" "0A0B0C0D");
    b += Rule(0xA0);                          // StateRule at 9
    b += char(0x0F);                          // Flags at 21
    for (int i = 0; i < 2; ++i) {             // blocks at 22 and 109
        b += char(3 + i);                     // Source
        b += char(5);                         // min
        b += char(9 + i);                     // max
        b += char(3);                         // Spread
        b += char(8);                         // FanWidth
        b += char(1);                         // InitialLTWMin
        b += char(1);                         // InitialLTWMax, equal to its minimum
        b += char(0);                         // InitialStrengthMin
        b += char(0xFF);                      // InitialStrengthMax
        b += char(2);                         // Migration
        b += Hex("14151617");                 // RelaxSus, RelaxSTW, LTWRate, GainStrength
        b += Rule(0x10 + 0x60 * i);           // gain rule at 14
        b += char(0x18);                      // LoseStrength at 26
        b += Rule(0x20 + 0x60 * i);           // lose rule at 27
        b += Rule(0x30 + 0x60 * i);           // susceptibility rule at 39
        b += Rule(0x40 + 0x60 * i);           // reinforcement rule at 51
        b += Rule(0x50 + 0x60 * i);           // back propagation rule at 63
        b += Rule(0x60 + 0x60 * i);           // forward propagation rule at 75
    }
    return b;
}

QByteArray HalfLivesBody()
{
    QByteArray b;
    for (int i = 0; i < 256; ++i)
        b += char((i * 7) & 0xFF);
    return b;
}

std::array<quint8, 12> RuleArray(int first)
{
    std::array<quint8, 12> r{};
    for (int j = 0; j < 12; ++j)
        r[size_t(j)] = quint8(first + j);
    return r;
}

// A stand-in for a gene's editor: counts calls and lets a test decide what its controls hold.
class FakeView : public GeneView
{
public:
    explicit FakeView(Gene &gene, int *disposed) : gene(gene), disposed(disposed) {}
    Gene &gene;
    int *disposed;
    int setControls = 0;
    std::function<void(Gene &)> controls; // what GetControls writes into the gene

    void SetControls() override { ++setControls; }
    void GetControls() override
    {
        if (controls)
            controls(gene);
    }
    void SetEditorCaption() override {}
    void ShowEditor() override {}
    void BringToFront() override {}
    void RequestClose() override { gene.CloseView(); }
    void Dispose() override
    {
        ++*disposed;
        delete this;
    }
};

const QString CompatibilityWarning = QStringLiteral(
    "WARNING. Arkenfold 1 compatibility mode is enabled.\r\n"
    "This will allow you to load a Arkenfold 1 genome into\r\n"
    "this application. This WILL CAUSE problems should you\r\n"
    "wish to inject this genome into Arkenfold 2. Are you\r\n"
    "really sure you want to do this?");

const QString Converted = QStringLiteral("This genome has been converted to Arkenfold 2 format.\r\n"
                                         "I have to switch compatibility mode off. Use\r\n"
                                         "'Advanced Options' to switch it back on.");

const QString Pickled = QStringLiteral("A bad situation has occurred. Out of genome RAM\r\n"
                                       "whilst storing genome. Continuing with this operation\r\n"
                                       "is likely to cause the Helixbench to crash. Click\r\n"
                                       "'YES' if you'd like to try anyway.");

} // namespace

class TestGenes : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        sandbox.reset(new SettingsSandbox);
        prompt.Clear();
        disposed = 0;
        session.reset(new Session(prompt));
        session->AppDirectory = sandbox->path();
    }

    void cleanup()
    {
        session->CloseAllViews();
        session.reset();
        QVERIFY2(prompt.AllAnswered(), "a queued answer was not asked for");
    }

    // Each kind, read from bytes built here and written back: the same bytes, no correction.
    void roundTripEveryKind_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<int>("subType");
        QTest::addColumn<QByteArray>("body");
        QTest::newRow("clsBrainLobe") << 0 << 0 << LobeBody();
        QTest::newRow("clsBorgan") << 0 << 1 << Hex("0504030201");
        QTest::newRow("clsReceptor") << 1 << 0 << Hex("0211223344006603");
        QTest::newRow("clsEmitter") << 1 << 1 << Hex("01112233440F6607");
        QTest::newRow("clsReaction") << 1 << 2 << Hex("010510060207030800");
        QTest::newRow("clsHalfLives") << 1 << 3 << HalfLivesBody();
        QTest::newRow("clsInject") << 1 << 4 << Hex("2142");
        QTest::newRow("clsStimulus") << 2 << 0 << Hex("2D10FE20070102030405060708");
        QTest::newRow("clsSpecies") << 2 << 1 << (Hex("03") + "MUM1" + "DAD2");
        QTest::newRow("clsAppearance") << 2 << 2 << Hex("051903");
        QTest::newRow("clsPose") << 2 << 3 << (Hex("2A") + "AB Z@# 09XYZ?=!");
        QTest::newRow("clsGait") << 2 << 4 << Hex("0F0102030405060708");
        QTest::newRow("clsInstinct") << 2 << 5 << Hex("0710062005300F4050");
        QTest::newRow("clsColour") << 2 << 6 << Hex("02FF");
        QTest::newRow("clsColourBleed") << 2 << 7 << Hex("1020");
        QTest::newRow("clsOrgan") << 3 << 0 << Hex("0102030405");
    }

    void roundTripEveryKind()
    {
        QFETCH(int, type);
        QFETCH(int, subType);
        QFETCH(QByteArray, body);
        QCOMPARE(int(body.size()), GeneKinds::Find(type, subType)->bodyBytes);

        // Two genes of the kind, so that a wrong body length shows in the second header.
        const QByteArray file = "dna2" + Header(type, subType, 4) + body + Header(type, subType, 5) + body + "gend";
        QVERIFY(Decode(file));
        QCOMPARE(session->GenomeImage.CorrectedErrors, qint16(0));
        QCOMPARE(session->GeneCount, qint16(2));
        Gene *g = session->GeneAt(1);
        QCOMPARE(QString::fromLatin1(GeneKinds::Find(g->GeneType, g->GeneSubType)->className),
                 QString::fromLatin1(QTest::currentDataTag()));
        QCOMPARE(g->Numeric_ID, qint16(1));
        QCOMPARE(int(g->ID), 5);
        QCOMPARE(int(g->Generation), 9);
        QCOMPARE(int(g->SwitchOn), 3);
        QCOMPARE(int(g->Mutability), 0x15);
        QCOMPARE(int(g->MutabilityWeighting), 0x77);

        std::fill(session->GenomeImage.Bytes.begin(), session->GenomeImage.Bytes.end(), 0xEE);
        session->EncodeGenome();
        QCOMPARE(session->GenomeImage.WriteCursor, int(file.size()));
        QCOMPARE(ImageBytes(file.size()), file);
        // Bytes behind "gend" are not touched.
        QCOMPARE(int(session->GenomeImage.Bytes[size_t(file.size())]), 0xEE);
    }

    // Where each byte of a body lands: one check for every member of every kind.
    void membersSitAtTheirOffsets()
    {
        QByteArray file = "dna2";
        file += Header(0, 0) + LobeBody();
        file += Header(1, 0) + Hex("0211223344006603");
        file += Header(1, 1) + Hex("01112233440F6607");
        file += Header(1, 2) + Hex("010510060207030800");
        file += Header(1, 3) + HalfLivesBody();
        file += Header(1, 4) + Hex("2142");
        file += Header(2, 0) + Hex("2D10FE20070102030405060708");
        file += Header(2, 1) + Hex("03") + "MUM1" + "DAD2";
        file += Header(2, 2) + Hex("051903");
        file += Header(2, 3) + Hex("2A") + "AB Z@# 09XYZ?=!";
        file += Header(2, 4) + Hex("0F0102030405060708");
        file += Header(2, 5) + Hex("0710062005300F4050");
        file += Header(2, 6) + Hex("02FF");
        file += Header(2, 7) + Hex("1020");
        file += Header(3, 0) + Hex("0102030405");
        file += Header(0, 1) + Hex("0504030201");
        file += "gend";
        QVERIFY(Decode(file));
        QCOMPARE(session->GeneCount, qint16(16));

        auto *lobe = At<clsBrainLobe>(0);
        QCOMPARE(QList<int>({lobe->x, lobe->y, lobe->Width, lobe->Height, lobe->Perceptible}),
                 QList<int>({63, 1, 64, 2, 2}));
        QCOMPARE(QList<int>({lobe->Threshold, lobe->Leakage, lobe->RestState, lobe->Attenuation, lobe->Flags}),
                 QList<int>({10, 11, 12, 13, 15}));
        QCOMPARE(*lobe->StateRule, RuleArray(0xA0));
        for (int i = 0; i < 2; ++i) {
            QCOMPARE(QList<int>({lobe->Source[i], lobe->min[i], lobe->max[i], lobe->Spread[i], lobe->FanWidth[i]}),
                     QList<int>({3 + i, 5, 9 + i, 3, 8}));
            QCOMPARE(QList<int>({lobe->InitialLTWMin[i], lobe->InitialLTWMax[i], lobe->InitialStrengthMin[i],
                                 lobe->InitialStrengthMax[i], lobe->Migration[i]}),
                     QList<int>({1, 1, 0, 255, 2}));
            QCOMPARE(QList<int>({lobe->RelaxSus[i], lobe->RelaxSTW[i], lobe->LTWRate[i], lobe->GainStrength[i],
                                 lobe->LoseStrength[i]}),
                     QList<int>({0x14, 0x15, 0x16, 0x17, 0x18}));
            QCOMPARE(*lobe->GainRule(i), RuleArray(0x10 + 0x60 * i));
            QCOMPARE(*lobe->LoseRule(i), RuleArray(0x20 + 0x60 * i));
            QCOMPARE(*lobe->SusRule(i), RuleArray(0x30 + 0x60 * i));
            QCOMPARE(*lobe->ReinforceRule(i), RuleArray(0x40 + 0x60 * i));
            QCOMPARE(*lobe->BPRule(i), RuleArray(0x50 + 0x60 * i));
            QCOMPARE(*lobe->FPRule(i), RuleArray(0x60 + 0x60 * i));
        }
        QCOMPARE(*lobe->GainStrengthRule2, RuleArray(0x70));
        QCOMPARE(*lobe->FPRule2, RuleArray(0xC0));
        QCOMPARE(lobe->NumNeus(), 128);
        QCOMPARE(lobe->MinDens(), 10 * 128);
        QCOMPARE(lobe->MaxDens(), 19 * 128);

        auto *rec = At<clsReceptor>(1);
        QCOMPARE(QList<int>({rec->Organ, rec->Tissue, rec->Locus, rec->Chem, rec->Threshold, rec->Nominal,
                             rec->Gain, rec->Flags}),
                 QList<int>({2, 0x11, 0x22, 0x33, 0x44, 0, 0x66, 3}));
        auto *emi = At<clsEmitter>(2);
        QCOMPARE(QList<int>({emi->Organ, emi->Tissue, emi->Locus, emi->Chem, emi->Threshold, emi->Rate,
                             emi->Gain, emi->Flags}),
                 QList<int>({1, 0x11, 0x22, 0x33, 0x44, 0x0F, 0x66, 7}));
        auto *rea = At<clsReaction>(3);
        QCOMPARE(QList<int>({rea->Conc[0], rea->Chem[0], rea->Conc[1], rea->Chem[1], rea->Conc[2], rea->Chem[2],
                             rea->Conc[3], rea->Chem[3], rea->Rate}),
                 QList<int>({1, 5, 16, 6, 2, 7, 3, 8, 0}));
        QCOMPARE(rea->GetConc(1), 16);
        QCOMPARE(rea->GetChem(2), 7);
        auto *hl = At<clsHalfLives>(4);
        QCOMPARE(int(hl->HalfLife[0]), 0);
        QCOMPARE(int(hl->HalfLife[1]), 7);
        QCOMPARE(int(hl->HalfLife[255]), (255 * 7) & 0xFF);
        QCOMPARE(hl->GetChem(100), (100 * 7) & 0xFF);
        auto *inj = At<clsInject>(5);
        QCOMPARE(QList<int>({inj->Chem, inj->Conc}), QList<int>({0x21, 0x42}));
        auto *sti = At<clsStimulus>(6);
        QCOMPARE(QList<int>({sti->stimulus, sti->Significance, sti->Neu, sti->Intensity, sti->Features}),
                 QList<int>({0x2D, 0x10, 0xFE, 0x20, 7}));
        QCOMPARE(QList<int>({sti->Chem[0], sti->amount[0], sti->Chem[1], sti->amount[1], sti->Chem[2],
                             sti->amount[2], sti->Chem[3], sti->amount[3]}),
                 QList<int>({1, 2, 3, 4, 5, 6, 7, 8}));
        auto *spe = At<clsSpecies>(7);
        QCOMPARE(int(spe->Genus), 3);
        QCOMPARE(spe->Mum, QStringLiteral("MUM1"));
        QCOMPARE(spe->Dad, QStringLiteral("DAD2"));
        auto *app = At<clsAppearance>(8);
        QCOMPARE(QList<int>({app->Region, app->Variety, app->Genus}), QList<int>({5, 25, 3}));
        auto *pose = At<clsPose>(9);
        QCOMPARE(int(pose->pose), 0x2A);
        QCOMPARE(pose->PoseString, QStringLiteral("AB Z@# 09XYZ?=!"));
        auto *gait = At<clsGait>(10);
        QCOMPARE(int(gait->Drive), 15);
        QCOMPARE(int(gait->Anim[0]), 1);
        QCOMPARE(int(gait->Anim[7]), 8);
        auto *ins = At<clsInstinct>(11);
        QCOMPARE(QList<int>({ins->lobe[0], ins->Neu[0], ins->lobe[1], ins->Neu[1], ins->lobe[2], ins->Neu[2],
                             ins->Motor, ins->Reinforcer, ins->Reinforcement}),
                 QList<int>({7, 0x10, 6, 0x20, 5, 0x30, 15, 0x40, 0x50}));
        auto *col = At<clsColour>(12);
        QCOMPARE(QList<int>({col->Pigment, col->Intensity}), QList<int>({2, 255}));
        auto *ble = At<clsColourBleed>(13);
        QCOMPARE(QList<int>({ble->Rotation, ble->Swap}), QList<int>({0x10, 0x20}));
        auto *org = At<clsOrgan>(14);
        QCOMPARE(QList<int>({org->ClockRate, org->LTRateChange, org->LifeForce, org->BiotickStartValue,
                             org->ATPDamageCoefficient}),
                 QList<int>({1, 2, 3, 4, 5}));
        auto *bor = At<clsBorgan>(15);
        QCOMPARE(QList<int>({bor->ClockRate, bor->LTRateChange, bor->LifeForce, bor->BiotickStartValue,
                             bor->ATPDamageCoefficient}),
                 QList<int>({5, 4, 3, 2, 1}));
        for (int i = 0; i < 16; ++i)
            QCOMPARE(session->GeneAt(i)->Numeric_ID, qint16(i));
    }

    // A fresh object of each kind, written as it stands.
    void defaultsOfNewGenes_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<int>("subType");
        QTest::addColumn<QByteArray>("body");
        QByteArray lobe = Hex("00000101");
        lobe.append(196 - 4, '\0');
        QByteArray halfLives(255, char(0xFF));
        halfLives += '\0';
        QTest::newRow("lobe") << 0 << 0 << lobe;
        QTest::newRow("receptor") << 1 << 0 << Hex("000000000000FF00");
        QTest::newRow("emitter") << 1 << 1 << Hex("000000000001FF00");
        QTest::newRow("reaction") << 1 << 2 << Hex("010001000100010020");
        QTest::newRow("half-lives") << 1 << 3 << halfLives;
        QTest::newRow("inject") << 1 << 4 << Hex("0000");
        QTest::newRow("stimulus") << 2 << 0 << Hex("0000FF00000000000000000000");
        QTest::newRow("species") << 2 << 1 << Hex("004556455F4144414D");
        QTest::newRow("appearance") << 2 << 2 << Hex("000000");
        QTest::newRow("pose") << 2 << 3 << (Hex("00") + "XXXXXXXXXXXXXXX");
        QTest::newRow("gait") << 2 << 4 << QByteArray(9, '\0');
        QTest::newRow("instinct") << 2 << 5 << QByteArray(9, '\0');
        QTest::newRow("pigment") << 2 << 6 << Hex("0080");
        QTest::newRow("pigment bleed") << 2 << 7 << Hex("0080");
    }

    void defaultsOfNewGenes()
    {
        QFETCH(int, type);
        QFETCH(int, subType);
        QFETCH(QByteArray, body);
        std::unique_ptr<Gene> g(GeneKinds::Make(*session, type, subType));
        QVERIFY(g);
        QVERIFY(!g->IsOpen);
        QVERIFY(!g->View);
        QVERIFY(!g->WriteChanges);
        QCOMPARE(int(g->GeneType), type);
        QCOMPARE(int(g->GeneSubType), subType);
        session->GenomeImage.WriteCursor = 0;
        g->GetMembers();
        QCOMPARE(ImageBytes(11), QByteArray("gene") + char(type) + char(subType) + QByteArray(5, '\0'));
        QCOMPARE(session->GenomeImage.WriteCursor, int(11 + body.size()));
        QCOMPARE(ImageBytes(11 + body.size()).mid(11), body);
        QVERIFY(prompt.shown.isEmpty());
    }

    void organDefaults()
    {
        // Organ and brain organ differ in two defaults; the biotick starts at random.
        std::set<int> bioticks;
        for (int i = 0; i < 40; ++i) {
            std::unique_ptr<Gene> organ(GeneKinds::Make(*session, 3, 0));
            std::unique_ptr<Gene> borgan(GeneKinds::Make(*session, 0, 1));
            auto *o = static_cast<clsOrgan *>(organ.get());
            auto *b = static_cast<clsBorgan *>(borgan.get());
            QCOMPARE(QList<int>({o->ClockRate, o->LTRateChange, o->LifeForce, o->ATPDamageCoefficient}),
                     QList<int>({128, 20, 128, 128}));
            QCOMPARE(QList<int>({b->ClockRate, b->LTRateChange, b->LifeForce, b->ATPDamageCoefficient}),
                     QList<int>({128, 10, 128, 2}));
            bioticks.insert(o->BiotickStartValue);
            bioticks.insert(b->BiotickStartValue);
        }
        QVERIFY2(bioticks.size() > 1, "eighty new organs all started at the same biotick");
        // A load replaces the random value at once.
        QVERIFY(Decode("dna2" + Header(3, 0) + Hex("0000000000") + "gend"));
        QCOMPARE(int(At<clsOrgan>(0)->BiotickStartValue), 0);
    }

    void brainLobeFolding()
    {
        QByteArray body = LobeBody();
        body[0] = char(64);  // x 64 -> 0
        body[2] = char(0);   // Width 0 -> 1
        body[3] = char(65);  // Height 65 -> 2
        body[4] = char(3);   // Perceptible 3 -> 0
        body[22 + 1] = char(100); // min(0) 100
        body[22 + 2] = char(90);  // max(0) 90 -> (90 mod 156) + 100 = 190
        body[22 + 3] = char(4);   // Spread 4 -> 0
        body[22 + 4] = char(9);   // FanWidth 9 -> 0
        body[22 + 9] = char(3);   // Migration 3 -> 0
        body[109 + 5] = char(200); // InitialLTWMin(1) 200
        body[109 + 6] = char(199); // InitialLTWMax(1) 199 -> (199 mod 56) + 200 = 231
        body[109 + 7] = char(50);  // InitialStrengthMin(1) 50, max 50: kept
        body[109 + 8] = char(50);
        prompt.AnswerMessage(Prompt::Ok);
        QVERIFY(Decode("dna2" + Header(0, 0) + body + "gend"));
        QCOMPARE(prompt.Last().text, QStringLiteral(" 9 genetic error(s) were corrected automatically"));
        QCOMPARE(prompt.Last().style, 64);
        auto *lobe = At<clsBrainLobe>(0);
        QCOMPARE(QList<int>({lobe->x, lobe->Width, lobe->Height, lobe->Perceptible}), QList<int>({0, 1, 2, 0}));
        QCOMPARE(QList<int>({lobe->min[0], lobe->max[0], lobe->Spread[0], lobe->FanWidth[0], lobe->Migration[0]}),
                 QList<int>({100, 190, 0, 0, 0}));
        QCOMPARE(QList<int>({lobe->InitialLTWMin[1], lobe->InitialLTWMax[1], lobe->InitialStrengthMin[1],
                             lobe->InitialStrengthMax[1]}),
                 QList<int>({200, 231, 50, 50}));
        // Rules take any byte, uncounted: LobeBody's rules run up to 0xCB.
        QCOMPARE(*lobe->FPRule2, RuleArray(0xC0));
    }

    void biochemistryFolding()
    {
        QByteArray file = "dna2";
        file += Header(1, 0) + Hex("03FFFF0000000000"); // receptor: Organ 3 -> 0; Tissue, Locus kept
        file += Header(1, 0) + Hex("0400000000000000"); // Organ 4 -> 1; Nominal 0 stays
        file += Header(1, 1) + Hex("04FEFD0000000000"); // emitter: Organ 4 -> 1, Rate 0 -> 1
        file += Header(1, 1) + Hex("00000000000000FF"); // emitter Rate 0 again, Flags kept
        file += Header(1, 1) + Hex("0000000000FF0000"); // Rate 255 stays
        file += Header(1, 2) + Hex("0000100011002800" "00"); // reaction: Conc 0 -> 1, 16, 17 -> 2, 40 -> 9; Rate 0
        file += "gend";
        prompt.AnswerMessage(Prompt::Ok);
        QVERIFY(Decode(file));
        QCOMPARE(session->GenomeImage.CorrectedErrors, qint16(8));
        QCOMPARE(prompt.Last().text, QStringLiteral(" 8 genetic error(s) were corrected automatically"));
        QCOMPARE(QList<int>({At<clsReceptor>(0)->Organ, At<clsReceptor>(0)->Tissue, At<clsReceptor>(0)->Locus}),
                 QList<int>({0, 255, 255}));
        QCOMPARE(QList<int>({At<clsReceptor>(1)->Organ, At<clsReceptor>(1)->Nominal}), QList<int>({1, 0}));
        QCOMPARE(QList<int>({At<clsEmitter>(2)->Organ, At<clsEmitter>(2)->Tissue, At<clsEmitter>(2)->Rate}),
                 QList<int>({1, 0xFE, 1}));
        QCOMPARE(int(At<clsEmitter>(3)->Rate), 1);
        QCOMPARE(int(At<clsEmitter>(4)->Rate), 255);
        auto *rea = At<clsReaction>(5);
        QCOMPARE(QList<int>({rea->Conc[0], rea->Conc[1], rea->Conc[2], rea->Conc[3], rea->Rate}),
                 QList<int>({1, 16, 2, 9, 0}));
    }

    void bodyGeneFolding()
    {
        QByteArray file = "dna2";
        file += Header(2, 1) + Hex("04") + "MUM1DAD2";          // Genus 4 -> 0
        file += Header(2, 2) + Hex("051A04");                   // Region 5 kept, Variety 26 -> 0, Genus 4 -> 0
        file += Header(2, 2) + Hex("060000");                   // Region 6 -> 0
        file += Header(2, 3) + Hex("FF") + "zAAAAAAAAAAAA[" + char(91); // 'z' and '[' are beyond 'Z'
        file += Header(2, 4) + Hex("10FFFFFFFFFFFFFFFF");       // Drive 16 -> 0
        file += Header(2, 5) + Hex("08FF0100070010FFFF");       // lobe 8 -> 0, Motor 16 -> 0
        file += Header(2, 6) + Hex("03FF");                     // Pigment 3 -> 0
        file += "gend";
        prompt.AnswerMessage(Prompt::Ok);
        QVERIFY(Decode(file));
        QCOMPARE(prompt.Last().text, QStringLiteral(" 11 genetic error(s) were corrected automatically"));
        QCOMPARE(int(At<clsSpecies>(0)->Genus), 0);
        QCOMPARE(QList<int>({At<clsAppearance>(1)->Region, At<clsAppearance>(1)->Variety, At<clsAppearance>(1)->Genus}),
                 QList<int>({5, 0, 0}));
        QCOMPARE(int(At<clsAppearance>(2)->Region), 0);
        QCOMPARE(int(At<clsPose>(3)->pose), 255);
        // 'z' (122) -> (122 mod 59) + 32 = '$'; '[' is 91, beyond 'Z': -> (91 mod 59) + 32 = 64, '@'.
        QCOMPARE(At<clsPose>(3)->PoseString, QStringLiteral("$AAAAAAAAAAAA@@"));
        QCOMPARE(int(At<clsGait>(4)->Drive), 0);
        QCOMPARE(int(At<clsGait>(4)->Anim[7]), 255);
        auto *ins = At<clsInstinct>(5);
        QCOMPARE(QList<int>({ins->lobe[0], ins->Neu[0], ins->lobe[1], ins->lobe[2], ins->Motor}),
                 QList<int>({0, 255, 1, 7, 0}));
        QCOMPARE(QList<int>({At<clsColour>(6)->Pigment, At<clsColour>(6)->Intensity}), QList<int>({0, 255}));
    }

    void monikersOnLoad()
    {
        // A zero byte makes a four-character string with a bad character, not a short one.
        QByteArray body = Hex("02") + QByteArray("EV\x01_", 4) + QByteArray("A\0\x80M", 4);
        prompt.AnswerMessage(Prompt::Ok).AnswerMessage(Prompt::Ok);
        QVERIFY(Decode("dna2" + Header(2, 1) + body + "gend"));
        QCOMPARE(prompt.MessageTexts(),
                 QStringList({QStringLiteral("Father's moniker has 2 bad character(s).\r\nIt has been corrected to: ADAM"),
                              QStringLiteral("Mother's moniker has 1 bad character(s).\r\nIt has been corrected to: EVE_")}));
        QCOMPARE(prompt.shown[0].style, 16);
        // The monikers count no correction.
        QCOMPARE(session->GenomeImage.CorrectedErrors, qint16(0));
        auto *spe = At<clsSpecies>(0);
        QCOMPARE(spe->Dad, QStringLiteral("ADAM"));
        QCOMPARE(spe->Mum, QStringLiteral("EVE_"));
        QCOMPARE(int(spe->Genus), 2);

        // Four printable characters pass, whatever they are.
        prompt.Clear();
        QVERIFY(Decode("dna2" + Header(2, 1) + Hex("01") + "~ !}" + "____" + "gend"));
        QVERIFY(prompt.shown.isEmpty());
        QCOMPARE(At<clsSpecies>(0)->Mum, QStringLiteral("~ !}"));
    }

    void monikersOnWrite()
    {
        QVERIFY(Decode("dna2" + Header(2, 1) + Hex("00") + "EVE_ADAM" + "gend"));
        auto *spe = At<clsSpecies>(0);
        spe->Mum = QStringLiteral("Mu\tm");
        spe->Dad = QStringLiteral("DA");
        prompt.AnswerMessage(Prompt::Ok).AnswerMessage(Prompt::Ok);
        session->EncodeGenome();
        QCOMPARE(prompt.MessageTexts(),
                 QStringList({QStringLiteral("Father's moniker is incorrect length. Should be 4\r\n"
                                             "but is actually 2 characters.\r\nIt has been corrected to: ADAM"),
                              QStringLiteral("Mother's moniker has 1 bad character(s).\r\nIt has been corrected to: EVE_")}));
        // The member keeps the replacement, Mum is written before Dad, and a second encode is silent.
        QCOMPARE(spe->Dad, QStringLiteral("ADAM"));
        QCOMPARE(spe->Mum, QStringLiteral("EVE_"));
        QCOMPARE(ImageBytes(4 + 11 + 9 + 4).mid(15, 9), Hex("00") + "EVE_ADAM");
        session->EncodeGenome();
        QCOMPARE(prompt.shown.size(), 2);

        // An empty moniker has length 0.
        prompt.AnswerMessage(Prompt::Ok);
        QCOMPARE(session->CheckMoniker(QString(), QStringLiteral("M")), QStringLiteral("EVE_"));
        QCOMPARE(prompt.Last().text, QStringLiteral("Mother's moniker is incorrect length. Should be 4\r\n"
                                                    "but is actually 0 characters.\r\nIt has been corrected to: EVE_"));
    }

    void monikersWhenTheEditorCloses()
    {
        // GetControls of the genus gene checks both monikers after the editor wrote them.
        InstallEditors([](Gene &g) {
            auto &s = static_cast<clsSpecies &>(g);
            s.Dad = QStringLiteral("PAPA5");
            s.Mum = QStringLiteral("MAMA");
        });
        session->NewGenome();
        QCOMPARE(session->EditorCount, qint16(1));
        prompt.AnswerMessage(Prompt::Ok);
        session->GeneAt(0)->CloseView();
        QCOMPARE(prompt.shown.size(), 1);
        QVERIFY(prompt.Last().text.startsWith(QStringLiteral("Father's moniker is incorrect length.")));
        QCOMPARE(At<clsSpecies>(0)->Dad, QStringLiteral("ADAM"));
        QCOMPARE(At<clsSpecies>(0)->Mum, QStringLiteral("MAMA"));
        QCOMPARE(disposed, 1);
        QCOMPARE(session->EditorCount, qint16(0));
    }

    void poseStringPaddedOrCut()
    {
        QVERIFY(Decode("dna2" + Header(2, 3) + Hex("01") + "ABCDEFGHIJKLMNO" + Header(2, 3) + Hex("02")
                       + "ABCDEFGHIJKLMNO" + Header(2, 3) + Hex("03") + "ABCDEFGHIJKLMNO" + "gend"));
        At<clsPose>(0)->PoseString = QStringLiteral("ABC");
        At<clsPose>(1)->PoseString = QStringLiteral("ABCDEFGHIJKLMNOPQRST");
        At<clsPose>(2)->PoseString = QStringLiteral("   ZZZZZZZZZZZZ");
        session->EncodeGenome();
        const QByteArray image = ImageBytes(session->GenomeImage.WriteCursor);
        QCOMPARE(image.mid(4 + 11, 16), Hex("01") + "ABCXXXXXXXXXXXX");
        QCOMPARE(image.mid(4 + 27 + 11, 16), Hex("02") + "ABCDEFGHIJKLMNO");
        QCOMPARE(image.mid(4 + 54 + 11, 16), Hex("03") + "   ZZZZZZZZZZZZ");
        QCOMPARE(image.mid(4 + 81), QByteArray("gend"));
        QCOMPARE(At<clsPose>(0)->PoseString, QStringLiteral("ABCXXXXXXXXXXXX"));
        QCOMPARE(At<clsPose>(1)->PoseString, QStringLiteral("ABCDEFGHIJKLMNO"));
    }

    void createGeneAsksForACaption()
    {
        InstallEditors();
        // Six poses take the IDs 1..6; the seventh gets 7 and its caption begins with 007.
        for (int i = 0; i < 6; ++i)
            prompt.AnswerInput(QStringLiteral("p"));
        for (int i = 0; i < 6; ++i)
            QVERIFY(session->CreateGene(2, 3, true));
        prompt.Clear();
        prompt.AnswerInput(QStringLiteral("Wave"));
        QVERIFY(session->CreateGene(2, 3, true));
        QCOMPARE(prompt.Last().kind, QStringLiteral("input"));
        QCOMPARE(prompt.Last().title, QStringLiteral("Name Gene"));
        QCOMPARE(prompt.Last().text, QStringLiteral("Enter a caption for new Pose gene or press 'Ok' for default name "
                                                    "'<no caption> - Pose' [<no caption>]"));
        Gene *g = session->GeneAt(6);
        QCOMPARE(int(g->ID), 7);
        QCOMPARE(g->Numeric_ID, qint16(6));
        QCOMPARE(int(g->Generation), 0);
        QCOMPARE(int(g->MutabilityWeighting), 128);
        QCOMPARE(int(g->GeneType), 2);
        QCOMPARE(int(g->GeneSubType), 3);
        QCOMPARE(session->CaptionStore.GetCaption(2, 3, 7), QStringLiteral("007 Wave - Pose"));
        // The editor opened at once and was filled.
        QVERIFY(g->IsOpen);
        QVERIFY(g->WriteChanges);
        QCOMPARE(static_cast<FakeView *>(g->View)->setControls, 1);
        QCOMPARE(session->EditorCount, qint16(7));

        // IDs count within a kind: the first gait gets 1 too. The factory name goes into the caption.
        prompt.AnswerInput(QStringLiteral("<no caption>"));
        QVERIFY(session->CreateGene(2, 4, true));
        QCOMPARE(int(session->GeneAt(7)->ID), 1);
        QCOMPARE(session->CaptionStore.GetCaption(2, 4, 1), QStringLiteral("001 <no caption> - Gait"));
        prompt.AnswerInput(QStringLiteral("x"));
        QVERIFY(session->CreateGene(1, 4, true));
        QCOMPARE(session->CaptionStore.GetCaption(1, 4, 1), QStringLiteral("001 x - Initial Concentration"));
    }

    void createGeneCancelled()
    {
        InstallEditors();
        prompt.AnswerInput(QString());
        QVERIFY(!session->CreateGene(1, 3, true));
        QCOMPARE(session->GeneCount, qint16(0));
        QVERIFY(!session->GeneList[0]);
        QCOMPARE(session->CaptionStore.CaptionCount, 0);
        QCOMPARE(session->EditorCount, qint16(0));
        QVERIFY(prompt.Last().text.startsWith(QStringLiteral("Enter a caption for new Half-lives gene")));
    }

    void spareIdsFillGaps()
    {
        // Loaded poses with IDs 0, 1 and 3: the lowest free one is 2. A gait does not count.
        QVERIFY(Decode("dna2" + Header(2, 3, 0) + Hex("00") + QByteArray(15, 'X') + Header(2, 3, 1) + Hex("00")
                       + QByteArray(15, 'X') + Header(2, 3, 3) + Hex("00") + QByteArray(15, 'X') + Header(2, 4, 2)
                       + QByteArray(9, '\0') + "gend"));
        QCOMPARE(session->SpareGeneID(2, 3), 2);
        QCOMPARE(session->SpareGeneID(2, 4), 0);
        QCOMPARE(session->SpareGeneID(2, 5), 0);

        // All 256 taken: the message, and a new gene keeps the ID 0.
        session->ClearGeneList();
        for (int id = 0; id < 256; ++id) {
            QVERIFY(session->CreateGene(2, 6, false));
            session->GeneAt(id)->ID = quint8(id);
        }
        prompt.AnswerInput(QStringLiteral("last")).AnswerMessage(Prompt::Ok);
        QVERIFY(session->CreateGene(2, 6, true));
        QCOMPARE(prompt.Last().text, QStringLiteral("No spare gene ID's available.\n\r"
                                                    "Captions and annotations will become confused."));
        QCOMPARE(prompt.Last().style, 16);
        QCOMPARE(int(session->GeneAt(256)->ID), 0);
    }

    void createGeneLimits()
    {
        // The 900th gene is made; the 901st is refused and slot 900 stays empty.
        for (int i = 0; i < 900; ++i)
            QVERIFY(session->CreateGene(1, 4, false));
        QCOMPARE(session->GeneCount, qint16(900));
        QCOMPARE(session->GeneAt(899)->Numeric_ID, qint16(899));
        prompt.AnswerMessage(Prompt::Ok);
        QVERIFY(!session->CreateGene(1, 4, true));
        QCOMPARE(prompt.Last().text, QStringLiteral("Terminal error processing new gene, out of gene space.\r\n"
                                                    "Maximum # of genes is 900."));
        QCOMPARE(session->GeneCount, qint16(900));
        QVERIFY(!session->GeneList[900]);

        session->ClearGeneList();
        prompt.AnswerMessage(Prompt::Ok);
        QVERIFY(!session->CreateGene(3, 1, false));
        QCOMPARE(prompt.Last().text, QStringLiteral("Error: trying to create a gene of type 3 and subtype 1 when no "
                                                    "such type or subtype is known to me!"));
        QCOMPARE(session->GeneCount, qint16(0));

        // Not interactive: ID and Generation come from the image.
        session->GenomeImage.Bytes[0] = 42;
        session->GenomeImage.Bytes[1] = 7;
        session->GenomeImage.ReadCursor = 0;
        QVERIFY(session->CreateGene(2, 0, false));
        QCOMPARE(QList<int>({session->GeneAt(0)->ID, session->GeneAt(0)->Generation}), QList<int>({42, 7}));
        QCOMPARE(session->GenomeImage.ReadCursor, 2);
    }

    void olderFormatLoadsAndSavesAsCurrent()
    {
        session->CompatibilityMode = QStringLiteral("1");
        // No magic; headers without MutabilityWeighting; a lobe of 112 bytes with 8-byte rules and
        // no propagation rules; an appearance of 2 bytes; then a colour gene to show the walk is right.
        QByteArray lobe = Hex("0102030401050607") + Hex("08");
        lobe += Hex("A0A1A2A3A4A5A6A7"); // StateRule
        lobe += Hex("0F");               // Flags at 17
        for (int i = 0; i < 2; ++i) {    // blocks at 18 and 65, 47 bytes each
            lobe += Hex("0305090308010100FF02") + Hex("14151617");
            lobe += Hex("1011121314151617"); // gain rule
            lobe += Hex("18");               // LoseStrength at 22
            lobe += Hex("2021222324252627"); // lose rule
            lobe += Hex("3031323334353637"); // susceptibility rule
            lobe += Hex("4041424344454647"); // reinforcement rule
        }
        QCOMPARE(lobe.size(), 112);
        const QByteArray file = Header(0, 0, 1, true) + lobe + Header(2, 2, 1, true) + Hex("0319")
                                + Header(2, 6, 1, true) + Hex("0280") + "gend";
        prompt.AnswerMessage(Prompt::Yes);
        QVERIFY(Decode(file));
        QCOMPARE(prompt.shown.size(), 1);
        QCOMPARE(prompt.Last().title, QStringLiteral("Compatibility Mode Warning"));
        QCOMPARE(prompt.Last().style, 4);
        QCOMPARE(prompt.Last().text, CompatibilityWarning);
        QCOMPARE(session->GeneCount, qint16(3));
        QCOMPARE(session->GenomeImage.CorrectedErrors, qint16(0));

        auto *l = At<clsBrainLobe>(0);
        QCOMPARE(int(l->MutabilityWeighting), 128);
        QCOMPARE(int(l->Flags), 0x0F);
        std::array<quint8, 12> state{0xA0, 0xA1, 0xA2, 0xA3, 0xA4, 0xA5, 0xA6, 0xA7, 0, 0, 0, 0};
        QCOMPARE(*l->StateRule, state);
        QCOMPARE(int(l->LoseStrength[1]), 0x18);
        QCOMPARE(int((*l->ReinforceRule2)[7]), 0x47);
        QVERIFY(!l->BPRule1 && !l->BPRule2 && !l->FPRule1 && !l->FPRule2);
        auto *app = At<clsAppearance>(1);
        QCOMPARE(QList<int>({app->Region, app->Variety, app->Genus, app->MutabilityWeighting}),
                 QList<int>({3, 25, 0, 128}));
        QCOMPARE(QList<int>({At<clsColour>(2)->Pigment, At<clsColour>(2)->Intensity}), QList<int>({2, 128}));

        // A save writes the current format, tells once, and ends the mode for the session.
        const QString path = sandbox->path() + QStringLiteral("/old.gen");
        prompt.AnswerMessage(Prompt::Ok);
        QVERIFY(session->SaveGenomeFile(path));
        QCOMPARE(prompt.shown.size(), 2);
        QCOMPARE(prompt.Last().text, Converted);
        QCOMPARE(prompt.Last().style, 64);
        QCOMPARE(session->CompatibilityMode, QStringLiteral("0"));
        const QByteArray saved = TestFiles::Read(path);
        QCOMPARE(saved.size(), 36001);

        auto rule8 = [](const char *hex) { return Hex(hex) + QByteArray(4, '\0'); };
        QByteArray lobe196 = Hex("010203040105060708") + rule8("A0A1A2A3A4A5A6A7") + Hex("0F");
        for (int i = 0; i < 2; ++i) {
            lobe196 += Hex("0305090308010100FF02") + Hex("14151617") + rule8("1011121314151617") + Hex("18")
                       + rule8("2021222324252627") + rule8("3031323334353637") + rule8("4041424344454647")
                       + QByteArray(24, '\0');
        }
        QCOMPARE(lobe196.size(), 196);
        auto header = [](int type, int sub) { return Header(type, sub, 1, true) + char(0x80); };
        const QByteArray current = "dna2" + header(0, 0) + lobe196 + header(2, 2) + Hex("031900") + header(2, 6)
                                   + Hex("0280") + "gend";
        QCOMPARE(saved.left(current.size()), current);

        session->EncodeGenome();
        QCOMPARE(prompt.shown.size(), 2);

        // The saved file reads back in the current format.
        QVERIFY(Decode(saved.left(current.size())));
        QCOMPARE(session->GeneCount, qint16(3));
        QCOMPARE(*At<clsBrainLobe>(0)->BPRule1, (std::array<quint8, 12>{}));
    }

    void olderFormatRefused()
    {
        session->CompatibilityMode = QStringLiteral("1");
        prompt.AnswerMessage(Prompt::No);
        QVERIFY(!Decode(Header(2, 6, 1, true) + Hex("0280") + "gend"));
        QCOMPARE(prompt.shown.size(), 1);
        QCOMPARE(session->GeneCount, qint16(0));
        QCOMPARE(session->CompatibilityMode, QStringLiteral("1"));
    }

    void overflowAsksAfterEachGene()
    {
        // Half-lives genes take 267 bytes each: after the 131st the image is past 34,976.
        MakeHalfLives(133);
        prompt.AnswerMessage(Prompt::Yes).AnswerMessage(Prompt::No);
        session->EncodeGenome();
        QCOMPARE(prompt.shown.size(), 2);
        QCOMPARE(prompt.shown[0].title, QStringLiteral("Now we're pickled"));
        QCOMPARE(prompt.shown[0].style, 4);
        QCOMPARE(prompt.shown[0].text, Pickled);
        // Yes after gene 131, No after gene 132: gene 133 stays out, "gend" ends the image.
        const int end = 4 + 267 * 132;
        QCOMPARE(session->GenomeImage.WriteCursor, end + 4);
        QCOMPARE(ImageBytes(end + 4).mid(end), QByteArray("gend"));
        QCOMPARE(session->GeneCount, qint16(133));

        // Yes to everything runs off the block without writing outside it.
        session->ClearGeneList();
        MakeHalfLives(140);
        for (int i = 131; i <= 140; ++i)
            prompt.AnswerMessage(Prompt::Yes);
        session->EncodeGenome();
        QCOMPARE(prompt.shown.size(), 2 + 10);
        QCOMPARE(session->GenomeImage.WriteCursor, GenomeImage::Size);
        QVERIFY(session->GenomeImage.RefusedWrites > 0);
    }

    // The tables that name a field have as many rows as the reader allows values.
    void tablesMatchTheReaders()
    {
        ReferenceTables &t = session->Tables;
        t.Build();
        QCOMPARE(int(t.SpeciesNames.indexOf(QString())), 4); // Genus 0..3
        QCOMPARE(int(t.LifeStageNames.size()) - 1, 7);       // SwitchOn 0..6, row 7 for a bad value
        QCOMPARE(t.LifeStageNames.at(ReferenceTables::LifeStageCount), QStringLiteral("-Invalid-"));
        QCOMPARE(int(t.LobeNames.size()), 8);                 // instinct lobe 0..7
        QCOMPARE(int(t.ActionNames.size()), 16);              // Motor 0..15
        QCOMPARE(int(t.OrganTargetNames.size()), 3);          // Organ 0..2
        QCOMPARE(int(t.GeneTypeNames.size()), GeneKinds::TypeCount);
        const QStringList *subTables[] = {&t.BrainGeneNames, &t.BiochemistryGeneNames, &t.CreatureGeneNames,
                                          &t.OrganGeneNames};
        for (int type = 0; type < GeneKinds::TypeCount; ++type)
            QCOMPARE(int(subTables[type]->size()), GeneKinds::SubTypeCount[type]);
        QCOMPARE(t.SVRuleTokens.at(ReferenceTables::SVRuleTokenCount), QStringLiteral("<ERROR>"));
        QCOMPARE(t.LobeName(7), QStringLiteral("Attention/Seek o/ps"));
        QCOMPARE(t.LobeName(8), QStringLiteral("Lobe 8"));
    }

    void halfLifeNames()
    {
        ReferenceTables &t = session->Tables;
        t.Build();
        QCOMPARE(int(t.HalfLifeNames.size()), 32);
        // v / 8, half to even: 4 -> 0, 12 -> 2, 20 -> 2, 248 -> 31; 252..255 show the last row.
        const int values[] = {0, 3, 4, 5, 12, 20, 28, 248, 251, 252, 255};
        const char *names[] = {"Instantly", "Instantly", "Instantly", "0.4 secs", "1 sec", "1 sec", "5 secs",
                               "52 years", "52 years", "52 years", "52 years"};
        for (int i = 0; i < 11; ++i)
            QCOMPARE(t.HalfLifeName(values[i]), QString::fromLatin1(names[i]));
        QCOMPARE(t.HalfLifeName(244), QStringLiteral("26 years")); // 30.5 -> 30
        QCOMPARE(t.HalfLifeName(236), QStringLiteral("26 years")); // 29.5 -> 30
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

    void InstallEditors(std::function<void(Gene &)> controls = {})
    {
        session->EditorFactory = [this, controls](Gene &g) {
            auto *v = new FakeView(g, &disposed);
            v->controls = controls;
            return v;
        };
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
    int disposed = 0;
};

QTEST_GUILESS_MAIN(TestGenes)
#include "test_genes.moc"
