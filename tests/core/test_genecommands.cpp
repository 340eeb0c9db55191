// Row texts and the gene commands' logic, without widgets.
#include "core/Gene.h"
#include "core/GeneCommands.h"
#include "core/GeneView.h"
#include "core/Session.h"
#include "core/genes/Biochemistry.h"
#include "core/genes/BodyGenes.h"
#include "support/ScriptedPrompt.h"

#include <QSignalSpy>
#include <QtTest>

namespace {
class NullView : public GeneView
{
public:
    void SetControls() override {}
    void GetControls() override {}
    void SetEditorCaption() override {}
    void ShowEditor() override {}
    void BringToFront() override {}
    void RequestClose() override {}
    void Dispose() override {}
};
} // namespace

class TestGeneCommands : public QObject
{
    Q_OBJECT

    ScriptedPrompt prompt;
    std::unique_ptr<Session> session;
    std::vector<std::unique_ptr<NullView>> views;

    Gene *Add(int type, int subType, int id, const QString &caption = QString())
    {
        session->GenomeImage.ReadCursor = 0;
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
        session->EditorFactory = [this](Gene &) {
            views.push_back(std::make_unique<NullView>());
            return views.back().get();
        };
    }
    void cleanup()
    {
        QVERIFY2(prompt.AllAnswered(), "a queued answer was not asked for");
        session.reset();
        views.clear();
    }

    void rowTextsAndKindDescriptions()
    {
        session->Lists.ChemicalNames[5] = QStringLiteral("Glucose");
        session->Lists.PoseNames[12] = QStringLiteral("Sit down");
        Add(2, 1, 1);
        auto *receptor = static_cast<clsReceptor *>(Add(1, 0, 7, QStringLiteral("007 Hunger - Receptor")));
        receptor->Chem = 5;
        receptor->Generation = 3;
        receptor->SwitchOn = 4;
        receptor->Mutability = 8 | 16 | 32; // both sexes: male shows; carried: brackets
        receptor->MutabilityWeighting = 200;
        auto *pose = static_cast<clsPose *>(Add(2, 3, 12));
        pose->pose = 12;
        pose->Mutability = 16;
        auto *inject = static_cast<clsInject *>(Add(1, 4, 3));
        inject->Chem = 5;

        QCOMPARE(GeneCommands::RowTexts(*session, *receptor),
                 QStringList({"001", "3", "007", "Adult", "m", "(200)", "007 Hunger - Receptor",
                              "Biochemistry: Chemical Receptor (Glucose)"}));
        QCOMPARE(GeneCommands::RowTexts(*session, *pose),
                 QStringList({"002", "0", "012", "Embryo", "f", "0", "<no caption>", "Creature: Pose (Sit down)"}));
        QCOMPARE(GeneCommands::DescribeGene(*session, *inject, true),
                 QStringLiteral("Biochemistry: Chemical Initial Concentration (Glucose)"));
        QCOMPARE(GeneCommands::DescribeGene(*session, *receptor, false), QStringLiteral("Biochemistry: Chemical Receptor"));
        QCOMPARE(GeneCommands::DescribeGene(*session, *session->GeneAt(0), true), QStringLiteral("Creature: Genus"));

        pose->GeneSubType = 9;
        QCOMPARE(GeneCommands::DescribeGene(*session, *pose, true), QStringLiteral("Creature: <unknown id 9>"));
        pose->GeneType = 5;
        QCOMPARE(GeneCommands::DescribeGene(*session, *pose, true), QStringLiteral("<unknown type  5>: <ignored  9>"));
        prompt.AnswerMessage(Prompt::Ok);
        GeneCommands::EditGene(*session, 2);
        QCOMPARE(prompt.Last().text, QStringLiteral("No editor available for gene type '<unknown type  5>: <ignored  9>'"));
        QVERIFY(!pose->IsOpen);
        GeneCommands::EditGene(*session, 1);
        QVERIFY(receptor->IsOpen);
    }

    void deleteEmptiesTheRecordOfItsLastHolderOnly()
    {
        Add(2, 1, 1);
        Add(1, 0, 4, QStringLiteral("004 Shared"));
        Add(1, 0, 4); // the same key
        Add(1, 1, 4, QStringLiteral("004 Emitter"));
        session->CaptionStore.SetAnnotation(1, 0, 4, QStringLiteral("a long note"));
        QSignalSpy refresh(session.get(), &Session::ViewsRefreshRequested);

        QVERIFY(GeneCommands::DeleteGene(*session, 1, true));
        QCOMPARE(session->CaptionStore.GetCaption(1, 0, 4), QStringLiteral("004 Shared"));
        QCOMPARE(session->GeneAt(1)->Numeric_ID, qint16(1));
        QVERIFY(GeneCommands::DeleteGene(*session, 1, true));
        QCOMPARE(session->CaptionStore.GetCaption(1, 0, 4), QString());
        QCOMPARE(session->CaptionStore.GetAnnotation(1, 0, 4), QString());
        QCOMPARE(session->CaptionStore.GetCaption(1, 1, 4), QStringLiteral("004 Emitter"));
        QCOMPARE(refresh.count(), 2);

        // A key without a record gets none.
        Add(2, 3, 9);
        const int records = session->CaptionStore.CaptionCount;
        QVERIFY(GeneCommands::DeleteGene(*session, 2, true));
        QCOMPARE(session->CaptionStore.CaptionCount, records);
        QCOMPARE(session->CaptionStore.GetCaption(2, 3, 9), QStringLiteral("<no caption>"));
    }

    void movesOnAnEmptyList()
    {
        // n = -1 equals GeneCount - 1, and going down that test comes first.
        prompt.AnswerMessage(Prompt::Ok).AnswerMessage(Prompt::Ok);
        QVERIFY(!GeneCommands::MayMoveDown(*session, -1));
        QVERIFY(!GeneCommands::MayMoveUp(*session, -1));
        QCOMPARE(prompt.MessageTexts(), QStringList({"Can't move this gene down further", "No gene is selected to move"}));
        QCOMPARE(prompt.shown[0].style, 16);
        QCOMPARE(prompt.shown[1].style, 48);
    }

    void changeIdReadsTheLeadingNumber_data()
    {
        QTest::addColumn<QString>("answer");
        QTest::addColumn<int>("id");
        QTest::newRow("plain") << "42" << 42;
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
        QCOMPARE(prompt.shown[0].title, QStringLiteral("Change ID"));
        QCOMPARE(prompt.shown[0].text, QStringLiteral("Change ID for '200' [200]"));
        if (id >= 0) {
            QCOMPARE(int(g->ID), id);
            QCOMPARE(rows.count(), 1);
        } else {
            QCOMPARE(g->ID, quint8(200));
            QCOMPARE(rows.count(), 0);
            QCOMPARE(prompt.Last().text, "A gene ID must be a number from 0 to 255, and '" + answer
                                             + "' is not.\r\nThe gene keeps its ID 200.");
        }
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
        QCOMPARE(session->CaptionStore.GetCaption(2, 4, 3), QStringLiteral("003 Run - Gait"));
    }

    void newGeneRowMakesANamedGene()
    {
        session->NewGenome();
        Add(2, 3, 1);
        prompt.AnswerMessage(Prompt::Ok).AnswerInput(QStringLiteral("Crouch"));
        QVERIFY(!GeneCommands::CreateGeneOfRow(*session, 16));
        QCOMPARE(prompt.Last().text, QStringLiteral("Can't create a gene of type 16"));
        QVERIFY(GeneCommands::CreateGeneOfRow(*session, 9));
        Gene *g = session->GeneAt(2);
        QCOMPARE(int(g->GeneType) * 16 + g->GeneSubType, 0x23);
        QCOMPARE(int(g->ID), 2);
        QVERIFY(g->IsOpen);
        QCOMPARE(session->CaptionStore.GetCaption(2, 3, 2), QStringLiteral("002 Crouch - Pose"));
        QVERIFY(session->GenomeImage.WriteCursor > 28); // re-encoded for the space figure
    }
};

QTEST_GUILESS_MAIN(TestGeneCommands)
#include "test_genecommands.moc"
