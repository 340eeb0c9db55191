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
        prompt.ProgressUnload();
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
        session->GeneAt(0)->Mutability = 32;      // lobe: carried
        session->GeneAt(10)->Mutability = 8 | 32; // pose: male and carried
        session->GeneAt(14)->Mutability = 16 | 1; // pigment bleed: female
        Genotype::CountGenome(*session, counts);
        QCOMPARE(prompt.yields, 0); // no progress window, no yields
        // A recount starts from nothing; while the window shows it yields and moves the bar
        // before each gene (the last at 90 x 15 / 16).
        prompt.ProgressLoad(QStringLiteral("Updating genetic summary..."));
        prompt.ProgressShow();
        Genotype::CountGenome(*session, counts);
        QCOMPARE(prompt.yields, 16);
        QCOMPARE(prompt.progressValue, 84);
        QCOMPARE(counts.rows, (std::array<qint16, 14>{1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 2, 2, 2}));
        QCOMPARE(counts.lobes, qint16(1));
    }

    void rowsCompareWithTemplate()
    {
        // Equal to the template reads 0, not "-"; 3 fewer than 43 and 3 more than 59 read
        // alike; 1 against a template of -3 reads 4; no genes read "-".
        counts.rows = {27, 40, 62, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1};
        session->Template.DefaultGeneCounts[13] = -3;
        const QList<QStringList> rows = Genotype::CategoryRows(*session, counts);
        QCOMPARE(rows.size(), 14); // "END" is not a row
        QCOMPARE(rows[0], (QStringList{"Chemical Emitters", " 27", "0"}));
        QCOMPARE(rows[1][2] + rows[2][2] + rows[13][2], QStringLiteral("334"));
        QCOMPARE(rows[6], (QStringList{"Poses", " 0", "-"}));
    }

    void lobeRowsInGeneOrder()
    {
        auto lobe = [&](int id, quint8 width, quint8 height, StateRule rule, const QString &caption = {}) {
            auto &l = Add<clsBrainLobe>(*session, 0, 0, id, caption);
            std::tie(l.Width, l.Height, l.StateRule) = std::tie(width, height, rule);
        };
        Add(*session, 2, 1);
        lobe(4, 8, 3, std::array<quint8, 12>{9, 31, 16}, QStringLiteral("Perception"));
        Add(*session, 1, 0);
        lobe(2, 0, 5, {}, QStringLiteral("Drive")); // no rule; a width of 0 still makes a row
        lobe(9, 64, 64, std::array<quint8, 12>{});
        const Genotype::LobeTable lobes = Genotype::LobeRows(*session);
        QCOMPARE(lobes.rows[0].join(QLatin1Char('|')), QStringLiteral(" 0|Perception| 8| 3| 24|state:PLUS:input:"));
        QCOMPARE(lobes.rows[1].join(QLatin1Char('|')), QStringLiteral(" 1|Drive| 0| 5| 0|<undefined>"));
        QCOMPARE(lobes.rows[2].mid(3).join(QLatin1Char('|')), QStringLiteral(" 64| 4096|<empty>"));
        QCOMPARE(Genotype::BrainLobeSummaryText(lobes.neurones, lobes.lobes), QStringLiteral(" 4120 neurones in  3 lobes"));
        // Only entries 0..7 are read; token 41 is a word like any other, and a token past the
        // table shows that last word.
        const QStringList &words = session->Tables.SVRuleTokens;
        QCOMPARE(Genotype::StateRuleSummary(std::array<quint8, 12>{1, 2, 3, 4, 22, 23, 24, 25, 26, 27, 28, 29}, words),
                 QStringLiteral("0:1:64:255:32:128:rnd const:chem 4:"));
        QCOMPARE(Genotype::StateRuleSummary(std::array<quint8, 12>{41, 200, 40}, words), QStringLiteral("<ERROR>:<ERROR>:random:"));
    }
};

QTEST_GUILESS_MAIN(TestGenotype)
#include "test_genotype.moc"
