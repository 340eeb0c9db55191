// The rule dialog and the text of a rule in a label.
#include "EditorTestKit.h"
#include "editors/frmSVRule.h"

namespace {
using Rule = std::array<quint8, 12>;
}

class TestSVRule : public QObject
{
    Q_OBJECT
    ScriptedPrompt prompt;
    std::unique_ptr<Session> session;
    QString Text(const StateRule &r) { return StateRuleText(*session, r); }

private slots:
    void init()
    {
        session.reset(new Session(prompt));
        session->Tables.Build();
    }

    void ruleText()
    {
        QCOMPARE(Text(std::nullopt), QStringLiteral("<undefined>"));
        QCOMPARE(Text(Rule{0, 5, 6}), QStringLiteral("<undefined>")); // nothing shows behind a leading 0
        QCOMPARE(Text(Rule{5, 31, 2, 0, 9}), QStringLiteral("chem 0:PLUS:1:"));
        QCOMPARE(Text(Rule{200}), QStringLiteral("E!(200): "));
        QCOMPARE(Text(Rule{41, 42}), QStringLiteral("<ERROR>:E!(42): "));
        // The two lines run together; a full rule shows twelve words.
        QCOMPARE(Text(Rule{1, 2, 3, 4, 22, 23, 24, 25, 26, 27, 28, 29}),
                 QStringLiteral("0:1:64:255:32:128:rnd const:chem 4:chem 5:leak in:leak out:curr src leak in:"));
    }

    void dialogKeepsUnknownTokensUntilOk()
    {
        frmSVRule d(*session);
        QCOMPARE(d.windowTitle(), QStringLiteral("State Variable Rule"));
        QVERIFY(d.isModal());
        for (int i = 0; i < 12; ++i) {
            auto *c = Child<QComboBox>(&d, QStringLiteral("lstSR_%1").arg(i));
            QCOMPARE(c->count(), 42);
            // Table order, not sorted: the item index is the token.
            QCOMPARE(c->itemText(22) + c->itemText(25) + c->itemText(41), QStringLiteral("32chem 4<ERROR>"));
        }
        d.show();
        QVERIFY(d.lstSR[0]->geometry().bottom() < d.lstSR[6]->geometry().top()); // line 1 above line 2

        d.SetValue(Rule{0, 7, 200, 41, 255});
        // Tokens after a leading 0 show in the combos; unknown ones show the error word.
        QCOMPARE(QList<int>({d.lstSR[1]->currentIndex(), d.lstSR[2]->currentIndex(), d.lstSR[4]->currentIndex()}),
                 QList<int>({7, 41, 41}));
        d.lstSR[0]->setCurrentIndex(3);
        QCOMPARE(d.Value(), StateRule(Rule{0, 7, 200, 41, 255})); // the combos are not the value
        d.SVOKCommand->click();
        QCOMPARE(d.result(), int(QDialog::Accepted));
        QCOMPARE(d.Value(), StateRule(Rule{3, 7, 41, 41, 41}));
    }

    // Ok takes the combos; Cancel and the close box keep the rule, an absent one as zeros.
    void editStateRuleWaysOut()
    {
        const StateRule start(Rule{200, 5});
        const std::pair<StateRule, StateRule> results[] = {
            {start, StateRule(Rule{9, 5})}, {start, start}, {start, start}, {std::nullopt, StateRule(Rule{})}};
        for (int way = 0; way < 4; ++way) {
            bool driven;
            WhenModal<frmSVRule>(&driven, [way](frmSVRule *d) {
                d->lstSR[0]->setCurrentIndex(9);
                way == 2 ? (void)d->close() : (way == 0 ? d->SVOKCommand : d->SCCancelCommand)->click();
            });
            QCOMPARE(EditStateRule(*session, results[way].first), results[way].second);
            QVERIFY(driven);
        }
    }
};

QTEST_MAIN(TestSVRule)
#include "test_svrule.moc"
