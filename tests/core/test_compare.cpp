// Two genomes gene by gene: the reader of the other file, the matching, the field differences
// and their words, and the copy of genes into the open genome.
#include "core/Gene.h"
#include "core/Session.h"
#include "core/compare/GeneCopy.h"
#include "core/compare/GeneFields.h"
#include "core/compare/GenomeCompare.h"
#include "core/compare/OtherGenome.h"
#include "core/genes/Biochemistry.h"
#include "support/KindBodies.h"
#include "support/ScriptedPrompt.h"
#include "support/TestEnv.h"

#include <QDateTime>
#include <QDir>
#include <QtTest>

using namespace GenomeBytes;
using GenomeCompare::PairState;

namespace {

// One gene of every kind, the species first, each with the ID 1.
QByteArray EveryKind()
{
    QByteArray genes;
    const QList<Kind> kinds = Kinds();
    for (const Kind &k : kinds)
        if (k.type == 2 && k.subType == 1)
            genes += Header(k.type, k.subType) + k.body;
    for (const Kind &k : kinds)
        if (!(k.type == 2 && k.subType == 1))
            genes += Header(k.type, k.subType) + k.body;
    return genes;
}

// The record offset of the body of the gene of a kind in EveryKind().
int BodyAt(const QString &kindName)
{
    int at = 4; // "dna2"
    QList<Kind> kinds = Kinds();
    std::stable_partition(kinds.begin(), kinds.end(), [](const Kind &k) { return k.type == 2 && k.subType == 1; });
    for (const Kind &k : kinds) {
        if (QLatin1String(k.name) == kindName)
            return at + 11;
        at += 11 + int(k.body.size());
    }
    return -1;
}

QVector<int> States(const GenomeCompare::Comparison &c)
{
    QVector<int> s;
    for (const auto &p : c.pairs)
        s << int(p.state);
    return s;
}

} // namespace

class TestCompare : public QObject
{
    Q_OBJECT
    std::unique_ptr<SettingsSandbox> sandbox;
    ScriptedPrompt prompt;
    std::unique_ptr<Session> session;

    QString Write(const QString &name, const QByteArray &bytes)
    {
        const QString path = sandbox->path() + QLatin1Char('/') + name;
        if (!TestFiles::Write(path, bytes))
            return QString();
        return path;
    }
    // The open genome, decoded from file bytes as a load would.
    void Open(const QByteArray &file)
    {
        QVERIFY(DecodeBytes(*session, file));
    }
    std::unique_ptr<OtherGenome> ReadOther(const QByteArray &file)
    {
        auto other = std::make_unique<OtherGenome>(*session);
        other->Read(Write(QStringLiteral("other.gen"), file));
        return other;
    }

private slots:
    void init()
    {
        FreshSession(sandbox, prompt, session);
        session->Tables.Build();
        session->Lists.ChemicalNames[5] = QStringLiteral("Glucose");
        session->Lists.ChemicalNames[51] = QStringLiteral("ATP");
        session->Lists.ChemicalNames[200] = QStringLiteral("Toxin");
        session->Lists.PoseNames[42] = QStringLiteral("Wave");
    }
    void cleanup() { QVERIFY2(prompt.AllAnswered(), "a queued answer was not asked for"); }

    // Every bit of every body byte belongs to exactly one field, and no field reaches past the body.
    void fieldTablesCoverEveryBodyByteOnce()
    {
        for (int k = 0; k < GeneKinds::Count; ++k) {
            const GeneKindInfo &kind = GeneKinds::At(k);
            QVector<int> bits(kind.bodyBytes, 0);
            for (const GeneField &f : GeneFields::Body(kind.kind)) {
                QVERIFY2(f.offset + f.length <= kind.bodyBytes, qPrintable(f.name));
                for (int b = f.offset; b < f.offset + f.length; ++b) {
                    QVERIFY2((bits[b] & f.mask) == 0, qPrintable(QLatin1String(kind.className) + ": " + f.name));
                    bits[b] |= f.mask;
                }
            }
            for (int b = 0; b < kind.bodyBytes; ++b)
                QVERIFY2(bits[b] == 0xFF, qPrintable(QStringLiteral("%1 byte %2").arg(kind.className).arg(b)));
        }
    }

    // A genome against itself, and against its own file read back: every pair the same.
    void identicalGenomesAreAllSame()
    {
        Open(File(EveryKind()));
        const auto self = GenomeCompare::Compare(*session, *session);
        QCOMPARE(self.pairs.size(), 16);
        QCOMPARE(self.Count(PairState::Same), 16);

        Write(QStringLiteral("other.gno"), session->CaptionStore.FileBytes()); // else the default file is missed
        auto other = ReadOther(File(EveryKind()));
        QVERIFY(other->Loaded());
        QCOMPARE(other->Messages().join(QLatin1Char('|')), QString());
        const auto c = GenomeCompare::Compare(*session, other->Genome());
        QCOMPARE(c.Count(PairState::Same), 16);
        for (int i = 0; i < 16; ++i)
            QCOMPARE(c.pairs[i].left * 100 + c.pairs[i].right, i * 101);
    }

    // One byte changed on the right: exactly one field differs, named as the editor names it,
    // with both values in words.
    void oneChangedFieldIsNamed_data()
    {
        QTest::addColumn<QString>("kind");
        QTest::addColumn<int>("offset"); // in the body; negative: record offset - 11 of a header byte
        QTest::addColumn<int>("value");
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("left");
        QTest::addColumn<QString>("right");
        QTest::newRow("lobe source") << "clsBrainLobe" << 109 << 6 << "D1 growth: Source Lobe" << "4 (Noun i/ps)" << "6 (Decision o/ps)";
        QTest::newRow("lobe WTA") << "clsBrainLobe" << 21 << 0x0E << "Winner Takes All (WTA)" << "on" << "off";
        QTest::newRow("lobe spread") << "clsBrainLobe" << 25 << 1 << "D0 growth: Spread" << "3 (/| waS)" << "1 (/\\ Normal)";
        QTest::newRow("brain organ") << "clsBorgan" << 4 << 9 << "ATP Damage coeff." << "1" << "9";
        QTest::newRow("receptor chemical") << "clsReceptor" << 3 << 5 << "Chemical" << "51 (ATP)" << "5 (Glucose)";
        QTest::newRow("receptor locus") << "clsReceptor" << 2 << 1 << "Locus" << "34" << "1 (Repair Rate)";
        QTest::newRow("emitter type") << "clsEmitter" << 7 << 5 << "Emitter Type" << "1 (Digital)" << "0 (Analogue)";
        QTest::newRow("emitter tissue") << "clsEmitter" << 1 << 5 << "Tissue" << "17" << "5 (Drive levels)";
        QTest::newRow("reaction rate") << "clsReaction" << 8 << 16 << "Reaction Rate" << "0 (Instantly)" << "16 (1 sec)";
        QTest::newRow("half-life") << "clsHalfLives" << 200 << 248 << "Half life of chemical 200 (Toxin)" << "120 (2.5 hrs)" << "248 (52 years)";
        QTest::newRow("inject") << "clsInject" << 1 << 67 << "Concentration" << "66" << "67";
        QTest::newRow("stimulus neurone") << "clsStimulus" << 2 << 255 << "Sensory Neurone" << "254" << "255 (<none>)";
        QTest::newRow("species moniker") << "clsSpecies" << 1 << int('N') << "Mothers genome moniker" << "\"MUM1\"" << "\"NUM1\"";
        QTest::newRow("appearance") << "clsAppearance" << 1 << 2 << "Parts ID" << "25 (Z)" << "2 (C)";
        QTest::newRow("pose") << "clsPose" << 0 << 7 << "Pose" << "42 (Wave)" << "7";
        QTest::newRow("gait") << "clsGait" << 0 << 0 << "Gait" << "15 (Special gait 15)" << "0 (Normal gait)";
        QTest::newRow("instinct neurone") << "clsInstinct" << 1 << 17 << "Neurone 1" << "16 ( IT is <ID 16>)" << "17 ( IT is <ID 17>)";
        QTest::newRow("pigment") << "clsColour" << 0 << 0 << "Pigment" << "2 (Blue)" << "0 (Red)";
        QTest::newRow("pigment bleed") << "clsColourBleed" << 1 << 0x21 << "Swap" << "32" << "33";
        QTest::newRow("organ") << "clsOrgan" << 1 << 3 << "Organ vulnerability" << "2" << "3";
        QTest::newRow("switch on") << "clsPose" << -3 << 4 << "Switch On" << "3 (Youth)" << "4 (Adult)";
        QTest::newRow("sex") << "clsGait" << -2 << 0x1D << "Sex" << "F" << "M (and F)";
        QTest::newRow("mutable") << "clsGait" << -2 << 0x14 << "Mut." << "on" << "off";
        QTest::newRow("degree") << "clsInject" << -1 << 120 << "Degree" << "119" << "120";
    }
    void oneChangedFieldIsNamed()
    {
        QFETCH(QString, kind);
        QFETCH(int, offset);
        QFETCH(int, value);
        Open(File(EveryKind()));
        QByteArray right = File(EveryKind());
        const int at = BodyAt(kind) + offset;
        QVERIFY(quint8(right[at]) != value);
        right[at] = char(value);
        auto other = ReadOther(right);
        QVERIFY(other->Loaded());

        const auto c = GenomeCompare::Compare(*session, other->Genome());
        QCOMPARE(c.Count(PairState::Same), 15);
        QCOMPARE(c.Count(PairState::Changed), 1);
        const auto changed = std::find_if(c.pairs.cbegin(), c.pairs.cend(),
                                          [](const auto &p) { return p.state == PairState::Changed; });
        QCOMPARE(QLatin1String(GeneKinds::Of(changed->kind).className), kind);
        QCOMPARE(changed->changed.size(), 1);
        const GeneField &f = *changed->changed.first();
        const auto records = GenomeCompare::GeneRecords(*session), others = GenomeCompare::GeneRecords(other->Genome());
        QTEST(GeneFields::FieldName(*session, f), "name");
        QTEST(GeneFields::ValueText(*session, f, records[changed->left]), "left");
        QTEST(GeneFields::ValueText(*session, f, others[changed->right]), "right");
    }

    // Genes pair by kind, ID and Generation wherever they stand; the n-th of a key with the
    // n-th; a gene without a partner shows on its side, a right one behind its neighbour.
    void matchingAcrossReorderedGenes()
    {
        auto inject = [](int id, int generation = 9, int conc = 2) {
            QByteArray h = Header(1, 4, id);
            h[7] = char(generation);
            return h + char(1) + char(conc);
        };
        // Left: A1 B2 C3 D4 D4'. Right: B2 A1 E5 D4 D4'(changed) and A1 of another generation; E5
        // stands behind A1, its neighbour on the right.
        Open(File(inject(1) + inject(2) + inject(3) + inject(4) + inject(4, 9, 7)));
        auto other = ReadOther(File(inject(2) + inject(1) + inject(5) + inject(4) + inject(4, 9, 8) + inject(1, 10)));
        const auto c = GenomeCompare::Compare(*session, other->Genome());
        QVector<QPair<int, int>> sides;
        for (const auto &p : c.pairs)
            sides << QPair<int, int>(p.left, p.right);
        QCOMPARE(sides, (QVector<QPair<int, int>>{{0, 1}, {-1, 2}, {1, 0}, {2, -1}, {3, 3}, {4, 4}, {-1, 5}}));
        QCOMPARE(States(c), (QVector<int>{int(PairState::Same), int(PairState::OnlyRight), int(PairState::Same),
                                          int(PairState::OnlyLeft), int(PairState::Same), int(PairState::Changed),
                                          int(PairState::OnlyRight)}));
        QVERIFY(GenomeCompare::Shown(c.pairs[5], true, GeneKinds::IndexOf(GeneKind::Inject)));
        QVERIFY(!GenomeCompare::Shown(c.pairs[4], true, -1));
        QVERIFY(!GenomeCompare::Shown(c.pairs[5], false, GeneKinds::IndexOf(GeneKind::Pose)));
    }

    // Reading the other file changes nothing of the open session, and writes no file.
    void readingLeavesTheSessionAndFilesAlone()
    {
        Open(File(EveryKind()));
        session->CaptionStore.SetCaption(1, 0, 1, QStringLiteral("001 Mine"));
        session->CompatibilityMode = QStringLiteral("1");
        session->SummaryStale = true;
        const QByteArray image = ImageBytes(*session, GenomeImage::Size);
        const auto records = GenomeCompare::GeneRecords(*session);
        const QList<int> state = {session->GeneCount, session->CaptionStore.CaptionCount, session->GenomeImage.ReadCursor,
                                  session->GenomeImage.WriteCursor, session->GenomeImage.CorrectedErrors,
                                  session->SummaryStale, session->OrganViewStale};
        const QString panels = session->StatusPanel[1] + session->StatusPanel[2] + session->MainTitle;

        const QString path = Write(QStringLiteral("child.gen"), File(EveryKind()));
        Write(QStringLiteral("child.gno"), session->CaptionStore.FileBytes()); // the read finds its captions
        QDir dir(sandbox->path());
        auto listing = [&] {
            QStringList l;
            for (const QFileInfo &i : dir.entryInfoList(QDir::Files | QDir::NoDotAndDotDot, QDir::Name))
                l << i.fileName() + QString::number(i.size()) + i.lastModified().toString(Qt::ISODateWithMs);
            return l;
        };
        const QStringList before = listing();
        QSignalSpy refresh(session.get(), &Session::ViewsRefreshRequested);
        OtherGenome other(*session);
        QVERIFY(other.Read(path));
        QCOMPARE(other.Genome().GeneCount, 16);
        QCOMPARE(other.Genome().CaptionStore.GetCaption(1, 0, 1), QStringLiteral("001 Mine"));

        QCOMPARE(ImageBytes(*session, GenomeImage::Size), image);
        QCOMPARE(GenomeCompare::GeneRecords(*session), records);
        QCOMPARE((QList<int>{session->GeneCount, session->CaptionStore.CaptionCount, session->GenomeImage.ReadCursor,
                             session->GenomeImage.WriteCursor, session->GenomeImage.CorrectedErrors,
                             session->SummaryStale, session->OrganViewStale}),
                 state);
        QCOMPARE(session->StatusPanel[1] + session->StatusPanel[2] + session->MainTitle, panels);
        QCOMPARE(session->CompatibilityMode.Text(), QStringLiteral("1"));
        QCOMPARE(refresh.count(), 0);
        QCOMPARE(listing(), before);
        QVERIFY(prompt.shown.isEmpty());
    }

    // Whatever the other file is, the read ends with its messages and never takes the open
    // session's prompt; a damaged place is skipped as a load would after Yes.
    void damagedOrForeignFilesGiveTheirMessages_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<bool>("loaded");
        QTest::addColumn<int>("genes");
        QTest::addColumn<QString>("message");
        const QByteArray good = Header(1, 4, 1) + Hex("0102");
        QTest::newRow("truncated") << ("dna2" + good + good.left(5)) << false << 0
                                   << "Unable to lock onto valid data. Operation aborted.";
        QTest::newRow("foreign") << QByteArray("PNG\x0D\x0A some picture") << false << 0
                                 << "This is not a Arkenfold 2 Verdant DNA file.";
        QTest::newRow("too long") << QByteArray(GenomeImage::Size + 1, 'x') << false << 0
                                  << "File exceeds maximum length for genome (36000 bytes) Operation aborted";
        QTest::newRow("bad subtype") << File(good + Header(1, 9)) << false << 0
                                     << "Invalid Genome. Sub-type 9is not a valid sub type for gene type 1";
        QTest::newRow("damaged token") << File(good + "junk" + good + good) << true << 3
                                       << "Gene #1 is corrupted: ERROR. Corrupted genome. Expected 'gene', found 'junk'. "
                                          "Do you wish me to skip the offending gene and attempt to continue anyway? "
                                          "This could result in a bad genome. [answered Yes]";
        QTest::newRow("folded bytes") << File(Header(1, 0, 1) + Hex("0711223344006603")) << true << 1
                                      << " 1 genetic error(s) were corrected automatically";
        QTest::newRow("older format") << (Header(2, 2, 1, true) + Hex("0519") + "gend") << true << 1
                                      << "The file does not begin with 'dna2': it was read in the older format.";
    }
    void damagedOrForeignFilesGiveTheirMessages()
    {
        QFETCH(QByteArray, bytes);
        Open(File(EveryKind()));
        auto other = ReadOther(bytes);
        QTEST(other->Loaded(), "loaded");
        QTEST(int(other->Genome().GeneCount), "genes");
        QFETCH(QString, message);
        QVERIFY2(other->Messages().contains(message), qPrintable(other->Messages().join(QLatin1Char('|'))));
        QVERIFY(prompt.shown.isEmpty());
        const auto c = GenomeCompare::Compare(*session, other->Genome());
        QCOMPARE(c.Count(PairState::OnlyLeft) + c.Count(PairState::Same) + c.Count(PairState::Changed), 16);
    }

    // A missing file is a message too.
    void missingFileIsAMessage()
    {
        OtherGenome other(*session);
        QVERIFY(!other.Read(sandbox->path() + QStringLiteral("/gone.gen")));
        QCOMPARE(other.Messages(), QStringList{QStringLiteral("Can't find file '") + sandbox->path()
                                               + QStringLiteral("/gone.gen'")});
    }

    // A copy whose ID its kind already has takes the lowest spare one; its caption follows
    // with the new number, its notes come along; a free ID is kept. The summaries go stale.
    void copyTakesASpareIdWhenItsOwnIsTaken()
    {
        Open(File(Header(2, 1, 1) + Kinds()[8].body + Header(1, 0, 1) + Hex("0211223344006603")));
        session->CaptionStore.SetCaption(1, 0, 1, QStringLiteral("001 Mine - Receptor"));
        auto other = ReadOther(File(Header(1, 0, 1) + Hex("0100050A0B0C0D00") + Header(1, 0, 7) + Hex("0000000000000000")));
        Session &o = other->Genome();
        o.CaptionStore.SetCaption(1, 0, 1, QStringLiteral("001 Hunger - Receptor"));
        o.CaptionStore.SetAnnotation(1, 0, 1, QStringLiteral("{\\rtf1 a note}"));

        const QVector<int> added = GeneCopy::CopyGenes(*session, o, {0, 1});
        QCOMPARE(added, (QVector<int>{2, 3}));
        QCOMPARE(session->GeneCount, 4);
        auto *copy = static_cast<clsReceptor *>(session->GeneAt(2));
        QCOMPARE(QList<int>({copy->ID, copy->Generation, copy->Numeric_ID, copy->Chem, copy->Threshold, copy->Mutability}),
                 QList<int>({2, 9, 2, 0x0A, 0x0B, 0x15}));
        QCOMPARE(session->GeneAt(3)->ID, quint8(7));
        QCOMPARE(session->CaptionStore.GetCaption(1, 0, 2), QStringLiteral("002 Hunger - Receptor"));
        QCOMPARE(session->CaptionStore.GetAnnotation(1, 0, 2), QStringLiteral("{\\rtf1 a note}"));
        QCOMPARE(session->CaptionStore.GetCaption(1, 0, 1), QStringLiteral("001 Mine - Receptor"));
        QCOMPARE(session->CaptionStore.GetCaption(1, 0, 7), QStringLiteral("<no caption>"));
        QVERIFY(session->SummaryStale && session->OrganViewStale);
        QCOMPARE(session->StatusPanel[2], QStringLiteral("100% genome space remaining"));

        // The copy and its original now compare the same but for the ID: a pair again after
        // comparing the copy's record with the original's under its new ID.
        auto records = GenomeCompare::GeneRecords(*session);
        auto theirs = GenomeCompare::GeneRecords(o);
        theirs[0][6] = char(2);
        QCOMPARE(records[2], theirs[0]);
        QCOMPARE(o.GeneCount, 2); // the source keeps its genes
    }

    // Refusals copy nothing: a second Genus gene, the gene limit, the image's size.
    void refusedCopiesCopyNothing_data()
    {
        QTest::addColumn<int>("lobes");   // brain lobes in the open genome beside its species gene
        QTest::addColumn<int>("injects"); // inject genes in the open genome
        QTest::addColumn<bool>("genus");  // the copy includes the other genome's species gene
        QTest::addColumn<QString>("message");
        QTest::newRow("genus") << 0 << 0 << true << "Cannot create second Genus gene";
        QTest::newRow("limit") << 0 << 897 << false
                               << "Reached the limit of 900 genes.\r\nThe genome has 898 genes, and 2 more would pass it. "
                                  "Nothing was copied.";
        // 4 + 20 + 168 * 207 = 34800 bytes; two lobes more need 414 of the 176 left.
        QTest::newRow("space") << 168 << 0 << false
                               << "Not enough genome space to copy 2 gene(s): they need 414 bytes, and 176 are left.\r\n"
                                  "Nothing was copied.";
    }
    void refusedCopiesCopyNothing()
    {
        QFETCH(int, lobes);
        QFETCH(int, injects);
        QFETCH(bool, genus);
        QByteArray genes = Header(2, 1, 1) + Kinds()[8].body;
        for (int i = 0; i < lobes; ++i)
            genes += Header(0, 0, i % 256) + LobeBody();
        for (int i = 0; i < injects; ++i)
            genes += Header(1, 4, i % 256) + Hex("0102");
        std::fill(session->GenomeImage.Bytes.begin(), session->GenomeImage.Bytes.end(), 0);
        const QByteArray file = File(genes);
        std::copy(file.begin(), file.end(), reinterpret_cast<char *>(session->GenomeImage.Bytes.data()));
        QVERIFY(session->DecodeGenome());
        auto other = ReadOther(File(Header(2, 1, 1) + Kinds()[8].body + Header(0, 0, 1) + LobeBody()
                                    + Header(0, 0, 2) + LobeBody()));
        const int before = session->GeneCount;
        const int captions = session->CaptionStore.CaptionCount;
        prompt.AnswerMessage(Prompt::Ok);
        const QVector<int> which = genus ? QVector<int>{1, 0} : QVector<int>{1, 2};
        QVERIFY(GeneCopy::CopyGenes(*session, other->Genome(), which).isEmpty());
        QTEST(prompt.Last().text, "message");
        QCOMPARE(session->GeneCount, before);
        QCOMPARE(session->CaptionStore.CaptionCount, captions);
        QVERIFY(!session->SummaryStale);
    }

    // The space test counts as an encode does: a copy that just fits goes through without the
    // out-of-space question.
    void copyThatJustFitsAsksNothing()
    {
        QByteArray genes = Header(2, 1, 1) + Kinds()[8].body;
        for (int i = 0; i < 167; ++i)
            genes += Header(0, 0, i) + LobeBody();
        Open(File(genes));
        QCOMPARE(GeneCopy::EncodedLength(*session), 4 + 20 + 167 * 207);
        auto other = ReadOther(File(Header(0, 0, 1) + LobeBody()));
        QCOMPARE(GeneCopy::CopyGenes(*session, other->Genome(), {0}), QVector<int>{168});
        QCOMPARE(session->GenomeImage.WriteCursor, 4 + 20 + 168 * 207 + 4);
        QCOMPARE(session->GeneAt(168)->ID, quint8(167));
    }
};

QTEST_GUILESS_MAIN(TestCompare)
#include "test_compare.moc"
