// The rule dialog and the text of a rule in a label.
#include "EditorTestKit.h"
#include "editors/frmSVRule.h"

namespace {
using Rule = std::array<quint8, 12>;
}

class TestSVRule : public QObject
{
    Q_OBJECT
    EditorTestKit kit;
    QString Text(const StateRule &r) { return StateRuleText(*kit.session, r); }

private slots:
    void init() { kit.Init(); }
    void cleanup() { kit.Cleanup(); }

    void ruleText()
    {
        QCOMPARE(Text(std::nullopt), QStringLiteral("<undefined>"));
        QCOMPARE(Text(Rule{0, 5, 6}), QStringLiteral("<undefined>")); // nothing shows behind a leading 0
        QCOMPARE(Text(Rule{5, 31, 2, 0, 9}), QStringLiteral("chem 0:PLUS:1:"));
        QCOMPARE(Text(Rule{41, 42}), QStringLiteral("<ERROR>:E!(42): "));
        // The two lines run together; a full rule shows twelve words.
        QCOMPARE(Text(Rule{1, 2, 3, 4, 22, 23, 24, 25, 26, 27, 28, 29}),
                 QStringLiteral("0:1:64:255:32:128:rnd const:chem 4:chem 5:leak in:leak out:curr src leak in:"));
    }

    void dialogKeepsUnknownTokensUntilOk()
    {
        frmSVRule d(*kit.session);
        QCOMPARE(d.windowTitle(), QStringLiteral("State Variable Rule"));
        for (int i = 0; i < 12; ++i) { // table order, not sorted: the item index is the token
            auto *c = Child<QComboBox>(&d, QStringLiteral("lstSR_%1").arg(i));
            QCOMPARE(QString::number(c->count()) + c->itemText(22) + c->itemText(25) + c->itemText(41),
                     QStringLiteral("4232chem 4<ERROR>"));
        }

        d.SetValue(Rule{0, 7, 200, 41, 255});
        d.lstSR[0]->setCurrentIndex(3);
        QCOMPARE(d.Value(), StateRule(Rule{0, 7, 200, 41, 255})); // the combos are not the value
        d.SVOKCommand->click();
        // Ok takes the combos: tokens after a leading 0 showed there, unknown ones as the error word.
        QCOMPARE(d.Value(), StateRule(Rule{3, 7, 41, 41, 41}));
    }

    // Cancel and the close box keep the rule. (Ok, and Cancel on an absent rule, are driven
    // through the brain lobe editor's rule buttons.)
    void cancelAndCloseBoxKeepTheRule()
    {
        const StateRule start(Rule{200, 5});
        for (int way = 0; way < 2; ++way) {
            bool driven;
            WhenModal<frmSVRule>(&driven, [way](frmSVRule *d) {
                d->lstSR[0]->setCurrentIndex(9);
                way ? (void)d->close() : d->SCCancelCommand->click();
            });
            QCOMPARE(EditStateRule(*kit.session, start), start);
            QVERIFY(driven);
        }
    }
};

QTEST_MAIN(TestSVRule)
#include "test_svrule.moc"
