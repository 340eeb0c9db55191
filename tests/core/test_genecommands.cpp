// Row texts and the gene commands' logic, without widgets.
#include "core/Gene.h"
#include "core/GeneCommands.h"
#include "core/Session.h"
#include "core/genes/Biochemistry.h"
#include "core/genes/BodyGenes.h"
#include "support/ScriptedPrompt.h"

#include <QSignalSpy>
#include <QtTest>

class TestGeneCommands : public QObject
{
    Q_OBJECT
    ScriptedPrompt prompt;
    std::unique_ptr<Session> session;

    Gene *Add(int type, int subType, int id, const QString &caption = QString())
    {
        session->CreateGene(quint8(type), quint8(subType), false);
        Gene *g = session->GeneAt(session->GeneCount - 1);
        g->ID = quint8(id);
        if (!caption.isNull())
            session->CaptionStore.SetCaption(type, subType, id, caption);
        return g;
    }

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
        session->Lists.ChemicalNames[5] = QStringLiteral("Glucose");
        session->Lists.PoseNames[12] = QStringLiteral("Sit down");
        Add(2, 1, 1);
        auto *receptor = static_cast<clsReceptor *>(Add(1, 0, 7, QStringLiteral("007 Hunger - Receptor")));
        receptor->Chem = 5, receptor->Generation = 3, receptor->SwitchOn = 4;
        receptor->Mutability = 8 | 16 | 32; // both sexes: male shows; carried: brackets
        receptor->MutabilityWeighting = 200;
        auto *pose = static_cast<clsPose *>(Add(2, 3, 12));
        pose->pose = 12, pose->Mutability = 16;
        QCOMPARE(GeneCommands::RowTexts(*session, *receptor),
                 QStringList({"001", "3", "007", "Adult", "m", "(200)", "007 Hunger - Receptor",
                              "Biochemistry: Chemical Receptor (Glucose)"}));
        QCOMPARE(GeneCommands::RowTexts(*session, *pose),
                 QStringList({"002", "0", "012", "Embryo", "f", "0", "<no caption>", "Creature: Pose (Sit down)"}));
        QCOMPARE(GeneCommands::DescribeGene(*session, *receptor, false), QStringLiteral("Biochemistry: Chemical Receptor"));
        pose->GeneSubType = 9;
        QCOMPARE(GeneCommands::DescribeGene(*session, *pose, true), QStringLiteral("Creature: <unknown id 9>"));
        pose->GeneType = 5;
        prompt.AnswerMessage(Prompt::Ok);
        GeneCommands::EditGene(*session, 2);
        QCOMPARE(prompt.Last().text, QStringLiteral("No editor available for gene type '<unknown type  5>: <ignored  9>'"));
    }

    void deleteEmptiesTheRecordOfItsLastHolderOnly()
    {
        Add(2, 1, 1);
        Add(1, 0, 4, QStringLiteral("004 Shared"));
        Add(1, 0, 4); // the same key
        Add(1, 1, 4, QStringLiteral("004 Emitter"));
        session->CaptionStore.SetAnnotation(1, 0, 4, QStringLiteral("a long note"));
        QVERIFY(GeneCommands::DeleteGene(*session, 1, true));
        QCOMPARE(session->CaptionStore.GetCaption(1, 0, 4), QStringLiteral("004 Shared"));
        QCOMPARE(session->GeneAt(1)->Numeric_ID, qint16(1));
        QVERIFY(GeneCommands::DeleteGene(*session, 1, true));
        QCOMPARE(session->CaptionStore.GetCaption(1, 0, 4) + session->CaptionStore.GetAnnotation(1, 0, 4), QString());
        QCOMPARE(session->CaptionStore.GetCaption(1, 1, 4), QStringLiteral("004 Emitter"));
        Add(2, 3, 9); // a key without a record gets none
        const int records = session->CaptionStore.CaptionCount;
        QVERIFY(GeneCommands::DeleteGene(*session, 2, true));
        QCOMPARE(session->CaptionStore.CaptionCount, records);
    }

    void changeIdReadsTheLeadingNumber_data()
    {
        QTest::addColumn<QString>("answer");
        QTest::addColumn<int>("id"); // -1: refused
        QTest::newRow("blanks and text") << "  17 lobes" << 17;
        QTest::newRow("half to even") << "12.5" << 12;
        QTest::newRow("no number") << "abc" << 0;
        QTest::newRow("top") << "255" << 255;
        QTest::newRow("too big") << "256" << -1;
        QTest::newRow("negative") << "-3" << -1;
    }
    void changeIdReadsTheLeadingNumber()
    {
        QFETCH(QString, answer);
        QFETCH(int, id);
        Gene *g = Add(1, 2, 200);
        QSignalSpy rows(session.get(), &Session::GeneRowChanged);
        prompt.AnswerInput(answer);
        if (id < 0)
            prompt.AnswerMessage(Prompt::Ok);
        GeneCommands::ChangeID(*session, 0);
        QCOMPARE(prompt.shown[0].title + '|' + prompt.shown[0].text, QStringLiteral("Change ID|Change ID for '200' [200]"));
        QCOMPARE(int(g->ID), id < 0 ? 200 : id);
        QCOMPARE(rows.count(), id < 0 ? 0 : 1);
        if (id < 0)
            QCOMPARE(prompt.Last().text, "A gene ID must be a number from 0 to 255, and '" + answer
                                             + "' is not.\r\nThe gene keeps its ID 200.");
    }

    void changeIdWarnsOfEachDuplicateAfterTheRow()
    {
        Gene *a = Add(2, 4, 3, QStringLiteral("003 Run - Gait"));
        Add(2, 5, 8); // another kind with the new ID: no warning
        Add(2, 4, 8, QStringLiteral("008 Walk - Gait"));
        Add(2, 4, 8);
        int shownAtRefresh = -1;
        connect(session.get(), &Session::GeneRowChanged, this, [&] { shownAtRefresh = prompt.shown.size(); });
        prompt.AnswerInput(QStringLiteral("8")).AnswerMessage(Prompt::Ok).AnswerMessage(Prompt::Ok);
        GeneCommands::ChangeID(*session, 0);
        QCOMPARE(a->ID, quint8(8));
        QCOMPARE(shownAtRefresh, 1); // the row follows before the warnings
        const QString lead = QStringLiteral("Caution. Duplicate ID for 8 found:\r\nGene # is ");
        QCOMPARE(prompt.MessageTexts(), QStringList({lead + "2 (008 Walk - Gait)", lead + "3 (008 Walk - Gait)"}));
    }

    // The refusals of the move and new-gene commands, in order; then the 899th gene is made
    // with its caption and the 900th refused.
    void refusalsAndTheGeneLimit()
    {
        prompt.AnswerMessage(Prompt::Ok).AnswerMessage(Prompt::Ok).AnswerMessage(Prompt::No);
        prompt.AnswerMessage(Prompt::Ok).AnswerMessage(Prompt::Ok);
        QVERIFY(!GeneCommands::MayMoveDown(*session, -1)); // -1 equals GeneCount - 1: tested first
        QVERIFY(!GeneCommands::MayMoveUp(*session, -1));
        QVERIFY(!GeneCommands::MayOpenNewGeneForm(*session)); // declined: still no genome
        QVERIFY(!GeneCommands::CreateGeneOfRow(*session, 7));
        QVERIFY(!GeneCommands::CreateGeneOfRow(*session, 16));
        QCOMPARE(prompt.MessageTexts(),
                 QStringList({"Can't move this gene down further", "No gene is selected to move",
                              "No valid genome initialised. Do you want me to do this for you?",
                              "Cannot create second Genus gene", "Can't create a gene of type 16"}));
        QCOMPARE(QList<int>({prompt.shown[0].style, prompt.shown[1].style, prompt.shown[2].style}), QList<int>({16, 48, 35}));

        session->NewGenome();
        while (session->GeneCount < 898)
            Add(2, 3, 1);
        prompt.AnswerInput(QStringLiteral("Crouch")).AnswerMessage(Prompt::Ok);
        QVERIFY(GeneCommands::CreateGeneOfRow(*session, 9));
        Gene *g = session->GeneAt(898);
        QCOMPARE(QList<int>({g->GeneType, g->GeneSubType, g->ID}), QList<int>({2, 3, 2}));
        QCOMPARE(session->CaptionStore.GetCaption(2, 3, 2), QStringLiteral("002 Crouch - Pose"));
        QVERIFY(session->GenomeImage.WriteCursor > 28); // re-encoded for the space figure
        QVERIFY(!GeneCommands::CreateGeneOfRow(*session, 9));
        QCOMPARE(prompt.Last().text, QStringLiteral("Reached the limit of 900 genes."));
    }
};

QTEST_GUILESS_MAIN(TestGeneCommands)
#include "test_genecommands.moc"
