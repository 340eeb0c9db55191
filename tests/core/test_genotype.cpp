// Genotype counting by kind and by mark, the template comparison, the brain lobe rows and
// the state rule text.
#include "core/Gene.h"
#include "core/Genotype.h"
#include "core/Session.h"
#include "core/genes/BrainLobe.h"
#include "support/ScriptedPrompt.h"

#include <QtTest>

class TestGenotype : public QObject
{
    Q_OBJECT

    ScriptedPrompt prompt;
    std::unique_ptr<Session> session;
    Genotype::GenotypeCounts counts;

    Gene &Add(int type, int subType, quint8 mutability = 0, int id = 1)
    {
        Gene *g = GeneKinds::Make(*session, type, subType);
        g->ID = quint8(id);
        g->Mutability = mutability;
        g->Numeric_ID = session->GeneCount;
        session->GeneList[size_t(session->GeneCount++)].reset(g);
        return *g;
    }
    clsBrainLobe &AddLobe(int id, int width, int height, StateRule rule = {})
    {
        auto &lobe = static_cast<clsBrainLobe &>(Add(0, 0, 0, id));
        lobe.Width = quint8(width);
        lobe.Height = quint8(height);
        lobe.StateRule = rule;
        return lobe;
    }
    QString Summary(std::array<quint8, 12> rule) const
    {
        return Genotype::StateRuleSummary(rule, session->Tables.SVRuleTokens);
    }

private slots:
    void init()
    {
        prompt.Clear();
        prompt.ProgressUnload();
        prompt.yields = 0;
        counts = {};
        session.reset(new Session(prompt));
        session->Tables.Build();
        const qint32 presets[14] = {27, 43, 59, 8, 26, 4, 104, 19, 8, 12, 0, 8, 12, 0};
        std::copy(std::begin(presets), std::end(presets), session->Template.DefaultGeneCounts.begin());
    }

    void everyKindAndMarkCounts()
    {
        // One gene of each of the sixteen kinds, in table order; rows 0..10 count one each.
        for (int k = 0; k < GeneKinds::Count; ++k)
            Add(GeneKinds::At(k).type, GeneKinds::At(k).subType);
        session->GeneAt(5)->Mutability = 8 | 16;  // half-lives: no kind row, male and female
        session->GeneAt(0)->Mutability = 32;      // lobe: carried
        session->GeneAt(10)->Mutability = 8 | 32; // pose: male and carried
        session->GeneAt(14)->Mutability = 16 | 1; // pigment bleed: female
        counts.rows[3] = 40;                      // a recount starts from nothing
        Genotype::CountGenome(*session, counts);
        const std::array<qint16, 14> expected = {1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 2, 2, 2};
        QCOMPARE(counts.rows, expected);
        QCOMPARE(counts.lobes, qint16(1));
    }

    void rowsCompareWithTemplate()
    {
        counts.rows[0] = 27; // equal to the template: 0, not "-"
        counts.rows[1] = 40; // 3 fewer than 43 ...
        counts.rows[2] = 62; // ... and 3 more than 59 read alike
        counts.rows[13] = 1;
        session->Template.DefaultGeneCounts[13] = -3;
        QList<QStringList> rows = Genotype::CategoryRows(*session, counts);
        QCOMPARE(rows.size(), 14); // "END" is not a row
        QCOMPARE(rows[0], (QStringList{QStringLiteral("Chemical Emitters"), QStringLiteral(" 27"), QStringLiteral("0")}));
        QCOMPARE(rows[1][2], QStringLiteral("3"));
        QCOMPARE(rows[2][2], QStringLiteral("3"));
        QCOMPARE(rows[6], (QStringList{QStringLiteral("Poses"), QStringLiteral(" 0"), QStringLiteral("-")}));
        QCOMPARE(rows[13][2], QStringLiteral("4"));
        session->Template.DefaultGeneCounts[0] = 30; // the template reaches the next build of rows
        QCOMPARE(Genotype::CategoryRows(*session, counts)[0][2], QStringLiteral("3"));
    }

    void emptyGenomeStillShowsAllRows()
    {
        Genotype::CountGenome(*session, counts);
        const QList<QStringList> rows = Genotype::CategoryRows(*session, counts);
        QCOMPARE(rows.size(), 14);
        for (const QStringList &row : rows)
            QCOMPARE(row.mid(1), (QStringList{QStringLiteral(" 0"), QStringLiteral("-")}));
        const Genotype::LobeTable lobes = Genotype::LobeRows(*session);
        QCOMPARE(Genotype::GeneticSummaryText(session->GeneCount), QStringLiteral(" 0 gene(s) total."));
        QCOMPARE(Genotype::BrainLobeSummaryText(lobes.neurones, lobes.lobes), QStringLiteral(" 0 neurones in  0 lobes"));
    }

    void lobeRowsInGeneOrder()
    {
        Add(2, 1);
        AddLobe(4, 8, 3, std::array<quint8, 12>{9, 31, 16});
        Add(1, 0);
        AddLobe(2, 0, 5); // no rule; a width of 0 still makes a row
        AddLobe(9, 64, 64, std::array<quint8, 12>{});
        session->CaptionStore.SetCaption(0, 0, 4, QStringLiteral("Perception"));
        session->CaptionStore.SetCaption(0, 0, 2, QStringLiteral("Drive"));

        const Genotype::LobeTable lobes = Genotype::LobeRows(*session);
        QCOMPARE(lobes.rows.size(), 3);
        QCOMPARE(lobes.rows[0].join(QLatin1Char('|')), QStringLiteral(" 0|Perception| 8| 3| 24|state:PLUS:input:"));
        QCOMPARE(lobes.rows[1].join(QLatin1Char('|')), QStringLiteral(" 1|Drive| 0| 5| 0|<undefined>"));
        QCOMPARE(lobes.rows[2].mid(3).join(QLatin1Char('|')), QStringLiteral(" 64| 4096|<empty>"));
        QCOMPARE(Genotype::BrainLobeSummaryText(lobes.neurones, lobes.lobes), QStringLiteral(" 4120 neurones in  3 lobes"));
    }

    void stateRuleText()
    {
        QCOMPARE(Genotype::StateRuleSummary(StateRule(), session->Tables.SVRuleTokens), QStringLiteral("<undefined>"));
        QCOMPARE(Summary({0, 9, 10}), QStringLiteral("<empty>"));
        QCOMPARE(Summary({5, 33, 0, 9}), QStringLiteral("chem 0:TIMES:"));
        // Only entries 0..7 are read.
        QCOMPARE(Summary({1, 2, 3, 4, 22, 23, 24, 25, 26, 27, 28, 29}), QStringLiteral("0:1:64:255:32:128:rnd const:chem 4:"));
        // Token 41 is a word like any other; a token past the table shows that last word.
        QCOMPARE(Summary({41, 200, 40}), QStringLiteral("<ERROR>:<ERROR>:random:"));
    }

    void countYieldsBeforeEachGeneWhileProgressShows()
    {
        for (int i = 0; i < 4; ++i)
            Add(2, 3);
        Genotype::CountGenome(*session, counts);
        QCOMPARE(prompt.yields, 0);
        prompt.ProgressLoad(QStringLiteral("Updating genetic summary..."));
        prompt.ProgressShow();
        Genotype::CountGenome(*session, counts);
        QCOMPARE(prompt.yields, 4);
        QCOMPARE(prompt.progressValue, 68); // 90 x 3 / 4 = 67.5, to even
    }
};

QTEST_GUILESS_MAIN(TestGenotype)
#include "test_genotype.moc"
