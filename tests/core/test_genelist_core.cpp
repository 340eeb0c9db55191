// The gene list without widgets: each gene's row texts and the gene commands' logic, and the
// two summaries built from the list: the organ tree (membership by gene order, the node texts
// and keys, the statistics) and the genotype (counting by kind and by mark, the template
// comparison, the brain lobe rows and the state rule text).
#include "SummaryTestKit.h"
#include "core/GeneCommands.h"
#include "core/Genotype.h"
#include "core/OrganLayout.h"
#include "core/genes/Biochemistry.h"
#include "core/genes/BodyGenes.h"
#include "core/genes/BrainLobe.h"
#include "support/ScriptedPrompt.h"

#include <QSignalSpy>
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

class TestGeneListCore : public QObject
{
    Q_OBJECT
    ScriptedPrompt prompt;
    std::unique_ptr<Session> session;

private slots:
    void init()
    {
        prompt.Clear();
        session.reset(new Session(prompt));
        session->Tables.Build();
        SummaryTestKit::SetTemplate(*session);
        session->Lists.ChemicalNames[1] = QStringLiteral("A");
        session->Lists.ChemicalNames[2] = QStringLiteral("B");
    }
    void cleanup() { QVERIFY2(prompt.AllAnswered(), "a queued answer was not asked for"); }

    void rowTextsAndKindDescriptions()
    {
        session->Lists.ChemicalNames[5] = QStringLiteral("Glucose"), session->Lists.PoseNames[12] = QStringLiteral("Sit down");
        auto *receptor = &Add<clsReceptor>(*session, 1, 0, 7, QStringLiteral("007 Hunger - Receptor"));
        receptor->Chem = 5, receptor->Generation = 3, receptor->SwitchOn = 4, receptor->MutabilityWeighting = 200;
        receptor->Mutability = 8 | 16 | 32; // both sexes: male shows; carried: brackets
        auto *pose = &Add<clsPose>(*session, 2, 3, 12);
        pose->pose = 12, pose->Mutability = 16;
        QCOMPARE(GeneCommands::RowTexts(*session, *receptor),
                 QStringList({"000", "3", "007", "Adult", "m", "(200)", "007 Hunger - Receptor",
                              "Biochemistry: Chemical Receptor (Glucose)"}));
        QCOMPARE(GeneCommands::RowTexts(*session, *pose),
                 QStringList({"001", "0", "012", "Embryo", "f", "0", "<no caption>", "Creature: Pose (Sit down)"}));
        pose->GeneSubType = 9;
        QCOMPARE(GeneCommands::DescribeGene(*session, *pose, true), QStringLiteral("Creature: <unknown id 9>"));
        pose->GeneType = 5;
        prompt.AnswerMessage(Prompt::Ok);
        GeneCommands::EditGene(*session, 1);
        QCOMPARE(prompt.Last().text, QStringLiteral("No editor available for gene type '<unknown type  5>: <ignored  9>'"));
    }

    // Deleting a gene empties the caption record of its key only when no other gene holds it.
    void deleteEmptiesTheRecordOfItsLastHolderOnly()
    {
        Add(*session, 1, 0, 4, QStringLiteral("004 Shared"));
        Add(*session, 1, 0, 4); // the same key
        Add(*session, 1, 1, 4, QStringLiteral("004 Emitter"));
        session->CaptionStore.SetAnnotation(1, 0, 4, QStringLiteral("a long note"));
        QVERIFY(GeneCommands::DeleteGene(*session, 0, true));
        QCOMPARE(session->CaptionStore.GetCaption(1, 0, 4), QStringLiteral("004 Shared"));
        QVERIFY(GeneCommands::DeleteGene(*session, 0, true));
        QCOMPARE(session->CaptionStore.GetCaption(1, 0, 4) + session->CaptionStore.GetAnnotation(1, 0, 4), QString());
        QCOMPARE(session->CaptionStore.GetCaption(1, 1, 4), QStringLiteral("004 Emitter"));
    }

    // A value a byte cannot hold is refused; otherwise the leading number is taken, the row
    // follows, and each gene of the same kind with the new ID is warned of.
    void changeIdRefusesTakesTheLeadingNumberAndWarns()
    {
        Gene *a = &Add(*session, 2, 4, 3);
        Add(*session, 2, 5, 255); // another kind with the new ID: no warning
        Add(*session, 2, 4, 255, QStringLiteral("255 Walk - Gait"));
        Add(*session, 2, 4, 255);
        QSignalSpy rows(session.get(), &Session::GeneRowChanged);
        prompt.AnswerInput(QStringLiteral("256")).AnswerMessage(Prompt::Ok);
        GeneCommands::ChangeID(*session, 0);
        QCOMPARE(prompt.shown[0].title + '|' + prompt.shown[0].text, QStringLiteral("Change ID|Change ID for '3' [3]"));
        QCOMPARE(prompt.Last().text, QStringLiteral("A gene ID must be a number from 0 to 255, and '256' is not.\r\nThe gene keeps its ID 3."));
        QCOMPARE(QList<int>({a->ID, int(rows.count())}), QList<int>({3, 0}));

        prompt.AnswerInput(QStringLiteral("  255 lobes")).AnswerMessage(Prompt::Ok).AnswerMessage(Prompt::Ok);
        GeneCommands::ChangeID(*session, 0);
        QCOMPARE(QList<int>({a->ID, int(rows.count())}), QList<int>({255, 1}));
        const QString lead = QStringLiteral("Caution. Duplicate ID for 255 found:\r\nGene # is ");
        QCOMPARE(prompt.MessageTexts().mid(1), QStringList({lead + "2 (255 Walk - Gait)", lead + "3 (255 Walk - Gait)"}));
    }

    // The refusals of the move and new-gene commands, in order; then a gene of a row of the
    // new-gene dialog is made with its caption, and the image is encoded anew for the space figure
    // (the dialog's test has the gene limit).
    void refusalsThenAGeneOfARow()
    {
        prompt.AnswerMessage(Prompt::Ok).AnswerMessage(Prompt::No).AnswerMessage(Prompt::Ok);
        QVERIFY(!GeneCommands::MayMoveUp(*session, -1));
        QVERIFY(!GeneCommands::MayOpenNewGeneForm(*session)); // declined: still no genome
        QVERIFY(!GeneCommands::CreateGeneOfRow(*session, 7));
        QCOMPARE(prompt.MessageTexts(), QStringList({"No gene is selected to move", "No valid genome initialised. Do you want me to do this for you?",
                                                     "Cannot create second Genus gene"}));
        QCOMPARE(QList<int>({prompt.shown[0].style, prompt.shown[1].style}), QList<int>({48, 35}));

        session->NewGenome();
        Add(*session, 2, 3, 1);
        prompt.AnswerInput(QStringLiteral("Crouch"));
        QVERIFY(GeneCommands::CreateGeneOfRow(*session, 9));
        QCOMPARE(session->CaptionStore.GetCaption(2, 3, 2), QStringLiteral("002 Crouch - Pose"));
        QVERIFY(session->GenomeImage.WriteCursor > 28);
    }

    void membershipFollowsGeneOrder()
    {
        Add<clsReceptor>(*session, 1, 0, 1, QStringLiteral("early")).Chem = 1; // 0 before any organ: outside
        Add(*session, 3, 0, 1, QStringLiteral("Heart"));                        // 1 organ 0
        Add<clsEmitter>(*session, 1, 1, 1, QStringLiteral("e1")).Chem = 2;     // 2
        auto &r1 = Add<clsReaction>(*session, 1, 2, 1, QStringLiteral("r1"));  // 3
        // Two of chemical A and 16 of no chemical (the amount is not shown) give one of B.
        std::tie(r1.Conc[0], r1.Chem[0], r1.Conc[1], r1.Chem[2], r1.Rate) = std::tuple(2, 1, 16, 2, 80);
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
            "reac0 > voci1 | [003] - B 2A + <nothing> --> 1B + <nothing> (half life = 5 mins)  r1 | reaction",
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
        // A second build starts from nothing.
        QVERIFY(builder.BuildOrganTree(sink));
        QCOMPARE(sink.lines, expected);
        r1.Rate = 255; // past the last row of the table: the last row
        QVERIFY(OrganLayout::ReactionDetail(*session, r1).endsWith(QStringLiteral("(half life = 52 years)  ")));
    }

    void everyKindAndMarkCounts()
    {
        // One gene of each of the sixteen kinds, in table order; rows 0..10 count one each, and
        // the mark rows count a gene once per mark.
        for (int k = 0; k < GeneKinds::Count; ++k)
            Add(*session, GeneKinds::At(k).type, GeneKinds::At(k).subType);
        session->GeneAt(5)->Mutability = 8 | 16;  // half-lives: no kind row, male and female
        session->GeneAt(10)->Mutability = 8 | 32 | 1; // pose: male and carried; bit 1 is no mark
        Genotype::GenotypeCounts counts;
        Genotype::CountGenome(*session, counts);
        QCOMPARE(counts.rows, (std::array<qint16, 14>{1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 2, 1, 1}));
    }

    void rowsCompareWithTemplate()
    {
        // Equal to the template reads 0, not "-"; 3 fewer than 43 and 3 more than 59 read
        // alike; 1 against a template of -3 reads 4; no genes read "-".
        Genotype::GenotypeCounts counts;
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

QTEST_GUILESS_MAIN(TestGeneListCore)
#include "test_genelist_core.moc"
