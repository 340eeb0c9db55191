// The organ tree build: membership by gene order, the node texts and keys, the statistics
// and the yields.
#include "SummaryTestKit.h"
#include "core/OrganLayout.h"
#include "core/genes/Biochemistry.h"
#include "support/ScriptedPrompt.h"

#include <QtTest>

namespace {

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

} // namespace

class TestOrganLayout : public QObject
{
    Q_OBJECT

    ScriptedPrompt prompt;
    std::unique_ptr<Session> session;

    template <typename T = Gene> T &Add(int type, int subType, int id = 1, const QString &caption = {}, quint8 mut = 0)
    {
        return SummaryTestKit::Add<T>(*session, type, subType, id, caption, mut);
    }

private slots:
    void init()
    {
        prompt.Clear();
        prompt.ProgressUnload();
        prompt.yields = 0;
        session.reset(new Session(prompt));
        session->Tables.Build();
        session->Lists.ChemicalNames[1] = QStringLiteral("A");
        session->Lists.ChemicalNames[2] = QStringLiteral("B");
    }

    void membershipFollowsGeneOrder()
    {
        Add(2, 1, 1, QStringLiteral("genus"));                        // 0
        Add<clsReceptor>(1, 0, 1, QStringLiteral("early")).Chem = 1; // 1 before any organ: outside
        Add(3, 0, 1, QStringLiteral("Heart"));                        // 2 organ 0
        Add<clsEmitter>(1, 1, 1, QStringLiteral("e1")).Chem = 2;     // 3
        Add<clsReaction>(1, 2, 1, QStringLiteral("r1"));              // 4
        Add<clsEmitter>(1, 1, 2, QStringLiteral("e2"), 16).Chem = 1; // 5
        Add(1, 3, 1, QStringLiteral("halflives"));                    // 6 not a member
        Add(0, 1, 1, QStringLiteral("brain organ"));                  // 7 opens no organ here
        Add<clsReceptor>(1, 0, 2, QStringLiteral("rc2"), 8);          // 8 still in organ 0
        Add(3, 0, 2, QStringLiteral("Twin"));                         // 9 organ 1, empty
        Add(3, 0, 3, QStringLiteral("Twin"));                         // 10 organ 2, same caption
        Add<clsReceptor>(1, 0, 3, QStringLiteral("rc3"), 24).Chem = 2; // 11

        RecordingSink sink;
        session->OrganViewStale = true;
        OrganTreeBuilder builder(*session);
        QVERIFY(builder.BuildOrganTree(sink));
        const QStringList expected{
            "root > or0 | Heart | organ",
            "or0 > em0 | Emitters | emitter",
            "em0 > voci0 | [003] - B [Chem = B] e1 | emitter",
            "or0 > reac0 | Reactions | reaction",
            "reac0 > voci1 | [004] - B <nothing> + <nothing> --> <nothing> + <nothing> (half life = 5 secs)  r1 | reaction",
            "em0 > voci2 | [005] - F [Chem = A] e2 | emitter",
            "or0 > recep0 | Receptors | receptor",
            "recep0 > voci3 | [008] - M [Chem = ] rc2 | receptor",
            "or0 >  | Emitters: 2, Receptors: 1, Reactions: 1 (Total: 4) | information",
            "root > or1 | Twin | organ",
            "or1 >  | Emitters: 0, Receptors: 0, Reactions: 0 (Total: 0) | information",
            "root > or2 | Twin | organ",
            "or2 > recep2 | Receptors | receptor",
            "recep2 > voci4 | [011] - M [Chem = B] rc3 | receptor",
            "or2 >  | Emitters: 0, Receptors: 1, Reactions: 0 (Total: 1) | information",
            "root > stat01 | Total genes in organ status | information",
            "stat01 > stat01_A | Emitters: 2 | emitter",
            "stat01 > stat01_B | Receptors: 2 | receptor",
            "stat01 > stat01_C | Reactions: 1 | reaction",
            "stat01 > stat01_D | Total genes in organs: 5 | information",
            "stat01 > stat01_E | Genes outside organs: 7 | information"};
        QCOMPARE(sink.lines, expected);
        QCOMPARE(sink.status, QStringLiteral("Total genes in organs: 5 over 3 organs."));
        QVERIFY(!session->OrganViewStale);
        QCOMPARE(prompt.yields, 0); // no progress window: no yields, no progress

        // A second build starts from nothing. While the window shows, events run and the bar
        // moves at the first gene and at each gene after an organ: 0, 3, 10 and 11 (90 x 11 / 12
        // to even).
        prompt.ProgressLoad(QStringLiteral("Updating organ layout..."));
        prompt.ProgressShow();
        QVERIFY(builder.BuildOrganTree(sink));
        QCOMPARE(sink.lines, expected);
        QCOMPARE(prompt.yields, 4);
        QCOMPARE(prompt.progressValue, 82);
    }

    void reactionFormula()
    {
        auto &r = Add<clsReaction>(1, 2, 5, QStringLiteral("sugar"), 24);
        r.Conc[0] = 2;
        r.Chem[0] = 1;
        r.Conc[1] = 16; // no chemical: the amount is not shown
        r.Chem[2] = 2;
        r.Rate = 80;
        QCOMPARE(OrganLayout::OrganGeneText(*session, r),
                 QStringLiteral("[000] - M 2A + <nothing> --> 1B + <nothing> (half life = 5 mins)  sugar"));
        r.Rate = 255; // past the last row of the table: the last row
        QVERIFY(OrganLayout::ReactionDetail(*session, r).endsWith(QStringLiteral("(half life = 52 years)  ")));
    }
};

QTEST_GUILESS_MAIN(TestOrganLayout)
#include "test_organlayout.moc"
