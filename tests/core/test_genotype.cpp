// Genotype counting by kind and by mark, the template comparison, the brain lobe rows and
// the state rule text.
#include "SummaryTestKit.h"
#include "core/Genotype.h"
#include "core/genes/BrainLobe.h"
#include "support/ScriptedPrompt.h"

#include <QtTest>

using SummaryTestKit::Add;

class TestGenotype : public QObject
{
    Q_OBJECT

    ScriptedPrompt prompt;
    std::unique_ptr<Session> session;
    Genotype::GenotypeCounts counts;

private slots:
    void init()
    {
        counts = {};
        session.reset(new Session(prompt));
        session->Tables.Build();
        SummaryTestKit::SetTemplate(*session);
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

QTEST_GUILESS_MAIN(TestGenotype)
#include "test_genotype.moc"
