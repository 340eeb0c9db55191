// Row texts and the gene commands' logic, without widgets.
#include "SummaryTestKit.h"
#include "core/GeneCommands.h"
#include "core/Session.h"
#include "core/genes/Biochemistry.h"
#include "core/genes/BodyGenes.h"
#include "support/ScriptedPrompt.h"

#include <QSignalSpy>
#include <QtTest>

using SummaryTestKit::Add;

class TestGeneCommands : public QObject
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
    // follows, and then each gene of the same kind with the new ID is warned of.
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

        int shownAtRefresh = -1;
        connect(session.get(), &Session::GeneRowChanged, this, [&] { shownAtRefresh = prompt.shown.size(); });
        prompt.AnswerInput(QStringLiteral("  255 lobes")).AnswerMessage(Prompt::Ok).AnswerMessage(Prompt::Ok);
        GeneCommands::ChangeID(*session, 0);
        QCOMPARE(QList<int>({a->ID, shownAtRefresh}), QList<int>({255, 3})); // the row follows before the warnings
        const QString lead = QStringLiteral("Caution. Duplicate ID for 255 found:\r\nGene # is ");
        QCOMPARE(prompt.MessageTexts().mid(1), QStringList({lead + "2 (255 Walk - Gait)", lead + "3 (255 Walk - Gait)"}));
    }

    // The refusals of the move and new-gene commands, in order; then the 899th gene is made
    // with its caption (the new-gene dialog's test has the 900th refused).
    void refusalsAndTheGeneLimit()
    {
        prompt.AnswerMessage(Prompt::Ok).AnswerMessage(Prompt::No).AnswerMessage(Prompt::Ok);
        QVERIFY(!GeneCommands::MayMoveUp(*session, -1));
        QVERIFY(!GeneCommands::MayOpenNewGeneForm(*session)); // declined: still no genome
        QVERIFY(!GeneCommands::CreateGeneOfRow(*session, 7));
        QCOMPARE(prompt.MessageTexts(), QStringList({"No gene is selected to move", "No valid genome initialised. Do you want me to do this for you?",
                                                     "Cannot create second Genus gene"}));
        QCOMPARE(QList<int>({prompt.shown[0].style, prompt.shown[1].style}), QList<int>({48, 35}));

        session->NewGenome();
        while (session->GeneCount < 898)
            Add(*session, 2, 3, 1);
        prompt.AnswerInput(QStringLiteral("Crouch"));
        QVERIFY(GeneCommands::CreateGeneOfRow(*session, 9));
        Gene *g = session->GeneAt(898);
        QCOMPARE(QList<int>({g->GeneType, g->GeneSubType, g->ID}), QList<int>({2, 3, 2}));
        QCOMPARE(session->CaptionStore.GetCaption(2, 3, 2), QStringLiteral("002 Crouch - Pose"));
        QVERIFY(session->GenomeImage.WriteCursor > 28); // re-encoded for the space figure
    }
};

QTEST_GUILESS_MAIN(TestGeneCommands)
#include "test_genecommands.moc"
