// The two summaries built from the gene list: the organ tree (membership by gene order, the
// node texts and keys, the statistics and the yields) and the genotype (counting by kind and
// by mark, the template comparison, the brain lobe rows and the state rule text).
#include "SummaryTestKit.h"
#include "core/Genotype.h"
#include "core/OrganLayout.h"
#include "core/genes/Biochemistry.h"
#include "core/genes/BrainLobe.h"
#include "support/ScriptedPrompt.h"

#include <QtTest>

using SummaryTestKit::Add;

// Writes each node as "parentKey > key | text | image"; the summary node has no key.
class RecordingSink : public OrganTreeSink
{
public:
    QStringList lines, keys;
    void Clear() override { lines.clear(), keys.clear(); }
    int AddNode(int parent, const QString &key, const QString &text, const QString &image) override
    {
        lines << QStringLiteral("%1 > %2 | %3 | %4").arg(parent < 0 ? QStringLiteral("root") : keys[parent], key, text, image);
        keys << key;
        return int(keys.size()) - 1;
    }
    void SetStatusText(const QString &) override {} // the tab's test checks the status line
};

class TestOrganGenotype : public QObject
{
    Q_OBJECT

    ScriptedPrompt prompt;
    std::unique_ptr<Session> session;
    Genotype::GenotypeCounts counts;

private slots:
    void init()
    {
        prompt.ProgressUnload();
        prompt.yields = 0;
        counts = {};
        session.reset(new Session(prompt));
        session->Tables.Build();
        SummaryTestKit::SetTemplate(*session);
        session->Lists.ChemicalNames[1] = QStringLiteral("A");
        session->Lists.ChemicalNames[2] = QStringLiteral("B");
    }

    void membershipFollowsGeneOrder()
    {
        Add<clsReceptor>(*session, 1, 0, 1, QStringLiteral("early")).Chem = 1; // 0 before any organ: outside
        Add(*session, 3, 0, 1, QStringLiteral("Heart"));                        // 1 organ 0
        Add<clsEmitter>(*session, 1, 1, 1, QStringLiteral("e1")).Chem = 2;     // 2
        Add<clsReaction>(*session, 1, 2, 1, QStringLiteral("r1"));              // 3
        Add<clsEmitter>(*session, 1, 1, 2, QStringLiteral("e2"), 16).Chem = 1; // 4 joins the open Emitters node
        Add(*session, 0, 1, 1, QStringLiteral("brain organ"));                  // 5 opens no organ and is no member
        Add<clsReceptor>(*session, 1, 0, 2, QStringLiteral("rc2"), 8);          // 6 still in organ 0
        Add(*session, 3, 0, 2, QStringLiteral("Empty"));                        // 7 organ 1

        RecordingSink sink;
        OrganTreeBuilder builder(*session);
        QVERIFY(builder.BuildOrganTree(sink));
        const QStringList expected{
            "root > or0 | Heart | organ",
            "or0 > em0 | Emitters | emitter",
            "em0 > voci0 | [002] - B [Chem = B] e1 | emitter",
            "or0 > reac0 | Reactions | reaction",
            "reac0 > voci1 | [003] - B <nothing> + <nothing> --> <nothing> + <nothing> (half life = 5 secs)  r1 | reaction",
            "em0 > voci2 | [004] - F [Chem = A] e2 | emitter",
            "or0 > recep0 | Receptors | receptor",
            "recep0 > voci3 | [006] - M [Chem = ] rc2 | receptor",
            "or0 >  | Emitters: 2, Receptors: 1, Reactions: 1 (Total: 4) | information",
            "root > or1 | Empty | organ",
            "or1 >  | Emitters: 0, Receptors: 0, Reactions: 0 (Total: 0) | information",
            "root > stat01 | Total genes in organ status | information",
            "stat01 > stat01_A | Emitters: 2 | emitter",
            "stat01 > stat01_B | Receptors: 1 | receptor",
            "stat01 > stat01_C | Reactions: 1 | reaction",
            "stat01 > stat01_D | Total genes in organs: 4 | information",
            "stat01 > stat01_E | Genes outside organs: 4 | information"};
        QCOMPARE(sink.lines, expected);
        QCOMPARE(prompt.yields, 0); // no progress window: no yields, no progress

        // A second build starts from nothing. While the window shows, events run and the bar
        // moves at the first gene and at each gene after an organ: 0 and 2 (90 x 2 / 8, to even).
        prompt.ProgressLoad(QStringLiteral("Updating organ layout..."));
        prompt.ProgressShow();
        QVERIFY(builder.BuildOrganTree(sink));
        QCOMPARE(sink.lines, expected);
        QCOMPARE(prompt.yields, 2);
        QCOMPARE(prompt.progressValue, 22);
    }

    void reactionFormula()
    {
        auto &r = Add<clsReaction>(*session, 1, 2, 5, QStringLiteral("sugar"), 24);
        // Two of chemical A and 16 of no chemical (the amount is not shown) give one of B.
        std::tie(r.Conc[0], r.Chem[0], r.Conc[1], r.Chem[2], r.Rate) = std::tuple(2, 1, 16, 2, 80);
        QCOMPARE(OrganLayout::OrganGeneText(*session, r), QStringLiteral("[000] - M 2A + <nothing> --> 1B + <nothing> (half life = 5 mins)  sugar"));
        r.Rate = 255; // past the last row of the table: the last row
        QVERIFY(OrganLayout::ReactionDetail(*session, r).endsWith(QStringLiteral("(half life = 52 years)  ")));
    }

    void everyKindAndMarkCounts()
    {
        // One gene of each of the sixteen kinds, in table order; rows 0..10 count one each, and
        // the mark rows count a gene once per mark.
        for (int k = 0; k < GeneKinds::Count; ++k)
            Add(*session, GeneKinds::At(k).type, GeneKinds::At(k).subType);
        session->GeneAt(5)->Mutability = 8 | 16;  // half-lives: no kind row, male and female
        session->GeneAt(10)->Mutability = 8 | 32 | 1; // pose: male and carried; bit 1 is no mark
        Genotype::CountGenome(*session, counts);
        QCOMPARE(counts.rows, (std::array<qint16, 14>{1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 2, 1, 1}));
    }

    void rowsCompareWithTemplate()
    {
        // Equal to the template reads 0, not "-"; 3 fewer than 43 and 3 more than 59 read
        // alike; 1 against a template of -3 reads 4; no genes read "-".
        counts.rows = {27, 40, 62, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1};
        session->Template.DefaultGeneCounts[13] = -3;
        const QList<QStringList> rows = Genotype::CategoryRows(*session, counts);
        QCOMPARE(rows[0] + rows[6], (QStringList{"Chemical Emitters", " 27", "0", "Poses", " 0", "-"}));
        QCOMPARE(rows[1][2] + rows[2][2] + rows.last()[2], QStringLiteral("334")); // "END" is not a row
    }

    void lobeRowsInGeneOrder()
    {
        auto &drive = Add<clsBrainLobe>(*session, 0, 0, 2, QStringLiteral("Drive"));
        std::tie(drive.Width, drive.Height) = std::tuple(0, 5); // no rule; a width of 0 still makes a row
        Add(*session, 1, 0);
        auto &wide = Add<clsBrainLobe>(*session, 0, 0, 9);
        std::tie(wide.Width, wide.Height, wide.StateRule) = std::tuple(64, 64, std::array<quint8, 12>{});
        const Genotype::LobeTable lobes = Genotype::LobeRows(*session);
        QCOMPARE(lobes.rows[0].join(QLatin1Char('|')), QStringLiteral(" 0|Drive| 0| 5| 0|<undefined>"));
        QCOMPARE(lobes.rows[1].join(QLatin1Char('|')), QStringLiteral(" 1|<no caption>| 64| 64| 4096|<empty>"));
        QCOMPARE(Genotype::BrainLobeSummaryText(lobes.neurones, lobes.lobes), QStringLiteral(" 4096 neurones in  2 lobes"));
        // Only entries 0..7 are read; token 41 is a word like any other, and a token past the
        // table shows that last word.
        QCOMPARE(Genotype::StateRuleSummary(std::array<quint8, 12>{1, 2, 3, 4, 22, 23, 24, 25, 26, 27, 28, 29}, session->Tables.SVRuleTokens),
                 QStringLiteral("0:1:64:255:32:128:rnd const:chem 4:"));
        QCOMPARE(Genotype::StateRuleSummary(std::array<quint8, 12>{41, 200, 40}, session->Tables.SVRuleTokens), QStringLiteral("<ERROR>:<ERROR>:random:"));
    }
};

QTEST_GUILESS_MAIN(TestOrganGenotype)
#include "test_organ_genotype.moc"
