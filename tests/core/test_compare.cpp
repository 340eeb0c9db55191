// Two genomes gene by gene: the reader of the other file, the matching, the field differences
// and their words, and the copy of genes into the open genome.
#include "core/Gene.h"
#include "core/compare/GeneCopy.h"
#include "core/compare/GenomeCompare.h"
#include "core/compare/OtherGenome.h"
#include "support/KindBodies.h"
#include "support/ScriptedPrompt.h"
#include "support/TestEnv.h"

#include <QtTest>

using namespace GenomeBytes;
using GenomeCompare::PairState;

namespace {

// One gene of every kind, each with the ID 1; `at` gets the file offset of
// the body of the gene of `kindName`.
QByteArray EveryKind(const QString &kindName = QString(), int *at = nullptr)
{
    QByteArray genes;
    for (const Kind &k : Kinds()) {
        if (at && QLatin1String(k.name) == kindName)
            *at = 4 + int(genes.size()) + GeneFields::BodyStart;
        genes += Header(k.type, k.subType) + k.body;
    }
    return File(genes);
}

} // namespace

class TestCompare : public QObject
{
    Q_OBJECT
    std::unique_ptr<SettingsSandbox> sandbox;
    ScriptedPrompt prompt;
    std::unique_ptr<Session> session;

    // The other genome, read from the file other.gen holding `file`.
    std::unique_ptr<OtherGenome> ReadOther(const QByteArray &file)
    {
        TestFiles::Write(sandbox->path() + QStringLiteral("/other.gen"), file);
        auto other = std::make_unique<OtherGenome>(*session);
        other->Read(sandbox->path() + QStringLiteral("/other.gen"));
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

    // One byte changed on the right: exactly one field differs, named as the editor names it,
    // with both values in words.
    void oneChangedFieldIsNamed_data()
    {
        QTest::addColumn<QString>("kind");
        QTest::addColumn<int>("offset"); // in the body; negative: a header byte before it
        QTest::addColumn<int>("value");
        QTest::addColumn<QString>("shown"); // the field's name|its value on the left|on the right
        QTest::newRow("lobe source") << "clsBrainLobe" << 109 << 6 << "D1 growth: Source Lobe|4 (Noun i/ps)|6 (Decision o/ps)";
        QTest::newRow("lobe copy") << "clsBrainLobe" << 4 << 1 << "Data copied to Perception Lobe?|2 (Mutually exclusive)|1 (Yes)";
        QTest::newRow("receptor chemical") << "clsReceptor" << 3 << 5 << "Chemical|51 (ATP)|5 (Glucose)";
        QTest::newRow("emitter tissue") << "clsEmitter" << 1 << 5 << "Tissue|17|5 (Drive levels)";
        QTest::newRow("reaction rate") << "clsReaction" << 8 << 16 << "Reaction Rate|0 (Instantly)|16 (1 sec)";
        QTest::newRow("half-life") << "clsHalfLives" << 200 << 248 << "Half life of chemical 200 (Toxin)|120 (2.5 hrs)|248 (52 years)";
        QTest::newRow("stimulus neurone") << "clsStimulus" << 2 << 255 << "Sensory Neurone|254|255 (<none>)";
        QTest::newRow("species moniker") << "clsSpecies" << 1 << int('N') << "Mothers genome moniker|\"MUM1\"|\"NUM1\"";
        QTest::newRow("appearance") << "clsAppearance" << 1 << 2 << "Parts ID|25 (Z)|2 (C)";
        QTest::newRow("pose") << "clsPose" << 0 << 7 << "Pose|42 (Wave)|7";
        QTest::newRow("gait") << "clsGait" << 0 << 0 << "Gait|15 (Special gait 15)|0 (Normal gait)";
        QTest::newRow("gait pose") << "clsGait" << 2 << 0 << "Pose 2|2|0 (<empty>)";
        QTest::newRow("instinct neurone") << "clsInstinct" << 1 << 17 << "Neurone 1|16 ( IT is <ID 16>)|17 ( IT is <ID 17>)";
        QTest::newRow("pigment") << "clsColour" << 0 << 0 << "Pigment|2 (Blue)|0 (Red)";
        QTest::newRow("switch on") << "clsPose" << -3 << 4 << "Switch On|3 (Youth)|4 (Adult)";
        QTest::newRow("sex") << "clsGait" << -2 << 0x1D << "Sex|F|M (and F)";
    }
    void oneChangedFieldIsNamed()
    {
        QFETCH(QString, kind);
        QFETCH(int, offset);
        QFETCH(int, value);
        int at = -1;
        QByteArray right = EveryKind(kind, &at);
        QVERIFY(DecodeBytes(*session, right) && quint8(right[at + offset]) != value);
        right[at + offset] = char(value);
        auto other = ReadOther(right);
        const auto c = GenomeCompare::Compare(*session, other->Genome());
        const auto p = std::find_if(c.pairs.cbegin(), c.pairs.cend(), [](const auto &q) { return q.state == PairState::Changed; });
        QVERIFY(c.Count(PairState::Same) == 15 && p != c.pairs.cend() && p->changed.size() == 1);
        QCOMPARE(QLatin1String(GeneKinds::Of(p->kind).className), kind);
        const GeneField &field = *p->changed[0];
        QTEST(GeneFields::FieldName(*session, field) + '|'
                  + GeneFields::ValueText(*session, field, GenomeCompare::GeneRecords(*session)[p->left]) + '|'
                  + GeneFields::ValueText(*session, field, GenomeCompare::GeneRecords(other->Genome())[p->right]),
              "shown");
    }

    // Genes pair by kind, ID and Generation wherever they stand, the n-th of a key with the
    // n-th; a gene without a partner shows on its side, a right one behind its neighbour.
    void matchingAcrossReorderedGenes()
    {
        auto inject = [](int id, int generation = 9, int conc = 2) {
            return Header(1, 4, id).replace(7, 1, QByteArray(1, char(generation))) + char(1) + char(conc);
        };
        // Left: A1 B2 C3 D4 D4'. Right: B2, A1 of another generation, A1, E5, D4, D4'(changed).
        QVERIFY(DecodeBytes(*session, File(inject(1) + inject(2) + inject(3) + inject(4) + inject(4, 9, 7))));
        auto other = ReadOther(File(inject(2) + inject(1, 10) + inject(1) + inject(5) + inject(4) + inject(4, 9, 8)));
        const auto c = GenomeCompare::Compare(*session, other->Genome());
        QStringList rows;
        for (const auto &p : c.pairs)
            rows << QStringLiteral("%1:%2 %3").arg(p.left).arg(p.right).arg(GenomeCompare::StateText(p.state));
        QCOMPARE(rows.join(QStringLiteral(", ")),
                 QStringLiteral("0:2 same, -1:3 only right, 1:0 same, -1:1 only right, 2:-1 only left, 3:4 same, 4:5 changed"));
    }

    // A file in the older format is read without the question a load asks of it, and the read
    // ends with its messages instead of taking the open session's prompt. (A foreign or truncated
    // file is the compare window's test.)
    void anOlderFileIsReadWithItsMessages()
    {
        auto other = ReadOther(Header(2, 2, 1, true) + Hex("0519") + "gend");
        QVERIFY(other->Loaded() && other->Genome().GeneCount == 1);
        QCOMPARE(other->Messages(), QStringList({"The file does not begin with 'dna2': it was read in the older format.",
                                                 "Error reading caption file 'Melk.GNO' Description: Error ID 53 (File not found)"}));
    }

    // A copy whose ID its kind already has takes the lowest spare one, its caption the new
    // number, its notes along, its bytes otherwise as they were; a free ID is kept.
    void copyTakesASpareIdWhenItsOwnIsTaken()
    {
        QVERIFY(DecodeBytes(*session, File(Header(2, 1, 1) + Kinds()[8].body + Header(1, 0, 1) + Hex("0211223344006603"))));
        // The other genome's caption and note come from its own caption file, written from ours.
        CaptionStore &store = session->CaptionStore;
        store.SetCaption(1, 0, 1, QStringLiteral("001 Hunger - Receptor"));
        store.SetAnnotation(1, 0, 1, QStringLiteral("{\\rtf1 a note}"));
        TestFiles::Write(sandbox->path() + QStringLiteral("/other.gno"), store.FileBytes());
        store.SetCaption(1, 0, 1, QStringLiteral("001 Mine - Receptor"));
        store.SetAnnotation(1, 0, 1, QString());
        auto other = ReadOther(File(Header(1, 0, 1) + Hex("0100050A0B0C0D00") + Header(1, 0, 7) + Hex("0000000000000000")));
        Session &o = other->Genome();

        QCOMPARE(GeneCopy::CopyGenes(*session, o, {0, 1}), (QVector<int>{2, 3}));
        auto theirs = GenomeCompare::GeneRecords(o);
        theirs[0][6] = char(2); // ID 1 is taken, 7 is not
        QCOMPARE(GenomeCompare::GeneRecords(*session).mid(2), theirs);
        QCOMPARE(QStringList({store.GetCaption(1, 0, 2), store.GetAnnotation(1, 0, 2), store.GetCaption(1, 0, 1)}),
                 QStringList({"002 Hunger - Receptor", "{\\rtf1 a note}", "001 Mine - Receptor"}));
        QVERIFY(session->SummaryStale && session->OrganViewStale && o.GeneCount == 2);
    }

    // A copy that brings the image exactly to its limit is taken: 4 + 20 + 167 * 207 + 5 * 20
    // + 4 * 19 = 34769 bytes, and one lobe more makes 34976.
    void copyUpToTheLimitIsTaken()
    {
        const QByteArray fill = (Header(0, 0, 1) + LobeBody()).repeated(167) + (Header(2, 4, 1) + Kinds()[11].body).repeated(5)
                                + (Header(1, 0, 1) + Kinds()[2].body).repeated(4);
        QVERIFY(DecodeBytes(*session, File(Header(2, 1, 1) + Kinds()[8].body + fill)));
        auto other = ReadOther(File(Header(2, 1, 1) + Kinds()[8].body + Header(0, 0, 2) + LobeBody()));
        QCOMPARE(GeneCopy::CopyGenes(*session, other->Genome(), {1}), QVector<int>{177});
    }

    // Refusals copy nothing: a second Genus gene, the gene limit, the image's size.
    void refusedCopiesCopyNothing_data()
    {
        QTest::addColumn<QByteArray>("gene"); // the open genome: a species gene and this gene, `count` times
        QTest::addColumn<int>("count");
        QTest::addColumn<bool>("genus");  // the copy includes the other genome's species gene
        QTest::addColumn<QString>("message");
        QTest::newRow("genus") << QByteArray() << 0 << true << "Cannot create second Genus gene";
        QTest::newRow("limit") << (Header(1, 4, 1) + Hex("0102")) << 897 << false
                               << "Reached the limit of 900 genes.\r\nThe genome has 898 genes, and 2 more would pass it. Nothing was copied.";
        // 4 + 20 + 168 * 207 = 34800 bytes; two lobes more need 414 of the 176 left.
        QTest::newRow("space") << (Header(0, 0, 1) + LobeBody()) << 168 << false
                               << "Not enough genome space to copy 2 gene(s): they need 414 bytes, and 176 are left.\r\nNothing was copied.";
    }
    void refusedCopiesCopyNothing()
    {
        QFETCH(QByteArray, gene);
        QFETCH(int, count);
        QFETCH(bool, genus);
        QVERIFY(DecodeBytes(*session, File(Header(2, 1, 1) + Kinds()[8].body + gene.repeated(count))));
        auto other = ReadOther(File(Header(2, 1, 1) + Kinds()[8].body + Header(0, 0, 1) + LobeBody() + Header(0, 0, 2) + LobeBody()));
        prompt.AnswerMessage(Prompt::Ok);
        QVERIFY(GeneCopy::CopyGenes(*session, other->Genome(), genus ? QVector<int>{1, 0} : QVector<int>{1, 2}).isEmpty());
        QTEST(prompt.Last().text, "message");
    }
};

QTEST_GUILESS_MAIN(TestCompare)
#include "test_compare.moc"
