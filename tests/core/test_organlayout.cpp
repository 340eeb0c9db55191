// Organ membership by gene order, the node texts and keys, the statistics, the yields and the
// fault path of the organ tree build.
#include "core/Gene.h"
#include "core/OrganLayout.h"
#include "core/Session.h"
#include "core/genes/Biochemistry.h"
#include "support/ScriptedPrompt.h"

#include <QtTest>

namespace {

// Records the progress bar values and the yields in the order they happen.
class RecordingPrompt : public ScriptedPrompt
{
public:
    QStringList events;
    void ProgressSetValue(int value) override { events << QString::number(value); }
    void Yield() override { events << QStringLiteral("yield"); }
};

// Writes each node as "parentKey > key | text | image"; the summary node has no key.
class RecordingSink : public OrganTreeSink
{
public:
    QStringList lines, keys;
    QString status = QStringLiteral("old status");
    void Clear() override { lines.clear(), keys.clear(); }
    int AddNode(int parent, const QString &key, const QString &text, const QString &image) override
    {
        lines << (parent < 0 ? QStringLiteral("root") : keys[parent]) + QStringLiteral(" > ") + key
                     + QStringLiteral(" | ") + text + QStringLiteral(" | ") + image;
        keys << key;
        return int(keys.size()) - 1;
    }
    void SetStatusText(const QString &text) override { status = text; }
};

QStringList Statistics(int emitters, int receptors, int reactions, int members, int outside)
{
    return {QStringLiteral("root > stat01 | Total genes in organ status | information"),
            QStringLiteral("stat01 > stat01_A | Emitters: %1 | emitter").arg(emitters),
            QStringLiteral("stat01 > stat01_B | Receptors: %1 | receptor").arg(receptors),
            QStringLiteral("stat01 > stat01_C | Reactions: %1 | reaction").arg(reactions),
            QStringLiteral("stat01 > stat01_D | Total genes in organs: %1 | information").arg(members),
            QStringLiteral("stat01 > stat01_E | Genes outside organs: %1 | information").arg(outside)};
}

} // namespace

class TestOrganLayout : public QObject
{
    Q_OBJECT

    RecordingPrompt prompt;
    std::unique_ptr<Session> session;

    template <typename T = Gene> T &Add(int type, int subType, int id, const QString &caption = {}, quint8 mut = 0)
    {
        Gene *g = GeneKinds::Make(*session, type, subType);
        g->ID = quint8(id);
        g->Mutability = mut;
        g->Numeric_ID = session->GeneCount;
        session->GeneList[size_t(session->GeneCount++)].reset(g);
        session->CaptionStore.SetCaption(type, subType, id, caption);
        return static_cast<T &>(*g);
    }

private slots:
    void init()
    {
        prompt.Clear();
        prompt.events.clear();
        prompt.ProgressUnload();
        session.reset(new Session(prompt));
        session->Tables.Build();
        session->Lists.ChemicalNames[1] = QStringLiteral("A");
        session->Lists.ChemicalNames[2] = QStringLiteral("B");
    }

    void cleanup() { QVERIFY(prompt.AllAnswered()); }

    void membershipFollowsGeneOrder()
    {
        Add(2, 1, 1, QStringLiteral("genus"));                             // 0
        Add<clsReceptor>(1, 0, 1, QStringLiteral("early")).Chem = 1;      // 1 before any organ: outside
        Add(3, 0, 1, QStringLiteral("Heart"));                             // 2 organ 0
        Add<clsEmitter>(1, 1, 1, QStringLiteral("e1")).Chem = 2;          // 3
        Add<clsReaction>(1, 2, 1, QStringLiteral("r1"));                   // 4
        Add<clsEmitter>(1, 1, 2, QStringLiteral("e2"), 16).Chem = 1;      // 5
        Add(1, 3, 1, QStringLiteral("halflives"));                         // 6 not a member
        Add(0, 1, 1, QStringLiteral("brain organ"));                       // 7 opens no organ here
        Add<clsReceptor>(1, 0, 2, QStringLiteral("rc2"), 8);               // 8 still in organ 0
        Add(3, 0, 2, QStringLiteral("Twin"));                              // 9 organ 1, empty
        Add(3, 0, 3, QStringLiteral("Twin"));                              // 10 organ 2, same caption
        Add<clsReceptor>(1, 0, 3, QStringLiteral("rc3"), 24).Chem = 2;    // 11

        RecordingSink sink;
        session->OrganViewStale = true;
        OrganTreeBuilder builder(*session);
        QVERIFY(builder.BuildOrganTree(sink));
        const QStringList expected = QStringList{
            QStringLiteral("root > or0 | Heart | organ"),
            QStringLiteral("or0 > em0 | Emitters | emitter"),
            QStringLiteral("em0 > voci0 | [003] - B [Chem = B] e1 | emitter"),
            QStringLiteral("or0 > reac0 | Reactions | reaction"),
            QStringLiteral("reac0 > voci1 | [004] - B <nothing> + <nothing> --> <nothing> + <nothing> (half life = 5 secs)  r1 | reaction"),
            QStringLiteral("em0 > voci2 | [005] - F [Chem = A] e2 | emitter"),
            QStringLiteral("or0 > recep0 | Receptors | receptor"),
            QStringLiteral("recep0 > voci3 | [008] - M [Chem = ] rc2 | receptor"),
            QStringLiteral("or0 >  | Emitters: 2, Receptors: 1, Reactions: 1 (Total: 4) | information"),
            QStringLiteral("root > or1 | Twin | organ"),
            QStringLiteral("or1 >  | Emitters: 0, Receptors: 0, Reactions: 0 (Total: 0) | information"),
            QStringLiteral("root > or2 | Twin | organ"),
            QStringLiteral("or2 > recep2 | Receptors | receptor"),
            QStringLiteral("recep2 > voci4 | [011] - M [Chem = B] rc3 | receptor"),
            QStringLiteral("or2 >  | Emitters: 0, Receptors: 1, Reactions: 0 (Total: 1) | information"),
        } + Statistics(2, 2, 1, 5, 7);
        QCOMPARE(sink.lines, expected);
        QCOMPARE(sink.status, QStringLiteral("Total genes in organs: 5 over 3 organs."));
        QVERIFY(!session->OrganViewStale);
        QVERIFY(!builder.OrganTreeBusy);
        QVERIFY(builder.BuildOrganTree(sink)); // a second build starts from nothing
        QCOMPARE(sink.lines, expected);
    }

    void genomeWithoutOrgansHasOnlyStatistics()
    {
        Add(2, 1, 1);
        Add<clsReceptor>(1, 0, 1);
        Add(0, 1, 1);
        RecordingSink sink;
        QVERIFY(OrganTreeBuilder(*session).BuildOrganTree(sink));
        QCOMPARE(sink.lines, Statistics(0, 0, 0, 0, 3));
        QCOMPARE(sink.status, QStringLiteral("Total genes in organs: 0 over 0 organs."));
    }

    void reactionFormula()
    {
        for (int i = 0; i < 12; ++i)
            Add(2, 3, i + 1);
        auto &r = Add<clsReaction>(1, 2, 5, QStringLiteral("sugar"), 24);
        r.Conc[0] = 2;
        r.Chem[0] = 1;
        r.Conc[1] = 16; // no chemical: the amount is not shown
        r.Chem[2] = 2;
        r.Rate = 80;
        QCOMPARE(OrganLayout::OrganGeneText(*session, r),
                 QStringLiteral("[012] - M 2A + <nothing> --> 1B + <nothing> (half life = 5 mins)  sugar"));
        r.Rate = 255; // past the last row of the table: the last row
        QVERIFY(OrganLayout::ReactionDetail(*session, r).endsWith(QStringLiteral("(half life = 52 years)  ")));
    }

    void noGenesOrBusyLeavesEverything()
    {
        RecordingSink sink;
        sink.lines << QStringLiteral("old node");
        OrganTreeBuilder builder(*session);
        session->OrganViewStale = true;
        QVERIFY(!builder.BuildOrganTree(sink));
        Add(3, 0, 1);
        builder.OrganTreeBusy = true;
        QVERIFY(!builder.BuildOrganTree(sink));
        QCOMPARE(sink.lines, QStringList{QStringLiteral("old node")});
        QCOMPARE(sink.status, QStringLiteral("old status"));
        QVERIFY(session->OrganViewStale);
    }

    void yieldsOncePerOrganWhileProgressShows()
    {
        // Organs at 0, 3, 4 and 9 (the last gene): yields before genes 0, 1, 4 and 5.
        for (int t : {3, 1, 1, 3, 3, 1, 1, 1, 1, 3})
            Add(t, 0, 1);
        RecordingSink sink;
        OrganTreeBuilder builder(*session);
        QVERIFY(builder.BuildOrganTree(sink));
        QCOMPARE(prompt.events, QStringList()); // hidden window: no yields, no progress

        prompt.ProgressLoad(QStringLiteral("Updating organ layout..."));
        prompt.ProgressShow();
        QVERIFY(builder.BuildOrganTree(sink));
        QCOMPARE(prompt.events.join(QLatin1Char(' ')), QStringLiteral("yield 0 yield 9 yield 36 yield 45"));
    }

    void faultIsReportedAndFlagsStillClear()
    {
        Add(3, 0, 1, QStringLiteral("Liver"));
        Add<clsReceptor>(1, 0, 1, QStringLiteral("first"));
        Add<clsReceptor>(1, 0, 2);
        Add<clsReceptor>(1, 0, 3);
        std::unique_ptr<Gene> taken = std::move(session->GeneList[2]); // the list has lost a gene

        RecordingSink sink;
        OrganTreeBuilder builder(*session);
        session->OrganViewStale = true;
        prompt.AnswerMessage(Prompt::Ok);
        QVERIFY(builder.BuildOrganTree(sink));
        QCOMPARE(prompt.Last().text,
                 QStringLiteral("Failure to maintain organ list. Please save your work and restart the Helixbench"
                                "\n\rDescription: Error ID 91 (Object variable or With block variable not set)"));
        QCOMPARE(prompt.Last().style, 16);
        // The nodes made so far stay, the status line keeps its old text.
        QCOMPARE(sink.lines, (QStringList{QStringLiteral("root > or0 | Liver | organ"),
                                          QStringLiteral("or0 > recep0 | Receptors | receptor"),
                                          QStringLiteral("recep0 > voci0 | [001] - B [Chem = ] first | receptor")}));
        QCOMPARE(sink.status, QStringLiteral("old status"));
        QVERIFY(!session->OrganViewStale);
        QVERIFY(!builder.OrganTreeBusy);
        session->GeneList[2] = std::move(taken);
    }
};

QTEST_GUILESS_MAIN(TestOrganLayout)
#include "test_organlayout.moc"
